#include "alerts/Echeance.h"

#include "calendar/Anniversaires.h"
#include "platform/Saisie.h"

using namespace Qt::StringLiterals;

namespace {

int Jours(QDate depuis, QDate jusqua) {
  return static_cast<int>(depuis.daysTo(jusqua));
}

QDate DateDeLAnnee(QString date, int annee) {
  date.chop(4);
  return DansLAnnee(DateSaisie(date + u"2000"_s), annee);  // a year with all days
}

}  // namespace

Echeance EcheancePonctuelle(QDate evenement, int delai, QDate aujourdhui) {
  return {delai, evenement.addDays(-qint64(delai)), Jours(aujourdhui, evenement)};
}

Echeance EcheanceAnnuelle(QDate evenement, int delai, QDate aujourdhui) {
  Echeance echeance = EcheancePonctuelle(evenement, delai, aujourdhui);
  const QDate nouvelAn(aujourdhui.year(), 1, 1);
  if (echeance.DebutAlerte >= nouvelAn) return echeance;

  const int duNouvelAn = Jours(nouvelAn, evenement);
  const int auNouvelAn = Jours(aujourdhui, QDate(aujourdhui.year() + 1, 1, 1));
  const bool debutDAnnee = auNouvelAn >= 365 - delai && auNouvelAn <= 366;
  if (!debutDAnnee) echeance.EcartJours = duNouvelAn + auNouvelAn;
  return echeance;
}

std::optional<Echeance> EcheanceDe(const Evenement &evenement, QDate aujourdhui) {
  const QDate date = evenement.Annuel ? DateDeLAnnee(evenement.Date, aujourdhui.year())
                                      : DateSaisie(evenement.Date);
  if (!date.isValid()) return {};
  return evenement.Annuel ? EcheanceAnnuelle(date, evenement.Delai, aujourdhui)
                          : EcheancePonctuelle(date, evenement.Delai, aujourdhui);
}

QDate DernierJour(const Evenement &evenement, QDate aujourdhui) {
  if (!evenement.Annuel) {
    const QDate jour = DateSaisie(evenement.Date);
    return jour < aujourdhui ? jour : QDate();
  }
  const QDate jour = DateDeLAnnee(evenement.Date, aujourdhui.year());
  return jour < aujourdhui ? jour : DateDeLAnnee(evenement.Date, aujourdhui.year() - 1);
}

BilanAlertes ChercherAlertes(const QList<PersonneEvenements> &personnes, QDate aujourdhui) {
  BilanAlertes bilan;
  for (const PersonneEvenements &personne : personnes)
    for (const EvenementJoint &joint : personne.evenements) {
      if (!joint.evenement.Actif || joint.evenement.Date.isEmpty()) continue;
      const auto echeance = EcheanceDe(joint.evenement, aujourdhui);
      if (!echeance)
        bilan.sansDate.append(joint);
      else
        bilan.due |= echeance->Due();
    }
  return bilan;
}
