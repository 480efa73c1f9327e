#include "Portrait.h"

#include <QPainter>
#include <QPainterPath>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kTaille(240, 300);
constexpr QPointF kTete(120, 128);

constexpr auto kPeaux =
    std::to_array<QRgb>({0xffffdfc4, 0xfff0c8a0, 0xffdca577, 0xffb97a4f, 0xff8d5a3a, 0xfff7d0b0});
constexpr auto kCheveux = std::to_array<QRgb>(
    {0xff2b211c, 0xff5a3a22, 0xff8a5a2b, 0xffc89b4f, 0xffa84a24, 0xffbfbfc4, 0xff3d3d45});

enum class Coiffure { Courte, Longue, Chignon, Bouclee };

constexpr std::array kCoiffuresFemmes{Coiffure::Longue, Coiffure::Longue, Coiffure::Chignon,
                                      Coiffure::Bouclee, Coiffure::Courte};
constexpr std::array kCoiffuresHommes{Coiffure::Courte, Coiffure::Courte, Coiffure::Bouclee};

struct Visage {
  QColor fond, halo, habit, peau, cheveux;
  Coiffure coiffure = Coiffure::Courte;
  bool lunettes = false, barbe = false;
};

Visage InventerVisage(bool femme, Hasard &hasard) {
  Visage v;
  const int teinte = hasard.Entier(0, 359);
  v.fond = QColor::fromHsv(teinte, 70, 222);
  v.halo = QColor::fromHsv(teinte, 40, 242);
  v.habit = QColor::fromHsv((teinte + hasard.Entier(120, 240)) % 360, 130, 150);
  v.peau = QColor::fromRgb(hasard.Parmi(kPeaux));
  v.cheveux = QColor::fromRgb(hasard.Parmi(kCheveux));
  v.coiffure = femme ? hasard.Parmi(kCoiffuresFemmes) : hasard.Parmi(kCoiffuresHommes);
  v.lunettes = hasard.UneFois(3);
  v.barbe = !femme && hasard.UneFois(2);
  return v;
}

QPainterPath Ellipse(const QPointF &centre, qreal rx, qreal ry) {
  QPainterPath chemin;
  chemin.addEllipse(centre, rx, ry);
  return chemin;
}

QPainterPath Rectangle(const QRectF &cadre) {
  QPainterPath chemin;
  chemin.addRect(cadre);
  return chemin;
}

void DessinerFond(QPainter &peintre, const Visage &v) {
  peintre.fillRect(QRect(QPoint(0, 0), kTaille), v.fond);
  peintre.fillPath(Ellipse(kTete + QPointF(0, 12), 106, 106), v.halo);
}

void DessinerCheveuxArriere(QPainter &peintre, const Visage &v) {
  if (v.coiffure == Coiffure::Longue) {
    QPainterPath meches = Ellipse(kTete, 66, 72);
    meches.addRoundedRect(QRectF(54, 120, 132, 112), 30, 30);
    peintre.fillPath(meches.simplified(), v.cheveux);
  } else if (v.coiffure == Coiffure::Chignon) {
    peintre.fillPath(Ellipse(QPointF(120, 52), 26, 24), v.cheveux);
  } else if (v.coiffure == Coiffure::Bouclee) {
    for (const auto &[x, y] : {std::pair{66, 112},
                               {74, 84},
                               {96, 64},
                               {122, 58},
                               {148, 66},
                               {168, 86},
                               {175, 114},
                               {68, 138},
                               {173, 140}})
      peintre.fillPath(Ellipse(QPointF(x, y), 22, 22), v.cheveux);
  }
}

void DessinerBuste(QPainter &peintre, const Visage &v) {
  peintre.fillPath(Ellipse(QPointF(120, 306), 104, 92), v.habit);
  peintre.fillPath(Ellipse(QPointF(120, 216), 34, 22), v.peau.darker(112));
  QPainterPath cou;
  cou.addRoundedRect(QRectF(98, 170, 44, 50), 16, 16);
  peintre.fillPath(cou, v.peau.darker(112));
}

void DessinerTete(QPainter &peintre, const Visage &v) {
  for (const int cote : {-1, 1})
    peintre.fillPath(Ellipse(kTete + QPointF(56 * cote, 6), 9, 14), v.peau.darker(106));
  const QPainterPath tete = Ellipse(kTete, 56, 66);
  peintre.fillPath(tete, v.peau);
  if (v.barbe) {
    const QPainterPath joues = tete.intersected(Rectangle(QRectF(0, 148, 240, 100)));
    peintre.fillPath(joues.subtracted(Ellipse(kTete + QPointF(0, 30), 26, 16)), v.cheveux);
  }
  const QPainterPath calotte = Ellipse(kTete - QPointF(0, 4), 60, 68);
  const QPainterPath front =
      Ellipse(kTete + QPointF(v.coiffure == Coiffure::Courte ? 0 : 18, 44), 76, 82);
  peintre.fillPath(calotte.intersected(Rectangle(QRectF(0, 0, 240, 128))).subtracted(front),
                   v.cheveux);
}

void DessinerTraits(QPainter &peintre, const Visage &v) {
  const QColor trait(0x33, 0x2a, 0x28);
  for (const int cote : {-1, 1}) {
    const QPointF oeil = kTete + QPointF(21 * cote, 4);
    peintre.fillPath(Ellipse(oeil, 4.5, 5.5), trait);
    if (v.lunettes) {
      peintre.setPen(QPen(trait, 2.5));
      peintre.drawEllipse(oeil, 15, 14);
    }
  }
  if (v.lunettes) peintre.drawLine(kTete + QPointF(-6, 3), kTete + QPointF(6, 3));

  peintre.setPen(QPen(v.peau.darker(135), 3, Qt::SolidLine, Qt::RoundCap));
  peintre.drawLine(kTete + QPointF(1, 12), kTete + QPointF(-2, 21));
  peintre.setPen(QPen(QColor(0xa8, 0x45, 0x40), 4, Qt::SolidLine, Qt::RoundCap));
  constexpr int kDegre = 16;  // the toolkit's unit of angle
  peintre.drawArc(QRectF(kTete + QPointF(-20, 12), QSizeF(40, 30)), 215 * kDegre, 110 * kDegre);
}

void DessinerInitiales(QPainter &peintre, const QString &initiales) {
  QFont police(u"Liberation Sans"_s);
  police.setPixelSize(30);
  police.setBold(true);
  peintre.setFont(police);
  peintre.setPen(Qt::white);
  peintre.drawText(QRectF(0, 250, kTaille.width(), 40), Qt::AlignCenter, initiales);
}

}  // namespace

QImage DessinerPortrait(const QString &initiales, bool femme, Hasard &hasard) {
  const Visage visage = InventerVisage(femme, hasard);
  QImage image(kTaille, QImage::Format_RGB32);
  QPainter peintre(&image);
  peintre.setRenderHint(QPainter::Antialiasing);
  DessinerFond(peintre, visage);
  DessinerCheveuxArriere(peintre, visage);
  DessinerBuste(peintre, visage);
  DessinerTete(peintre, visage);
  DessinerTraits(peintre, visage);
  DessinerInitiales(peintre, initiales);
  return image;
}
