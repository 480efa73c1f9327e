#include "directory/ListeAnniversaires.h"

#include "directory/Age.h"
#include "platform/Erreurs.h"
#include "storage/Tables.h"

#include <QKeyEvent>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

ListeAnniversaires::ListeAnniversaires(QWidget *parent) : QListWidget(parent) {
  setFrameShape(NoFrame);
  setUniformItemSizes(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  viewport()->setAutoFillBackground(false);
  connect(this, &QListWidget::itemClicked, this, [this](const QListWidgetItem *ligne) {
    const Cle index = ligne->data(Qt::UserRole).toLongLong();
    clearSelection();  // the list above says who is on display
    emit Choisi(index);
  });
  hide();
}

void ListeAnniversaires::Relier(Session &session) {
  session_ = &session;
  suivi_.emplace(session.base);
}

void ListeAnniversaires::Lire() {
  encore_ = lecture_.EnCours();
  if (!encore_) Essayer([this] { Actualiser(); });
}

void ListeAnniversaires::Actualiser() {
  Base &base = session_->base;
  if (!base.Ouverte()) return Montrer({});
  const Attente attente(base, 0ms);
  const QDate jour = session_->plateforme.horloge.Maintenant().date();
  const bool suivies = lues_ == jour && proches_.size() < kLimiteProches;
  const auto changees = suivies ? suivi_->Touchees() : std::nullopt;
  if (!changees) return LireTout(jour);
  Montrer(AnniversairesProches(base, jour, session_->plateforme.utilisateur, proches_, *changees));
}

void ListeAnniversaires::LireTout(QDate jour) {
  Base &base = session_->base;
  const auto lire = [jour, utilisateur = session_->plateforme.utilisateur](
                        Base &ou, const std::stop_token &) {
    return AnniversairesProches(ou, jour, utilisateur);
  };
  suivi_->Commencer();
  lues_ = jour;
  if (TableAdresse(base).EstGrande())
    lecture_.Lancer(this, base, lire, [this] { Recevoir(); });
  else
    Montrer(lire(base, {}));
}

void ListeAnniversaires::Recevoir() {
  Essayer([this] {
    Montrer(lecture_.Prendre());
    if (encore_) Lire();
  });
}

void ListeAnniversaires::Essayer(const std::function<void()> &etape) {
  try {
    etape();
  } catch (const Erreur &) {
    lues_ = {};
    session_->plateforme.horloge.Apres(3s, this, [this] { Lire(); });
  }
}

void ListeAnniversaires::Montrer(const Proches &proches) {
  proches_ = proches;
  const bool age = NaissanceMontree(session_->reglages.rtcolor.AffichageNaissance);
  clear();
  for (const AnniversaireProche &proche : proches_) {
    auto *ligne = new QListWidgetItem(
        LigneAnniversaire(proche.anniversaire, proche.nom, age, session_->plateforme.langue), this);
    ligne->setData(Qt::UserRole, proche.index);
    ligne->setToolTip(ligne->text());
  }
  setVisible(count() > 0);
  updateGeometry();
  emit Remplie(count() > 0);
}

QSize ListeAnniversaires::Taille(int lignes) const {
  const int hauteur = count() > 0 ? sizeHintForRow(0) : fontMetrics().lineSpacing();
  return {fontMetrics().averageCharWidth() * 20,
          std::min(lignes, count()) * hauteur + 2 * frameWidth()};
}

QSize ListeAnniversaires::sizeHint() const {
  constexpr int kVoulues = 4;
  return Taille(kVoulues);
}

QSize ListeAnniversaires::minimumSizeHint() const {
  constexpr int kMinimum = 1;
  return Taille(kMinimum);
}

void ListeAnniversaires::keyPressEvent(QKeyEvent *evenement) {
  const bool entree = evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter;
  if (entree && currentItem() != nullptr)
    emit itemClicked(currentItem());
  else
    QListWidget::keyPressEvent(evenement);
}
