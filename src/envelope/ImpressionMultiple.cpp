#include "envelope/ImpressionMultiple.h"

#include "envelope/FrmEnCours.h"

#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

bool ImpressionMultiple::Imprimer(const SerieEnveloppes &serie) {
  QList<LignesAdresse> lignes;
  for (const AdresseComposee &adresse : serie.adresses)
    lignes.append(MettreEnLignes(adresse, Role::Destinataire, session_.reglages));
  const auto appareil = tirage_.Appareil();
  if (!appareil || !Confirmer(*appareil, serie)) return false;
  const bool ensemble = serie.dUnTrait || *appareil == Imprimante::NomPdf();
  imprimees_ = 0;
  const auto fin =
      ensemble ? ImprimerDUnTrait(*appareil, lignes) : ImprimerUneAUne(*appareil, lignes);
  if (fin) tirage_.Dire(*fin, imprimees_, serie.sansAdresse);
  return fin.has_value();
}

bool ImpressionMultiple::Confirmer(const QString &appareil, const SerieEnveloppes &serie) {
  constexpr qsizetype kCourte = 10;  // no loss when it was not meant
  const qsizetype nombre = serie.adresses.size();
  if (nombre <= kCourte && !serie.dUnTrait) return true;
  return session_.plateforme.boites.Question(
             Boites::Titre(), u"Imprimer %1 sur « %2 » ?"_s.arg(CombienDEnveloppes(nombre),
                                                                appareil)) == Boites::Reponse::Oui;
}

std::optional<FinImpression> ImpressionMultiple::ImprimerDUnTrait(
    const QString &appareil, const QList<LignesAdresse> &lignes) {
  std::vector<Pli> plis;
  for (const LignesAdresse &adresse : lignes) {
    zones_.EcrireLignesAdresse(adresse);
    plis.push_back(tirage_.Contenu());
    // A comment that is meant for one printing alone goes with the first.
    if (plis.size() > 1 && session_.reglages.rtcolor.AnnulerCommentaire)
      plis.back().contenu.commentaire = false;
  }
  imprimees_ = lignes.size();
  return Envoyer(appareil, plis);
}

std::optional<FinImpression> ImpressionMultiple::ImprimerUneAUne(
    const QString &appareil, const QList<LignesAdresse> &lignes) {
  FrmEnCours enCours(static_cast<int>(lignes.size()), fenetre_);
  enCours.show();
  std::optional<FinImpression> fin;
  for (const LignesAdresse &adresse : lignes) {
    enCours.Montrer(static_cast<int>(imprimees_) + 1);
    zones_.EcrireLignesAdresse(adresse);
    fenetre_->repaint();
    fin = Envoyer(appareil, {tirage_.Contenu()});
    if (!fin) {
      enCours.hide();
      if (imprimees_ > 0) DireArret(imprimees_, lignes.size());
      break;
    }
    ++imprimees_;
    session_.plateforme.horloge.Attendre(4000ms, [&enCours] { return enCours.Arrete(); });
    if (enCours.Arrete() && imprimees_ < lignes.size()) {
      enCours.hide();
      DireArret(imprimees_, lignes.size());
      break;
    }
  }
  return fin;
}

std::optional<FinImpression> ImpressionMultiple::Envoyer(const QString &appareil,
                                                         const std::vector<Pli> &plis) {
  const FinEnvoi fin = tirage_.Envoyer(appareil, {}, plis, tirage_.Devant());
  if (fin.EstFaite()) return fin.impression;
  tirage_.MontrerEchec(fin, appareil, plis.size() == 1);
  return std::nullopt;
}

void ImpressionMultiple::DireArret(qsizetype imprimees, qsizetype nombre) {
  session_.plateforme.boites.Information(
      u"Impression arrêtée : %1 enveloppe(s) imprimée(s) sur %2."_s.arg(imprimees).arg(nombre));
}
