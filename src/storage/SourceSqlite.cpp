#include "storage/SourceSqlite.h"

#include "storage/Moteur.h"
#include "storage/Schema.h"

#include <QSqlError>
#include <QSqlQuery>

#include <limits>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kAttente = 120s;  // another user's upgrade of the same file is waited for to its end

void Lancer(QSqlQuery &requete, const QString &chemin) {
  if (!requete.exec()) throw ErreurMoteur(requete.lastError(), chemin);
}

}  // namespace

struct SourceSqlite::Lecture {
  QString table;
  QStringList colonnes;
  std::unique_ptr<QSqlQuery> toutes;       ///< all rows, up to the first damaged one
  std::unique_ptr<QSqlQuery> cles, seule;  ///< from there on the keys, and each row on its own
  qint64 cle = std::numeric_limits<qint64>::min();
  QSqlQuery *ligne = nullptr;  ///< where the current row stands; none when it is damaged
  bool uneAUne = false;
};

SourceSqlite::SourceSqlite(const QString &chemin)
    : chemin_(chemin),
      connexion_(std::make_unique<Connexion>(chemin, Connexion::Fichier::Present, kAttente)) {
  for (const QString &table : {u"Adresse"_s, u"Expediteur"_s, u"Ville"_s})
    if (Colonnes(table).isEmpty())
      throw ErreurBase(u"Le fichier « %1 » n'a pas de table %2."_s.arg(chemin, table));
}

SourceSqlite::~SourceSqlite() = default;

QStringList SourceSqlite::Colonnes(const QString &table) const {
  if (!connexion_->ATable(table)) return {};
  const auto requete = connexion_->Preparer(u"PRAGMA table_info("_s + Entre(table) + u')');
  Lancer(*requete, chemin_);
  QStringList noms;
  while (requete->next()) noms.append(requete->value(1).toString());
  return noms;
}

void SourceSqlite::Reserver() {
  connexion_->Executer(u"BEGIN IMMEDIATE"_s);
}

bool SourceSqlite::EstEnPlace() const {
  try {
    Connexion(chemin_, Connexion::Fichier::Present, 0ms).Executer(u"BEGIN IMMEDIATE"_s);
  } catch (const ErreurBase &erreur) {
    return erreur.Genre() == GenreErreur::Occupee;  // by this one
  }
  return false;
}

bool SourceSqlite::Ouvrir(const QString &table) {
  lecture_.reset();
  const QStringList colonnes = Colonnes(table);
  if (colonnes.isEmpty()) return false;
  lecture_ = std::make_unique<Lecture>();
  lecture_->table = table;
  lecture_->colonnes = colonnes;
  const QString lignes = u"SELECT rowid, * FROM "_s + Entre(table);
  lecture_->toutes = connexion_->Preparer(lignes + u" ORDER BY rowid"_s);
  lecture_->seule = connexion_->Preparer(lignes + u" WHERE rowid=?"_s);
  lecture_->cles = connexion_->Preparer(u"SELECT rowid FROM "_s + Entre(table) +
                                        u" WHERE rowid>? ORDER BY rowid"_s);
  lecture_->toutes->exec();  // a failure is the first row's
  return true;
}

bool SourceSqlite::Suivante() {
  Lecture &l = *lecture_;
  if (l.uneAUne) return SuivanteUneAUne();
  if (l.toutes->next()) {
    l.cle = l.toutes->value(0).toLongLong();
    l.ligne = l.toutes.get();
    return true;
  }
  if (!l.toutes->lastError().isValid()) return false;
  l.uneAUne = true;
  l.toutes->finish();
  l.cles->addBindValue(l.cle);
  Lancer(*l.cles, chemin_);
  return SuivanteUneAUne();
}

bool SourceSqlite::SuivanteUneAUne() {
  Lecture &l = *lecture_;
  if (!l.cles->next()) {
    // The end of the rows and a page that cannot be read both end here; only the error tells.
    if (l.cles->lastError().isValid()) throw ErreurMoteur(l.cles->lastError(), chemin_);
    return false;
  }
  l.cle = l.cles->value(0).toLongLong();
  l.seule->addBindValue(l.cle);
  l.ligne = l.seule->exec() && l.seule->next() ? l.seule.get() : nullptr;
  return true;
}

std::optional<QVariant> SourceSqlite::Champ(int ordinal) {
  const Lecture &l = *lecture_;
  if (ordinal >= l.colonnes.size()) return std::nullopt;
  if (l.ligne != nullptr) return l.ligne->value(ordinal + 1);
  // The row is damaged: whatever of it can still be read is.
  try {
    const auto champ = connexion_->Preparer(
        u"SELECT %1 FROM %2 WHERE rowid=?"_s.arg(Entre(l.colonnes[ordinal]), Entre(l.table)));
    champ->addBindValue(l.cle);
    if (champ->exec() && champ->next()) return champ->value(0);
  } catch (const ErreurBase &) {
    // A name that no statement can hold; the field is as unreadable as any other.
  }
  return std::nullopt;
}
