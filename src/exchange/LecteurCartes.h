#pragma once
// Address cards, vCard 2.1 (versit, 1996), 3.0 (RFC 2426) and 4.0 (RFC 6350), as the common
// programs write them: folded lines, quoted-printable, groups with labels, bare parameters, a card
// within a card, lines that the standards do not allow.
//
// All that a card says of a person goes into the record or its notes. What tells of the card, of
// its picture's fingerprint or of its looks in another program is left out: VERSION, PRODID, REV,
// UID, CLIENTPIDMAP, PROFILE, X-ABUID, the layout of an address (X-ABADR with two letters),
// X-MOZILLA-HTML, X-EVOLUTION-WEBDAV-ETAG, X-IMAGETYPE, X-IMAGEHASH, X-SHARED-PHOTO-DISPLAY-PREF,
// X-MS-OL-DESIGN, X-MS-OL-DEFAULT-POSTAL-ADDRESS, a KIND "individual", a CLASS "PUBLIC".

#include "exchange/PersonneImportee.h"

#include <QByteArrayList>
#include <QByteArrayView>

#include <memory>

/// Whether a file that begins so holds cards.
bool SontDesCartes(QByteArrayView debut);

/// The persons of a file of cards. A picture is taken where the card holds it; an address of one is
/// noted and never fetched. Refused are: a card that the end of the file or the next card cuts off,
/// one above 32 MB or 2,000 lines, and one that names nobody. Throws `ErreurFichier` when the file
/// cannot be read.
std::unique_ptr<SourcePersonnes> OuvrirCartes(const QString &chemin, UsagesReprise usages);

/// The person of one card, of its unfolded lines between BEGIN and END.
PersonneImportee LireCarte(const QByteArrayList &lignes, const UsagesReprise &usages);

/// How a column of a record is called in a card of ours that says it whole, in capitals.
QByteArray NomPropre(std::size_t ordinal);
