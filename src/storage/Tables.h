#pragma once
// Reading and writing the rows of the tables: few verbs, each the query that the program asks.

#include "storage/Avance.h"
#include "storage/Base.h"
#include "storage/Lignes.h"

#include <QList>
#include <QStringList>

#include <functional>
#include <optional>

/// What the list needs of a correspondent.
struct EntreeListe {
  Cle Index = 0;
  QString NomVelmira, Categories, DataProt;
};

/// When somebody was born; the members are called as in `Correspondant`.
struct Naissance {
  Cle Index = 0;
  QString NomVelmira, DDN, DataProt;
};

/// Adds a row; its key is given by the engine and returned. Throws `ErreurBase`.
template <typename L>
Cle AjouterLigne(Base &base, const L &ligne);

/// Writes the chosen columns of the row that bears the key of `ligne`, and nothing else; at least
/// one is chosen. False when another user has deleted the row. Throws `ErreurBase`.
template <typename L>
bool ModifierLigne(Base &base, const L &ligne, const ChoixColonnes<L> &choix);

/// Writes the columns in which `saisie` differs from `montree`, the row as it was shown, and
/// nothing else. Where another user has changed one of them to something else meanwhile nothing is
/// written and the stored row is given back. Stands in the caller's transaction. Throws
/// `ErreurBase`, also, with the words `disparue`, when another user has deleted the row.
template <typename L>
std::optional<L> ModifierChangees(Base &base, const L &montree, const L &saisie,
                                  const QString &disparue);

/// What the user is told of a record that another user has deleted meanwhile.
QString TexteDisparu();

/// The same of a sender.
QString TexteExpediteurDisparu();

/// The records that a user has protected are hidden from the others, or shown to them. No other
/// mark is touched. Stands in the caller's transaction. Throws `ErreurBase`.
void EcrireMarques(Base &base, const QString &utilisateur, bool masquer);

/// Makes the links of all towns anew; a town whose name holds a double quote keeps none. Stands in
/// the caller's transaction. Throws `ErreurBase`.
void RelierVilles(Base &base);

/// Table `Adresse`. Every verb throws `ErreurBase`; one that writes is one transaction.
class TableAdresse {
 public:
  explicit TableAdresse(Base &base) : base_(base) {}

  std::optional<Correspondant> Lire(Cle index) const;

  /// Walks the whole table in its stored order, the order of the keys.
  void PourChaque(const std::function<void(EntreeListe &&)> &visiteur) const;

  /// The same as `PourChaque`, only those with a first address line.
  void PourChaqueAdresse(const std::function<void(EntreeListe &&)> &visiteur) const;

  /// Those born on one of some days ("jj/mm"), and those whose birth date is written otherwise than
  /// "jj/mm/...", in the order of the keys.
  QList<Naissance> Naissances(const QStringList &jours) const;

  qsizetype Nombre() const;
  bool EstVide() const { return !APlusDe(0); }
  /// Whether there are more records than can be read within a frame of the screen.
  bool EstGrande() const;

  /// The distinct category strings, in the order in which a walk of the table first meets them;
  /// empty ones left out.
  QStringList Categories() const;

  /// Adds a correspondent and, for `alerte`, the person to those of the alerts.
  Cle Ajouter(const Correspondant &fiche, bool alerte);

  /// Writes the columns in which `saisie` differs from `montree`, the row as it was shown, as
  /// `ModifierChangees` does: where another user has changed one of them meanwhile nothing is
  /// written and the stored row is given back. With `alerte` the record is marked and the person
  /// added to those of the alerts, unless another user has done so meanwhile. Throws also when
  /// another user has deleted the record.
  std::optional<Correspondant> Modifier(const Correspondant &montree, const Correspondant &saisie,
                                        bool alerte = false);

  /// False when another user has deleted it meanwhile.
  bool Supprimer(Cle index);

  /// Gives every category string that holds `nom` anywhere the value that `regle` makes of it.
  void ChangerCategories(const QString &nom, const std::function<QString(const QString &)> &regle);

  /// `EcrireMarques` as a transaction; the name is not empty. What is taken back later goes by it.
  void MasquerProteges(const QString &utilisateur, bool masquer);
  /// Whether there are records that only this user sees.
  bool ADesMasques(const QString &utilisateur) const;

  /// Gives the four telephone numbers of every record the form that `regle` makes of them; null and
  /// empty ones stay. A record that the table refuses is passed over; at any other failure nothing
  /// at all is changed. When it is stopped nothing is changed either, and false is given back.
  bool ReformaterTelephones(const std::function<QString(const QString &)> &regle,
                            const Avance &avance);

  /// Puts a record into a category. False, and nothing is written, where its category string holds
  /// that name already, be it as a part of another one. Throws also when another user has deleted
  /// the record.
  bool AjouterCategorie(Cle index, const QString &nom);

 private:
  bool APlusDe(int nombre) const;
  void Parcourir(const QString &condition,
                 const std::function<void(EntreeListe &&)> &visiteur) const;

  Base &base_;
};

/// Table `Ville`. Every verb throws `ErreurBase`; one that writes is one transaction.
class TableVille {
 public:
  explicit TableVille(Base &base) : base_(base) {}

  QList<VilleCode> Toutes() const;
  std::optional<VilleCode> Lire(Cle index) const;

  /// Remembers a town with its code, and links the rows of the town. A code that stands in one that
  /// is known already, or is empty, adds nothing to a known town.
  void Enregistrer(const QString &ville, const QString &code);

  /// `RelierVilles` as a transaction.
  void Relier();

 private:
  Base &base_;
};

/// Table `Expediteur`. Every verb throws `ErreurBase`; one that writes is one transaction.
class TableExpediteur {
 public:
  /// What has to go with the default sender is brought in step before the transaction is ended: the
  /// default one as it will stand, without a key for none. What it throws undoes the transaction
  /// and passes through.
  using Suite = std::function<void(const Expediteur &)>;

  explicit TableExpediteur(Base &base) : base_(base) {}

  /// In the order of the keys.
  QList<Expediteur> Tous() const;
  std::optional<Expediteur> Lire(Cle index) const;

  /// Adds a sender and gives it its key; when it is the default one no other stays it. Where that
  /// would put aside another default one than `defautMontre` (0 for none), which another user has
  /// chosen meanwhile, nothing is written and that one's key is given back, 0 for none. `suite`
  /// where it is the default one.
  std::optional<Cle> Ajouter(Expediteur &expediteur, Cle defautMontre, const Suite &suite);

  /// Writes what the user has changed of the address, as `ModifierChangees` does; whether it is the
  /// default one stays, and `suite` where it is. Throws also when another user has deleted the
  /// sender.
  std::optional<Expediteur> Modifier(const Expediteur &montre, const Expediteur &saisi,
                                     const Suite &suite);

  /// `suite` where it was the default one.
  void Supprimer(Cle index, const Suite &suite);

  /// Key of the default sender, the first where several are marked; 0 for none.
  Cle Defaut() const;
  /// Makes this sender the default one and no other; 0 for none. As in `Ajouter`, nothing is
  /// written over what another user has chosen meanwhile. Throws also when another user has deleted
  /// the sender.
  std::optional<Cle> ChangerDefaut(Cle defautMontre, Cle index, const Suite &suite);
  /// No sender stays the default one.
  void OublierDefaut();

 private:
  void MettreDefaut(Cle index);

  Base &base_;
};
