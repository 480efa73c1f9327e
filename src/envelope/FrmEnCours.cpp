#include "envelope/FrmEnCours.h"

#include "ui/EchelleProgramme.h"
#include "ui/Montrable.h"
#include "ui/TravailDeFond.h"
#include "ui_FrmEnCours.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kSilence = 3s;  // what a printer may well take

QString TextePause() {
  return u"Pause après celle-ci..."_s;
}

}  // namespace

FrmEnCours::FrmEnCours(Horloge &horloge, int nombre, QWidget *parent)
    : QDialog(parent), horloge_(horloge), nombre_(nombre), ui_(std::make_unique<Ui::FrmEnCours>()) {
  constexpr int kLargeur = 56, kLignes = 8;  // in letters, in lines
  ui_->setupUi(this);
  ui_->LblAdresse->setMinimumSize(fontMetrics().averageCharWidth() * kLargeur,
                                  fontMetrics().lineSpacing() * kLignes);
  GarderTaille(ui_->LblAdresse);
  ui_->PrgEnCours->setRange(0, nombre);
  ui_->LblSilence->hide();
  ui_->CmdAbandonner->hide();
  connect(ui_->CmdPause, &QPushButton::clicked, this, &FrmEnCours::Interrompre);
  connect(ui_->CmdArreter, &QPushButton::clicked, this, &FrmEnCours::reject);
}

FrmEnCours::~FrmEnCours() = default;

void FrmEnCours::Montrer(int rang, const QString &adresse, const QString &reste) {
  constexpr qsizetype kLignes = 10, kCaracteres = 100;  // more never fits on an envelope
  ui_->LblEnCours->setText(u"Enveloppe %1 sur %2"_s.arg(rang).arg(nombre_));
  ui_->LblAdresse->setText(LignesMontrables(adresse, kLignes, kCaracteres).join(u'\n'));
  reste_ = reste;
  ui_->LblReste->setText(enPause_ ? TextePause() : reste);
  ui_->PrgEnCours->setValue(rang);
}

void FrmEnCours::Attendre(TravailDeFond &fond) {
  QObject attente;
  horloge_.Apres(kSilence, &attente, [this] {
    ui_->LblSilence->show();
    ui_->CmdAbandonner->show();
  });
  connect(ui_->CmdAbandonner, &QPushButton::clicked, &attente, [&] {
    ui_->CmdAbandonner->setEnabled(false);
    fond.Abandonner();
  });
  fond.Attendre(QEventLoop::AllEvents);
  ui_->LblSilence->hide();
  ui_->CmdAbandonner->hide();
}

bool FrmEnCours::Continuer() {
  if (enPause_ && !arrete_) {
    ui_->LblReste->setText(u"En pause."_s);
    horloge_.AttendreQue([this] { return !enPause_ || arrete_; });
  }
  return !enPause_ && !arrete_;
}

void FrmEnCours::Interrompre() {
  enPause_ = !enPause_;
  ui_->CmdPause->setText(enPause_ ? u"&Continuer"_s : u"&Pause"_s);
  ui_->LblReste->setText(enPause_ ? TextePause() : reste_);
}

void FrmEnCours::reject() {
  arrete_ = true;
  ui_->CmdPause->setEnabled(false);
  ui_->CmdArreter->setEnabled(false);
  ui_->CmdArreter->setText(u"Arrêt après celle-ci..."_s);
}
