#pragma once

#include <QBoxLayout>
#include <QList>
#include <QScrollArea>
#include <QShowEvent>

/// The body of a window: it asks for the room that all in it needs, and scrolls, to whatever gets
/// the focus too, where the screen has less.
class ZoneAuBesoin : public QScrollArea {
  Q_OBJECT

 public:
  explicit ZoneAuBesoin(QWidget *parent = nullptr);

  /// The window is not to be made smaller than what it holds, where the screen has room for that.
  void TenirLaFenetre() { tient_ = true; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

  /// What the windows of a screen have for what they hold, the frame that the desktop draws around
  /// each of them taken off.
  static QRect Libre(const QScreen &ecran);

  /// Makes a window without a size of its own, before it is seen, as large as what it holds and as
  /// its screen allows.
  static void Dimensionner(QWidget &fenetre);

  /// Gives a window that is seen what it still lacks, where the screen has it: the layouts leave
  /// out what lines that are broken elsewhere need.
  static void Completer(QWidget &fenetre);

  /// As `Dimensionner` for a dialog; on one that is too narrow then, what stands in `rangees` side
  /// by side is put below each other. For its event of being shown, before the toolkit has it,
  /// which finds the place for that size; once it has been shown it keeps the size that its user
  /// gives it.
  static void TenirDansLEcran(QWidget &dialogue, const QShowEvent &evenement,
                              const QList<QBoxLayout *> &rangees);

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  bool tient_ = false;
};
