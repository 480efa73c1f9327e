#include "Lancement.h"

#include "directory/ArbreVelmiras.h"

#include <QApplication>

using namespace Qt::StringLiterals;

Peinture::Peinture() {
  qApp->installEventFilter(this);
}

void Peinture::Attendre() const {
  while (!vue_) QCoreApplication::processEvents();
}

bool Peinture::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() != QEvent::Paint) return false;
  const auto *arbre = qobject_cast<const QTreeView *>(objet->parent());
  if (arbre != nullptr && arbre->viewport() == objet && arbre->model()->hasChildren()) vue_ = true;
  return false;
}

void Lancement::Boites::Message(Genre, const QString &titre, const QString &texte) {
  qFatal("%s: %s", qPrintable(titre), qPrintable(texte));
}

void Lancement::Boites::Erreur(const QString &texte) {
  qFatal("%s", qPrintable(texte));
}

Lancement::Lancement(const QString &appPath)
    : plateforme_{horloge_,
                  boites_,
                  coquille_,
                  imprimante_,
                  polices_,
                  demarrage_,
                  port_,
                  classeur_,
                  u"mesure"_s,
                  QLocale(QLocale::French, QLocale::France),
                  appPath + u"/cache"_s},
      programme_(plateforme_, appPath) {
  const Peinture peinture;
  if (!programme_.Demarrer()) qFatal("the program does not start");
  peinture.Attendre();
}

ArbreVelmiras &Lancement::Liste() const {
  for (QWidget *fenetre : QApplication::topLevelWidgets())
    if (auto *arbre = fenetre->findChild<ArbreVelmiras *>()) return *arbre;
  qFatal("the list is missing");
}
