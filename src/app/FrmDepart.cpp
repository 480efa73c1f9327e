#include "app/FrmDepart.h"

#include "ui/Icones.h"
#include "ui/Theme.h"
#include "ui_FrmDepart.h"

#include <QLayout>
#include <QLinearGradient>
#include <QPainter>
#include <QScreen>

using namespace Qt::StringLiterals;

FrmDepart::FrmDepart()
    : QWidget(nullptr, Qt::SplashScreen), ui_(std::make_unique<Ui::FrmDepart>()) {
  ui_->setupUi(this);
  Colorer(this, Qt::white);
  QFont titre(u"Arial"_s);
  titre.setPixelSize(40);
  titre.setBold(true);
  titre.setLetterSpacing(QFont::AbsoluteSpacing, 6);
  ui_->Label1->setFont(titre);
  ui_->Image1->setPixmap(IconeProgramme().pixmap(64, 64));
  move(screen()->availableGeometry().center() - QPoint(width(), height()) / 2);
  ui_->LblversionVelmira->setText(u"[Version "_s + QStringLiteral(VELMIRA_VERSION) + u']');
}

FrmDepart::~FrmDepart() = default;

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
