#include "player/Ecran.h"

#include <QAbstractItemModelTester>

namespace {

/// An object of this window, in one of its pop-ups too, but not of a dialog that belongs to it.
bool Appartient(const QObject *objet, const QWidget *fenetre) {
  for (; objet != nullptr; objet = objet->parent()) {
    if (objet == fenetre) return true;
    const auto *widget = qobject_cast<const QWidget *>(objet);
    if (widget != nullptr && widget->isWindow() && widget->windowType() != Qt::Popup) return false;
  }
  return false;
}

/// Whether the mouse finds the item: in the menu bar, or in a menu that stands open.
bool EstAtteignable(const QAction *action) {
  if (!action->isVisible() || !action->isEnabled()) return false;
  return std::ranges::any_of(action->associatedObjects(), [](const QObject *lieu) {
    if (const auto *menu = qobject_cast<const QMenu *>(lieu))
      return menu->isVisible() || EstAtteignable(menu->menuAction());
    return (lieu->inherits("QMenuBar") || lieu->inherits("QToolBar") ||
            lieu->inherits("QAbstractButton")) &&
           static_cast<const QWidget *>(lieu)->isVisible();
  });
}

/// What an object belongs to: a menu to the open one that it has come out of.
const QObject *Dessus(const QObject *objet) {
  if (const auto *menu = qobject_cast<const QMenu *>(objet))
    for (const QObject *lieu : menu->menuAction()->associatedObjects())
      if (const auto *autre = qobject_cast<const QMenu *>(lieu); autre && autre->isVisible())
        return autre;
  return objet->parent();
}

/// A menu that stands open takes the user's next act; another control closes it first.
void FermerSurgissante(const Controle &controle) {
  QWidget *surgissante = QApplication::activePopupWidget();
  if (surgissante == nullptr) return;
  if (const auto *action = controle.En<QAction>()) {
    for (const QObject *lieu : action->associatedObjects())
      if (const auto *menu = qobject_cast<const QMenu *>(lieu); menu && menu->isVisible()) return;
  }
  for (const QObject *o = surgissante; o != nullptr; o = Dessus(o))
    if (o == controle.objet) return;
  surgissante->close();
  throw Reessayer{};
}

/// The program's own models are held to what views demand of a model, from here on.
void EprouverModeles(const QWidget &fenetre) {
  for (const QAbstractItemView *vue : fenetre.findChildren<QAbstractItemView *>()) {
    QAbstractItemModel *modele = vue->model();
    if (modele != nullptr && modele->metaObject()->className()[0] != 'Q' &&
        modele->findChild<QAbstractItemModelTester *>() == nullptr)
      new QAbstractItemModelTester(modele, QAbstractItemModelTester::FailureReportingMode::Fatal,
                                   modele);
  }
}

QString NomsMontres() {
  QStringList noms;
  for (const QWidget *fenetre : QApplication::topLevelWidgets())
    if (fenetre->isVisible() && fenetre->objectName().startsWith(u"Frm"_s))
      noms.append(fenetre->objectName());
  return noms.isEmpty() ? u"none"_s : noms.join(u", "_s);
}

}  // namespace

QAbstractItemView *Controle::Vue() const {
  if (const auto *combo = En<QComboBox>()) return combo->view();
  return Comme<QAbstractItemView>(u"a list, a tree or a combo");
}

bool Controle::EstCoche() const {
  Exiger(objet->property("checkable").toBool(), u"%1: what can be ticked expected"_s.arg(nom));
  return objet->property("checked").toBool();
}

bool Controle::ALeFoyer() const {
  const QWidget *foyer = QApplication::focusWidget();
  return foyer != nullptr && (foyer == objet || Widget()->isAncestorOf(foyer));
}

QModelIndexList Controle::Elements() const {
  const QAbstractItemModel *modele = Vue()->model();
  if (modele == nullptr) return {};
  return modele->match(modele->index(0, 0, Vue()->rootIndex()), Qt::DisplayRole, QString(), -1,
                       Qt::MatchContains | Qt::MatchRecursive);
}

QModelIndex Controle::Element(const Mot &mot) const {
  const QModelIndexList elements = Elements();
  const auto indice = mot.Est(u"racine") ? std::optional(0) : mot.Indice();
  int rang = mot.rang;
  for (const QModelIndex &element : elements)
    if (indice ? elements.indexOf(element) == *indice
               : element.data().toString() == mot.texte && --rang == 0)
      return element;
  throw Echec{u"%1: item %2 of \"%3\" expected, %4 found"_s.arg(nom).arg(mot.rang).arg(
      mot.texte, EnListe(Textes(elements)))};
}

QModelIndexList Controle::Selection() const {
  QModelIndexList choisis;
  const auto *combo = En<QComboBox>();
  for (const QModelIndex &element : Elements())
    if (combo != nullptr ? element.row() == combo->currentIndex()
                         : Vue()->selectionModel()->isSelected(element))
      choisis.append(element);
  return choisis;
}

QRect Controle::Place(const QModelIndex &element) const {
  QAbstractItemView *vue = Vue();
  vue->scrollTo(element);
  const QRect place = vue->visualRect(element).intersected(vue->viewport()->rect());
  Exiger(!place.isEmpty(),
         u"%1: the item \"%2\" expected in sight, it cannot be brought there"_s.arg(
             nom, element.data().toString()));
  return place;
}

