#include "envelope/ChaineAdresse.h"

#include "storage/Lignes.h"

using namespace Qt::StringLiterals;

namespace {

QString Bloc(QStringList elements) {
  elements.removeAll(QString());
  return elements.isEmpty() ? u" "_s : elements.join(u'*');
}

}  // namespace

QString ChaineAdresse(const QStringList &tete, const QString &codePostal, const QString &ville,
                      const QString &pays) {
  return Bloc(tete) + u'$' + Bloc({codePostal, ville}) + u'$' + Bloc({pays});
}

QString ChaineAdresse(const Correspondant &c) {
  return ChaineAdresse({c.Ligne1, c.Ligne2, c.Ligne3, c.Ligne4, c.Ligne5}, c.CodePostal, c.Ville,
                       c.Pays);
}

bool AdresseVide(const QString &chaine) {
  return chaine == u" $ $ "_s || chaine.trimmed().isEmpty();
}
