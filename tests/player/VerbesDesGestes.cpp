#include "player/Echec.h"
#include "player/Elements.h"
#include "player/Gestes.h"
#include "player/Mesures.h"
#include "player/Verbes.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>

using namespace Qt::StringLiterals;

namespace {

Controle Atteindre(const Scene &scene, const Mots &mots) {
  return scene.ecran.Atteindre(mots[0].texte);
}

template <Clic clic>
void CliquerControle(Scene &scene, const Mots &mots) {
  Cliquer(Atteindre(scene, mots), clic);
}

template <Clic clic>
void CliquerNoeud(Scene &scene, const Mots &mots) {
  const Controle arbre = Atteindre(scene, mots);
  CliquerElement(arbre, Element(arbre, mots[1]), clic);
}

template <bool etat>
void MettreCase(Scene &scene, const Mots &mots) {
  const Controle controle = Atteindre(scene, mots);
  if (mots.size() == 1) {
    Cocher(controle, etat);
    LaisserPasser();
    return;
  }
  const QPersistentModelIndex element = Element(controle, mots[1]);
  CocherElement(controle, element, etat);
  LaisserPasser();
  Exiger(!element.isValid() || EstCoche(element) == etat,
         u"%1, box of \"%2\": %3 expected after a click, the contrary found"_s.arg(
             controle.nom, mots[1].texte, etat ? u"ticked"_s : u"not ticked"_s));
}

template <bool remplacer>
void TaperTexte(Scene &scene, const Mots &mots) {
  Taper(Atteindre(scene, mots), mots[1].texte, remplacer);
}

/// Files of the world by their names, addresses as they stand.
void DeposerFichiers(Scene &scene, const Mots &mots) {
  QList<QUrl> adresses;
  for (const QString &nom : Textes(mots, 1))
    adresses.append(nom.contains(u"://"_s) ? QUrl(nom)
                                           : QUrl::fromLocalFile(scene.monde.Chemin(nom)));
  Deposer(Atteindre(scene, mots), adresses);
}

QWidget *FenetreActive(const Scene &scene) {
  QWidget *fenetre = scene.ecran.FenetreActive();
  Exiger(fenetre != nullptr, u"a window on the screen expected, none found"_s);
  return fenetre;
}

void Capturer(Scene &scene, const Mots &mots) {
  QWidget *fenetre = FenetreActive(scene);
  for (const QWidget *autre : QApplication::topLevelWidgets())
    if (autre->objectName().startsWith(u"Frm"_s)) Mesurer(mots[0].texte, *autre, scene.mesures);
  if (scene.captures.isEmpty()) return;
  const QString chemin = QDir(scene.captures).filePath(mots[0].texte + u".png"_s);
  Exiger(QDir().mkpath(scene.captures) && fenetre->grab().save(chemin),
         u"\"%1\" cannot be written"_s.arg(chemin));
}

}  // namespace

QList<Verbe> VerbesDesGestes() {
  using S = Scene;
  using M = Mots;
  constexpr auto kSansLimite = Verbe::kSansLimite;
  return {
      {u"clic"_s, 1, 1, CliquerControle<Clic::Simple>},
      {u"double"_s, 1, 1, CliquerControle<Clic::Double>},
      {u"droit"_s, 1, 1, CliquerControle<Clic::Droit>},
      {u"noeud"_s, 2, 2, CliquerNoeud<Clic::Simple>},
      {u"double-noeud"_s, 2, 2, CliquerNoeud<Clic::Double>},
      {u"droit-noeud"_s, 2, 2, CliquerNoeud<Clic::Droit>},
      {u"cocher"_s, 1, 2, MettreCase<true>},
      {u"decocher"_s, 1, 2, MettreCase<false>},
      {u"choisir"_s, 2, 2, [](S &s, const M &m) { Choisir(Atteindre(s, m), m[1]); }},
      {u"retirer"_s, 2, 2, [](S &s, const M &m) { Retirer(Atteindre(s, m), m[1]); }},
      {u"derouler"_s, 1, 1, [](S &s, const M &m) { Derouler(Atteindre(s, m)); }},
      {u"taper"_s, 2, 2, TaperTexte<true>},
      {u"ajouter"_s, 2, 2, TaperTexte<false>},
      {u"touche"_s, 2, 2, [](S &s, const M &m) { Toucher(Atteindre(s, m), m[1].texte); }},
      {u"glisser"_s, 3, 3,
       [](S &s, const M &m) {
         Glisser(Atteindre(s, m), NombreDecimal(m[1]), NombreDecimal(m[2]));
       }},
      {u"deposer"_s, 2, kSansLimite, DeposerFichiers},
      {u"quitter"_s, 1, 1, [](S &s, const M &m) { Quitter(Atteindre(s, m)); }},
      {u"survoler"_s, 1, 1, [](S &s, const M &m) { Survoler(Atteindre(s, m)); }},
      {u"fermer-fenetre"_s, 0, 0, [](S &s, const M &) { FenetreActive(s)->close(); }},
      {u"capture"_s, 1, 1, Capturer},
  };
}
