#pragma once
// What the tests of the real parts share: other programs, and waiting.

#include "commun/DisquePlein.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// What a program of the system prints; one that fails, fails the test.
inline QByteArray Executer(const QString &programme, const QStringList &arguments) {
  QProcess processus;
  processus.start(programme, arguments);
  EXPECT_TRUE(processus.waitForFinished(-1)) << qPrintable(programme);
  EXPECT_EQ(processus.exitCode(), 0) << processus.readAllStandardError().constData();
  return processus.readAllStandardOutput();
}

/// Lets events through until this holds; what never holds ends with the time of the whole test.
template <typename Condition>
void Attendre(Condition &&condition) {
  while (!condition()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
}
