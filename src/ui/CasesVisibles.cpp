#include "ui/CasesVisibles.h"

#include "ui/Theme.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

CasesVisibles::CasesVisibles() : QProxyStyle(QStringLiteral("fusion")) {}

void CasesVisibles::Poser() {
  if (QApplication::style()->name() == u"fusion") QApplication::setStyle(new CasesVisibles);
}

void CasesVisibles::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                  QPainter *peintre, const QWidget *widget) const {
  QProxyStyle::drawPrimitive(element, option, peintre, widget);
  const bool ronde = element == PE_IndicatorRadioButton;
  if (!ronde && element != PE_IndicatorCheckBox && element != PE_IndicatorItemViewItemCheck) return;
  if (!EstSombre(option->palette.color(QPalette::Base))) return;
  QColor trait = option->palette.color(QPalette::Text);
  trait.setAlphaF(0.6F);
  peintre->save();
  peintre->setPen(trait);
  peintre->setBrush(Qt::NoBrush);
  peintre->setRenderHint(QPainter::Antialiasing, ronde);
  const QRect bord = option->rect.adjusted(0, 0, -1, -1);
  if (ronde)
    peintre->drawEllipse(bord);
  else
    peintre->drawRect(bord);
  peintre->restore();
}
