#include "ui/PropositionAuFocus.h"

#include <QEvent>

PropositionAuFocus::PropositionAuFocus(QLineEdit *champ, std::function<QString()> proposition)
    : QObject(champ), champ_(champ), proposition_(std::move(proposition)) {
  champ->installEventFilter(this);
}

bool PropositionAuFocus::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() == QEvent::FocusIn && !champ_->isReadOnly()) Proposer();
  return QObject::eventFilter(objet, evenement);
}

void PropositionAuFocus::Proposer() {
  const QString avant = champ_->text(), proposee = proposition_();
  if (proposee.isEmpty() || proposee == avant || proposee == proposee_) return;
  avant_ = avant;
  proposee_ = proposee;
  champ_->setText(proposee);
  // Whoever gives the focus may put the caret somewhere afterwards.
  QMetaObject::invokeMethod(
      champ_,
      [this] {
        const int debut = static_cast<int>(avant_.size());
        if (champ_->text() == proposee_)
          champ_->setSelection(debut, static_cast<int>(proposee_.size()) - debut);
      },
      Qt::QueuedConnection);
}

void PropositionAuFocus::Retirer() {
  if (EstIntacte()) champ_->setText(avant_);
}

bool PropositionAuFocus::EstIntacte() const {
  return !proposee_.isEmpty() && champ_->text() == proposee_ && !champ_->isModified();
}
