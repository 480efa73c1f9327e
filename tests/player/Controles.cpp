// The verbs that look at windows and controls.

#include "player/Verbes.h"
#include "ui/Bulle.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

using C = Controle;

namespace {

Controle Trouver(const Scene &scene, const Mots &mots) {
  return scene.ecran.Trouver(mots[0].texte);
}

QFont PoliceDe(const Controle &controle) {
  return controle.objet->property("font").value<QFont>();
}

QString SansMarque(QString texte) {
  return texte.replace(QRegularExpression(u"&(.?)"_s), u"\\1"_s);
}

bool EstRiche(const QLabel &etiquette) {
  return etiquette.textFormat() == Qt::RichText ||
         (etiquette.textFormat() == Qt::AutoText && Qt::mightBeRichText(etiquette.text()));
}

/// Caption, content or current item, without the marks of keys.
QString TexteDe(const Controle &controle) {
  if (controle.objet == controle.fenetre) return controle.fenetre->windowTitle();
  if (const auto *mois = controle.En<QCalendarWidget>())
    return mois->selectedDate().toString(u"dd/MM/yyyy"_s);
  if (const auto *etiquette = controle.En<QLabel>(); etiquette && EstRiche(*etiquette))
    return QTextDocumentFragment::fromHtml(etiquette->text()).toPlainText();
  for (const char *nom : {"plainText", "currentText", "text", "title"})
    if (const QVariant texte = controle.objet->property(nom); texte.isValid())
      return PorteUneMarque(*controle.objet) ? SansMarque(texte.toString()) : texte.toString();
  throw Echec{u"%1: what has a text expected"_s.arg(controle.nom)};
}

/// How many pixels of each colour are painted.
QHash<QRgb, int> Couleurs(QWidget *widget, const QRect &ou) {
  const QImage image = widget->grab(ou).toImage();
  QHash<QRgb, int> nombres;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) ++nombres[image.pixel(x, y)];
  return nombres;
}

struct Teintes {
  QString encre, fond;
};

/// Those of a style sheet change with the state of the widget and are seen there alone: the colour
/// that most of it shows, and the one that differs most from it.
Teintes TeintesDe(const Controle &controle) {
  QWidget *widget = controle.Widget();
  if (!widget->testAttribute(Qt::WA_StyleSheet))
    return {widget->palette().color(widget->foregroundRole()).name(),
            widget->palette().color(widget->backgroundRole()).name()};
  constexpr int kCadre = 6;  // pixels
  const auto nombres = Couleurs(widget, widget->rect().adjusted(kCadre, kCadre, -kCadre, -kCadre));
  if (nombres.isEmpty()) return {};
  const QColor fond = std::max_element(nombres.cbegin(), nombres.cend()).key();
  const auto ecart = [&](const QColor &c) {
    return std::abs(c.red() - fond.red()) + std::abs(c.green() - fond.green()) +
           std::abs(c.blue() - fond.blue());
  };
  const QList<QRgb> couleurs = nombres.keys();
  return {QColor(*std::ranges::max_element(couleurs, {}, ecart)).name(), fond.name()};
}

/// Whether a mark is seen in the box of an item.
bool CocheEstPeinte(const Controle &controle, const QModelIndex &element) {
  QRect dedans(0, 0, 7, 7);  // pixels within the border of the box
  dedans.moveCenter(controle.PlaceDeCase(element));
  const QList<QRgb> couleurs = Couleurs(controle.Vue()->viewport(), dedans).keys();
  const auto [sombre, clair] =
      std::ranges::minmax(couleurs, {}, [](QRgb couleur) { return qGray(couleur); });
  return qGray(clair) - qGray(sombre) > 100;
}

bool EstVisible(const Controle &controle) {
  if (const auto *menu = controle.En<QMenu>()) return menu->menuAction()->isVisible();
  const auto *widget = controle.En<QWidget>();
  return widget == nullptr || widget == controle.fenetre
             ? controle.objet->property("visible").toBool()
             : widget->isVisibleTo(controle.fenetre);
}

