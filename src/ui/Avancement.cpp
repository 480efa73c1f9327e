#include "ui/Avancement.h"

#include <QCoreApplication>
#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kAttente = 500, kIntervalle = 100;  // milliseconds
constexpr int kPas = 1000, kLargeur = 320;           // of the bar

}  // namespace

Avancement::Avancement(QWidget *parent, const QString &titre, qsizetype total)
    : dialogue_(std::make_unique<QDialog>(parent)), barre_(new QProgressBar), total_(total) {
  dialogue_->setObjectName(u"FrmAvancement"_s);
  dialogue_->setWindowTitle(titre);
  dialogue_->setWindowModality(Qt::WindowModal);
  barre_->setRange(0, kPas);
  barre_->setMinimumWidth(kLargeur);
  auto *arreter = new QPushButton(u"Arrêter"_s);
  arreter->setObjectName(u"CmdArreter"_s);
  QObject::connect(arreter, &QPushButton::clicked, dialogue_.get(), &QDialog::reject);
  QObject::connect(dialogue_.get(), &QDialog::rejected, dialogue_.get(),
                   [this] { arrete_ = true; });
  auto *lignes = new QVBoxLayout(dialogue_.get());
  lignes->addWidget(new QLabel(titre));
  lignes->addWidget(barre_);
  lignes->addWidget(arreter, 0, Qt::AlignRight);
  debut_.start();
  derniere_.start();
}

Avancement::~Avancement() = default;

bool Avancement::Montrer(qsizetype fait) {
  if (arrete_ || derniere_.elapsed() < kIntervalle) return !arrete_;
  derniere_.restart();
  if (total_ > 0)
    barre_->setValue(
        static_cast<int>(static_cast<double>(fait) / static_cast<double>(total_) * kPas));
  const bool visible = dialogue_->isVisible() || debut_.elapsed() >= kAttente;
  if (visible) dialogue_->show();
  // Until the dialog stands before them, the other windows must take no input.
  QCoreApplication::processEvents(visible ? QEventLoop::AllEvents
                                          : QEventLoop::ExcludeUserInputEvents);
  return !arrete_;
}
