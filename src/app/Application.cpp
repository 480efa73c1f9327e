#include "app/Application.h"

#include "platform/Erreurs.h"

bool Application::notify(QObject *recepteur, QEvent *evenement) {
  if (boites_ == nullptr) return QApplication::notify(recepteur, evenement);
  bool resultat = false;
  Signaler(*boites_, [&] { resultat = QApplication::notify(recepteur, evenement); });
  return resultat;
}
