#include "player/Gestes.h"

#include "player/Echec.h"
#include "player/Elements.h"
#include "ui/FeuilleEcran.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDateEdit>
#include <QHash>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionViewItem>
#include <QWindow>
#include <QtTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QWidget *Widget(const Controle &controle) {
  Exiger(controle.widget != nullptr, controle.Sinon(u"a widget"_s));
  return controle.widget;
}

/// Where a click finds the control: the middle of what is to be seen of it.
QPoint PlaceDuClic(const QWidget *widget) {
  const bool caseACocher = qobject_cast<const QCheckBox *>(widget) != nullptr;
  if (caseACocher || qobject_cast<const QRadioButton *>(widget) != nullptr) {
    QStyleOptionButton option;
    option.initFrom(widget);
    return widget->style()
        ->subElementRect(
            caseACocher ? QStyle::SE_CheckBoxIndicator : QStyle::SE_RadioButtonIndicator, &option,
            widget)
        .center();
  }
  const QRect visible = widget->visibleRegion().boundingRect();
  return (visible.isEmpty() ? widget->rect() : visible).center();
}

void CliquerEn(QWidget *widget, const QPoint &place, Clic clic) {
  const QPointer<QWidget> reste(widget);
  switch (clic) {
    case Clic::Double:
      QTest::mouseClick(widget, Qt::LeftButton, {}, place);
      if (reste) QTest::mouseDClick(widget, Qt::LeftButton, {}, place);
      if (reste) QTest::mouseRelease(widget, Qt::LeftButton, {}, place);
      break;
    case Clic::Simple:
      QTest::mouseClick(widget, Qt::LeftButton, {}, place);
      break;
    case Clic::Droit: {
      QTest::mousePress(widget, Qt::RightButton, {}, place);
      if (reste) {
        QContextMenuEvent menu(QContextMenuEvent::Mouse, place, widget->mapToGlobal(place));
        QApplication::sendEvent(widget, &menu);
      }
      if (reste) QTest::mouseRelease(widget, Qt::RightButton, {}, place);
      break;
    }
  }
}

/// Brings an item into view and tells where it stands.
QRect PlaceElement(const Controle &controle, const QModelIndex &element) {
  QAbstractItemView *vue = Vue(controle);
  vue->scrollTo(element);
  const QRect place = vue->visualRect(element).intersected(vue->viewport()->rect());
  Exiger(!place.isEmpty(),
         u"%1: the item \"%2\" expected in sight, it cannot be brought there"_s.arg(
             controle.nom, element.data().toString()));
  return place;
}

QPoint PlaceCase(const Controle &controle, const QModelIndex &element) {
  const QAbstractItemView *vue = Vue(controle);
  QStyleOptionViewItem option;
  option.initFrom(vue);
  option.widget = vue;
  option.rect = PlaceElement(controle, element);
  option.text = element.data().toString();
  option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
  return vue->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, vue).center();
}

struct Frappe {
  Qt::Key touche;
  QString texte;
  Qt::KeyboardModifiers avec;
};

Frappe FrappeDe(QChar signe) {
  if (signe == u'\n' || signe == u'\r') return {Qt::Key_Return, u"\r"_s, {}};
  if (signe == u'\t') return {Qt::Key_Tab, u"\t"_s, {}};
  return {static_cast<Qt::Key>(signe.toUpper().unicode()), signe,
          signe.isUpper() ? Qt::ShiftModifier : Qt::NoModifier};
}

