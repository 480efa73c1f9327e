#pragma once
// What a record says of mail and web pages comes from anywhere, imported files included. Only what
// can do no more than show a page or begin a letter is handed to the desktop.

#include <QString>

#include <optional>

/// The letter to an address alone ("mailto:..."); nothing for anything else, be it one with a
/// subject, an attachment or a second address.
std::optional<QString> LienCourriel(const QString &adresse);

/// The address of a page by http or https; nothing for anything else. What begins with the bare
/// name of a host counts as http. A "mailto:" with an address alone is taken too.
std::optional<QString> LienSite(const QString &texte);
