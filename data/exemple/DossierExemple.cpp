#include "DossierExemple.h"

#include "Correspondants.h"
#include "Portrait.h"
#include "Villes.h"
#include "alerts/MemoireAlertes.h"
#include "envelope/ExpediteurDefaut.h"
#include "platform/Enregistrement.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"
#include "platform/Saisie.h"
#include "storage/Base.h"
#include "storage/Reglages.h"
#include "storage/Schema.h"
#include "storage/Tables.h"
#include "storage/TablesAlertes.h"

#include <QBuffer>
#include <QDir>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// A null text would hide a record or be shown as missing: an example row has empty ones.
template <typename L>
Cle AjouterSansNul(Base &base, L ligne) {
  const auto remplir = [](auto &champ) {
    if constexpr (std::is_same_v<std::remove_reference_t<decltype(champ)>, QString>)
      if (champ.isNull()) champ = u""_s;
  };
  std::apply([&](const auto &...colonne) { (remplir(ligne.*colonne.champ), ...); },
             Table<L>::colonnes);
  return AjouterLigne(base, ligne);
}

void EcrireTextes(const QString &chemin, const QStringList &textes) {
  RedacteurEnregistrement redacteur;
  for (const QString &texte : textes) redacteur.Ecrire(texte);
  RemplacerFichier(chemin, redacteur.Octets());
}

std::array<Expediteur, 3> Expediteurs() {
  std::array<Expediteur, 3> tous;
  auto &[maison, club, gite] = tous;
  maison.Ligne1 = u"Mme Camille Exemple"_s;
  maison.Ligne2 = u"8 impasse des Glycines"_s;
  maison.CodePostal = u"44100"_s;
  maison.Ville = u"Nantes"_s;
  maison.ParDefaut = true;

  club.Ligne1 = u"Les Randonneurs du Canal"_s;
  club.Ligne2 = u"Camille Exemple, secrétaire"_s;
  club.Ligne3 = u"2 quai des Platanes"_s;
  club.CodePostal = u"44000"_s;
  club.Ville = u"Nantes"_s;

  gite.Ligne1 = u"Gîte des Trois Chênes"_s;
  gite.Ligne2 = u"14 chemin de la Fontaine"_s;
  gite.CodePostal = u"22100"_s;
  gite.Ville = u"Dinan"_s;

  for (Expediteur &expediteur : tous) expediteur.OptionAdresse = u"0"_s;
  return tous;
}

void AjouterVille(Base &base, const VilleExemple &ville) {
  for (const QString &code : QString::fromUtf16(ville.codes).split(u' ')) {
    VilleCode ligne;
    ligne.CodePostal = code;
    ligne.Ville = QString::fromUtf16(ville.nom);
    AjouterSansNul(base, ligne);
  }
}

QString EcrirePortrait(const QDir &photos, const Invente &invente, Hasard &hasard) {
  const QString chemin = photos.filePath(SansAccents(invente.ligne.NomVelmira) + u".png"_s);
  QByteArray octets;
  QBuffer tampon(&octets);
  tampon.open(QIODevice::WriteOnly);
  if (!DessinerPortrait(invente.initiales, invente.femme, hasard).save(&tampon, "PNG"))
    throw ErreurFichier(u"L'image « %1 » n'a pas pu être écrite."_s.arg(chemin));
  RemplacerFichier(chemin, octets);
  return chemin;
}

/// Events of people of the directory: some today, some soon, one that was missed.
void AjouterEvenements(Base &base, QDate aujourdhui) {
  TablesAlertes tables(base);
  tables.AjouterTypesUsuels();
  tables.Importer();
  const QList<TypeAlerte> types = tables.Types();
  const QList<PersonneEvenements> personnes = tables.Personnes();
  const auto ajouter = [&](qsizetype personne, const QString &type, QDate date,
                           Evenement evenement) {
    evenement.Nom = personnes[personne].personne.ID;
    evenement.Alerte = std::ranges::find(types, type, &TypeAlerte::Type_alerte)->ID;
    evenement.Date = date.toString(u"dd/MM/yyyy"_s);
    evenement.Actif = true;
    tables.AjouterEvenement(evenement);
  };
  const auto unique = [](int delai) { return Evenement{.Date = {}, .Delai = delai}; };
  const auto annuel = [](int delai, bool age = false) {
    return Evenement{.Date = {}, .Annuel = true, .Age = age, .Delai = delai};
  };
  ajouter(3, u"Rendez-vous"_s, aujourdhui, unique(2));
  ajouter(8, u"Mariage"_s, aujourdhui.addYears(-10), annuel(5));
  ajouter(14, u"Réunion"_s, aujourdhui.addDays(3), unique(7));
  ajouter(20, u"Échéance"_s, aujourdhui.addDays(12), unique(15));
  ajouter(26, u"Fête"_s, aujourdhui.addDays(-4), annuel(2));
  constexpr qsizetype kAnniversaires = 40;
  for (qsizetype i = 0; i < std::min(kAnniversaires, personnes.size()); ++i)
    if (const QDate naissance = DateSaisie(personnes[i].personne.DDN); naissance.isValid())
      ajouter(i, u"Anniversaire"_s, naissance, annuel(7, true));
}

