#include "directory/FicheAffichee.h"

#include "address/AdresseSaisie.h"
#include "address/MiseEnLignes.h"
#include "directory/Age.h"
#include "directory/FichierPhoto.h"
#include "directory/LibellesFiche.h"
#include "directory/PanneauFiche.h"
#include "storage/Tables.h"
#include "ui/Accord.h"
#include "ui/Alignement.h"
#include "ui/Sablier.h"

#include <QScopedValueRollback>

#include <utility>

using namespace Qt::StringLiterals;

FicheAffichee::FicheAffichee(Session &session, PanneauFiche &panneau)
    : session_(session), panneau_(panneau) {}

bool FicheAffichee::Montrer(Cle index) {
  const auto fiche = SousSablier([&] { return TableAdresse(session_.base).Lire(index); });
  if (!fiche) {
    Effacer();
    return false;
  }
  MontrerTextes(*fiche);
  MontrerPhoto(*fiche);
  return true;
}

std::optional<Correspondant> FicheAffichee::Relire() const {
  return TableAdresse(session_.base).Lire(Index());
}

void FicheAffichee::Actualiser(const Correspondant &fiche) {
  if (fiche == montree_) return;
  if (fiche.Photo != montree_.Photo && !panneau_.MontrerPhoto(fiche.Photo))
    panneau_.AnnoncerPhotoAbsente(fiche.Photo);
  MontrerTextes(fiche);
}

void FicheAffichee::MontrerTextes(Correspondant fiche) {
  const bool meme = Index() == fiche.Index;
  if (meme && NotesEnSuspens())
    fiche.Commentaires = montree_.Commentaires;  // what is being typed is held against these
  else if (!meme || fiche.Commentaires != montree_.Commentaires)
    panneau_.MontrerNotes(fiche.Commentaires);
  montree_ = std::move(fiche);
  adresse_ = ComposerAdresse(AdresseSaisie::De(montree_));
  QString lignes = MettreEnLignes(adresse_, Role::Destinataire, session_.reglages).texte;
  panneau_.Montrer(montree_,
                   {.age = LigneAge(montree_.DDN),
                    .adresse = lignes.replace(u'*', u'\n'),
                    .alignementAdresse = AlignementTexte(session_.reglages.plomex.AlignA)});
}

bool FicheAffichee::NotesEnSuspens() const {
  return Index() != 0 && panneau_.NotesModifiees();
}

bool FicheAffichee::PhotoOubliee(const QString &photo) const {
  // What is missing here may be there for another user of the same table.
  const Dossiers &dossiers = session_.dossiers;
  return dossiers.CheminBase == dossiers.CheminData && PhotoDisparue(photo);
}

void FicheAffichee::MontrerPhoto(const Correspondant &fiche) {
  if (panneau_.MontrerPhoto(fiche.Photo)) return;
  if (!PhotoOubliee(fiche.Photo)) {
    panneau_.AnnoncerPhotoAbsente(fiche.Photo);
    return;
  }
  Correspondant sansPhoto = fiche;
  sansPhoto.Photo = u""_s;
  SousSablier([&] { return TableAdresse(session_.base).Modifier(fiche, sansPhoto); });
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

bool FicheAffichee::EcrireNotes() {
  if (!NotesEnSuspens()) return true;
  Correspondant ecrite = montree_;
  ecrite.Commentaires = panneau_.Notes();
  const auto ecrire = [&](const Correspondant &montree, const Correspondant &saisie) {
    ecrite = saisie;
    return SousSablier([&] { return TableAdresse(session_.base).Modifier(montree, saisie); });
  };
  if (ecrite.Commentaires != montree_.Commentaires &&
      !EcrireEnAccord(session_.plateforme.boites, montree_, ecrite, LibellesFiche(), ecrire)) {
    panneau_.PrendreFocusNotes();
    return false;
  }
  montree_.Commentaires = ecrite.Commentaires;
  if (panneau_.Notes() == ecrite.Commentaires)
    panneau_.NotesPrises();
  else
    panneau_.MontrerNotes(ecrite.Commentaires);
  return true;
}

QString FicheAffichee::EchecNotes(const Erreur &erreur) const {
  return u"Les notes de « %1 » n'ont pas pu être enregistrées :\n%2\n\n"_s.arg(montree_.NomVelmira,
                                                                               erreur.Texte());
}

void FicheAffichee::NotesQuittees() {
  if (ecriture_) return;  // a box of the writing itself has taken the focus
  notesQuittees_ = true;
  // A box in the middle of a change of focus would eat the click that has made it.
  QMetaObject::invokeMethod(
      &panneau_, [this] { EcrireNotesQuittees(); }, Qt::QueuedConnection);
}

void FicheAffichee::EcrireNotesQuittees() {
  if (!notesQuittees_ || ecriture_) return;
  notesQuittees_ = false;
  const QScopedValueRollback ecriture(ecriture_, true);
  try {
    EcrireNotes();
  } catch (const Erreur &erreur) {
    session_.plateforme.boites.Erreur(
        EchecNotes(erreur) +
        u"Elles restent à l'écran : leur enregistrement sera tenté de nouveau dès que vous les "
        "quitterez."_s);
  }
}

bool FicheAffichee::LibererNotes() {
  notesQuittees_ = false;
  const QScopedValueRollback ecriture(ecriture_, true);
  try {
    return EcrireNotes();
  } catch (const Erreur &erreur) {
    if (session_.plateforme.boites.Question(
            Boites::Titre(),
            EchecNotes(erreur) + u"Voulez-vous y renoncer ? Sinon, elles restent à l'écran."_s,
            Boites::Reponse::Non) != Boites::Reponse::Oui)
      return false;
  }
  panneau_.MontrerNotes(montree_.Commentaires);
  return true;
}

void FicheAffichee::Effacer() {
  montree_ = {};
  adresse_ = {};
  panneau_.Vider();
}
