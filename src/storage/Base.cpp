#include "storage/Base.h"

#include "platform/Fichiers.h"
#include "storage/Historique.h"
#include "storage/Images.h"
#include "storage/Moteur.h"
#include "storage/Requete.h"
#include "storage/Schema.h"

#include <QFileInfo>
#include <QSqlQuery>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kAttente = 10s, kAttenteLecture = 2s;

// Preparing costs several times what a row by its key does. No limit that the program reaches.
constexpr std::size_t kPrepares = 100;

/// Whether there is something to open. Throws `ErreurBase` where that cannot be told.
bool EstLa(const QString &chemin) {
  try {
    return EstPresent(chemin);
  } catch (const ErreurFichier &erreur) {
    throw ErreurBase(erreur.Texte(), GenreErreur::Inaccessible);
  }
}

}  // namespace

Base::Base() : historique_(std::make_unique<Historique>()) {}

Base::~Base() {
  Fermer();
}

void Base::Ouvrir(const QString &chemin) {
  Fermer();
  if (!EstLa(chemin)) return;
  try {
    connexion_ = std::make_unique<Connexion>(chemin, Connexion::Fichier::Present, kAttente);
    chemin_ = QFileInfo(chemin).absoluteFilePath();
    Verifier();
    Attendre(kAttenteLecture);
  } catch (const ErreurBase &erreur) {
    Fermer();
    throw ErreurOuverture(chemin, erreur);
  }
}

void Base::Verifier() {
  const auto entier = [this](const QString &pragma) {
    Requete requete(*this, pragma);
    return requete.Suivante() ? requete.Entier(0) : 0;
  };
  if (entier(u"PRAGMA application_id"_s) != kApplication)
    throw ErreurBase({}, GenreErreur::Etrangere);
  if (entier(u"PRAGMA user_version"_s) > kVersion) throw ErreurBase({}, GenreErreur::PlusRecente);
  // The end of a transaction is on the disk with the name of its journal gone, also for a machine
  // that loses its power.
  Requete(*this, u"PRAGMA synchronous=EXTRA"_s).Executer();
  try {
    PourChaqueTable([this]<typename L>(Table<L> table) {
      const QString nom = QString::fromUtf16(Table<L>::nom);
      if (!connexion_->ATable(nom))
        throw ErreurBase({}, GenreErreur::Endommagee, u"table %1 absente"_s.arg(nom));
      Requete(*this, u"SELECT "_s + ListeColonnes(table) + u" FROM "_s + Nom(table) + u" LIMIT 0"_s)
          .Suivante();
    });
  } catch (const ErreurBase &erreur) {
    // A statement that cannot be made: a column has gone.
    if (erreur.Genre() != GenreErreur::Autre) throw;
    throw ErreurBase({}, GenreErreur::Endommagee, erreur.Detail());
  }
}

void Base::Fermer() {
  prepares_.clear();
  connexion_.reset();
  chemin_.clear();
  transaction_ = false;
  perte_.reset();
  historique_->Vider();
}

void Base::SuivreFichier() {
  if (!Ouverte() || transaction_ || auTravail_ > 0 || !connexion_->EstRemplacee()) return;
  Base nouvelle;
  nouvelle.Ouvrir(chemin_);
  if (!nouvelle.Ouverte()) return;
  prepares_.clear();
  connexion_.swap(nouvelle.connexion_);
  ++fichiers_;
  Attendre(attente_);
}

qint64 Base::Changements() {
  SuivreFichier();
  if (!Ouverte()) return 0;
  constexpr int kBits = 32;  // bits of the engine's count, which begins anew with each file
  Requete requete(*this, u"PRAGMA data_version"_s);
  return requete.Suivante() ? (fichiers_ << kBits) + requete.Entier(0) : 0;
}

Base::Etat Base::LEtat() {
  if (!Ouverte()) return {};
  const qint64 changements = Changements();
  Requete requete(*this, u"SELECT total_changes()"_s);
  return {changements, requete.Suivante() ? requete.Entier(0) : 0};
}

void Base::Attendre(std::chrono::milliseconds duree) {
  Requete(*this, u"PRAGMA busy_timeout=%1"_s.arg(duree.count())).Executer();
  attente_ = duree;
}

std::unique_ptr<QSqlQuery> Base::Preparer(const QString &texte) {
  if (!Ouverte())
    throw ErreurBase(
        u"La base de données n'est pas ouverte : rien ne peut y être lu ni enregistré.\n"
        "Vérifiez que son disque ou son serveur répond, puis relancez Velmira."_s);
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
  base_.SuivreFichier();
  Requete(base_, u"BEGIN IMMEDIATE"_s).Executer();
  base_.transaction_ = true;
  if (base_.etape_ != nullptr && !base_.etape_->perdue)
    suivi_ = std::make_unique<SuiviImages>(base_);
}

Transaction::~Transaction() {
  suivi_.reset();
  if (!ouverte_) return;
  base_.transaction_ = false;
  base_.perte_.reset();
  Ignorer([this] { Requete(base_, u"ROLLBACK"_s).Executer(); });
}

void Transaction::Valider() {
  const bool suivie = suivi_ != nullptr;
  std::optional<QByteArray> images;
  if (suivie) images = suivi_->Images();
  suivi_.reset();
  Requete(base_, u"COMMIT"_s).Executer();
  if (suivie) base_.etape_->Garder(std::move(images), base_.historique_->Octets());
  base_.transaction_ = false;
  ouverte_ = false;
}
