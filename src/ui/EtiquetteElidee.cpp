#include "ui/EtiquetteElidee.h"

#include "ui/Montrable.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kCaracteres = 1000;  // more never fits

}  // namespace

void DessinerFocus(QWidget &controle) {
  QPainter dessin(&controle);
  QStyleOptionFocusRect option;
  option.initFrom(&controle);
  controle.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &dessin, &controle);
}

EtiquetteElidee::EtiquetteElidee(QWidget *parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QString EtiquetteElidee::Ligne() const {
  QString ligne = Montrable(text(), kCaracteres);
  ligne.replace(u"\r\n"_s, u" "_s);
  for (QChar &signe : ligne)
    if (signe != u'\u00a0' && signe != u'\u202f' && signe.isSpace()) signe = u' ';
  return ligne;
}

QSize EtiquetteElidee::sizeHint() const {
  // One more: the advance is rounded, and what is wider by a fraction would be cut.
  return {fontMetrics().horizontalAdvance(Ligne()) + 1, fontMetrics().height() + 2 * margin()};
}

QSize EtiquetteElidee::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * 8, sizeHint().height()};
}

void EtiquetteElidee::paintEvent(QPaintEvent *) {
  QPainter dessin(this);
  const QString ligne = fontMetrics().elidedText(Ligne(), coupe_, contentsRect().width());
  style()->drawItemText(&dessin, contentsRect(), static_cast<int>(alignment() | Qt::TextSingleLine),
                        palette(), isEnabled(), ligne, foregroundRole());
  if (hasFocus()) DessinerFocus(*this);
}

bool EtiquetteElidee::event(QEvent *evenement) {
  if (evenement->type() == QEvent::ToolTip && toolTip().isEmpty()) {
    const bool coupe = fontMetrics().horizontalAdvance(Ligne()) > contentsRect().width();
    QToolTip::showText(
        static_cast<QHelpEvent *>(evenement)->globalPos(),
        coupe ? u"<p style='white-space:pre-wrap'>%1</p>"_s.arg(Ligne().toHtmlEscaped())
              : QString(),
        this);
    return true;
  }
  return QLabel::event(evenement);
}
