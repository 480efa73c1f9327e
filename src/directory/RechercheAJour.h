#pragma once

#include "directory/RechercheTotale.h"
#include "session/Session.h"
#include "ui/LectureACote.h"

#include <QObject>

#include <memory>

/// The search over the table as it is, read when it is first asked for and again once the table has
/// changed: at once where there are few records, beside the windows where there are many.
class RechercheAJour : public QObject {
  Q_OBJECT

 public:
  RechercheAJour(const Session &session, Base &base) : session_(session), base_(base) {}

  /// Nothing while it is being read for the first time; the one before while it is read again.
  /// Throws `ErreurBase`.
  RechercheTotale *Courante();

  /// What was read last, nothing before that.
  const RechercheTotale *Derniere() const { return lue_.get(); }

  /// Whether `Courante` gives the table as it is.
  bool EstAJour() const { return !suite_.EnCours(); }

 signals:
  /// What was read beside the windows is there.
  void Prete();

 private:
  void LireACote();
  void Recevoir();

  const Session &session_;
  Base &base_;
  std::unique_ptr<RechercheTotale> lue_;
  Base::Etat etat_;  ///< of what was read, or is being read
  LectureACote<std::unique_ptr<RechercheTotale>> suite_;
};
