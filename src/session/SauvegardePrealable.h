#pragma once

#include "session/Session.h"
#include "storage/Sauvegardes.h"

class QWidget;

/// Keeps a copy of a base before a command changes much of it; nothing of one that is not there.
/// Where that fails the user is told and asked: false when the command is not to go on. Throws
/// `ErreurFichier` where nobody can tell whether it is there.
bool SauverAvant(const Session &session, QWidget *fenetre, MotifSauvegarde motif,
                 const QString &base);

/// Where the copies of the base of this run are kept.
LieuxSauvegardes LesSauvegardes(const Session &session);
