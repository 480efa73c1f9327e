#pragma once

#include "platform/Boites.h"

#include <QApplication>

/// The toolkit's application, with the one place where a failure that no handler takes ends: the
/// default error box. The transaction has rolled back by then, and the program goes on.
class Application : public QApplication {
  Q_OBJECT

 public:
  using QApplication::QApplication;

  void SignalerPar(Boites *boites) { boites_ = boites; }
  bool notify(QObject *recepteur, QEvent *evenement) override;

 private:
  Boites *boites_ = nullptr;
};
