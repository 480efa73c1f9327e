#pragma once

#include <QFont>
#include <QObject>

class QLayout;

/// A control whose size has been taken from its font or from another window, which are at scale
/// already: `EchelleProgramme` leaves that size alone.
void GarderTaille(QWidget *controle);

/// Scales the program as long as it lives: the font of all windows at once, and each window before
/// it is shown, with the bounds, the icons, the gaps and the margins of all that lies in it. What
/// has a font of another size takes it from the program's (`Grandir`). A control or a window with
/// the property `enMillimetres` shows paper, and keeps its size. At the size as designed nothing is
/// changed.
class EchelleProgramme : public QObject {
  Q_OBJECT

 public:
  /// `taille` as in `RTColor.ini`.
  explicit EchelleProgramme(qint32 taille);
  ~EchelleProgramme() override;

  /// Scales a window whose size is asked for before it is shown. A window is scaled once.
  void Appliquer(QWidget *fenetre);

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  int Longueur(int longueur) const;
  QSize Taille(const QSize &taille) const;
  void MettreControle(QWidget &controle) const;
  void MettreDisposition(QLayout &disposition) const;
  void MettreFenetre(QWidget &fenetre) const;

  double echelle_;
  QFont police_;  ///< of the program before
};
