#include "envelope/FrmCarnet.h"

#include "address/MiseEnLignes.h"
#include "directory/Annulation.h"
#include "directory/Categories.h"
#include "directory/Liste.h"
#include "directory/Protection.h"
#include "directory/Repertoire.h"
#include "envelope/MiseEnPage.h"
#include "storage/Tables.h"
#include "ui/Brancheur.h"
#include "ui/Debrancher.h"
#include "ui/FeuilleEcran.h"
#include "ui/Sablier.h"
#include "ui/Theme.h"
#include "ui_FrmCarnet.h"

#include <QShortcut>
#include <QSignalBlocker>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

Cle Index(const QListWidgetItem *element) {
  return element->data(Qt::UserRole).toLongLong();
}

}  // namespace

FrmCarnet::FrmCarnet(Session &session, Repertoire &repertoire, Mode mode, int &categorie,
                     QWidget *parent)
    : QDialog(parent),
      session_(session),
      repertoire_(repertoire),
      mode_(mode),
      categorie_(categorie),
      ui_(std::make_unique<Ui::FrmCarnet>()),
      selection_(repertoire.Selection()) {
  ui_->setupUi(this);
  Peindre(ui_->Papier, QColor(255, 255, 215));
  ui_->EtqA->ChangerEchelle(PixelsParMillimetre(*this));
  const ReglagesPlomex &plomex = session_.reglages.plomex;
  ui_->EtqA->ChangerPolice(PoliceAdresse(plomex));

  const bool plusieurs = mode_ == Mode::Plusieurs;
  ui_->LstNom->setVisible(!plusieurs);
  ui_->LstNomC->setVisible(plusieurs);
  ui_->CmdTous->setVisible(plusieurs);
  ui_->CmdAucun->setVisible(plusieurs);
  ui_->LblCompte->setVisible(plusieurs);
  ui_->LblNoms->setBuddy(Noms());
  RemplirCategories();
  Brancher();
}

FrmCarnet::~FrmCarnet() {
  DebrancherEnfants(*this);
}

void FrmCarnet::Brancher() {
  new Annulation(session_, {this, {}, [this](Cle) { RemplirNoms(); }});
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(ui_->CmdOuvrir, &FrmCarnet::Ouvrir);
  brancher(ui_->CmdModifier, &FrmCarnet::Modifier);
  brancher(ui_->CmdSupprime, &FrmCarnet::Supprimer);
  brancher(ui_->CmdAnnuler, &FrmCarnet::reject);
  brancher(ui_->CmdTous, [this] { CocherTout(Qt::Checked); });
  brancher(ui_->CmdAucun, [this] { CocherTout(Qt::Unchecked); });
  if (mode_ == Mode::Plusieurs)
    connect(new QShortcut(QKeySequence(QKeySequence::SelectAll), this), &QShortcut::activated,
            ui_->CmdTous, &QPushButton::click);
  brancher(ui_->LstCat, &QListWidget::currentRowChanged, &FrmCarnet::ChoisirCategorie);
  brancher(Noms(), &QListWidget::itemSelectionChanged, &FrmCarnet::MontrerAdresse);
  brancher(Noms(), &QListWidget::itemChanged, [this](QListWidgetItem *element) {
    Noms()->setCurrentItem(element);  // the preview follows the tick
    MontrerAdresse();
  });
  brancher(ui_->LstNom, &QListWidget::itemDoubleClicked, &FrmCarnet::Ouvrir);
}

void FrmCarnet::showEvent(QShowEvent *evenement) {
  QDialog::showEvent(evenement);
  const bool aChoisir = entieres_ && montres_.isEmpty() && Categorie() == ToutesCategories();
  (aChoisir ? ui_->LstCat : Noms())->setFocus();
}

