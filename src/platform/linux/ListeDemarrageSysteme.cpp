#include "platform/linux/ListeDemarrageSysteme.h"

#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "platform/linux/EntreeBureau.h"
#include "platform/linux/Programmes.h"

#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

QString DossierDemarrage() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/autostart"_s;
}

QString CheminEntree(const QString &nom) {
  return DossierDemarrage() + u"/Velmira-"_s + nom + u".desktop"_s;
}

}  // namespace

void ListeDemarrageSysteme::Ajouter(const QString &nom, const QString &programme,
                                    const QString &argument) {
  Ignorer([&] {
    CreerDossier(DossierDemarrage());
    RemplacerFichier(CheminEntree(nom), EntreeBureau(nom, TrouverProgramme(programme), argument));
  });
}

void ListeDemarrageSysteme::Retirer(const QString &nom) {
  Ignorer([&] { EffacerFichier(CheminEntree(nom)); });
}
