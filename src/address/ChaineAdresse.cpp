#include "address/ChaineAdresse.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QString Bloc(QStringList elements) {
  elements.removeAll(QString());
  return elements.isEmpty() ? u" "_s : elements.join(u'*');
}

}  // namespace

AdresseComposee ComposerAdresse(const AdresseSaisie &a) {
  return {Bloc({a.lignes.begin(), a.lignes.end()}) + u'$' + Bloc({a.codePostal, a.ville}) + u'$' +
              Bloc({a.pays}),
          a.optionCP};
}

QString SansSeparateurs(QString texte) {
  return texte.removeIf([](QChar c) { return c == u'*' || c == u'$'; });
}

bool AdresseVide(const QString &chaine) {
  return chaine == u" $ $ "_s || chaine.trimmed().isEmpty();
}
