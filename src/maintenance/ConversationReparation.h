#pragma once

#include "platform/Boites.h"

#include <QDateTime>
#include <QString>

#include <chrono>

enum class IssueReparation { ToutGarde, LignesPerdues, RienFait };

/// Repairs a database under the eyes of the user: how far it is, with a stop, and the report, or
/// why nothing could be done, in a box.
IssueReparation ReparerEnFenetre(Boites &boites, const QString &base, const QDateTime &maintenant,
                                 std::chrono::milliseconds attente);
