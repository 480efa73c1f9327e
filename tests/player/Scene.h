#pragma once
// What one scenario plays on: its world, what stands for the system, and the program.

#include "app/Application.h"
#include "app/Programme.h"
#include "platform/linux/ClasseurSysteme.h"
#include "player/Doubles.h"
#include "player/Ecran.h"
#include "player/Mesures.h"
#include "player/Monde.h"

#include <QDateTime>
#include <QJsonObject>

#include <memory>
#include <optional>

/// Lets pending events through.
void LaisserPasser();

class Scene {
 public:
  Scene(Application &application, Monde monde, QString captures);
  ~Scene();
  Scene(const Scene &) = delete;
  Scene &operator=(const Scene &) = delete;

  /// Runs the start-up up to the main window shown. Where the launch is stopped the program has
  /// ended.
  void Demarrer();
  /// Closes the program as its close box does.
  void Fermer();
  bool EnMarche() const { return programme_ != nullptr; }
  /// Takes away a program that has closed itself. Not while one of its handlers runs.
  void Liberer();

  /// Throws `Echec` when the program has asked for what the scenario does not answer.
  void VerifierFautes() const;
  /// The same when it has told or started something that the scenario has not looked at.
  void VerifierToutVu() const;
  void VerifierAucuneBoite() const;
  /// What is left over at the end of a scenario is a failure.
  void VerifierFin() const;

  const Monde monde;
  Journal journal;
  BoitesScenario boites{journal, monde};
  HorlogeScenario horloge{journal, boites};
  CoquilleScenario coquille{journal, monde};
  ImprimanteScenario imprimante{journal, monde};
  PolicesScenario polices;
  ListeDemarrageScenario demarrage{monde};
  PortSerieScenario port{journal};
  ClasseurSysteme classeur;  ///< the real one: its files are read back
  Ecran ecran;
  QString utilisateur = QStringLiteral("Paul");
  const QString captures;  ///< folder of the pictures, or empty
  std::optional<AutreEcrivain> autreEcrivain;

  qint32 taille = 0;  ///< of the program at each start, in twips; 0 for the one of the world
  Mesures mesures;    ///< of the windows that pictures were asked of

  QList<PageImprimee> pages;  ///< those that were counted last
  qsizetype page = -1;        ///< the one that checks act on

  struct ClasseurLu {
    QString chemin;
    QDateTime ecrit;
    QJsonObject contenu;
  };
  ClasseurLu classeurLu;

 private:
  void EcrireTaille() const;

  Application &application_;
  std::optional<Plateforme> plateforme_;
  std::unique_ptr<Programme> programme_;
  bool termine_ = false;
};
