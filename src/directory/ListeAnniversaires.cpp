#include "directory/ListeAnniversaires.h"

#include "directory/Age.h"
#include "directory/Liste.h"
#include "directory/Protection.h"
#include "platform/Erreurs.h"
#include "storage/Tables.h"

#include <QKeyEvent>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kJours = 30;
constexpr int kALaFois = 500;         // records; a few milliseconds
constexpr std::size_t kLignes = 200;  // more are not looked through

}  // namespace

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

void ListeAnniversaires::Lire() {
  lus_.clear();
  dernier_ = 0;
  LireLaSuite(++tour_);
}

void ListeAnniversaires::LireLaSuite(int tour) {
  if (tour != tour_) return;
  Horloge &horloge = session_->plateforme.horloge;
  const auto suivre = [this, tour] { LireLaSuite(tour); };
  try {
    const QList<Naissance> naissances = Suivantes();
    Retenir(naissances);
    if (naissances.size() < kALaFois) return Montrer();
    dernier_ = naissances.constLast().Index;
    horloge.Apres(0ms, this, suivre);  // behind what the user does meanwhile
  } catch (const Erreur &) {
    horloge.Apres(3s, this, suivre);
  }
}

QList<Naissance> ListeAnniversaires::Suivantes() const {
  if (!session_->base.Ouverte()) return {};
  const Attente attente(session_->base, 0ms);
  return TableAdresse(session_->base).Naissances(dernier_, kALaFois);
}

void ListeAnniversaires::Retenir(const QList<Naissance> &naissances) {
  const QDate jour = session_->plateforme.horloge.Maintenant().date();
  for (const Naissance &naissance : naissances) {
    const auto anniversaire = ProchainAnniversaire(naissance.DDN, jour);
    if (anniversaire && anniversaire->dans <= kJours &&
        EstVisible(naissance.DataProt, session_->plateforme.utilisateur))
      lus_.push_back({naissance.Index, NomListe(naissance.NomVelmira), *anniversaire});
  }
}

void ListeAnniversaires::Montrer() {
  std::ranges::stable_sort(lus_, {}, [](const Prochain &p) { return p.anniversaire.dans; });
  if (lus_.size() > kLignes) lus_.resize(kLignes);
  const bool age = NaissanceMontree(session_->reglages.rtcolor.AffichageNaissance);
  clear();
  for (const Prochain &prochain : lus_) {
    auto *ligne = new QListWidgetItem(
        LigneAnniversaire(prochain.anniversaire, prochain.nom, age, session_->plateforme.langue),
        this);
    ligne->setData(Qt::UserRole, prochain.index);
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
