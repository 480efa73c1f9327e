#include "ui/Abandon.h"

#include "platform/Boites.h"

#include <QLineEdit>

#include <algorithm>

using namespace Qt::StringLiterals;

bool PeutAbandonner(Boites &boites, QWidget &fenetre) {
  const auto champs = fenetre.findChildren<QLineEdit *>();
  if (!PeutAbandonner(boites, std::ranges::any_of(champs, &QLineEdit::isModified))) return false;
  for (QLineEdit *champ : champs) champ->setModified(false);
  return true;
}

bool PeutAbandonner(Boites &boites, bool saisi) {
  return !saisi || boites.Question(Boites::Titre(), u"Abandonner ce que vous avez saisi ?"_s,
                                   Boites::Reponse::Non) == Boites::Reponse::Oui;
}
