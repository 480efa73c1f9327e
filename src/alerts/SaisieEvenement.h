#pragma once

#include "platform/Boites.h"
#include "platform/Horloge.h"
#include "storage/TablesAlertes.h"

#include <QGroupBox>
#include <QStringList>

#include <memory>
#include <optional>

namespace Ui {
class SaisieEvenement;
}

/// The fields in which an event is entered: a new one of the person that was chosen, or the event
/// that was chosen.
class SaisieEvenement : public QGroupBox {
  Q_OBJECT

 public:
  explicit SaisieEvenement(QWidget *parent = nullptr);
  ~SaisieEvenement() override;

  void Relier(Boites &boites, Base &base, const Horloge &horloge);
  /// Reads the types of event.
  void Charger();

  /// Nothing is chosen any more.
  void Vider();
  /// A new event of a person, on the birthday of one with a birth date.
  void Proposer(const PersonneAlerte &personne);
  void Montrer(const EvenementJoint &joint);

  /// Whether something of the event has been entered, and not been recorded.
  bool EstEntamee() const;

 signals:
  /// An event has been written, or a type has gone with its events.
  void EvenementsChanges();

 private:
  void RemplirListes();
  void SuivreAnnuelle();
  void ChoisirJour(const QString &date);
  /// An annual event has the current year, one of 29/02 the last year that has this day. None when
  /// there is no such day.
  QDate DateChoisie() const;
  /// What the fields say, but for the key of the type; nothing when something is missing.
  std::optional<Evenement> Saisi() const;
  QStringList Champs() const;
  void Enregistrer();
  /// Adds the event, or writes what the user has changed of it; false when the user goes back to
  /// the entry.
  bool Ecrire(const Evenement &saisi);
  void ExpliquerTypes();

  std::unique_ptr<Ui::SaisieEvenement> ui_;
  Boites *boites_ = nullptr;
  Base *base_ = nullptr;
  const Horloge *horloge_ = nullptr;
  std::optional<Evenement> cible_;  ///< as it was read; without a key: it is to be added
  Evenement affiche_;               ///< what the fields made of it
  QStringList depart_;              ///< `Champs` before anything was entered
};
