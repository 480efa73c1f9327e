#include "help/Aide.h"

#include "platform/Coquille.h"
#include "platform/Erreurs.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QUrl>

using namespace Qt::StringLiterals;

QString SommaireAide() {
  return u"index.html"_s;
}

QString PageAide(const QString &fenetre) {
  static const QHash<QString, QString> kPages{
      {u"FrmDepart"_s, u"index.html#demarrage"_s},
      {u"FrmAPROPOS"_s, u"index.html"_s},
      {u"FrmVelmira"_s, u"repertoire.html"_s},
      {u"FrmNewMod"_s, u"fiche.html"_s},
      {u"FrmClavier"_s, u"repertoire.html#recherche"_s},
      {u"FrmLoupe"_s, u"repertoire.html#loupe"_s},
      {u"FrmTaillepg"_s, u"apparence.html"_s},
      {u"FrmCalendrier"_s, u"calendrier.html#mois"_s},
      {u"FrmImprime"_s, u"echanges.html#imprimer"_s},
      {u"FrmAvancement"_s, u"echanges.html#importer"_s},
      {u"FrmReprise"_s, u"venir.html"_s},
      {u"FrmExport"_s, u"venir.html#repartir"_s},
      {u"FrmLiaison"_s, u"telephone.html#separateur"_s},
      {u"FrmBilan"_s, u"maintenance.html#reparation"_s},
      {u"FrmRestaurer"_s, u"maintenance.html#restaurer"_s},
      {u"FrmOptionsAnn"_s, u"alertes.html"_s},
      {u"FrmVigilo"_s, u"alertes.html#vigilo"_s},
      {u"FrmPlomex"_s, u"enveloppes.html"_s},
      {u"FrmTaille"_s, u"enveloppes.html#format"_s},
      {u"FrmConfigure"_s, u"imprimante.html"_s},
      {u"FrmEtalonnage"_s, u"imprimante.html#etalonner"_s},
      {u"FrmOptions"_s, u"ecriture.html"_s},
      {u"FrmVueAV"_s, u"enveloppes.html#apercu"_s},
      {u"FrmNouveau"_s, u"adresses.html"_s},
      {u"FrmCP"_s, u"adresses.html#codes-postaux"_s},
      {u"FrmCode"_s, u"adresses.html#codes-postaux"_s},
      {u"FrmCarnet"_s, u"carnet.html"_s},
      {u"FrmEnCours"_s, u"carnet.html#multiples"_s},
      {u"FrmReste"_s, u"carnet.html#reprendre"_s},
  };
  return kPages.value(fenetre);
}

void OuvrirAide(Coquille &coquille, const QString &appPath, const QString &page) {
  const QString fichier = appPath + u"/guide/"_s + page.section(u'#', 0, 0);
  if (!QFileInfo(fichier).isFile())
    throw ErreurFichier(
        u"La page « %1 » de l'aide est introuvable.\nRéinstallez Velmira, puis "
        "recommencez."_s.arg(QDir::toNativeSeparators(fichier)));
  QUrl adresse = QUrl::fromLocalFile(fichier);
  if (const QString ancre = page.section(u'#', 1); !ancre.isEmpty()) adresse.setFragment(ancre);
  coquille.Ouvrir(adresse.toString(QUrl::FullyEncoded));
}
