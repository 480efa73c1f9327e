#include "ui/BarreBoutons.h"

#include "ui/Garde.h"
#include "ui/Icones.h"

#include <QEvent>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>
#include <QStyleOptionToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Broken at the blank that leaves the shorter longest line, but not before a lone mark.
QString Coupee(const QString &texte) {
  QString meilleure = texte;
  qsizetype longueur = texte.size();
  for (qsizetype i = texte.indexOf(u' '); i >= 0; i = texte.indexOf(u' ', i + 1)) {
    const qsizetype plusLongue = std::max(i, texte.size() - i - 1);
    if (plusLongue >= longueur || texte.size() - i <= 2) continue;
    longueur = plusLongue;
    meilleure = texte.left(i) + u'\n' + texte.mid(i + 1);
  }
  return meilleure;
}

}  // namespace

/// A button that may have its caption below the icon, on two lines where it has several words.
class BoutonLegende : public QToolButton {
 public:
  BoutonLegende(const QString &legende, QWidget *parent)
      : QToolButton(parent), legende_(Coupee(legende)) {
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    setAutoRaise(true);  // the group has a ground
    Mesurer();
  }

  int Lignes() const { return static_cast<int>(legende_.count(u'\n')) + 1; }

  /// A line of its own below a single one keeps all icons of a bar at one height.
  void Etager(int lignes) {
    while (Lignes() < lignes) legende_ += u"\n "_s;
  }

  QSize Taille(bool legende) const {
    constexpr int kMarge = 5, kEcart = 4;
    const int largeur = legende ? largeur_ : 0;
    const int hauteur = legende ? Lignes() * fontMetrics().lineSpacing() + kEcart : 0;
    return {std::max(iconSize().width(), largeur) + 2 * kMarge,
            iconSize().height() + hauteur + 2 * kMarge};
  }

  QSize sizeHint() const override { return Taille(toolButtonStyle() != Qt::ToolButtonIconOnly); }

 protected:
  void initStyleOption(QStyleOptionToolButton *option) const override {
    QToolButton::initStyleOption(option);
    option->text = legende_;
  }

  void changeEvent(QEvent *evenement) override {
    QToolButton::changeEvent(evenement);
    if (evenement->type() == QEvent::FontChange) Mesurer();
  }

 private:
  void Mesurer() { largeur_ = fontMetrics().size(0, legende_).width(); }

  QString legende_;
  int largeur_ = 0;  ///< of the caption: the bar asks for it at each change
};

BarreBoutons::BarreBoutons(QWidget *parent) : QWidget(parent), rangee_(new QHBoxLayout(this)) {
  rangee_->setContentsMargins(0, 0, 0, 0);
  rangee_->setSpacing(2);
  rangee_->addStretch();
}

void BarreBoutons::Preparer(const Plateforme &plateforme, const QString &nom) {
  plateforme_ = &plateforme;
  nom_ = nom;
  groupes_.append(QList<BoutonLegende *>());
}

QToolButton *BarreBoutons::Ajouter(int numero, const CommandeBarre &commande) {
  constexpr int kIcone = 22;
  const QString nom = commande.texte.trimmed();
  auto *bouton = new BoutonLegende(commande.legende.isEmpty() ? nom : commande.legende, this);
  bouton->setObjectName(nom_ + u'_' + QString::number(numero));
  bouton->setIcon(Icone(commande.icone));
  bouton->setIconSize(QSize(kIcone, kIcone));
  bouton->setText(nom);
  bouton->setAccessibleName(nom);
  bouton->setFocusPolicy(Qt::StrongFocus);
  bouton->installEventFilter(this);
  const QString touche = commande.touche.toString(QKeySequence::NativeText);
  if (!commande.bulle.isEmpty())
    PoserBulle(bouton, plateforme_->horloge,
               {touche.isEmpty() ? commande.bulle : commande.bulle + u"\n(%1)"_s.arg(touche),
                commande.teinte});
  const auto executer = [this, bouton, faire = commande.executer] {
    clique_ = bouton;
    emit Survolee({});
    emit Lancee();
    faire();
  };
  connect(bouton, &QToolButton::clicked, this,
          Garde(plateforme_->boites, [executer](bool) { executer(); }));
  textes_.insert(bouton, commande.texte);
  groupes_.last().append(bouton);
  int lignes = 1;
  for (const auto &groupe : groupes_)
    for (const BoutonLegende *autre : groupe) lignes = std::max(lignes, autre->Lignes());
  for (const auto &groupe : groupes_)
    for (BoutonLegende *autre : groupe) autre->Etager(lignes);
  rangee_->insertWidget(Place(), bouton);
  return bouton;
}

