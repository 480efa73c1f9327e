#pragma once

#include <QDate>
#include <QDialog>
#include <QLocale>

#include <memory>

namespace Ui {
class FrmCalendrier;
}

/// The calendar of a month. It only shows.
class FrmCalendrier : public QDialog {
  Q_OBJECT

 public:
  FrmCalendrier(QDate jour, const QLocale &langue, QWidget *parent);
  ~FrmCalendrier() override;

 private:
  std::unique_ptr<Ui::FrmCalendrier> ui_;
};
