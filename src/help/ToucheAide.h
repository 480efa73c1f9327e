#pragma once

#include "platform/Boites.h"
#include "platform/Coquille.h"

#include <QObject>
#include <QString>

/// F1 opens the guide at the page of the window that has the focus, for as long as this object
/// lives. A window without a page of its own, as a message box, has that of the window that it
/// belongs to.
class ToucheAide : public QObject {
  Q_OBJECT

 public:
  ToucheAide(Boites &boites, Coquille &coquille, const QString &appPath, QObject *parent);

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  Boites &boites_;
  Coquille &coquille_;
  QString appPath_;
};
