#pragma once
// Persons of other programs' files are taken into the directory, where some of them may stand
// already: somebody is known by the name, in upper or lower case, as of the exchange file.

#include "exchange/Confrontation.h"
#include "exchange/FichierRepris.h"
#include "exchange/PersonneImportee.h"
#include "storage/Avance.h"
#include "storage/Base.h"
#include "storage/Lignes.h"
#include "storage/ReunionTables.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <utility>

/// The answer for one person of a file.
struct ReponseReprise {
  Deja deja = Deja::Completer;
  /// These columns of those that differ or are missing, whatever `deja` says; nothing of the
  /// others.
  std::optional<ChoixColonnes<Correspondant>> prises = {};
};

struct DemandeReprise {
  Deja deja = Deja::Completer;  ///< for all that have no answer of their own
  /// By file and rank of the person, see `Origine`.
  QHash<std::pair<QString, qsizetype>, ReponseReprise> reponses = {};
  QString utilisateur;    ///< records hidden from whom are not there
  QString dossierPhotos;  ///< where the pictures go, made where it is missing
};

/// What a taking over has done. Of each list there are `kLignes` at most, so that memory does not
/// grow with the files; `tus` counts what it leaves out.
struct BilanReprise {
  static constexpr qsizetype kLignes = 10'000;
  struct Chapitre {
    QStringList lignes;
    qsizetype tus = 0;

    void Ajouter(const QString &ligne);
  };

  qsizetype ajoutes = 0;
  qsizetype caches = 0;      ///< of these, who is hidden from the user
  qsizetype completes = 0;   ///< gaps of whom were filled
  qsizetype remplaces = 0;   ///< values of whom were replaced
  qsizetype identiques = 0;  ///< who stood there with all that the file says
  qsizetype gardes = 0;      ///< who stood there otherwise, and has not changed
  qsizetype refuses = 0;
  Chapitre refus;        ///< place, name and reason
  Chapitre notes;        ///< name and value that has gone to the notes
  Chapitre ecarts;       ///< name, field, value of the directory and of the file, not taken
  Chapitre memeAdresse;  ///< two names with the same mail or number
  Chapitre venus;        ///< the names of whom was added
  Chapitre changes;      ///< the names of whom something was filled, noted or replaced
  bool arrete = false;   ///< nothing has changed then, and nothing is counted

  Reunion tables;  ///< what else the older databases have brought
  /// One of the first years has been taken over, and imported addresses with it.
  bool ancienneBase = false, adressesImportees = false;

  qsizetype Pris() const { return ajoutes + completes + remplaces + identiques + gardes; }
};

/// Takes all of them over in one transaction: a stop or a failure leaves the directory as it was,
/// and no picture behind. Who is there with all that the file says is never added again. A record
/// answers for one person of a file: of two of one name that contradict each other the second is
/// added, those that do not are one. Throws `ErreurBase` and `ErreurFichier`.
BilanReprise ReprendrePersonnes(Base &base, const QList<FichierRepris> &fichiers,
                                const UsagesReprise &usages, const DemandeReprise &demande,
                                const Avance &avance);

/// The lines of a report: place, name and reason; two names with what they share.
QString TexteRefus(const PersonneImportee &personne);
QString TexteMemeAdresse(const Correspondant &fiche, const std::pair<QString, QString> &autre);
