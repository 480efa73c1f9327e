#include "exchange/PageDeja.h"

#include "exchange/TextesReprise.h"
#include "ui/Brancheur.h"
#include "ui/Debrancher.h"
#include "ui/Grandir.h"
#include "ui/Montrable.h"
#include "ui_PageDeja.h"

#include <QHeaderView>
#include <QScopedValueRollback>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kReponses{Deja::Completer, Deja::Garder, Deja::Prendre, Deja::Deux};
constexpr int kCommeTous = 0, kChampParChamp = kReponses.size() + 1;
constexpr int kDifferences = 1, kChoix = 2;
constexpr int kChamp = 0, kLa = 1, kIci = 2;

int RangDe(Deja deja) {
  return static_cast<int>(std::ranges::find(kReponses, deja) - kReponses.begin());
}

QString Lisible(const QString &texte) {
  constexpr qsizetype kLignes = 6, kCaracteres = 60;
  QStringList lignes = LignesMontrables(texte, kLignes, kCaracteres);
  if (lignes.join(u'\n').size() < texte.size()) lignes.append(u"..."_s);
  return lignes.join(u'\n');
}

QString Bulle(const QString &texte) {
  constexpr qsizetype kCaracteres = 2000;
  return u"<p style='white-space:pre-wrap'>%1</p>"_s.arg(
      Montrable(texte, kCaracteres).toHtmlEscaped());
}

}  // namespace