QString AlignementDe(const Controle &controle) {
  const QVariant alignement = controle.objet->property("alignment");
  Exiger(alignement.isValid(), u"%1: what has an alignment expected"_s.arg(controle.nom));
  const auto valeur = alignement.value<Qt::Alignment>();
  if (valeur.testFlag(Qt::AlignRight)) return u"droite"_s;
  return valeur.testFlag(Qt::AlignHCenter) ? u"centre"_s : u"gauche"_s;
}

const Bulle &BulleDe(const Controle &controle) {
  const auto *bulle =
      controle.Widget()->findChild<const Bulle *>(QString(), Qt::FindDirectChildrenOnly);
  Exiger(bulle != nullptr, u"%1 has no tip"_s.arg(controle.nom));
  return *bulle;
}

/// A state of one or several controls.
Verbe Etat(const QString &nom, const std::function<bool(const Controle &)> &lire,
           bool attendu = true) {
  return {nom, 1, kSansLimite, [nom, lire, attendu](S &s, const M &m) {
            for (const Mot &mot : m)
              Exiger(lire(s.ecran.Trouver(mot.texte)) == attendu,
                     u"%1: %2 expected, the contrary found"_s.arg(mot.texte, nom));
          }};
}

/// What is read of controls as a text.
Verbe Lecture(const QString &nom, const std::function<QString(const Controle &)> &lire) {
  return {nom, 2, kSansLimite, [lire](S &s, const M &m) {
            for (qsizetype i = 0; i + 1 < m.size(); i += 2)
              ExigerEgal(m[i].texte, m[i + 1].texte, lire(s.ecran.Trouver(m[i].texte)));
          }};
}

Verbe Case(const QString &nom, bool attendu) {
  return {nom, 1, 2, [nom, attendu](S &s, const M &m) {
            const Controle controle = Trouver(s, m);
            const QModelIndex element = m.size() == 2 ? controle.Element(m[1]) : QModelIndex();
            Exiger(!element.isValid() || CocheEstPeinte(controle, element) == attendu,
                   u"%1: what is painted in the box is not %2"_s.arg(EnListe(Textes(m, 0)), nom));
            Exiger((element.isValid() ? EstCoche(element) : controle.EstCoche()) == attendu,
                   u"%1: %2 expected, the contrary found"_s.arg(EnListe(Textes(m, 0)), nom));
          }};
}

/// Whether this colour is painted anywhere on the control.
Verbe Encre(const QString &nom, bool attendue) {
  return {nom, 2, 2, [nom, attendue](S &s, const M &m) {
            QWidget *widget = Trouver(s, m).Widget();
            const bool trouvee =
                Couleurs(widget, widget->rect()).contains(QColor(m[1].texte).rgb());
            Exiger(trouvee == attendue, u"%1: %2 %3 expected"_s.arg(m[0].texte, nom, m[1].texte));
          }};
}

Verbe Elements(const QString &nom) {
  return {nom, 1, kSansLimite, [](S &s, const M &m) {
            ExigerListe(m[0].texte, Textes(m, 1), Textes(Trouver(s, m).Elements()));
          }};
}

Verbe Montree(const QString &nom, bool attendue) {
  return {nom, 1, 1, [nom, attendue](S &, const M &m) {
            const QWidget *fenetre = Ecran::Fenetre(m[0].texte);
            const bool montree = fenetre && fenetre->isVisible() && !fenetre->isMinimized();
            Exiger(montree == attendue && m[0].texte.startsWith(u"Frm"_s),
                   u"%1: %2 expected"_s.arg(m[0].texte, nom));
          }};
}

void VerifierPolice(Scene &scene, const Mots &mots) {
  const QFont police = PoliceDe(Trouver(scene, mots));
  if (!mots[1].Joker()) ExigerEgal(mots[0].texte, mots[1].texte, police.family());
  Exiger(std::abs(police.pointSizeF() - Nombre(mots[2])) < 0.05,
         u"%1: %2 points expected, %3 found"_s.arg(mots[0].texte, mots[2].texte)
             .arg(police.pointSizeF()));
}

void VerifierBulle(Scene &scene, const Mots &mots) {
  const AspectBulle &aspect = BulleDe(Trouver(scene, mots)).Aspect();
  ExigerListe(
      u"tip of "_s + mots[0].texte,
      {mots[1].texte, mots[2].texte.toLower(), mots[3].texte.toLower()},
      {aspect.texte, QColor(aspect.teinte.fond).name(), QColor(aspect.teinte.encre).name()});
}

