#pragma once
// Failures in the user's language: what has failed, why, what is unharmed and what can be done.

#include "platform/Erreurs.h"

#include <QString>

/// Why something was refused, as the end of a sentence, and what the user can do, as a sentence.
struct Panne {
  QString raison;
  QString remede;
};

/// Of an error number of the system; of 0 or one that is not known, the words for any failure.
Panne PanneSysteme(int code);

/// "`echec` : reason.", a line with `intact` and what can be done, and behind them the words of
/// whatever has failed (`detail`), which may be in any language. `echec` has no full stop; `intact`
/// is a sentence. Both of the last may be empty.
QString PhraseEchec(const QString &echec, const Panne &panne, const QString &intact,
                    const QString &detail);

/// The same of a call of the system; `code` is its error number, 0 where there is none. Its words
/// are the system's own where `detail` is empty.
ErreurFichier EchecSysteme(const QString &echec, const QString &intact, int code,
                           const QString &detail = {});
