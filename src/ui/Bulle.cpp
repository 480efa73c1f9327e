#include "ui/Bulle.h"

#include "platform/Horloge.h"

#include <QEvent>
#include <QLabel>
#include <QScreen>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kHauteurLigneDessin = 13;  // pixels of a line at the design size
constexpr int kTexte = Qt::AlignCenter | Qt::TextWordWrap;

class Etiquette : public QLabel {
 public:
  Etiquette(QWidget *controle, const AspectBulle &aspect)
      : QLabel(controle, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput) {
    constexpr int kMarge = 6;
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setText(aspect.texte);
    setAutoFillBackground(true);
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(aspect.teinte.fond));
    palette.setColor(QPalette::WindowText, QColor(aspect.teinte.encre));
    setPalette(palette);
    setFrameShape(QFrame::Box);
    setMargin(kMarge);
    const int largeur = aspect.largeur * fontMetrics().height() / kHauteurLigneDessin;
    const QSize texte =
        fontMetrics().boundingRect(QRect(0, 0, largeur, 1), kTexte, aspect.texte).size();
    resize(texte + QSize(1, 0) + 2 * QSize(kMarge + frameWidth(), kMarge + frameWidth()));
  }
};

/// Below the control, or above it where the screen ends.
QPoint Place(const QWidget &controle, const QSize &taille) {
  constexpr int kEcart = 4;
  const QRect ecran = controle.screen()->availableGeometry();
  const QPoint haut = controle.mapToGlobal(QPoint(0, 0));
  int y = haut.y() + controle.height() + kEcart;
  if (y + taille.height() > ecran.bottom()) y = haut.y() - kEcart - taille.height();
  const int milieu = haut.x() + (controle.width() - taille.width()) / 2;
  const int droite = std::max(ecran.left(), ecran.right() - taille.width());
  return {std::clamp(milieu, ecran.left(), droite), y};
}

}  // namespace

Bulle::Bulle(QWidget *controle, Horloge &horloge, AspectBulle aspect)
    : QObject(controle), controle_(controle), horloge_(horloge), aspect_(std::move(aspect)) {
  controle->installEventFilter(this);
}

Bulle::~Bulle() = default;

bool Bulle::eventFilter(QObject *objet, QEvent *evenement) {
  switch (evenement->type()) {
    case QEvent::Enter:
      if (!passee_) Attendre();
      break;
    case QEvent::Leave:
    case QEvent::Hide:
      passee_ = false;
      Cacher();
      break;
    case QEvent::MouseButtonPress:
    case QEvent::WindowDeactivate:
      Cacher();
      break;
    case QEvent::ToolTip:  // the toolkit's own would lie over it
      return true;
    default:
      break;
  }
  return QObject::eventFilter(objet, evenement);
}

void Bulle::Attendre() {
  Cacher();
  attente_ = std::make_unique<QObject>();
  horloge_.Apres(200ms, attente_.get(), [this] { Montrer(); });
}

void Bulle::Montrer() {
  etiquette_ = std::make_unique<Etiquette>(controle_, aspect_);
  etiquette_->move(Place(*controle_, etiquette_->size()));
  etiquette_->show();
  horloge_.Apres(5000ms, attente_.get(), [this] {
    passee_ = true;
    Cacher();
  });
}

void Bulle::Cacher() {
  etiquette_.reset();
  attente_.reset();
}

void PoserBulle(QWidget *controle, Horloge &horloge, const AspectBulle &aspect) {
  delete controle->findChild<Bulle *>(QString(), Qt::FindDirectChildrenOnly);
  new Bulle(controle, horloge, aspect);
}
