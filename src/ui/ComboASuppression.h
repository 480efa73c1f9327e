#pragma once

#include "ui/ComboSaisie.h"

/// A combo of which the user may have the text on display deleted: the Delete key asks for it, also
/// from within the field, and does nothing else.
class ComboASuppression : public ComboSaisie {
  Q_OBJECT

 public:
  using ComboSaisie::ComboSaisie;

 signals:
  /// Whatever is on display, be it nothing.
  void SuppressionDemandee();

 protected:
  void keyPressEvent(QKeyEvent *evenement) override;
};
