#pragma once
// What the user chooses for those who are in the directory already: one answer for all of them,
// another for one person, and what is taken of it, field by field.

#include "exchange/EtudeReprise.h"
#include "exchange/Reprise.h"

#include <QHash>
#include <QList>
#include <QString>

#include <utility>

/// What is taken or left as a whole: one column, or all those of the address.
struct ChampRencontre {
  QString nom;
  ChoixColonnes<Correspondant> colonnes;
  QString la, ici;  ///< in the directory and in the file, as they are read
};

/// In which fields the two differ, in the order of a record.
QStringList NomsChamps(const Confrontation &faite);
QList<ChampRencontre> ChampsDe(const Rencontre &rencontre);

class ChoixRencontres {
 public:
  using Reponses = QHash<std::pair<QString, qsizetype>, ReponseReprise>;

  /// Those of another study. Who was answered for before keeps that answer.
  void Poser(QList<Rencontre> rencontres) { rencontres_ = std::move(rencontres); }
  void Oublier() { *this = {}; }
  const QList<Rencontre> &Toutes() const { return rencontres_; }

  Deja PourTous() const { return pourTous_; }
  void RepondrePourTous(Deja deja) { pourTous_ = deja; }

  /// The answer of their own; null for who is as all others.
  const ReponseReprise *Propre(qsizetype rang) const;
  void Repondre(qsizetype rang, const ReponseReprise &reponse);
  void RepondreCommeTous(qsizetype rang);

  /// The answer that holds for a person, whatever was chosen field by field.
  Deja DejaDe(qsizetype rang) const;
  /// What is taken of the file for a person as things are.
  ChoixColonnes<Correspondant> Prises(qsizetype rang) const;
  /// What of it goes to the notes instead, since the directory says otherwise.
  ChoixColonnes<Correspondant> Notees(qsizetype rang) const;
  /// Takes or leaves a field; all else stays as it is.
  void Prendre(qsizetype rang, const ChoixColonnes<Correspondant> &champ, bool prend);

  /// How many people differ in a field, and the same choice for all of them.
  qsizetype Nombre(const ChoixColonnes<Correspondant> &champ) const;
  void PrendrePartout(const ChoixColonnes<Correspondant> &champ, bool prend);

  /// Of how many the record changes, or gets another beside.
  qsizetype Nombre() const;

  /// Whether something was chosen that would be lost.
  bool Choisi() const { return pourTous_ != Deja::Completer || !propres_.isEmpty(); }
  const Reponses &Propres() const { return propres_; }

 private:
  std::pair<QString, qsizetype> CleDe(qsizetype rang) const;

  QList<Rencontre> rencontres_;
  Deja pourTous_ = Deja::Completer;
  Reponses propres_;
};
