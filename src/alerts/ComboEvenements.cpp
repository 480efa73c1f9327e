#include "alerts/ComboEvenements.h"

#include "ui/Garde.h"

#include <QKeyEvent>
#include <QLineEdit>

using namespace Qt::StringLiterals;

ComboEvenements::ComboEvenements(QWidget *parent) : QComboBox(parent) {
  setEditable(true);
  setInsertPolicy(NoInsert);
  setCompleter(nullptr);
  disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);  // typing is not choosing
  lineEdit()->installEventFilter(this);
}

void ComboEvenements::Relier(Boites &boites, Base &base) {
  boites_ = &boites;
  base_ = &base;
}

void ComboEvenements::Charger() {
  const auto types = TablesAlertes(*base_).Types();
  clear();
  for (const TypeAlerte &type : types) addItem(type.Type_alerte, type.ID);
  Vider();
}

void ComboEvenements::Choisir(const TypeAlerte &type) {
  // Another user may have added it since the list was read.
  if (findData(type.ID) < 0) addItem(type.Type_alerte, type.ID);
  setCurrentIndex(findData(type.ID));
  setEditText(itemText(currentIndex()));  // also over what was typed beside the same choice
}

void ComboEvenements::Vider() {
  setCurrentIndex(-1);
  setEditText(u""_s);
}

void ComboEvenements::AjouterSaisie() {
  const QString saisie = currentText();
  QString ListeTypes;
  for (int i = 0; i < count(); ++i) ListeTypes += itemText(i) + u'*';
  if (saisie.trimmed().isEmpty() || ListeTypes.contains(saisie)) return;
  const Cle type = TablesAlertes(*base_).AjouterType(saisie);
  addItem(saisie.trimmed(), type);
  setCurrentIndex(count() - 1);
}

int ComboEvenements::Position() const {
  // What was typed leaves the index where it was.
  const int index = currentIndex();
  if (index >= 0 && itemText(index) == currentText()) return index;
  return findText(currentText(), Qt::MatchFixedString | Qt::MatchCaseSensitive);
}

Cle ComboEvenements::Type() const {
  const int position = Position();
  return position < 0 ? 0 : itemData(position).toLongLong();
}

void ComboEvenements::showPopup() {
  Signaler(*boites_, [this] { AjouterSaisie(); });
  QComboBox::showPopup();
}

void ComboEvenements::Supprimer() {
  const QString question =
      u"En effaçant cet évènement, vous aller supprimer toutes les alertes enregistrées, et "
      "liées à cet évènement.\n\nPoursuivre et supprimer \""_s +
      currentText() + u"\" ?"_s;
  if (boites_->Question(Boites::Titre(), question, Boites::Reponse::Non) != Boites::Reponse::Oui)
    return;
  if (const int position = Position(); position >= 0) {
    TablesAlertes(*base_).SupprimerType(itemData(position).toLongLong());
    removeItem(position);
  }
  Vider();
  emit TypeSupprime();
}

void ComboEvenements::keyPressEvent(QKeyEvent *evenement) {
  if (evenement->key() == Qt::Key_Delete && !currentText().isEmpty())
    Signaler(*boites_, [this] { Supprimer(); });
  else
    QComboBox::keyPressEvent(evenement);
}

bool ComboEvenements::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent *>(evenement)->key() == Qt::Key_Delete) {
    keyPressEvent(static_cast<QKeyEvent *>(evenement));  // the field would take it for itself
    return true;
  }
  return QComboBox::eventFilter(objet, evenement);
}
