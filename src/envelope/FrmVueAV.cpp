#include "envelope/FrmVueAV.h"

#include "envelope/FormatsEnveloppe.h"
#include "ui/FeuilleEcran.h"
#include "ui/Theme.h"
#include "ui_FrmVueAV.h"

#include <QKeyEvent>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace {

// What a screen can hold of an envelope whose size was mistyped.
constexpr Millimetres kMinimum(10), kMaximum(5000);

// Place of the hint on the DL envelope; on another one it goes with the format.
constexpr Point kIndice{Millimetres(6), Millimetres(98)};

}  // namespace

FrmVueAV::FrmVueAV(Millimetres largeur, Millimetres hauteur, std::vector<LignePlacee> lignes)
    : ui_(std::make_unique<Ui::FrmVueAV>()) {
  ui_->setupUi(this);
  setProperty("enMillimetres", true);
  const QSizeF papier = QSizeF(std::clamp(largeur, kMinimum, kMaximum).valeur,
                               std::clamp(hauteur, kMinimum, kMaximum).valeur) /
                        kReductionApercu;
  const QSizeF ecran = screen()->availableSize() * 0.95;
  const double echelle = std::min({PixelsParMillimetre(*this), ecran.width() / papier.width(),
                                   ecran.height() / papier.height()});
  ui_->PctVA->Montrer(std::move(lignes), echelle);
  const QSizeF image = papier * echelle;
  Peindre(ui_->Etiquette_KV1, Qt::white, QColor(110, 110, 110));
  // A flat envelope would cut it.
  const double bas = image.height() - ui_->Etiquette_KV1->sizeHint().height();
  ui_->Etiquette_KV1->move(
      static_cast<int>(image.width() * (kIndice.x / kLongueurDL)),
      static_cast<int>(std::min(image.height() * (kIndice.y / kHauteurDL), bas)));
  setFixedSize(static_cast<int>(image.width()), static_cast<int>(image.height()));
}

FrmVueAV::~FrmVueAV() = default;

const std::vector<LignePlacee> &FrmVueAV::Lignes() const {
  return ui_->PctVA->Lignes();
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
