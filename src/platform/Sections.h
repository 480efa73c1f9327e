#pragma once
// Files of sections in square brackets with lines "key=value". Whatever a file holds beside the
// keys that are written (order, spacing, comments, unknown lines) stays as it is.

#include <QByteArray>
#include <QList>
#include <QString>

class Sections {
 public:
  explicit Sections(const QByteArray &octets = {});

  /// The value, without surrounding blanks and quotes, cut to what a buffer of `taille` characters
  /// holds with its closing zero; empty when the key is absent. Names compare without case.
  QString LireCle(const QString &section, const QString &cle, qsizetype taille) const;

  /// Puts the value in the place of the old one, or at the end of the section.
  void EcrireCle(const QString &section, const QString &cle, const QString &valeur);

  QByteArray Octets() const;

 private:
  struct Place {
    qsizetype ligne = -1;  ///< line of the key, or -1
    qsizetype fin = -1;    ///< line behind the section's last filled line, or -1 without a section
  };
  Place Chercher(const QString &section, const QString &cle) const;

  QList<QString> lignes_;  ///< without their line feeds, with a carriage return where one stood
  QString retour_;         ///< what ends a new line before its line feed
};
