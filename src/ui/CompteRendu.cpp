#include "ui/CompteRendu.h"

#include "ui/BarreBoutons.h"
#include "ui/EtiquetteLien.h"
#include "ui/Garde.h"
#include "ui/Theme.h"

#include <QAccessible>
#include <QAction>
#include <QFileInfo>
#include <QHBoxLayout>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

CompteRendu::Lien CompteRendu::AuDossier(const QString &fichier) {
  return {u"Ouvrir le dossier"_s, QFileInfo(fichier).absolutePath()};
}

CompteRendu::CompteRendu(QWidget *parent)
    : QWidget(parent), texte_(new EtiquetteElidee(this)), lien_(new EtiquetteLien(this)) {
  texte_->setObjectName(u"LblFait"_s);
  texte_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  lien_->setObjectName(u"LblLien"_s);
  lien_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  Colorer(lien_, palette().color(QPalette::Link));
  lien_->hide();
  constexpr int kEcart = 12;
  auto *rangee = new QHBoxLayout(this);
  rangee->setContentsMargins(0, 0, 0, 0);
  rangee->setSpacing(kEcart);
  rangee->addWidget(texte_);
  rangee->addWidget(lien_);
  rangee->addStretch();
}

void CompteRendu::Relier(const Plateforme &plateforme, QWidget &fenetre) {
  plateforme_ = &plateforme;
  connect(lien_, &QLabel::linkActivated, this, Garde(plateforme.boites, [this](const QString &) {
            plateforme_->coquille.Ouvrir(document_);
          }));
  for (const QAction *action : fenetre.findChildren<QAction *>())
    connect(action, &QAction::triggered, this, &CompteRendu::Effacer);
  for (const BarreBoutons *barre : fenetre.findChildren<BarreBoutons *>())
    connect(barre, &BarreBoutons::Lancee, this, &CompteRendu::Effacer);
}

void CompteRendu::Dire(const QString &texte, const Lien &lien) {
  texte_->setText(texte);
  lien_->setText(lien.texte);
  lien_->setVisible(!lien.texte.isEmpty());
  document_ = lien.document;
  duree_ = std::make_unique<QObject>();
  plateforme_->horloge.Apres(1min, duree_.get(), [this] { Effacer(); });
  QAccessibleEvent annonce(texte_, QAccessible::Alert);
  QAccessible::updateAccessibility(&annonce);
}

void CompteRendu::Effacer() {
  texte_->clear();
  lien_->clear();
  lien_->hide();
  duree_.reset();
}
