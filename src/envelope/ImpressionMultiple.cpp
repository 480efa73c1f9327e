#include "envelope/ImpressionMultiple.h"

#include "envelope/FrmEnCours.h"

#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

bool ImpressionMultiple::Imprimer(const QList<AdresseComposee> &adresses) {
  QList<LignesAdresse> lignes;
  for (const AdresseComposee &adresse : adresses)
    lignes.append(MettreEnLignes(adresse, Role::Destinataire, session_.reglages));
  const auto appareil = tirage_.Appareil();
  if (!appareil) return false;
  return *appareil == Imprimante::NomPdf() ? Enregistrer(lignes)
                                           : ImprimerUneAUne(*appareil, lignes);
}

bool ImpressionMultiple::Enregistrer(const QList<LignesAdresse> &lignes) {
  std::vector<Pli> plis;
  for (const LignesAdresse &adresse : lignes) {
    zones_.EcrireLignesAdresse(adresse);
    plis.push_back(tirage_.Contenu());
    // A comment that is meant for one printing alone goes with the first.
    if (plis.size() > 1 && session_.reglages.rtcolor.AnnulerCommentaire)
      plis.back().contenu.commentaire = false;
  }
  return tirage_.Imprimer(Imprimante::NomPdf(), plis);
}

bool ImpressionMultiple::ImprimerUneAUne(const QString &appareil,
                                         const QList<LignesAdresse> &lignes) {
  FrmEnCours enCours(static_cast<int>(lignes.size()), fenetre_);
  enCours.show();
  for (int i = 0; i < lignes.size(); ++i) {
    enCours.Montrer(i + 1);
    zones_.EcrireLignesAdresse(lignes[i]);
    fenetre_->repaint();
    if (!tirage_.Imprimer(appareil, {tirage_.Contenu()})) {
      enCours.hide();
      if (i > 0) DireArret(i, lignes.size());
      return false;
    }
    session_.plateforme.horloge.Attendre(4000ms, [&enCours] { return enCours.Arrete(); });
    if (enCours.Arrete() && i + 1 < lignes.size()) {
      enCours.hide();
      DireArret(i + 1, lignes.size());
      break;
    }
  }
  return true;
}

void ImpressionMultiple::DireArret(qsizetype imprimees, qsizetype nombre) {
  session_.plateforme.boites.Information(
      u"Impression arrêtée : %1 enveloppe(s) imprimée(s) sur %2."_s.arg(imprimees).arg(nombre));
}
