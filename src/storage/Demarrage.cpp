#include "storage/Demarrage.h"

#include "platform/Enregistrement.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

bool EstDossier(const QString &chemin) {
  return !chemin.isEmpty() && QFileInfo(chemin).isDir();
}
bool EstFichier(const QString &chemin) {
  return QFileInfo(chemin).isFile();
}

std::optional<QString> LireChemin(const QString &fichier) {
  const auto octets = LireFichier(fichier);
  if (!octets) return std::nullopt;
  QString chemin;
  LecteurEnregistrement(*octets).Lire(chemin);
  return chemin;
}

/// A record holds neither a double quote nor a character outside the code page.
bool EstEnregistrable(const QString &chemin) {
  return !chemin.contains(u'"') && DepuisPageDeCode(VersPageDeCode(chemin)) == chemin;
}

}  // namespace

QString SelRepertoire(Boites &boites, const QString &invite) {
  QString dossier = boites.Dossier(invite);
  if (!dossier.isEmpty() && !dossier.endsWith(u'/')) dossier += u'/';
  return dossier;
}

bool DossierRefuse(const QString &chemin) {
  const QString haut = chemin.toUpper();
  const bool profil = haut.contains(u"DOCUMENTS AND SETTINGS"_s) ||
                      haut.contains(u"UTILISATEURS"_s) || haut.contains(u"USERS"_s);
  return !profil && haut.contains(u"PUBLIC"_s) && haut.contains(u"DEFAULT"_s);
}

Demarrage::Demarrage(Plateforme &plateforme, Dossiers &dossiers)
    : plateforme_(plateforme), dossiers_(dossiers) {}

bool Demarrage::Executer() {
  if (!LireCheminData() && !DemanderCheminData()) return false;
  ResoudreCheminBase();
  DeplacerBaseLivree();
  PreparerBase();
  return true;
}

bool Demarrage::LireCheminData() {
  const auto chemin = LireChemin(dossiers_.AppPath + u"/CheminData.cfg"_s);
  if (!chemin) return false;
  dossiers_.CheminData = *chemin;
  // A recorded data folder that has gone is no reason to ask: it may be back at the next start.
  return chemin->contains(u"DataVelmira"_s) || EstDossier(*chemin);
}

bool Demarrage::DemanderCheminData() {
  Boites &boites = plateforme_.boites;
  boites.Information(
      u"Pour fonctionner avec les dernières versions de Windows,\n"
      "les données doivent être placées dans un répertoire spécifique, différent du répertoire de "
      "l'application."_s);
  boites.Information(
      u"Sélectionnez uniquement le répertoire où seront enregistrées les données du programme sur "
      "le disque dur de votre ordinateur.\n\n"
      "Ce répertoire DOIT ETRE celui qui porte  \"VOTRE NOM D' UTILISATEUR\",   et dont "
      "l'emplacement diffère selon les versions de Windows :\n\n"
      "- Dans \"Documents And settings\" sous XP\n"
      "- Dans \"Utilisateurs ou Users\" pour les versions ultérieures (Seven, 8)"_s);
  const QString dossier = DemanderDossier();
  if (dossier.isEmpty()) return false;
  CreerCheminData(dossier);
  return true;
}

QString Demarrage::DemanderDossier() {
  Boites &boites = plateforme_.boites;
  for (;;) {
    const QString dossier =
        SelRepertoire(boites, u"Sélectionnez uniquement le répertoire à votre NOM D'UTILISATEUR"_s);
    if (!dossier.isEmpty() && !EstEnregistrable(dossier)) {
      boites.Attention(
          u"Le nom de ce répertoire contient un caractère qui ne peut pas être "
          "enregistré : \"%1\".\nChoisissez-en un autre."_s.arg(dossier));
      continue;
    }
    if (!dossier.isEmpty() && !DossierRefuse(dossier)) return dossier;

    const bool manque = dossier.isEmpty();
    const QString question = manque
                                 ? u"Ce renseignement est obligatoire ; voulez-vous continuer ?"_s
                                 : u"Ce répertoire n'est pas le bon ; voulez-vous continuer ?"_s;
    if (boites.Question(Boites::Titre(), question) == Boites::Reponse::Oui) continue;
    boites.Critique(manque ? u"Lancement du programme interrompu par défaut de renseignement !"_s
                           : u"Lancement du programme interrompu par erreur de renseignement !"_s);
    return {};
  }
}

