#include "envelope/ImpressionMultiple.h"

#include "envelope/BilanTirage.h"
#include "envelope/CadenceTirage.h"
#include "envelope/FrmEnCours.h"
#include "envelope/FrmReste.h"

#include <QScopeGuard>

#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Issue = FinEnvoi::Issue;

FrmReste::Suite Demander(const BilanTirage &bilan, bool gardable, QWidget *fenetre) {
  FrmReste dialogue(bilan, gardable, fenetre);
  dialogue.exec();
  return dialogue.Choix();
}

}  // namespace

bool ImpressionMultiple::Imprimer(const SerieEnveloppes &serie) {
  const auto appareil = tirage_.Appareil();
  if (!appareil || !Confirmer(*appareil, serie)) return false;
  EtatTirage etat;
  etat.titre = serie.titre;
  etat.base = session_.dossiers.Base();
  etat.appareil = *appareil;
  etat.debut = session_.plateforme.horloge.Maintenant();
  etat.dUnTrait = serie.dUnTrait;
  etat.enveloppe = zones_.Etat();
  etat.destinataires = serie.destinataires;
  etat.sansAdresse = serie.sansAdresse;
  SuiviTirage suivi(session_.dossiers.AppPath, std::move(etat));
  return Mener(suivi, *appareil);
}

bool ImpressionMultiple::Confirmer(const QString &appareil, const SerieEnveloppes &serie) {
  constexpr qsizetype kCourte = 10;  // no loss when it was not meant
  const qsizetype nombre = serie.destinataires.size();
  if (nombre <= kCourte && !serie.dUnTrait) return true;
  return session_.plateforme.boites.Question(
             Boites::Titre(), u"Imprimer %1 sur « %2 » ?"_s.arg(CombienDEnveloppes(nombre),
                                                                appareil)) == Boites::Reponse::Oui;
}

bool ImpressionMultiple::ConfirmerSuite(const QString &appareil, const EtatTirage &etat) {
  if (appareil == etat.appareil) return true;
  return session_.plateforme.boites.Question(
             Boites::Titre(),
             u"L'impression avait commencé sur « %1 ».\n\nImprimer la suite (%2) sur « %3 » ?"_s
                 .arg(etat.appareil, CombienDEnveloppes(etat.Restantes()), appareil)) ==
         Boites::Reponse::Oui;
}

std::unique_ptr<SuiviTirage> ImpressionMultiple::ChoisirReste() {
  while (auto suivi =
             SuiviTirage::Interrompu(session_.dossiers.AppPath, session_.dossiers.Base())) {
    EtatTirage etat = suivi->Etat();
    RelireRestants(etat, TableAdresse(session_.base), session_.plateforme.utilisateur);
    const FrmReste::Suite suite = Demander(DresserReste(etat), true, fenetre_);
    if (suite == FrmReste::Suite::Imprimer) {
      suivi->Noter(etat);
      return suivi;
    }
    if (suite == FrmReste::Suite::Garder && etat.Restantes() > 0) return nullptr;
    suivi->Oublier();
  }
  return nullptr;
}

bool ImpressionMultiple::Reprendre(SuiviTirage &suivi) {
  const auto appareil = tirage_.Appareil();
  if (!appareil || !ConfirmerSuite(*appareil, suivi.Etat())) return false;
  const auto rendre = qScopeGuard([this, avant = zones_.Etat()] { zones_.Prendre(avant); });
  zones_.Prendre(suivi.Etat().enveloppe);
  return Mener(suivi, *appareil);
}

