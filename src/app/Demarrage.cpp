#include "app/Demarrage.h"

#include "platform/Enregistrable.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "storage/Base.h"
#include "storage/EmplacementDonnees.h"
#include "storage/MiseAJour.h"
#include "storage/Reglages.h"
#include "storage/TablesAlertes.h"

#include <QDir>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Shows the folder picker; the path ends in a separator, or is empty when the user cancels.
QString SelRepertoire(Boites &boites, const QString &invite) {
  QString dossier = boites.Dossier(invite);
  if (!dossier.isEmpty() && !dossier.endsWith(u'/')) dossier += u'/';
  return dossier;
}

}  // namespace

Demarrage::Demarrage(Boites &boites, Dossiers &dossiers, Moyens moyens)
    : boites_(boites), dossiers_(dossiers), moyens_(std::move(moyens)) {}

bool Demarrage::Executer() {
  if (!TrouverCheminData()) return false;
  TrouverCheminBase();
  PreparerBase();
  return true;
}

bool Demarrage::TrouverCheminData() {
  std::optional<QString> chemin;
  // What cannot be read now may be at the next start; to ask would replace it.
  if (!Signaler(boites_, [&] { chemin = LireCheminData(dossiers_.AppPath); })) return false;
  if (chemin) {
    dossiers_.CheminData = *chemin;
    return true;
  }
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
  if (!DemanderDossier()) return false;
  // Before a base is put beside it: the swap's own would be taken for a delivered one.
  Signaler(boites_, [&] { FinirEchange(dossiers_.CheminData); });
  Signaler(boites_, [&] { DeplacerBaseProche(dossiers_); });
  Signaler(boites_, [&] { EcrireCheminData(dossiers_.AppPath, dossiers_.CheminData); });
  return true;
}

bool Demarrage::DemanderDossier() {
  for (;;) {
    const QString dossier = SelRepertoire(
        boites_, u"Sélectionnez uniquement le répertoire à votre NOM D'UTILISATEUR"_s);
    if (!dossier.isEmpty() && !EstEnregistrable(dossier)) {
      boites_.Attention(
          u"Le nom de ce répertoire contient un caractère qui ne peut pas être "
          "enregistré : \"%1\".\nChoisissez-en un autre."_s.arg(dossier));
      continue;
    }
    if (!dossier.isEmpty() && !DossierRefuse(dossier)) {
      if (CreerCheminData(dossier)) return true;
      continue;
    }

    const bool manque = dossier.isEmpty();
    const QString question = manque
                                 ? u"Ce renseignement est obligatoire ; voulez-vous continuer ?"_s
                                 : u"Ce répertoire n'est pas le bon ; voulez-vous continuer ?"_s;
    if (boites_.Question(Boites::Titre(), question) == Boites::Reponse::Oui) continue;
    boites_.Critique(manque ? u"Lancement du programme interrompu par défaut de renseignement !"_s
                            : u"Lancement du programme interrompu par erreur de renseignement !"_s);
    return false;
  }
}

bool Demarrage::CreerCheminData(const QString &dossier) {
  dossiers_.CheminData = CheminDataDe(dossier);
  try {
    CreerDossier(dossiers_.CheminData, Acces::Prive);
    return true;
  } catch (const ErreurFichier &erreur) {
    boites_.Attention(erreur.Texte() +
                      u"\n\nRien n'a été enregistré. Choisissez un autre répertoire."_s);
    return false;
  }
}

void Demarrage::TrouverCheminBase() {
  const auto [etat, dossier, choisi, raison] = TrouverBase(dossiers_.AppPath, dossiers_.CheminData);
  dossiers_.CheminBase = dossier;
  dossiers_.CheminBaseConfig = choisi;
  switch (etat) {
    case EtatChemin::Local:
    case EtatChemin::Partage:
      break;
    case EtatChemin::Inconnu:
      EnregistrerCheminBase();
      break;
    case EtatChemin::Invalide:
      boites_.Information(
          u"Le chemin de la base de données enregistré n'est pas valide.\n"
          "Vous allez travailler avec la base située sur votre disque."_s);
      EnregistrerCheminBase();
      break;
    case EtatChemin::Inaccessible:
      boites_.Attention(raison +
                        u"\n\nVous allez travailler avec la base située sur votre disque. L'autre "
                        "sera cherchée de nouveau au prochain démarrage."_s);
      break;
    case EtatChemin::NonTransfere:
      boites_.Information(
          u"La base de données n'a pas encore été transférée dans le répertoire \"%1\" choisi pour "
          "travailler.\nVous allez donc, dans l'attente de ce transfert, travailler avec la base "
          "située sur votre disque."_s.arg(choisi));
      break;
  }
}

void Demarrage::EnregistrerCheminBase() {
  Signaler(boites_, [&] { EcrireCheminBase(dossiers_.AppPath, dossiers_.CheminBaseConfig); });
}

