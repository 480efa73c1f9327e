#pragma once
// What the starts of all programs have in common.

#include "app/Application.h"
#include "app/LigneDeCommande.h"
#include "platform/Boites.h"

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

/// Name, version, icons and the toolkit's own texts in French. `traduction` lives as long as the
/// application does; `bureau` is the name of the program's desktop entry.
void PreparerApplication(QTranslator &traduction, const QString &nom, const QString &bureau);

/// The language of the system; French where it has none set.
QLocale LangueDuSysteme();

/// The application folder, filled from `installe` where that is due. Throws `ErreurFichier`.
QString AppPathDuPoste(const QString &installe);

/// The name by which the programs of one application folder know each other in a session.
QString NomDeVoisin(const QString &programme, const QString &appPath);
