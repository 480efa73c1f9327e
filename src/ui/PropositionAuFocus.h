#pragma once

#include <QLineEdit>

#include <functional>

/// Proposes a text in a field when it gets the focus: it is selected, so that typing replaces it.
/// What the user has deleted is not proposed again.
class PropositionAuFocus : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the field. `proposition` gives the whole text that the field shall hold, or an
  /// empty one where nothing is to be proposed.
  PropositionAuFocus(QLineEdit *champ, std::function<QString()> proposition);

  /// Takes a proposal back that the user has not touched.
  void Retirer();
  /// Whether the field holds such a proposal.
  bool EstIntacte() const;

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  void Proposer();

  QLineEdit *champ_;
  std::function<QString()> proposition_;
  QString avant_, proposee_;
};
