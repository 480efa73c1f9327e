#pragma once

#include "app/Application.h"
#include "app/Memora.h"
#include "app/Programme.h"
#include "app/Vigilo.h"
#include "platform/linux/ClasseurSysteme.h"
#include "player/Analyse.h"
#include "player/Doubles.h"
#include "player/Ecran.h"
#include "player/Monde.h"
#include "storage/Base.h"

#include <QtWidgets>

#include <memory>
#include <optional>
#include <vector>

/// Lets pending events through.
void LaisserPasser();

/// One scenario: its world, what stands for the system, the program, and its commands, which are
/// played one at a time.
class Scene {
 public:
  struct Options {
    QString monde;        ///< folder in which the world is kept; a temporary one when empty
    QString captures;     ///< folder of the pictures; none are made when empty
    qint32 taille = 0;    ///< of the program at each start, in twips; 0 for what the world has
    bool etroit = false;  ///< each window is made as small as it can be
  };

  /// Throws `Echec` for a scenario that cannot be read.
  Scene(Application &application, QString fichier, Options options);
  ~Scene();
  Scene(const Scene &) = delete;
  Scene &operator=(const Scene &) = delete;

  /// Where and why it fails; nothing when it is ok.
  std::optional<Echec> Jouer();

  /// Runs the start-up up to the main window shown. Where the launch is stopped the program has
  /// ended.
  void Demarrer(const std::optional<FicheVoulue> &fiche = {});
  /// Closes the program as its close box does.
  void Fermer();
  bool EnMarche() const { return programme_ != nullptr; }

  /// Starts a companion with the words of its command line; one that runs takes them.
  void LancerVigilo(const QStringList &mots);
  void LancerMemora(const QStringList &mots);
  /// How the companion has ended: its status, nothing as long as it runs.
  std::optional<int> FinCompagnon() const { return finCompagnon_; }
  /// Starts the program at a record, or asks the running one for it as another start does.
  void DemanderFiche(const QStringList &mots);

  /// Throws `Echec` when the program has told or started something that the scenario has not looked
  /// at.
  void VerifierToutVu() const;
  void VerifierAucuneBoite() const;

  const QString fichier;
  const Options options;
  const QTemporaryDir temporaire;
  const Monde monde;
  Journal journal;
  BoitesScenario boites{journal, monde};
  HorlogeScenario horloge{journal, boites};
  CoquilleScenario coquille{journal, monde};
  ImprimanteScenario imprimante{journal, monde};
  PolicesScenario polices;
  ListeDemarrageScenario demarrage{monde};
  NotificationsScenario notifications{journal};
  PortSerieScenario port{journal};
  ClasseurSysteme classeur;  ///< the real one: its files are read back
  Ecran ecran;
  QString utilisateur = QStringLiteral("Paul");
  std::unique_ptr<Base> autreEcrivain;  ///< another user's, who keeps the database to himself

  QHash<QString, QStringList> etats;  ///< that were noted, by their names
  Mesures mesures;                    ///< of the windows that pictures were asked of

  QList<PageImprimee> pages;  ///< those that were counted last
  qsizetype page = -1;        ///< the one that checks act on

 private:
  /// Dialogs and menus that take the user's input.
  using Prenantes = QSet<const QWidget *>;
  static Prenantes PrenantesOuvertes();

  /// A command that has not returned, with what was there when it began.
  struct EnCours {
    Prenantes ouvertes;
    int attentes = 0;  ///< of the program, for something to happen
  };

  void PoserTaille() const;
  void Planifier();
  void Pas();
  /// The window of a run, or of a long work, which shows on a slow computer only: it ends by
  /// itself, unless the story keeps it waiting and has not given it up yet.
  bool Passe(const QWidget &fenetre) const;
  bool PeutAvancer() const;
  void ExecuterSuivante();
  /// Throws `Echec` when the program has asked for what the scenario does not answer.
  void VerifierFautes() const;
  /// What is left over at the end of a scenario is a failure.
  void VerifierFin() const;
  void Terminer(const std::optional<Echec> &faute);
  void FermerDialogues();
  /// Takes away a program that has closed itself. Not while one of its handlers runs.
  void Liberer();

  Application &application_;
  Abandons abandons_;
  std::optional<Plateforme> plateforme_;
  std::unique_ptr<Programme> programme_;
  bool programmeTermine_ = false;
  std::unique_ptr<Vigilo> vigilo_;
  std::unique_ptr<Memora> memora_;
  std::optional<int> finCompagnon_;

  QList<Commande> commandes_;
  qsizetype suivante_ = 0;
  std::vector<EnCours> pile_;
  QElapsedTimer depuis_;  ///< since the last command began, or the end
  bool terminee_ = false;
  std::optional<Echec> faute_;
  QObject contexte_;  ///< of the timers
  QEventLoop boucle_;
};
