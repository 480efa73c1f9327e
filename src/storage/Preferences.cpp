#include "storage/Preferences.h"

#include "platform/Fichiers.h"
#include "platform/Sections.h"
#include "storage/ReglagesNonLus.h"

using namespace Qt::StringLiterals;

Preferences::Preferences(const QString &appPath, const QString &nom)
    : chemin_(appPath + u'/' + nom) {
  try {
    octets_ = LireFichier(chemin_).value_or(QByteArray());
  } catch (const ErreurFichier &) {
    nonLues_ = true;
  }
}

QString Preferences::Texte(const QString &section, const QString &cle) const {
  constexpr qsizetype kPlusLong = 4096;
  return Sections(octets_).LireCle(section, cle, kPlusLong);
}

int Preferences::Nombre(const QString &section, const QString &cle, int sinon) const {
  bool nombre = false;
  const int valeur = Texte(section, cle).toInt(&nombre);
  return nombre ? valeur : sinon;
}

void Preferences::Ecrire(const QString &section, const Valeurs &valeurs) {
  ExigerLu(!nonLues_, chemin_);
  Sections sections(LireFichier(chemin_).value_or(QByteArray()));
  for (const auto &[cle, valeur] : valeurs) sections.EcrireCle(section, cle, valeur);
  RemplacerFichier(chemin_, sections.Octets());
  octets_ = sections.Octets();
}
