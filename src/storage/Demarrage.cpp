#include "storage/Demarrage.h"

#include "platform/Enregistrable.h"
#include "platform/Enregistrement.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "storage/Base.h"
#include "storage/MiseAJour.h"
#include "storage/Reglages.h"
#include "storage/SourceSqlite.h"

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

Demarrage::Demarrage(Boites &boites, Dossiers &dossiers,
                     std::function<void(const QString &)> annoncer)
    : boites_(boites), dossiers_(dossiers), annoncer_(std::move(annoncer)) {}

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
  boites_.Information(
      u"Pour fonctionner avec les dernières versions de Windows,\n"
      "les données doivent être placées dans un répertoire spécifique, différent du répertoire de "
      "l'application."_s);
  boites_.Information(
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
  for (;;) {
    const QString dossier = SelRepertoire(
        boites_, u"Sélectionnez uniquement le répertoire à votre NOM D'UTILISATEUR"_s);
    if (!dossier.isEmpty() && !EstEnregistrable(dossier)) {
      boites_.Attention(
          u"Le nom de ce répertoire contient un caractère qui ne peut pas être "
          "enregistré : \"%1\".\nChoisissez-en un autre."_s.arg(dossier));
      continue;
    }
    if (!dossier.isEmpty() && !DossierRefuse(dossier)) return dossier;

    const bool manque = dossier.isEmpty();
    const QString question = manque
                                 ? u"Ce renseignement est obligatoire ; voulez-vous continuer ?"_s
                                 : u"Ce répertoire n'est pas le bon ; voulez-vous continuer ?"_s;
    if (boites_.Question(Boites::Titre(), question) == Boites::Reponse::Oui) continue;
    boites_.Critique(manque ? u"Lancement du programme interrompu par défaut de renseignement !"_s
                            : u"Lancement du programme interrompu par erreur de renseignement !"_s);
    return {};
  }
}

void Demarrage::CreerCheminData(const QString &dossier) {
  dossiers_.CheminData = dossier + u"DataTrevona/DataVelmira"_s;
  Signaler(boites_, [&] { CreerDossier(dossiers_.CheminData); });
  const QString ancienne = dossiers_.AppPath + u"/Velmira.mdb"_s;
  if (EstFichier(ancienne))
    Signaler(boites_, [&] { RenommerFichier(ancienne, dossiers_.CheminData + u"/Velmira.mdb"_s); });
  EcrireChemin(dossiers_.AppPath + u"/CheminData.cfg"_s, dossiers_.CheminData);
}

QString Demarrage::FichierCheminBase() const {
  const QString autre = dossiers_.AppPath + u"/CheminBase.cfg"_s;
  return EstFichier(autre) ? autre : dossiers_.AppPath + u"/Cheminbase.cfg"_s;
}

void Demarrage::ResoudreCheminBase() {
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

  if (config.contains(u"DataVelmira"_s) &&
      (EstFichier(config + u"/Velmira.mdb"_s) || EchangeInterrompu(config))) {
    dossiers_.CheminBase = config;
  } else if (!config.contains(u"DataVelmira"_s) || !EstDossier(config)) {
    boites_.Information(
        u"Le chemin de la base de données enregistré n'est pas valide.\n"
        "Vous allez travailler avec la base située sur votre disque."_s);
    dossiers_.CheminBaseConfig = dossiers_.CheminData;
    Signaler(boites_, [&] { EffacerFichier(fichier); });
    EcrireChemin(dossiers_.AppPath + u"/Cheminbase.cfg"_s, config);
  } else {
    boites_.Information(
        u"La base de données n'a pas encore été transférée dans le répertoire \"%1\" choisi pour "
        "travailler.\nVous allez donc, dans l'attente de ce transfert, travailler avec la base "
        "située sur votre disque."_s.arg(config));
  }
}

void Demarrage::DeplacerBaseLivree() {
  const QString livree = dossiers_.AppPath + u"/Velmira_base.mdb"_s;
  if (EstFichier(livree))
    Signaler(boites_, [&] { RenommerFichier(livree, CheminBaseLivree(dossiers_.CheminBase)); });
}

void Demarrage::PreparerBase() {
  const QString livree = CheminBaseLivree(dossiers_.CheminBase);
  if (!EstFichier(livree)) return;
  if (EstFichier(dossiers_.Base())) {
    MAJ_BDD();
    return;
  }
  if (EchangeInterrompu(dossiers_.CheminBase))
    Signaler(boites_, [&] { ConvertirAlarme(dossiers_.AppPath); });
  // What a killed upgrade left half written is taken back under the name that its journal knows.
  Ignorer([&] { Base().Ouvrir(livree); });
  Signaler(boites_, [&] { RenommerFichier(livree, dossiers_.Base()); });
}

void Demarrage::MAJ_BDD() {
  QString separateurTel, liaisonCP;
  LireLiaison(dossiers_.AppPath, separateurTel, liaisonCP);
  const bool faite = Signaler(boites_, [&] {
    try {
      SourceSqlite source(dossiers_.Base());
      boites_.Information(
          u"La nouvelle version du programme va faire la mise à jour de votre base de données"_s);
      boites_.Information(
          u"NB :\n\n________________________\n\nLe caractère de liaison formatant les numéros "
          "téléphoniques est actuellement : \"%1\"\nIl pourra être changé à partir du menu "
          "'Options'\n\nEn cas de fonctionnement réseau, ce changement affectera tous les "
          "utilisateurs."_s.arg(separateurTel));
      CopierEtEchanger(source, separateurTel);
    } catch (const Erreur &erreur) {
      throw ErreurBase(
          u"La mise à jour de la base de données « %1 » n'a pas pu être faite :\n%2\n\n"
          "La base n'a pas été modifiée. La mise à jour sera tentée de nouveau au prochain "
          "démarrage."_s.arg(QDir::toNativeSeparators(dossiers_.Base()), erreur.Texte()));
    }
  });
  if (faite) boites_.Information(u"Mise à jour de la base terminée."_s);
}

void Demarrage::CopierEtEchanger(SourceSqlite &source, const QString &separateurTel) {
  const struct Annonce {
    explicit Annonce(const std::function<void(const QString &)> &a) : annoncer(a) {
      annoncer(u"Mise à jour de la base..."_s);
    }
    ~Annonce() { annoncer({}); }
    const std::function<void(const QString &)> &annoncer;
  } annonce(annoncer_);
  // Held until the swap is over: nobody writes what would not be copied, and a second user's
  // upgrade waits and then finds that there is nothing left to do.
  source.Reserver();
  const QString livree = CheminBaseLivree(dossiers_.CheminBase);
  if (!EstFichier(livree)) return;

  const auto alarme = LireAncienneAlarme(dossiers_.AppPath);
  Base cible;
  cible.Ouvrir(livree);
  CopierBase(source, cible, {separateurTel, alarme ? alarme->JoursAvance : quint8{0}},
             [this](qsizetype lignes) {
               annoncer_(u"Mise à jour de la base : %1 lignes copiées"_s.arg(lignes));
             });
  cible.Fermer();
  EchangerBases(dossiers_);
}

void Demarrage::EcrireChemin(const QString &fichier, const QString &chemin) {
  RedacteurEnregistrement redacteur;
  redacteur.Ecrire(chemin);
  Signaler(boites_, [&] { RemplacerFichier(fichier, redacteur.Octets()); });
}
