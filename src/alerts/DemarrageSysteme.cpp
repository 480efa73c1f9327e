#include "alerts/DemarrageSysteme.h"

using namespace Qt::StringLiterals;

void InscrireDemarrage(ListeDemarrage &liste, const QString &appPath, quint8 genre) {
  if (genre == 0) liste.Ajouter(u"Alerte"_s, appPath + u"/Vigilo"_s, u"auto"_s);
  if (genre == 1) liste.Ajouter(u"Memora"_s, appPath + u"/Memora"_s, u"auto"_s);
}

void RetirerDemarrage(ListeDemarrage &liste, quint8 genre) {
  if (genre == 0) liste.Retirer(u"Alerte"_s);
  if (genre == 1) liste.Retirer(u"Memora"_s);
}
