#pragma once
// A record of the directory beside the person of a file who bears its name: what the two say of
// each other, and the one that comes of both.

#include "exchange/PersonneImportee.h"
#include "storage/Lignes.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <array>
#include <functional>
#include <optional>

/// What becomes of somebody who is there already.
enum class Deja {
  Completer,  ///< what is empty there is filled; what contradicts goes to the notes, if it can
  Garder,     ///< stays as it is there
  Prendre,    ///< what the file says holds
  Deux,       ///< the person of the file is added beside
};

/// A record of the directory beside the person of a file that bears its name. An address is one
/// value: it is filled where nothing of it contradicts, or taken whole. Of notes and categories
/// only what is not there yet counts, and is added to them: they are never replaced. The name, the
/// protection and the mark of the alerts are those of the directory.
struct Confrontation {
  ChoixColonnes<Correspondant> manques;  ///< empty there, the file fills them
  ChoixColonnes<Correspondant> ecarts;   ///< the file says otherwise
  ChoixColonnes<Correspondant> notees;   ///< of these, what the notes there say already

  /// Whether the file says nothing that the directory does not know.
  bool Pareils() const { return (manques | (ecarts & ~notees)).none(); }
};

/// What the file of a picture holds, see `LirePhoto`.
using LecturePhoto = std::function<std::optional<QByteArray>(const QString &chemin)>;

Confrontation Confronter(const Correspondant &presente, const PersonneImportee &personne,
                         const LecturePhoto &lirePhoto);

/// The record with these columns of the person. A picture that came along is not among them: it
/// needs a file first.
Correspondant Fondre(Correspondant presente, const PersonneImportee &personne,
                     const ChoixColonnes<Correspondant> &prises);

/// What is one value, the address, with `OptionAdresse`.
inline constexpr std::array kAdresse{&Correspondant::Ligne2,     &Correspondant::Ligne3,
                                     &Correspondant::Ligne4,     &Correspondant::Ligne5,
                                     &Correspondant::CodePostal, &Correspondant::Ville,
                                     &Correspondant::Pays};
ChoixColonnes<Correspondant> ColonnesAdresse();

/// What the file says otherwise, as lines for the notes: numbers, mail, web page, birth date and
/// the address as one, each with its label. The columns that they tell are `Notables`.
ChoixColonnes<Correspondant> Notables();
QStringList NotesDesEcarts(const PersonneImportee &personne,
                           const ChoixColonnes<Correspondant> &ecarts);

inline constexpr std::array kNumeros{&Correspondant::Tel, &Correspondant::TelTravail,
                                     &Correspondant::Portable, &Correspondant::Fax};

/// What two writings of one number have in common, and of any other text.
QString NumeroNu(const QString &numero);
QString SansEcriture(const QString &texte);

/// The notes of a person that another text of notes does not hold, each whole.
QStringList NotesNouvelles(const QString &presentes, const PersonneImportee &personne);
