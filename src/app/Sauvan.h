#pragma once
// The companion that takes persons over from other programs: its command line, and what it does
// without a window.

#include "app/LigneDeCommande.h"
#include "exchange/Reprise.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>

/// The ends of the program.
inline constexpr int kToutRepris = 0, kFichesRefusees = 1, kRienRepris = 2;

struct DemandeSauvan {
  std::optional<Reponse> reponse = {};  ///< to give and to end with: help, version, a refusal
  QString base = {};                    ///< the one that takes them; empty for the window
  bool retour = false;                  ///< Velmira is opened once the window has closed
  Deja deja = Deja::Completer;
  QStringList fichiers = {};
};
/// `mots`: the command line without the program's own name.
DemandeSauvan LireDemandeSauvan(const QStringList &mots);

/// The end of the program that goes with a report.
int StatutDe(const BilanReprise &bilan);

/// Keeps a copy of the base, takes the files into it and gives the report, or why nothing could be
/// done, with the end of the program. The application folder gives the form of the numbers and the
/// titles, takes the pictures, and notes that an older database has been taken over.
Reponse ReprendreSansFenetre(const DemandeSauvan &demande, const QString &appPath,
                             const QString &utilisateur, const QDateTime &maintenant);
