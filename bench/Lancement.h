#pragma once
// The program run without a user.

#include "Ecran.h"
#include "app/Programme.h"
#include "platform/linux/BoitesSysteme.h"
#include "platform/linux/ClasseurSysteme.h"
#include "platform/linux/CoquilleSysteme.h"
#include "platform/linux/HorlogeSysteme.h"
#include "platform/linux/ImprimanteSysteme.h"
#include "platform/linux/ListeDemarrageSysteme.h"
#include "platform/linux/PolicesSysteme.h"
#include "platform/linux/PortSerieSysteme.h"

#include <utility>

class ArbreVelmiras;

/// Sees the first painting of a tree that has rows, from its making on.
class Peinture : public QObject {
 public:
  Peinture();
  /// Runs what is queued until it has been seen.
  void Attendre() const;

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  bool vue_ = false;
};

/// The program, started: its list is painted when the constructor returns. What waits for the
/// splash is done at once, and a box ends the process, since nobody would answer it.
class Lancement {
 public:
  explicit Lancement(const QString &appPath);

  ArbreVelmiras &Liste() const;

 private:
  class Boites : public BoitesSysteme {
   public:
    void Message(Genre genre, const QString &titre, const QString &texte) override;
    void Erreur(const QString &texte) override;
  };
  class Horloge : public HorlogeSysteme {
   public:
    void Apres(std::chrono::milliseconds delai, QObject *contexte,
               std::function<void()> action) override {
      constexpr std::chrono::milliseconds kDepart{1500};
      if (delai != kDepart) return HorlogeSysteme::Apres(delai, contexte, std::move(action));
      AttendreLaPeinture();  // what is queued is done while the splash waits
      action();
    }
  };

  Boites boites_;
  Horloge horloge_;
  CoquilleSysteme coquille_;
  ImprimanteSysteme imprimante_{horloge_};
  PolicesSysteme polices_;
  ListeDemarrageSysteme demarrage_;
  PortSerieSysteme port_;
  ClasseurSysteme classeur_;
  Plateforme plateforme_;
  Programme programme_;
};
