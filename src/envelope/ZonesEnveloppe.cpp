#include "envelope/ZonesEnveloppe.h"

#include "address/MiseEnLignes.h"
#include "envelope/ExpediteurDefaut.h"
#include "envelope/VueEnveloppe.h"
#include "ui/Alignement.h"
#include "ui/EtiquetteZone.h"

using namespace Qt::StringLiterals;

namespace {

const QString kAdresseBlanche = QString(85, u' ');

}  // namespace

QString FormaterAdresse(const AdresseComposee &adresse, const ReglagesPlomex &plomex,
                        EtatEnveloppe &etat) {
  etat.OptionCPAdresse = adresse.optionCP;
  return MettreEnLignes(adresse.chaine, true, plomex, etat);
}

void ZonesEnveloppe::EcrireAdresse(const AdresseComposee &adresse) {
  session_.enveloppe.AdresseCourante = adresse.chaine;
  session_.enveloppe.OptionCPAdresse = adresse.optionCP;
  MontrerAdresse();
}

void ZonesEnveloppe::MontrerAdresse() {
  if (AdresseVide(session_.enveloppe.AdresseCourante))
    ViderAdresse();
  else
    EcrireLignesAdresse(Formatee(true));
}

void ZonesEnveloppe::EcrireLignesAdresse(const QString &lignes) {
  vue_->Adresse()->setText(lignes);
  Disposer();
}

void ZonesEnveloppe::ViderAdresse() {
  EcrireLignesAdresse(kAdresseBlanche);
}

void ZonesEnveloppe::EcrireExpediteur(const AdresseComposee &expediteur) {
  session_.enveloppe.ExpediteurCourant = expediteur.chaine;
  session_.enveloppe.OptionCPExpediteur = expediteur.optionCP;
  if (session_.reglages.plomex.NePas == 0) vue_->Expediteur()->setText(Formatee(false));
  Disposer();
}

void ZonesEnveloppe::ChargerExpediteur() {
  if (const auto defaut = LireExpediteurDefaut(session_.dossiers.AppPath, session_.base))
    EcrireExpediteur(*defaut);
}

void ZonesEnveloppe::Reformater() {
  if (session_.reglages.plomex.NePas == 1)
    vue_->Expediteur()->setText(u""_s);
  else if (!session_.enveloppe.ExpediteurCourant.isEmpty())
    vue_->Expediteur()->setText(Formatee(false));
  if (vue_->Adresse()->text() != kAdresseBlanche) vue_->Adresse()->setText(Formatee(true));
}

void ZonesEnveloppe::Disposer() {
  const ReglagesPlomex &plomex = session_.reglages.plomex;
  const EtatEnveloppe &etat = session_.enveloppe;
  Police policeAdresse = PoliceAdresse(plomex);
  if (vue_->Adresse()->text() == kAdresseBlanche) policeAdresse.nom = u"Arial"_s;
  vue_->Adresse()->ChangerPolice(policeAdresse);
  vue_->Adresse()->setAlignment(AlignementTexte(plomex.AlignA));
  vue_->Expediteur()->ChangerPolice(PoliceExpediteur(plomex));
  vue_->Expediteur()->setAlignment(AlignementTexte(plomex.AlignE));
  vue_->Disposer(Millimetres(static_cast<double>(etat.LargeurEnv)),
                 Millimetres(static_cast<double>(etat.HauteurEnv)), OrigineAdresse(plomex, etat),
                 OrigineExpediteur(plomex, etat));
}

ContenuEnveloppe ZonesEnveloppe::Contenu() const {
  return {.expediteur = vue_->Expediteur()->text(),
          .adresse = vue_->Adresse()->text(),
          .commentaire = CommentaireImprime(session_.reglages.rtcolor, session_.enveloppe)};
}

QString ZonesEnveloppe::Formatee(bool destinataire) {
  EtatEnveloppe &etat = session_.enveloppe;
  return MettreEnLignes(destinataire ? etat.AdresseCourante : etat.ExpediteurCourant, destinataire,
                        session_.reglages.plomex, etat);
}
