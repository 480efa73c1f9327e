#pragma once
// The start as the user meets it: what is asked, told and put into its place before any window may
// touch a file or the database.

#include "platform/Boites.h"
#include "storage/Dossiers.h"

#include <QString>

#include <functional>

class MiseAJourBase;

class Demarrage {
 public:
  /// `dossiers.AppPath` is known; the other folders are found here. `annoncer` gets a line on what
  /// takes its time, again and again as it goes on, and an empty one when that is over.
  Demarrage(Boites &boites, Dossiers &dossiers, std::function<void(const QString &)> annoncer);

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
  /// Upgrades the user's database. A failure is told; the files are then as they were, and the next
  /// start tries again.
  void MAJ_BDD();
  void CopierEtEchanger(MiseAJourBase &maj, const QString &separateurTel);

  Boites &boites_;
  Dossiers &dossiers_;
  std::function<void(const QString &)> annoncer_;
};
