#include "ui/BarreBoutons.h"

#include "ui/Icones.h"

#include <QEvent>
#include <QHBoxLayout>
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

BarreBoutons::BarreBoutons(QWidget *parent) : QWidget(parent) {
  auto *rangee = new QHBoxLayout(this);
  rangee->setContentsMargins(0, 0, 0, 0);
  rangee->setSpacing(2);
}

void BarreBoutons::Remplir(const QString &nom, const QList<DescriptionBouton> &descriptions,
                           bool legendes) {
  constexpr int kIcone = 24, kIconeLegende = 22, kEcart = 12;
  auto *rangee = static_cast<QHBoxLayout *>(layout());
  for (const DescriptionBouton &description : descriptions) {
    const int index = static_cast<int>(boutons_.size());
    const QString texte = QString::fromUtf16(description.texte);
    QToolButton *bouton = legendes ? new BoutonLegende(this) : new QToolButton(this);
    bouton->setObjectName(nom + u'_' + QString::number(index));
    bouton->setIcon(Icone(description.icone));
    bouton->setIconSize(legendes ? QSize(kIconeLegende, kIconeLegende) : QSize(kIcone, kIcone));
    bouton->setText(legendes ? texte : texte.trimmed());
    bouton->setAccessibleName(texte.trimmed());
    bouton->setToolButtonStyle(legendes ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);
    bouton->setAutoRaise(true);
    bouton->setFocusPolicy(Qt::StrongFocus);
    bouton->setEnabled(description.actif);
    bouton->installEventFilter(this);
    connect(bouton, &QToolButton::clicked, this, [this, index] { emit Clique(index); });
    boutons_.append(bouton);
    rangee->addWidget(bouton);
    if (description.finDeGroupe) rangee->addSpacing(kEcart);
  }
  rangee->addStretch();
}

bool BarreBoutons::eventFilter(QObject *objet, QEvent *evenement) {
  switch (evenement->type()) {
    case QEvent::Enter:
    case QEvent::FocusIn:
      emit Survole(static_cast<int>(boutons_.indexOf(static_cast<QToolButton *>(objet))));
      break;
    case QEvent::Leave:
    case QEvent::FocusOut:
      emit Survole(-1);
      break;
    default:
      break;
  }
  return QWidget::eventFilter(objet, evenement);
}
