#pragma once

#include <QString>

class QPlainTextEdit;

/// Shows a text that `TexteExact` gives back to the letter where it is not changed. The toolkit's
/// own reading makes plain blanks of no-break ones and "\n" of every line end.
void MontrerTexte(QPlainTextEdit &zone, const QString &texte);

/// What stands in the zone. What the user has not touched is as it was shown; a line end that was
/// typed is "\n".
QString TexteExact(const QPlainTextEdit &zone);
