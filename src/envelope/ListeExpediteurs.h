#pragma once

#include "address/ChaineAdresse.h"
#include "session/Session.h"
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

  /// `change` takes the sender of the envelope whenever a tick changes it.
  void Relier(Session &session, std::function<void(const AdresseComposee &)> change);

  /// Reads the table. The default sender is ticked, item 0 where there is none; it is chosen too,
  /// unless another is to be.
  void Remplir(std::optional<Cle> choisi = {});

  /// Key of the chosen sender; 0 for item 0, nothing when none is chosen.
  std::optional<Cle> Choisi() const;
  /// Key of the default sender, 0 for none.
  Cle Defaut() const;

  /// Takes the chosen sender off table and list, and the file where it is the default one.
  void SupprimerChoisi();

 private:
  void Cocher(QListWidgetItem *element);

  Session *session_ = nullptr;
  std::function<void(const AdresseComposee &)> change_;
};
