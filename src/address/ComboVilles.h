#pragma once

#include "platform/Boites.h"
#include "storage/Base.h"
#include "ui/ComboSaisie.h"

#include <QLineEdit>

/// The towns that are remembered. Choosing one gives its postal code to a field; where the town has
/// several the user picks one.
class ComboVilles : public ComboSaisie {
  Q_OBJECT

 public:
  using ComboSaisie::ComboSaisie;

  /// Reads the towns; one with several codes stands in the list once. `code` takes the code.
  void Relier(Boites &boites, Base &base, QLineEdit *code);

  /// Shows a town, and forgets what was proposed.
  void Montrer(const QString &ville);

  /// The towns of the code that was typed. A single one fills the field where it is empty, or holds
  /// what an earlier code has put there; several stand in front of the list, which Down opens while
  /// the field is empty, and a beginning that is typed goes on as the first of them that has it, as
  /// one that is remembered while there is no code.
  void Proposer(const QStringList &villes);

  /// The town is shown, and can be neither typed nor chosen.
  void Verrouiller(bool verrouille);

  void showPopup() override;

 protected:
  void keyPressEvent(QKeyEvent *evenement) override;
  void wheelEvent(QWheelEvent *evenement) override;

 private:
  void Choisir(int index);
  void Completer(const QString &tape);
  /// Puts other towns in front of the list; what the field shows stays.
  void Offrir(const QStringList &villes);

  Base *base_ = nullptr;
  QLineEdit *code_ = nullptr;
  int offertes_ = 0;    ///< items in front of the remembered ones, with the line between
  QString codeOffert_;  ///< whose towns these are
  QString posee_;       ///< what a code has put into the field
};
