#include "player/Verbes.h"

#include "player/Echec.h"

using namespace Qt::StringLiterals;

namespace {

const Verbe &Trouver(const QString &nom) {
  static const QList<Verbe> kVerbes = VerbesDuMonde() + VerbesDesGestes() + VerbesDesControles() +
                                      VerbesDesTraces() + VerbesDuClasseur();
  for (const Verbe &verbe : kVerbes)
    if (verbe.nom == nom) return verbe;
  throw Echec{u"unknown verb \"%1\""_s.arg(nom)};
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

  const Verbe &verbe = Trouver(nom);
  Exiger(mots.size() >= verbe.minimum && mots.size() <= verbe.maximum,
         u"%1, words behind it: %2 expected, %3 found"_s
             .arg(nom, verbe.maximum == Verbe::kSansLimite ? u"%1 or more"_s.arg(verbe.minimum)
                       : verbe.maximum == verbe.minimum
                           ? QString::number(verbe.minimum)
                           : u"%1 to %2"_s.arg(verbe.minimum).arg(verbe.maximum))
             .arg(mots.size()));
  verbe.faire(scene, mots);
}

int Nombre(const Mot &mot) {
  bool nombre = false;
  const int valeur = mot.texte.toInt(&nombre);
  Exiger(nombre, u"a number expected, \"%1\" found"_s.arg(mot.texte));
  return valeur;
}

double NombreDecimal(const Mot &mot) {
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
