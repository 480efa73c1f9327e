#include "alerts/Vigilance.h"

#include "calendar/Anniversaires.h"
#include "directory/Liste.h"
#include "directory/Protection.h"
#include "platform/Saisie.h"
#include "storage/EmplacementDonnees.h"
#include "storage/Noms.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

std::optional<int> AgeAu(QDate jour, const EvenementJoint &joint) {
  const QDate naissance = DateSaisie(joint.DDN);
  if (!joint.evenement.Age || !naissance.isValid()) return {};
  const int annees = jour.year() - naissance.year();
  const int age = DansLAnnee(naissance, jour.year()) > jour ? annees - 1 : annees;
  return age > 0 ? std::optional(age) : std::nullopt;
}

Alerte AlerteDe(const EvenementJoint &joint, QDate jour, QDate aujourdhui) {
  return {.evenement = joint.evenement.ID,
          .nom = joint.Nom,
          .type = joint.Type_alerte.trimmed(),
          .jour = jour,
          .dans = static_cast<int>(aujourdhui.daysTo(jour)),
          .age = AgeAu(jour, joint)};
}

template <typename Fonction>
void PourChaqueActif(const QList<PersonneEvenements> &personnes, Fonction &&f) {
  for (const PersonneEvenements &personne : personnes)
    for (const EvenementJoint &joint : personne.evenements)
      if (joint.evenement.Actif && !joint.evenement.Date.isEmpty()) f(joint);
}

void ParProximite(QList<Alerte> &alertes) {
  std::ranges::stable_sort(alertes, {}, [](const Alerte &a) { return std::abs(a.dans); });
}

std::optional<Alerte> Manquee(const EvenementJoint &joint, const MemoireAlertes &memoire,
                              QDate aujourdhui) {
  const QDate jour = DernierJour(joint.evenement, aujourdhui);
  if (!jour.isValid() || !memoire.Regarde().isValid() || jour <= memoire.Regarde() ||
      memoire.Dite(joint.evenement.ID, jour))
    return {};
  return AlerteDe(joint, jour, aujourdhui);
}

QString LigneDeListe(const QString &genre, const Alerte &alerte) {
  return QStringList{genre,
                     alerte.jour.toString(u"dd/MM/yyyy"_s),
                     TexteEcart(alerte.dans),
                     alerte.nom.simplified(),
                     alerte.type.simplified(),
                     TexteAgeAlerte(alerte)}
      .join(u'\t');
}

/// Why it is not the chosen one, in words.
QString Reserve(const EmplacementBase &emplacement) {
  if (emplacement.etat == EtatChemin::Inaccessible) return emplacement.raison;
  if (emplacement.etat != EtatChemin::NonTransfere && emplacement.etat != EtatChemin::Invalide)
    return {};
  return u"La base de données choisie n'a pas été trouvée. "
         "Ces alertes sont celles de la base située sur votre disque."_s;
}

/// Opens the database that a run of the program works with, where there is one; gives what is to be
/// said of the choice.
QString OuvrirBaseDuPoste(const QString &appPath, Base &base) {
  const auto cheminData = LireCheminData(appPath);
  if (!cheminData) return {};
  const EmplacementBase emplacement = TrouverBase(appPath, *cheminData);
  base.Ouvrir(FichierBase(emplacement.dossier));
  return Reserve(emplacement);
}

}  // namespace

QSet<QString> NomsCaches(const TableAdresse &table, const QString &utilisateur) {
  QSet<QString> caches, montres;
  table.PourChaque([&](EntreeListe &&entree) {
    (EstVisible(entree.DataProt, utilisateur) ? montres : caches)
        .insert(EnCapitales(entree.NomVelmira));
  });
  return caches - montres;
}

QList<PersonneEvenements> PersonnesVisibles(Base &base, const QString &utilisateur) {
  QList<PersonneEvenements> personnes = TablesAlertes(base).Personnes();
  const QSet<QString> caches = NomsCaches(TableAdresse(base), utilisateur);
  personnes.removeIf([&](const PersonneEvenements &personne) {
    return caches.contains(EnCapitales(personne.personne.Nom));
  });
  return personnes;
}

