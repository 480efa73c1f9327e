#pragma once

#include "calendar/Anniversaires.h"
#include "session/Session.h"
#include "storage/Tables.h"

#include <QListWidget>

#include <vector>

/// The birthdays of the next thirty days, the soonest first, of those whom the list may show;
/// hidden while there are none. A click or Enter on one opens its record. However many records
/// there are, the windows wait for a small part of the reading only.
class ListeAnniversaires : public QListWidget {
  Q_OBJECT

 public:
  explicit ListeAnniversaires(QWidget *parent = nullptr);

  /// Before anything else.
  void Relier(Session &session) { session_ = &session; }

  /// Reads the birth dates anew; what is on display stays until all are read. What cannot be read
  /// is tried again some seconds later.
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
  struct Prochain {
    Cle index;
    QString nom;
    Anniversaire anniversaire;
  };

  void LireLaSuite(int tour);
  QList<Naissance> Suivantes() const;
  void Retenir(const QList<Naissance> &naissances);
  void Montrer();
  QSize Taille(int lignes) const;

  Session *session_ = nullptr;
  std::vector<Prochain> lus_;
  Cle dernier_ = 0;  ///< up to which it has been read
  int tour_ = 0;     ///< of the reading; another one gives up the one before
};
