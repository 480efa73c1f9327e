#pragma once

// `Defaut.ini`, the default sender: a line with an address string, a line with a digit.

#include "address/ChaineAdresse.h"
#include "storage/Base.h"
#include "storage/Lignes.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// Where the file stands.
QString CheminDefaut(const QString &appPath);

/// Replaces the file. An empty address string is the choice of no sender. Throws `ErreurFichier`.
void EcrireExpediteurDefaut(const QString &appPath, const AdresseComposee &expediteur);

/// The file while a transaction writes the default sender: it follows before the transaction is
/// ended, and comes back as it was where that fails after all.
class FichierDefaut {
 public:
  explicit FichierDefaut(const QString &appPath) : appPath_(appPath) {}
  /// Puts the file back, unless it is kept.
  ~FichierDefaut();
  FichierDefaut(const FichierDefaut &) = delete;
  FichierDefaut &operator=(const FichierDefaut &) = delete;

  /// The sender's address, or no file for one without a key. Throws `ErreurFichier`.
  void Suivre(const Expediteur &defaut);
  /// The choice of no sender. Throws `ErreurFichier`.
  void ChoisirAucun();
  /// The transaction has been ended.
  void Garder() { touche_ = false; }

 private:
  template <typename Ecriture>
  void Remplacer(Ecriture &&ecriture);

  QString appPath_;
  bool touche_ = false;
  std::optional<QByteArray> avant_;  ///< nothing where there was no file
};

/// Reads the file; what its code page lacks is taken from the row of the default sender, where that
/// is the same but for it. One of the older form without the digit is completed by "0" and written
/// back. One that holds no address string is the choice of no sender, or damaged: it is deleted and
/// no sender of the table stays the default one. Nothing when there is no such file. Throws
/// `ErreurFichier` and `ErreurBase`.
std::optional<AdresseComposee> LireExpediteurDefaut(const QString &appPath, Base &base);

/// Key of the sender whom the file's address is of: the one whose row bears it, the default one
/// before others and where none does; 0 for nobody. Throws `ErreurBase`.
Cle CleExpediteur(const AdresseComposee &expediteur, Base &base);
