#include "help/CommandesAide.h"

#include "help/Aide.h"
#include "help/FrmAPROPOS.h"
#include "ui/Garde.h"

#include <QAction>
#include <QMenu>

using namespace Qt::StringLiterals;

CommandesAide::CommandesAide(Session &session, QMenu *menu, QWidget *fenetre) : QObject(fenetre) {
  Boites &boites = session.plateforme.boites;
  auto *aide = new QAction(u"&Aide"_s, fenetre);
  aide->setObjectName(u"mnuAideVelmira"_s);
  aide->setShortcut(Qt::Key_F1);
  aide->setAutoRepeat(false);
  menu->insertAction(menu->actions().value(0), aide);
  connect(aide, &QAction::triggered, this, Garde(boites, [&session, fenetre](bool) {
            OuvrirAide(session.plateforme.coquille, session.dossiers.AppPath,
                       PageAide(fenetre->objectName()));
          }));

  QAction *apropos = menu->addAction(u"À &propos de Velmira..."_s);
  apropos->setObjectName(u"mnuApropos"_s);
  connect(apropos, &QAction::triggered, this, Garde(boites, [&session, fenetre](bool) {
            FrmAPROPOS(session.plateforme.boites, session.plateforme.coquille, fenetre).exec();
          }));
}
