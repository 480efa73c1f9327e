#include "envelope/ImpressionMultiple.h"

#include "envelope/FrmEnCours.h"

#include <QList>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

bool ImpressionMultiple::Imprimer(const QList<AdresseComposee> &adresses) {
  QList<LignesAdresse> lignes;
  for (const AdresseComposee &adresse : adresses)
    lignes.append(MettreEnLignes(adresse, Role::Destinataire, session_.reglages));
  FrmEnCours enCours(static_cast<int>(lignes.size()), fenetre_);
  enCours.show();
  for (int i = 0; i < lignes.size(); ++i) {
    enCours.Montrer(i + 1);
    zones_.EcrireLignesAdresse(lignes[i]);
    fenetre_->repaint();
    if (!imprimer_()) return false;
    session_.plateforme.horloge.Attendre(4000ms, [&enCours] { return enCours.Arrete(); });
    if (enCours.Arrete() && i + 1 < lignes.size()) {
      enCours.hide();
      session_.plateforme.boites.Information(
          u"Impression arrêtée : %1 enveloppe(s) imprimée(s) sur %2."_s.arg(i + 1).arg(
              lignes.size()));
      break;
    }
  }
  return true;
}
