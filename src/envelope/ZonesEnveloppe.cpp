#include "envelope/ZonesEnveloppe.h"

#include "directory/Protection.h"
#include "envelope/ExpediteurDefaut.h"
#include "envelope/VueEnveloppe.h"
#include "storage/Tables.h"
#include "ui/Alignement.h"
#include "ui/EtiquetteZone.h"

using namespace Qt::StringLiterals;

namespace {

const QString kAdresseBlanche = QString(85, u' ');

}  // namespace

void ZonesEnveloppe::EcrireAdresse(const AdresseComposee &adresse, Cle fiche) {
  adresse_ = adresse;
  if (AdresseVide(adresse.chaine))
    ViderAdresse();
  else
    MontrerLignes(MettreEnLignes(adresse, Role::Destinataire, session_.reglages));
  fiche_ = fiche;
}

void ZonesEnveloppe::Actualiser() {
  if (fiche_ == 0) return;
  const auto fiche = TableAdresse(session_.base).Lire(fiche_);
  if (!fiche || !EstVisible(fiche->DataProt, session_.plateforme.utilisateur)) return;
  const AdresseComposee adresse = ComposerAdresse(AdresseSaisie::De(*fiche));
  if (adresse != adresse_) EcrireAdresse(adresse, fiche_);
}

void ZonesEnveloppe::EcrireLignesAdresse(const LignesAdresse &lignes) {
  fiche_ = 0;
  MontrerLignes(lignes);
}

void ZonesEnveloppe::MontrerLignes(const LignesAdresse &lignes) {
  vue_->Adresse()->setText(lignes.texte);
  paysPresent_ = lignes.paysPresent;
  Disposer();
}

void ZonesEnveloppe::ViderAdresse() {
  EcrireLignesAdresse({kAdresseBlanche, false});
}

void ZonesEnveloppe::EcrireExpediteur(const AdresseComposee &expediteur) {
  etat_.ExpediteurCourant = expediteur;
  if (session_.reglages.plomex.NePas.EstNul()) MontrerExpediteur();
  Disposer();
}

void ZonesEnveloppe::MontrerExpediteur() {
  vue_->Expediteur()->setText(
      MettreEnLignes(etat_.ExpediteurCourant, Role::Expediteur, session_.reglages).texte);
}

void ZonesEnveloppe::ChargerExpediteur() {
  if (const auto defaut = LireExpediteurDefaut(session_.dossiers.AppPath, session_.base))
    EcrireExpediteur(*defaut);
}

void ZonesEnveloppe::Reformater() {
  if (session_.reglages.plomex.NePas)
    vue_->Expediteur()->setText(u""_s);
  else if (!etat_.ExpediteurCourant.chaine.isEmpty())
    MontrerExpediteur();
  if (vue_->Adresse()->text() != kAdresseBlanche)
    MontrerLignes(MettreEnLignes(adresse_, Role::Destinataire, session_.reglages));
}

void ZonesEnveloppe::Disposer() {
  const ReglagesPlomex &plomex = session_.reglages.plomex;
  Police policeAdresse = PoliceAdresse(plomex);
  if (vue_->Adresse()->text() == kAdresseBlanche) policeAdresse.nom = u"Arial"_s;
  vue_->Adresse()->ChangerPolice(policeAdresse);
  vue_->Adresse()->setAlignment(AlignementTexte(plomex.AlignA));
  vue_->Expediteur()->ChangerPolice(PoliceExpediteur(plomex));
  vue_->Expediteur()->setAlignment(AlignementTexte(plomex.AlignE));
  vue_->Disposer(etat_.LargeurEnv, etat_.HauteurEnv, OrigineAdresse(plomex, etat_),
                 OrigineExpediteur(plomex, etat_));
}

ContenuEnveloppe ZonesEnveloppe::Contenu() const {
  return {.expediteur = vue_->Expediteur()->text(),
          .adresse = vue_->Adresse()->text(),
          .commentaire = CommentaireImprime(session_.reglages.rtcolor, etat_),
          .paysPresent = paysPresent_};
}
