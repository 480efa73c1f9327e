#include "alerts/Echeance.h"

#include "platform/Erreurs.h"
#include "platform/Saisie.h"

using namespace Qt::StringLiterals;

namespace {

int Jours(QDate depuis, QDate jusqua) {
  return static_cast<int>(depuis.daysTo(jusqua));
}

QDate DateDeCetteAnnee(QString date, QDate aujourdhui) {
  date.chop(4);
  return DateSaisie(date + aujourdhui.toString(u"yyyy"_s));
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
  if (!evenement.Actif || evenement.Date.isEmpty()) return {};
  const QDate date =
      evenement.Annuel ? DateDeCetteAnnee(evenement.Date, aujourdhui) : DateSaisie(evenement.Date);
  if (!date.isValid())
    throw Erreur(u"La date « %1 » d'une alerte n'existe pas%2."_s.arg(
        evenement.Date, evenement.Annuel ? u" en "_s + aujourdhui.toString(u"yyyy"_s) : u""_s));
  return evenement.Annuel ? EcheanceAnnuelle(date, evenement.Delai, aujourdhui)
                          : EcheancePonctuelle(date, evenement.Delai, aujourdhui);
}
