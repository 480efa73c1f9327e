#pragma once
// What another program writes, read within limits.

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>

enum class FinProcessus {
  Reussi,       ///< it has ended with status 0
  Echoue,       ///< it has ended with another one, or was killed by something else
  Introuvable,  ///< it could not be started
  Delai,        ///< its time was over, and it was killed
  Interrompu,   ///< what it wrote was not wanted any more, and it was killed
};

/// Runs a program, with nothing to read and its complaints unheard, and hands over what it writes
/// to its standard output as it comes; `recevoir` gives false where it wants no more. The program
/// has ended when this returns. In any thread.
FinProcessus LireSortie(const QString &programme, const QStringList &arguments,
                        std::chrono::milliseconds delai,
                        const std::function<bool(QByteArrayView)> &recevoir);

/// The path of a program that belongs to this one and is no command of its own: beside its
/// executable, as in a portable copy, or else where it is installed.
QString ProgrammeAuxiliaire(const QString &nom);