Frappe FrappeNommee(QString nom) {
  static const QHash<QString, Qt::Key> kTouches{
      {u"Suppr"_s, Qt::Key_Delete},     {u"Entree"_s, Qt::Key_Return},
      {u"Echap"_s, Qt::Key_Escape},     {u"Tab"_s, Qt::Key_Tab},
      {u"Espace"_s, Qt::Key_Space},     {u"Haut"_s, Qt::Key_Up},
      {u"Bas"_s, Qt::Key_Down},         {u"Gauche"_s, Qt::Key_Left},
      {u"Droite"_s, Qt::Key_Right},     {u"Debut"_s, Qt::Key_Home},
      {u"Fin"_s, Qt::Key_End},          {u"Inser"_s, Qt::Key_Insert},
      {u"Retour"_s, Qt::Key_Backspace}, {u"PgPrec"_s, Qt::Key_PageUp},
      {u"PgSuiv"_s, Qt::Key_PageDown},  {u"Alt"_s, Qt::Key_Alt}};
  static const QList<std::pair<QString, Qt::KeyboardModifier>> kAvec{
      {u"Ctrl+"_s, Qt::ControlModifier},
      {u"Maj+"_s, Qt::ShiftModifier},
      {u"Alt+"_s, Qt::AltModifier}};
  const QString entier = nom;
  Qt::KeyboardModifiers avec;
  for (const auto &[prefixe, modificateur] : kAvec)
    if (nom.size() > prefixe.size() && nom.startsWith(prefixe)) {
      avec |= modificateur;
      nom.remove(0, prefixe.size());
    }
  if (const auto touche = kTouches.constFind(nom); touche != kTouches.cend()) {
    const QString texte = *touche == Qt::Key_Return   ? u"\r"_s
                          : *touche == Qt::Key_Space  ? u" "_s
                          : *touche == Qt::Key_Delete ? u"\x7f"_s
                                                      : u""_s;
    return {*touche, texte, avec};
  }
  bool nombre = false;
  const int fonction = QStringView(nom).mid(1).toInt(&nombre);
  if (nom.startsWith(u'F') && nombre && fonction >= 1 && fonction <= 12)
    return {static_cast<Qt::Key>(Qt::Key_F1 + fonction - 1), {}, avec};
  Exiger(nom.size() == 1, u"a key expected, \"%1\" found"_s.arg(entier));
  Frappe frappe = FrappeDe(nom[0]);
  frappe.avec |= avec;
  if (avec.testFlag(Qt::ControlModifier)) frappe.texte.clear();
  return frappe;
}

void Frapper(QWidget *widget, const Frappe &frappe) {
  QTest::sendKeyEvent(QTest::Click, widget, frappe.touche, frappe.texte, frappe.avec);
}

/// The part of a control that takes what is typed.
QWidget *ZoneDeSaisie(const Controle &controle) {
  QWidget *widget = Widget(controle);
  if (const auto *combo = qobject_cast<QComboBox *>(widget)) widget = combo->lineEdit();
  const bool saisie = widget != nullptr && widget->metaObject()->indexOfSlot("selectAll()") >= 0 &&
                      qobject_cast<QAbstractItemView *>(widget) == nullptr;
  Exiger(saisie && !widget->property("readOnly").toBool(),
         controle.Sinon(u"what takes typed text"_s));
  return widget;
}

/// A place where the mouse takes hold of the control itself, not of another one that lies over it.
QPoint PlaceDePrise(const Controle &controle, const QWidget *widget) {
  const auto libre = [&](const QPoint &place) {
    return controle.fenetre->childAt(widget->mapTo(controle.fenetre, place)) == widget;
  };
  const QPoint milieu = PlaceDuClic(widget);
  if (libre(milieu)) return milieu;
  constexpr int kPas = 3;  // pixels
  for (int y = kPas; y < widget->height(); y += kPas)
    for (int x = kPas; x < widget->width(); x += kPas)
      if (libre({x, y})) return {x, y};
  throw Echec{
      u"%1 expected in reach of the mouse, it lies behind another control"_s.arg(controle.nom)};
}

void EnvoyerSouris(QWidget *widget, QEvent::Type type, const QPoint &ecran) {
  const auto bouton = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
  const Qt::MouseButtons tenus = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent evenement(type, widget->mapFromGlobal(ecran), ecran, bouton, tenus, Qt::NoModifier);
  QApplication::sendEvent(widget, &evenement);
}

/// The mouse leaves the window that it is in for another one.
void EntrerDans(const QWidget *fenetre, const QPoint &place) {
  if (fenetre->underMouse()) return;
  for (const QWidget *autre : QApplication::topLevelWidgets())
    if (autre->underMouse() && autre->windowHandle() != nullptr) {
      QEvent sortie(QEvent::Leave);
      QApplication::sendEvent(autre->windowHandle(), &sortie);
    }
  QEnterEvent entree(place, place, fenetre->mapToGlobal(place));
  QApplication::sendEvent(fenetre->windowHandle(), &entree);
}

void Declencher(QAction *action) {
  for (QObject *lieu : action->associatedObjects())
    if (auto *menu = qobject_cast<QMenu *>(lieu); menu != nullptr && menu->isVisible()) {
      menu->setActiveAction(action);
      Frapper(menu, FrappeNommee(u"Entree"_s));
      return;
    }
  action->trigger();
}

