#pragma once
// The sticky notes, in `MemoraNotes.json` of the application folder.

#include <QList>
#include <QRect>
#include <QString>

#include <optional>

struct NoteMemora {
  int numero = 0;  ///< from 1
  QString texte;
  QRect place;                                  ///< on the screen, in points; empty: anywhere
  QString couleur = QStringLiteral("#fff3a3");  ///< "#rrggbb"
  int points = 11;                              ///< size of the font
  bool montree = true;

  friend bool operator==(const NoteMemora &, const NoteMemora &) = default;
};

/// At most three. Every change stands on the disk when its verb returns, and the file is whole at
/// every moment. A verb throws `ErreurFichier` where that fails. None is then added, deleted or
/// given back; a change stays, and the next `Changer`, of whatever note, tries again.
class NotesMemora {
 public:
  static constexpr int kMaximum = 3;

  /// Reads the file; a missing one holds no note. Throws `ErreurFichier` when it cannot be read.
  /// One that holds no notes is put aside under a name of its own, see `Ecarte`.
  explicit NotesMemora(const QString &appPath);

  /// Where a file that made no sense has gone; empty where there was none.
  const QString &Ecarte() const { return ecarte_; }

  const QList<NoteMemora> &Notes() const { return notes_; }
  /// Whether another one may be added, and the one deleted last be given back.
  bool PeutAjouter() const { return notes_.size() < kMaximum; }
  bool PeutRendre() const { return supprimee_.has_value() && PeutAjouter(); }

  /// A new note, shown. There is room for it.
  NoteMemora Ajouter();
  /// Puts a note in the place of the one of its number; one that has gone stays so.
  void Changer(const NoteMemora &note);
  void Supprimer(int numero);
  /// The note that was deleted last, which may be given back.
  NoteMemora Rendre();

 private:
  void Lire(const QByteArray &octets);
  void Ecrire(const QList<NoteMemora> &notes);
  int NumeroLibre() const;

  QString chemin_, ecarte_;
  QList<NoteMemora> notes_;
  bool enRetard_ = false;  ///< the last writing has failed
  std::optional<NoteMemora> supprimee_;
};
