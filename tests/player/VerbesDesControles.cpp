#include "player/Echec.h"
#include "player/Elements.h"
#include "player/Lecture.h"
#include "player/Verbes.h"
#include "ui/Bulle.h"

#include <QApplication>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

Controle Trouver(const Scene &scene, const Mots &mots) {
  return scene.ecran.Trouver(mots[0].texte);
}

template <bool (*etat)(const Controle &), bool attendu>
void VerifierEtat(Scene &scene, const Mots &mots) {
  const Controle controle = Trouver(scene, mots);
  Exiger(etat(controle) == attendu, u"%1 is not in the state expected"_s.arg(controle.nom));
}

bool EstGras(const Controle &controle) {
  return PoliceDe(controle).bold();
}

bool ALeFoyer(const Controle &controle) {
  const QWidget *foyer = QApplication::focusWidget();
  return controle.widget != nullptr && foyer != nullptr &&
         (foyer == controle.widget || controle.widget->isAncestorOf(foyer));
}

template <bool attendu>
void VerifierCase(Scene &scene, const Mots &mots) {
  if (mots.size() == 1) return VerifierEtat<EstCoche, attendu>(scene, mots);
  const QModelIndex element = Element(Trouver(scene, mots), mots[1]);
  Exiger(EstCoche(element) == attendu,
         u"%1: the box of \"%2\" is not in the state expected"_s.arg(mots[0].texte, mots[1].texte));
}

template <QColor (*lire)(const Controle &)>
void VerifierCouleur(Scene &scene, const Mots &mots) {
  ExigerEgal(mots[0].texte, mots[1].texte.toLower(), lire(Trouver(scene, mots)).name());
}

void VerifierPolice(Scene &scene, const Mots &mots) {
  const QFont police = PoliceDe(Trouver(scene, mots));
  const double points = mots[2].texte.toDouble();
  if (!mots[1].Joker()) ExigerEgal(mots[0].texte, mots[1].texte, police.family());
  Exiger(std::abs(police.pointSizeF() - points) < 0.05,
         u"%1: %2 points expected, %3 found"_s.arg(mots[0].texte, mots[2].texte)
             .arg(police.pointSizeF()));
}

void ExigerListe(const QString &quoi, const QStringList &attendus, const QStringList &trouves) {
  Exiger(attendus == trouves, u"%1: \"%2\" expected, \"%3\" found"_s.arg(
                                  quoi, attendus.join(u"\" \""_s), trouves.join(u"\" \""_s)));
}

void VerifierElements(Scene &scene, const Mots &mots) {
  ExigerListe(mots[0].texte, Textes(mots, 1), Textes(Elements(Trouver(scene, mots))));
}

void VerifierIndex(Scene &scene, const Mots &mots) {
  const Controle controle = Trouver(scene, mots);
  const QModelIndexList choisis = Selection(controle);
  const qsizetype index = choisis.isEmpty() ? -1 : Elements(controle).indexOf(choisis.constFirst());
  ExigerEgal(mots[0].texte, QString::number(Nombre(mots[1])), QString::number(index));
}

void VerifierSelection(Scene &scene, const Mots &mots) {
  const QStringList attendus = mots[1].Est(u"rien") ? QStringList() : Textes(mots, 1);
  ExigerListe(mots[0].texte, attendus, Textes(Selection(Trouver(scene, mots))));
}

void VerifierTag(Scene &scene, const Mots &mots) {
  const QModelIndex noeud = Element(Trouver(scene, mots), mots[1]);
  ExigerEgal(mots[1].texte, mots[2].texte, noeud.data(Qt::UserRole).toString());
}

const Bulle &BulleDe(const Scene &scene, const Mots &mots) {
  const Controle controle = Trouver(scene, mots);
  const auto *bulle = controle.widget == nullptr ? nullptr
                                                 : controle.widget->findChild<const Bulle *>(
                                                       QString(), Qt::FindDirectChildrenOnly);
  Exiger(bulle != nullptr, u"%1 has no tip"_s.arg(controle.nom));
  return *bulle;
}

