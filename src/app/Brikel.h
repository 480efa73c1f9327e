#pragma once
// The companion that repairs the database: its command line, and what it does without a window.

#include "app/LigneDeCommande.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

/// How long the base is waited for.
inline constexpr std::chrono::seconds kAttenteBrikel{30};

/// The ends of the program.
inline constexpr int kToutGarde = 0, kLignesPerdues = 1, kRienFait = 2;

struct DemandeBrikel {
  std::optional<Reponse> reponse = {};  ///< to give and to end with: help, version, a refusal
  QString base = {};                    ///< to be repaired without a window; empty for one with it
  bool demander = false;                ///< first asks whether it shall begin
};
/// `mots`: the command line without the program's own name.
DemandeBrikel LireDemandeBrikel(const QStringList &mots);

/// Repairs a base and gives the report, or why nothing could be done, with the end of the program.
Reponse ReparerSansFenetre(const QString &base, const QDateTime &maintenant,
                           std::chrono::milliseconds attente);
