#pragma once
// What is dialled, and what the modem says to it.

#include <QByteArray>
#include <QString>

#include <optional>

/// Whether a typed text is a telephone number as a whole: digits, with blanks, points, hyphens,
/// "/", parentheses, "*", "#", "," or `separateur` between them, and a plus in front.
bool EstNumero(const QString &texte, const QString &separateur);

/// What the modem gets of a number: digits, blanks, points, hyphens, "*", "#", "," and a plus in
/// front; all else is left out, since it would be a command. In a number that has the stored form,
/// a `separateur` that would itself be dialled becomes a blank. Empty where no digit is left.
QString NumeroAComposer(const QString &texte, const QString &separateur);

/// What ends the wait for the modem.
struct ReponseModem {
  bool decroche;   ///< it has dialled and hands the call over to the telephone
  QString mot;     ///< the answer itself
  QString raison;  ///< why there is no call, as a part of a sentence; empty where there is one
};

/// The answer that stands in what has come in from the modem; none while it is not complete.
std::optional<ReponseModem> LireReponse(const QByteArray &recu);
