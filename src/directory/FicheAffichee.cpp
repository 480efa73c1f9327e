#include "directory/FicheAffichee.h"

#include "address/AdresseSaisie.h"
#include "address/MiseEnLignes.h"
#include "address/NomsProposes.h"
#include "address/Titres.h"
#include "calendar/Anniversaires.h"
#include "calendar/Fetes.h"
#include "directory/Age.h"
#include "directory/FichierPhoto.h"
#include "directory/LibellesFiche.h"
#include "directory/PanneauFiche.h"
#include "platform/Erreurs.h"
#include "platform/Saisie.h"
#include "storage/Historique.h"
#include "storage/Tables.h"
#include "ui/Accord.h"
#include "ui/Alignement.h"
#include "ui/Sablier.h"

#include <QScopedValueRollback>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr Cle kAucuneTable = -1;  ///< of a record that no table holds

}  // namespace

FicheAffichee::FicheAffichee(Session &session, PanneauFiche &panneau)
    : session_(session), panneau_(panneau) {
  Ignorer(
      [&] { saints_ = ChargerSaints(session.dossiers.AppPath).value_or(QList<LigneSaints>()); });
}

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

void FicheAffichee::Apercevoir(Correspondant fiche, const std::optional<QByteArray> &photo) {
  montree_ = {};
  fiche.Index = kAucuneTable;
  const bool lue = photo ? panneau_.MontrerPhoto(*photo) : panneau_.MontrerPhoto(fiche.Photo);
  if (!lue) panneau_.MontrerPhoto(QString());
  MontrerTextes(std::move(fiche));
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
                    .avenir = LigneAVenir(montree_.DDN),
                    .fete = LigneFete(montree_),
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

QString FicheAffichee::LigneAVenir(const QString &ddn) const {
  const auto anniversaire =
      ProchainAnniversaire(ddn, session_.plateforme.horloge.Maintenant().date());
  const bool montre = NaissanceMontree(session_.reglages.rtcolor.AffichageNaissance);
  return montre && anniversaire ? TexteAVenir(*anniversaire, session_.plateforme.langue) : u""_s;
}

QString FicheAffichee::LigneFete(const Correspondant &fiche) const {
  const QStringList titres = TitresLus(session_.dossiers.AppPath);
  const QString prenom =
      PrenomCertain(fiche.NomVelmira, fiche.Ligne1, DateSaisie(fiche.DDN).isValid(), titres);
  const auto fete = prenom.isEmpty() ? std::nullopt : ChercherFete(saints_, prenom);
  if (!fete) return u""_s;
  const QDate jour = session_.plateforme.horloge.Maintenant().date();
  const QDate leur(2000, fete->ligne.mois.toInt(), fete->ligne.jour.toInt());
  if (!leur.isValid()) return u""_s;
  const bool aujourdhui = leur.month() == jour.month() && leur.day() == jour.day();
  return aujourdhui ? u"Fête aujourd'hui"_s
                    : u"Fête le "_s + JourEnLettres(leur, session_.plateforme.langue);
}

bool FicheAffichee::EcrireNotes() {
  if (!NotesEnSuspens()) return true;
  Correspondant ecrite = montree_;
  ecrite.Commentaires = panneau_.Notes();
  const auto ecrire = [&](const Correspondant &montree, const Correspondant &saisie) {
    ecrite = saisie;
    return SousSablier([&] { return TableAdresse(session_.base).Modifier(montree, saisie); });
  };
  const Acte acte(session_.base, u"notes de « %1 »"_s.arg(montree_.NomVelmira));
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
