#include "directory/ChampRecherche.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace {

/// A key that the toolkit takes for an older one of its editors: Ctrl+E goes to the end of the
/// line.
bool EstDeLaFenetre(const QKeyEvent &touche) {
  constexpr std::array kEdition{Qt::Key_A, Qt::Key_C, Qt::Key_V, Qt::Key_X, Qt::Key_Y, Qt::Key_Z};
  return touche.modifiers() == Qt::ControlModifier && touche.key() >= Qt::Key_A &&
         touche.key() <= Qt::Key_Z && std::ranges::find(kEdition, touche.key()) == kEdition.end();
}

}  // namespace

bool ChampRecherche::event(QEvent *evenement) {
  if (evenement->type() == QEvent::ShortcutOverride &&
      EstDeLaFenetre(*static_cast<QKeyEvent *>(evenement))) {
    evenement->ignore();
    return false;
  }
  return QLineEdit::event(evenement);
}

void ChampRecherche::keyPressEvent(QKeyEvent *touche) {
  switch (touche->key()) {
    case Qt::Key_Escape:
      emit Abandonnee();
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
    case Qt::Key_Up:
    case Qt::Key_PageDown:
    case Qt::Key_PageUp:
      emit ListeDemandee(touche);
      break;
    default:
      QLineEdit::keyPressEvent(touche);
  }
}