bool Demarrage::FinirEchange(const QString &dossier) {
  if (!AttendreEchange(dossier)) return true;
  Signaler(boites_, [&] { ConvertirAlarme(dossiers_.AppPath); });
  return Signaler(boites_, [&] { PoserBaseLivree(dossier); });
}

void Demarrage::PreparerBase() {
  // A folder that cannot be looked at is told by the opening of its base.
  Ignorer([this] {
    if (FinirEchange(dossiers_.CheminBase)) PrendreBaseLivree();
  });
}

void Demarrage::PrendreBaseLivree() {
  const QString &dossier = dossiers_.CheminBase;
  if (ContientBase(dossier)) {
    // It stays away from the others' base. One that is too new for this program too is told by its
    // opening.
    if (BaseLivreeDepassee(dossiers_)) return;
    Signaler(boites_, [&] { DeplacerBaseLivree(dossiers_); });
    if (ContientBaseLivree(dossier) || EstJet(dossiers_.Base())) MAJ_BDD();
    return;
  }
  const bool livree = Signaler(boites_, [&] { RemplacerBaseLivree(dossiers_); });
  if (livree && ContientBaseLivree(dossier)) Signaler(boites_, [&] { PoserPremiereBase(); });
}

void Demarrage::PoserPremiereBase() {
  // Before it has its name: a start after a kill comes through here again. What is no base of ours
  // is told by its opening.
  Ignorer([this] {
    Base base;
    base.Ouvrir(FichierBaseLivree(dossiers_.CheminBase));
    TablesAlertes(base).AjouterTypesUsuels();
  });
  PoserBaseLivree(dossiers_.CheminBase);
}

void Demarrage::MAJ_BDD() {
  Signaler(boites_, [&] {
    try {
      MettreAJour();
    } catch (const Erreur &erreur) {
      throw ErreurBase(
          u"La mise à jour de la base de données « %1 » n'a pas pu être faite :\n%2\n\n"
          "La base n'a pas été modifiée. La mise à jour sera tentée de nouveau au prochain "
          "démarrage."_s.arg(QDir::toNativeSeparators(dossiers_.Base()), erreur.Texte()));
    }
  });
}

void Demarrage::MettreAJour() {
  const QString separateurTel = LireSeparateurTel(dossiers_.AppPath);
  const auto jet = LireJet();
  if (jet && !Accepte(*jet)) return;
  if (!jet) VerifierMiseAJour(dossiers_);
  boites_.Information(
      u"La nouvelle version du programme va faire la mise à jour de votre base de données"_s);
  boites_.Information(
      u"NB :\n\n________________________\n\nLe caractère de liaison formatant les numéros "
      "téléphoniques est actuellement : \"%1\"\nIl pourra être changé à partir du menu "
      "'Options'\n\nEn cas de fonctionnement réseau, ce changement affectera tous les "
      "utilisateurs."_s.arg(separateurTel));
  CopierEtEchanger(separateurTel, jet.get());
  boites_.Information(u"Mise à jour de la base terminée."_s);
}

std::unique_ptr<SourceJet> Demarrage::LireJet() {
  std::unique_ptr<SourceJet> jet;
  const QString base = dossiers_.Base();
  if (EstJet(base))
    Executer(u"Lecture de l'ancienne base..."_s, [&] { jet = std::make_unique<SourceJet>(base); });
  return jet;
}

bool Demarrage::Accepte(const SourceJet &source) {
  return source.Entiere() ||
         boites_.Question(
             Boites::Titre(),
             u"L'ancienne base de données « %1 » est endommagée. Voici ce qui a pu en être lu :"
             "\n\n%2\n\nVoulez-vous continuer avec cela ? Le fichier endommagé sera gardé à côté, "
             "sous le nom « Ancien_Velmira.mdb »."_s.arg(QDir::toNativeSeparators(dossiers_.Base()),
                                                         source.Constat()),
             Boites::Reponse::Non) == Boites::Reponse::Oui;
}

void Demarrage::CopierEtEchanger(const QString &separateurTel, SourceJet *jet) {
  const auto avancement = [this](qsizetype lignes) {
    moyens_.annoncer(u"Mise à jour de la base : %1 lignes copiées"_s.arg(lignes));
  };
  Executer(u"Mise à jour de la base..."_s, [&] {
    moyens_.sauver(dossiers_.Base());
    if (jet != nullptr)
      MettreAJourBaseJet(dossiers_, *jet, separateurTel, avancement);
    else
      MettreAJourBase(dossiers_, separateurTel, avancement);
  });
}

void Demarrage::Executer(const QString &annonce, const std::function<void()> &tache) {
  const struct Annonce {
    Annonce(const std::function<void(const QString &)> &a, const QString &texte) : annoncer(a) {
      annoncer(texte);
    }
    ~Annonce() { annoncer({}); }
    const std::function<void(const QString &)> &annoncer;
  } pendant(moyens_.annoncer, annonce);
  moyens_.executer(tache);
}
