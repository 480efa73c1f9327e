#pragma once

#include "platform/Boites.h"
#include "storage/TablesAlertes.h"

#include <QComboBox>

/// The kinds of event. One that is typed is stored when the list is opened; the Delete key deletes
/// the one that is shown, with all its events.
class ComboEvenements : public QComboBox {
  Q_OBJECT

 public:
  explicit ComboEvenements(QWidget *parent = nullptr);

  void Relier(Boites &boites, Base &base);
  /// Reads the types in force.
  void Charger();

  void Choisir(const TypeAlerte &type);
  void Vider();

  /// Stores the type that is typed, unless its text is a part of the list already.
  void AjouterSaisie();
  /// Key of the type that is shown, 0 for a text that stands nowhere in the list.
  Cle Type() const;

  void showPopup() override;

 signals:
  /// A type has gone with its events.
  void TypeSupprime();

 protected:
  void keyPressEvent(QKeyEvent *evenement) override;
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  int Position() const;
  void Supprimer();

  Boites *boites_ = nullptr;
  Base *base_ = nullptr;
};
