#include "storage/TransfertBase.h"

#include "platform/Fichiers.h"
#include "platform/Pannes.h"
#include "storage/Base.h"
#include "storage/Moteur.h"
#include "storage/Requete.h"
#include "storage/Schema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cerrno>
#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace {

bool MemeFichier(const QString &un, const QString &autre) {
  const auto chemin = [](const QString &texte) {
    return std::filesystem::path(QFile::encodeName(texte).toStdString());
  };
  std::error_code erreur;
  return std::filesystem::equivalent(chemin(un), chemin(autre), erreur);
}

/// False when the file is missing or no database of ours. Throws when it is one of a newer version,
/// or may be one that cannot be read now: nobody may put a file in its place then.
bool Ouvrir(Base &base, const QString &chemin) {
  try {
    base.Ouvrir(chemin);
  } catch (const ErreurBase &erreur) {
    const GenreErreur genre = erreur.Genre();
    if (genre != GenreErreur::Endommagee && genre != GenreErreur::Etrangere) throw;
  }
  return base.Ouverte();
}

qint64 Version(Base &base, const QString &schema) {
  Requete requete(base, u"PRAGMA "_s + schema + u".user_version"_s);
  return requete.Suivante() ? requete.Entier(0) : 0;
}

/// Makes a new file of it, as of one that nobody is writing to.
void RemplacerPar(Base &origine, const QString &destination) {
  RemplacerFichierPar(destination, [&](const QString &copie) {
    Requete(origine, u"VACUUM INTO ?"_s).Lier(copie).Executer();
    // What an interrupted writing has left beside the old file would be put into the new one.
    const QString journal = destination + u"-journal"_s;
    if (QFileInfo::exists(journal)) EffacerFichier(journal);
  });
}

}  // namespace

void TransfererBase(const QString &source, const QString &destination) {
  if (MemeFichier(source, destination)) return;
  Base origine, cible;
  origine.Ouvrir(source);
  if (!origine.Ouverte())
    throw EchecSysteme(
        u"La base de données « %1 » n'a pas pu être copiée"_s.arg(QDir::toNativeSeparators(source)),
        u"Celle de la destination est intacte."_s, ENOENT);
  if (Ouvrir(cible, destination) && PrendreLignes(cible, source)) return;
  cible.Fermer();
  RemplacerPar(origine, destination);
}

bool PrendreLignes(Base &base, const QString &source) {
  Requete(base, u"ATTACH ? AS origine"_s).Lier(AdresseEnLecture(source)).Executer();
  if (Version(base, u"origine"_s) != Version(base, u"main"_s)) return false;
  Transaction transaction(base);
  const auto remplacer = [&base](const QString &table, const QString &colonnes) {
    Requete(base, u"DELETE FROM main."_s + table).Executer();
    Requete(base, u"INSERT INTO main."_s + table + u" ("_s + colonnes + u") SELECT "_s + colonnes +
                      u" FROM origine."_s + table)
        .Executer();
  };
  PourChaqueTable([&](auto table) { remplacer(Nom(table), ListeColonnes(table)); });
  remplacer(u"sqlite_sequence"_s, u"name, seq"_s);  // keys that were given once stay given
  transaction.Valider();
  return true;
}

void TransfererBaseJet(SourceJet &source, const QString &destination, const ReglesCopie &regles) {
  if (MemeFichier(source.Chemin(), destination)) return;
  const QTemporaryDir dossier;
  if (!dossier.isValid())
    throw EchecSysteme(u"L'ancienne base de données n'a pas pu être convertie"_s,
                       u"Celle de la destination est intacte."_s, ENOSPC, dossier.errorString());
  const QString convertie = dossier.filePath(u"convertie.mdb"_s);
  ConvertirBase(source, convertie, regles, [](qsizetype) {});
  TransfererBase(convertie, destination);
}
