#pragma once

#include <QProxyStyle>

/// The toolkit's own style, in which a box or a round that is not ticked cannot be told from a dark
/// ground, nor a field or a button from a window as dark as they are: there they get an edge in the
/// colour of the texts.
class CasesVisibles : public QProxyStyle {
  Q_OBJECT

 public:
  /// Puts it in the place of that style; a style of the desktop stays.
  static void Poser();

  CasesVisibles();

  void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *peintre,
                     const QWidget *widget) const override;
  void drawComplexControl(ComplexControl controle, const QStyleOptionComplex *option,
                          QPainter *peintre, const QWidget *widget) const override;
};
