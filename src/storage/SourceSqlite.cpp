#include "storage/SourceSqlite.h"

#include "storage/Base.h"

#include <QFileInfo>
#include <QSqlError>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

// Another user's upgrade of the same file is waited for to its end.
constexpr auto kOptions = "QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=120000";  // milliseconds

/// Of a file that may be older than the rules for names: quoted, quotes doubled.
QString Cite(QString nom) {
  return u'"' + nom.replace(u'"', u"\"\""_s) + u'"';
}

void Lancer(QSqlQuery &requete) {
  if (!requete.exec()) throw ErreurBase(requete.lastError().text());
}

void Preparer(QSqlQuery &requete, const QString &texte) {
  requete.setForwardOnly(true);
  if (!requete.prepare(texte)) throw ErreurBase(requete.lastError().text());
}

}  // namespace

SourceSqlite::SourceSqlite(const QString &chemin) {
  connexion_ = QSqlDatabase::addDatabase(
      u"QSQLITE"_s, u"velmira-ancienne-%1"_s.arg(reinterpret_cast<quintptr>(this)));
  // "rw" although nothing is written: a read-only opening could not take back what a killed program
  // left half written, and would refuse the file for ever.
  connexion_.setDatabaseName(
      QUrl::fromLocalFile(QFileInfo(chemin).absoluteFilePath()).toString(QUrl::FullyEncoded) +
      u"?mode=rw"_s);
  connexion_.setConnectOptions(QString::fromLatin1(kOptions));
  try {
    if (!connexion_.open()) throw ErreurBase(connexion_.lastError().text());
    for (const QString &table : {u"Adresse"_s, u"Expediteur"_s, u"Ville"_s})
      if (Colonnes(table).isEmpty())
        throw ErreurBase(u"Le fichier « %1 » n'a pas de table %2."_s.arg(chemin, table));
  } catch (const ErreurBase &) {
    Fermer();
    throw;
  }
}

SourceSqlite::~SourceSqlite() {
  Fermer();
}

void SourceSqlite::Fermer() {
  lecture_.reset();
  const QString nom = connexion_.connectionName();
  connexion_.close();
  connexion_ = QSqlDatabase();
  QSqlDatabase::removeDatabase(nom);
}

QStringList SourceSqlite::Colonnes(const QString &table) const {
  QSqlQuery requete(connexion_);
  Preparer(requete, u"PRAGMA table_info("_s + Cite(table) + u')');
  Lancer(requete);
  QStringList noms;
  while (requete.next()) noms.append(requete.value(1).toString());
  return noms;
}

void SourceSqlite::Reserver() {
  QSqlQuery requete(connexion_);
  Preparer(requete, u"BEGIN IMMEDIATE"_s);
  Lancer(requete);
}

bool SourceSqlite::Ouvrir(const QString &table) {
  lecture_.reset();
  const QStringList colonnes = Colonnes(table);
  if (colonnes.isEmpty()) return false;
  lecture_.emplace(connexion_);
  lecture_->table = table;
  lecture_->colonnes = colonnes;
  Preparer(lecture_->cles, u"SELECT rowid FROM "_s + Cite(table) + u" ORDER BY rowid"_s);
  Preparer(lecture_->ligne, u"SELECT * FROM "_s + Cite(table) + u" WHERE rowid=?"_s);
  Lancer(lecture_->cles);
  return true;
}

bool SourceSqlite::Suivante() {
  QSqlQuery &cles = lecture_->cles, &ligne = lecture_->ligne;
  if (!cles.next()) {
    // The end of the rows and a page that cannot be read both end here; only the error tells.
    if (cles.lastError().isValid()) throw ErreurBase(cles.lastError().text());
    return false;
  }
  lecture_->cle = cles.value(0).toLongLong();
  ligne.addBindValue(lecture_->cle);
  lecture_->entiere = ligne.exec() && ligne.next();
  return true;
}

std::optional<QVariant> SourceSqlite::Champ(int ordinal) {
  if (ordinal >= lecture_->colonnes.size()) return std::nullopt;
  if (lecture_->entiere) return lecture_->ligne.value(ordinal);
  // The row is damaged: whatever of it can still be read is.
  QSqlQuery seul(connexion_);
  seul.setForwardOnly(true);
  if (!seul.prepare(u"SELECT %1 FROM %2 WHERE rowid=?"_s.arg(Cite(lecture_->colonnes[ordinal]),
                                                             Cite(lecture_->table))))
    return std::nullopt;
  seul.addBindValue(lecture_->cle);
  if (!seul.exec() || !seul.next()) return std::nullopt;
  return seul.value(0);
}
