#pragma once

#include <QString>

#include <sys/types.h>

/// The log-on name of an account, and the number of one that the system knows no name of: records
/// bear it, so it is never empty.
QString NomDuCompte(uid_t compte);

/// That of the account that runs the program.
QString NomUtilisateur();
