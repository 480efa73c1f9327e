#pragma once
// A table of a Jet database as its reader hands it over.

#include "platform/TramesJet.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QVariant>

/// Fed with what the reader writes, of which nothing is believed: the reader may have been led
/// astray by the file. It keeps the rows as they came.
class TableJet {
 public:
  /// `limite`: the memory, in bytes, that it may take.
  explicit TableJet(qsizetype limite = 0) : limite_(limite) {}

  /// Takes the next bytes. False when they make no sense or are too many; the rows before stay.
  bool Ajouter(QByteArrayView octets);

  /// Whether the reader has come to the table's end. Only then the next ones are certain.
  bool Finie() const { return finie_; }
  bool Absente() const { return absente_; }
  bool TropGrande() const { return tropGrande_; }

  /// Whether nothing is missing: as many rows as the table claims, and all their fields.
  bool Entiere() const;

  int Colonnes() const { return colonnes_; }
  qsizetype Lignes() const { return lignes_.size(); }
  /// How many rows the table claims to have; what a damaged one claims may be anything.
  qint64 Annoncees() const { return annoncees_; }
  /// How many fields of the rows could not be read.
  qsizetype Illisibles() const { return illisibles_; }

  /// The fields of a row: a text, a number, or null for one that is none or could not be read.
  QList<QVariant> Ligne(qsizetype rang) const;

 private:
  bool Traiter(jet::Trame trame, QByteArrayView corps);
  bool PrendreEntete(QByteArrayView corps);
  bool PrendreLigne(QByteArrayView corps);
  bool PrendreFin(QByteArrayView corps);

  qsizetype limite_;
  qsizetype pris_ = 0;
  QByteArray tampon_;
  int colonnes_ = 0;
  qint64 annoncees_ = 0;
  qsizetype illisibles_ = 0;
  QList<QByteArray> lignes_;
  bool absente_ = false, finie_ = false, abimee_ = false, tropGrande_ = false, refusee_ = false;
};
