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
  const QString lignes = u"SELECT rowid, * FROM "_s + Cite(table);
  Preparer(lecture_->toutes, lignes + u" ORDER BY rowid"_s);
  Preparer(lecture_->seule, lignes + u" WHERE rowid=?"_s);
  Preparer(lecture_->cles,
           u"SELECT rowid FROM "_s + Cite(table) + u" WHERE rowid>? ORDER BY rowid"_s);
  lecture_->toutes.exec();  // a failure is the first row's
  return true;
}

bool SourceSqlite::Suivante() {
  Lecture &l = *lecture_;
  if (l.uneAUne) return SuivanteUneAUne();
  if (l.toutes.next()) {
    l.cle = l.toutes.value(0).toLongLong();
    l.ligne = &l.toutes;
    return true;
  }
  if (!l.toutes.lastError().isValid()) return false;
  l.uneAUne = true;
  l.toutes.finish();
  l.cles.addBindValue(l.cle);
  Lancer(l.cles);
  return SuivanteUneAUne();
}

bool SourceSqlite::SuivanteUneAUne() {
  Lecture &l = *lecture_;
  if (!l.cles.next()) {
    // The end of the rows and a page that cannot be read both end here; only the error tells.
    if (l.cles.lastError().isValid()) throw ErreurBase(l.cles.lastError().text());
    return false;
  }
  l.cle = l.cles.value(0).toLongLong();
  l.seule.addBindValue(l.cle);
  l.ligne = l.seule.exec() && l.seule.next() ? &l.seule : nullptr;
  return true;
}

std::optional<QVariant> SourceSqlite::Champ(int ordinal) {
  const Lecture &l = *lecture_;
  if (ordinal >= l.colonnes.size()) return std::nullopt;
  if (l.ligne != nullptr) return l.ligne->value(ordinal + 1);
  // The row is damaged: whatever of it can still be read is.
  QSqlQuery champ(connexion_);
  champ.setForwardOnly(true);
  if (!champ.prepare(
          u"SELECT %1 FROM %2 WHERE rowid=?"_s.arg(Cite(l.colonnes[ordinal]), Cite(l.table))))
    return std::nullopt;
  champ.addBindValue(l.cle);
  if (!champ.exec() || !champ.next()) return std::nullopt;
  return champ.value(0);
}
