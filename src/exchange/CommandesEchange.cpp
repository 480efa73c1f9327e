#include "exchange/CommandesEchange.h"

#include "exchange/EchangeTexte.h"
#include "platform/Fichiers.h"
#include "ui/Avancement.h"
#include "ui/Garde.h"
#include "ui/Sablier.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

QString NomFichier() {
  return u"Velmira.txt"_s;
}

/// Shows the progress of an exchange, whatever it counts in.
class AvancementEchange {
 public:
  AvancementEchange(QWidget *fenetre, const QString &titre) : avancement_(fenetre, titre, kTotal) {}

  Avance Appel() {
    return [this](qsizetype fait, qsizetype total) {
      return avancement_.Montrer(total > 0 ? fait * kTotal / total : 0);
    };
  }

 private:
  static constexpr qsizetype kTotal = 1000;
  Avancement avancement_;
};

}  // namespace

CommandesEchange::CommandesEchange(Session &session, const Actions &actions, Repertoire &repertoire,
                                   QWidget *fenetre)
    : QObject(fenetre), session_(session), repertoire_(repertoire), fenetre_(fenetre) {
  const auto brancher = [this](QAction *action, void (CommandesEchange::*commande)()) {
    connect(action, &QAction::triggered, this,
            Garde(session_.plateforme.boites, [this, commande](bool) { (this->*commande)(); }));
  };
  brancher(actions.mnuExport, &CommandesEchange::Exporter);
  brancher(actions.mnuImport, &CommandesEchange::Importer);
  brancher(actions.mnuVelmira, &CommandesEchange::Ouvrir);
  brancher(actions.mnuEnvoyer, &CommandesEchange::Envoyer);
}

QString CommandesEchange::Chemin() const {
  return session_.dossiers.AppPath + u'/' + NomFichier();
}

bool CommandesEchange::Absent() const {
  if (QFileInfo(Chemin()).isFile()) return false;
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

  bool fini = false;
  {
    const Sablier sablier;
    repertoire_.AfficherTous();
    AvancementEchange avancement(fenetre_, u"Exportation"_s);
    if (const auto octets = ExporterVelmiras(session_.base, avancement.Appel())) {
      RemplacerFichier(Chemin(), *octets);
      fini = true;
    }
  }
  boites.Information(fini ? u"Le fichier Velmira.txt a été créé avec succès !"_s
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

  // What was imported before a failure stays, and is listed too.
  Signaler(boites, [&] {
    BilanImport bilan;
    {
      const Sablier sablier;
      const auto octets = LireFichier(Chemin());
      if (!octets)
        throw ErreurFichier(
            u"Le fichier « %1 » ne peut pas être lu."_s.arg(QDir::toNativeSeparators(Chemin())));
      AvancementEchange avancement(fenetre_, u"Importation"_s);
      bilan = ImporterVelmiras(session_.base, *octets, avancement.Appel());
    }
    if (bilan.arrete)
      boites.Information(u"Importation arrêtée : %1 velmira(s) traité(s)."_s.arg(bilan.traites));
    else
      boites.Information(
          u"Les nouvelles données ont été intégrées dans votre base de données.\n\n"
          "Si de nouvelles catégories ont été enregistrées, elles n'apparaitront dans la liste "
          "déroulante qu'au prochain lancement du programme."_s);
  });
  repertoire_.AfficherTous();
}

void CommandesEchange::Ouvrir() {
  if (!Absent()) session_.plateforme.coquille.Ouvrir(Chemin());
}

void CommandesEchange::Envoyer() {
  Boites &boites = session_.plateforme.boites;
  const auto octets = LireFichier(Chemin());
  if (!octets) {
    boites.Information(u"Le fichier Velmira.txt n'a pas été créé, ou est absent du répertoire."_s);
    return;
  }
  const QString dossier = boites.Dossier(u"Copier Velmira.txt sur ... "_s);
  if (dossier.isEmpty()) return;
  RemplacerFichier(dossier + u'/' + NomFichier(), *octets);
  boites.Information(u"Copie sur "_s + QDir::toNativeSeparators(dossier) +
                     u" réalisée avec succès !"_s);
}
