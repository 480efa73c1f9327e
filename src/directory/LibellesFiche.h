#pragma once

#include "storage/Conflits.h"

/// What the user reads of the columns of a correspondent that may be typed.
const Libelles<Correspondant> &LibellesFiche();
