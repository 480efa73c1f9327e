#pragma once
// A person as another program's file tells of it, on the way into the directory, and what such
// persons come from, whatever the form of the file.

#include "storage/Lignes.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/// A picture that came along.
struct PhotoImportee {
  QByteArray octets;
  QString genre;  ///< what its file's name ends with, told by its content: "jpg", "png", "gif"...

  friend bool operator==(const PhotoImportee &, const PhotoImportee &) = default;
};

/// Where a record stands.
struct Origine {
  QString fichier;      ///< its path
  qsizetype rang = 0;   ///< from 1, the refused ones counted
  qsizetype ligne = 0;  ///< of its first line, from 1; 0 where the file has no lines
};

struct PersonneImportee {
  /// Ready to be written as a new row: no text is null, no key, numbers by the rule, date as
  /// jj/mm/aaaa, categories between stars. `Photo` is empty, but for a record that a program of
  /// ours has written: it is the path then that the picture had there.
  Correspondant fiche;
  /// To be put into a file of its own, unless `fiche.Photo` still holds the same bytes.
  std::optional<PhotoImportee> photo;
  /// What had no column of its own, each value with its label ("Surnom : Jo"). They stand at the
  /// end of `fiche.Commentaires` already.
  QStringList auxNotes;
  Origine origine;
  /// Why the record cannot be taken, as a sentence; empty for one that can. `fiche.NomVelmira` is
  /// its name then, as far as it is known.
  QString refus;
};

/// Persons one after another. Memory does not grow with their number: a caller who keeps none holds
/// one. Whoever wants no more stops asking.
class SourcePersonnes {
 public:
  virtual ~SourcePersonnes() = default;

  /// The next one, also a refused one; nothing once there are no more. Throws `ErreurFichier` when
  /// the file can be read no further.
  virtual std::optional<PersonneImportee> Suivante() = 0;

  /// How much has been read, and of how much.
  virtual qsizetype Lu() const = 0;
  virtual qsizetype Taille() const = 0;
};

/// What the reading of a file needs to know of this directory.
struct UsagesReprise {
  QString separateurTel;  ///< between the pairs of a number
  QStringList titres;     ///< as `LireTitres` gives them
};