void ChoisirJour(QDateEdit *date, const QDate &jour) {
  date->setFocus(Qt::TabFocusReason);
  Frapper(date, FrappeNommee(u"Espace"_s));
  QCalendarWidget *calendrier = date->calendarWidget();
  Exiger(calendrier->isVisible(), u"an open calendar expected, none found"_s);
  calendrier->setSelectedDate(jour);
  Frapper(calendrier->findChild<QAbstractItemView *>(), FrappeNommee(u"Entree"_s));
}

}  // namespace

void Cliquer(const Controle &controle, Clic clic) {
  if (controle.action != nullptr)
    Declencher(controle.action);
  else if (const auto *vue = controle.En<QAbstractItemView>())
    CliquerEn(vue->viewport(), PlaceDuClic(vue->viewport()), clic);
  else
    CliquerEn(controle.widget, PlaceDuClic(controle.widget), clic);
}

void CliquerElement(const Controle &controle, const QModelIndex &element, Clic clic) {
  CliquerEn(Vue(controle)->viewport(), PlaceElement(controle, element).center(), clic);
}

void Cocher(const Controle &controle, bool etat) {
  const auto *bouton = controle.En<QAbstractButton>();
  const bool cochable =
      controle.action != nullptr ? controle.action->isCheckable() : bouton && bouton->isCheckable();
  Exiger(cochable, controle.Sinon(u"what can be ticked"_s));
  const auto coche = [&] {
    return controle.action != nullptr ? controle.action->isChecked() : bouton->isChecked();
  };
  if (coche() != etat) Cliquer(controle, Clic::Simple);
}

void CocherElement(const Controle &controle, const QModelIndex &element, bool etat) {
  if (EstCoche(element) != etat)
    CliquerEn(Vue(controle)->viewport(), PlaceCase(controle, element), Clic::Simple);
}

bool CocheEstPeinte(const Controle &controle, const QModelIndex &element) {
  constexpr int kMarge = 3;  // around the middle of the box, within its border
  const QPoint milieu = PlaceCase(controle, element);
  const QRect dedans(milieu - QPoint(kMarge, kMarge), milieu + QPoint(kMarge, kMarge));
  const QImage image = Vue(controle)->viewport()->grab(dedans).toImage();
  int sombre = 255, clair = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const int gris = qGray(image.pixel(x, y));
      sombre = std::min(sombre, gris);
      clair = std::max(clair, gris);
    }
  return clair - sombre > 100;
}

void Choisir(const Controle &controle, const Mot &mot) {
  if (auto *date = controle.En<QDateEdit>()) {
    ChoisirJour(date, QDate::fromString(mot.texte, u"dd/MM/yyyy"_s));
    return;
  }
  const QModelIndex element = Element(controle, mot);
  if (auto *combo = controle.En<QComboBox>()) {
    // By the open list, so that the program hears of a choice of what was chosen already.
    Derouler(controle);
    combo->view()->setCurrentIndex(element);
    Frapper(combo->view(), FrappeNommee(u"Entree"_s));
    return;
  }
  const QAbstractItemView *vue = Vue(controle);
  const bool plusieurs = vue->selectionMode() == QAbstractItemView::MultiSelection ||
                         vue->selectionMode() == QAbstractItemView::ExtendedSelection;
  if (!plusieurs)
    CliquerElement(controle, element, Clic::Simple);
  else if (!vue->selectionModel()->isSelected(element))
    QTest::mouseClick(vue->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      PlaceElement(controle, element).center());
}

void Retirer(const Controle &controle, const Mot &mot) {
  const QModelIndex element = Element(controle, mot);
  const QAbstractItemView *vue = Vue(controle);
  Exiger(vue->selectionModel()->isSelected(element),
         u"%1: \"%2\" expected selected, \"%3\" found"_s.arg(
             controle.nom, mot.texte, Textes(Selection(controle)).join(u"\" \""_s)));
  QTest::mouseClick(vue->viewport(), Qt::LeftButton, Qt::ControlModifier,
                    PlaceElement(controle, element).center());
}

void Derouler(const Controle &controle) {
  auto *combo = controle.En<QComboBox>();
  Exiger(combo != nullptr, controle.Sinon(u"a combo"_s));
  if (combo->view()->isVisible()) return;
  combo->setFocus(Qt::MouseFocusReason);
  combo->showPopup();
}

