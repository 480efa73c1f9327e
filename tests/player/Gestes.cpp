// The verbs of what a person does with the mouse and the keyboard.

#include "maintenance/ConversationReparation.h"
#include "player/Verbes.h"
#include "ui/Echelle.h"
#include "ui/EchelleProgramme.h"
#include "ui/FeuilleEcran.h"

#include <QtTest>

using C = Controle;

namespace {

enum class Clic { Simple, Double, Droit };

/// Where a click finds the control: its box, or the middle of what is to be seen of it.
QPoint PlaceDuClic(const QWidget *widget) {
  constexpr int kCase = 8;  // pixels to the middle of a box
  const QRect visible = widget->visibleRegion().boundingRect();
  const QPoint milieu = (visible.isEmpty() ? widget->rect() : visible).center();
  const bool aCase = widget->inherits("QCheckBox") || widget->inherits("QRadioButton");
  return aCase ? QPoint(kCase, milieu.y()) : milieu;
}

void CliquerEn(QWidget *widget, const QPoint &place, Clic clic = Clic::Simple,
               Qt::KeyboardModifiers avec = {}) {
  const QPointer<QWidget> reste(widget);
  if (clic != Clic::Droit) QTest::mouseClick(widget, Qt::LeftButton, avec, place);
  if (clic == Clic::Double && reste) QTest::mouseDClick(widget, Qt::LeftButton, avec, place);
  if (clic == Clic::Double && reste) QTest::mouseRelease(widget, Qt::LeftButton, avec, place);
  if (clic != Clic::Droit) return;
  QTest::mousePress(widget, Qt::RightButton, avec, place);
  if (reste) {
    QContextMenuEvent menu(QContextMenuEvent::Mouse, place, widget->mapToGlobal(place));
    QApplication::sendEvent(widget, &menu);
  }
  if (reste) QTest::mouseRelease(widget, Qt::RightButton, avec, place);
}

/// A sign, as it is typed.
void Frapper(QWidget *widget, QChar signe) {
  if (signe == u'\n' || signe == u'\r') return QTest::keyClick(widget, Qt::Key_Return);
  if (signe == u'\t') return QTest::keyClick(widget, Qt::Key_Tab);
  QTest::sendKeyEvent(QTest::Click, widget, static_cast<Qt::Key>(signe.toUpper().unicode()),
                      QString(signe), signe.isUpper() ? Qt::ShiftModifier : Qt::NoModifier);
}

/// A key by its name, or by its sign.
void FrapperTouche(QWidget *widget, const QString &nom) {
  static const QList<std::pair<QString, QString>> kNoms{
      {u"Suppr"_s, u"Del"_s},    {u"Entree"_s, u"Return"_s}, {u"Echap"_s, u"Esc"_s},
      {u"Espace"_s, u"Space"_s}, {u"Haut"_s, u"Up"_s},       {u"Bas"_s, u"Down"_s},
      {u"Gauche"_s, u"Left"_s},  {u"Droite"_s, u"Right"_s},  {u"Debut"_s, u"Home"_s},
      {u"Fin"_s, u"End"_s},      {u"Inser"_s, u"Ins"_s},     {u"Retour"_s, u"Backspace"_s},
      {u"PgPrec"_s, u"PgUp"_s},  {u"PgSuiv"_s, u"PgDown"_s}, {u"Maj"_s, u"Shift"_s}};
  if (nom.size() == 1) return Frapper(widget, nom[0]);
  QString portable = nom;
  for (const auto &[ici, ailleurs] : kNoms) portable.replace(ici, ailleurs);
  const QKeySequence suite = QKeySequence::fromString(portable, QKeySequence::PortableText);
  Exiger(suite.count() == 1 && suite[0].key() != Qt::Key_unknown,
         u"a key expected, \"%1\" found"_s.arg(nom));
  QTest::keyClick(widget, suite[0].key(), suite[0].keyboardModifiers());
}

/// The part of a control that takes what is typed.
QWidget *ZoneDeSaisie(const Controle &controle) {
  QWidget *widget = controle.Widget();
  if (const auto *combo = controle.En<QComboBox>()) widget = combo->lineEdit();
  Exiger(widget != nullptr && widget->metaObject()->indexOfSlot("selectAll()") >= 0 &&
             !widget->inherits("QAbstractItemView") && !widget->property("readOnly").toBool(),
         u"%1: what takes typed text expected"_s.arg(controle.nom));
  return widget;
}

void EnvoyerSouris(QWidget *widget, QEvent::Type type, const QPoint &ecran) {
  const auto bouton = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
  const Qt::MouseButtons tenus = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent evenement(type, widget->mapFromGlobal(ecran), ecran, bouton, tenus, Qt::NoModifier);
  QApplication::sendEvent(widget, &evenement);
}

void Declencher(QAction *action) {
  for (QObject *lieu : action->associatedObjects())
    if (auto *menu = qobject_cast<QMenu *>(lieu); menu != nullptr && menu->isVisible()) {
      menu->setActiveAction(action);
      Frapper(menu, u'\r');
      return;
    }
  action->trigger();
}

void ChoisirJour(QDateEdit *date, const QDate &jour) {
  date->setFocus(Qt::TabFocusReason);
  Frapper(date, u' ');
  QCalendarWidget *calendrier = date->calendarWidget();
  Exiger(calendrier->isVisible(), u"an open calendar expected, none found"_s);
  calendrier->setSelectedDate(jour);
  Frapper(calendrier->findChild<QAbstractItemView *>(), u'\r');
}

void Cliquer(const Controle &controle, Clic clic = Clic::Simple) {
  if (auto *action = controle.En<QAction>()) return Declencher(action);
  QWidget *widget = controle.Widget();
  if (const auto *zone = controle.En<QAbstractScrollArea>()) widget = zone->viewport();
  CliquerEn(widget, PlaceDuClic(widget), clic);
}

void CliquerElement(const Controle &controle, const QModelIndex &element, Clic clic,
                    Qt::KeyboardModifiers avec = {}) {
  CliquerEn(controle.Vue()->viewport(), controle.Place(element).center(), clic, avec);
}

/// Of a control, or of an item.
void MettreCase(const Controle &controle, const Mots &mots, bool etat) {
  if (mots.size() == 1) {
    if (controle.EstCoche() != etat) Cliquer(controle);
    return LaisserPasser();
  }
  const QPersistentModelIndex element = controle.Element(mots[1]);
  if (EstCoche(element) != etat)
    CliquerEn(controle.Vue()->viewport(), controle.PlaceDeCase(element));
  LaisserPasser();
  Exiger(!element.isValid() || EstCoche(element) == etat,
         u"%1, box of \"%2\": a click changes nothing"_s.arg(controle.nom, mots[1].texte));
}

void Derouler(const Controle &controle, const Mots &) {
  auto *combo = controle.Comme<QComboBox>(u"a combo");
  if (combo->view()->isVisible()) return;
  combo->setFocus(Qt::MouseFocusReason);
  combo->showPopup();
}

/// Selects an item as a user's choice does. In a list of several selections it adds the item, and
/// takes it out where `choisi` is false.
void Choisir(const Controle &controle, const Mots &mots, bool choisi) {
  const Mot &mot = mots[1];
  if (auto *date = controle.En<QDateEdit>())
    return ChoisirJour(date, QDate::fromString(mot.texte, u"dd/MM/yyyy"_s));
  const QModelIndex element = controle.Element(mot);
  QAbstractItemView *vue = controle.Vue();
  if (controle.En<QComboBox>() != nullptr) {
    // By the open list, so that the program hears of a choice of what was chosen already.
    Derouler(controle, mots);
    vue->setCurrentIndex(element);
    return Frapper(vue, u'\r');
  }
  const bool plusieurs = vue->selectionMode() == QAbstractItemView::MultiSelection ||
                         vue->selectionMode() == QAbstractItemView::ExtendedSelection;
  const bool avant = vue->selectionModel()->isSelected(element);
  Exiger(choisi || avant, u"%1: \"%2\" expected selected, %3 found"_s.arg(
                              controle.nom, mot.texte, EnListe(Textes(controle.Selection()))));
  if (!plusieurs || avant != choisi)
    CliquerElement(controle, element, Clic::Simple,
                   plusieurs ? Qt::ControlModifier : Qt::NoModifier);
}

/// Key by key, in the place of the old text or behind it.
void Taper(const Controle &controle, const QString &texte, bool remplacer) {
  const QPointer<QWidget> zone(ZoneDeSaisie(controle));
  zone->setFocus(Qt::TabFocusReason);
  if (remplacer) {
    QMetaObject::invokeMethod(zone, "selectAll");
    if (texte.isEmpty()) FrapperTouche(zone, u"Suppr"_s);
  } else {
    // A field of one line knows no end of the document.
    const bool uneLigne = qobject_cast<QLineEdit *>(zone) != nullptr;
    FrapperTouche(zone, uneLigne ? u"Fin"_s : u"Ctrl+Fin"_s);
  }
  for (const QChar signe : texte) {
    Exiger(zone && zone->isVisible() && zone->isEnabled(),
           u"%1 expected to take \"%2\", it has gone"_s.arg(controle.nom, texte));
    // The field of a combo leaves the focus, and so the keys, to the combo.
    Frapper(zone->focusProxy() != nullptr ? zone->focusProxy() : zone.data(), signe);
  }
}

/// On a window the key goes to what has the focus.
void Toucher(const Controle &controle, const Mots &mots) {
  QWidget *widget = controle.Widget();
  if (widget == controle.fenetre) {
    QWidget *surgissante = QApplication::activePopupWidget();
    QWidget *foyer = surgissante ? surgissante : widget;
    widget = foyer->focusWidget() ? foyer->focusWidget() : foyer;
  } else if (!widget->hasFocus() && widget->focusPolicy() != Qt::NoFocus) {
    widget->setFocus(Qt::TabFocusReason);
  }
  if (auto *combo = qobject_cast<QComboBox *>(widget); combo && combo->view()->isVisible())
    widget = combo->view();
  FrapperTouche(widget, mots[1].texte);
}

/// By millimetres of the picture that it lies on, in whole pixels.
void Glisser(const Controle &controle, const Mots &mots) {
  constexpr int kEtapes = 4;
  QWidget *widget = controle.Widget();
  const QPoint prise = widget->mapToGlobal(PlaceDuClic(widget));
  const double parMillimetre = PixelsParMillimetre(*widget);
  const QPoint chemin(qRound(Nombre(mots[1]) * parMillimetre),
                      qRound(Nombre(mots[2]) * parMillimetre));
  const QPointer<QWidget> reste(widget);
  EnvoyerSouris(widget, QEvent::MouseButtonPress, prise);
  for (int etape = 1; reste && etape <= kEtapes; ++etape)
    EnvoyerSouris(widget, QEvent::MouseMove, prise + chemin * etape / kEtapes);
  if (reste) EnvoyerSouris(widget, QEvent::MouseButtonRelease, prise + chemin);
}

/// Files of the world by their names, addresses as they stand.
void Deposer(Scene &scene, const Mots &mots) {
  QList<QUrl> adresses;
  for (const QString &nom : Textes(mots, 1))
    adresses.append(nom.contains(u"://"_s) ? QUrl(nom)
                                           : QUrl::fromLocalFile(scene.monde.Chemin(nom)));
  QWidget *widget = scene.ecran.Atteindre(mots[0].texte).Widget();
  QMimeData donnees;
  donnees.setUrls(adresses);
  const QPoint place = widget->rect().center();
  QDragEnterEvent entree(place, Qt::CopyAction, &donnees, Qt::LeftButton, {});
  QApplication::sendEvent(widget, &entree);
  Exiger(widget->acceptDrops() && entree.isAccepted(),
         u"a drop taken by %1 expected, it is refused"_s.arg(mots[0].texte));
  QDropEvent depot(place, Qt::CopyAction, &donnees, Qt::LeftButton, {});
  QApplication::sendEvent(widget, &depot);
}

void Quitter(const Controle &controle, const Mots &) {
  Exiger(controle.ALeFoyer(), u"focus on %1 expected, it is elsewhere"_s.arg(controle.nom));
  QApplication::focusWidget()->clearFocus();
}

void Survoler(const Controle &controle, const Mots &) {
  QWidget *widget = controle.Widget();
  if (const auto *vue = controle.En<QAbstractItemView>()) widget = vue->viewport();
  // To its own window: by the place on the screen another one that lies there would be found too.
  QWidget *fenetre = widget->window();
  const QPoint place = widget->mapTo(fenetre, PlaceDuClic(widget));
  QTest::mouseMove(fenetre->windowHandle(), place);
}

/// An act on the control that the first word names.
Verbe Acte(const QString &nom, qsizetype nombre,
           const std::function<void(const Controle &, const Mots &)> &faire) {
  return {nom, nombre, nombre,
          [faire](S &s, const M &m) { faire(s.ecran.Atteindre(m[0].texte), m); }};
}

Verbe ClicSurCase(const QString &nom, bool etat) {
  return {nom, 1, 2,
          [etat](S &s, const M &m) { MettreCase(s.ecran.Atteindre(m[0].texte), m, etat); }};
}

Verbe ClicSurControle(const QString &nom, Clic clic) {
  return Acte(nom, 1, [clic](const C &c, const M &) { Cliquer(c, clic); });
}

Verbe ClicSurNoeud(const QString &nom, Clic clic) {
  return Acte(nom, 2, [clic](const C &c, const M &m) { CliquerElement(c, c.Element(m[1]), clic); });
}

}  // namespace

