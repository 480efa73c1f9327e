#include "app/Allure.h"

#include "ui/CasesVisibles.h"
#include "ui/Icones.h"

#include <QCoreApplication>
#include <QLibraryInfo>

using namespace Qt::StringLiterals;

Allure::Allure() {
  CasesVisibles::Poser();
  PreparerIcones();
  // Oui, Non, Annuler
  if (traduction_.load(u"qtbase_fr"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&traduction_);
}
