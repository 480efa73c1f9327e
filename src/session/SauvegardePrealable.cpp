#include "session/SauvegardePrealable.h"

#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "ui/Travail.h"

using namespace Qt::StringLiterals;

bool SauverAvant(const Session &session, QWidget *fenetre, MotifSauvegarde motif,
                 const QString &base) {
  if (!EstFichier(base)) return true;
  const LieuxSauvegardes lieux{base, LireDossierChoisi(session.dossiers.AppPath)};
  const QDateTime maintenant = session.plateforme.horloge.Maintenant();
  try {
    Travail(fenetre, u"Sauvegarde de la base de données"_s).Executer([&](const Avance &) {
      return Sauvegarder(lieux, maintenant, motif);
    });
    return true;
  } catch (const Erreur &erreur) {
    return session.plateforme.boites.Question(
               Boites::Titre(), erreur.Texte() + u"\n\nContinuer sans cette sauvegarde ?"_s,
               Boites::Reponse::Non) == Boites::Reponse::Oui;
  }
}

LieuxSauvegardes LesSauvegardes(const Session &session) {
  return {session.dossiers.Base(), LireDossierChoisi(session.dossiers.AppPath)};
}
