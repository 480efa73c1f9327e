#include "ui/BarreBoutons.h"

#include "ui/Garde.h"
#include "ui/Icones.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QStyleOptionToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A button with its text below the icon, on two lines where it has several words.
class BoutonLegende : public QToolButton {
 public:
  using QToolButton::QToolButton;

  QSize sizeHint() const override {
    constexpr int kMarge = 5, kEcart = 4;
    const QSize legende = fontMetrics().size(0, Legende());
    return {std::max(iconSize().width(), legende.width()) + 2 * kMarge,
            iconSize().height() + 2 * fontMetrics().lineSpacing() + kEcart + 2 * kMarge};
  }

 protected:
  void initStyleOption(QStyleOptionToolButton *option) const override {
    QToolButton::initStyleOption(option);
    option->text = Legende();
  }

 private:
  /// Broken at the blank that leaves the shorter longest line, but not before a lone mark; a line
  /// of its own below a single one keeps all icons at one height.
  QString Legende() const {
    QString meilleure = text() + u"\n "_s;
    qsizetype longueur = text().contains(u' ') ? text().size() : 0;
    for (qsizetype i = text().indexOf(u' '); i >= 0; i = text().indexOf(u' ', i + 1)) {
      const qsizetype plusLongue = std::max(i, text().size() - i - 1);
      if (plusLongue >= longueur || text().size() - i <= 2) continue;
      longueur = plusLongue;
      meilleure = text().left(i) + u'\n' + text().mid(i + 1);
    }
    return meilleure;
  }
};

}  // namespace

BarreBoutons::BarreBoutons(QWidget *parent) : QWidget(parent), rangee_(new QHBoxLayout(this)) {
  rangee_->setContentsMargins(0, 0, 0, 0);
  rangee_->setSpacing(2);
  rangee_->addStretch();
}

void BarreBoutons::Preparer(const Plateforme &plateforme, const QString &nom, bool legendes) {
  plateforme_ = &plateforme;
  nom_ = nom;
  legendes_ = legendes;
}

QToolButton *BarreBoutons::Ajouter(const CommandeBarre &commande) {
  constexpr int kIcone = 24, kIconeLegende = 22;
  const QString nom = commande.texte.trimmed();
  QToolButton *bouton = legendes_ ? new BoutonLegende(this) : new QToolButton(this);
  bouton->setObjectName(nom_ + u'_' + QString::number(textes_.size()));
  bouton->setIcon(Icone(commande.icone));
  bouton->setIconSize(legendes_ ? QSize(kIconeLegende, kIconeLegende) : QSize(kIcone, kIcone));
  bouton->setText(nom);
  bouton->setAccessibleName(nom);
  bouton->setToolButtonStyle(legendes_ ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);
  // A lone icon is drawn for the theme's buttons, and may stand on a panel of any colour.
  bouton->setAutoRaise(legendes_);
  bouton->setFocusPolicy(Qt::StrongFocus);
  bouton->setShortcut(commande.raccourci);
  bouton->installEventFilter(this);
  if (!commande.bulle.isEmpty())
    PoserBulle(bouton, plateforme_->horloge, {commande.bulle, commande.teinte});
  const auto executer = [this, bouton, faire = commande.executer] {
    clique_ = bouton;
    faire();
  };
  connect(bouton, &QToolButton::clicked, this,
          Garde(plateforme_->boites, [executer](bool) { executer(); }));
  textes_.insert(bouton, commande.texte);
  rangee_->insertWidget(rangee_->count() - 1, bouton);
  return bouton;
}

void BarreBoutons::Separer() {
  constexpr int kEcart = 12;
  rangee_->insertSpacing(rangee_->count() - 1, kEcart);
}

void BarreBoutons::Derouler(QMenu *menu) {
  menu->popup(clique_->mapToGlobal(QPoint(0, clique_->height())));
}

bool BarreBoutons::eventFilter(QObject *objet, QEvent *evenement) {
  switch (evenement->type()) {
    case QEvent::Enter:
    case QEvent::FocusIn:
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
