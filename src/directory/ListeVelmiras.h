#pragma once

#include "directory/ArbreVelmiras.h"
#include "directory/Categories.h"
#include "directory/RechercheAJour.h"
#include "session/Session.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace Ui {
class ListeVelmiras;
}

class CompteRendu;

/// The left side of the directory: the categories, the search by the beginning of a name, by an
/// initial or in all that the records hold, and the tree of the category that is chosen, or of what
/// a search has found in it. Letters that are typed in the tree are the search's; Escape ends that.
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

  /// Collects the categories and fills the combo. The category on display stays chosen, and the
  /// tree as it is. Where that category has gone, `adieu` runs, and all are shown with the record
  /// that is selected. Throws `ErreurBase`.
  void RemplirCategories(const std::function<void()> &adieu = {});

  /// The same after a sweep of the categories: the one on display goes by its new name.
  void SuivreCategories(const RegleCategories &regle);

  /// Whether the category on display has lost its last member to a change, when a record has
  /// just been given these categories. Throws `ErreurBase`.
  bool EstVidee(const QString &categories) const;

  /// Chooses a category as the user would, which fills the tree. Throws `ErreurBase`.
  void AfficherCategorie(const QString &categorie);

  /// Goes to the field of the search, whose text is selected.
  void AllerALaRecherche();

  /// Looks for a text in all categories, as if it had been typed. Throws `ErreurBase`.
  void ChercherPartout(const QString &texte);

  /// Ends a search that shows its result: its category is shown whole. Throws `ErreurBase`.
  void QuitterResultat();

  /// Puts a node in its place in the tree; the record is another's business.
  void Inserer(const NoeudListe &noeud);
  /// Puts the node of a record that has been changed in its new place, its box as it was; a record
  /// that is not listed is left out. The root is selected where the node was.
  void Remplacer(const NoeudListe &noeud);
  /// Takes the node of a record off the tree; the record is another's business. The root is
  /// selected where the node was.
  void Retirer(Cle index);

  /// Says at its foot for ten seconds that somebody has been deleted, with the link that has it
  /// taken back.
  void DireDepart(const QString &nom, const std::function<void()> &annuler);
  /// The line that says so.
  CompteRendu &LigneDepart() const;

  /// Leaves the record on display: the root is selected and clicked.
  void CliquerRacine();

  /// The line that counts the records.
  void MettreAJourCompte();

  /// The boxes of the choice for the workbook, and the two buttons below it.
  void MontrerChoix(bool montre);

  /// Size in points of the font of the categories and of the tree.
  void ChangerTaillePolice(int points);

  /// Looks for the next birthdays anew, of the whole directory.
  void LireAnniversaires();

  ArbreVelmiras &Arbre() const;
  /// The category that is chosen, a pseudo-category too.
  QString Categorie() const;

 signals:
  /// A node has been clicked, see `ArbreVelmiras`: the key of its record, 0 for the root.
  void Cliquee(Cle index, Qt::MouseButton bouton);
  /// A record has been clicked twice.
  void DoubleCliquee();
  void FavoriDemande();
  /// Somebody whose birthday comes.
  void AnniversaireChoisi(Cle index);
  /// The choice for the workbook has been made, or given up.
  void ExportDemande();
  void ExportAbandonne();

 private:
  void Brancher();
  void RelierAnniversaires();
  /// Fills the tree with a list, or with what of it a search finds. What the combo shows follows,
  /// or goes back when that fails. False when the list stays as it is.
  bool Charger(const FiltreListe &filtre, const QString &cherche = {});
  /// A category, and its whole list.
  void Afficher(const QString &categorie, const QString &lettre);
  /// Narrows the list on display to what a search finds; the whole of it for an empty text.
  bool Restreindre(const QString &cherche);
  /// Nothing where there is nobody at all.
  std::optional<std::vector<NoeudListe>> Lister(const FiltreListe &filtre,
                                                const QString &cherche) const;
  std::vector<NoeudListe> ListerTrouves(const FiltreListe &filtre, const QString &cherche) const;
  void PoserCategories(const QStringList &categories);
  /// The combo shows the category of the list, or the result of a search. That, and the quick
  /// search, stand in it only while they are on display.
  void AccorderCombo();
  void Chercher(const QString &saisie);
  /// Asks where to look; gives what is to be looked for, with what has been typed meanwhile.
  QString DemanderOu(const QString &saisie);
  /// Goes to the first name that begins so; where none does, to what a search finds.
  void Trouver(const QString &saisie);
  /// Goes on with a search that has waited for the table to be read.
  void Reprendre();
  void ChoisirInitiale();
  /// Whether a name begins so, of those among whom the search goes on.
  bool Commence(const QString &debut) const;

  /// What is typed in the tree begins a search.
  void Frapper(const QString &texte);
  /// Gives a key to the tree, and the focus.
  void PasserALaListe(QKeyEvent *touche);
  /// Ends the search: from its field the list is as it was before, with the record of that time on
  /// display; from the tree the list is whole again, and the chosen one stays.
  void Abandonner();
  void QuitterVers(FiltreListe filtre, Cle fiche);
  void QuitterNoeud(Cle index);
  /// What is on display is what a search has found.
  bool EstResultat() const { return !cherche_.isEmpty(); }
  /// The root's text.
  QString Titre() const;
  /// What is said below the name of a record; of the root, 0, where the search looks.
  PrecisionListe Preciser(Cle cle) const;

  std::unique_ptr<Ui::ListeVelmiras> ui_;
  Session *session_ = nullptr;
  std::function<bool()> avant_;
  std::unique_ptr<RechercheAJour> recherche_;
  FiltreListe filtre_;            ///< of the last filling, or of the one that `Ouvrir` could not do
  QString cherche_;               ///< what of it is on display; empty for the whole
  bool attendue_ = false;         ///< the search waits for the table
  bool RechercheEnCours = false;  ///< the box held something at its last change

  /// Before the search.
  struct Depart {
    FiltreListe filtre;
    Cle fiche = 0;
  };
  Depart depart_;

  /// The whole list behind a result, while the database is as it was.
  struct Entiere {
    FiltreListe filtre;
    std::vector<NoeudListe> noeuds;
    Base::Etat etat;
  };
  std::optional<Entiere> entiere_;
};
