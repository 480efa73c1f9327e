#include "ui/ChoixDate.h"

#include "ui/FinsDeSemaine.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

ChoixDate::ChoixDate(QWidget *parent) : QDateEdit(parent) {
  setCalendarPopup(true);
  ColorerFinsDeSemaine(*calendarWidget());
  connect(calendarWidget(), &QCalendarWidget::clicked, this, &ChoixDate::Choisie);
  connect(calendarWidget(), &QCalendarWidget::activated, this, &ChoixDate::Choisie);
}

void ChoixDate::Montrer(QDate jour, QDate sinon) {
  vide_ = !jour.isValid();
  setDate(vide_ ? sinon : jour);
  const QSignalBlocker silence(lineEdit());
  lineEdit()->setText(textFromDateTime(dateTime()));  // be the date the same
}

QSize ChoixDate::sizeHint() const {
  const QScopedValueRollback mesure(vide_, false);
  return QDateEdit::sizeHint();
}

QSize ChoixDate::minimumSizeHint() const {
  const QScopedValueRollback mesure(vide_, false);
  return QDateEdit::minimumSizeHint();
}

QString ChoixDate::textFromDateTime(const QDateTime &jour) const {
  return vide_ ? QString() : QDateEdit::textFromDateTime(jour);
}

void ChoixDate::keyPressEvent(QKeyEvent *evenement) {
  const int touche = evenement->key();
  if (touche == Qt::Key_Space || touche == Qt::Key_Down || touche == Qt::Key_F4)
    Ouvrir();
  else
    evenement->ignore();
}

void ChoixDate::wheelEvent(QWheelEvent *evenement) {
  evenement->ignore();
}

void ChoixDate::Ouvrir() {
  // The toolkit opens it by the mouse alone.
  QStyleOptionComboBox option;
  option.initFrom(this);
  option.editable = true;
  const QPointF fleche =
      style()
          ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this)
          .center();
  QMouseEvent appui(QEvent::MouseButtonPress, fleche, mapToGlobal(fleche), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(this, &appui);
}
