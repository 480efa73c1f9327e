#pragma once

#include "directory/ArbreVelmiras.h"
#include "session/Session.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace Ui {
class ListeVelmiras;
}

/// The left side of the directory: the categories, the search by the beginning of a name or by an
/// initial, and the tree of the category that is chosen.
class ListeVelmiras : public QWidget {
  Q_OBJECT

 public:
  explicit ListeVelmiras(QWidget *parent = nullptr);
  ~ListeVelmiras() override;

  /// Before anything else. `avant` runs before each filling of the tree, once what is to be shown
  /// has been read; when it gives false or throws, or nothing can be read, the list stays as it is.
  void Relier(Session &session, std::function<bool()> avant);

  /// The first filling of the whole: on the favourites, or on all. Throws `ErreurBase`;
  /// `Actualiser` then makes up for it.
  void Ouvrir(bool surFavoris);

  /// Reads categories and list again, and shows what other users have made of them; all categories
  /// where the one on display has gone. The record on display is another's business: `retenue`
  /// stays listed whatever became of it; false when it should not. Throws `ErreurBase`, and nothing
  /// has changed then.
  bool Actualiser(Cle retenue);

  /// Collects the categories and fills the combo. The category on display stays chosen; none when
  /// it has gone. The tree is left as it is.
  void RemplirCategories();

  /// Chooses a category as the user would, which fills the tree. Throws `ErreurBase`.
  void AfficherCategorie(const QString &categorie);

  /// Puts a node in its place in the tree; the record is another's business.
  void Inserer(const NoeudListe &noeud);
  /// Takes a node off the tree; the record is another's business. The root is selected where the
  /// node was.
  void Retirer(const QModelIndex &noeud);

  /// Leaves the record on display: the root is selected and clicked.
  void CliquerRacine();

  /// The line that counts the records.
  void MettreAJourCompte();

  /// The boxes of the choice for the workbook, and the two buttons below it.
  void MontrerChoix(bool montre);

  /// Size in points of the font of the categories and of the tree.
  void ChangerTaillePolice(int points);

  ArbreVelmiras &Arbre() const;
  /// The category that is chosen, a pseudo-category too.
  QString Categorie() const;

 signals:
  /// A node has been clicked, see `ArbreVelmiras`: the key of its record, 0 for the root.
  void Cliquee(Cle index, Qt::MouseButton bouton);
  /// A record has been clicked twice.
  void DoubleCliquee();
  void FavoriDemande();
  /// The choice for the workbook has been made, or given up.
  void ExportDemande();
  void ExportAbandonne();

 private:
  void Brancher();
  /// Fills the tree. What the combo shows follows, or goes back when that fails.
  void Charger(const QString &categorie, const QString &lettre);
  /// Nothing where there is nobody at all.
  std::optional<std::vector<NoeudListe>> Lister(const QString &categorie,
                                                const QString &lettre) const;
  void PoserCategories(const QStringList &categories);
  /// The combo shows the category of the list, and the quick search only while that is the one.
  void AccorderCombo();
  void Chercher(const QString &debut);
  void ChoisirInitiale();

  std::unique_ptr<Ui::ListeVelmiras> ui_;
  Session *session_ = nullptr;
  std::function<bool()> avant_;
  QString CategorieCourante;      ///< of the last filling, or of the one that `Ouvrir` could not do
  QString LettreRR;               ///< initial of the quick search
  qsizetype NombreNoeuds = 0;     ///< children of the last filling, and those added since
  bool RechercheEnCours = false;  ///< the box held something at its last change
};
