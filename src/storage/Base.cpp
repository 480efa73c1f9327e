#include "storage/Base.h"

#include "storage/Schema.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlError>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kAttente = "QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=10000";  // milliseconds

// Preparing costs several times what a row by its key does. No limit that the program reaches.
constexpr std::size_t kPrepares = 100;

}  // namespace

void Base::Ouvrir(const QString &chemin) {
  Fermer();
  if (!QFileInfo::exists(chemin)) return;

  connexion_ = QSqlDatabase::addDatabase(u"QSQLITE"_s,
                                         u"velmira-%1"_s.arg(reinterpret_cast<quintptr>(this)));
  // "rw" is what keeps the engine from making a file that has gone in the meantime.
  chemin_ = QFileInfo(chemin).absoluteFilePath();
  connexion_.setDatabaseName(QUrl::fromLocalFile(chemin_).toString(QUrl::FullyEncoded) +
                             u"?mode=rw"_s);
  connexion_.setConnectOptions(QString::fromLatin1(kAttente));
  try {
    if (!connexion_.open()) throw ErreurBase(connexion_.lastError().text());
    Verifier();
  } catch (const ErreurBase &erreur) {
    const QString raison = erreur.Texte();
    Fermer();
    throw ErreurBase(
        u"Le fichier « %1 » n'est pas une base de données de Velmira, ou il est "
        "endommagé :\n%2\n\nIl n'a pas été modifié."_s.arg(QDir::toNativeSeparators(chemin),
                                                           raison));
  }
}

void Base::Verifier() {
  const auto entier = [this](const QString &pragma) {
    Requete requete(*this, pragma);
    return requete.Suivante() ? requete.Entier(0) : 0;
  };
  if (entier(u"PRAGMA application_id"_s) != kApplication)
    throw ErreurBase(u"il vient d'un autre programme."_s);
  if (entier(u"PRAGMA user_version"_s) > kVersion)
    throw ErreurBase(u"il vient d'une version plus récente de Velmira."_s);
  Requete(*this, u"PRAGMA synchronous=FULL"_s).Executer();
  PourChaqueTable([this](auto table) {
    Requete(*this, u"SELECT "_s + ListeColonnes(table) + u" FROM "_s + Nom(table) + u" LIMIT 0"_s)
        .Suivante();
  });
}

void Base::Fermer() {
  if (!connexion_.isValid()) return;
  const QString nom = connexion_.connectionName();
  prepares_.clear();
  connexion_.close();
  connexion_ = QSqlDatabase();
  chemin_.clear();
  QSqlDatabase::removeDatabase(nom);
}

Requete::Requete(Base &base, const QString &texte)
    : base_(base), texte_(texte), requete_(base.connexion_) {
  if (!base.Ouverte()) throw ErreurBase(u"La base de données n'est pas ouverte."_s);
  if (const auto prepare = base.prepares_.find(texte); prepare != base.prepares_.end()) {
    requete_ = std::move(prepare->second);
    base.prepares_.erase(prepare);
    return;
  }
  requete_.setForwardOnly(true);
  if (!requete_.prepare(texte)) throw ErreurBase(requete_.lastError().text());
}

Requete::~Requete() {
  if (liee_ || requete_.lastError().isValid() || base_.prepares_.size() >= kPrepares) return;
  // Reset: a statement that stands on a row would keep its lock.
  requete_.finish();
  base_.prepares_.emplace(texte_, std::move(requete_));
}

Requete &Requete::Lier(const QString &valeur) {
  requete_.addBindValue(valeur.isNull() ? QVariant(QMetaType(QMetaType::QString))
                                        : QVariant(valeur));
  liee_ = true;
  return *this;
}

Requete &Requete::Lier(qint64 valeur) {
  requete_.addBindValue(valeur);
  liee_ = true;
  return *this;
}

void Requete::Lancer() {
  if (!requete_.exec()) throw ErreurBase(requete_.lastError().text());
  lancee_ = true;
  liee_ = false;
}

qint64 Requete::Executer() {
  Lancer();
  return requete_.numRowsAffected();
}

bool Requete::Suivante() {
  if (!lancee_) Lancer();
  if (requete_.next()) return true;
  // The end of the rows and a page that cannot be read both end here; only the error tells.
  if (requete_.lastError().isValid()) throw ErreurBase(requete_.lastError().text());
  return false;
}

Transaction::Transaction(Base &base) : base_(base) {
  Requete(base_, u"BEGIN IMMEDIATE"_s).Executer();
}

Transaction::~Transaction() {
  if (ouverte_) Ignorer([this] { Requete(base_, u"ROLLBACK"_s).Executer(); });
}

void Transaction::Valider() {
  Requete(base_, u"COMMIT"_s).Executer();
  ouverte_ = false;
}