QPoint Controle::PlaceDeCase(const QModelIndex &element) const {
  const QAbstractItemView *vue = Vue();
  QStyleOptionViewItem option;
  option.initFrom(vue);
  option.widget = vue;
  option.rect = Place(element);
  option.text = element.data().toString();
  option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
  return vue->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, vue).center();
}

QStringList Textes(const QModelIndexList &elements) {
  QStringList textes;
  for (const QModelIndex &element : elements) textes.append(element.data().toString());
  return textes;
}

bool EstCoche(const QModelIndex &element) {
  const QVariant etat = element.data(Qt::CheckStateRole);
  Exiger(etat.isValid(), u"a box at \"%1\" expected, none found"_s.arg(element.data().toString()));
  return etat.value<Qt::CheckState>() == Qt::Checked;
}

Ecran::Ecran() {
  qApp->installEventFilter(this);
}

bool Ecran::eventFilter(QObject *objet, QEvent *evenement) {
  auto *fenetre = evenement->type() == QEvent::Show ? qobject_cast<QWidget *>(objet) : nullptr;
  if (fenetre != nullptr && fenetre->isWindow() && fenetre->objectName().startsWith(u"Frm"_s)) {
    montrees_.removeIf([&](const auto &autre) { return autre.isNull() || autre == fenetre; });
    montrees_.append(fenetre);
    EprouverModeles(*fenetre);
  }
  return QObject::eventFilter(objet, evenement);
}

QWidget *Ecran::FenetreActive() const {
  if (QWidget *dialogue = QApplication::activeModalWidget()) return dialogue;
  for (auto fenetre = montrees_.crbegin(); fenetre != montrees_.crend(); ++fenetre)
    if (*fenetre && (*fenetre)->isVisible()) return *fenetre;
  return nullptr;
}

QWidget *Ecran::Active() const {
  QWidget *fenetre = FenetreActive();
  Exiger(fenetre != nullptr, u"a window on the screen expected, none found"_s);
  return fenetre;
}

QWidget *Ecran::Fenetre(const QString &nom) {
  QWidget *trouvee = nullptr;
  for (QWidget *fenetre : QApplication::topLevelWidgets())
    if (fenetre->objectName() == nom && fenetre->windowType() != Qt::Popup &&
        (trouvee == nullptr || fenetre->isVisible()))
      trouvee = fenetre;
  return trouvee;
}

Controle Ecran::Trouver(const QString &nom) const {
  const qsizetype point = nom.indexOf(u'.');
  QWidget *fenetre = Fenetre(nom.left(point));
  if (fenetre == nullptr && point < 0) fenetre = FenetreActive();
  Exiger(fenetre != nullptr,
         u"%1: its window expected, on the screen: %2"_s.arg(nom, NomsMontres()));
  const QString objet = nom.mid(point + 1).replace(u'(', u'_').remove(u')');
  if (fenetre->objectName() == objet) return {nom, fenetre, fenetre};
  QObject *trouve = nullptr;
  for (QObject *candidat : fenetre->findChildren<QObject *>(objet))
    if (Appartient(candidat, fenetre) && (trouve == nullptr || candidat->isWidgetType()) &&
        (candidat->isWidgetType() || qobject_cast<QAction *>(candidat)))
      trouve = candidat;
  Exiger(trouve != nullptr,
         u"control %1 expected, none of this name in %2; on the screen: %3"_s.arg(
             objet, fenetre->objectName(), NomsMontres()));
  return {nom, fenetre, trouve};
}

Controle Ecran::Atteindre(const QString &nom) const {
  const Controle controle = Trouver(nom);
  const QWidget *dialogue = QApplication::activeModalWidget();
  Exiger((dialogue == nullptr || dialogue == controle.fenetre) && controle.fenetre->isVisible() &&
             (controle.fenetre == FenetreActive() || nom.contains(u'.')),
         u"%1 of %2 expected within reach, on the screen: %3"_s.arg(
             nom, controle.fenetre->objectName(), NomsMontres()));
  FermerSurgissante(controle);
  if (const auto *action = controle.En<QAction>()) {
    Exiger(EstAtteignable(action),
           u"%1 expected within reach, it is hidden, disabled or in no open menu"_s.arg(nom));
    return controle;
  }
  Exiger(controle.Widget()->isVisible() && controle.EstActif(),
         u"%1 expected within reach, it is hidden or disabled"_s.arg(nom));
  for (QWidget *parent = controle.Widget()->parentWidget(); parent; parent = parent->parentWidget())
    if (auto *zone = qobject_cast<QScrollArea *>(parent))
      zone->ensureWidgetVisible(controle.Widget());
  return controle;
}

void Ecran::DonnerFocus() const {
  QWidget *fenetre = FenetreActive();
  if (fenetre == nullptr || fenetre->isMinimized() || fenetre == QApplication::activeWindow() ||
      QApplication::activePopupWidget() != nullptr)
    return;
  fenetre->activateWindow();
  QCoreApplication::processEvents();
}