void BarreBoutons::Separer() {
  constexpr int kEcart = 10;
  groupes_.append(QList<BoutonLegende *>());
  rangee_->insertSpacing(Place(), kEcart);
}

void BarreBoutons::Ecarter() {
  Separer();
  ecartee_ = true;
}

void BarreBoutons::Derouler(QMenu *menu) {
  menu->popup(clique_->mapToGlobal(QPoint(0, clique_->height())));
}

int BarreBoutons::Place() const {
  return rangee_->count() - (ecartee_ ? 0 : 1);  // before the stretch at the end
}

int BarreBoutons::Largeur(bool legendes) const {
  int largeur = rangee_->sizeHint().width();
  for (const auto &groupe : groupes_)
    for (const BoutonLegende *bouton : groupe)
      if (!bouton->isHidden())
        largeur += bouton->Taille(legendes).width() - bouton->sizeHint().width();
  return largeur;
}

QSize BarreBoutons::sizeHint() const {
  return {Largeur(true), rangee_->sizeHint().height()};
}

QSize BarreBoutons::minimumSizeHint() const {
  return {Largeur(false), rangee_->sizeHint().height()};
}

void BarreBoutons::ChoisirLegendes() {
  const bool legendes = width() >= Largeur(true);
  if (legendes == legendes_) return;
  legendes_ = legendes;
  for (const auto &groupe : groupes_)
    for (BoutonLegende *bouton : groupe)
      bouton->setToolButtonStyle(legendes ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);
  updateGeometry();
}

void BarreBoutons::resizeEvent(QResizeEvent *evenement) {
  QWidget::resizeEvent(evenement);
  ChoisirLegendes();
}

bool BarreBoutons::event(QEvent *evenement) {
  const bool traite = QWidget::event(evenement);
  if (evenement->type() == QEvent::LayoutRequest) {  // a button has come, gone or grown
    ChoisirLegendes();
    update();
  }
  return traite;
}

void BarreBoutons::paintEvent(QPaintEvent *) {
  constexpr int kCoin = 4;
  QPainter dessin(this);
  dessin.setRenderHint(QPainter::Antialiasing);
  dessin.setPen(Qt::NoPen);
  dessin.setBrush(palette().color(QPalette::Button));
  for (const auto &groupe : groupes_) {
    QRect place;
    for (const BoutonLegende *bouton : groupe)
      if (!bouton->isHidden()) place |= bouton->geometry();
    dessin.drawRoundedRect(place, kCoin, kCoin);
  }
}

bool BarreBoutons::eventFilter(QObject *objet, QEvent *evenement) {
  switch (evenement->type()) {
    case QEvent::FocusIn: {
      // It comes back with the window too, when the command is done.
      const auto raison = static_cast<const QFocusEvent *>(evenement)->reason();
      if (raison == Qt::TabFocusReason || raison == Qt::BacktabFocusReason)
        emit Survolee(textes_.value(objet));
      break;
    }
    case QEvent::Enter:
      emit Survolee(textes_.value(objet));
      break;
    case QEvent::Leave:
    case QEvent::FocusOut:
      emit Survolee({});
      break;
    default:
      break;
  }
  return QWidget::eventFilter(objet, evenement);
}
