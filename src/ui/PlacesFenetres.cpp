#include "ui/PlacesFenetres.h"

#include "platform/Erreurs.h"
#include "ui/Echelle.h"
#include "ui/ZoneAuBesoin.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QLayout>
#include <QMainWindow>
#include <QPointer>
#include <QScreen>
#include <QSplitter>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kEcart = 48;  // pixels; nearer, a dialog stands where it was put

QString CleDe(const QWidget &fenetre) {
  return fenetre.objectName();
}

QString CleDe(const QWidget &fenetre, const QSplitter &partage) {
  return fenetre.objectName() + u'.' + partage.objectName();
}

QList<QSplitter *> Partages(const QWidget &fenetre) {
  QList<QSplitter *> tous = fenetre.findChildren<QSplitter *>();
  tous.removeIf([&](const QSplitter *partage) {
    return partage->window() != &fenetre || partage->objectName().isEmpty();
  });
  return tous;
}

/// The window that a dialog belongs to; none for a window of its own.
const QWidget *Porteuse(const QWidget &fenetre) {
  const QWidget *parent = fenetre.parentWidget();
  return parent == nullptr || !fenetre.inherits("QDialog") ? nullptr : parent->window();
}

const QScreen &EcranDe(const QWidget &fenetre) {
  const QWidget *porteuse = Porteuse(fenetre);
  return porteuse == nullptr ? *fenetre.screen() : *porteuse->screen();
}

/// A place cut and moved to lie in another one.
QRect Dans(const QRect &libre, QRect place) {
  place.setSize(place.size().boundedTo(libre.size()));
  place.moveLeft(std::clamp(place.left(), libre.left(), libre.right() - place.width() + 1));
  place.moveTop(std::clamp(place.top(), libre.top(), libre.bottom() - place.height() + 1));
  return place;
}

/// A place moved and cut to be seen whole on the screen where most of it would be.
QRect Visible(const QRect &place, const QScreen &sinon) {
  const QScreen *ecran = QGuiApplication::screenAt(place.center());
  if (ecran != nullptr && ecran->availableGeometry().contains(place)) return place;
  return Dans(ZoneAuBesoin::Libre(ecran == nullptr ? sinon : *ecran), place);
}

/// Also where it stood already: a window manager places anew what nobody has placed.
void Placer(QWidget &fenetre, const QRect &place) {
  fenetre.setGeometry(place);
  if (QWindow *systeme = fenetre.windowHandle()) systeme->setGeometry(place);
}

/// Whether a dialog is as it was given, or has gone before it stood.
bool EstRestee(const QRect &place, const QRect &donnee) {
  return !donnee.isValid() || (place.size() == donnee.size() &&
                               (place.center() - donnee.center()).manhattanLength() < kEcart);
}

/// What a window holds goes into an area that scrolls.
void FaireDefiler(QWidget &fenetre) {
  const QPointer<QWidget> focus = fenetre.focusWidget();
  auto *zone = new ZoneAuBesoin(&fenetre);
  zone->TenirLaFenetre();
  QWidget *corps = nullptr;
  if (auto *principale = qobject_cast<QMainWindow *>(&fenetre)) {
    corps = principale->takeCentralWidget();
    zone->setWidget(corps);
    principale->setCentralWidget(zone);
  } else {
    QWidget *menus = fenetre.layout()->menuBar();
    fenetre.layout()->setMenuBar(nullptr);
    corps = new QWidget(&fenetre);
    corps->setLayout(fenetre.layout());
    zone->setWidget(corps);
    auto *colonne = new QVBoxLayout(&fenetre);
    colonne->setContentsMargins({});
    colonne->setMenuBar(menus);
    colonne->addWidget(zone);
  }
  if (focus != nullptr) focus->setFocus();
}

void TenirDansLEcran(QWidget &fenetre) {
  const QSize libre = ZoneAuBesoin::Libre(EcranDe(fenetre)).size();
  if (fenetre.layout() == nullptr) return;
  if (fenetre.inherits("QMainWindow")) return FaireDefiler(fenetre);  // what it shows changes
  const QSize contenu = fenetre.layout()->totalMinimumSize();
  const QSize besoin = fenetre.minimumSize().expandedTo(contenu);
  if (besoin.boundedTo(libre) == besoin) {
    // A bound of its own would hold below what it comes to contain.
    if (fenetre.minimumWidth() < contenu.width()) fenetre.setMinimumWidth(0);
    if (fenetre.minimumHeight() < contenu.height()) fenetre.setMinimumHeight(0);
    fenetre.layout()->invalidate();
    fenetre.layout()->activate();
    return;
  }
  FaireDefiler(fenetre);
  fenetre.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  fenetre.setMinimumSize(fenetre.minimumSize().boundedTo(libre));
}

/// Broken lines make a narrow window higher, which the toolkit leaves out of its bounds.
void BornerHauteur(QWidget &fenetre) {
  const QLayout *contenu = fenetre.layout();
  if (contenu == nullptr || !contenu->hasHeightForWidth() || !fenetre.isVisible()) return;
  const int hauteur = std::min(contenu->totalMinimumHeightForWidth(fenetre.width()),
                               ZoneAuBesoin::Libre(*fenetre.screen()).height());
  if (fenetre.minimumHeight() != hauteur && fenetre.minimumHeight() != fenetre.maximumHeight())
    fenetre.setMinimumHeight(hauteur);
}

}  // namespace

PlacesFenetres::PlacesFenetres(const QString &appPath, qint32 taille)
    : etat_(appPath, u"Etat.ini"_s), taille_(taille) {
  qApp->installEventFilter(this);
}

