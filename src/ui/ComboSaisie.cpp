#include "ui/ComboSaisie.h"

#include <QLineEdit>

ComboSaisie::ComboSaisie(QWidget *parent) : QComboBox(parent) {
  setEditable(true);
  setInsertPolicy(NoInsert);
  setCompleter(nullptr);
  disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
}
