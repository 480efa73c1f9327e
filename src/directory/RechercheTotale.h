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
  /// So many are given at most: who wants others types on.
  static constexpr qsizetype kLimite = 1000;

  /// Reads the table. Left unfinished, and of no use, once it is asked to stop. Throws
  /// `ErreurBase`.
  RechercheTotale(Base &base, const QString &utilisateur, const std::stop_token &arret = {});

  /// Who is found of those whom the filter takes. In front stand the names that begin so, those
  /// with words that begin so, those that hold it; behind them, by the fields, those where a word
  /// is found in the address, in the town and so on; each in the order of the list. What goes on
  /// with the text before is looked for in what that one has found.
  std::vector<NoeudListe> Chercher(const QString &saisie, const FiltreListe &filtre);

  /// Whether a name of the list begins so, see `Commencant` of `directory/Liste.h`.
  bool Commence(const QString &debut, const FiltreListe &filtre) const;

  /// What of a record has been found, with its field: "Notes : … le mot …". Nothing where that is
  /// the name, or where the record is not found.
  QString Precision(Cle cle, const QString &saisie) const;

 private:
  struct Fiche {
    Cle cle;
    qsizetype plie, texte;  ///< where its two texts begin
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
  /// Where the last of the words begins in a record that holds all; -1 in another.
  qsizetype PlaceDans(std::size_t rang, const QList<QByteArray> &mots) const;
  /// Those that hold all words; looked for in the whole text at once.
  Trouvees Parcourir(const QList<QByteArray> &mots) const;
  /// Whether what was found holds all that is to be found now.
  bool EstSuite(const Demande &demande) const;
  Trouvees Trouver(const Demande &demande) const;
  /// How far back a record stands.
  std::size_t Degre(const Trouvee &trouvee, const QList<QByteArray> &mots) const;
  bool Passe(std::size_t rang, const FiltreListe &filtre) const;

  std::vector<Fiche>
      fiches_;  ///< in the order of the list; the last one is none, and ends the texts
  std::vector<std::pair<Cle, std::size_t>> parCle_;
  QByteArray plies_, textes_;  ///< the fields of all records, each with a sign of its end
  std::array<qsizetype, 256> frequences_{};  ///< of the bytes of the folded texts
  QList<QByteArray> mots_;                   ///< of the last search
  Trouvees trouvees_;                        ///< and who holds them, whatever the filter
};
