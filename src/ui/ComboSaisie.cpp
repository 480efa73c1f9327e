#include "ui/ComboSaisie.h"

#include <QLineEdit>

ComboSaisie::ComboSaisie(QWidget *parent) : QComboBox(parent) {
  setEditable(true);
  setInsertPolicy(NoInsert);
  setCompleter(nullptr);
  disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
  const auto noter = [this] {
    const QLineEdit *champ = lineEdit();
    debut_ = champ->hasSelectedText() ? champ->selectionStart() : champ->cursorPosition();
  };
  connect(lineEdit(), &QLineEdit::selectionChanged, this, noter);
  connect(lineEdit(), &QLineEdit::cursorPositionChanged, this, noter);
  // It comes before those two: what was put in has moved the cursor on.
  connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString &texte) {
    if (lineEdit()->cursorPosition() > debut_) emit Tapee(texte);
  });
}