void FrmCarnet::CocherCategorie(const QString &categorie, const QList<NoeudListe> &montres) {
  entieres_ = true;
  const QList<QListWidgetItem *> rangs = ui_->LstCat->findItems(categorie, Qt::MatchExactly);
  {
    const QSignalBlocker silence(ui_->LstCat);
    ui_->LstCat->setCurrentRow(rangs.isEmpty() ? 0 : ui_->LstCat->row(rangs.first()));
  }
  ChoisirCategorie(ui_->LstCat->currentRow());
  if (!rangs.isEmpty()) return;
  montres_ = montres;
  QSet<Cle> cles;
  for (const NoeudListe &montre : montres_) cles.insert(montre.index);
  const QSignalBlocker silence(ui_->LstNomC);
  QListWidgetItem *premier = nullptr;
  for (int i = 0; i < ui_->LstNomC->count(); ++i) {
    QListWidgetItem *nom = ui_->LstNomC->item(i);
    if (!cles.contains(Index(nom)))
      nom->setCheckState(Qt::Unchecked);
    else if (premier == nullptr)
      premier = nom;
  }
  ui_->LstNomC->scrollToItem(premier, QListWidget::PositionAtTop);
  Compter();
}

QString FrmCarnet::Categorie() const {
  const QListWidgetItem *categorie = ui_->LstCat->currentItem();
  return categorie == nullptr ? QString() : categorie->text();
}

QListWidget *FrmCarnet::Noms() const {
  return mode_ == Mode::Plusieurs ? ui_->LstNomC : ui_->LstNom;
}

Cle FrmCarnet::Choisi() const {
  const auto choisis = Noms()->selectedItems();
  return choisis.isEmpty() ? 0 : Index(choisis.first());
}

QSet<Cle> FrmCarnet::Coches() const {
  QSet<Cle> coches;
  for (int i = 0; i < ui_->LstNomC->count(); ++i)
    if (ui_->LstNomC->item(i)->checkState() == Qt::Checked)
      coches.insert(Index(ui_->LstNomC->item(i)));
  return coches;
}

void FrmCarnet::RemplirCategories() {
  const QSignalBlocker silence(ui_->LstCat);
  ui_->LstCat->clear();
  ui_->LstCat->addItems(CategoriesAuChoix(session_.base));
  ui_->LstCat->setCurrentRow(categorie_ < ui_->LstCat->count() ? categorie_ : 0);
  ChoisirCategorie(ui_->LstCat->currentRow());
}

void FrmCarnet::ChoisirCategorie(int rang) {
  categorie_ = std::max(0, rang);
  montres_.clear();
  Noms()->clear();
  RemplirNoms();
  if (entieres_) CocherTout(Qt::Checked);
}

void FrmCarnet::CocherTout(Qt::CheckState etat) {
  {
    const QSignalBlocker silence(ui_->LstNomC);
    for (int i = 0; i < ui_->LstNomC->count(); ++i) ui_->LstNomC->item(i)->setCheckState(etat);
  }
  MontrerAdresse();
}

void FrmCarnet::Compter() {
  const qsizetype coches = Coches().size();
  ui_->LblCompte->setText(u"%1 sur %2"_s.arg(coches == 0   ? u"Aucun coché"_s
                                             : coches == 1 ? u"1 coché"_s
                                                           : u"%1 cochés"_s.arg(coches),
                                             QString::number(ui_->LstNomC->count())));
}

void FrmCarnet::RemplirNoms() {
  const Sablier sablier;
  const Cle choisi = Choisi();
  const QSet<Cle> coches = Coches();
  const QString categorie = Categorie();
  {
    const QSignalBlocker silence(Noms());
    Noms()->clear();
    if (!categorie.isEmpty() && session_.base.Ouverte())
      for (const NoeudListe &nom : ListerAdresses(
               TableAdresse(session_.base), {categorie, u""_s, session_.plateforme.utilisateur})) {
        auto *element = new QListWidgetItem(nom.texte, Noms());
        element->setData(Qt::UserRole, nom.index);
        if (mode_ == Mode::Plusieurs)
          element->setCheckState(coches.contains(nom.index) ? Qt::Checked : Qt::Unchecked);
        if (nom.index == choisi) Noms()->setCurrentItem(element);
      }
  }
  MontrerAdresse();
}

