#include "directory/FrmCalendrier.h"

#include <QCalendarWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FrmCalendrier::FrmCalendrier(QDate jour, const QLocale &langue, QWidget *parent) : QDialog(parent) {
  setObjectName(u"FrmCalendrier"_s);
  setWindowTitle(u"Calendrier"_s);
  auto *colonne = new QVBoxLayout(this);
  colonne->setSpacing(12);
  auto *mois = new QCalendarWidget(this);
  mois->setObjectName(u"MonthView"_s);
  mois->setAccessibleName(u"Calendrier"_s);
  mois->setLocale(langue);
  mois->setFirstDayOfWeek(Qt::Monday);
  mois->setVerticalHeaderFormat(QCalendarWidget::ISOWeekNumbers);
  mois->setMinimumSize(360, 240);
  mois->setSelectedDate(jour);
  colonne->addWidget(mois);
  auto *fermer = new QPushButton(u"&Fermer"_s, this);
  fermer->setObjectName(u"CmdSort"_s);
  fermer->setDefault(true);
  connect(fermer, &QPushButton::clicked, this, &QDialog::accept);
  colonne->addWidget(fermer, 0, Qt::AlignRight);
}
