#pragma once
// What files of other programs know of a person, whatever their form, and the one rule that makes a
// record of it. Nothing of it is lost: what has no column goes to the notes with its label.

#include "exchange/PersonneImportee.h"

#include <QDate>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <utility>

enum class Lieu { Aucun, Domicile, Travail, Autre };

/// What other programs write beside a value: where it is at home, what it is for.
struct Usage {
  enum class Genre { Ordinaire, Mobile, Fax, Divers };  ///< `Divers`: no number to be called

  Lieu lieu = Lieu::Aucun;
  Genre genre = Genre::Ordinaire;
  QString libelle;  ///< in the user's own words, or those of a rare use; empty for the common ones
  int rang = 101;   ///< 1 for the preferred one, 101 where nothing is said
};

/// The use that a label tells, in the French or English words of the common programs; one that it
/// does not know is kept as the user's own.
Usage UsageDe(const QString &libelle);

struct ValeurContact {
  QString valeur;
  Usage usage;
};

struct AdresseContact {
  QString complement, rue, boitePostale, ville, region, code, pays;
  Usage usage;

  bool EstVide() const;
};

struct Contact {
  QString prefixe, prenom, autresPrenoms, famille, suffixe;
  QString complet;  ///< the name as other programs show it
  QString societe;
  QStringList services;
  bool estSociete = false;  ///< no person

  QList<AdresseContact> adresses;
  QList<ValeurContact> numeros, courriels, sites;
  QDate naissance;
  QStringList categories;
  QString note;
  std::optional<PhotoImportee> photo;

  /// What has no column: label and value.
  QList<std::pair<QString, QString>> autres;
  /// What may only say again what stands in a column: noted where it says more.
  QList<std::pair<QString, QString>> redites;
  /// Whole columns, by their ordinals, as a program of ours has written them, or the name of
  /// the list where a file says it: they hold over all else.
  QHash<std::size_t, QString> colonnes;
};

/// The record of a contact, refused where nothing names it. A value too long for a column goes
/// whole to the notes.
PersonneImportee PersonneDe(Contact contact, const UsagesReprise &usages);

/// What a text column of the older databases holds: a record may still have to go into one.
inline constexpr qsizetype kPlusLong = 255;
/// Every text that is null becomes an empty one: a null mark of protection would hide the record
/// from everybody.
void SansNul(Correspondant &fiche);
/// Lines behind the notes that are there.
void Annexer(QString &notes, const QStringList &lignes);
/// "22/03" of a day without its year, "--03-22" or "--0322"; any other text as it is.
QString JourSansAnnee(const QString &texte);
/// Why a record that nothing names is refused.
QString RefusSansNom();

/// A column as a text that `LireColonne` takes back, and whether it could.
QString EcrireColonne(const Correspondant &fiche, std::size_t ordinal);
bool LireColonne(Correspondant &fiche, std::size_t ordinal, const QString &texte);

/// The names of the categories of a record.
QStringList NomsCategories(const QString &categories);
