#pragma once
// The directory for other programs: address cards or a table. What these have no place for is
// written too, so that reading the file again (`OuvrirCartes`, `OuvrirCsv`) changes no field: of a
// card in properties of our own, X-VELMIRA- and the name of the column.

#include "exchange/PersonneImportee.h"
#include "storage/Avance.h"
#include "storage/Base.h"

#include <QSet>
#include <QString>

#include <optional>

enum class FormatExport {
  Cartes4,  ///< vCard 4.0 (RFC 6350)
  Cartes3,  ///< vCard 3.0 (RFC 2426), which older programs read
  Tableau,  ///< CSV: UTF-8 with its mark, ";", CR LF, as a French spreadsheet opens it
};

/// One card with its END and line end; `photo` stands in it where there is one.
QByteArray EcrireCarte(const Correspondant &fiche, const std::optional<PhotoImportee> &photo,
                       FormatExport format, const UsagesReprise &usages);

/// A line of a table, with its end; the line of the heads.
QByteArray EcrireLigne(const Correspondant &fiche);
QByteArray EcrireEntetes();

struct DemandeExport {
  QString chemin;  ///< of the file, replaced whole
  FormatExport format = FormatExport::Cartes4;
  QString categorie;                 ///< only its records; empty for all
  std::optional<QSet<Cle>> cochees;  ///< only these
  QString utilisateur;               ///< who sees what is written
  UsagesReprise usages;
};

struct BilanExport {
  qsizetype ecrits = 0;
  qsizetype caches = 0;     ///< left out: another user hides them
  qsizetype sansPhoto = 0;  ///< whose picture could not be read, or is above 16 MB; its path stays
  bool arrete = false;      ///< nothing has been written then
};

/// Writes the records in the order of the table. Throws `ErreurBase` and `ErreurFichier`; the file
/// is as it was then.
BilanExport ExporterPersonnes(Base &base, const DemandeExport &demande, const Avance &avance);

/// What the user reads of a file that has been written.
QString TexteBilan(const BilanExport &bilan, const QString &chemin);
