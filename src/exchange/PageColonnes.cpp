#include "exchange/PageColonnes.h"

#include "ui/Brancheur.h"
#include "ui/Debrancher.h"
#include "ui/Montrable.h"
#include "ui_PageColonnes.h"

#include <QComboBox>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTitre = 0, kExemple = 1, kDevient = 2;

/// The wheel scrolls the list that it stands in, unless it has the focus.
class ComboDeListe : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void wheelEvent(QWheelEvent *evenement) override {
    if (hasFocus())
      QComboBox::wheelEvent(evenement);
    else
      evenement->ignore();
  }
};

/// What is offered for a column: what it is by now stands in front where it is none of the choices.
QList<Destination> Offertes(const Destination &actuelle) {
  QList<Destination> offertes = DestinationsProposees();
  if (!offertes.contains(actuelle)) offertes.prepend(actuelle);
  return offertes;
}

QString Exemple(const FormeCsv &forme, int colonne) {
  constexpr qsizetype kCaracteres = 80;
  for (const QStringList &ligne : forme.echantillon)
    if (const QString valeur = ligne.value(colonne).simplified(); !valeur.isEmpty())
      return Montrable(valeur, kCaracteres);
  return {};
}

}  // namespace

PageColonnes::PageColonnes(QWidget *parent)
    : QWidget(parent), ui_(std::make_unique<Ui::PageColonnes>()) {
  ui_->setupUi(this);
  QHeaderView &titres = *ui_->LstColonnes->header();
  titres.setSectionsMovable(false);
  titres.setStretchLastSection(false);
  for (const int colonne : {kTitre, kExemple})
    titres.setSectionResizeMode(colonne, QHeaderView::Stretch);
  titres.setSectionResizeMode(kDevient, QHeaderView::ResizeToContents);
}

PageColonnes::~PageColonnes() {
  DebrancherEnfants(*this);
}

void PageColonnes::Relier(Boites &boites) {
  const Brancheur brancher(boites, this);
  brancher(ui_->ChkMois, [this](bool devant) {
    colonnes_.moisDevant = devant;
    emit Changees(colonnes_);
  });
  brancher(ui_->CmdProposer, &PageColonnes::Proposees);
}

void PageColonnes::Montrer(const FormeCsv &forme, const Correspondances &colonnes) {
  forme_ = forme;
  colonnes_ = colonnes;
  ui_->ChkMois->setChecked(colonnes.moisDevant);
  ui_->LstColonnes->clear();
  for (int i = 0; i < forme.entetes.size() && i < colonnes.colonnes.size(); ++i)
    Ajouter(i, Exemple(forme, i));
  ui_->LstColonnes->setCurrentItem(ui_->LstColonnes->topLevelItem(0));
  Conseiller();
}

void PageColonnes::Conseiller() {
  ui_->LblColonnes->setText(
      DonnentUnNom(colonnes_)
          ? u"Ce que devient chaque colonne. Votre choix est retenu pour le prochain fichier qui "
            "aura les mêmes titres."_s
          : u"Aucune colonne ne donne le nom des personnes : choisissez ci-dessous celle qui le "
            "donne."_s);
}

void PageColonnes::Ajouter(int colonne, const QString &exemple) {
  constexpr int kAir = 4;
  constexpr qsizetype kCaracteres = 80;
  const QString entete = Montrable(forme_.entetes[colonne].simplified(), kCaracteres);
  auto *ligne = new QTreeWidgetItem(ui_->LstColonnes, {entete, exemple});
  for (const int texte : {kTitre, kExemple}) ligne->setToolTip(texte, ligne->text(texte));
  auto *combo = new ComboDeListe;
  combo->setObjectName(u"CboColonne_%1"_s.arg(colonne));
  combo->setAccessibleName(u"Ce que devient « %1 »"_s.arg(entete));
  combo->setFocusPolicy(Qt::StrongFocus);
  const Destination actuelle = colonnes_.colonnes[colonne];
  const QList<Destination> offertes = Offertes(actuelle);
  for (const Destination &offerte : offertes) combo->addItem(LibelleDestination(offerte));
  combo->setCurrentIndex(static_cast<int>(offertes.indexOf(actuelle)));
  connect(combo, &QComboBox::activated, this,
          [this, colonne, offertes](int choix) { Choisir(colonne, offertes[choix]); });
  ligne->setSizeHint(kDevient, combo->sizeHint() + QSize(0, kAir));
  QTreeWidgetItem *devant = ui_->LstColonnes->itemAbove(ligne);
  ui_->LstColonnes->setItemWidget(ligne, kDevient, combo);
  // Made last, it would come behind all else of the window.
  setTabOrder(devant == nullptr ? ui_->LstColonnes : ui_->LstColonnes->itemWidget(devant, kDevient),
              combo);
}

void PageColonnes::Choisir(int colonne, const Destination &destination) {
  if (std::exchange(colonnes_.colonnes[colonne], destination) == destination) return;
  Conseiller();
  emit Changees(colonnes_);
}

void PageColonnes::Proposees() {
  const Correspondances proposees = Proposer(forme_);
  if (proposees == colonnes_) return;
  Montrer(FormeCsv(forme_), proposees);
  emit Changees(colonnes_);
}
