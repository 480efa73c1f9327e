#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>

/// The names of a day, as they stand in the file of name days, prefixes and separators included;
/// empty when the file has no such day. A line of the file: a delimiter, day and month of two
/// digits each, three fillers, the names from the ninth character on, a delimiter.
QString SaintsDuJour(const QByteArray &fichier, QDate jour);
