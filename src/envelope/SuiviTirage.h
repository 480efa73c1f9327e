#pragma once
// What is kept of a run of envelopes while it goes, so that it can be taken up where it ended,
// whatever has ended it: one file a run in the folder "Tirages" of the application folder, replaced
// whole at each step.

#include "address/ChaineAdresse.h"
#include "envelope/EtatEnveloppe.h"
#include "platform/Imprimante.h"
#include "storage/Tables.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

class QLockFile;

/// Someone whose envelope is wanted.
struct Destinataire {
  Cle cle = 0;
  QString nom;
  AdresseComposee adresse;
  bool modifiee = false;  ///< the address is no longer the one that the run was started with
};

/// A run as it stands.
struct EtatTirage {
  QString titre;  ///< a category, or "sélection"
  QString base;   ///< path of the database that the keys are of
  QString appareil;
  QDateTime debut;
  bool dUnTrait = false;  ///< without pauses, as one document
  EtatEnveloppe enveloppe;
  QList<Destinataire> destinataires;
  QStringList sansAdresse;  ///< who was meant, and has none
  QStringList disparus;     ///< who was meant, and has been deleted or hidden before his turn
  qsizetype faites = 0;     ///< so many of them are printed, in their order
  /// The next one has been handed over, and the printer has not said what became of it.
  bool incertaine = false;

  qsizetype Restantes() const { return destinataires.size() - faites; }
  bool EstUnDocument() const { return dUnTrait || appareil == Imprimante::NomPdf(); }
};

/// Reads again whoever is left: a name or an address that has changed takes the place of the old
/// one, who has no address any more is among the `sansAdresse`, and who is no longer there or not
/// for this user's eyes among the `disparus`. Throws `ErreurBase`.
void RelireRestants(EtatTirage &etat, const TableAdresse &table, const QString &utilisateur);

/// A run, and its file. No other run of the program offers it meanwhile. What fails at its file
/// stops no printing: the run cannot be taken up later then, and its file goes.
class SuiviTirage {
 public:
  /// A new run.
  SuiviTirage(const QString &appPath, EtatTirage etat);
  ~SuiviTirage();
  SuiviTirage(const SuiviTirage &) = delete;
  SuiviTirage &operator=(const SuiviTirage &) = delete;

  /// The last run of this database that came to no end and is nobody's now; none where there is no
  /// such run.
  static std::unique_ptr<SuiviTirage> Interrompu(const QString &appPath, const QString &base);

  const EtatTirage &Etat() const { return etat_; }
  /// Each is a step, after which the file is as the run. A run with nothing left has no file.
  void Noter(const EtatTirage &etat);
  void NoterFaites(qsizetype faites, const EtatEnveloppe &enveloppe);
  void NoterIncertaine(bool incertaine);

  /// Whether the file is there.
  bool EstGarde() const { return !chemin_.isEmpty(); }
  /// It is not to be taken up.
  void Oublier();

 private:
  SuiviTirage(QString chemin, std::unique_ptr<QLockFile> verrou, EtatTirage etat);
  void Ecrire();

  QString chemin_;  ///< empty without a file
  std::unique_ptr<QLockFile> verrou_;
  EtatTirage etat_;
};
