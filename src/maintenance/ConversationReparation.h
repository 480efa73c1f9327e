#pragma once

#include "platform/Boites.h"
#include "platform/Coquille.h"

#include <QDateTime>
#include <QString>

#include <chrono>

enum class IssueReparation { ToutGarde, LignesPerdues, RienFait };

/// Repairs a database under the eyes of the user: how far it is, with a stop, then the report, or
/// why nothing could be done.
IssueReparation ReparerEnFenetre(Boites &boites, Coquille &coquille, const QString &base,
                                 const QDateTime &maintenant, std::chrono::milliseconds attente);
