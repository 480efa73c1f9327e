#pragma once
// The desktop's files that start a program.

#include <QByteArray>
#include <QString>

/// An entry that starts `programme`, a full path, with one argument, or without any when it is
/// empty.
QByteArray EntreeBureau(const QString &nom, const QString &programme, const QString &argument = {});
