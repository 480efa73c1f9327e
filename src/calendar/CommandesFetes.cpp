#include "calendar/CommandesFetes.h"

#include "calendar/Fetes.h"
#include "calendar/JoursFeries.h"
#include "platform/Erreurs.h"
#include "platform/Saisie.h"
#include "ui/Brancheur.h"

using namespace Qt::StringLiterals;

namespace {

QString TexteDuJour(const JourFerie &jour, const QLocale &langue) {
  const QString texte = jour.date.toString(u"dd/MM"_s) + u"     "_s + jour.nom;
  return jour.fixe ? texte + u"   ("_s + langue.dayName(jour.date.dayOfWeek()) + u')' : texte;
}

}  // namespace

CommandesFetes::CommandesFetes(Session &session, QAction *mnuJF, QAction *mnuFete, QAction *mnuDate,
                               QObject *parent)
    : QObject(parent), session_(session) {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(mnuJF, &CommandesFetes::MontrerJoursFeries);
  brancher(mnuFete, &CommandesFetes::ChercherUnJour);
  brancher(mnuDate, &CommandesFetes::ChercherUnPrenom);
}

void CommandesFetes::MontrerJoursFeries() {
  Plateforme &plateforme = session_.plateforme;
  const QString annee = plateforme.boites
                            .Saisie(u"Jours fériés"_s, u"Pour l'année... yyyy ?"_s,
                                    QString::number(plateforme.horloge.Maintenant().date().year()))
                            .value_or(u""_s);
  if (annee.size() != 4) return;
  const QList<JourFerie> jours = JoursFeries(annee.toInt());
  if (jours.isEmpty()) throw Erreur(u"« %1 » n'est pas une année."_s.arg(annee));
  QString texte = u"Liste des 13 jours fériés de l'année "_s + annee + u" :\n\n"_s;
  for (const JourFerie &jour : jours) texte += TexteDuJour(jour, plateforme.langue) + u'\n';
  plateforme.boites.Information(texte + u'\n');
}

void CommandesFetes::ChercherUnJour() {
  Boites &boites = session_.plateforme.boites;
  const QString titreErreur = u"Erreur date"_s;
  const QString jjmm =
      boites.Saisie(u"Fête de ..."_s, u"\n\nQui fête -t- on ce jour ?... jjmm"_s, u""_s)
          .value_or(u""_s);
  if (jjmm.isEmpty()) return;
  if (jjmm.size() != 4) {
    boites.Message(Boites::Genre::Attention, titreErreur, u"Mauvais format de date ?"_s);
    return;
  }
  if (NombreSaisi(jjmm.left(2)) > 31 || NombreSaisi(jjmm.mid(2)) < 1) {
    boites.Message(Boites::Genre::Attention, titreErreur, u"Erreur dans l'écriture de la date ?"_s);
    return;
  }
  const auto saints = ChargerSaints(session_.dossiers.AppPath);
  if (!saints) return;
  const auto ligne = LigneDuJour(*saints, jjmm);
  if (!ligne) {
    boites.Message(Boites::Genre::Critique, titreErreur,
                   u"Erreur dans l'inscription de la date !"_s);
    return;
  }
  QString texte = u"Le "_s + jjmm.left(2) + u"  "_s + NomDuMois(ligne->mois.toInt()) +
                  u", on honore les :\n\n"_s;
  for (const QString &prenom : Prenoms(*ligne)) texte += prenom + u'\n';
  boites.Message(Boites::Genre::Information, u"Fête de ..."_s, texte);
}

void CommandesFetes::ChercherUnPrenom() {
  Boites &boites = session_.plateforme.boites;
  const QString prenom =
      boites
          .Saisie(u"Fête de ..."_s, u"\n\nPrénom pour lequel on recherche la date de fête"_s, u""_s)
          .value_or(u""_s)
          .trimmed();
  if (prenom.isEmpty()) return;
  const auto saints = ChargerSaints(session_.dossiers.AppPath);
  if (!saints) return;
  const auto fete = ChercherFete(*saints, prenom);
  if (!fete) {
    boites.Critique(u"Prénom inconnu dans la liste !"_s);
    return;
  }
  boites.Message(Boites::Genre::Simple, u"Prénoms usuels fêtés à la même date"_s,
                 SansPrefixes(fete->ligne.noms).toUpper());
  boites.Message(Boites::Genre::Information, u"DATE de FETE"_s,
                 u"Les  \""_s + fete->prenom.toUpper() +
                     u"\"  seront honoré(e)s le \n\n            "_s + fete->ligne.jour + u"  "_s +
                     NomDuMois(fete->ligne.mois.toInt()));
}
