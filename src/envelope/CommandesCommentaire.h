#pragma once

#include "envelope/EtatEnveloppe.h"
#include "session/Session.h"

#include <QLabel>
#include <QObject>

class QAction;

/// The optional comment of an envelope: its commands, and the label that tells of it.
class CommandesCommentaire : public QObject {
  Q_OBJECT

 public:
  /// Menu items of the envelope window.
  struct Actions {
    QAction *inserer, *effacer, *gras, *souligne, *annuler, *interdire;
  };

  CommandesCommentaire(Session &session, EtatEnveloppe &etat, QLabel *etiquette,
                       const Actions &actions);

  void Inserer();
  void Effacer();
  /// Shows or hides the label as the comment is set or not.
  void MajEtiquette();

 private:
  void AnnoncerSuppression();

  Session &session_;
  EtatEnveloppe &etat_;
  QLabel *etiquette_;
};
