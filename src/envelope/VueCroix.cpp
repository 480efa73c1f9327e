#include "envelope/VueCroix.h"

#include "ui/Deplacable.h"
#include "ui/FeuilleEcran.h"

#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double kGrossissement = 2;
constexpr double kPortee = 12;   // millimetres of paper from the middle to each edge
constexpr double kMarque = 5.5;  // half of the cross, in millimetres of paper
constexpr double kPas = 0.5;     // of an arrow key, in millimetres of paper
constexpr QColor kPli(150, 150, 150), kGraduation(205, 205, 205), kTrouvee(176, 24, 24);

/// Pixels for a millimetre of paper.
double Grandeur(const QWidget &vue) {
  return PixelsParMillimetre(vue) * kGrossissement;
}

QPixmap Croix(double demi, double rapport) {
  const QSize taille = QSizeF(2 * demi * rapport, 2 * demi * rapport).toSize();
  QPixmap image(taille);
  image.setDevicePixelRatio(rapport);
  image.fill(Qt::transparent);
  QPainter dessin(&image);
  dessin.setPen(QPen(kTrouvee, 2));
  dessin.drawLine(QPointF(0, demi), QPointF(2 * demi, demi));
  dessin.drawLine(QPointF(demi, 0), QPointF(demi, 2 * demi));
  return image;
}

}  // namespace

VueCroix::VueCroix(QWidget *parent) : QWidget(parent), croix_(new Deplacable(this)) {
  const double k = Grandeur(*this);
  setProperty("enMillimetres", true);
  setFixedSize(QSizeF(2 * kPortee * k, 2 * kPortee * k).toSize());
  setFocusProxy(croix_);
  croix_->setObjectName(u"PctCroix"_s);
  croix_->setAccessibleName(u"Croix trouvée : flèches pour la déplacer"_s);
  croix_->setPixmap(Croix(kMarque * k, devicePixelRatioF()));
  croix_->setAlignment(Qt::AlignCenter);
  croix_->setFixedSize(QSizeF(2 * kMarque * k, 2 * kMarque * k).toSize());
  croix_->ChangerPas(kPas * kGrossissement);
  connect(croix_, &Deplacable::Pris, this, [this] { depart_ = ecart_; });
  connect(croix_, &Deplacable::Deplace, this, [this](QPointF deplacement) {
    const auto bouger = [](Millimetres depart, double de) {
      const double place = std::clamp(depart.valeur + de / kGrossissement, -kPortee, kPortee);
      return Millimetres(std::round(place / kPas) * kPas);
    };
    emit Deplacee({bouger(depart_.x, deplacement.x()), bouger(depart_.y, deplacement.y())});
  });
  Montrer({});
}

void VueCroix::Montrer(Point ecart) {
  ecart_ = ecart;
  const auto pixels = [k = Grandeur(*this)](Millimetres longueur) {
    return std::clamp(longueur.valeur, -kPortee, kPortee) * k;
  };
  const QPointF milieu = QRectF(rect()).center() + QPointF(pixels(ecart.x), pixels(ecart.y));
  const QSizeF taille = croix_->size();
  croix_->move((milieu - QPointF(taille.width(), taille.height()) / 2).toPoint());
}

void VueCroix::paintEvent(QPaintEvent *) {
  QPainter dessin(this);
  dessin.fillRect(rect(), kPapier);
  const double k = Grandeur(*this), milieu = kPortee * k, fin = 2 * milieu;
  for (int mm = -static_cast<int>(kPortee); mm <= static_cast<int>(kPortee); ++mm) {
    const double place = milieu + mm * k, demi = mm % 5 == 0 ? k : k / 2;
    dessin.setPen(kGraduation);
    dessin.drawLine(QPointF(place, milieu - demi), QPointF(place, milieu + demi));
    dessin.drawLine(QPointF(milieu - demi, place), QPointF(milieu + demi, place));
  }
  dessin.setPen(QPen(kPli, 1, Qt::DashLine));
  dessin.drawLine(QPointF(0, milieu), QPointF(fin, milieu));
  dessin.drawLine(QPointF(milieu, 0), QPointF(milieu, fin));
  dessin.setPen(kPli);
  dessin.drawRect(rect().adjusted(0, 0, -1, -1));
}
