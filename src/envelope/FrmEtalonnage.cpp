#include "envelope/FrmEtalonnage.h"

#include "envelope/Envoi.h"
#include "envelope/PageEtalon.h"
#include "envelope/VueCroix.h"
#include "platform/Saisie.h"
#include "ui/Abandon.h"
#include "ui/Brancheur.h"
#include "ui/SelectionAuFocus.h"
#include "ui/Travail.h"
#include "ui_FrmEtalonnage.h"

#include <QLineEdit>
#include <QScopeGuard>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString Texte(Millimetres longueur) {
  return QString::number(longueur.valeur, 'f', 1).replace(u'.', u',');
}

Millimetres Valeur(const QLineEdit *champ) {
  return Millimetres(NombreSaisi(champ->text()));
}

}  // namespace

FrmEtalonnage::FrmEtalonnage(Plateforme &plateforme, Imprimantes &imprimantes, QString appareil,
                             const Papier &papier, QWidget *parent)
    : QDialog(parent),
      plateforme_(plateforme),
      imprimantes_(imprimantes),
      ui_(std::make_unique<Ui::FrmEtalonnage>()),
      appareil_(std::move(appareil)),
      papier_(papier),
      voulue_(EtalonVoulu(papier.page)) {
  ui_->setupUi(this);
  ui_->LblQuoi->setText(u"« %1 », %2"_s.arg(appareil_, papier_.Nom()));
  const auto regle = [](Millimetres longueur) { return QString::number(longueur.valeur); };
  ui_->LblRegleX->setText(ui_->LblRegleX->text().arg(regle(voulue_.regleX)));
  ui_->LblRegleY->setText(ui_->LblRegleY->text().arg(regle(voulue_.regleY)));
  // The list goes on the upright A4 sheet.
  ui_->ChkListe->setVisible(!papier_.enveloppe && papier_.tour == Tour::Aucun);
  MontrerListe();

  for (QLineEdit *champ : {ui_->TxtCroixX, ui_->TxtCroixY, ui_->TxtRegleX, ui_->TxtRegleY})
    new SelectionAuFocus(champ);
  for (const QLineEdit *champ : {ui_->TxtCroixX, ui_->TxtCroixY})
    connect(champ, &QLineEdit::textChanged, this,
            [this] { ui_->Vue->Montrer(Mesuree().croix - voulue_.croix); });
  connect(ui_->Vue, &VueCroix::Deplacee, this, [this](Point ecart) {
    const Point croix = voulue_.croix + ecart;
    for (const auto &[champ, place] :
         {std::pair(ui_->TxtCroixX, croix.x), {ui_->TxtCroixY, croix.y}}) {
      champ->setText(Texte(place));
      champ->setModified(true);
    }
  });
  const Brancheur brancher(plateforme_.boites, this);
  brancher(ui_->CmdPage, &FrmEtalonnage::Imprimer);
  brancher(ui_->CmdEnregistrer, &FrmEtalonnage::Enregistrer);
  brancher(ui_->CmdReinit, &FrmEtalonnage::Reinitialiser);
  brancher(ui_->ChkListe, [this](bool corriger) {
    const auto montrer = qScopeGuard([this] { MontrerListe(); });  // as it is kept
    imprimantes_.CorrigerListe(appareil_, corriger);
  });
  connect(ui_->CmdFermer, &QPushButton::clicked, this, &FrmEtalonnage::reject);
  MontrerVoulue();
  MontrerCorrection();
  ui_->LblFait->clear();
  ui_->CmdPage->setFocus();
}

FrmEtalonnage::~FrmEtalonnage() = default;

void FrmEtalonnage::reject() {
  if (PeutAbandonner(plateforme_.boites, *this)) QDialog::reject();
}

Correction FrmEtalonnage::EnVigueur() const {
  return imprimantes_.CorrectionDe(appareil_, papier_);
}

MesureEtalon FrmEtalonnage::Mesuree() const {
  return {{Valeur(ui_->TxtCroixX), Valeur(ui_->TxtCroixY)},
          Valeur(ui_->TxtRegleX),
          Valeur(ui_->TxtRegleY)};
}

