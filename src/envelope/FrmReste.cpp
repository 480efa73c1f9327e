#include "envelope/FrmReste.h"

#include "envelope/BilanTirage.h"
#include "ui/EchelleProgramme.h"
#include "ui/Montrable.h"
#include "ui_FrmReste.h"

using namespace Qt::StringLiterals;

FrmReste::FrmReste(const BilanTirage &bilan, bool gardable, QWidget *parent)
    : QDialog(parent), ui_(std::make_unique<Ui::FrmReste>()) {
  constexpr int kLargeur = 84, kNom = 34, kLongueurNom = 200;  // in letters
  constexpr int kLignes = 10;
  ui_->setupUi(this);
  const int lettre = fontMetrics().averageCharWidth();
  ui_->LstBilan->setMinimumSize(lettre * kLargeur, fontMetrics().lineSpacing() * kLignes);
  GarderTaille(ui_->LstBilan);
  ui_->LblConstat->setText(bilan.constat);
  ui_->LblExplication->setText(bilan.explication);
  ui_->LblExplication->setVisible(!bilan.explication.isEmpty());
  for (const auto &[nom, sort] : bilan.lignes) {
    const QString montrable = Montrable(nom, kLongueurNom);
    auto *ligne = new QTreeWidgetItem(ui_->LstBilan, {montrable, sort});
    ligne->setData(0, Qt::AccessibleTextRole, u"%1, %2"_s.arg(montrable, sort));
  }
  ui_->LstBilan->setColumnWidth(0, lettre * kNom);

  const bool reste = bilan.restantes > 0;
  ui_->CmdReste->setVisible(reste);
  ui_->CmdReste->setText(bilan.restantes == 1
                             ? u"&Imprimer celle qui reste"_s
                             : u"&Imprimer les %1 qui restent"_s.arg(bilan.restantes));
  ui_->CmdOublier->setVisible(reste && gardable);
  if (bilan.restantes == 1) ui_->CmdOublier->setText(u"&Ne pas l'imprimer"_s);
  if (!reste || !gardable) ui_->CmdPlusTard->setText(u"&Fermer"_s);
  (reste ? ui_->CmdReste : ui_->CmdPlusTard)->setDefault(true);
  (reste ? ui_->CmdReste : ui_->CmdPlusTard)->setFocus();
  connect(ui_->CmdReste, &QPushButton::clicked, this, [this] { Choisir(Suite::Imprimer); });
  connect(ui_->CmdPlusTard, &QPushButton::clicked, this, [this] { Choisir(Suite::Garder); });
  connect(ui_->CmdOublier, &QPushButton::clicked, this, [this] { Choisir(Suite::Oublier); });
}

FrmReste::~FrmReste() = default;

void FrmReste::Choisir(Suite suite) {
  choix_ = suite;
  accept();
}
