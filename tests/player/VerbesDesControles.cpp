#include "player/Echec.h"
#include "player/Elements.h"
#include "player/Gestes.h"
#include "player/Lecture.h"
#include "player/Verbes.h"
#include "ui/Bulle.h"

#include <QApplication>
#include <QFontMetrics>
#include <QImage>
#include <QLineEdit>
#include <QPixmap>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

Controle Trouver(const Scene &scene, const Mots &mots) {
  return scene.ecran.Trouver(mots[0].texte);
}

/// The words for a state and for its contrary.
using Noms = std::array<const char16_t *, 2>;
constexpr Noms kVisible{u"visible", u"hidden"}, kActif{u"enabled", u"disabled"},
    kGras{u"bold", u"not bold"}, kFocus{u"the focus", u"none"}, kCoche{u"ticked", u"not ticked"},
    kDebut{u"its beginning", u"a later part"}, kChasseFixe{u"one width", u"several"};

void ExigerEtat(const QString &quoi, bool attendu, bool trouve, const Noms &noms) {
  ExigerEgal(quoi, QString::fromUtf16(noms[attendu ? 0 : 1]),
             QString::fromUtf16(noms[trouve ? 0 : 1]));
}

template <bool (*etat)(const Controle &), const Noms &noms, bool attendu>
void VerifierEtat(Scene &scene, const Mots &mots) {
  const Controle controle = Trouver(scene, mots);
  ExigerEtat(controle.nom, attendu, etat(controle), noms);
}

bool EstGras(const Controle &controle) {
  return PoliceDe(controle).bold();
}

bool MontreSonDebut(const Controle &controle) {
  auto *champ = controle.En<QLineEdit>();
  Exiger(champ != nullptr, controle.Sinon(u"a field of one line"_s));
  return champ->cursorPositionAt({0, champ->height() / 2}) == 0;
}

bool ALeFoyer(const Controle &controle) {
  const QWidget *foyer = QApplication::focusWidget();
  return controle.widget != nullptr && foyer != nullptr &&
         (foyer == controle.widget || controle.widget->isAncestorOf(foyer));
}

template <bool attendu>
void VerifierCase(Scene &scene, const Mots &mots) {
  if (mots.size() == 1) return VerifierEtat<EstCoche, kCoche, attendu>(scene, mots);
  const Controle controle = Trouver(scene, mots);
  const QModelIndex element = Element(controle, mots[1]);
  const QString boite = u"%1, box of \"%2\""_s.arg(mots[0].texte, mots[1].texte);
  ExigerEtat(boite, attendu, EstCoche(element), kCoche);
  ExigerEtat(boite, attendu, CocheEstPeinte(controle, element), kCoche);
}

template <QColor (*lire)(const Controle &)>
void VerifierCouleur(Scene &scene, const Mots &mots) {
  ExigerEgal(mots[0].texte, mots[1].texte.toLower(), lire(Trouver(scene, mots)).name());
}

/// Whether this colour is painted anywhere on the control.
template <bool attendu>
void VerifierEncre(Scene &scene, const Mots &mots) {
  const Controle controle = Trouver(scene, mots);
  Exiger(controle.widget != nullptr, controle.Sinon(u"a widget"_s));
  const QImage image = controle.widget->grab().toImage();
  const QRgb encre = QColor(mots[1].texte).rgb();
  bool trouvee = false;
  for (int y = 0; y < image.height() && !trouvee; ++y)
    for (int x = 0; x < image.width() && !trouvee; ++x) trouvee = image.pixel(x, y) == encre;
  Exiger(trouvee == attendu,
         u"%1: %2 %3 expected"_s.arg(controle.nom, attendu ? u"some"_s : u"no"_s, mots[1].texte));
}

bool AChasseFixe(const Controle &controle) {
  const QFontMetrics mesures(PoliceDe(controle));
  return mesures.horizontalAdvance(u'i') == mesures.horizontalAdvance(u'M');
}

void VerifierPolice(Scene &scene, const Mots &mots) {
  const QFont police = PoliceDe(Trouver(scene, mots));
  const double points = mots[2].texte.toDouble();
  if (!mots[1].Joker()) ExigerEgal(mots[0].texte, mots[1].texte, police.family());
  Exiger(std::abs(police.pointSizeF() - points) < 0.05,
         u"%1: %2 points expected, %3 found"_s.arg(mots[0].texte, mots[2].texte)
             .arg(police.pointSizeF()));
}

/// The control wants the room that this text takes in its font.
void VerifierPlace(Scene &scene, const Mots &mots) {
  const Controle controle = Trouver(scene, mots);
  Exiger(controle.widget != nullptr, controle.Sinon(u"a widget"_s));
  const int largeur = QFontMetrics(PoliceDe(controle)).horizontalAdvance(mots[1].texte);
  const int voulue = controle.widget->sizeHint().width();
  Exiger(std::abs(voulue - largeur) <= 2,
         u"%1: %2 pixels wide expected, %3 found"_s.arg(controle.nom).arg(largeur).arg(voulue));
}

void ExigerListe(const QString &quoi, const QStringList &attendus, const QStringList &trouves) {
  Exiger(attendus == trouves, u"%1: \"%2\" expected, \"%3\" found"_s.arg(
                                  quoi, attendus.join(u"\" \""_s), trouves.join(u"\" \""_s)));
}

