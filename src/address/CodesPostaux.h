#pragma once
// The file of postal codes, `CdPostal.txt`: one line a town, five characters of code, two of
// separation, the town.

#include <QByteArray>
#include <QList>
#include <QString>

/// A line of the file.
struct CodePostal {
  QString ligne;

  QString Code() const { return ligne.left(5); }
  QString Ville() const { return ligne.mid(7); }
};

/// The lines of the application folder's file that hold a text anywhere, upper and lower case
/// alike, in the order of the file. Throws `ErreurFichier` when the file is missing.
QList<CodePostal> ChercherCodes(const QString &appPath, const QString &texte);

/// The same lines of a file that has been read.
QList<CodePostal> ChercherCodes(const QByteArray &fichier, const QString &texte);
