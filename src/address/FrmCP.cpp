#include "address/FrmCP.h"

#include "ui/Brancheur.h"
#include "ui_FrmCP.h"

#include <QItemSelectionModel>

using namespace Qt::StringLiterals;

FrmCP::FrmCP(Boites &boites, const QString &appPath, QWidget *parent)
    : QDialog(parent), boites_(boites), appPath_(appPath), ui_(std::make_unique<Ui::FrmCP>()) {
  ui_->setupUi(this);
  const Brancheur brancher(boites_, this);
  brancher(ui_->CmdRecherche, &FrmCP::Chercher);
  brancher(ui_->CmdAide, &FrmCP::Expliquer);
  brancher(ui_->CmdQuitter, &FrmCP::Prendre);
  brancher(ui_->LstCP, &QListWidget::itemDoubleClicked, &FrmCP::Prendre);
  brancher(ui_->LstCP, &QListWidget::itemClicked, [this] { ui_->CmdQuitter->setFocus(); });
  ui_->CmdRecherche->setFocus();
}

FrmCP::~FrmCP() = default;

void FrmCP::Chercher() {
  ui_->LstCP->clear();
  trouves_.clear();
  const auto texte = boites_.Saisie(u"Code Postal"_s,
                                    u"Inscrivez 3 lettres ou plus du nom recherché \n"
                                    "(soit code postal - ex : 440 - soit commune - ex : Nant -).\n"
                                    "(ST ou STE pour Saint ou Sainte)"_s,
                                    u""_s);
  if (!texte || texte->isEmpty()) return;
  trouves_ = ChercherCodes(appPath_, *texte);
  QStringList lignes;
  for (const CodePostal &trouve : trouves_) lignes.append(trouve.ligne);
  ui_->LstCP->addItems(lignes);
  if (trouves_.isEmpty()) {
    boites_.Information(u"Echec de la recherche !"_s);
    return;
  }
  ui_->LstCP->setFocus();  // Enter takes the row, the first one as yet
  ui_->LstCP->setCurrentRow(0, QItemSelectionModel::NoUpdate);
}

void FrmCP::Prendre() {
  // The row that the keyboard has reached need not be selected.
  const QListWidgetItem *ligne =
      ui_->LstCP->hasFocus() ? ui_->LstCP->currentItem() : ui_->LstCP->selectedItems().value(0);
  if (ligne != nullptr) choix_ = trouves_[ui_->LstCP->row(ligne)];
  accept();
}

void FrmCP::Expliquer() {
  boites_.Information(
      u"Cherchez par une partie d'un code ou du nom d'une commune.\n"
      "Puis double-cliquez sur la ligne voulue, ou choisissez-la et cliquez sur OK."_s);
}
