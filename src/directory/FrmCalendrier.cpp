#include "directory/FrmCalendrier.h"

#include "ui/FinsDeSemaine.h"
#include "ui_FrmCalendrier.h"

FrmCalendrier::FrmCalendrier(QDate jour, const QLocale &langue, QWidget *parent)
    : QDialog(parent), ui_(std::make_unique<Ui::FrmCalendrier>()) {
  ui_->setupUi(this);
  ui_->MonthView->setLocale(langue);
  ui_->MonthView->setFirstDayOfWeek(Qt::Monday);  // the language brings its own
  ColorerFinsDeSemaine(*ui_->MonthView);
  ui_->MonthView->setSelectedDate(jour);
  connect(ui_->CmdSort, &QPushButton::clicked, this, &QDialog::accept);
}

FrmCalendrier::~FrmCalendrier() = default;