QString PlacesFenetres::Section() const {
  QStringList ecrans;
  for (const QScreen *ecran : QGuiApplication::screens()) {
    const QRect place = ecran->geometry();
    ecrans.append(
        u"%1x%2+%3+%4"_s.arg(place.width()).arg(place.height()).arg(place.left()).arg(place.top()));
  }
  return u"%1 %2"_s.arg(taille_).arg(ecrans.join(u' '));
}

PlacesFenetres::Nombres PlacesFenetres::Lire(const QString &cle, qsizetype nombre) const {
  if (const Nombres nombres = laissees_.value(cle); !nombres.isEmpty()) return nombres;
  Nombres nombres;
  for (const QString &mot : etat_.Texte(Section(), cle).split(u' ', Qt::SkipEmptyParts)) {
    constexpr int kPlusLoin = 100'000;
    bool entier = false;
    nombres.append(mot.toInt(&entier));
    if (!entier || std::abs(nombres.constLast()) > kPlusLoin) return {};
  }
  return nombres.size() == nombre ? nombres : Nombres();
}

void PlacesFenetres::MontrerCommeDessinee(QWidget &fenetre) {
  if (fenetre.testAttribute(Qt::WA_Resized))
    fenetre.resize((fenetre.size() * Grossissement(fenetre.font(), Echelle(taille_)))
                       .boundedTo(ZoneAuBesoin::Libre(EcranDe(fenetre)).size()));
  else
    ZoneAuBesoin::Dimensionner(fenetre);
  if (derniere_ != nullptr && Porteuse(fenetre) == nullptr) {
    QRect place = fenetre.geometry();
    place.moveCenter(derniere_->geometry().center());
    Placer(fenetre, Dans(ZoneAuBesoin::Libre(*derniere_->screen()), place));
  }
  donnees_[&fenetre] = {};
  // Once it stands: some find their size while they are shown.
  QMetaObject::invokeMethod(
      &fenetre,
      [this, &fenetre] {
        ZoneAuBesoin::Completer(fenetre);
        donnees_[&fenetre] = fenetre.geometry();
      },
      Qt::QueuedConnection);
}

void PlacesFenetres::Montrer(QWidget &fenetre) {
  const Nombres laissee = Lire(CleDe(fenetre), 5);
  for (QSplitter *partage : Partages(fenetre))
    if (const Nombres parts = Lire(CleDe(fenetre, *partage), partage->count()); !parts.isEmpty())
      partage->setSizes(parts);
  if (laissee.isEmpty()) {
    MontrerCommeDessinee(fenetre);
    return;
  }
  donnees_.remove(&fenetre);
  QRect place(laissee[0], laissee[1], laissee[2], laissee[3]);
  if (const QWidget *porteuse = Porteuse(fenetre)) place.translate(porteuse->geometry().topLeft());
  place.setSize(place.size().expandedTo(fenetre.minimumSizeHint()));
  Placer(fenetre, Visible(place, EcranDe(fenetre)));
  if (laissee[4] != 0) fenetre.setWindowState(fenetre.windowState() | Qt::WindowMaximized);
}

void PlacesFenetres::Retenir(QWidget &fenetre) {
  for (const QSplitter *partage : Partages(fenetre))
    if (partage->testAttribute(Qt::WA_WState_Created))  // one that nobody has seen has no sizes
      laissees_[CleDe(fenetre, *partage)] = partage->sizes();
  QRect place = fenetre.isMaximized() ? fenetre.normalGeometry() : fenetre.geometry();
  if (!place.isValid()) return;
  if (const QWidget *porteuse = Porteuse(fenetre)) {
    const auto donnee = donnees_.constFind(&fenetre);
    if (donnee != donnees_.constEnd() && EstRestee(place, *donnee)) return;
    place.translate(-porteuse->geometry().topLeft());
  }
  laissees_[CleDe(fenetre)] = {place.left(), place.top(), place.width(), place.height(),
                               fenetre.isMaximized() ? 1 : 0};
}

void PlacesFenetres::Ecrire() {
  Preferences::Valeurs valeurs;
  for (const auto &[cle, nombres] : laissees_.asKeyValueRange()) {
    QStringList mots;
    for (const int nombre : nombres) mots.append(QString::number(nombre));
    valeurs.append({cle, mots.join(u' ')});
  }
  std::ranges::sort(valeurs);
  if (!valeurs.isEmpty()) Ignorer([&] { etat_.Ecrire(Section(), valeurs); });
}

bool PlacesFenetres::eventFilter(QObject *objet, QEvent *evenement) {
  const auto type = evenement->type();
  const bool utile = type == QEvent::Polish || type == QEvent::Show || type == QEvent::Hide ||
                     type == QEvent::Resize;
  if (!utile || (evenement->spontaneous() && type != QEvent::Resize) || !objet->isWidgetType() ||
      !objet->objectName().startsWith(u"Frm"_s))
    return QObject::eventFilter(objet, evenement);
  auto &fenetre = *static_cast<QWidget *>(objet);
  if (!fenetre.isWindow() || fenetre.windowType() == Qt::SplashScreen)
    return QObject::eventFilter(objet, evenement);
  if (type == QEvent::Polish)
    TenirDansLEcran(fenetre);
  else if (type == QEvent::Resize)
    BornerHauteur(fenetre);
  else if (type == QEvent::Show)
    Montrer(fenetre);
  else
    Retenir(fenetre);
  if (type == QEvent::Show && Porteuse(fenetre) == nullptr) derniere_ = &fenetre;
  return QObject::eventFilter(objet, evenement);
}
