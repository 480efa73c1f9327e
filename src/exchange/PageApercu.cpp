#include "exchange/PageApercu.h"

#include "exchange/EtudeReprise.h"
#include "ui/Brancheur.h"
#include "ui/Debrancher.h"
#include "ui_PageApercu.h"

#include <QSignalBlocker>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

PageApercu::PageApercu(QWidget *parent) : QWidget(parent), ui_(std::make_unique<Ui::PageApercu>()) {
  ui_->setupUi(this);
  ui_->Fiche->MettreEnLecture();
  ui_->PartageApercu->setSizes({260, 700});
  ui_->PartageApercu->setStretchFactor(1, 1);
}

PageApercu::~PageApercu() {
  DebrancherEnfants(*this);
}

void PageApercu::Relier(Session &session) {
  fiche_ = std::make_unique<FicheAffichee>(session, *ui_->Fiche);
  Brancheur(session.plateforme.boites, this)(ui_->LstApercu, &QTreeWidget::currentItemChanged,
                                             &PageApercu::Choisir);
}

void PageApercu::Montrer(const QList<PersonneImportee> &personnes, const QString &vide) {
  personnes_ = personnes;
  {
    const QSignalBlocker muette(ui_->LstApercu);
    ui_->LstApercu->clear();
    for (const PersonneImportee &personne : std::as_const(personnes_))
      new QTreeWidgetItem(ui_->LstApercu, {personne.fiche.NomVelmira});
    ui_->LstApercu->setCurrentItem(ui_->LstApercu->topLevelItem(0));
  }
  ui_->LblApercu->setText(
      personnes.isEmpty() ? vide
      : personnes.size() < EtudeReprise::kPremieres
          ? u"Comme elles seront dans Velm&ira :"_s
          : u"Les %1 premières, comme elles seront dans Velm&ira :"_s.arg(personnes.size()));
  Choisir();
}

void PageApercu::Choisir() {
  const int place = ui_->LstApercu->indexOfTopLevelItem(ui_->LstApercu->currentItem());
  if (place < 0) return fiche_->Effacer();
  const PersonneImportee &personne = personnes_[place];
  fiche_->Apercevoir(personne.fiche,
                     personne.photo ? std::optional(personne.photo->octets) : std::nullopt);
}
