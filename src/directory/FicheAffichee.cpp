#include "directory/FicheAffichee.h"

#include "address/AdresseSaisie.h"
#include "address/MiseEnLignes.h"
#include "directory/Age.h"
#include "directory/PanneauFiche.h"
#include "storage/Tables.h"
#include "ui/Alignement.h"

using namespace Qt::StringLiterals;

FicheAffichee::FicheAffichee(Session &session, PanneauFiche &panneau)
    : session_(session), panneau_(panneau) {}

bool FicheAffichee::Montrer(Cle index) {
  const auto fiche = TableAdresse(session_.base).Lire(index);
  if (!fiche) {
    Effacer();
    session_.plateforme.boites.Information(TexteDisparu());
    return false;
  }
  IndexCourant = fiche->Index;
  adresse_ = ComposerAdresse(AdresseSaisie::De(*fiche));
  QString lignes = MettreEnLignes(adresse_, Role::Destinataire, session_.reglages).texte;
  panneau_.Montrer(*fiche, {.age = LigneAge(fiche->DDN),
                            .adresse = lignes.replace(u'*', u'\n'),
                            .alignementAdresse = AlignementTexte(session_.reglages.plomex.AlignA)});
  MontrerPhoto(*fiche);
  return true;
}

void FicheAffichee::MontrerPhoto(const Correspondant &fiche) {
  if (panneau_.MontrerPhoto(fiche.Photo)) return;
  TableAdresse(session_.base).EffacerPhoto(fiche.Index);
  session_.plateforme.boites.Information(
      u"Le chemin du fichier 'Photo' est incorrect, pensez à le modifier."_s);
}

QString FicheAffichee::LigneAge(const QString &ddn) const {
  switch (session_.reglages.rtcolor.AffichageNaissance) {
    case AffichageNaissance::Date:
      return ddn;
    case AffichageNaissance::Age:
      return TexteAge(ddn, session_.plateforme.horloge.Maintenant().date());
    default:
      return u""_s;
  }
}

void FicheAffichee::EnregistrerNotes() {
  if (IndexCourant == 0 || !panneau_.NotesModifiees()) return;
  panneau_.NotesPrises();
  TableAdresse(session_.base).EcrireCommentaires(IndexCourant, panneau_.Notes());
}

void FicheAffichee::Quitter() {
  EnregistrerNotes();
  Effacer();
}

void FicheAffichee::Effacer() {
  IndexCourant = 0;
  adresse_ = {};
  panneau_.Vider();
}
