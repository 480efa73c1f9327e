#include "exchange/PageSavoir.h"

#include "ui_PageSavoir.h"

using namespace Qt::StringLiterals;

PageSavoir::PageSavoir(QWidget *parent) : QWidget(parent), ui_(std::make_unique<Ui::PageSavoir>()) {
  ui_->setupUi(this);
}

PageSavoir::~PageSavoir() = default;

qsizetype PageSavoir::Montrer(const EtudeReprise &etude) {
  ui_->LstSavoir->clear();
  return Enumerer(u"Ne peuvent pas être repris"_s, etude.refus) +
         Enumerer(u"Même adresse ou même numéro sous deux noms : les deux seront gardés"_s,
                  etude.memeAdresse);
}

qsizetype PageSavoir::Enumerer(const QString &titre, const BilanReprise::Chapitre &chapitre) {
  if (chapitre.lignes.isEmpty()) return 0;
  auto *groupe = new QTreeWidgetItem(ui_->LstSavoir, {titre});
  QFont police = ui_->LstSavoir->font();
  police.setBold(true);
  groupe->setFont(0, police);
  for (const QString &texte : chapitre.lignes) {
    auto *ligne = new QTreeWidgetItem(groupe, {texte});
    ligne->setToolTip(0, texte);
  }
  if (chapitre.tus > 0) new QTreeWidgetItem(groupe, {u"... et %1 autres"_s.arg(chapitre.tus)});
  groupe->setExpanded(true);
  return chapitre.lignes.size() + chapitre.tus;
}
