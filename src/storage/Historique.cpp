#include "storage/Historique.h"

#include "platform/Fichiers.h"
#include "storage/Tables.h"

#include <algorithm>
#include <utility>

namespace {

void Ecrire(const QString &chemin, const std::optional<QByteArray> &contenu) {
  if (contenu)
    RemplacerFichier(chemin, *contenu);
  else if (EstPresent(chemin))
    EffacerFichier(chemin);
}

/// The files of a step while its transaction is open: those that were put back go forth again
/// unless they are kept.
class FichiersRepris {
 public:
  FichiersRepris() = default;
  ~FichiersRepris() {
    for (const FichierSuivi &fichier : repris_)
      Ignorer([&] { Ecrire(fichier.chemin, fichier.avant); });
  }
  FichiersRepris(const FichiersRepris &) = delete;
  FichiersRepris &operator=(const FichiersRepris &) = delete;

  /// False where it is not as the step left it.
  bool Rendre(FichierSuivi fichier) {
    if (LireFichier(fichier.chemin) != fichier.apres) return false;
    std::swap(fichier.avant, fichier.apres);
    repris_.push_back(fichier);
    Ecrire(fichier.chemin, fichier.apres);
    return true;
  }

  std::vector<FichierSuivi> Garder() { return std::exchange(repris_, {}); }

 private:
  std::vector<FichierSuivi> repris_;
};

/// Takes the images back, the last first, and keeps those of the way forth. False when stopped.
bool ReprendreImages(Base &base, const Etape &etape, Reprise &reprise, const Avance &avance) {
  const auto total = static_cast<qsizetype>(etape.images.size());
  qsizetype faites = 0;
  for (auto images = etape.images.rbegin(); images != etape.images.rend(); ++images) {
    SuiviImages suivi(base);
    reprise.laissees += Renverser(base, *images);
    if (auto inverses = suivi.Images(); !inverses)
      reprise.inverse.perdue = true;
    else if (!inverses->isEmpty())
      reprise.inverse.images.push_back(std::move(*inverses));
    if (!avance(++faites, total)) return false;
  }
  return true;
}

Cle SeuleFiche(const Etape &inverse) {
  QList<Cle> fiches;
  for (const QByteArray &images : inverse.images) {
    fiches += FichesEcrites(images, 2);
    if (fiches.size() > 1) return 0;
  }
  return fiches.value(0);
}

}  // namespace

void Etape::Garder(std::optional<QByteArray> &&dUneTransaction, qsizetype octets) {
  if (dUneTransaction && dUneTransaction->isEmpty()) return;
  perdue = !dUneTransaction || Taille() + dUneTransaction->size() > octets;
  if (perdue)
    images.clear();
  else
    images.push_back(std::move(*dUneTransaction));
}

qsizetype Etape::Taille() const {
  qsizetype taille = 0;
  for (const QByteArray &octets : images) taille += octets.size();
  for (const FichierSuivi &fichier : fichiers)
    taille +=
        fichier.avant.value_or(QByteArray()).size() + fichier.apres.value_or(QByteArray()).size();
  return taille;
}

std::optional<Reprise> Reprendre(Base &base, const Etape &etape, const QString &masques,
                                 const Avance &avance) {
  Reprise reprise;
  reprise.inverse.nom = etape.nom;
  reprise.inverse.masques = etape.masques;
  FichiersRepris fichiers;
  Transaction transaction(base);
  // The images bear the marks of their time.
  const bool autresMarques = etape.masques != masques;
  const QString &utilisateur = masques.isEmpty() ? etape.masques : masques;
  if (autresMarques) EcrireMarques(base, utilisateur, !etape.masques.isEmpty());
  if (!ReprendreImages(base, etape, reprise, avance)) return std::nullopt;
  if (autresMarques) EcrireMarques(base, utilisateur, !masques.isEmpty());
  const bool lignes = reprise.laissees.isEmpty();
  for (const FichierSuivi &fichier : etape.fichiers)
    if ((fichier.lie && !lignes) || !fichiers.Rendre(fichier))
      reprise.laissees.append({{}, fichier.nom, {}});
  transaction.Valider();
  reprise.inverse.fichiers = fichiers.Garder();
  reprise.fiche = SeuleFiche(reprise.inverse);
  return reprise;
}

const Etape *Historique::Prochaine(Sens sens) const {
  const auto &pile = sens == Sens::Annuler ? faites_ : annulees_;
  return pile.empty() ? nullptr : &pile.back();
}

void Historique::Ajouter(Etape &&etape) {
  annulees_.clear();
  tropGrande_.clear();
  if (etape.perdue || etape.Taille() > octets_) {
    faites_.clear();
    tropGrande_ = etape.nom;
  } else {
    faites_.push_back(std::move(etape));
    Limiter();
  }
  emit Change();
}

void Historique::Passer(Sens sens, const Reprise &reprise) {
  Pile(sens).pop_back();
  auto &autre = Pile(sens == Sens::Annuler ? Sens::Retablir : Sens::Annuler);
  if (reprise.inverse.perdue)
    autre.clear();
  else if (!reprise.inverse.EstVide())
    autre.push_back(reprise.inverse);
  Limiter();
  emit Change();
  emit Repris(reprise);
}

void Historique::Limiter() {
  qsizetype octets = 0;
  for (const auto *pile : {&faites_, &annulees_})
    for (const Etape &etape : *pile) octets += etape.Taille();
  while (!faites_.empty() && (faites_.size() > kEtapes || octets > octets_)) {
    octets -= faites_.front().Taille();
    faites_.pop_front();
  }
  while (!annulees_.empty() && octets > octets_) {
    octets -= annulees_.front().Taille();
    annulees_.pop_front();
  }
}

void Historique::Vider() {
  if (faites_.empty() && annulees_.empty() && tropGrande_.isEmpty()) return;
  faites_.clear();
  annulees_.clear();
  tropGrande_.clear();
  emit Change();
}

Acte::Acte(Base &base, const QString &nom) : base_(base) {
  if (base_.etape_ != nullptr) return;
  etape_ = std::make_unique<Etape>();
  etape_->nom = nom;
  etape_->masques = base_.historique_->Masques();
  base_.etape_ = etape_.get();
}

Acte::~Acte() {
  if (!etape_) return;
  base_.etape_ = nullptr;
  std::erase_if(etape_->fichiers, [](FichierSuivi &fichier) {
    fichier.apres = LireSiPossible(fichier.chemin);
    return fichier.apres == fichier.avant;
  });
  if (!etape_->EstVide()) base_.historique_->Ajouter(std::move(*etape_));
}

void Acte::Nommer(const QString &nom) {
  if (etape_) etape_->nom = nom;
}

void Acte::Suivre(const QString &chemin, const QString &nom, bool lie) {
  if (etape_) Ignorer([&] { etape_->fichiers.push_back({chemin, nom, lie, LireFichier(chemin)}); });
}

void Acte::Oublier() {
  if (etape_) *etape_ = {};
}
