#pragma once
// Two names of one person: the one of the list, "Durand Paul", by which people are found, and the
// one of the envelope, "M. Paul Durand". Each is proposed from the other. Letters stay as they were
// typed; a name written in capitals is the family's.

#include <QString>
#include <QStringList>

/// The first line of the address from the name of the list, without a title: the family name goes
/// behind. What stands in brackets is left out. A name that is no person's as far as can be seen
/// ("Garage du Port") stays as it is.
QString NomPourEnveloppe(const QString &liste);

/// The name of the list from the first line of the address: without the title at its front, the
/// family name first, together with its particles ("de La Fontaine").
QString NomPourListe(const QString &enveloppe, const QStringList &titres);

/// The first of the given names, where it is beyond doubt: the names of list and envelope, in their
/// two orders, must give the same one; without an envelope's name the list must tell which word is
/// the family's, or `personne` that it is a person at all. Empty otherwise.
QString PrenomCertain(const QString &liste, const QString &enveloppe, bool personne,
                      const QStringList &titres);

/// One or two capitals that stand for a name.
QString Initiales(const QString &liste);
