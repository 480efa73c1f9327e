#include "player/Verbes.h"

#include <QHash>

namespace {

const QHash<QString, Verbe> &TousLesVerbes() {
  static const QHash<QString, Verbe> kVerbes = [] {
    QHash<QString, Verbe> verbes;
    QList<Verbe> actes = VerbesDesGestes();
    for (Verbe &acte : actes) acte.acte = true;
    for (const auto &groupe : {VerbesDuMonde(), actes, VerbesDesControles(), VerbesDesTraces()})
      for (const Verbe &verbe : groupe) verbes.insert(verbe.nom, verbe);
    return verbes;
  }();
  return kVerbes;
}

}  // namespace

void Executer(Scene &scene, const Commande &commande) {
  Mots mots = commande.mots;
  for (Mot &mot : mots) mot.texte = scene.monde.Completer(mot.texte);
  QString nom = commande.verbe;
  if (!mots.isEmpty() && TousLesVerbes().contains(nom + u' ' + mots[0].texte))
    nom += u' ' + mots.takeFirst().texte;
  Exiger(TousLesVerbes().contains(nom), u"unknown verb \"%1\""_s.arg(nom));
  const Verbe verbe = TousLesVerbes()[nom];
  Exiger(mots.size() >= verbe.minimum && mots.size() <= verbe.maximum,
         u"%1: %2 words behind it, which is too few or too many"_s.arg(nom).arg(mots.size()));
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

Verbe Valeur(const QString &nom, qsizetype mots,
             const std::function<QString(S &, const M &)> &lire) {
  return {nom, mots, mots,
          [nom, lire](S &s, const M &m) { ExigerEgal(nom, m.constLast().texte, lire(s, m)); }};
}
