#pragma once

#include <QtGlobal>

#include <functional>

/// Told by a long work, from time to time, how much of it is done; false asks it to stop. It never
/// waits, so that it may be told inside a transaction.
using Avance = std::function<bool(qsizetype fait, qsizetype total)>;