void Demarrage::CreerCheminData(const QString &dossier) {
  dossiers_.CheminData = dossier + u"DataTrevona/DataVelmira"_s;
  Boites &boites = plateforme_.boites;
  Signaler(boites, [&] { CreerDossier(dossiers_.CheminData); });
  const QString ancienne = dossiers_.AppPath + u"/Velmira.mdb"_s;
  if (EstFichier(ancienne))
    Signaler(boites, [&] { RenommerFichier(ancienne, dossiers_.CheminData + u"/Velmira.mdb"_s); });
  EcrireChemin(dossiers_.AppPath + u"/CheminData.cfg"_s, dossiers_.CheminData);
}

QString Demarrage::FichierCheminBase() const {
  const QString autre = dossiers_.AppPath + u"/CheminBase.cfg"_s;
  return EstFichier(autre) ? autre : dossiers_.AppPath + u"/Cheminbase.cfg"_s;
}

void Demarrage::ResoudreCheminBase() {
  Boites &boites = plateforme_.boites;
  const QString fichier = FichierCheminBase();
  const auto enregistre = LireChemin(fichier);
  dossiers_.CheminBase = dossiers_.CheminData;
  dossiers_.CheminBaseConfig = enregistre.value_or(dossiers_.CheminData);
  const QString &config = dossiers_.CheminBaseConfig;
  if (!enregistre) {
    EcrireChemin(fichier, config);
    return;
  }
  if (config == dossiers_.CheminData) return;

  if (config.contains(u"DataVelmira"_s) && EstFichier(config + u"/Velmira.mdb"_s)) {
    dossiers_.CheminBase = config;
  } else if (!config.contains(u"DataVelmira"_s) || !EstDossier(config)) {
    boites.Information(
        u"Le chemin de la base de données enregistré n'est pas valide.\n"
        "Vous allez travailler avec la base située sur votre disque."_s);
    dossiers_.CheminBaseConfig = dossiers_.CheminData;
    Signaler(boites, [&] { EffacerFichier(fichier); });
    EcrireChemin(dossiers_.AppPath + u"/Cheminbase.cfg"_s, config);
  } else {
    boites.Information(
        u"La base de données n'a pas encore été transférée dans le répertoire \"%1\" choisi pour "
        "travailler.\nVous allez donc, dans l'attente de ce transfert, travailler avec la base "
        "située sur votre disque."_s.arg(config));
  }
}

void Demarrage::DeplacerBaseLivree() {
  const QString livree = dossiers_.AppPath + u"/Velmira_base.mdb"_s;
  if (EstFichier(livree))
    Signaler(plateforme_.boites,
             [&] { RenommerFichier(livree, dossiers_.CheminBase + u"/Velmira_base.mdb"_s); });
}

void Demarrage::PreparerBase() {
  const QString vide = dossiers_.CheminBase + u"/Velmira_base.mdb"_s;
  if (!EstFichier(vide)) return;
  if (EstFichier(dossiers_.Base()))
    plateforme_.boites.Information(
        u"Une mise à jour de votre base de données est à faire, mais cette version du programme "
        "ne la fait pas encore.\nVous continuez avec la base actuelle, sans changement."_s);
  else
    Signaler(plateforme_.boites, [&] { RenommerFichier(vide, dossiers_.Base()); });
}

void Demarrage::EcrireChemin(const QString &fichier, const QString &chemin) {
  RedacteurEnregistrement redacteur;
  redacteur.Ecrire(chemin);
  Signaler(plateforme_.boites, [&] { RemplacerFichier(fichier, redacteur.Octets()); });
}