void FrmCarnet::MontrerAdresse() {
  adresse_ = {};
  const auto choisis = Noms()->selectedItems();
  const bool montree =
      !choisis.isEmpty() && (mode_ == Mode::Un || choisis.first()->checkState() == Qt::Checked);
  if (montree)
    if (const auto fiche = TableAdresse(session_.base).Lire(Index(choisis.first())))
      adresse_ = ComposerAdresse(AdresseSaisie::De(*fiche));
  ui_->EtqA->setText(MettreEnLignes(adresse_, Role::Destinataire, session_.reglages).texte);
  if (mode_ == Mode::Plusieurs) Compter();
}

void FrmCarnet::Ouvrir() {
  if (mode_ == Mode::Plusieurs) {
    OuvrirPlusieurs();
    return;
  }
  const Cle choisi = Choisi();
  if (choisi == 0) {
    session_.plateforme.boites.Information(u"Sélectionnez l'adresse à écrire !"_s);
    return;
  }
  repertoire_.AfficherTous();
  repertoire_.Selectionner(choisi);
  if (ui_->EtqA->text().isEmpty()) {
    session_.plateforme.boites.Information(u"Sélectionnez un destinataire !"_s);
    return;
  }
  accept();
}

void FrmCarnet::OuvrirPlusieurs() {
  const TableAdresse table(session_.base);
  QStringList disparus;
  for (int i = 0; i < ui_->LstNomC->count(); ++i) {
    const QListWidgetItem *element = ui_->LstNomC->item(i);
    if (element->checkState() != Qt::Checked) continue;
    const auto fiche = table.Lire(Index(element));
    if (fiche && EstVisible(fiche->DataProt, session_.plateforme.utilisateur))
      destinataires_.append(
          {fiche->Index, element->text(), ComposerAdresse(AdresseSaisie::De(*fiche))});
    else
      disparus.append(u"- "_s + element->text());
  }
  if (!disparus.isEmpty())
    session_.plateforme.boites.Attention(
        u"Aucune enveloppe ne sera imprimée pour :\n\n"_s + disparus.join(u'\n') +
        u"\n\nCe qui était coché ici a été supprimé ou protégé entre-temps par un autre "
        "utilisateur."_s);
  sansAdresse_ = ChercherSansAdresse();
  titre_ = Coches().size() == ui_->LstNomC->count() ? Categorie() : u"sélection"_s;
  accept();
}

QStringList FrmCarnet::ChercherSansAdresse() const {
  // Whoever has ticked some of them has made a choice of his own.
  if (montres_.isEmpty() && Coches().size() != ui_->LstNomC->count()) return {};
  QSet<Cle> offerts;
  for (int i = 0; i < ui_->LstNomC->count(); ++i) offerts.insert(Index(ui_->LstNomC->item(i)));
  const FiltreListe filtre{Categorie(), u""_s, session_.plateforme.utilisateur};
  QList<NoeudListe> voulus = montres_;
  if (voulus.isEmpty())
    for (const NoeudListe &membre : ListerVelmiras(TableAdresse(session_.base), filtre))
      voulus.append(membre);
  QStringList noms;
  for (const NoeudListe &voulu : voulus)
    if (!offerts.contains(voulu.index)) noms.append(voulu.texte);
  return noms;
}

void FrmCarnet::Modifier() {
  const Cle choisi = Choisi();
  if (choisi == 0) {
    session_.plateforme.boites.Information(u"Sélectionnez l'adresse à modifier !"_s);
    return;
  }
  repertoire_.Modifier(this, choisi);
  RemplirNoms();
}

void FrmCarnet::Supprimer() {
  const Cle choisi = Choisi();
  Boites &boites = session_.plateforme.boites;
  if (choisi == 0) {
    boites.Information(u"Sélectionnez l'adresse à supprimer !"_s);
    return;
  }
  if (boites.Question(Boites::Titre(), u"Supprimer "_s + Noms()->selectedItems().first()->text(),
                      Boites::Reponse::Non) == Boites::Reponse::Oui) {
    repertoire_.Supprimer(choisi);
    delete Noms()->selectedItems().first();
    Noms()->clearSelection();
  }
  repertoire_.AfficherTous();
}

void FrmCarnet::reject() {
  Signaler(session_.plateforme.boites, [this] {
    if (repertoire_.Selection() != selection_) repertoire_.Selectionner(selection_);
  });
  QDialog::reject();
}
