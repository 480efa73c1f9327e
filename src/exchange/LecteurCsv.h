#pragma once
// Tables of persons as text (RFC 4180, and what spreadsheets make of it): one record a line, values
// between separators, those in double quotes may hold line ends. A text stays a text, a formula
// too.

#include "exchange/ColonnesCsv.h"
#include "exchange/PersonneImportee.h"

#include <QByteArrayView>
#include <QList>
#include <QStringList>

#include <memory>

/// How a table is laid out; its separator, ";", "," or a tab, is found at each reading.
struct FormeCsv {
  QStringList entetes;             ///< invented ones where the first line holds a person already
  bool avecEntetes = true;         ///< the first line is one of heads
  QList<QStringList> echantillon;  ///< the first records, as they stand
};

/// Whether a file that begins so may be a table: a text whose first line has two columns.
bool EstUnTableau(QByteArrayView debut);

/// Finds out how a table is written. Throws `ErreurFichier` where it is none, or one of more than
/// a thousand columns.
FormeCsv AnalyserCsv(const QString &chemin);

/// What its columns become: recognised by the heads, and by the sample whether months stand first.
Correspondances Proposer(const FormeCsv &forme);

/// The persons of a table. Refused are: a record above 4 MB, one whose quote is not closed, and one
/// that names nobody. Throws `ErreurFichier` when the file cannot be read.
std::unique_ptr<SourcePersonnes> OuvrirCsv(const QString &chemin, const FormeCsv &forme,
                                           Correspondances correspondances, UsagesReprise usages);

// How a table of ours holds what a spreadsheet would change. Reading what is written gives the
// column as `EcrireColonne` does.

/// A text that a spreadsheet would calculate stands behind an apostrophe; of the categories there
/// are the names, those of another form than ours behind a star.
QString EcrireCellule(const Correspondant &fiche, std::size_t ordinal);
QString LireCellule(const QString &cellule, std::size_t ordinal);
