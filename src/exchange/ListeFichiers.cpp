#include "exchange/ListeFichiers.h"

#include "exchange/TextesReprise.h"
#include "ui/Debrancher.h"
#include "ui/EchelleProgramme.h"
#include "ui_ListeFichiers.h"

#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>

#include <algorithm>

namespace {

constexpr int kNom = 0, kFiches = 2, kRefusees = 3;

void AlignerNombres(QTreeWidgetItem &ligne) {
  for (const int colonne : {kFiches, kRefusees})
    ligne.setTextAlignment(colonne, Qt::AlignRight | Qt::AlignVCenter);
}

}  // namespace

ListeFichiers::ListeFichiers(QWidget *parent)
    : QWidget(parent), ui_(std::make_unique<Ui::ListeFichiers>()) {
  ui_->setupUi(this);
  QHeaderView &titres = *ui_->LstFichiers->header();
  titres.setSectionsMovable(false);
  titres.setStretchLastSection(false);
  titres.setSectionResizeMode(QHeaderView::ResizeToContents);
  titres.setSectionResizeMode(kNom, QHeaderView::Stretch);
  AlignerNombres(*ui_->LstFichiers->headerItem());
  GarderTaille(ui_->LstFichiers);
  ui_->LstFichiers->installEventFilter(this);
  connect(ui_->LstFichiers, &QTreeWidget::currentItemChanged, this, &ListeFichiers::Change);
  connect(ui_->CmdAjouter, &QPushButton::clicked, this, &ListeFichiers::AjoutDemande);
  connect(ui_->CmdRetirer, &QPushButton::clicked, this, &ListeFichiers::RetraitDemande);
}

ListeFichiers::~ListeFichiers() {
  DebrancherEnfants(*this);
}

void ListeFichiers::Montrer(const QList<FichierRepris> &fichiers,
                            const QList<EtudeReprise::DuFichier> &comptes) {
  const QSignalBlocker muette(ui_->LstFichiers);
  const qsizetype choisi = std::min(std::max<qsizetype>(Choisi(), 0), fichiers.size() - 1);
  ui_->LstFichiers->clear();
  for (qsizetype i = 0; i < fichiers.size(); ++i) {
    const QFileInfo fichier(fichiers[i].chemin);
    auto *ligne =
        new QTreeWidgetItem(ui_->LstFichiers, {fichier.fileName(), TexteGenre(fichiers[i].genre)});
    ligne->setToolTip(kNom, QDir::toNativeSeparators(fichier.filePath()));
    AlignerNombres(*ligne);
    if (i >= comptes.size()) continue;
    ligne->setText(kFiches, QString::number(comptes[i].fiches));
    ligne->setText(kRefusees, QString::number(comptes[i].refusees));
  }
  Choisir(choisi);
  AjusterHauteur();
}

void ListeFichiers::AjusterHauteur() {
  constexpr int kMoins = 3, kPlus = 5;
  QTreeWidget &liste = *ui_->LstFichiers;
  const int lignes = std::clamp(liste.topLevelItemCount(), kMoins, kPlus);
  const int haute = std::max(liste.sizeHintForRow(0), liste.fontMetrics().lineSpacing());
  liste.setFixedHeight(liste.header()->sizeHint().height() + lignes * haute +
                       2 * liste.frameWidth());
}

qsizetype ListeFichiers::Choisi() const {
  return ui_->LstFichiers->indexOfTopLevelItem(ui_->LstFichiers->currentItem());
}

void ListeFichiers::Choisir(qsizetype place) {
  ui_->LstFichiers->setCurrentItem(ui_->LstFichiers->topLevelItem(static_cast<int>(place)));
}

void ListeFichiers::PrendreFocus() {
  ui_->LstFichiers->setFocus();
}

bool ListeFichiers::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() != QEvent::KeyPress ||
      static_cast<QKeyEvent *>(evenement)->key() != Qt::Key_Delete)
    return QWidget::eventFilter(objet, evenement);
  emit RetraitDemande();
  return true;
}
