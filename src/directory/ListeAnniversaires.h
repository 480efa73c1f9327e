#pragma once

#include "directory/AnniversairesProches.h"
#include "session/Session.h"
#include "storage/SuiviNaissances.h"
#include "ui/LectureACote.h"

#include <QListWidget>

#include <functional>
#include <optional>

/// The birthdays of the next thirty days, the soonest first, of those whom the list may show;
/// hidden while there are none. A click or Enter on one opens its record. Many records are looked
/// through beside the windows.
class ListeAnniversaires : public QListWidget {
  Q_OBJECT

 public:
  explicit ListeAnniversaires(QWidget *parent = nullptr);

  /// Before anything else.
  void Relier(Session &session);

  /// Shows what has become of them; what is on display stays until that is read. What cannot be
  /// read is tried again some seconds later.
  void Lire();

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  void Choisi(Cle index);
  /// There is something to show, or nothing any more.
  void Remplie(bool montre);

 protected:
  void keyPressEvent(QKeyEvent *evenement) override;

 private:
  /// Reads what has changed, or everything where that is not known.
  void Actualiser();
  void LireTout(QDate jour);
  void Recevoir();
  void Montrer(const Proches &proches);
  /// Runs a step of the reading.
  void Essayer(const std::function<void()> &etape);
  QSize Taille(int lignes) const;

  Session *session_ = nullptr;
  std::optional<SuiviNaissances> suivi_;
  Proches proches_;
  QDate lues_;           ///< the day for which they have been read, or are being read
  bool encore_ = false;  ///< more has changed meanwhile
  LectureACote<Proches> lecture_;
};
