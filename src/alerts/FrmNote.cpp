#include "alerts/FrmNote.h"

#include "ui/Icones.h"
#include "ui/Theme.h"

#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QScreen>
#include <QTextDocument>

#include <algorithm>
#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr QSize kTaille{240, 180};
constexpr int kMarge = 12;

/// Whether enough of a place lies on a screen to be taken hold of.
bool EstVisible(const QRect &place) {
  constexpr int kPrise = 40;
  for (const QScreen *ecran : QGuiApplication::screens()) {
    const QRect commun = ecran->availableGeometry() & place;
    if (commun.width() >= kPrise && commun.height() >= kPrise) return true;
  }
  return false;
}

}  // namespace

FrmNote::FrmNote(const NoteMemora &note) : note_(note) {
  setObjectName(u"FrmMemora%1"_s.arg(note.numero));
  setWindowFlags(Qt::Tool | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                 Qt::CustomizeWindowHint);
  setWindowTitle(u"Memora %1"_s.arg(note.numero));
  setWindowIcon(IconeProgramme());
  setAccessibleName(windowTitle());
  setFrameShape(NoFrame);
  document()->setDocumentMargin(kMarge);
  setPlainText(note.texte);
  moveCursor(QTextCursor::End);
  Habiller();
  Placer();
  mouvement_.setSingleShot(true);
  mouvement_.setInterval(100ms);
  connect(&mouvement_, &QTimer::timeout, this, &FrmNote::NoterPlace);
  texte_.setSingleShot(true);
  connect(&texte_, &QTimer::timeout, this, &FrmNote::NoterTexte);
  connect(this, &QPlainTextEdit::textChanged, this, [this] { texte_.start(0); });
}

void FrmNote::Placer() {
  resize(note_.place.isEmpty() ? kTaille : note_.place.size());
  if (!note_.place.isEmpty() && EstVisible(note_.place)) {
    move(note_.place.topLeft());
    return;
  }
  empruntee_ = !note_.place.isEmpty();
  constexpr int kEcart = 24;  // and as much for the title bar
  const QRect ecran = QGuiApplication::primaryScreen()->availableGeometry();
  const int sous = ecran.top() + kEcart + (note_.numero - 1) * (height() + 2 * kEcart);
  move(ecran.right() - width() - kEcart,
       std::min(sous, ecran.bottom() - height() - note_.numero * kEcart));
}

void FrmNote::Habiller() {
  const QColor fond(note_.couleur), encre = EncreSur(fond);
  QPalette couleurs = palette();
  couleurs.setColor(QPalette::Base, fond);
  couleurs.setColor(QPalette::Window, fond);
  couleurs.setColor(QPalette::Text, encre);
  couleurs.setColor(QPalette::WindowText, encre);
  setPalette(couleurs);
  QFont police = font();
  police.setPointSize(note_.points);
  setFont(police);
}

void FrmNote::ChangerCouleur(const QString &couleur) {
  note_.couleur = couleur;
  Habiller();
  emit Changee(note_);
}

void FrmNote::ChangerPoints(int points) {
  note_.points = points;
  Habiller();
  emit Changee(note_);
}

void FrmNote::Montrer(bool montree) {
  Poser();
  note_.montree = montree;
  setVisible(montree);
  if (montree) {
    raise();
    activateWindow();
  }
  emit Changee(note_);
}

void FrmNote::Poser() {
  const bool ecrite = texte_.isActive(), deplacee = mouvement_.isActive();
  texte_.stop();
  mouvement_.stop();
  if (ecrite) NoterTexte();
  if (deplacee) NoterPlace();
}

void FrmNote::NoterTexte() {
  note_.texte = toPlainText();
  emit Changee(note_);
}

void FrmNote::NoterPlace() {
  if (!isVisible()) return;
  const QRect place(pos(), size());
  if (std::exchange(empruntee_, false)) emprunt_ = place;
  if (place == emprunt_) return;
  note_.place = place;
  emit Changee(note_);
}

void FrmNote::moveEvent(QMoveEvent *evenement) {
  QPlainTextEdit::moveEvent(evenement);
  if (isVisible()) mouvement_.start();
}

void FrmNote::resizeEvent(QResizeEvent *evenement) {
  QPlainTextEdit::resizeEvent(evenement);
  if (isVisible()) mouvement_.start();
}

void FrmNote::closeEvent(QCloseEvent *evenement) {
  evenement->ignore();
  emit MasquageDemande(note_.numero);
}

void FrmNote::contextMenuEvent(QContextMenuEvent *evenement) {
  emit MenuDemande(note_.numero, evenement->globalPos(), createStandardContextMenu());
}

void FrmNote::keyPressEvent(QKeyEvent *evenement) {
  // For keyboards without the key of the menu, which the toolkit knows alone.
  if (evenement->keyCombination() == (Qt::SHIFT | Qt::Key_F10))
    emit MenuDemande(note_.numero, viewport()->mapToGlobal(cursorRect().bottomLeft()),
                     createStandardContextMenu());
  else
    QPlainTextEdit::keyPressEvent(evenement);
}

bool FrmNote::event(QEvent *evenement) {
  if (evenement->type() == QEvent::WindowActivate) emit Activee(note_.numero);
  if (evenement->type() == QEvent::Show) mouvement_.start();
  return QPlainTextEdit::event(evenement);
}