bool ImpressionMultiple::Mener(SuiviTirage &suivi, QString appareil) {
  qsizetype ailleurs = 0;  // printed on another printer
  for (;;) {
    if (appareil != suivi.Etat().appareil) ailleurs = suivi.Etat().faites;
    const FinEnvoi fin = Tirer(suivi, appareil);
    const BilanTirage bilan = Dresser(suivi.Etat(), fin);
    if (fin.EstFaite())
      tirage_.Dire(fin.impression, suivi.Etat().faites - ailleurs, suivi.Etat().sansAdresse);
    else
      tirage_.DireArret(bilan.constat);
    if (bilan.EstEntier()) return true;
    for (std::optional<QString> encore; !encore; appareil = encore.value_or(appareil)) {
      const FrmReste::Suite suite = Demander(bilan, suivi.EstGarde(), fenetre_);
      if (suite == FrmReste::Suite::Oublier) suivi.Oublier();
      if (suite != FrmReste::Suite::Imprimer) return bilan.restantes == 0;
      encore = tirage_.Appareil();
    }
  }
}

FinEnvoi ImpressionMultiple::Tirer(SuiviTirage &suivi, const QString &appareil) {
  EtatTirage etat = suivi.Etat();
  etat.appareil = appareil;
  if (appareil != suivi.Etat().appareil) suivi.Noter(etat);
  return etat.EstUnDocument() ? TirerDUnTrait(suivi, appareil) : TirerUneAUne(suivi, appareil);
}

void ImpressionMultiple::Ecrire(const Destinataire &destinataire) {
  zones_.EcrireLignesAdresse(
      MettreEnLignes(destinataire.adresse, Role::Destinataire, session_.reglages));
}

FinEnvoi ImpressionMultiple::TirerDUnTrait(SuiviTirage &suivi, const QString &appareil) {
  const EtatTirage &etat = suivi.Etat();
  std::vector<Pli> plis;
  for (const Destinataire &destinataire : etat.destinataires.mid(etat.faites)) {
    Ecrire(destinataire);
    plis.push_back(tirage_.Contenu());
    // A comment that is meant for one printing alone goes with the first.
    if (plis.size() > 1 && session_.reglages.rtcolor.AnnulerCommentaire)
      plis.back().contenu.commentaire = false;
  }
  suivi.NoterIncertaine(appareil != Imprimante::NomPdf());
  const FinEnvoi fin = tirage_.Envoyer(appareil, etat.titre, plis, tirage_.Devant());
  if (fin.EstFaite())
    suivi.NoterFaites(etat.destinataires.size(), zones_.Etat());
  else
    suivi.NoterIncertaine(fin.issue == Issue::Incertaine);
  return fin;
}

FinEnvoi ImpressionMultiple::TirerUneAUne(SuiviTirage &suivi, const QString &appareil) {
  const EtatTirage &etat = suivi.Etat();
  const qsizetype nombre = etat.destinataires.size();
  Horloge &horloge = session_.plateforme.horloge;
  FrmEnCours enCours(horloge, static_cast<int>(nombre), fenetre_);
  const Travail devant([&enCours](TravailDeFond &fond) { enCours.Attendre(fond); });
  CadenceTirage cadence;
  for (;;) {
    const QDateTime debut = horloge.Maintenant();
    Ecrire(etat.destinataires[etat.faites]);
    enCours.Montrer(static_cast<int>(etat.faites) + 1, zones_.Contenu().adresse,
                    TexteReste(etat.Restantes() - 1, cadence.Pour(etat.Restantes())));
    enCours.show();
    fenetre_->repaint();
    suivi.NoterIncertaine(true);
    const FinEnvoi fin = tirage_.Envoyer(appareil, etat.titre, {tirage_.Contenu()}, devant);
    if (!fin.EstFaite()) {
      suivi.NoterIncertaine(fin.issue == Issue::Incertaine);
      return fin;
    }
    suivi.NoterFaites(etat.faites + 1, zones_.Etat());
    horloge.Attendre(4000ms, [&enCours] { return enCours.Arrete(); });
    if (etat.Restantes() == 0) return fin;
    cadence.Noter(std::chrono::milliseconds(debut.msecsTo(horloge.Maintenant())));
    if (!enCours.Continuer()) return {Issue::Arretee};
  }
}
