#include "help/FrmAPROPOS.h"

#include "platform/Coquille.h"
#include "ui/EtiquetteLien.h"
#include "ui/Icones.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kBord = 4;  // pixels beside a link, so that it is not cut

}  // namespace

FrmAPROPOS::FrmAPROPOS(Coquille &coquille, QWidget *parent) : QDialog(parent), coquille_(coquille) {
  setObjectName(u"FrmAPROPOS"_s);
  setWindowTitle(u"À propos de Velmira"_s);
  auto *colonne = new QVBoxLayout(this);
  colonne->setContentsMargins(32, 24, 32, 20);
  colonne->setSpacing(8);
  colonne->setSizeConstraint(QLayout::SetFixedSize);

  constexpr int kIcone = 96;
  QLabel *icone = Texte(u"Img"_s, u""_s);
  icone->setPixmap(IconeProgramme().pixmap(kIcone));
  icone->setAccessibleName(u"Velmira"_s);
  QLabel *nom = Texte(u"LblNom"_s, u"VELMIRA"_s);
  QFont grand = nom->font();
  grand.setPointSizeF(grand.pointSizeF() * 2);
  grand.setBold(true);
  nom->setFont(grand);
  QLabel *licences = Texte(u"LblLicences"_s,
                           u"Velmira : licence MIT. Qt 6 : LGPL 3. libxlsxwriter : BSD. Icônes "
                           "Breeze : LGPL 3. Codes postaux : Licence Ouverte (Etalab)."_s);
  licences->setWordWrap(true);
  licences->setMinimumWidth(fontMetrics().averageCharWidth() * 52);

  const auto centrer = [colonne](QLabel *texte) { colonne->addWidget(texte, 0, Qt::AlignHCenter); };
  centrer(icone);
  centrer(nom);
  centrer(Texte(u"LblVersion"_s, u"Version "_s + QStringLiteral(VELMIRA_VERSION)));
  centrer(Texte(u"LblCredit"_s,
                u"Répertoire personnel et impression d'enveloppes,\n"
                "par les auteurs de Velmira."_s));
  colonne->addSpacing(8);
  centrer(
      Lien(u"LblSite"_s, u"https://velmira.example"_s, u"velmira.example"_s, u"Site de Velmira"_s));
  centrer(Lien(u"LblContact"_s, u"mailto:contact@velmira.example"_s, u"contact@velmira.example"_s,
               u"Écrire aux auteurs de Velmira"_s));
  colonne->addSpacing(8);
  colonne->addWidget(licences);
  colonne->addSpacing(8);

  auto *fermer = new QPushButton(u"&Fermer"_s, this);
  fermer->setObjectName(u"CmdFermer"_s);
  fermer->setDefault(true);
  fermer->setFocus();
  connect(fermer, &QPushButton::clicked, this, &QDialog::accept);
  colonne->addWidget(fermer, 0, Qt::AlignHCenter);
}

QLabel *FrmAPROPOS::Texte(const QString &nom, const QString &texte) {
  auto *etiquette = new QLabel(texte, this);
  etiquette->setObjectName(nom);
  etiquette->setAlignment(Qt::AlignCenter);
  return etiquette;
}

QLabel *FrmAPROPOS::Lien(const QString &nom, const QString &adresse, const QString &texte,
                         const QString &description) {
  auto *lien = new EtiquetteLien(this);
  lien->setObjectName(nom);
  lien->setText(texte);
  lien->setMinimumWidth(fontMetrics().horizontalAdvance(texte) + 2 * kBord);
  lien->setAccessibleName(description);
  QPalette couleurs = lien->palette();
  couleurs.setColor(QPalette::WindowText, couleurs.color(QPalette::Link));
  lien->setPalette(couleurs);
  connect(lien, &QLabel::linkActivated, this, [this, adresse] { coquille_.Ouvrir(adresse); });
  return lien;
}
