#pragma once
// The list of correspondents of a category, as the tree shows it.

#include "storage/Tables.h"

#include <QList>
#include <QString>

#include <vector>

/// What narrows the list.
struct FiltreListe {
  QString categorie;    ///< a category, or one of the pseudo-categories
  QString lettre;       ///< initial, of a quick search; it stands for its accented forms too
  QString utilisateur;  ///< whose protected records are shown

  friend bool operator==(const FiltreListe &, const FiltreListe &) = default;
};

/// Whether a record stands in the category of the filter.
bool EstDeLaCategorie(const EntreeListe &entree, const FiltreListe &filtre);

/// A child of the tree's root.
struct NoeudListe {
  QString texte;
  Cle index = 0;

  friend bool operator==(const NoeudListe &, const NoeudListe &) = default;
};

/// What is said below a name of the list.
struct PrecisionListe {
  struct Passage {
    qsizetype debut, longueur;
  };

  QString texte;           ///< in one line; empty for nothing
  QList<Passage> trouves;  ///< where in it stands what has been looked for, in order
};

/// A name as the list shows it: 25 characters at most, without blanks at its ends.
QString NomListe(const QString &nom);

/// Reads the table once, and sorts by the shown names in French order, upper and lower case alike;
/// equal names keep the order of the table. Throws `ErreurBase`.
std::vector<NoeudListe> ListerVelmiras(const TableAdresse &table, const FiltreListe &filtre);

/// The same of those whose address has a first line, in the same order, with their whole names.
std::vector<NoeudListe> ListerAdresses(const TableAdresse &table, const FiltreListe &filtre);

/// The records of a name that the list shows this user. Throws `ErreurBase`.
QList<Cle> FichesNommees(const TableAdresse &table, const QString &nom, const QString &utilisateur);

/// The same for what another program asks for: the key of a record that the list shows, else a
/// name. Throws `ErreurBase`.
QList<Cle> FichesDemandees(const TableAdresse &table, const QString &cible,
                           const QString &utilisateur);

/// Where a name stands in a list that is sorted as above: behind the names that are equal to it.
std::vector<NoeudListe>::const_iterator PlaceDansListe(const std::vector<NoeudListe> &noeuds,
                                                       const QString &nom);

/// Whether the beginning of a shown name, upper and lower case alike and without blanks at the end
/// of what is compared, is this text.
bool CommencePar(const QString &nom, const QString &debut);

/// The first name of the list that begins so; the end of the list when there is none.
std::vector<NoeudListe>::const_iterator Commencant(const std::vector<NoeudListe> &noeuds,
                                                   const QString &debut);

/// The line under the list: "Pas d'enregistrement", "1  enregistrement", "2  enregistrements ".
QString TexteCompte(qsizetype enregistrements);
