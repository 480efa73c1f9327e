#pragma once
// A workbook that the program has opened, read by another program than the one that wrote it.

#include <QJsonObject>
#include <QString>

/// Reads the first sheet, once for each workbook. Where there is no workbook, no cell of this name
/// can be or the reader fails, it throws `Echec`.
class LecteurClasseur {
 public:
  /// From here on the questions are about this file.
  void Ouvrir(const QString &chemin);

  /// Names of all sheets, separated by commas.
  QString Feuilles() const;
  qsizetype NombreLignes() const;

  /// Text of a cell, "" for one that is empty. A formula, a number or a date is a failure.
  QString Texte(const QString &cellule) const;
  bool EstGras(const QString &cellule) const;
  QString Fond(const QString &cellule) const;     ///< "#rrggbb", or "" for none of its own
  QString Couleur(const QString &cellule) const;  ///< of the text, in the same way
  /// `gauche`, `centre` or `droite`.
  QString Alignement(const QString &cellule) const;

 private:
  /// What the reader tells of a cell; nothing of one that is empty and has no format.
  QJsonObject Cellule(const QString &nom) const;

  QString chemin_;
  QJsonObject lu_;
};
