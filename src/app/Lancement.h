#pragma once
// What the starts of all programs have in common.

#include "app/Application.h"
#include "app/LigneDeCommande.h"
#include "platform/Abandons.h"
#include "platform/Boites.h"
#include "platform/Coquille.h"
#include "ui/PaletteLisible.h"

#include <QLocale>
#include <QString>
#include <QStringList>
#include <QTranslator>

/// The words of the command line behind the program's name, before the toolkit takes some of them.
QStringList MotsDeLaCommande(int argc, char *argv[]);

/// Writes an answer to the terminal; gives the status.
int Repondre(const Reponse &reponse);

/// Whether there is a screen; where there is none the toolkit is told to do without, instead of
/// breaking off in English. Before the application is made.
bool PreparerEcran();

/// What each program sets up before its first window: its name and version, the look of its
/// controls, its icons, and the toolkit's own texts in French. Lives as long as the windows.
class Allure {
 public:
  /// `bureau` is the name of the program's desktop entry.
  Allure(const QString &nom, const QString &bureau);

 private:
  PaletteLisible palette_;
  QTranslator traduction_;
};

/// The language of the system; French where it has none set.
QLocale LangueDuSysteme();

/// The application folder of the user, the same for all programs that stand in one folder, filled
/// where that is due. Throws `ErreurFichier`.
QString AppPathDuPoste();

/// The name by which the programs of one application folder know each other in a session.
QString NomDeVoisin(const QString &programme, const QString &appPath);

/// Ends a program with that status. Where a work that was given up still hangs in the system
/// nothing is taken away under it, and it ends at once; what the run had to write is written.
int FinirAvec(const Abandons &abandons, int statut);

/// Starts Velmira, from a folder or from beside this program. False when it is at neither.
bool LancerVelmira(Coquille &coquille, const QString &dossier, const QStringList &arguments);
