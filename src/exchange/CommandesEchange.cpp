#include "exchange/CommandesEchange.h"

#include "exchange/EchangeTexte.h"
#include "platform/Enumeration.h"
#include "platform/Erreurs.h"
#include "session/SauvegardePrealable.h"
#include "storage/Historique.h"
#include "ui/Brancheur.h"
#include "ui/CompteRendu.h"
#include "ui/Travail.h"

#include <QDir>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

/// What the file could not take as it stands in the directory.
QString Pertes(const Exportation &faite) {
  QString texte;
  if (faite.coupees > 0)
    texte += u"\n\n%1 valeur(s) de plusieurs lignes y tiennent sur une seule."_s.arg(faite.coupees);
  if (faite.remplaces > 0)
    texte +=
        u"\n\n%1 caractère(s) que le fichier ne peut pas contenir y sont remplacés par « ? »."_s
            .arg(faite.remplaces);
  return texte;
}

/// What the user has to look at behind an import.
QString Reserves(const BilanImport &bilan) {
  QString texte;
  if (bilan.coupe)
    texte +=
        u"\n\nLe fichier s'arrête au milieu du velmira « %1 », qui n'a pas été importé.\n"
        "Copiez de nouveau le fichier entier, puis recommencez."_s.arg(*bilan.coupe);
  if (!bilan.douteux.isEmpty())
    texte +=
        u"\n\n%1 velmira(s) ajouté(s) sous un nom où « ? » remplace sans doute un caractère que le "
        "fichier n'a pas pu contenir ; à corriger s'il le faut :\n"_s.arg(bilan.douteux.size()) +
        Abreger(bilan.douteux).join(u'\n');
  return texte;
}

}  // namespace

CommandesEchange::CommandesEchange(Session &session, const Actions &actions, Repertoire &repertoire,
                                   CompteRendu &fait, QWidget *fenetre)
    : QObject(fenetre),
      session_(session),
      fichier_(session.dossiers.AppPath),
      repertoire_(repertoire),
      fait_(fait),
      fenetre_(fenetre) {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(actions.mnuExport, &CommandesEchange::Exporter);
  brancher(actions.mnuImport, &CommandesEchange::Importer);
  brancher(actions.mnuVelmira, &CommandesEchange::Ouvrir);
  brancher(actions.mnuEnvoyer, &CommandesEchange::Envoyer);
}

bool CommandesEchange::Absent() const {
  if (fichier_.EstPresent()) return false;
  session_.plateforme.boites.Information(
      u"Le fichier Velmira.txt, contenant les données à importer, est absent du répertoire !"_s);
  return true;
}

void CommandesEchange::Exporter() {
  Boites &boites = session_.plateforme.boites;
  boites.Information(
      u"Cette commande va créer, dans le répertoire de l'application, un fichier Velmira.txt, "
      "contenant vos principales données (Nom du velmira, adresse, numéros de téléphone, email et "
      "adresse web -sont exclues les notes-). \n\n"
      "Ce fichier, copié dans le répertoire d'une autre instance du programme, permettra, par le "
      "biais du menu 'Importer', de rajouter les velmiras inexistants, et leurs données "
      "correspondantes, dans cette nouvelle instance du programme.\n\n"
      "Si le velmira existe, les données correspondantes non renseignées seront mises à jour, mais "
      "les données inscrites ne seront pas modifiées."_s);
  if (boites.Question(Boites::Titre(), u"Etes vous prêt à continuer ?"_s) != Boites::Reponse::Oui)
    return;

  repertoire_.AfficherTous();
  const auto faite = Travail(fenetre_, u"Exportation"_s)
                         .Executer(session_.base, [this](Base &base, const Avance &avance) {
                           auto exportation = ExporterVelmiras(base, avance);
                           if (exportation) fichier_.Remplacer(exportation->octets);
                           return exportation;
                         });
  if (faite)
    fait_.Dire(u"Données exportées dans "_s + QDir::toNativeSeparators(fichier_.Chemin()),
               CompteRendu::AuDossier(fichier_.Chemin()));
  boites.Information(faite ? u"Le fichier Velmira.txt a été créé avec succès !"_s + Pertes(*faite)
                           : u"Exportation arrêtée."_s);
}

void CommandesEchange::Importer() {
  Boites &boites = session_.plateforme.boites;
  boites.Information(
      u"Le fichier Velmira.txt,comportant les données à rajouter à votre programme, doit avoir été "
      "copié dans le répertoire de l'application.\n\n"
      "Il doit IMPERATIVEMENT avoir été créé avec une MEME VERSION DU PROGRAMME."_s);
  if (Absent()) return;
  if (boites.Question(Boites::Titre(), u"Etes vous prêt à importer les nouvelles données ?"_s) !=
      Boites::Reponse::Oui)
    return;

  if (!SauverAvant(session_, fenetre_, MotifSauvegarde::Import, session_.dossiers.Base())) return;
  // What was imported before a failure stays, and is listed too.
  Signaler(boites, [&] {
    const BilanImport bilan = ImporterFichier();
    fait_.Dire(u"Importation : %1 ajouté(s), %2 complété(s), %3 inchangé(s)"_s.arg(bilan.ajoutes)
                   .arg(bilan.completes)
                   .arg(bilan.traites - bilan.ajoutes - bilan.completes) +
               (session_.base.LHistorique().TropGrande().isEmpty()
                    ? QString()
                    : u" · trop volumineuse pour être annulée"_s));
    if (bilan.arrete)
      boites.Information(u"Importation arrêtée : %1 velmira(s) traité(s)."_s.arg(bilan.traites));
    else
      boites.Information(
          u"Les nouvelles données ont été intégrées dans votre base de données.\n\n"
          "Si de nouvelles catégories ont été enregistrées, elles n'apparaitront dans la liste "
          "déroulante qu'au prochain lancement du programme."_s +
          Reserves(bilan));
  });
  repertoire_.AfficherTous();
}

BilanImport CommandesEchange::ImporterFichier() {
  Acte acte(session_.base, u"importation"_s);
  const BilanImport bilan = Travail(fenetre_, u"Importation"_s)
                                .Executer(session_.base, [this](Base &base, const Avance &avance) {
                                  return ImporterVelmiras(base, fichier_.Lire(), avance);
                                });
  acte.Nommer(u"importation de %1 correspondant(s)"_s.arg(bilan.ajoutes + bilan.completes));
  return bilan;
}

void CommandesEchange::Ouvrir() {
  if (!Absent()) session_.plateforme.coquille.Ouvrir(fichier_.Chemin());
}

void CommandesEchange::Envoyer() {
  Boites &boites = session_.plateforme.boites;
  const auto octets = fichier_.Contenu();
  if (!octets) {
    boites.Information(u"Le fichier Velmira.txt n'a pas été créé, ou est absent du répertoire."_s);
    return;
  }
  const QString dossier = boites.Dossier(u"Copier Velmira.txt sur ... "_s);
  if (dossier.isEmpty()) return;
  const FichierEchange copie(dossier);
  copie.Remplacer(*octets);
  fait_.Dire(u"Velmira.txt copié dans "_s + QDir::toNativeSeparators(dossier),
             CompteRendu::AuDossier(copie.Chemin()));
  boites.Information(u"Copie sur "_s + QDir::toNativeSeparators(dossier) +
                     u" réalisée avec succès !"_s);
}
