#pragma once

#include "alerts/ComboEvenements.h"
#include "platform/Horloge.h"

#include <QObject>

class QCheckBox;
class QLabel;

/// The fields in which an event is entered: a new one of the person that was chosen, or the event
/// that was chosen.
class SaisieEvenement : public QObject {
  Q_OBJECT

 public:
  struct Controles {
    QLabel *velmira;
    ComboEvenements *evenement;
    QComboBox *jour, *mois, *annee, *delai;
    QCheckBox *annuelle;
    QLabel *texteAnnuelle;
    QCheckBox *age, *generer;
  };

  SaisieEvenement(Boites &boites, Base &base, const Horloge &horloge, const Controles &controles);

  /// Nothing is chosen any more.
  void Vider();
  /// A new event of a person, on the birthday when the text of its node tells one.
  void Proposer(Cle personne, const QString &texteNoeud);
  void Montrer(const EvenementJoint &joint);

  /// Writes the event. False, with the message that says so, when something is missing.
  bool Enregistrer();

 private:
  void RemplirListes();
  void SuivreAnnuelle();
  QDate DateChoisie() const;
  bool Complet() const;

  Boites &boites_;
  Base &base_;
  const Horloge &horloge_;
  Controles c_;
  std::optional<Evenement> cible_;  ///< without a key: the event is to be added
};
