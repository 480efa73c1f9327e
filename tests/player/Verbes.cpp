#include "player/Verbes.h"

#include <QHash>

namespace {

const Verbe &TrouverVerbe(const QString &nom) {
  static const QHash<QString, Verbe> kVerbes = [] {
    QHash<QString, Verbe> verbes;
    QList<Verbe> actes = VerbesDesGestes();
    for (Verbe &acte : actes) acte.acte = true;
    for (const auto &groupe :
         {VerbesDuMonde(), VerbesDesRangees(), actes, VerbesDesControles(), VerbesDesTraces()})
      for (const Verbe &verbe : groupe) verbes.insert(verbe.nom, verbe);
    return verbes;
  }();
  const auto verbe = kVerbes.constFind(nom);
  Exiger(verbe != kVerbes.cend(), u"unknown verb \"%1\""_s.arg(nom));
  return *verbe;
}

}  // namespace

void Executer(Scene &scene, const Commande &commande) {
  Mots mots = commande.mots;
  for (Mot &mot : mots) mot.texte = scene.monde.Completer(mot.texte);
  QString nom = commande.verbe;
  bool nombre = false;
  if (!mots.isEmpty()) mots.first().texte.toInt(&nombre);
  const bool deuxMots = nom == u"monde"_s || nom == u"apercu"_s || nom == u"classeur"_s ||
                        (nom == u"page"_s && !nombre);
  if (deuxMots && !mots.isEmpty()) nom += u' ' + mots.takeFirst().texte;

  const Verbe &verbe = TrouverVerbe(nom);
  Exiger(mots.size() >= verbe.minimum && mots.size() <= verbe.maximum,
         u"%1, words behind it: %2 to %3 expected, %4 found"_s.arg(nom)
             .arg(verbe.minimum)
             .arg(verbe.maximum)
             .arg(mots.size()));
  if (verbe.acte) {
    scene.VerifierToutVu();
    scene.journal.boites.clear();
  }
  verbe.faire(scene, mots);
}

double Nombre(const Mot &mot) {
  bool nombre = false;
  const double valeur = mot.texte.toDouble(&nombre);
  Exiger(nombre, u"a number expected, \"%1\" found"_s.arg(mot.texte));
  return valeur;
}

QStringList Textes(const Mots &mots, qsizetype premier) {
  QStringList textes;
  for (const Mot &mot : mots.sliced(premier)) textes.append(mot.texte);
  return textes;
}

Verbe Valeur(const QString &nom, qsizetype mots, std::function<QString(S &, const M &)> lire) {
  return {nom, mots, mots,
          [nom, lire](S &s, const M &m) { ExigerEgal(nom, m.constLast().texte, lire(s, m)); }};
}
