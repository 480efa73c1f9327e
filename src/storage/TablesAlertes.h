#pragma once
// The alerts in the database: kinds of event, people, and the dated events that join them.

#include "storage/Base.h"
#include "storage/Lignes.h"

#include <QList>

#include <optional>

/// An event with what its person and its type add to it.
struct EvenementJoint {
  Evenement evenement;
  QString Nom, DDN;  ///< of the person
  QString Type_alerte;
};

/// A person in force with the events of types in force.
struct PersonneEvenements {
  PersonneAlerte personne;
  QList<EvenementJoint> evenements;
};

/// What the user is told of an event that another user has deleted meanwhile.
QString TexteAlerteDisparue();

/// Tables `Alerte`, `Listecoal` and `ListeAlerte`. A type and a person are deleted by their mark
/// `Disponible`, an event really. Rows come in the order of their keys. Every verb throws
/// `ErreurBase`; one that writes is one transaction.
class TablesAlertes {
 public:
  explicit TablesAlertes(Base &base) : base_(base) {}

  /// The types in force.
  QList<TypeAlerte> Types() const;
  Cle AjouterType(const QString &texte);
  /// Adds the types that everybody needs; nothing where there is a type, even a deleted one.
  void AjouterTypesUsuels();
  /// Deletes the type and all its events.
  void SupprimerType(Cle type);

  /// The people in force with their events.
  QList<PersonneEvenements> Personnes() const;
  QList<PersonneAlerte> PersonnesSupprimees() const;
  /// A person in force.
  std::optional<PersonneAlerte> LirePersonne(Cle personne) const;
  void AjouterPersonne(const QString &nom, const QString &ddn);
  /// Writes what the user has changed of a person, as `ModifierChangees` does. Throws also when
  /// another user has deleted the person.
  std::optional<PersonneAlerte> ModifierPersonne(const PersonneAlerte &montree,
                                                 const PersonneAlerte &saisie);
  /// Brings deleted people back.
  void Reinscrire(const QList<Cle> &personnes);

  /// Whether there are correspondents to take over and no person yet, not even a deleted one.
  bool ImportPossible() const;
  /// Takes over every correspondent. Changes nothing once there is a person.
  void Importer();

  std::optional<EvenementJoint> LireEvenement(Cle evenement) const;
  /// Throws when another user has deleted the person or the type meanwhile.
  void AjouterEvenement(const Evenement &evenement);
  /// Writes what the user has changed of an event, as `ModifierChangees` does. Throws also when
  /// another user has deleted the event or the type.
  std::optional<Evenement> ModifierEvenement(const Evenement &montre, const Evenement &saisi);

  /// Deletes people with all their events, and events. What has gone already is left out.
  void Supprimer(const QList<Cle> &personnes, const QList<Cle> &evenements);

 private:
  void ExigerType(Cle type) const;

  Base &base_;
};
