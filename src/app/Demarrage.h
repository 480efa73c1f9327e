#pragma once
// The start as the user meets it: what is asked, told and put into its place before any window may
// touch a file or the database.

#include "platform/Boites.h"
#include "storage/Dossiers.h"
#include "storage/SourceJet.h"

#include <QString>

#include <functional>
#include <memory>

class Demarrage {
 public:
  /// What shows and bears the work that takes its time.
  struct Moyens {
    /// Gets a line on what is done, again and again as it goes on, and an empty one when that is
    /// over. Called in the thread of the work too.
    std::function<void(const QString &)> annoncer;
    /// Runs a work, here or in another thread, to its end, and throws what it throws.
    std::function<void(const std::function<void()> &)> executer = [](const auto &tache) {
      tache();
    };
    /// Keeps a copy of a base that is to be upgraded; what it throws stops that.
    std::function<void(const QString &)> sauver = [](const QString &) {};
  };

  /// `dossiers.AppPath` is known; the other folders are found here.
  Demarrage(Boites &boites, Dossiers &dossiers, Moyens moyens);

  /// Finds the folders, asking the user where that is needed, and puts delivered and moved files
  /// into their places. A file or folder that cannot be written is told in the default error box,
  /// and the run goes on. Gives false when the user has stopped the launch; nothing has been
  /// written then.
  bool Executer();

 private:
  bool TrouverCheminData();
  /// Asks for the user's own folder until the data folder stands in it. False when the launch is
  /// stopped.
  bool DemanderDossier();
  /// False when it cannot be made, which has been told.
  bool CreerCheminData(const QString &dossier);
  void TrouverCheminBase();
  void EnregistrerCheminBase();
  /// Finishes the swap of an upgrade that was killed. False when that fails, which has been told.
  bool FinirEchange(const QString &dossier);
  void PreparerBase();
  void PrendreBaseLivree();
  /// The delivered base becomes the user's first one, with the usual types of events.
  void PoserPremiereBase();
  /// Upgrades the user's database. A failure is told; the files are then as they were, and the next
  /// start tries again.
  void MAJ_BDD();
  void MettreAJour();
  /// The user's database where it is one in the Jet format, read; otherwise nothing.
  std::unique_ptr<SourceJet> LireJet();
  /// Whether it may be taken over: what is damaged is the user's to decide.
  bool Accepte(const SourceJet &source);
  void CopierEtEchanger(const QString &separateurTel, SourceJet *jet);
  /// Runs a long work with a line on it.
  void Executer(const QString &annonce, const std::function<void()> &tache);

  Boites &boites_;
  Dossiers &dossiers_;
  Moyens moyens_;
};
