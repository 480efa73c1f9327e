#pragma once

#include <QFont>
#include <QObject>

/// Scales the program as long as it lives: the font of all windows at once, and each window, with
/// the sizes that its controls are bound to, before it is shown. A control with the property
/// `enMillimetres` shows paper, and keeps its size. At the size as designed nothing is changed.
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
  double echelle_;
  QFont police_;  ///< of the program before
};
