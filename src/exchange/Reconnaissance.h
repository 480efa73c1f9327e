#pragma once
// Who of the directory the person of a file is, if anybody: by the name, in upper or lower case, as
// of the exchange file.

#include "exchange/Confrontation.h"
#include "exchange/FichierRepris.h"
#include "exchange/PersonneImportee.h"
#include "storage/Base.h"
#include "storage/Lignes.h"

#include <QHash>
#include <QList>
#include <QMultiHash>
#include <QString>

#include <cstddef>
#include <optional>
#include <utility>

/// A record that the person of a file may be.
struct Reconnue {
  enum class Lien {
    Pareille,  ///< it holds all that the file says, and where it is asked for, in its columns
    Libre,     ///< nobody of this file is it yet
    Prise,     ///< another one of this file is it, and this one does not contradict it
  };
  Lien lien;
  Correspondant presente;
  Confrontation faite;
};

/// The names of the directory, as far as a user may see them, and what has become of them while
/// files are gone through. Every verb throws `ErreurBase`.
class Reconnaissance {
 public:
  Reconnaissance(Base &base, const QString &utilisateur, LecturePhoto lirePhoto);

  /// Whoever came of the former file is one who was there already. A row of an older database is a
  /// record of its own, whoever shares its name, and keeps its mark of protection.
  void Commencer(const FichierRepris &fichier);

  /// Whether the file has protected the person from this user: nobody is told of it then, and only
  /// records of the same mark may be it.
  bool EstCachee(const Correspondant &fiche) const;
  /// The mark of protection that a new record gets: what another directory has hidden from others
  /// is from now on this user's own.
  QString Marque(const Correspondant &fiche) const;

  /// The record that holds all of it, else the first one that nobody of this file is, else one that
  /// another of this file has added, or any of them where gaps are completed. Of a name that very
  /// many bear, only the first ones and those with the same numbers and mail are looked at.
  /// Nothing: the person is new.
  std::optional<Reconnue> Chercher(const PersonneImportee &personne, Deja deja);
  /// Somebody of this file is the record, or has been added as it.
  void Prendre(Cle cle) { roles_.insert(cle, Role::Reconnue); }
  void Ajouter(const Correspondant &fiche, Cle cle);

  /// The records of a name, in the order of the table.
  QList<Cle> DeCeNom(const Correspondant &fiche) const;

  /// Somebody of another name with the same mail or number, and which; nothing for none.
  std::optional<std::pair<QString, QString>> MemeAdresse(const Correspondant &fiche) const;
  void NoterAdresses(const Correspondant &fiche);

 private:
  enum class Role { Reconnue, Ajoutee };

  void Noter(const Correspondant &fiche, bool cachee, Cle cle);
  QList<Cle> Candidates(const Correspondant &fiche) const;

  /// What records of one name and one secrecy have in common.
  QString CleNom(const Correspondant &fiche, bool cachee) const;

  Base &base_;
  QString utilisateur_;
  LecturePhoto lirePhoto_;
  bool ligneALigne_ = false;
  QHash<QString, QList<Cle>> noms_;
  QMultiHash<std::size_t, Cle> semblables_;  ///< by name, numbers and mail
  QHash<QString, QString> adresses_;         ///< the name of the first who has it
  QHash<Cle, Role> roles_;                   ///< of the records that somebody of this file is
};
