#pragma once
// Where the windows are and how large, over hiding and over runs.

#include "storage/Preferences.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QWidget>

/// As long as it lives it looks after each window that is named `Frm...`: it is shown where and as
/// large as it was left, else as designed, on the middle of the one before it, and never larger
/// than its screen: what does not fit scrolls. A dialog is placed from the window that it belongs
/// to, and kept only where the user has changed it. Splitters with a name are kept with their
/// window.
///
/// `Etat.ini` holds a section for each arrangement of screens and each size of the program, so that
/// nothing is taken over from another one. A window that would not be seen is brought back.
class PlacesFenetres : public QObject {
  Q_OBJECT

 public:
  /// Reads `Etat.ini`; one that cannot be read holds nothing. Before an `EchelleProgramme`, which
  /// has to act first. `taille` is the program's, in twips.
  PlacesFenetres(const QString &appPath, qint32 taille);

  /// Writes how the windows were left in this run. Never fails: a place is not worth a message.
  void Ecrire();

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  using Nombres = QList<int>;

  QString Section() const;
  Nombres Lire(const QString &cle, qsizetype nombre) const;
  void Montrer(QWidget &fenetre);
  void MontrerCommeDessinee(QWidget &fenetre);
  void Retenir(QWidget &fenetre);

  Preferences etat_;
  qint32 taille_;
  QPointer<QWidget> derniere_;             ///< that was shown, no dialog
  QHash<QString, Nombres> laissees_;       ///< by key: what is to be written
  QHash<const QObject *, QRect> donnees_;  ///< what a dialog was given when it was shown
};
