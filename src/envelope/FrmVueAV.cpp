#include "envelope/FrmVueAV.h"

#include "ui/FeuilleEcran.h"
#include "ui/Icones.h"

#include <QKeyEvent>
#include <QLabel>
#include <QScreen>

#include <algorithm>

using namespace Qt::StringLiterals;

/// The picture: white paper with the lines on it.
class FrmVueAV::Image : public QWidget {
 public:
  Image(FrmVueAV *fenetre, double echelle)
      : QWidget(fenetre), fenetre_(fenetre), echelle_(echelle) {}

 protected:
  void paintEvent(QPaintEvent *) override {
    QPainter dessin(this);
    dessin.fillRect(rect(), QColor(255, 254, 250));
    dessin.setRenderHint(QPainter::TextAntialiasing);
    FeuilleEcran feuille(dessin, QPointF(0, 0), echelle_);
    EcrireLignes(fenetre_->Lignes(), feuille);
  }

 private:
  FrmVueAV *fenetre_;
  double echelle_;  // pixels for a millimetre of the picture
};

namespace {

// What a screen can hold of an envelope whose size was mistyped.
constexpr double kMinimum = 10, kMaximum = 5000;  // millimetres

// Place of the hint on the DL envelope, millimetres of the envelope.
constexpr double kIndiceX = 6, kIndiceY = 98;

}  // namespace

FrmVueAV::FrmVueAV(Millimetres largeur, Millimetres hauteur, std::vector<LignePlacee> lignes)
    : lignes_(std::move(lignes)) {
  setObjectName(u"FrmVueAV"_s);
  setWindowTitle(u"Vue avant impression"_s);
  setWindowIcon(IconeProgramme());
  const double l = std::clamp(largeur.valeur, kMinimum, kMaximum) / kReductionApercu;
  const double h = std::clamp(hauteur.valeur, kMinimum, kMaximum) / kReductionApercu;
  // In true size where the screen holds it.
  const QSizeF ecran = screen()->availableSize() * 0.95;
  const double echelle =
      std::min({PixelsParMillimetre(*this), ecran.width() / l, ecran.height() / h});
  PctVA = new Image(this, echelle);
  PctVA->setObjectName(u"PctVA"_s);
  PctVA->setAccessibleName(u"Enveloppe"_s);
  Etiquette_KV1 = new QLabel(u"Cliquez n'importe où pour fermer"_s, PctVA);
  Etiquette_KV1->setObjectName(u"Etiquette_KV1"_s);
  QPalette palette;
  palette.setColor(QPalette::WindowText, QColor(110, 110, 110));
  Etiquette_KV1->setPalette(palette);
  Etiquette_KV1->move(static_cast<int>(kIndiceX / 220 * l * echelle),
                      static_cast<int>(kIndiceY / 110 * h * echelle));
  setFixedSize(static_cast<int>(l * echelle), static_cast<int>(h * echelle));
}

void FrmVueAV::resizeEvent(QResizeEvent *) {
  PctVA->setGeometry(rect());
}

void FrmVueAV::mousePressEvent(QMouseEvent *) {
  accept();
}

void FrmVueAV::keyPressEvent(QKeyEvent *evenement) {
  const int touche = evenement->key();
  if (touche == Qt::Key_Return || touche == Qt::Key_Enter || touche == Qt::Key_Space)
    accept();
  else
    QDialog::keyPressEvent(evenement);
}
