#pragma once
// What several unit tests need: a folder of their own, raw files, and texts that print readably.

#include "commun/DisquePlein.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <ostream>

inline void PrintTo(const QString &texte, std::ostream *flux) {
  *flux << (texte.isNull() ? "null" : '"' + texte.left(2000).toStdString() + '"');
}
inline void PrintTo(const QByteArray &octets, std::ostream *flux) {
  *flux << '"' << octets.left(2000).toPercentEncoding(" ,=[]*$\"").toStdString() << '"';
}

/// A test with a folder of its own.
class DansUnDossier : public testing::Test {
 protected:
  QString Chemin(const QString &nom = {}) const { return dossier_.filePath(nom); }

  void Poser(const QString &nom, const QByteArray &octets) const {
    QFile fichier(Chemin(nom));
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly) && fichier.write(octets) == octets.size());
  }
  QByteArray Octets(const QString &nom) const {
    QFile fichier(Chemin(nom));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("(no file)");
  }
  bool Existe(const QString &nom) const { return QFile::exists(Chemin(nom)); }
  QStringList Contenu() const {
    return QDir(dossier_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
  }

 private:
  QTemporaryDir dossier_;
};
