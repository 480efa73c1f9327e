#include "app/FrmDepart.h"

#include "ui/Grandir.h"
#include "ui/Icones.h"
#include "ui/Theme.h"
#include "ui_FrmDepart.h"

#include <QEvent>
#include <QLayout>
#include <QLinearGradient>
#include <QPainter>
#include <QScreen>

using namespace Qt::StringLiterals;

FrmDepart::FrmDepart()
    : QWidget(nullptr, Qt::SplashScreen), ui_(std::make_unique<Ui::FrmDepart>()) {
  ui_->setupUi(this);
  Colorer(this, Qt::white);
  PoserIcone(ui_->Image1, IconeProgramme(), 64);
  MettreTitre();
  ui_->LblversionVelmira->setText(u"[Version "_s + QStringLiteral(VELMIRA_VERSION) + u']');
}

FrmDepart::~FrmDepart() = default;

void FrmDepart::MettreTitre() {
  Grandir(ui_->Label1, 3.3, true);
  QFont titre = ui_->Label1->font();
  titre.setFamily(u"Arial"_s);
  titre.setLetterSpacing(QFont::PercentageSpacing, 120);
  ui_->Label1->setFont(titre);
}

void FrmDepart::changeEvent(QEvent *evenement) {
  QWidget::changeEvent(evenement);
  if (evenement->type() == QEvent::FontChange) MettreTitre();
}

void FrmDepart::resizeEvent(QResizeEvent *evenement) {
  QWidget::resizeEvent(evenement);
  move(screen()->availableGeometry().center() - rect().center());
}

void FrmDepart::AnnoncerFermeture() {
  Annoncer(u"Fermeture de Velmira..."_s);
}

void FrmDepart::Annoncer(const QString &texte) {
  ui_->LblName->setText(texte);
  layout()->activate();
  repaint();
}

void FrmDepart::paintEvent(QPaintEvent *) {
  QPainter dessin(this);
  QLinearGradient fond(0, 0, 0, height());
  fond.setColorAt(0, QColor(20, 70, 100));
  fond.setColorAt(1, QColor(48, 126, 173));
  dessin.fillRect(rect(), fond);
}