/// It was looked at a week ago.
void EcrireMemoire(const QString &appPath, const Poste &poste, const QString &base) {
  MemoireAlertes memoire(appPath, base, poste.utilisateur);
  memoire.NoterRegard(poste.aujourdhui.addDays(-7));
  memoire.Ecrire();
}

void EcrireBase(const QString &chemin, const QDir &photos, std::uint32_t graine, QDate aujourdhui) {
  Hasard hasard(graine);
  // The pictures have a chance of their own: a stroke more must not change who is in the directory.
  Hasard hasardPortraits(graine + 1);
  CreerBaseVide(chemin);
  Base base;
  base.Ouvrir(chemin);
  Transaction transaction(base);
  for (Invente &invente : InventerCorrespondants(hasard)) {
    if (!invente.initiales.isEmpty())
      invente.ligne.Photo = EcrirePortrait(photos, invente, hasardPortraits);
    AjouterSansNul(base, invente.ligne);
  }
  for (const Expediteur &expediteur : Expediteurs()) AjouterSansNul(base, expediteur);
  for (const VilleExemple &ville : kVilles) AjouterVille(base, ville);
  transaction.Valider();
  TableVille(base).Relier();
  AjouterEvenements(base, aujourdhui);
}

void EcrireDefaut(const QString &appPath) {
  for (const Expediteur &e : Expediteurs())
    if (e.ParDefaut) EcrireExpediteurDefaut(appPath, ComposerAdresse(AdresseSaisie::De(e)));
}

void EcrireReglagesExemple(const QString &appPath) {
  ReglagesPlomex plomex;
  plomex.Imprimante = u"PDF"_s;
  plomex.Orientation = OrientationFeuille::Paysage;
  plomex.BordImprime = BordImprime::Gauche;
  plomex.PositionEnveloppe = PositionEnveloppe::Milieu;
  plomex.PoliceA = plomex.PoliceE = u"Arial"_s;
  plomex.TailleA = 12;
  plomex.TailleE = 9;
  plomex.MargeHaute = plomex.MargeDroite = Millimetres(5);
  plomex.Raccourci = 116;  // F5
  plomex.GrasDLigne = true;
  EcrireReglages(appPath, plomex);

  Reglages livres;  // what lies in the folder already
  LireReglages(appPath, livres);
  livres.rtcolor.NomPerso = u"Camille Exemple"_s;
  EcrireRTColor(appPath, livres.rtcolor);

  EcrireTextes(appPath + u"/Liaison.cfg"_s, {u" "_s, u" - "_s});
}

}  // namespace

void EcrireDossierExemple(const QString &dossier, std::uint32_t graine, const Poste &poste) {
  const QString appPath = QDir(dossier).absolutePath();
  const QString donnees = appPath + u"/Utilisateurs/Exemple/DataTrevona/DataVelmira"_s;
  const QString photos = appPath + u"/Photos"_s;
  if (appPath.contains(u'"') || DepuisPageDeCode(VersPageDeCode(appPath)) != appPath)
    throw ErreurFichier(
        u"Le nom du dossier « %1 » contient un caractère qui ne peut pas être enregistré."_s.arg(
            appPath));
  CreerDossier(donnees);
  CreerDossier(photos);
  EcrireBase(donnees + u"/Velmira.mdb"_s, QDir(photos), graine, poste.aujourdhui);
  EcrireMemoire(appPath, poste, donnees + u"/Velmira.mdb"_s);
  EcrireDefaut(appPath);
  EcrireReglagesExemple(appPath);
  EcrireTextes(appPath + u"/Cheminbase.cfg"_s, {donnees});
  // Last: a folder with this file is a whole one.
  EcrireTextes(appPath + u"/CheminData.cfg"_s, {donnees});
}
