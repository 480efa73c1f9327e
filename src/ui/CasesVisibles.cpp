#include "ui/CasesVisibles.h"

#include "ui/Theme.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

namespace {

/// Whether a field cannot be told from a dark window, as with the palettes of high contrast.
bool ChampsConfondus(const QPalette &palette) {
  constexpr double kDistincts = 1.1;
  const QColor base = palette.color(QPalette::Base);
  return EstSombre(base) && Contraste(base, palette.color(QPalette::Window)) < kDistincts;
}

void Border(QPainter &peintre, const QStyleOption &option, bool ronde) {
  QColor trait = option.palette.color(QPalette::Text);
  trait.setAlphaF(0.6F);
  peintre.save();
  peintre.setPen(trait);
  peintre.setBrush(Qt::NoBrush);
  peintre.setRenderHint(QPainter::Antialiasing, ronde);
  const QRect bord = option.rect.adjusted(0, 0, -1, -1);
  if (ronde)
    peintre.drawEllipse(bord);
  else
    peintre.drawRect(bord);
  peintre.restore();
}

}  // namespace

CasesVisibles::CasesVisibles() : QProxyStyle(QStringLiteral("fusion")) {}

void CasesVisibles::Poser() {
  if (QApplication::style()->name() == u"fusion") QApplication::setStyle(new CasesVisibles);
}

void CasesVisibles::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                  QPainter *peintre, const QWidget *widget) const {
  QProxyStyle::drawPrimitive(element, option, peintre, widget);
  switch (element) {
    case PE_IndicatorRadioButton:
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
      if (EstSombre(option->palette.color(QPalette::Base)))
        Border(*peintre, *option, element == PE_IndicatorRadioButton);
      break;
    case PE_Frame:  // has no other one with the focus
      if (ChampsConfondus(option->palette)) Border(*peintre, *option, false);
      break;
    case PE_FrameLineEdit:
    case PE_PanelButtonCommand:
      if (!option->state.testFlag(State_HasFocus) && ChampsConfondus(option->palette))
        Border(*peintre, *option, false);
      break;
    default:
      break;
  }
}

void CasesVisibles::drawComplexControl(ComplexControl controle, const QStyleOptionComplex *option,
                                       QPainter *peintre, const QWidget *widget) const {
  QProxyStyle::drawComplexControl(controle, option, peintre, widget);
  const bool champ = controle == CC_ComboBox || controle == CC_SpinBox;
  if (champ && !option->state.testFlag(State_HasFocus) && ChampsConfondus(option->palette))
    Border(*peintre, *option, false);
}
