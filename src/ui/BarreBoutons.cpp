#include "ui/BarreBoutons.h"

#include "ui/Icones.h"

#include <QEvent>
#include <QHBoxLayout>

using namespace Qt::StringLiterals;

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
    auto *bouton = new QToolButton(this);
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
