#include "help/FrmAPROPOS.h"

#include "platform/Coquille.h"
#include "ui/Brancheur.h"
#include "ui/EtiquetteLien.h"
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
  ui_->Img->setPixmap(IconeProgramme().pixmap(kIcone));
  QFont grand = ui_->LblNom->font();
  grand.setPointSizeF(grand.pointSizeF() * 2);
  grand.setBold(true);
  ui_->LblNom->setFont(grand);
  ui_->LblVersion->setText(u"Version "_s + QStringLiteral(VELMIRA_VERSION));
  ui_->LblLicences->setMinimumWidth(fontMetrics().averageCharWidth() * 52);
  Relier(ui_->LblSite, u"https://velmira.example"_s);
  Relier(ui_->LblContact, u"mailto:contact@velmira.example"_s);
  connect(ui_->CmdFermer, &QPushButton::clicked, this, &QDialog::accept);
  ui_->CmdFermer->setFocus();
}

FrmAPROPOS::~FrmAPROPOS() = default;

void FrmAPROPOS::Relier(EtiquetteLien *lien, const QString &adresse) {
  constexpr int kBord = 4;  // pixels beside the text, so that it is not cut
  lien->setMinimumWidth(fontMetrics().horizontalAdvance(lien->text()) + 2 * kBord);
  Colorer(lien, lien->palette().color(QPalette::Link));
  Brancheur(boites_, this)(lien, &QLabel::linkActivated,
                           [this, adresse] { coquille_.Ouvrir(adresse); });
}