void FrmEtalonnage::MontrerVoulue() {
  ui_->TxtCroixX->setText(Texte(voulue_.croix.x));
  ui_->TxtCroixY->setText(Texte(voulue_.croix.y));
  ui_->TxtRegleX->setText(Texte(voulue_.regleX));
  ui_->TxtRegleY->setText(Texte(voulue_.regleY));
}

void FrmEtalonnage::MontrerCorrection() {
  const QString texte = TexteCorrection(EnVigueur(), papier_.page);
  ui_->LblCorrection->setText(u"Correction en vigueur : "_s +
                              (texte.isEmpty() ? u"aucune"_s : texte));
  ui_->CmdReinit->setEnabled(!texte.isEmpty());
}

void FrmEtalonnage::MontrerListe() {
  ui_->ChkListe->setChecked(imprimantes_.CorrigeListe(appareil_));
}

void FrmEtalonnage::PermettreMesures(bool permettre) {
  ui_->CadreMesures->setEnabled(permettre);
  ui_->CmdEnregistrer->setEnabled(permettre);
  (permettre ? ui_->TxtCroixX : static_cast<QWidget *>(ui_->CmdPage))->setFocus();
}

void FrmEtalonnage::Imprimer() {
  ui_->LblFait->setText(u"La page n'a pas pu être imprimée."_s);
  const auto fin =
      Travail(this, u"Impression"_s)
          .ExecuterOuLaisser(
              plateforme_.abandons,
              [&imprimante = plateforme_.imprimante, appareil = appareil_, papier = papier_,
               correction = EnVigueur()](const Avance &, const std::stop_token &arret) {
                return ImprimerEtalon(imprimante, appareil, papier, correction, arret);
              });
  const bool incertaine = !fin || fin->issue == FinImpression::Issue::Incertaine;
  const bool echouee = fin && fin->issue == FinImpression::Issue::Echouee;
  if (incertaine)
    ui_->LblFait->setText(TexteSansReponse(appareil_));
  else if (!echouee)
    ui_->LblFait->setText(u"La page est envoyée"_s +
                          (fin->envoi.isEmpty() ? u"."_s : u" : %1."_s.arg(fin->envoi)));
  if (!echouee) PermettreMesures(true);
  if (fin && !fin->raison.isEmpty()) plateforme_.boites.Attention(fin->raison);
}

void FrmEtalonnage::Enregistrer() {
  const MesureEtalon mesuree = Mesuree();
  if (!EstPlausible(voulue_, mesuree)) {
    plateforme_.boites.Information(
        u"Valeur non conforme !\n\nLa croix est attendue à %1 mm du bord gauche et à "
        "%2 mm du bord haut, et les règles à peu près à leur longueur."_s.arg(
            Texte(voulue_.croix.x), Texte(voulue_.croix.y)));
    ui_->TxtCroixX->setFocus();
    return;
  }
  if (mesuree == voulue_) {
    ui_->LblFait->setText(
        u"Rien à corriger : la croix est à sa place et les règles ont leur longueur."_s);
    return;
  }
  imprimantes_.Garder(appareil_, papier_, Corriger(EnVigueur(), voulue_, mesuree));
  MontrerVoulue();
  MontrerCorrection();
  PermettreMesures(false);
  ui_->LblFait->setText(
      u"La correction est enregistrée. Imprimez la page à nouveau : la croix doit être en place."_s);
}

void FrmEtalonnage::Reinitialiser() {
  if (plateforme_.boites.Question(
          Boites::Titre(), u"Retirer la correction de « %1 » pour ce papier ?"_s.arg(appareil_),
          Boites::Reponse::Non) != Boites::Reponse::Oui)
    return;
  imprimantes_.Garder(appareil_, papier_, {});
  MontrerVoulue();
  MontrerCorrection();
  PermettreMesures(false);
  ui_->LblFait->setText(u"La correction est retirée."_s);
}
