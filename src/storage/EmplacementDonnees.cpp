#include "storage/EmplacementDonnees.h"

#include "platform/Enregistrable.h"
#include "platform/Enregistrement.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "storage/MiseAJour.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

QString FichierCheminData(const QString &appPath) {
  return appPath + u"/CheminData.cfg"_s;
}

/// The file is written under one name and read under either.
QString FichierCheminBase(const QString &appPath) {
  return appPath + u"/Cheminbase.cfg"_s;
}
QString AutreFichierCheminBase(const QString &appPath) {
  return appPath + u"/CheminBase.cfg"_s;
}

std::optional<QString> LireChemin(const QString &fichier) {
  const auto octets = LireFichier(fichier);
  if (!octets) return std::nullopt;
  QString chemin;
  LecteurEnregistrement(*octets).Lire(chemin);
  return chemin;
}

void Verifier(const QString &chemin) {
  if (!EstEnregistrable(chemin))
    throw ErreurFichier(
        u"Le répertoire « %1 » ne peut pas être enregistré : son nom contient un caractère que le "
        "fichier des réglages n'admet pas."_s.arg(QDir::toNativeSeparators(chemin)));
}

QByteArray EnregistrementDe(const QString &chemin) {
  Verifier(chemin);
  RedacteurEnregistrement redacteur;
  redacteur.Ecrire(chemin);
  return redacteur.Octets();
}

}  // namespace

std::optional<QString> LireCheminData(const QString &appPath) {
  auto chemin = LireChemin(FichierCheminData(appPath));
  // A data folder that has gone is no reason to ask: it may be back at the next start.
  if (chemin && !chemin->contains(NomDossierDonnees()) && !EstDossier(*chemin)) chemin.reset();
  return chemin;
}

std::optional<QString> LireCheminBase(const QString &appPath) {
  const QString autre = AutreFichierCheminBase(appPath);
  return LireChemin(EstFichier(autre) ? autre : FichierCheminBase(appPath));
}

void EcrireCheminData(const QString &appPath, const QString &chemin) {
  RemplacerFichier(FichierCheminData(appPath), EnregistrementDe(chemin));
}

void EcrireCheminBase(const QString &appPath, const QString &chemin) {
  const QByteArray octets = EnregistrementDe(chemin);
  // The other spelling of the name would be read first. It goes first: the two may be one file.
  if (const QString autre = AutreFichierCheminBase(appPath); EstFichier(autre))
    EffacerFichier(autre);
  RemplacerFichier(FichierCheminBase(appPath), octets);
}

EmplacementBase TrouverBase(const QString &appPath, const QString &cheminData) {
  QString choisi = cheminData;
  try {
    const auto enregistre = LireCheminBase(appPath);
    if (!enregistre) return {EtatChemin::Inconnu, cheminData, cheminData};
    if (*enregistre == cheminData) return {EtatChemin::Local, cheminData, cheminData};
    choisi = *enregistre;
    if (EstCheminDeDonnees(choisi) && (ContientBase(choisi) || EchangeInterrompu(choisi)))
      return {EtatChemin::Partage, choisi, choisi};
    if (EstDossierDeDonnees(choisi)) return {EtatChemin::NonTransfere, cheminData, choisi};
    return {EtatChemin::Invalide, cheminData, cheminData};
  } catch (const ErreurFichier &erreur) {
    return {EtatChemin::Inaccessible, cheminData, choisi, erreur.Texte()};
  }
}

Dossiers DossiersDeVelmira(const QString &appPath) {
  const auto donnees = LireCheminData(appPath);
  if (!donnees) throw ErreurFichier(TexteSansBase());
  const EmplacementBase emplacement = TrouverBase(appPath, *donnees);
  if (emplacement.etat == EtatChemin::Inaccessible) throw ErreurFichier(emplacement.raison);
  return {.AppPath = appPath,
          .CheminData = *donnees,
          .CheminBase = emplacement.dossier,
          .CheminBaseConfig = emplacement.choisi};
}

QString TexteSansBase() {
  return u"Velmira n'a pas encore de base de données.\nLancez Velmira, puis recommencez."_s;
}

bool EstCheminDeDonnees(const QString &chemin) {
  return chemin.contains(NomDossierDonnees()) && QDir(chemin).dirName() != NomDossierSauvegardes();
}

bool EstDossierDeDonnees(const QString &chemin) {
  return EstCheminDeDonnees(chemin) && EstDossier(chemin);
}

bool EstVide(const QString &dossier) {
  return QDir(dossier).isEmpty(QDir::Files);
}

bool ContientBase(const QString &dossier) {
  return EstFichier(FichierBase(dossier));
}

bool ContientBaseLivree(const QString &dossier) {
  return EstFichier(FichierBaseLivree(dossier));
}

bool DossierRefuse(const QString &chemin) {
  const QString haut = chemin.toUpper();
  const bool profil = haut.contains(u"DOCUMENTS AND SETTINGS"_s) ||
                      haut.contains(u"UTILISATEURS"_s) || haut.contains(u"USERS"_s);
  return !profil && haut.contains(u"PUBLIC"_s) && haut.contains(u"DEFAULT"_s);
}

QString CheminDataDe(const QString &dossier) {
  return dossier + u"DataTrevona/"_s + NomDossierDonnees();
}

QString CreerDossierDeDonnees(const QString &lieu) {
  const QString dossier = lieu + u'/' + NomDossierDonnees();
  Verifier(dossier);
  CreerDossier(dossier);
  return dossier;
}

void DeplacerBaseProche(const Dossiers &dossiers) {
  if (ContientBase(dossiers.AppPath))
    RenommerFichier(FichierBase(dossiers.AppPath), FichierBase(dossiers.CheminData));
}

void DeplacerBaseLivree(const Dossiers &dossiers) {
  if (ContientBaseLivree(dossiers.AppPath) && !ContientBaseLivree(dossiers.CheminBase))
    RenommerFichier(FichierBaseLivree(dossiers.AppPath), FichierBaseLivree(dossiers.CheminBase));
}

void RemplacerBaseLivree(const Dossiers &dossiers) {
  if (dossiers.AppPath == dossiers.CheminBase || !ContientBaseLivree(dossiers.AppPath)) return;
  const QString source = FichierBaseLivree(dossiers.AppPath);
  const QString cible = FichierBaseLivree(dossiers.CheminBase);
  // What an upgrade that was killed has left beside the old one would be put into the new one. The
  // old one has lost its way back then; but it is replaced, now or at the next start.
  if (const QString journal = cible + u"-journal"_s; EstFichier(journal)) EffacerFichier(journal);
  RemplacerFichier(cible, LireFichierPresent(source));
  EffacerFichier(source);
}
