#include "maintenance/FrmBilan.h"

#include "platform/Coquille.h"
#include "ui/Brancheur.h"
#include "ui/Copiable.h"
#include "ui/EchelleProgramme.h"
#include "ui/Grandir.h"
#include "ui/Icones.h"
#include "ui_FrmBilan.h"

#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Wide enough for each text.
void MettreColonnes(QTreeWidget &liste) {
  const int signe = liste.fontMetrics().averageCharWidth();
  QHeaderView &entete = *liste.header();
  entete.setStretchLastSection(false);
  int largeur = 2 * liste.frameWidth();
  for (int colonne = 0; colonne < liste.columnCount(); ++colonne) {
    liste.resizeColumnToContents(colonne);
    entete.resizeSection(colonne, entete.sectionSize(colonne) + 3 * signe);
    largeur += entete.sectionSize(colonne);
  }
  entete.setSectionResizeMode(0, QHeaderView::Stretch);
  liste.setMinimumWidth(std::max(largeur, 72 * signe));
}

}  // namespace

FrmBilan::FrmBilan(Boites &boites, Coquille &coquille, const BilanReparation &bilan)
    : ui_(std::make_unique<Ui::FrmBilan>()) {
  constexpr int kIcone = 32;
  ui_->setupUi(this);
  const auto icone =
      bilan.Entier() ? QStyle::SP_MessageBoxInformation : QStyle::SP_MessageBoxWarning;
  PoserIcone(ui_->Img, style()->standardIcon(icone, nullptr, this), kIcone);
  Grandir(ui_->LblBilan, 1.1, true);
  ui_->LblBilan->setText(PhraseBilan(bilan));
  ui_->LblTaille->setText(TailleBilan(bilan));
  const QFileInfo ancienne(bilan.ancienne);
  ui_->TxtAncienne->setText(ancienne.fileName());
  ui_->TxtAncienne->setToolTip(QDir::toNativeSeparators(bilan.ancienne));
  Remplir(bilan);
  connect(ui_->CmdCopier, &QPushButton::clicked, this,
          [this, texte = TexteBilan(bilan)] { Copier(*ui_->CmdCopier, texte); });
  Brancheur(boites, this)(ui_->CmdDossier, &QPushButton::clicked,
                          [&coquille, dossier = ancienne.path()] { coquille.Ouvrir(dossier); });
  connect(ui_->CmdFermer, &QPushButton::clicked, this, &QDialog::accept);
  ui_->CmdFermer->setFocus();
}

FrmBilan::~FrmBilan() = default;

void FrmBilan::Remplir(const BilanReparation &bilan) {
  QTreeWidget &liste = *ui_->LstTables;
  for (const BilanTable &table : bilan.tables) {
    auto *ligne = new QTreeWidgetItem(&liste, CellulesBilan(table));
    for (int colonne = 1; colonne < liste.columnCount(); ++colonne)
      ligne->setTextAlignment(colonne, Qt::AlignRight | Qt::AlignVCenter);
  }
  MettreColonnes(liste);
  liste.setFixedHeight(liste.header()->sizeHint().height() + 2 * liste.frameWidth() +
                       liste.sizeHintForRow(0) * liste.topLevelItemCount());
  GarderTaille(&liste);
}
