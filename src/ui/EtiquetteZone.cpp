#include "ui/EtiquetteZone.h"

#include "ui/MesurePolices.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double kMillimetresParPoint = 25.4 / 72;

// More never fits on an envelope, and would be costly to measure.
constexpr qsizetype kLignes = 60;
constexpr qsizetype kCaracteres = 500;

QStringList LignesMontrees(const QString &texte) {
  QStringList lignes = texte.left(kLignes * kCaracteres).split(u'\n').mid(0, kLignes);
  for (QString &ligne : lignes) ligne.truncate(kCaracteres);
  return lignes;
}

}  // namespace

EtiquetteZone::EtiquetteZone(QWidget *parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  Mesurer();
}

void EtiquetteZone::setText(const QString &texte) {
  texte_ = texte;
  texte_.replace(u'*', u'\n');
  setAccessibleDescription(texte_.left(kCaracteres).trimmed());
  Mesurer();
}

void EtiquetteZone::setAlignment(Qt::Alignment alignement) {
  alignement_ = alignement;
  update();
}

void EtiquetteZone::ChangerPolice(const Police &police) {
  police_ = police;
  QFont font(police.nom);
  font.setPointSizeF(police.points);
  font.setBold(police.gras);
  setFont(font);
  Mesurer();
}

void EtiquetteZone::ChangerEchelle(double pixelsParMillimetre) {
  echelle_ = pixelsParMillimetre;
  Mesurer();
}

void EtiquetteZone::Mesurer() {
  const MesurePolices mesure;
  Millimetres largeur;
  const QStringList lignes = LignesMontrees(texte_);
  for (const QString &ligne : lignes)
    if (!ligne.trimmed().isEmpty()) largeur = std::max(largeur, mesure.Largeur(ligne, police_));
  const Millimetres hauteur = mesure.HauteurLigne(police_) * static_cast<double>(lignes.size());
  // One pixel more than the text, for the mark of the focus.
  taille_ = {static_cast<int>(std::ceil(largeur.valeur * echelle_)) + 2,
             static_cast<int>(std::ceil(hauteur.valeur * echelle_)) + 2};
  resize(taille_);
  update();
}

void EtiquetteZone::paintEvent(QPaintEvent *) {
  QPainter dessin(this);
  dessin.setRenderHint(QPainter::TextAntialiasing);
  // Drawn in points and scaled, so that lines keep their proportions at every size of the window.
  const double pixelsParPoint = echelle_ * kMillimetresParPoint;
  constexpr int kFin = 100;  // steps of a point: font sizes in pixels are whole numbers
  dessin.scale(pixelsParPoint / kFin, pixelsParPoint / kFin);
  const QFont font = PoliceEnPixels(police_, static_cast<int>(std::lround(police_.points * kFin)));
  const QFontMetricsF metrique(font);
  const double largeur = width() / (pixelsParPoint / kFin);
  dessin.setFont(font);
  dessin.setPen(Qt::black);  // the envelope is white paper in every theme
  double y = metrique.ascent();
  for (const QString &ligne : LignesMontrees(texte_)) {
    const double reste = largeur - metrique.horizontalAdvance(ligne);
    const double x = alignement_ & Qt::AlignRight     ? reste
                     : alignement_ & Qt::AlignHCenter ? reste / 2
                                                      : 0;
    if (!ligne.trimmed().isEmpty()) dessin.drawText(QPointF(x, y), ligne);
    y += metrique.lineSpacing();
  }
  if (hasFocus()) {
    dessin.resetTransform();
    dessin.setPen(QPen(QColor(48, 126, 173), 1, Qt::DotLine));
    dessin.drawRect(rect().adjusted(0, 0, -1, -1));
  }
}
