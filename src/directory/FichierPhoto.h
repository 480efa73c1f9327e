#pragma once
// The pictures of the records, which lie in files of their own: a record only names one.

#include <QByteArray>
#include <QString>

#include <optional>

/// What a picture's file holds; nothing where it cannot be read. Only a regular file of at most
/// 64 MB is opened: another may have no end, or wait for ever for who writes into it.
std::optional<QByteArray> LirePhoto(const QString &chemin);

/// Whether a file has certainly gone for good: its folder is there, can be read and holds others.
/// A disk that is not mounted leaves no folder, or an empty one.
bool PhotoDisparue(const QString &chemin);

/// What the name of a picture's file ends with, "jpg", "png", "gif" or "bmp", told by its first
/// bytes; empty for what is none of these, which no window shows.
QString GenreImage(const QByteArray &octets);
