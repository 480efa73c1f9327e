#include "exchange/PageBilan.h"

#include "exchange/TextesReprise.h"
#include "ui/Grandir.h"
#include "ui/Icones.h"
#include "ui_PageBilan.h"

#include <QStyle>

PageBilan::PageBilan(QWidget *parent) : QWidget(parent), ui_(std::make_unique<Ui::PageBilan>()) {
  ui_->setupUi(this);
  constexpr int kIcone = 32;
  Grandir(ui_->LblResume, 1.1, true);
  PoserIcone(ui_->ImgTout, style()->standardIcon(QStyle::SP_MessageBoxInformation, nullptr, this),
             kIcone);
  PoserIcone(ui_->ImgRefus, style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this),
             kIcone);
}

PageBilan::~PageBilan() = default;

void PageBilan::Montrer(const BilanReprise &bilan, const QString &retour) {
  ui_->ImgTout->setVisible(bilan.refuses == 0);
  ui_->ImgRefus->setVisible(bilan.refuses > 0);
  ui_->LblResume->setText(PhraseBilan(bilan));
  ui_->LblRetour->setText(retour);
  ui_->TxtBilan->setPlainText(DetailBilan(bilan));
}
