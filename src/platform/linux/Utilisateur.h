#pragma once

#include <QString>

/// The log-on name of the account that runs the program; empty when the system knows none.
QString NomUtilisateur();
