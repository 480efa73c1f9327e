#pragma once

#include <QDate>
#include <QDialog>
#include <QLocale>

/// The calendar of a month. It only shows.
class FrmCalendrier : public QDialog {
  Q_OBJECT

 public:
  FrmCalendrier(QDate jour, const QLocale &langue, QWidget *parent);
};
