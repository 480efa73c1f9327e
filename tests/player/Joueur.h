#pragma once
// Plays one scenario, one command at a time.

#include "player/Analyse.h"
#include "player/Scene.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QSet>

#include <optional>
#include <vector>

class Joueur {
 public:
  struct Options {
    QString monde;      ///< folder in which the world is kept; a temporary one when empty
    QString captures;   ///< folder of the pictures; none are made when empty
    qint32 taille = 0;  ///< of the program, in twips; 0 for what the scenario has
  };

  /// Where and why a scenario failed.
  struct Faute {
    int ligne = 0;
    QString texte;
  };

  Joueur(Application &application, QString fichier, Options options);

  /// Nothing when the scenario is ok.
  std::optional<Faute> Jouer();

  /// Of the windows that pictures were asked of.
  const Mesures &LesMesures() const { return mesures_; }

 private:
  /// Dialogs and menus that take the user's input.
  using Prenantes = QSet<const QWidget *>;
  static Prenantes PrenantesOuvertes();

  void Derouler();
  void Planifier();
  void Pas();
  /// Whether it is a window that ends by itself: of a run, or of a long work, which shows on a slow
  /// computer only.
  bool VaPasser(const QWidget &prenante) const;
  bool PeutAvancer() const;
  void ExecuterSuivante();
  void Terminer(const std::optional<Faute> &faute);
  void FermerDialogues();

  Application &application_;
  QString fichier_;
  Options options_;

  QObject contexte_;  ///< of the timers
  QEventLoop boucle_;
  QList<Commande> commandes_;
  qsizetype suivante_ = 0;
  Scene *scene_ = nullptr;

  /// A command that has not returned, with what was there when it began.
  struct EnCours {
    Prenantes ouvertes;
    int attentes = 0;  ///< of the program, for something to happen
  };
  std::vector<EnCours> pile_;
  QElapsedTimer depuis_;  ///< since the last command began, or the end
  bool terminee_ = false;
  std::optional<Faute> faute_;
  Mesures mesures_;
};
