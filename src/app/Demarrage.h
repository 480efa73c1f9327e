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
  /// The user's own folder, ending in a separator; empty when the launch is stopped.
  QString DemanderDossier();
  void CreerCheminData(const QString &dossier);
  void TrouverCheminBase();
  void EnregistrerCheminBase();
  void PreparerBase();
  /// Upgrades the user's database. A failure is told; the files are then as they were, and the next
  /// start tries again.
  void MAJ_BDD();
  void CopierEtEchanger(MiseAJourBase &maj, const QString &separateurTel);

  Boites &boites_;
  Dossiers &dossiers_;
  std::function<void(const QString &)> annoncer_;
};
