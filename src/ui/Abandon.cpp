#include "ui/Abandon.h"

#include "platform/Boites.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// When the question has closed the window manager gives the keyboard to the dialog, which goes at
/// that moment: some leave it with nobody then.
void RendreLeClavier() {
  const QPointer<QWidget> dialogue = QApplication::activeModalWidget();
  if (dialogue == nullptr || dialogue->parentWidget() == nullptr) return;
  QWidget *porteuse = dialogue->parentWidget()->window();
  const auto rendre = [dialogue, porteuse] {
    if (dialogue == nullptr || !dialogue->isVisible()) porteuse->activateWindow();
  };
  QMetaObject::invokeMethod(porteuse, rendre, Qt::QueuedConnection);
}

}  // namespace

bool PeutAbandonner(Boites &boites, QWidget &fenetre) {
  const auto champs = fenetre.findChildren<QLineEdit *>();
  if (!PeutAbandonner(boites, std::ranges::any_of(champs, &QLineEdit::isModified))) return false;
  for (QLineEdit *champ : champs) champ->setModified(false);
  return true;
}

bool PeutAbandonner(Boites &boites, bool saisi) {
  if (!saisi) return true;
  if (boites.Question(Boites::Titre(), u"Abandonner ce que vous avez saisi ?"_s,
                      Boites::Reponse::Non) != Boites::Reponse::Oui)
    return false;
  RendreLeClavier();
  return true;
}
