#include "envelope/VueEnveloppe.h"

#include "ui/EtiquetteZone.h"
#include "ui/FeuilleEcran.h"
#include "ui/Theme.h"

#include <QLabel>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kOmbre = 6;   // pixels around the paper
constexpr int kMarge = 14;  // from the edge of the table that it lies on
constexpr int kCoin = 4, kTableClaire = 106, kTableSombre = 140;
constexpr Millimetres kLargeurTimbre(18.7), kHauteurTimbre(22);
constexpr Millimetres kMargeTimbre(8);  // from the corner
constexpr Millimetres kRepere(4);       // arms of the mark where a zone begins
// What can be drawn: a size typed by mistake must not run past what a picture can hold.
constexpr Millimetres kMinimum(1), kMaximum(5000);

}  // namespace

VueEnveloppe::VueEnveloppe(QWidget *parent)
    : QWidget(parent),
      expediteur_(new EtiquetteZone(this)),
      adresse_(new EtiquetteZone(this)),
      commentaire_(new QLabel(this)) {
  expediteur_->setObjectName(u"EtqE"_s);
  expediteur_->setAccessibleName(u"Expéditeur"_s);
  adresse_->setObjectName(u"EtqA"_s);
  adresse_->setAccessibleName(u"Adresse du destinataire"_s);
  commentaire_->setObjectName(u"LblCom"_s);
  commentaire_->hide();
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void VueEnveloppe::Disposer(Millimetres largeur, Millimetres hauteur, Point adresse,
                            Point expediteur) {
  largeur_ = std::clamp(largeur, kMinimum, kMaximum);
  hauteur_ = std::clamp(hauteur, kMinimum, kMaximum);
  origineAdresse_ = adresse;
  origineExpediteur_ = expediteur;
  Placer();
}

void VueEnveloppe::resizeEvent(QResizeEvent *) {
  Placer();
}

QPoint VueEnveloppe::Pixels(Point point) const {
  return papier_.topLeft() + QPointF(Pixels(std::clamp(point.x, -kMaximum, kMaximum)),
                                     Pixels(std::clamp(point.y, -kMaximum, kMaximum)))
                                 .toPoint();
}

void VueEnveloppe::Placer() {
  const QSize place = size() - QSize(2 * kMarge, 2 * kMarge);
  echelle_ =
      std::max(0.01, std::min(place.width() / largeur_.valeur, place.height() / hauteur_.valeur));
  papier_ = QRect(0, 0, static_cast<int>(Pixels(largeur_)), static_cast<int>(Pixels(hauteur_)));
  papier_.moveCenter(rect().center());
  for (EtiquetteZone *zone : {expediteur_, adresse_}) zone->ChangerEchelle(echelle_);
  // The zone leaves a pixel around its text.
  expediteur_->move(Pixels(origineExpediteur_) - QPoint(1, 1));
  adresse_->move(Pixels(origineAdresse_) - QPoint(1, 1));
  for (EtiquetteZone *zone : {expediteur_, adresse_})
    zone->ChangerPapier(papier_.translated(-zone->pos()));
  commentaire_->adjustSize();
  commentaire_->move(Pixels({largeur_ - kRetraitCommentaire, origineExpediteur_.y}) -
                     QPoint(commentaire_->width(), 0));
  update();
}

void VueEnveloppe::paintEvent(QPaintEvent *) {
  QPainter dessin(this);
  dessin.setRenderHint(QPainter::Antialiasing);
  dessin.setPen(Qt::NoPen);
  dessin.setBrush(
      palette().color(QPalette::Window).darker(EstSombre(palette()) ? kTableSombre : kTableClaire));
  dessin.drawRoundedRect(rect(), kCoin, kCoin);
  dessin.setBrush(QColor(0, 0, 0, 12));
  for (int bord = kOmbre; bord > 0; --bord)
    dessin.drawRoundedRect(papier_.adjusted(-bord, -bord / 2, bord, bord), bord, bord);
  dessin.setPen(QPen(QColor(190, 186, 176), 1));
  dessin.setBrush(kPapier);
  dessin.drawRect(papier_);

  const QSizeF timbre(Pixels(kLargeurTimbre), Pixels(kHauteurTimbre));
  const double marge = Pixels(kMargeTimbre);
  dessin.setPen(QPen(QColor(200, 196, 186), 1, Qt::DashLine));
  dessin.setBrush(Qt::NoBrush);
  dessin.setClipRect(papier_);
  dessin.drawRect(
      QRectF(QPointF(papier_.right() - marge - timbre.width(), papier_.top() + marge), timbre));
  dessin.setClipping(false);

  // Where each zone begins.
  dessin.setPen(QPen(QColor(150, 180, 200), 1));
  const int trait = std::max(4, static_cast<int>(Pixels(kRepere)));
  for (const Point origine : {origineAdresse_, origineExpediteur_}) {
    const QPoint coin = Pixels(origine) - QPoint(3, 3);
    dessin.drawLine(coin, coin + QPoint(trait, 0));
    dessin.drawLine(coin, coin + QPoint(0, trait));
  }
}
