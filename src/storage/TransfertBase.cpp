#include "storage/TransfertBase.h"

#include "platform/Fichiers.h"
#include "storage/Base.h"
#include "storage/Moteur.h"
#include "storage/Requete.h"
#include "storage/Schema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

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

/// False when the file is missing or no database of ours. Throws when it may be one that cannot be
/// read now: nobody may put a file in its place then, or copy it half written.
bool Ouvrir(Base &base, const QString &chemin) {
  try {
    base.Ouvrir(chemin);
  } catch (const ErreurBase &erreur) {
    const GenreErreur genre = erreur.Genre();
    if (genre != GenreErreur::Endommagee && genre != GenreErreur::Autre) throw;
  }
  return base.Ouverte();
}

qint64 Version(Base &base, const QString &schema) {
  Requete requete(base, u"PRAGMA "_s + schema + u".user_version"_s);
  return requete.Suivante() ? requete.Entier(0) : 0;
}

/// Gives `base` the rows of another database of the same schema, and nothing else. False when the
/// schemas differ.
bool PrendreLignes(Base &base, const QString &source) {
  Requete(base, u"ATTACH ? AS origine"_s).Lier(AdresseMoteur(source)).Executer();
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

/// The file as one that nobody is writing to.
QByteArray Octets(const QString &chemin) {
  const QTemporaryDir dossier;
  const QString copie = dossier.filePath(u"copie.mdb"_s);
  Base base;
  const bool notre = Ouvrir(base, chemin);
  if (notre) Requete(base, u"VACUUM INTO ?"_s).Lier(copie).Executer();
  const auto octets = LireFichier(notre ? copie : chemin);
  if (!octets)
    throw ErreurFichier(
        u"Le fichier « %1 » ne peut pas être lu."_s.arg(QDir::toNativeSeparators(chemin)));
  return *octets;
}

}  // namespace

void TransfererBase(const QString &source, const QString &destination) {
  if (MemeFichier(source, destination)) return;
  {
    Base cible, origine;
    if (Ouvrir(origine, source) && Ouvrir(cible, destination)) {
      origine.Fermer();
      if (PrendreLignes(cible, source)) return;
    }
  }
  const QByteArray octets = Octets(source);
  // What an interrupted writing has left beside the old file would be put into the new one.
  const QString journal = destination + u"-journal"_s;
  if (QFileInfo::exists(journal)) EffacerFichier(journal);
  RemplacerFichier(destination, octets);
}