PageDeja::PageDeja(QWidget *parent) : QWidget(parent), ui_(std::make_unique<Ui::PageDeja>()) {
  ui_->setupUi(this);
  Grandir(ui_->LblQui, 1.2, true);
  ui_->CboReponse->addItem(u"Comme pour tous les autres"_s);
  for (const Deja deja : kReponses) {
    ui_->CboTous->addItem(TexteDeja(deja));
    ui_->CboReponse->addItem(TexteDeja(deja));
  }
  ui_->CboReponse->addItem(u"Choisir champ par champ"_s);
  ui_->PartageDeja->setSizes({420, 520});
  for (QTreeWidget *liste : {ui_->LstDeja, ui_->LstChamps}) {
    liste->header()->setSectionsMovable(false);
    liste->header()->setStretchLastSection(false);
    liste->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    liste->header()->setSectionResizeMode(1, QHeaderView::Stretch);
    liste->header()->setSectionResizeMode(
        2, liste == ui_->LstChamps ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
  }
}

PageDeja::~PageDeja() {
  DebrancherEnfants(*this);
}

void PageDeja::Relier(Boites &boites) {
  const Brancheur brancher(boites, this);
  brancher(ui_->CboTous, &QComboBox::activated, &PageDeja::RepondrePourTous);
  brancher(ui_->CboReponse, &QComboBox::activated, &PageDeja::Repondre);
  brancher(ui_->LstDeja, &QTreeWidget::currentItemChanged, &PageDeja::Choisir);
  brancher(ui_->LstChamps, &QTreeWidget::currentItemChanged, &PageDeja::MontrerPartout);
  brancher(ui_->LstChamps, &QTreeWidget::itemChanged, [this](QTreeWidgetItem *ligne, int) {
    if (!remplissage_)
      Cocher(ui_->LstChamps->indexOfTopLevelItem(ligne), ligne->checkState(kChamp) == Qt::Checked);
  });
  brancher(ui_->CmdPartout, &PageDeja::AppliquerPartout);
}

void PageDeja::Montrer(const QList<Rencontre> &rencontres, qsizetype tues) {
  choix_.Poser(rencontres);
  ui_->LblPersonne->setVisible(rencontres.isEmpty());
  ui_->CadreDeja->setVisible(!rencontres.isEmpty());
  ui_->LblTus->setText(u"... et %1 autres, pour qui vaut le choix pour tous."_s.arg(tues));
  ui_->LblTus->setVisible(tues > 0);
  Remplir();
}

void PageDeja::Vider() {
  choix_.Oublier();
  ui_->CboTous->setCurrentIndex(0);
  Montrer({}, 0);
}

void PageDeja::Remplir() {
  QList<QTreeWidgetItem *> lignes;
  for (const Rencontre &rencontre : choix_.Toutes()) {
    auto *ligne = new QTreeWidgetItem(
        {rencontre.presente.NomVelmira, NomsChamps(rencontre.faite).join(u", "_s)});
    ligne->setToolTip(kDifferences, ligne->text(kDifferences));
    lignes.append(ligne);
  }
  {
    const QSignalBlocker muette(ui_->LstDeja);
    ui_->LstDeja->clear();
    ui_->LstDeja->addTopLevelItems(lignes);
    ui_->LstDeja->setCurrentItem(ui_->LstDeja->topLevelItem(0));
  }
  MajLignes();
  Choisir();
}

void PageDeja::MajLignes() {
  // Laid out once for all: for each line the list would measure a thousand others.
  const QSignalBlocker muet(ui_->LstDeja->model());
  for (qsizetype rang = 0; rang < choix_.Toutes().size(); ++rang) {
    QTreeWidgetItem &ligne = *ui_->LstDeja->topLevelItem(static_cast<int>(rang));
    const ReponseReprise *propre = choix_.Propre(rang);
    ligne.setText(kChoix,
                  TexteReponse(propre == nullptr ? ReponseReprise{choix_.PourTous()} : *propre));
    QFont police = ui_->LstDeja->font();
    police.setBold(propre != nullptr);
    ligne.setFont(kChoix, police);
  }
  ui_->LstDeja->doItemsLayout();
}

qsizetype PageDeja::Rang() const {
  return ui_->LstDeja->indexOfTopLevelItem(ui_->LstDeja->currentItem());
}

void PageDeja::Choisir() {
  if (const qsizetype rang = Rang(); rang >= 0) {
    ui_->LblQui->setText(choix_.Toutes()[rang].presente.NomVelmira);
    champs_ = ChampsDe(choix_.Toutes()[rang]);
  } else {
    champs_.clear();
  }
  MontrerChamps();
  MontrerReponse();
}

void PageDeja::MontrerChamps() {
  const QScopedValueRollback rempli(remplissage_, true);
  ui_->LstChamps->clear();
  for (const ChampRencontre &champ : std::as_const(champs_)) {
    auto *ligne =
        new QTreeWidgetItem(ui_->LstChamps, {champ.nom, Lisible(champ.la), Lisible(champ.ici)});
    ligne->setFlags(ligne->flags() | Qt::ItemIsUserCheckable);
    ligne->setCheckState(kChamp, Qt::Unchecked);
    for (const int colonne : {kLa, kIci})
      ligne->setTextAlignment(colonne, Qt::AlignLeft | Qt::AlignTop);
    ligne->setToolTip(kLa, Bulle(champ.la));
    ligne->setToolTip(kIci, Bulle(champ.ici));
  }
  ui_->LstChamps->setCurrentItem(ui_->LstChamps->topLevelItem(0));
}

void PageDeja::MontrerReponse() {
  const qsizetype rang = Rang();
  if (rang < 0) return;
  const QScopedValueRollback rempli(remplissage_, true);
  const ReponseReprise *propre = choix_.Propre(rang);
  ui_->CboReponse->setCurrentIndex(propre == nullptr ? kCommeTous
                                   : propre->prises  ? kChampParChamp
                                                     : RangDe(propre->deja) + 1);
  const ChoixColonnes<Correspondant> prises = choix_.Prises(rang), notees = choix_.Notees(rang);
  for (int i = 0; i < champs_.size(); ++i) {
    QTreeWidgetItem &ligne = *ui_->LstChamps->topLevelItem(i);
    ligne.setCheckState(kChamp, (prises & champs_[i].colonnes).any() ? Qt::Checked : Qt::Unchecked);
    const bool notee = (notees & champs_[i].colonnes).any();
    ligne.setText(kIci, Lisible(champs_[i].ici) + (notee ? u" (noté)"_s : u""_s));
  }
  MontrerPartout();
}

void PageDeja::MontrerPartout() {
  const int ligne = ui_->LstChamps->indexOfTopLevelItem(ui_->LstChamps->currentItem());
  const qsizetype nombre = ligne < 0 ? 0 : choix_.Nombre(champs_[ligne].colonnes);
  ui_->CmdPartout->setVisible(nombre > 1);
  if (nombre < 2) return;
  const bool prend = ui_->LstChamps->topLevelItem(ligne)->checkState(kChamp) == Qt::Checked;
  ui_->CmdPartout->setText((prend ? u"&Prendre « %1 » du fichier pour les %2 personnes"_s
                                  : u"&Garder « %1 » de Velmira pour les %2 personnes"_s)
                               .arg(QString(champs_[ligne].nom).replace(u'&', u"&&"_s))
                               .arg(nombre));
}

void PageDeja::RepondrePourTous(int choix) {
  choix_.RepondrePourTous(kReponses[static_cast<std::size_t>(choix)]);
  MajLignes();
  MontrerReponse();
  emit Repondu();
}

void PageDeja::Repondre(int choix) {
  const qsizetype rang = Rang();
  if (rang < 0) return;
  if (choix == kCommeTous)
    choix_.RepondreCommeTous(rang);
  else if (choix == kChampParChamp)
    choix_.Repondre(rang, {.deja = choix_.DejaDe(rang), .prises = choix_.Prises(rang)});
  else
    choix_.Repondre(rang, {kReponses[static_cast<std::size_t>(choix - 1)]});
  MajLignes();
  MontrerReponse();
  emit Repondu();
}

void PageDeja::Cocher(int ligne, bool prend) {
  choix_.Prendre(Rang(), champs_[ligne].colonnes, prend);
  ui_->LstChamps->setCurrentItem(ui_->LstChamps->topLevelItem(ligne));
  MajLignes();
  MontrerReponse();
  emit Repondu();
}

void PageDeja::AppliquerPartout() {
  const int ligne = ui_->LstChamps->indexOfTopLevelItem(ui_->LstChamps->currentItem());
  const bool prend = ui_->LstChamps->topLevelItem(ligne)->checkState(kChamp) == Qt::Checked;
  choix_.PrendrePartout(champs_[ligne].colonnes, prend);
  MajLignes();
  MontrerReponse();
  emit Repondu();
}
