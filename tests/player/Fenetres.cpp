// What holds for every window.

#include "player/Ecran.h"
#include "ui/Echelle.h"
#include "ui/Theme.h"

#include <cmath>

namespace {

/// The mnemonics that are taken, each with the text it stands in.
using Mnemoniques = QMap<QString, QString>;

void Prendre(Mnemoniques &prises, const QString &texte) {
  const QString touche = QKeySequence::mnemonic(texte).toString();
  if (touche.isEmpty()) return;
  Exiger(!prises.contains(touche),
         u"%1 expected for one control, for \"%2\" and \"%3\" found"_s.arg(
             touche, prises.value(touche), texte));
  prises[touche] = texte;
}

/// Each menu has its own.
void PrendreActions(Mnemoniques &prises, const QList<QAction *> &actions) {
  for (const QAction *action : actions) {
    if (!action->isVisible()) continue;
    Prendre(prises, action->text());
    Mnemoniques duMenu;
    if (action->menu() != nullptr) PrendreActions(duMenu, action->menu()->actions());
  }
}

bool EstSurPapier(const QWidget *widget) {
  for (; widget != nullptr; widget = widget->parentWidget())
    if (widget->property("enMillimetres").toBool()) return true;
  return false;
}

/// Of the form or of the code, not of the inside of a control of the toolkit.
bool Compte(const QWidget &widget, const QWidget &fenetre) {
  return widget.window() == &fenetre && !widget.objectName().isEmpty() &&
         !widget.objectName().startsWith(u"qt_"_s) && !EstSurPapier(&widget) &&
         !widget.inherits("QMenuBar");
}

void ExigerLisible(const QString &quoi, QColor encre, const QColor &fond, double voulu) {
  const auto pose = [&](int lui, int dessous) {
    return (lui * encre.alpha() + dessous * (255 - encre.alpha())) / 255;
  };
  encre = {pose(encre.red(), fond.red()), pose(encre.green(), fond.green()),
           pose(encre.blue(), fond.blue())};
  Exiger(Contraste(encre, fond) >= voulu,
         u"%1, %2 on %3: a contrast of %4 expected, %5 found"_s.arg(quoi, encre.name(), fond.name())
             .arg(voulu)
             .arg(Contraste(encre, fond), 0, 'f', 1));
}

/// The colours were told: of the list's root and of the tips.
bool EstDite(const QWidget &widget, const QModelIndex &element) {
  return widget.objectName() == u"TV"_s && !element.parent().isValid() && element.row() == 0;
}

void VerifierContraste(const QWidget &widget) {
  const QPalette palette = widget.palette();
  const QString nom = widget.objectName();
  const auto verifier = [&](QPalette::ColorRole encre, QPalette::ColorRole fond) {
    ExigerLisible(nom, palette.color(encre), palette.color(fond), widget.isEnabled() ? 4.5 : 3);
  };
  const bool saisie = widget.inherits("QLineEdit") || widget.inherits("QPlainTextEdit") ||
                      widget.inherits("QAbstractItemView") || widget.inherits("QComboBox");
  if (!widget.property("text").toString().isEmpty() || widget.inherits("QGroupBox"))
    verifier(widget.foregroundRole(), widget.backgroundRole());
  if (widget.inherits("QLabel") && widget.property("text").toString().contains(u"<a "_s))
    verifier(QPalette::Link, widget.backgroundRole());
  if (!saisie) return;
  verifier(QPalette::Text, QPalette::Base);
  verifier(QPalette::PlaceholderText, QPalette::Base);
  verifier(QPalette::HighlightedText, QPalette::Highlight);
  const auto *vue = qobject_cast<const QAbstractItemView *>(&widget);
  if (vue == nullptr || vue->model() == nullptr) return;
  for (const QModelIndex &element :
       vue->model()->match(vue->model()->index(0, 0), Qt::ForegroundRole, QVariant(), 100,
                           Qt::MatchRecursive | Qt::MatchWildcard))
    if (const QVariant encre = element.data(Qt::ForegroundRole);
        encre.isValid() && !EstDite(widget, element)) {
      const QVariant fond = element.data(Qt::BackgroundRole);
      ExigerLisible(nom + u'/' + element.data().toString(), encre.value<QBrush>().color(),
                    fond.isValid() ? fond.value<QBrush>().color() : palette.color(QPalette::Base),
                    4.5);
    }
}

/// What is written in a control is seen whole, and the control is within its place.
void VerifierPlace(const QWidget &widget) {
  const QWidget *parent = widget.parentWidget();
  const auto *etiquette = qobject_cast<const QLabel *>(&widget);
  const qsizetype longueur = widget.property("text").toString().size();
  constexpr qsizetype kLegende = 200;  // characters; more is what a user has typed
  QSize voulue;
  if (widget.inherits("QLabel") && (longueur == 0 || longueur > kLegende))
    voulue = {};
  else if (etiquette != nullptr && etiquette->wordWrap())
    voulue.setHeight(etiquette->heightForWidth(widget.width()));
  else if ((etiquette != nullptr && !widget.inherits("EtiquetteElidee")) ||
           widget.inherits("QAbstractButton"))
    voulue = widget.sizeHint();
  else if (widget.inherits("QGroupBox"))
    voulue = widget.minimumSizeHint();
  const QString nom = widget.window()->objectName() + u'/' + widget.objectName();
  Exiger(voulue.width() <= widget.width() && voulue.height() <= widget.height(),
         u"%1: room of %2 x %3 for its text expected, %4 x %5 found"_s.arg(nom)
             .arg(voulue.width())
             .arg(voulue.height())
             .arg(widget.width())
             .arg(widget.height()));
  const auto *defile = qobject_cast<const QAbstractScrollArea *>(parent->parentWidget());
  Exiger((defile != nullptr && defile->viewport() == parent) ||
             parent->rect().contains(widget.geometry()),
         u"%1 expected within %2, it juts out"_s.arg(nom, parent->objectName()));
}

void MesurerObjet(const QString &lui, const QObject &objet, Mesures &mesures) {
  for (const char *nom : {"minimumWidth", "minimumHeight", "maximumWidth", "maximumHeight",
                          "iconSize", "pixmap", "spacing", "font"}) {
    if (objet.inherits("QComboBox") && qstrcmp(nom, "iconSize") == 0) continue;
    const QVariant valeur = objet.property(nom);
    const double taille = valeur.typeId() == QMetaType::QFont   ? valeur.value<QFont>().pointSizeF()
                          : valeur.typeId() == QMetaType::QSize ? valeur.toSize().height()
                          : valeur.typeId() == QMetaType::QPixmap ? valeur.value<QPixmap>().height()
                                                                  : valeur.toDouble();
    if (taille > 0 && taille < QWIDGETSIZE_MAX)
      mesures[lui + u", "_s + QLatin1StringView(nom)] = taille;
  }
}

/// Letters grow in whole pixels where their font is hinted.
bool EstBonne(const QString &quoi, double dessin, double agrandie, double echelle) {
  if (quoi.endsWith(u", font"_s))
    return std::abs(agrandie - PointsAEchelle(dessin, echelle)) <= 1;  // lists have whole points
  const double voulue = dessin * echelle;
  return std::abs(agrandie - voulue) <= 1 + voulue * 0.1;  // where it is a text's
}

}  // namespace

