#include "alerts/ComboEvenements.h"

#include "storage/Historique.h"
#include "ui/Brancheur.h"
#include "ui/Sablier.h"

using namespace Qt::StringLiterals;

void ComboEvenements::Relier(Boites &boites, Base &base) {
  boites_ = &boites;
  base_ = &base;
  Brancheur(boites, this)(this, &ComboASuppression::SuppressionDemandee,
                          &ComboEvenements::Supprimer);
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
  const Acte acte(*base_, u"ajout de l'évènement « %1 »"_s.arg(saisie.trimmed()));
  const Cle type = TablesAlertes(*base_).AjouterType(saisie);
  addItem(saisie.trimmed(), type);
  setCurrentIndex(count() - 1);
}

std::optional<int> ComboEvenements::Position() const {
  // What was typed leaves the index where it was.
  const int index = currentIndex();
  if (index >= 0 && itemText(index) == currentText()) return index;
  const int trouve = findText(currentText(), Qt::MatchFixedString | Qt::MatchCaseSensitive);
  return trouve < 0 ? std::nullopt : std::optional(trouve);
}

std::optional<Cle> ComboEvenements::Type() const {
  const auto position = Position();
  return position ? std::optional<Cle>(itemData(*position).toLongLong()) : std::nullopt;
}

void ComboEvenements::showPopup() {
  Signaler(*boites_, [this] { AjouterSaisie(); });
  QComboBox::showPopup();
}

void ComboEvenements::Supprimer() {
  if (currentText().isEmpty()) return;
  const QString question =
      u"En effaçant cet évènement, vous aller supprimer toutes les alertes enregistrées, et "
      "liées à cet évènement.\n\nPoursuivre et supprimer \""_s +
      currentText() + u"\" ?"_s;
  if (boites_->Question(Boites::Titre(), question, Boites::Reponse::Non) != Boites::Reponse::Oui)
    return;
  if (const auto position = Position()) {
    const Cle type = itemData(*position).toLongLong();
    const Acte acte(*base_, u"suppression de l'évènement « %1 »"_s.arg(currentText()));
    SousSablier([&] { TablesAlertes(*base_).SupprimerType(type); });
    removeItem(*position);
  }
  Vider();
  emit TypeSupprime();
}
