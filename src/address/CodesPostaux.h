#pragma once

#include <QByteArray>
#include <QStringList>

/// The lines of the file of postal codes that hold a text anywhere, upper and lower case alike, in
/// the order of the file.
QStringList ChercherCodes(const QByteArray &fichier, const QString &texte);