bool PorteUneMarque(const QObject &objet) {
  const auto *etiquette = qobject_cast<const QLabel *>(&objet);
  return objet.inherits("QAction") || objet.inherits("QAbstractButton") ||
         objet.inherits("QGroupBox") || objet.inherits("QMenu") ||
         (etiquette != nullptr && etiquette->buddy() != nullptr);
}

void VerifierAccessibilite(const QWidget &fenetre) {
  Exiger(!fenetre.isModal() || QGuiApplication::overrideCursor() == nullptr,
         u"no hourglass over %1 expected, one found"_s.arg(fenetre.objectName()));
  const QSize ecran = fenetre.screen()->availableSize();
  Exiger(fenetre.size().boundedTo(ecran) == fenetre.size(),
         u"%1 of %2 x %3 expected to fit the screen"_s.arg(fenetre.objectName())
             .arg(fenetre.width())
             .arg(fenetre.height()));
  Mnemoniques mnemoniques;
  for (const auto *barre : fenetre.findChildren<QMenuBar *>())
    if (barre->window() == &fenetre) PrendreActions(mnemoniques, barre->actions());
  for (QWidget *widget : fenetre.findChildren<QWidget *>()) {
    if (widget->window() != &fenetre || !widget->isVisible()) continue;
    if (widget->isEnabled() && PorteUneMarque(*widget))
      Prendre(mnemoniques,
              widget->property(widget->inherits("QGroupBox") ? "title" : "text").toString());
    if (widget->objectName().startsWith(u"qt_"_s) || EstSurPapier(widget)) continue;
    VerifierContraste(*widget);
    if (!widget->objectName().isEmpty()) VerifierPlace(*widget);
    if (!widget->isEnabled()) continue;
    // Parts of a control of the toolkit are none that the user meets.
    if ((widget->focusPolicy() & Qt::TabFocus) == 0 || widget->focusProxy() != nullptr) continue;
    const auto *acces = QAccessible::queryAccessibleInterface(widget);
    Exiger(acces != nullptr && !acces->text(QAccessible::Name).trimmed().isEmpty(),
           u"an accessible name of %1 expected, none found"_s.arg(widget->objectName()));
  }
}

void Mesurer(const QString &nom, const QWidget &fenetre, Mesures &mesures) {
  const QString elle = nom + u": "_s + fenetre.objectName();
  for (const QWidget *widget : fenetre.findChildren<QWidget *>()) {
    if (!Compte(*widget, fenetre)) continue;
    MesurerObjet(elle + u'/' + widget->objectName(), *widget, mesures);
    if (widget->layout() != nullptr)
      MesurerObjet(elle + u'/' + widget->objectName() + u", layout"_s, *widget->layout(), mesures);
  }
}

QStringList MalAEchelle(const Mesures &dessin, const Mesures &agrandie, double echelle) {
  QStringList fautes;
  for (const auto &[quoi, taille] : dessin.asKeyValueRange())
    if (const double trouvee = agrandie.value(quoi, -1); !EstBonne(quoi, taille, trouvee, echelle))
      fautes.append(u"%1: %2 expected, %3 found"_s.arg(quoi).arg(taille * echelle).arg(trouvee));
  return fautes;
}
