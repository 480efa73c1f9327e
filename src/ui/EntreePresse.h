#pragma once

#include <QObject>

/// As long as it lives Enter presses the button that has the focus, as Space does: the toolkit does
/// so for those push buttons of a dialog alone that may become its default one. A window's own
/// command on Enter comes first.
class EntreePresse : public QObject {
  Q_OBJECT

 public:
  EntreePresse();

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;
};
