#include "envelope/PapierApercu.h"

#include "ui/FeuilleEcran.h"

#include <QPainter>

#include <utility>

void PapierApercu::Montrer(std::vector<LignePlacee> lignes, double pixelsParMillimetre) {
  lignes_ = std::move(lignes);
  echelle_ = pixelsParMillimetre;
  update();
}

void PapierApercu::paintEvent(QPaintEvent *) {
  QPainter dessin(this);
  dessin.fillRect(rect(), kPapier);
  dessin.setRenderHint(QPainter::TextAntialiasing);
  FeuilleEcran feuille(dessin, QPointF(0, 0), echelle_);
  EcrireLignes(lignes_, feuille);
}
