#pragma once
// A record of the directory beside the person of a file who bears its name: what the two say of
// each other, and the one that comes of both.

#include "exchange/PersonneImportee.h"
#include "storage/Lignes.h"

#include <QString>
#include <QStringList>

#include <array>

/// A record of the directory beside the person of a file that bears its name. An address is one
/// value: it is filled where nothing of it contradicts, or taken whole. Of notes and categories
/// only what is not there yet counts, and is added to them: they are never replaced. The name, the
/// protection and the mark of the alerts are those of the directory.
struct Confrontation {
  ChoixColonnes<Correspondant> manques;  ///< empty there, the file fills them
  ChoixColonnes<Correspondant> ecarts;   ///< the file says otherwise

  bool Pareils() const { return (manques | ecarts).none(); }
};

Confrontation Confronter(const Correspondant &presente, const PersonneImportee &personne);

/// The record with these columns of the person. A picture that came along is not among them: it
/// needs a file first.
Correspondant Fondre(Correspondant presente, const PersonneImportee &personne,
                     const ChoixColonnes<Correspondant> &prises);

/// What is one value, the address, with `OptionAdresse`.
inline constexpr std::array kAdresse{&Correspondant::Ligne2,     &Correspondant::Ligne3,
                                     &Correspondant::Ligne4,     &Correspondant::Ligne5,
                                     &Correspondant::CodePostal, &Correspondant::Ville,
                                     &Correspondant::Pays};

inline constexpr std::array kNumeros{&Correspondant::Tel, &Correspondant::TelTravail,
                                     &Correspondant::Portable, &Correspondant::Fax};

/// What two writings of one number have in common, and of any other text.
QString NumeroNu(const QString &numero);
QString SansEcriture(const QString &texte);

/// The notes of a person that another text of notes does not hold, each whole.
QStringList NotesNouvelles(const QString &presentes, const PersonneImportee &personne);
