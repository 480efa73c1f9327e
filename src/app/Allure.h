#pragma once

#include "ui/PaletteLisible.h"

#include <QTranslator>

/// What each of our programs sets up before its first window: the look of its controls, its icons,
/// and the toolkit's own texts in French. Lives as long as the windows.
class Allure {
 public:
  Allure();

 private:
  PaletteLisible palette_;
  QTranslator traduction_;
};
