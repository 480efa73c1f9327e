#include "envelope/CommandesCommentaire.h"

#include "ui/Brancheur.h"
#include "ui/Theme.h"

#include <QAction>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

void Annoncer(QLabel *etiquette, const QString &texte, const QColor &fond) {
  Peindre(etiquette, fond);
  etiquette->setAutoFillBackground(true);
  etiquette->setText(texte);
  etiquette->adjustSize();
}

void AnnoncerAjoute(QLabel *etiquette) {
  Annoncer(etiquette, u"Commentaire ajouté"_s, QColor(192, 192, 192));
}

}  // namespace

CommandesCommentaire::CommandesCommentaire(Session &session, EtatEnveloppe &etat, QLabel *etiquette,
                                           const Actions &actions)
    : session_(session), etat_(etat), etiquette_(etiquette) {
  AnnoncerAjoute(etiquette_);
  actions.annuler->setChecked(session_.reglages.rtcolor.AnnulerCommentaire);
  actions.interdire->setChecked(session_.reglages.rtcolor.InterdireCommentaire);
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(actions.inserer, &CommandesCommentaire::Inserer);
  brancher(actions.effacer, &CommandesCommentaire::Effacer);
  brancher(actions.gras, [this](bool coche) { etat_.CommentaireGras = coche; });
  brancher(actions.souligne, [this](bool coche) { etat_.CommentaireSouligne = coche; });
  brancher(actions.annuler, [this](bool coche) {
    session_.reglages.rtcolor.AnnulerCommentaire = coche;
    EcrireRTColor(session_.dossiers.AppPath, session_.reglages.rtcolor);
  });
  brancher(actions.interdire, [this](bool coche) {
    session_.reglages.rtcolor.InterdireCommentaire = coche;
    EcrireRTColor(session_.dossiers.AppPath, session_.reglages.rtcolor);
  });
}

void CommandesCommentaire::Inserer() {
  QString &commentaire = etat_.Commentaire;
  Boites &boites = session_.plateforme.boites;
  const auto saisi =
      boites.Saisie(u"Commentaire"_s, u"Insérer un texte en haut et à droite de l'enveloppe"_s,
                    commentaire.isEmpty() ? u"Rendez-vous le "_s : commentaire);
  if (!saisi) return;
  commentaire = *saisi;
  boites.Information(
      u"Commentaire inséré en haut et à droite de l'enveloppe :\n"
      "      ____________________________________\n\n"_s +
      (commentaire.isEmpty() ? u"Aucun commentaire ne sera inscrit"_s
                             : u"\" "_s + commentaire + u'"'));
  MajEtiquette();
}

void CommandesCommentaire::Effacer() {
  Boites &boites = session_.plateforme.boites;
  if (etat_.Commentaire.isEmpty()) {
    boites.Information(u"Aucun commentaire n'est inscrit sur l'enveloppe."_s);
    return;
  }
  if (boites.Question(Boites::Titre(), u"Supprimer le commentaire ?"_s, Boites::Reponse::Non) !=
      Boites::Reponse::Oui)
    return;
  etat_.Commentaire.clear();
  AnnoncerSuppression();
}

void CommandesCommentaire::AnnoncerSuppression() {
  Annoncer(etiquette_, u"Commentaire supprimé !"_s, QColor(255, 0, 0));
  etiquette_->show();
  session_.plateforme.horloge.Pause(2000ms);
  AnnoncerAjoute(etiquette_);
  MajEtiquette();
}

void CommandesCommentaire::MajEtiquette() {
  // While a run is prepared the label tells whether the comment goes with it.
  const bool interdit = etat_.ImpressionMultiple && session_.reglages.rtcolor.InterdireCommentaire;
  etiquette_->setVisible(!etat_.Commentaire.isEmpty() && !interdit);
}