void VerifierElements(Scene &scene, const Mots &mots) {
  ExigerListe(mots[0].texte, Textes(mots, 1), Textes(Elements(Trouver(scene, mots))));
}

void VerifierHaut(Scene &scene, const Mots &mots) {
  const QAbstractItemView *vue = Vue(Trouver(scene, mots));
  ExigerEgal(mots[0].texte, mots[1].texte, vue->indexAt({0, 0}).data().toString());
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
  const QString elle = u"tip of "_s + mots[0].texte;
  ExigerEgal(elle + u", text"_s, mots[1].texte, aspect.texte);
  ExigerEgal(elle + u", ground"_s, mots[2].texte.toLower(), QColor(aspect.teinte.fond).name());
  ExigerEgal(elle + u", colour"_s, mots[3].texte.toLower(), QColor(aspect.teinte.encre).name());
}

template <bool attendue>
void VerifierBulleMontree(Scene &scene, const Mots &mots) {
  ExigerEtat(u"tip of "_s + mots[0].texte, attendue, BulleDe(scene, mots).EstMontree(), kVisible);
}

void VerifierFenetre(Scene &scene, const Mots &mots) {
  const QWidget *fenetre = scene.ecran.FenetreActive();
  Exiger(fenetre != nullptr, u"window %1 expected, none on the screen"_s.arg(mots[0].texte));
  if (!mots[0].Joker()) ExigerEgal(u"active window"_s, mots[0].texte, fenetre->objectName());
  if (mots.size() > 1 && !mots[1].Joker())
    ExigerEgal(u"title of "_s + fenetre->objectName(), mots[1].texte, fenetre->windowTitle());
}

template <bool attendue>
void VerifierMontree(Scene &, const Mots &mots) {
  const QString &nom = mots[0].texte;
  Exiger(nom.startsWith(u"Frm"_s), u"a window, Frm..., expected, \"%1\" found"_s.arg(nom));
  const QWidget *fenetre = Ecran::Fenetre(nom);
  const bool montree = fenetre != nullptr && fenetre->isVisible() && !fenetre->isMinimized();
  Exiger(montree == attendue, u"%1: %2 expected, %3 found"_s.arg(
                                  nom, attendue ? u"on the screen"_s : u"not on the screen"_s,
                                  fenetre == nullptr       ? u"no such window"_s
                                  : fenetre->isMinimized() ? u"minimised"_s
                                  : montree                ? u"shown"_s
                                                           : u"hidden"_s));
}

}  // namespace

QList<Verbe> VerbesDesControles() {
  using S = Scene;
  using M = Mots;
  constexpr auto kSansLimite = Verbe::kSansLimite;
  return {
      {u"egal"_s, 2, 2,
       [](S &s, const M &m) { ExigerEgal(m[0].texte, m[1].texte, Texte(Trouver(s, m))); }},
      {u"visible"_s, 1, 1, VerifierEtat<EstVisible, kVisible, true>},
      {u"cache"_s, 1, 1, VerifierEtat<EstVisible, kVisible, false>},
      {u"actif"_s, 1, 1, VerifierEtat<EstActif, kActif, true>},
      {u"inactif"_s, 1, 1, VerifierEtat<EstActif, kActif, false>},
      {u"gras"_s, 1, 1, VerifierEtat<EstGras, kGras, true>},
      {u"maigre"_s, 1, 1, VerifierEtat<EstGras, kGras, false>},
      {u"focus"_s, 1, 1, VerifierEtat<ALeFoyer, kFocus, true>},
      {u"coche"_s, 1, 2, VerifierCase<true>},
      {u"decoche"_s, 1, 2, VerifierCase<false>},
      {u"couleur"_s, 2, 2, VerifierCouleur<CouleurTexte>},
      {u"fond"_s, 2, 2, VerifierCouleur<CouleurFond>},
      {u"encre"_s, 2, 2, VerifierEncre<true>},
      {u"sans-encre"_s, 2, 2, VerifierEncre<false>},
      {u"chasse-fixe"_s, 1, 1, VerifierEtat<AChasseFixe, kChasseFixe, true>},
      {u"police"_s, 3, 3, VerifierPolice},
      {u"place"_s, 2, 2, VerifierPlace},
      {u"alignement"_s, 2, 2,
       [](S &s, const M &m) { ExigerEgal(m[0].texte, m[1].texte, AlignementDe(Trouver(s, m))); }},
      {u"debut"_s, 1, 1, VerifierEtat<MontreSonDebut, kDebut, true>},
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
      {u"en-haut"_s, 2, 2, VerifierHaut},
      {u"tag"_s, 3, 3, VerifierTag},
      {u"bulle"_s, 4, 4, VerifierBulle},
      {u"bulle-montree"_s, 1, 1, VerifierBulleMontree<true>},
      {u"bulle-cachee"_s, 1, 1, VerifierBulleMontree<false>},
      {u"fenetre"_s, 1, 2, VerifierFenetre},
      {u"montree"_s, 1, 1, VerifierMontree<true>},
      {u"cachee"_s, 1, 1, VerifierMontree<false>},
  };
}