void VerifierFenetre(Scene &scene, const Mots &mots) {
  const QWidget *fenetre = scene.ecran.Active();
  if (!mots[0].Joker()) ExigerEgal(u"active window"_s, mots[0].texte, fenetre->objectName());
  if (mots.size() > 1 && !mots[1].Joker())
    ExigerEgal(u"title of "_s + fenetre->objectName(), mots[1].texte, fenetre->windowTitle());
}

void Capturer(Scene &scene, const Mots &mots) {
  QWidget *fenetre = scene.ecran.Active();
  for (const QWidget *autre : QApplication::topLevelWidgets())
    if (autre->objectName().startsWith(u"Frm"_s)) Mesurer(mots[0].texte, *autre, scene.mesures);
  if (scene.options.captures.isEmpty()) return;
  const QString chemin = QDir(scene.options.captures).filePath(mots[0].texte + u".png"_s);
  Exiger(QDir().mkpath(scene.options.captures) && fenetre->grab().save(chemin),
         u"\"%1\" cannot be written"_s.arg(chemin));
}

}  // namespace

QList<Verbe> VerbesDesControles() {
  return {
      Lecture(u"egal"_s, TexteDe),
      Lecture(u"couleur"_s, [](const C &c) { return TeintesDe(c).encre; }),
      Lecture(u"fond"_s, [](const C &c) { return TeintesDe(c).fond; }),
      Lecture(u"alignement"_s, AlignementDe),
      Lecture(u"place"_s,
              [](const C &c) {
                const QRect place = c.Widget()->geometry();
                return u"%1 %2 %3 %4"_s.arg(place.left())
                    .arg(place.top())
                    .arg(place.width())
                    .arg(place.height());
              }),
      Lecture(
          u"index"_s,
          [](const C &c) { return QString::number(c.Elements().indexOf(c.Selection().value(0))); }),
      Lecture(u"items-nombre"_s, [](const C &c) { return QString::number(c.Elements().size()); }),
      Etat(u"visible"_s, EstVisible),
      Etat(u"cache"_s, EstVisible, false),
      Etat(u"actif"_s, &C::EstActif),
      Etat(u"inactif"_s, &C::EstActif, false),
      Etat(u"gras"_s, [](const C &c) { return PoliceDe(c).bold(); }),
      Etat(u"maigre"_s, [](const C &c) { return !PoliceDe(c).bold(); }),
      Etat(u"focus"_s, &C::ALeFoyer),
      Etat(u"bulle-montree"_s, [](const C &c) { return BulleDe(c).EstMontree(); }),
      Etat(u"bulle-cachee"_s, [](const C &c) { return !BulleDe(c).EstMontree(); }),
      Case(u"coche"_s, true),
      Case(u"decoche"_s, false),
      Encre(u"encre"_s, true),
      Encre(u"sans-encre"_s, false),
      Elements(u"items"_s),
      Elements(u"noeuds"_s),
      Montree(u"montree"_s, true),
      Montree(u"cachee"_s, false),
      {u"police"_s, 3, 3, VerifierPolice},
      {u"bulle"_s, 4, 4, VerifierBulle},
      {u"fenetre"_s, 1, 2, VerifierFenetre},
      {u"capture"_s, 1, 1, Capturer},
      {u"items-contient"_s, 2, 2, [](S &s, const M &m) { Trouver(s, m).Element(m[1]); }},
      {u"selection"_s, 2, kSansLimite,
       [](S &s, const M &m) {
         ExigerListe(m[0].texte, m[1].Est(u"rien") ? QStringList() : Textes(m, 1),
                     Textes(Trouver(s, m).Selection()));
       }},
      {u"tag"_s, 3, 3,
       [](S &s, const M &m) {
         ExigerEgal(m[1].texte, m[2].texte,
                    Trouver(s, m).Element(m[1]).data(Qt::UserRole).toString());
       }},
      {u"dit"_s, 3, 3,
       [](S &s, const M &m) {
         ExigerEgal(m[1].texte, m[2].texte,
                    Trouver(s, m).Element(m[1]).data(Qt::AccessibleTextRole).toString());
       }},
  };
}
