#include "ui/FondDegrade.h"

#include "ui/Theme.h"

#include <QApplication>
#include <QEvent>
#include <QPaintEvent>
#include <QPainter>

namespace {

constexpr int kDebut = 48, kMarge = 26;

QColor EnQt(const Boites::Couleur &couleur) {
  return {couleur.rouge, couleur.vert, couleur.bleu};
}

}  // namespace

FondDegrade::FondDegrade(QWidget *parent) : QWidget(parent) {}

void FondDegrade::PoserPanneaux(const QList<QWidget *> &panneaux, double echelle) {
  panneaux_ = panneaux;
  echelle_ = echelle;
}

void FondDegrade::Choisir(bool uni) {
  uni_ = uni;
  QPalette palette;  // the panels take it over
  if (uni) palette.setColor(QPalette::Window, EnQt(Couleur()));
  setPalette(palette);
  update();
}

Boites::Couleur FondDegrade::Couleur() const {
  return EstSombre(QApplication::palette()) ? Boites::Couleur{56, 60, 74}
                                            : Boites::Couleur{238, 241, 253};
}

void FondDegrade::changeEvent(QEvent *evenement) {
  if (evenement->type() == QEvent::ApplicationPaletteChange) Choisir(uni_);
  QWidget::changeEvent(evenement);
}

void FondDegrade::paintEvent(QPaintEvent *evenement) {
  const double coin = 4 * echelle_;
  QPainter dessin(this);
  dessin.fillRect(evenement->rect(), palette().color(QPalette::Window));
  if (!uni_) {
    const EtendueDegrade etendue{qRound(kDebut * echelle_), qRound(kMarge * echelle_)};
    int ligne = etendue.debut;
    for (const Boites::Couleur &couleur : PeindreDegrade({0, 0, 0}, Couleur(), etendue, height()))
      dessin.fillRect(0, ligne++, width(), 1, EnQt(couleur));
  }
  dessin.setRenderHint(QPainter::Antialiasing);
  dessin.setPen(Qt::NoPen);
  for (const QWidget *panneau : panneaux_) {
    if (!panneau->isVisible()) continue;
    dessin.setBrush(panneau->palette().color(QPalette::Window));
    dessin.drawRoundedRect(QRect(panneau->mapTo(this, QPoint()), panneau->size()), coin, coin);
  }
}
