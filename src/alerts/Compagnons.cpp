#include "alerts/Compagnons.h"

using namespace Qt::StringLiterals;

namespace {

QString NomAuDemarrage(Compagnon compagnon) {
  return compagnon == Compagnon::Alertes ? u"Alerte"_s : u"Memora"_s;
}

}  // namespace

QString CheminCompagnon(const QString &appPath, Compagnon compagnon) {
  return appPath + (compagnon == Compagnon::Alertes ? u"/Vigilo"_s : u"/Memora"_s);
}

void InscrireDemarrage(ListeDemarrage &liste, const QString &appPath, Compagnon compagnon) {
  liste.Ajouter(NomAuDemarrage(compagnon), CheminCompagnon(appPath, compagnon), u"auto"_s);
}

void RetirerDemarrage(ListeDemarrage &liste, Compagnon compagnon) {
  liste.Retirer(NomAuDemarrage(compagnon));
}
