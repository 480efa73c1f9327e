#pragma once

#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextDocument>

/// Whether the control with the focus has itself something that this key takes back or does again:
/// text that was typed into it.
inline bool RepriseDuChamp(const QObject *controle, const QKeyEvent &touche) {
  const bool annuler = touche.keyCombination() == (Qt::CTRL | Qt::Key_Z);
  if (!annuler && touche.keyCombination() != (Qt::CTRL | Qt::SHIFT | Qt::Key_Z)) return false;
  if (const auto *ligne = qobject_cast<const QLineEdit *>(controle))
    return annuler ? ligne->isUndoAvailable() : ligne->isRedoAvailable();
  if (const auto *texte = qobject_cast<const QPlainTextEdit *>(controle))
    return annuler ? texte->document()->isUndoAvailable() : texte->document()->isRedoAvailable();
  return false;
}