QList<Verbe> VerbesDesGestes() {
  return {
      ClicSurControle(u"clic"_s, Clic::Simple),
      ClicSurControle(u"double"_s, Clic::Double),
      ClicSurControle(u"droit"_s, Clic::Droit),
      ClicSurNoeud(u"noeud"_s, Clic::Simple),
      ClicSurNoeud(u"double-noeud"_s, Clic::Double),
      ClicSurNoeud(u"droit-noeud"_s, Clic::Droit),
      ClicSurCase(u"cocher"_s, true),
      ClicSurCase(u"decocher"_s, false),
      Acte(u"choisir"_s, 2, [](const C &c, const M &m) { Choisir(c, m, true); }),
      Acte(u"retirer"_s, 2, [](const C &c, const M &m) { Choisir(c, m, false); }),
      Acte(u"derouler"_s, 1, Derouler),
      Acte(u"taper"_s, 2, [](const C &c, const M &m) { Taper(c, m[1].texte, true); }),
      Acte(u"ajouter"_s, 2, [](const C &c, const M &m) { Taper(c, m[1].texte, false); }),
      Acte(u"touche"_s, 2, Toucher),
      Acte(u"glisser"_s, 3, Glisser),
      Acte(u"quitter"_s, 1, Quitter),
      Acte(u"survoler"_s, 1, Survoler),
      {u"deposer"_s, 2, kSansLimite, Deposer},
      Acte(u"poser"_s, 5,
           [](const C &c, const M &m) {
             c.Widget()->setGeometry(qRound(Nombre(m[1])), qRound(Nombre(m[2])),
                                     qRound(Nombre(m[3])), qRound(Nombre(m[4])));
           }),
      {u"fermer-fenetre"_s, 0, 0, [](S &s, const M &) { s.ecran.Active()->close(); }},
      {u"demarrer"_s, 0, 0, [](S &s, const M &) { s.Demarrer(); }},
      {u"fermer"_s, 0, 0, [](S &s, const M &) { s.Fermer(); }},
      {u"reparer"_s, 0, 0,
       [](S &s, const M &) {
         Exiger(!s.EnMarche(), u"a program that is closed expected, it is running"_s);
         const EchelleProgramme echelle(s.options.taille != 0 ? s.options.taille : kTailleDessin);
         ReparerEnFenetre(s.boites, s.coquille, s.monde.Base(), s.horloge.Maintenant(), {});
       }},
      {u"vigilo"_s, 0, 1, [](S &s, const M &m) { s.LancerVigilo(Textes(m, 0)); }},
      {u"memora"_s, 0, 1, [](S &s, const M &m) { s.LancerMemora(Textes(m, 0)); }},
      {u"velmira"_s, 2, 3, [](S &s, const M &m) { s.DemanderFiche(Textes(m, 0)); }},
      {u"fin-de-session"_s, 0, 0,
       [](S &, const M &) {
         QEvent fin(QEvent::Quit);
         QApplication::sendEvent(qApp, &fin);
       }},
      {u"relancer"_s, 0, 0,
       [](S &s, const M &) {
         s.Fermer();
         s.VerifierToutVu();
         s.Demarrer();
       }},
  };
}
