#pragma once
// The file of the engine read page by page, by the documented form of its format ("Database File
// Format" of the engine's documentation), without the engine: what a damaged file still holds.

#include <QByteArrayView>
#include <QList>
#include <QSet>
#include <QVariant>

#include <functional>
#include <optional>

/// A row as it lies in a leaf page of a table.
struct EnregistrementLu {
  qint64 cle = 0;
  /// By ordinal: null, qint64, double, QString or QByteArray. The field that is the key is null.
  QVariantList champs;
  bool entier = true;  ///< false where a part lay on pages that do not make sense

  friend bool operator==(const EnregistrementLu &, const EnregistrementLu &) = default;
};

/// Pages are numbered from 1. Whatever a page claims, nothing beyond the file is read, and every
/// reading ends; what does not make sense is left out. The bytes outlive this.
class PagesFeuilles {
 public:
  using Numero = quint32;

  /// `taille`: of a page, a power of two from 512 to 65536.
  PagesFeuilles(QByteArrayView fichier, qsizetype taille);

  /// The whole pages of the file.
  Numero Nombre() const;

  enum class Genre {
    Feuille,  ///< of a table, holds rows
    Noeud,    ///< of a table, leads to further pages
    Autre,    ///< anything else, or no page at all
  };
  Genre GenreDe(Numero page) const;

  struct Feuille {
    QList<EnregistrementLu> lignes;  ///< in the order of the page, which is the one of the keys
    qsizetype illisibles = 0;        ///< rows that the page announces and that make no sense
  };
  /// Empty for another kind of page.
  Feuille LireFeuille(Numero page) const;

  /// The rows that lie anywhere on a page, whatever its own directory says, among them those that
  /// were deleted and not written over. Only what `admettre` takes for a row counts as one.
  using Admission = std::function<bool(const EnregistrementLu &)>;
  QList<EnregistrementLu> Fouiller(Numero page, const Admission &admettre) const;

  struct Branche {
    Numero page;
    std::optional<qint64> jusqua;  ///< the last key that may stand there; none for the last branch
  };
  /// Empty for another kind of page.
  QList<Branche> LireNoeud(Numero page) const;

  /// The pages that the file keeps for later use, as far as their list makes sense.
  QSet<Numero> Libres() const;

 private:
  QByteArrayView Page(Numero page) const;
  QByteArrayView ArbreDe(Numero page, qsizetype &debut) const;
  /// `place` is moved behind what was read.
  std::optional<EnregistrementLu> LireCellule(QByteArrayView page, qsizetype &place) const;
  QByteArray Debordement(Numero page, qsizetype reste) const;

  QByteArrayView fichier_;
  qsizetype taille_;
};

/// The size of the pages of a file: the one that its header tells where that makes sense of the
/// most rows, and otherwise the one that does.
qsizetype TaillePages(QByteArrayView fichier);
