#include "storage/Base.h"

#include "storage/Moteur.h"
#include "storage/Requete.h"
#include "storage/Schema.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlQuery>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kAttente = 10s, kAttenteLecture = 2s;

// Preparing costs several times what a row by its key does. No limit that the program reaches.
constexpr std::size_t kPrepares = 100;

ErreurBase NonOuverte(const QString &chemin, const ErreurBase &erreur) {
  const QString fichier = QDir::toNativeSeparators(chemin);
  const GenreErreur genre = erreur.Genre();
  if (genre != GenreErreur::Endommagee && genre != GenreErreur::Autre)
    return ErreurBase(
        u"Le fichier « %1 » n'a pas pu être ouvert :\n%2"_s.arg(fichier, erreur.Texte()), genre);
  return ErreurBase(
      u"Le fichier « %1 » n'est pas une base de données de Velmira, ou il est "
      "endommagé :\n%2\n\nIl n'a pas été modifié."_s.arg(fichier, erreur.Cause()),
      genre);
}

}  // namespace

Base::Base() = default;

Base::~Base() {
  Fermer();
}

void Base::Ouvrir(const QString &chemin) {
  Fermer();
  if (!QFileInfo::exists(chemin)) return;
  try {
    connexion_ = std::make_unique<Connexion>(chemin, Connexion::Fichier::Present, kAttente);
    chemin_ = QFileInfo(chemin).absoluteFilePath();
    Verifier();
    Attendre(kAttenteLecture);
  } catch (const ErreurBase &erreur) {
    Fermer();
    throw NonOuverte(chemin, erreur);
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
  // The end of a transaction is on the disk with the name of its journal gone, also for a machine
  // that loses its power.
  Requete(*this, u"PRAGMA synchronous=EXTRA"_s).Executer();
  PourChaqueTable([this]<typename L>(Table<L> table) {
    const QString nom = QString::fromUtf16(Table<L>::nom);
    if (!connexion_->ATable(nom)) throw ErreurBase(u"il n'a pas de table %1."_s.arg(nom));
    Requete(*this, u"SELECT "_s + ListeColonnes(table) + u" FROM "_s + Nom(table) + u" LIMIT 0"_s)
        .Suivante();
  });
}

void Base::Fermer() {
  prepares_.clear();
  connexion_.reset();
  chemin_.clear();
  transaction_ = false;
  perte_.reset();
}

qint64 Base::Changements() {
  if (!Ouverte()) return 0;
  Requete requete(*this, u"PRAGMA data_version"_s);
  return requete.Suivante() ? requete.Entier(0) : 0;
}

void Base::Attendre(std::chrono::milliseconds duree) {
  Requete(*this, u"PRAGMA busy_timeout=%1"_s.arg(duree.count())).Executer();
  attente_ = duree;
}

std::unique_ptr<QSqlQuery> Base::Preparer(const QString &texte) {
  if (!Ouverte()) throw ErreurBase(u"La base de données n'est pas ouverte."_s);
  ExigerTransaction();
  const auto prepare = prepares_.find(texte);
  if (prepare != prepares_.end() && prepare->second) return std::move(prepare->second);
  try {
    return connexion_->Preparer(texte);
  } catch (const ErreurBase &erreur) {
    NoterEchec(erreur);
    throw;
  }
}

void Base::Garder(const QString &texte, std::unique_ptr<QSqlQuery> requete) {
  if (!Ouverte()) return;
  const auto prepare = prepares_.find(texte);
  if (prepare != prepares_.end())
    prepare->second = std::move(requete);
  else if (prepares_.size() < kPrepares)
    prepares_.emplace(texte, std::move(requete));
}

void Base::NoterEchec(const ErreurBase &erreur) {
  if (transaction_ && erreur.Genre() != GenreErreur::Contrainte) perte_ = erreur;
}

void Base::ExigerTransaction() const {
  if (perte_) throw *perte_;
}

Attente::Attente(Base &base, std::chrono::milliseconds duree) : base_(base), avant_(base.attente_) {
  base_.Attendre(duree);
}

Attente::~Attente() {
  if (base_.Ouverte()) Ignorer([this] { base_.Attendre(avant_); });
}

Transaction::Transaction(Base &base) : base_(base), attente_(base, kAttente) {
  Requete(base_, u"BEGIN IMMEDIATE"_s).Executer();
  base_.transaction_ = true;
}

Transaction::~Transaction() {
  if (!ouverte_) return;
  base_.transaction_ = false;
  base_.perte_.reset();
  Ignorer([this] { Requete(base_, u"ROLLBACK"_s).Executer(); });
}

void Transaction::Valider() {
  Requete(base_, u"COMMIT"_s).Executer();
  base_.transaction_ = false;
  ouverte_ = false;
}