void VerifierBulle(Scene &scene, const Mots &mots) {
  const AspectBulle &aspect = BulleDe(scene, mots).Aspect();
  ExigerEgal(u"text"_s, mots[1].texte, aspect.texte);
  ExigerEgal(u"ground"_s, mots[2].texte.toLower(), QColor(aspect.teinte.fond).name());
  ExigerEgal(u"colour"_s, mots[3].texte.toLower(), QColor(aspect.teinte.encre).name());
}

template <bool montree>
void VerifierBulleMontree(Scene &scene, const Mots &mots) {
  Exiger(BulleDe(scene, mots).EstMontree() == montree,
         u"the tip of %1 is not in the state expected"_s.arg(mots[0].texte));
}

void VerifierFenetre(Scene &scene, const Mots &mots) {
  const QWidget *fenetre = scene.ecran.FenetreActive();
  Exiger(fenetre != nullptr, u"there is no window on the screen"_s);
  if (!mots[0].Joker()) ExigerEgal(u"active window"_s, mots[0].texte, fenetre->objectName());
  if (mots.size() > 1 && !mots[1].Joker())
    ExigerEgal(u"title"_s, mots[1].texte, fenetre->windowTitle());
}

template <bool attendue>
void VerifierMontree(Scene &, const Mots &mots) {
  const QString &nom = mots[0].texte;
  Exiger(nom.startsWith(u"Frm"_s), u"%1 is no name of a window"_s.arg(nom));
  const QWidget *fenetre = Ecran::Fenetre(nom);
  const bool montree = fenetre != nullptr && fenetre->isVisible() && !fenetre->isMinimized();
  Exiger(montree == attendue,
         attendue ? u"%1 is not on the screen"_s.arg(nom) : u"%1 is on the screen"_s.arg(nom));
}

}  // namespace

QList<Verbe> VerbesDesControles() {
  using S = Scene;
  using M = Mots;
  constexpr auto kSansLimite = Verbe::kSansLimite;
  return {
      {u"egal"_s, 2, 2,
       [](S &s, const M &m) { ExigerEgal(m[0].texte, m[1].texte, Texte(Trouver(s, m))); }},
      {u"visible"_s, 1, 1, VerifierEtat<EstVisible, true>},
      {u"cache"_s, 1, 1, VerifierEtat<EstVisible, false>},
      {u"actif"_s, 1, 1, VerifierEtat<EstActif, true>},
      {u"inactif"_s, 1, 1, VerifierEtat<EstActif, false>},
      {u"gras"_s, 1, 1, VerifierEtat<EstGras, true>},
      {u"maigre"_s, 1, 1, VerifierEtat<EstGras, false>},
      {u"focus"_s, 1, 1, VerifierEtat<ALeFoyer, true>},
      {u"coche"_s, 1, 2, VerifierCase<true>},
      {u"decoche"_s, 1, 2, VerifierCase<false>},
      {u"couleur"_s, 2, 2, VerifierCouleur<CouleurTexte>},
      {u"fond"_s, 2, 2, VerifierCouleur<CouleurFond>},
      {u"police"_s, 3, 3, VerifierPolice},
      {u"alignement"_s, 2, 2,
       [](S &s, const M &m) { ExigerEgal(m[0].texte, m[1].texte, AlignementDe(Trouver(s, m))); }},
      {u"items"_s, 1, kSansLimite, VerifierElements},
      {u"noeuds"_s, 1, kSansLimite, VerifierElements},
      {u"items-contient"_s, 2, 2, [](S &s, const M &m) { Element(Trouver(s, m), m[1]); }},
      {u"items-nombre"_s, 2, 2,
       [](S &s, const M &m) {
         ExigerEgal(m[0].texte, QString::number(Nombre(m[1])),
                    QString::number(Elements(Trouver(s, m)).size()));
       }},
      {u"index"_s, 2, 2, VerifierIndex},
      {u"selection"_s, 2, kSansLimite, VerifierSelection},
      {u"tag"_s, 3, 3, VerifierTag},
      {u"bulle"_s, 4, 4, VerifierBulle},
      {u"bulle-montree"_s, 1, 1, VerifierBulleMontree<true>},
      {u"bulle-cachee"_s, 1, 1, VerifierBulleMontree<false>},
      {u"fenetre"_s, 1, 2, VerifierFenetre},
      {u"montree"_s, 1, 1, VerifierMontree<true>},
      {u"cachee"_s, 1, 1, VerifierMontree<false>},
  };
}
