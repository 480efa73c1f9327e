#pragma once

#include "address/ChaineAdresse.h"
#include "platform/Boites.h"
#include "session/Session.h"
#include "storage/Historique.h"
#include "storage/Lignes.h"

#include <QListWidget>

#include <functional>
#include <optional>

/// The senders that are kept, each with a box: at most one is ticked, the default sender of table
/// and file. Item 0 stands for no sender.
class ListeExpediteurs : public QListWidget {
  Q_OBJECT

 public:
  explicit ListeExpediteurs(QWidget *parent = nullptr);

  /// `change` takes the sender whose box has been ticked or unticked, with its key, 0 for none, and
  /// whether it is ticked now.
  using Change = std::function<void(const AdresseComposee &, Cle, bool)>;
  void Relier(Session &session, Change change);

  /// Reads the table. The default sender is ticked, item 0 where there is none; it is chosen too,
  /// unless another is to be.
  void Remplir(std::optional<Cle> choisi = {});

  /// Reads the table again; what is chosen stays so where it is still there.
  void Relire();

  /// Key of the chosen sender; 0 for item 0, nothing when none is chosen.
  std::optional<Cle> Choisi() const;
  /// Key of the default sender, 0 for none.
  Cle Defaut() const;

  /// Has `ecrire` choose the default sender named `nom`. It is given the default one on display and
  /// gives the stored one back where another user has chosen that meanwhile, without having
  /// written; the user is asked then. Oui: it is written; Non: the other's stays; Annuler: back to
  /// the entry.
  Boites::Choix AccorderDefaut(const QString &nom,
                               const std::function<std::optional<Cle>(Cle montre)> &ecrire);

  /// What the user does here with the senders, as one command that the file goes with.
  class Ecriture : public Acte {
   public:
    Ecriture(Session &session, const QString &nom);
  };

  /// Takes a sender off table and list, and the file where it is the default one.
  void Supprimer(Cle index);

  /// Tells that another user has deleted a sender, and reads the table again, both once the event
  /// that has met it is over.
  void AnnoncerDisparu();

 private:
  void Cocher(QListWidgetItem *element);
  /// Ticks the sender of this key alone; nothing for none, not even item 0.
  void MontrerCoche(std::optional<Cle> coche);
  /// Ticks and envelope follow the box of a sender.
  void Suivre(Cle index, bool coche);
  /// Another user's choice stays: file, ticks and envelope follow it.
  void SuivreAutre(Cle sien);

  Session *session_ = nullptr;
  Change change_;
  std::optional<Cle> coche_;  ///< the box that is ticked as table and file have it
};
