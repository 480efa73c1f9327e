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
  texte_->CouperA(Qt::ElideMiddle);  // what was done stands before a name or behind it
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
            const Lien suite = suite_;  // what it does may end the line
            if (suite.commande)
              suite.commande();
            else
              plateforme_->coquille.Ouvrir(suite.document);
          }));
  for (const QAction *action : fenetre.findChildren<QAction *>())
    connect(action, &QAction::triggered, this, &CompteRendu::Effacer);
  for (const BarreBoutons *barre : fenetre.findChildren<BarreBoutons *>())
    connect(barre, &BarreBoutons::Lancee, this, &CompteRendu::Effacer);
}

void CompteRendu::Nommer(const QString &texte, const QString &lien) {
  texte_->setObjectName(texte);
  lien_->setObjectName(lien);
}

void CompteRendu::Dire(const QString &texte, const Lien &lien, std::chrono::milliseconds duree) {
  texte_->setText(texte);
  lien_->setText(lien.texte);
  lien_->setVisible(!lien.texte.isEmpty());
  suite_ = lien;
  duree_ = std::make_unique<QObject>();
  plateforme_->horloge.Apres(duree, duree_.get(), [this] { Effacer(); });
  emit Dit(true);
  QAccessibleEvent annonce(texte_, QAccessible::Alert);
  QAccessible::updateAccessibility(&annonce);
}

void CompteRendu::Effacer() {
  texte_->clear();
  lien_->clear();
  lien_->hide();
  duree_.reset();
  emit Dit(false);
}
