#include "alerts/FrmVigilo.h"

#include "calendar/Anniversaires.h"
#include "ui/Brancheur.h"
#include "ui/Debrancher.h"
#include "ui/Grandir.h"
#include "ui/Icones.h"
#include "ui_FrmVigilo.h"

#include <QHeaderView>
#include <QTreeWidget>

#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr double kTitre = 1.2;
constexpr int kAlerte = Qt::UserRole;  ///< key of the event

QTreeWidgetItem *Ligne(const Alerte &alerte) {
  auto *ligne = new QTreeWidgetItem({alerte.nom, alerte.type, alerte.jour.toString(u"dd/MM/yyyy"_s),
                                     TexteEcart(alerte.dans), TexteAgeAlerte(alerte)});
  ligne->setData(0, kAlerte, alerte.evenement);
  ligne->setToolTip(0, alerte.nom);
  return ligne;
}

/// Each column is as wide as its longest text, with room around it.
void Ecrire(QTreeWidgetItem &ligne, const QFont &police) {
  const QFontMetrics lettres(police);
  const QSize marge(2 * lettres.averageCharWidth(), lettres.height() / 2);
  for (int colonne = 0; colonne < ligne.columnCount(); ++colonne) {
    ligne.setFont(colonne, police);
    ligne.setSizeHint(colonne, lettres.size(Qt::TextSingleLine, ligne.text(colonne)) + marge);
  }
}

/// The day itself stands out, in a light and in a dark window.
void Souligner(QTreeWidgetItem &ligne, QFont police) {
  police.setBold(true);
  Ecrire(ligne, police);
  for (int colonne = 0; colonne < ligne.columnCount(); ++colonne) {
    ligne.setBackground(colonne, QColor(255, 226, 138));
    ligne.setForeground(colonne, Qt::black);
  }
}

QList<Cle> Cles(const QTreeWidget &liste) {
  QList<Cle> cles;
  for (const QTreeWidgetItem *ligne : liste.selectedItems())
    cles.append(ligne->data(0, kAlerte).toLongLong());
  return cles;
}

}  // namespace

FrmVigilo::FrmVigilo(Boites &boites, const QLocale &langue)
    : ui_(std::make_unique<Ui::FrmVigilo>()), langue_(langue) {
  ui_->setupUi(this);
  setWindowIcon(IconeProgramme());
  Grandir(ui_->LblJour, kTitre, true);
  const Brancheur brancher(boites, this);
  brancher(ui_->CmdVu, [this] { emit Vues(Choisies()); });
  brancher(ui_->CmdFiche, [this] { emit FicheDemandee(NomChoisi()); });
  brancher(ui_->CmdEnveloppe, [this] { emit EnveloppeDemandee(NomChoisi()); });
  brancher(ui_->CmdQuitte, &FrmVigilo::close);
  Brancher();
}

FrmVigilo::~FrmVigilo() {
  DebrancherEnfants(*this);
}

void FrmVigilo::Brancher() {
  for (QTreeWidget *liste : {ui_->TVDues, ui_->TVManquees}) {
    QTreeWidget *autre = liste == ui_->TVDues ? ui_->TVManquees : ui_->TVDues;
    liste->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    liste->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    liste->header()->setStretchLastSection(false);
    connect(liste, &QTreeWidget::itemSelectionChanged, this, [this, liste, autre] {
      if (!liste->selectedItems().isEmpty()) autre->clearSelection();
      MajBoutons();
    });
    connect(liste, &QTreeWidget::itemActivated, this,
            [this](const QTreeWidgetItem *ligne) { emit FicheDemandee(ligne->text(0)); });
  }
}

void FrmVigilo::Montrer(const Vigilance &vigilance, QDate aujourdhui, const QString &reserve) {
  const QList<Cle> dues = Cles(*ui_->TVDues), manquees = Cles(*ui_->TVManquees);
  vigilance_ = vigilance;
  ui_->LblJour->setText(langue_.dayName(aujourdhui.dayOfWeek()) + u' ' +
                        JourEnLettres(aujourdhui, langue_) + u' ' +
                        QString::number(aujourdhui.year()));
  ui_->LblReserve->setText(reserve);
  ui_->LblReserve->setVisible(!reserve.isEmpty());
  ui_->LblRien->setText((u"Aucune alerte à ce jour. "_s + TexteVues(vigilance.vues)).trimmed());
  ui_->LblRien->setVisible(vigilance.dues.isEmpty());
  ui_->LblManquees->setText(
      u"Manquées depuis le %1 :"_s.arg(vigilance.depuis.toString(u"dd/MM/yyyy"_s)));
  ui_->LblManquees->setVisible(!vigilance.manquees.isEmpty());
  Remplir(*ui_->TVDues, vigilance.dues, dues);
  Remplir(*ui_->TVManquees, vigilance.manquees, manquees);
  if (Choisies().isEmpty()) {
    QTreeWidget *liste = vigilance.dues.isEmpty() ? ui_->TVManquees : ui_->TVDues;
    liste->setCurrentItem(liste->topLevelItem(0));
  }
  MajBoutons();
}

void FrmVigilo::Remplir(QTreeWidget &liste, const QList<Alerte> &alertes,
                        const QList<Cle> &choisies) {
  liste.clear();
  for (const Alerte &alerte : alertes) {
    QTreeWidgetItem *ligne = Ligne(alerte);
    if (alerte.dans == 0)
      Souligner(*ligne, liste.font());
    else
      Ecrire(*ligne, liste.font());
    liste.addTopLevelItem(ligne);
    ligne->setSelected(choisies.contains(alerte.evenement));
  }
  liste.setVisible(!alertes.isEmpty());
}

QList<Alerte> FrmVigilo::Choisies() const {
  const QList<Cle> dues = Cles(*ui_->TVDues), manquees = Cles(*ui_->TVManquees);
  QList<Alerte> alertes;
  std::ranges::copy_if(vigilance_.dues, std::back_inserter(alertes),
                       [&](const Alerte &a) { return dues.contains(a.evenement); });
  std::ranges::copy_if(vigilance_.manquees, std::back_inserter(alertes),
                       [&](const Alerte &a) { return manquees.contains(a.evenement); });
  return alertes;
}

QString FrmVigilo::NomChoisi() const {
  const QList<Alerte> choisies = Choisies();
  return choisies.isEmpty() ? QString() : choisies.constFirst().nom;
}

void FrmVigilo::MajBoutons() {
  const qsizetype nombre = Choisies().size();
  ui_->CmdVu->setEnabled(nombre > 0);
  ui_->CmdFiche->setEnabled(nombre == 1);
  ui_->CmdEnveloppe->setEnabled(nombre == 1);
}
