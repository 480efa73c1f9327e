#include "help/FrmAPROPOS.h"

#include "platform/Coquille.h"
#include "ui/Brancheur.h"
#include "ui/EchelleProgramme.h"
#include "ui/EtiquetteLien.h"
#include "ui/Grandir.h"
#include "ui/Icones.h"
#include "ui/Theme.h"
#include "ui_FrmAPROPOS.h"

using namespace Qt::StringLiterals;

FrmAPROPOS::FrmAPROPOS(Boites &boites, Coquille &coquille, QWidget *parent)
    : QDialog(parent),
      boites_(boites),
      coquille_(coquille),
      ui_(std::make_unique<Ui::FrmAPROPOS>()) {
  constexpr int kIcone = 96;
  ui_->setupUi(this);
  PoserIcone(ui_->Img, IconeProgramme(), kIcone);
  Grandir(ui_->LblNom, 2, true);
  ui_->LblVersion->setText(u"Version "_s + QStringLiteral(VELMIRA_VERSION));
  ui_->LblLicences->setMinimumWidth(fontMetrics().averageCharWidth() * 52);
  GarderTaille(ui_->LblLicences);
  Relier(ui_->LblSite, u"https://velmira.example"_s);
  Relier(ui_->LblContact, u"mailto:contact@velmira.example"_s);
  connect(ui_->CmdFermer, &QPushButton::clicked, this, &QDialog::accept);
  ui_->CmdFermer->setFocus();
}

FrmAPROPOS::~FrmAPROPOS() = default;

void FrmAPROPOS::Relier(EtiquetteLien *lien, const QString &adresse) {
  constexpr int kBord = 4;  // pixels beside the text, so that it is not cut
  lien->setMinimumWidth(fontMetrics().horizontalAdvance(lien->text()) + 2 * kBord);
  GarderTaille(lien);
  Colorer(lien, lien->palette().color(QPalette::Link));
  Brancheur(boites_, this)(lien, &QLabel::linkActivated,
                           [this, adresse] { coquille_.Ouvrir(adresse); });
}
