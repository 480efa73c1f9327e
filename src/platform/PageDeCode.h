#pragma once
// The Western European code page (Windows-1252), in which every text file of the program is kept.

#include <QByteArray>
#include <QString>

#include <optional>

/// All 256 bytes give a character and come back as they were.
QString DepuisPageDeCode(const QByteArray &octets);

/// A character that the page lacks becomes "?".
QByteArray VersPageDeCode(const QString &texte);

/// The text of bytes in UTF-8, a mark of it included; nothing for what is no such text.
std::optional<QString> DepuisUtf8(const QByteArray &octets);

/// A text that may be in UTF-8: what is no such text is in the code page.
QString DepuisUtf8OuPageDeCode(const QByteArray &octets);
