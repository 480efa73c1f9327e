#include "storage/Schema.h"

#include "platform/Fichiers.h"
#include "storage/Base.h"
#include "storage/Moteur.h"

#include <QFile>
#include <QtEndian>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QString TypeColonne(const QString *) {
  return u"TEXT"_s;
}
QString TypeColonne(const bool *) {
  return u"INTEGER"_s;
}
QString TypeColonne(const int *) {
  return u"INTEGER"_s;
}
QString TypeColonne(const Cle *) {
  return u"INTEGER"_s;
}

template <typename L, typename Champ>
QString Definition(const Colonne<L, Champ> &colonne) {
  return Entre(colonne.nom) + u' ' + TypeColonne(static_cast<const Champ *>(nullptr));
}

/// AUTOINCREMENT, so that a key is never given a second time: texts and other files keep them.
template <typename L>
QString Creation(Table<L> table) {
  QStringList colonnes;
  std::apply([&](const auto &...colonne) { (colonnes.append(Definition(colonne)), ...); },
             Table<L>::colonnes);
  colonnes.first() += u" PRIMARY KEY AUTOINCREMENT"_s;
  return u"CREATE TABLE "_s + Nom(table) + u" ("_s + colonnes.join(u", ") + u')';
}

// The header of the engine's format: the sign of such a file at its head, the "user version" in
// big-endian order at byte 60.
constexpr qsizetype kPlaceVersion = 60;
constexpr QByteArrayView kSigne("SQLite format 3\0", 16);

}  // namespace

void CreerBaseVide(const QString &chemin) {
  if (QFile::exists(chemin)) throw ErreurBase(u"Le fichier « %1 » existe déjà."_s.arg(chemin));
  CreerTables(chemin);
}

void CreerTables(const QString &chemin) {
  // `Base` opens only what is a database of ours already; this makes the file that it can open.
  const Connexion base(chemin, Connexion::Fichier::Nouveau, 0ms);
  base.Executer(u"PRAGMA journal_mode=MEMORY"_s);
  base.Executer(u"PRAGMA application_id=%1"_s.arg(Base::kApplication));
  base.Executer(u"PRAGMA user_version=%1"_s.arg(Base::kVersion));
  PourChaqueTable([&base](auto table) { base.Executer(Creation(table)); });
}

qint32 VersionDuFichier(const QString &chemin) {
  const QByteArray entete = LireFichier(chemin).value_or(QByteArray());
  if (entete.size() < kPlaceVersion + qsizetype{sizeof(qint32)} || !entete.startsWith(kSigne))
    return -1;
  return qFromBigEndian<qint32>(entete.constData() + kPlaceVersion);
}
