#include "DossierExemple.h"

#include "Correspondants.h"
#include "Portrait.h"
#include "Villes.h"
#include "envelope/ExpediteurDefaut.h"
#include "platform/Enregistrement.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"
#include "storage/Base.h"
#include "storage/Reglages.h"
#include "storage/Schema.h"
#include "storage/Tables.h"

#include <QBuffer>
#include <QDir>

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

void EcrireBase(const QString &chemin, const QDir &photos, std::uint32_t graine) {
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

void EcrireDossierExemple(const QString &dossier, std::uint32_t graine) {
  const QString appPath = QDir(dossier).absolutePath();
  const QString donnees = appPath + u"/Utilisateurs/Exemple/DataTrevona/DataVelmira"_s;
  const QString photos = appPath + u"/Photos"_s;
  if (appPath.contains(u'"') || DepuisPageDeCode(VersPageDeCode(appPath)) != appPath)
    throw ErreurFichier(
        u"Le nom du dossier « %1 » contient un caractère qui ne peut pas être enregistré."_s.arg(
            appPath));
  CreerDossier(donnees);
  CreerDossier(photos);
  EcrireBase(donnees + u"/Velmira.mdb"_s, QDir(photos), graine);
  EcrireDefaut(appPath);
  EcrireReglagesExemple(appPath);
  EcrireTextes(appPath + u"/Cheminbase.cfg"_s, {donnees});
  // Last: a folder with this file is a whole one.
  EcrireTextes(appPath + u"/CheminData.cfg"_s, {donnees});
}
