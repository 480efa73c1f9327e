#pragma once

#include "session/Session.h"

#include <QObject>

class QMenu;
class QWidget;

/// The guide and the about window in the menu "?" of a main window.
class CommandesAide : public QObject {
  Q_OBJECT

 public:
  CommandesAide(Session &session, QMenu *menu, QWidget *fenetre);
};
