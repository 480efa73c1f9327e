#pragma once

#include <QColor>
#include <QObject>
#include <QString>

#include <memory>

class Horloge;
class QLabel;
class QWidget;

/// The colours of a balloon tip.
struct TeinteBulle {
  QRgb fond = 0;
  QRgb encre = qRgb(255, 255, 255);
};

inline constexpr TeinteBulle kBulleBleue{qRgb(0, 100, 200)}, kBulleRouge{qRgb(160, 20, 20)},
    kBulleNoire{qRgb(0, 0, 0)}, kBulleBrune{qRgb(160, 120, 40)},
    kBulleJaune{qRgb(255, 255, 150), qRgb(0, 0, 0)};

/// What a balloon tip says, and how it looks.
struct AspectBulle {
  QString texte;  ///< lines joined by line feeds
  TeinteBulle teinte = kBulleNoire;
  int largeur = 100;  ///< at most, in pixels at the design size of the font; a word is never cut
};

/// The balloon tip of a control: it comes a moment after the mouse has, and goes with it, with a
/// press of a button, or by itself after some seconds.
class Bulle : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the control.
  Bulle(QWidget *controle, Horloge &horloge, AspectBulle aspect);
  ~Bulle() override;

  const AspectBulle &Aspect() const { return aspect_; }
  bool EstMontree() const { return etiquette_ != nullptr; }

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  void Attendre();
  void Montrer();
  void Cacher();

  QWidget *controle_;
  Horloge &horloge_;
  AspectBulle aspect_;
  bool passee_ = false;  ///< it has gone by itself: the window below may now report the mouse anew
  std::unique_ptr<QObject> attente_;  ///< what is planned dies with it
  std::unique_ptr<QLabel> etiquette_;
};

/// Gives a control its balloon tip, in the place of the one that it may have.
void PoserBulle(QWidget *controle, Horloge &horloge, const AspectBulle &aspect);