EvenementsLus LireEvenements(const QString &appPath, const QString &utilisateur) {
  Base base;
  const QString reserve = OuvrirBaseDuPoste(appPath, base);
  if (!base.Ouverte()) return {};
  return {base.Chemin(), PersonnesVisibles(base, utilisateur), reserve};
}

QString CibleDe(const QString &appPath, const QString &utilisateur, const QString &nom) {
  Base base;
  OuvrirBaseDuPoste(appPath, base);
  if (!base.Ouverte()) return nom;
  const QList<Cle> fiches = FichesNommees(TableAdresse(base), nom, utilisateur);
  return fiches.size() == 1 ? QString::number(fiches.constFirst()) : nom;
}

Vigilance Surveiller(const QList<PersonneEvenements> &personnes, const MemoireAlertes &memoire,
                     QDate aujourdhui) {
  Vigilance vigilance{.depuis = memoire.Regarde()};
  PourChaqueActif(personnes, [&](const EvenementJoint &joint) {
    if (const auto manquee = Manquee(joint, memoire, aujourdhui))
      vigilance.manquees.append(*manquee);
    const auto echeance = EcheanceDe(joint.evenement, aujourdhui);
    if (!echeance || !echeance->Due()) return;
    Alerte alerte = AlerteDe(joint, aujourdhui.addDays(echeance->EcartJours), aujourdhui);
    alerte.due = true;
    if (memoire.Vue(alerte.evenement, alerte.jour, aujourdhui))
      ++vigilance.vues;
    else
      vigilance.dues.append(alerte);
  });
  ParProximite(vigilance.dues);
  ParProximite(vigilance.manquees);
  return vigilance;
}

QList<Alerte> ProchainesAlertes(const QList<PersonneEvenements> &personnes, QDate aujourdhui,
                                int jours) {
  QList<Alerte> prochaines;
  PourChaqueActif(personnes, [&](const EvenementJoint &joint) {
    Evenement large = joint.evenement;
    large.Delai = std::max(jours, large.Delai);
    const auto echeance = EcheanceDe(large, aujourdhui);
    if (!echeance || !echeance->Due()) return;
    Alerte alerte = AlerteDe(joint, aujourdhui.addDays(echeance->EcartJours), aujourdhui);
    alerte.due = alerte.dans <= joint.evenement.Delai;
    if (alerte.due || alerte.dans <= jours) prochaines.append(alerte);
  });
  ParProximite(prochaines);
  return prochaines;
}

QString TexteVues(int vues) {
  if (vues == 0) return u""_s;
  return vues == 1
             ? u"Une alerte a déjà été vue ; vue à l'avance, elle reviendra le jour même."_s
             : u"%1 alertes ont déjà été vues ; celles qui l'ont été à l'avance reviendront le "
               "jour même."_s.arg(vues);
}

QString TexteEcart(int dans) {
  switch (dans) {
    case -1:
      return u"hier"_s;
    case 0:
      return u"aujourd'hui"_s;
    case 1:
      return u"demain"_s;
    default:
      return (dans < 0 ? u"il y a %1 jours"_s : u"dans %1 jours"_s).arg(std::abs(dans));
  }
}

QString TexteAgeAlerte(const Alerte &alerte) {
  if (!alerte.age) return u""_s;
  return QString::number(*alerte.age) + (*alerte.age == 1 ? u" an"_s : u" ans"_s);
}

QString LigneAlerte(const Alerte &alerte, const QLocale &langue) {
  const QString jour = alerte.dans == 0 || alerte.dans == 1
                           ? TexteEcart(alerte.dans)
                           : langue.dayName(alerte.jour.dayOfWeek(), QLocale::ShortFormat) + u' ' +
                                 alerte.jour.toString(u"dd/MM"_s);
  QStringList morceaux{jour, alerte.nom, alerte.type};
  if (alerte.age) morceaux.append(TexteAgeAlerte(alerte));
  return morceaux.join(u" · "_s);
}

QStringList LignesDeListe(const Vigilance &vigilance) {
  QStringList lignes;
  for (const Alerte &alerte : vigilance.dues) lignes.append(LigneDeListe(u"due"_s, alerte));
  for (const Alerte &alerte : vigilance.manquees) lignes.append(LigneDeListe(u"manquée"_s, alerte));
  return lignes;
}
