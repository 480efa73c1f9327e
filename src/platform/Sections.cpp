#include "platform/Sections.h"

#include "platform/PageDeCode.h"

using namespace Qt::StringLiterals;

Sections::Sections(const QByteArray &octets) {
  const QString texte = DepuisPageDeCode(octets);
  retour_ = texte.contains(u'\n') && !texte.contains(u"\r\n"_s) ? u""_s : u"\r"_s;
  if (texte.isEmpty()) return;
  lignes_ = texte.split(u'\n');
  if (lignes_.last().isEmpty())
    lignes_.removeLast();
  else
    lignes_.last() += retour_;  // a last line without its end gets one
}

Sections::Place Sections::Chercher(const QString &section, const QString &cle) const {
  Place place;
  const QString titre = u'[' + section + u']';
  bool dedans = false;
  for (qsizetype i = 0; i < lignes_.size(); ++i) {
    const QString ligne = lignes_[i].trimmed();
    if (ligne.startsWith(u'[')) {
      if (dedans) break;
      dedans = ligne.compare(titre, Qt::CaseInsensitive) == 0;
      if (dedans) place.fin = i + 1;
      continue;
    }
    if (!dedans || ligne.isEmpty()) continue;
    place.fin = i + 1;
    const auto egal = ligne.indexOf(u'=');
    if (egal > 0 && ligne.left(egal).trimmed().compare(cle, Qt::CaseInsensitive) == 0) {
      place.ligne = i;
      break;
    }
  }
  return place;
}

QString Sections::LireCle(const QString &section, const QString &cle, qsizetype taille) const {
  const Place place = Chercher(section, cle);
  if (place.ligne < 0) return u""_s;
  const QString &ligne = lignes_[place.ligne];
  QString valeur = ligne.mid(ligne.indexOf(u'=') + 1).trimmed();
  if (valeur.size() >= 2 && (valeur.front() == u'"' || valeur.front() == u'\'') &&
      valeur.back() == valeur.front())
    valeur = valeur.mid(1, valeur.size() - 2);
  return valeur.left(taille - 1);
}

void Sections::EcrireCle(const QString &section, const QString &cle, const QString &valeur) {
  const Place place = Chercher(section, cle);
  if (place.ligne >= 0) {
    QString &ligne = lignes_[place.ligne];
    const QString fin = ligne.endsWith(u'\r') ? u"\r"_s : u""_s;
    ligne = ligne.left(ligne.indexOf(u'=') + 1) + valeur + fin;
    return;
  }
  const QString nouvelle = cle + u'=' + valeur + retour_;
  if (place.fin >= 0) {
    lignes_.insert(place.fin, nouvelle);
    return;
  }
  lignes_ << u'[' + section + u']' + retour_ << nouvelle;
}

QByteArray Sections::Octets() const {
  QString texte;
  for (const QString &ligne : lignes_) texte += ligne + u'\n';
  return VersPageDeCode(texte);
}
