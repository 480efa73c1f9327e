#include "ui/EtiquetteZone.h"

#include "platform/Caracteres.h"
#include "ui/FeuilleEcran.h"
#include "ui/Montrable.h"
#include "ui/Theme.h"

#include <QPainter>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kBord = 1;  // pixels around the text, for the mark of the focus

// Inks beyond the paper, on a light and on a dark ground.
constexpr QColor kHorsPapierSombre(184, 28, 28), kHorsPapierClair(255, 138, 128);

constexpr qsizetype kLignes = 60, kCaracteres = 500;  // more never fits on an envelope

QStringList LignesMontrees(const QString &texte) {
  QStringList lignes = LignesMontrables(texte, kLignes, kCaracteres);
  for (QString &ligne : lignes) ligne = Montrable(ligne, kCaracteres);
  return lignes;
}

}  // namespace

EtiquetteZone::EtiquetteZone(QWidget *parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setProperty("enMillimetres", true);
  Mesurer();
}

void EtiquetteZone::setText(const QString &texte) {
  texte_ = texte;
  texte_.replace(u'*', u'\n');
  setAccessibleDescription(Montrable(texte_, kCaracteres).trimmed());
  Mesurer();
}

void EtiquetteZone::setAlignment(Qt::Alignment alignement) {
  alignement_ = alignement;
  update();
}

void EtiquetteZone::ChangerPolice(const Police &police) {
  police_ = police;
  setFont(Caracteres(police));
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
  taille_ = {static_cast<int>(std::ceil(largeur.valeur * echelle_)) + 2 * kBord,
             static_cast<int>(std::ceil(hauteur.valeur * echelle_)) + 2 * kBord};
  resize(taille_);
  updateGeometry();  // where it lies in a layout
  update();
}

void EtiquetteZone::ChangerPapier(const QRect &papier) {
  papier_ = papier;
  update();
}

void EtiquetteZone::Ecrire(QPainter &dessin, const QColor &encre) const {
  FeuilleEcran feuille(dessin, QPointF(kBord, kBord), echelle_, encre);
  const Millimetres bloc((width() - 2 * kBord) / echelle_);
  Millimetres y;
  for (const QString &ligne : LignesMontrees(texte_)) {
    const Millimetres reste = bloc - feuille.Largeur(ligne, police_);
    const Millimetres x = alignement_ & Qt::AlignRight     ? reste
                          : alignement_ & Qt::AlignHCenter ? reste / 2
                                                           : Millimetres();
    if (!ligne.trimmed().isEmpty()) feuille.Ecrire(x, y, police_, ligne);
    y += feuille.HauteurLigne(police_);
  }
}

void EtiquetteZone::paintEvent(QPaintEvent *) {
  QPainter dessin(this);
  dessin.setRenderHint(QPainter::TextAntialiasing);
  const QRect papier = papier_.isEmpty() ? rect() : papier_.intersected(rect());
  dessin.setClipRect(papier);
  Ecrire(dessin, Qt::black);
  if (papier != rect()) {
    dessin.setClipRegion(QRegion(rect()) - papier);
    Ecrire(dessin, EstSombre(palette()) ? kHorsPapierClair : kHorsPapierSombre);
  }
  dessin.setClipping(false);
  if (hasFocus()) {
    dessin.setPen(QPen(QColor(48, 126, 173), 1, Qt::DotLine));
    dessin.drawRect(rect().adjusted(0, 0, -1, -1));
  }
}
