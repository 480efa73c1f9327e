#pragma once
// What the columns of a table of persons become: recognised by their heads, or chosen by the user
// and remembered for the next file with the same heads.

#include "exchange/Contact.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// What a column becomes.
struct Destination {
  /// The numbers are kept in a file: a new one goes to the end.
  enum class Champ {
    Ignorer,
    Notes,    ///< with the head as its label
    Redite,   ///< the same, where it says more than the columns do
    Reglage,  ///< the same, where it is not what the other program puts there by itself
    Libelle,  ///< the label of the values of its group
    Colonne,  ///< a whole column of ours, whose ordinal is `groupe`
    Prefixe,
    Prenom,
    AutresPrenoms,
    Famille,
    Suffixe,
    Complet,    ///< given name first
    NomPrenom,  ///< family name first
    Societe,
    Service,
    Complement,
    Rue,
    BoitePostale,
    CodePostal,
    Ville,
    Region,
    Pays,
    Numero,
    Mobile,
    Fax,
    Courriel,
    Site,
    Naissance,
    JourNaissance,
    MoisNaissance,
    AnneeNaissance,
    Note,
    Categories,
  };

  Champ champ = Champ::Notes;
  Lieu lieu = Lieu::Aucun;
  int groupe = 0;  ///< columns of one number belong together

  friend bool operator==(const Destination &, const Destination &) = default;
};

/// What all columns of a file become.
struct Correspondances {
  QList<Destination> colonnes;  ///< by the columns
  bool moisDevant = false;      ///< dates are month/day/year

  friend bool operator==(const Correspondances &, const Correspondances &) = default;
};

/// What the heads tell, those of our own files, of Outlook, Gmail, Thunderbird and iCloud, in
/// French and English, and the usual words of other tables. An unknown one goes to the notes.
Correspondances Reconnaitre(const QStringList &entetes);

/// Whether any of the columns names the persons.
bool DonnentUnNom(const Correspondances &correspondances);

/// The choices for a column, in the order in which they are offered, and how each is read.
QList<Destination> DestinationsProposees();
QString LibelleDestination(const Destination &destination);

/// Under which name the choice for a row of heads is remembered, and the choice as one line of
/// plain characters; nothing for a line that is none for so many columns.
QString CleEntetes(const QStringList &entetes);
QString EcrireCorrespondances(const Correspondances &correspondances);
std::optional<Correspondances> LireCorrespondances(const QString &texte, qsizetype colonnes);

/// The columns of a table of ours, by their ordinals, in their order: all but the key.
QList<std::size_t> OrdreColonnes();
/// The head of such a column; empty for any other.
QString EntetePropre(std::size_t ordinal);