void Taper(const Controle &controle, const QString &texte, bool remplacer) {
  const QPointer<QWidget> zone(ZoneDeSaisie(controle));
  zone->setFocus(Qt::TabFocusReason);
  if (remplacer) {
    QMetaObject::invokeMethod(zone, "selectAll");
    if (texte.isEmpty()) Frapper(zone, FrappeNommee(u"Suppr"_s));
  } else {
    // A field of one line knows no end of the document.
    const bool uneLigne = qobject_cast<QLineEdit *>(zone) != nullptr;
    Frapper(zone, FrappeNommee(uneLigne ? u"Fin"_s : u"Ctrl+Fin"_s));
  }
  for (const QChar signe : texte) {
    Exiger(
        zone && zone->isVisible() && zone->isEnabled(),
        u"%1 expected to take \"%2\", it has gone before \"%3\""_s.arg(controle.nom, texte, signe));
    // The field of a combo leaves the focus, and so the keys, to the combo.
    Frapper(zone->focusProxy() != nullptr ? zone->focusProxy() : zone.data(), FrappeDe(signe));
  }
}

void Toucher(const Controle &controle, const QString &touche) {
  const Frappe frappe = FrappeNommee(touche);
  QWidget *widget = Widget(controle);
  if (widget == controle.fenetre) {
    QWidget *surgissante = QApplication::activePopupWidget();
    QWidget *foyer = surgissante ? surgissante : widget;
    widget = foyer->focusWidget() ? foyer->focusWidget() : foyer;
  } else if (!widget->hasFocus() && widget->focusPolicy() != Qt::NoFocus) {
    widget->setFocus(Qt::TabFocusReason);
  }
  if (auto *combo = qobject_cast<QComboBox *>(widget); combo && combo->view()->isVisible())
    widget = combo->view();
  Frapper(widget, frappe);
}

void Glisser(const Controle &controle, double dx, double dy) {
  constexpr int kEtapes = 4;
  QWidget *widget = Widget(controle);
  const QPoint prise = widget->mapToGlobal(PlaceDePrise(controle, widget));
  const double parMillimetre = PixelsParMillimetre(*widget);
  const QPoint chemin(qRound(dx * parMillimetre), qRound(dy * parMillimetre));
  const QPointer<QWidget> reste(widget);
  EnvoyerSouris(widget, QEvent::MouseButtonPress, prise);
  for (int etape = 1; reste && etape <= kEtapes; ++etape)
    EnvoyerSouris(widget, QEvent::MouseMove, prise + chemin * etape / kEtapes);
  if (reste) EnvoyerSouris(widget, QEvent::MouseButtonRelease, prise + chemin);
}

void Quitter(const Controle &controle) {
  QWidget *foyer = QApplication::focusWidget();
  Exiger(foyer != nullptr && (foyer == controle.widget || Widget(controle)->isAncestorOf(foyer)),
         u"focus on %1 expected, on \"%2\" found"_s.arg(
             controle.nom, foyer != nullptr ? foyer->objectName() : u"nothing"_s));
  foyer->clearFocus();
}

void Deposer(const Controle &controle, const QList<QUrl> &adresses) {
  QWidget *widget = Widget(controle);
  Exiger(widget->acceptDrops(), controle.Sinon(u"what takes drops"_s));
  QMimeData donnees;
  donnees.setUrls(adresses);
  const QPoint place = widget->rect().center();
  QDragEnterEvent entree(place, Qt::CopyAction, &donnees, Qt::LeftButton, {});
  QApplication::sendEvent(widget, &entree);
  Exiger(entree.isAccepted(), u"a drop taken by %1 expected, it is refused"_s.arg(controle.nom));
  QDropEvent depot(place, Qt::CopyAction, &donnees, Qt::LeftButton, {});
  QApplication::sendEvent(widget, &depot);
}

void Survoler(const Controle &controle) {
  QWidget *widget = Widget(controle);
  if (const auto *vue = controle.En<QAbstractItemView>()) widget = vue->viewport();
  // To its own window: by the place on the screen another one that lies there would be found too.
  QWidget *fenetre = widget->window();
  const QPoint place = widget->mapTo(fenetre, PlaceDuClic(widget));
  EntrerDans(fenetre, place);
  QTest::mouseMove(fenetre->windowHandle(), place);
}
