#pragma once
// The search in all that the records hold.

#include "directory/Liste.h"
#include "storage/Base.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <array>
#include <stop_token>
#include <utility>
#include <vector>

/// A text as it is searched, in UTF-8: small letters without accents, ligatures taken apart; one
/// blank stands for blanks, hyphens, apostrophes and the signs that part words; none at its ends.
QByteArray Plier(const QString &texte);

/// All records that a user sees, read once: names, addresses, towns, codes, numbers, mail, notes,
/// categories, imported addresses, birth dates. A text is found in a record that holds each of its
/// words somewhere, in any order, folded as by `Plier`; a number also by its digits, however both
/// are written, "+33" being "0".
class RechercheTotale {
 public:
  /// So many are given at most: those that hold it in their names before all, and the first of the
  /// others. Who wants others types on.
  static constexpr std::size_t kLimite = 1000;

  /// Reads the table. Left unfinished, and of no use, once it is asked to stop. Throws
  /// `ErreurBase`.
  RechercheTotale(Base &base, const QString &utilisateur, const std::stop_token &arret = {});

  /// Who is found of those whom the filter takes. In front stand the names that begin so, those
  /// with words that begin so, those that hold it; behind them, by the fields, those where a word
  /// is found in the address, in the town and so on; at the end those that hold the pieces of a
  /// number apart; each in the order of the list. What goes on with the text before is looked for
  /// in what that one has found.
  std::vector<NoeudListe> Chercher(const QString &saisie, const FiltreListe &filtre);

  /// Whether a name of the list begins so, see `Commencant` of `directory/Liste.h`.
  bool Commence(const QString &debut, const FiltreListe &filtre) const;

  /// What of a record has been found, with its field: "Notes : … le mot …"; the town where that is
  /// the name. Nothing where the record is not found.
  PrecisionListe Precision(Cle cle, const QString &saisie) const;

 private:
  struct Fiche {
    Cle cle;
    qsizetype nom, plie, texte;  ///< where its folded name and its two texts begin
  };
  struct Demande {
    QList<QByteArray> mots;
    QByteArray chiffres;  ///< of a number that is written in several ways; empty for none
  };
  /// A record that holds the words, and where in its folded text the last of them begins.
  struct Trouvee {
    std::size_t rang;
    qsizetype place;
  };
  using Trouvees = std::vector<Trouvee>;  ///< in the order of the list

  static Demande Lire(const QString &saisie);
  QByteArrayView Plie(std::size_t rang) const;
  QString Champ(std::size_t rang, qsizetype champ) const;
  /// Where the last of the words begins in a folded text that holds all; -1 in another.
  static qsizetype PlaceDans(QByteArrayView plie, const QList<QByteArray> &mots);
  /// The first ones that hold all words, looked for in the folded texts of all at once.
  Trouvees Parcourir(const QByteArray &ou, qsizetype Fiche::*debut, const QList<QByteArray> &mots,
                     const FiltreListe &filtre) const;
  /// Whether what was found holds all that is to be found now.
  bool EstSuite(const Demande &demande, const FiltreListe &filtre) const;
  static Trouvees Reunir(const Trouvees &devant, const Trouvees &autres);
  Trouvees Trouver(const Demande &demande, const FiltreListe &filtre) const;
  /// How far back a record stands.
  std::size_t Degre(const Trouvee &trouvee, const QList<QByteArray> &mots) const;
  bool Passe(std::size_t rang, const FiltreListe &filtre) const;

  std::vector<Fiche>
      fiches_;  ///< in the order of the list; the last one is none, and ends the texts
  std::vector<std::pair<Cle, std::size_t>> parCle_;
  QByteArray noms_;            ///< folded
  QByteArray plies_, textes_;  ///< the fields of all records, each with a sign of its end
  std::array<qsizetype, 256> frequences_{};  ///< of the bytes of the folded texts
  QList<QByteArray> mots_;                   ///< of the last search
  FiltreListe filtre_;                       ///< and its filter
  Trouvees trouvees_;
};
