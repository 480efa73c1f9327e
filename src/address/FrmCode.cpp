#include "address/FrmCode.h"

#include "ui_FrmCode.h"

FrmCode::FrmCode(const QStringList &codes, QWidget *parent)
    : QDialog(parent), ui_(std::make_unique<Ui::FrmCode>()) {
  ui_->setupUi(this);
  ui_->LstCode->addItems(codes);  // below the line of a new one and an empty one
  constexpr int kPremierCode = 2;
  ui_->LstCode->setCurrentRow(kPremierCode);
  connect(ui_->LstCode, &QListWidget::itemClicked, this, &FrmCode::Choisir);
  // Enter takes what the arrow keys have chosen.
  connect(ui_->Cmd, &QPushButton::clicked, this, [this] {
    if (ui_->LstCode->currentItem() != nullptr) Choisir(ui_->LstCode->currentItem());
  });
}

FrmCode::~FrmCode() = default;

void FrmCode::Choisir(const QListWidgetItem *element) {
  if (element->text().isEmpty()) return;
  if (ui_->LstCode->row(element) > 0) code_ = element->text();
  accept();
}
