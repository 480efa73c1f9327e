#include "envelope/ZonesEnveloppe.h"

#include "directory/Protection.h"
#include "envelope/ExpediteurDefaut.h"
#include "envelope/VueEnveloppe.h"
#include "platform/PageDeCode.h"
#include "storage/Tables.h"
#include "ui/Alignement.h"
#include "ui/EtiquetteZone.h"

using namespace Qt::StringLiterals;

namespace {

const QString kAdresseBlanche = QString(85, u' ');

}  // namespace

void ZonesEnveloppe::Prendre(const EtatEnveloppe &etat) {
  const bool multiple = etat_.ImpressionMultiple;
  etat_ = etat;
  etat_.ImpressionMultiple = multiple;
  Cle cle = 0;
  Ignorer([&] { cle = CleExpediteur(etat.ExpediteurCourant, session_.base); });
  EcrireExpediteur(etat.ExpediteurCourant, cle);
}

void ZonesEnveloppe::EcrireAdresse(const AdresseComposee &adresse, Cle fiche) {
  adresse_ = adresse;
  if (AdresseVide(adresse.chaine))
    ViderAdresse();
  else
    MontrerLignes(MettreEnLignes(adresse, Role::Destinataire, session_.reglages));
  montree_.fiche = fiche;
}

void ZonesEnveloppe::Actualiser() {
  if (montree_.fiche == 0) return;
  const auto fiche = TableAdresse(session_.base).Lire(montree_.fiche);
  if (!fiche || !EstVisible(fiche->DataProt, session_.plateforme.utilisateur)) return;
  const AdresseComposee adresse = ComposerAdresse(AdresseSaisie::De(*fiche));
  if (adresse != adresse_) EcrireAdresse(adresse, montree_.fiche);
}

void ZonesEnveloppe::EcrireLignesAdresse(const LignesAdresse &lignes) {
  montree_.fiche = 0;
  MontrerLignes(lignes);
}

void ZonesEnveloppe::Remontrer(const AdresseMontree &montree) {
  MontrerLignes(montree.lignes);
  montree_.fiche = montree.fiche;
}

void ZonesEnveloppe::MontrerLignes(const LignesAdresse &lignes) {
  montree_.lignes = lignes;
  vue_->Adresse()->setText(lignes.texte);
  Disposer();
}

void ZonesEnveloppe::ViderAdresse() {
  EcrireLignesAdresse({kAdresseBlanche, false});
}

bool ZonesEnveloppe::EstVide() const {
  return montree_.lignes.texte.trimmed().isEmpty();
}

void ZonesEnveloppe::RetenirExpediteur(const AdresseComposee &expediteur, Cle cle) {
  etat_.ExpediteurCourant = expediteur;
  expediteur_ = cle;
}

void ZonesEnveloppe::EcrireExpediteur(const AdresseComposee &expediteur, Cle cle) {
  RetenirExpediteur(expediteur, cle);
  MontrerExpediteur(expediteur, cle);
}

void ZonesEnveloppe::SuivreExpediteur(const AdresseComposee &expediteur, Cle cle) {
  if (expediteur_ == cle) RetenirExpediteur(expediteur, cle);
  if (expediteurMontre_ == cle) MontrerExpediteur(expediteur, cle);
}

void ZonesEnveloppe::MontrerExpediteur(const AdresseComposee &expediteur, Cle cle) {
  const bool jamais = !session_.reglages.plomex.NePas.EstNul();
  vue_->Expediteur()->setText(
      jamais ? QString() : MettreEnLignes(expediteur, Role::Expediteur, session_.reglages).texte);
  expediteurMontre_ = jamais ? 0 : cle;
  Disposer();
}

void ZonesEnveloppe::ChargerExpediteur() {
  const auto defaut = LireExpediteurDefaut(session_.dossiers.AppPath, session_.base);
  if (!defaut) return;
  Cle cle = 0;
  Ignorer([&] { cle = CleExpediteur(*defaut, session_.base); });
  EcrireExpediteur(*defaut, cle);
}

void ZonesEnveloppe::Reprendre(const FichierSuivi *defaut) {
  // Before the rows are followed: one that was the default sender may have changed with the file.
  const bool remplace =
      defaut != nullptr && defaut->avant.value_or("\r\n").startsWith(
                               VersPageDeCode(etat_.ExpediteurCourant.chaine + u"\r\n"_s));
  Actualiser();
  for (const Cle cle : {expediteur_, expediteurMontre_}) {
    if (cle == 0) continue;
    const auto ligne = TableExpediteur(session_.base).Lire(cle);
    SuivreExpediteur(ligne ? ComposerAdresse(AdresseSaisie::De(*ligne)) : AdresseComposee(), cle);
  }
  if (!remplace) return;
  EcrireExpediteur({}, 0);
  ChargerExpediteur();
}

void ZonesEnveloppe::Reformater() {
  // One that was only kept in mind takes the zone now.
  if (session_.reglages.plomex.NePas || !etat_.ExpediteurCourant.chaine.isEmpty())
    MontrerExpediteur(etat_.ExpediteurCourant, expediteur_);
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
          .paysPresent = montree_.lignes.paysPresent};
}
