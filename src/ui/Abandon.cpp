#include "ui/Abandon.h"

#include "platform/Boites.h"

#include <QLineEdit>

#include <algorithm>

using namespace Qt::StringLiterals;

bool PeutAbandonner(Boites &boites, QWidget &fenetre) {
  const auto champs = fenetre.findChildren<QLineEdit *>();
  const bool saisi = std::any_of(champs.begin(), champs.end(),
                                 [](const QLineEdit *champ) { return champ->isModified(); });
  if (saisi && boites.Question(Boites::Titre(), u"Abandonner ce que vous avez saisi ?"_s,
                               Boites::Reponse::Non) != Boites::Reponse::Oui)
    return false;
  OublierSaisie(fenetre);
  return true;
}

void OublierSaisie(QWidget &fenetre) {
  for (QLineEdit *champ : fenetre.findChildren<QLineEdit *>()) champ->setModified(false);
}
