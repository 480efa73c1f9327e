#pragma once
// The lock by which a database file is one program's alone.

#include <QString>

/// The exclusive lock of the database engine, on the bytes that its format sets aside for that
/// (512 from 2^30 on), and taken without it: also where the engine would not open the file. Every
/// connection to the file is kept out while it is held, those of this program too; the content can
/// be read and copied as any file's.
class VerrouExclusif {
 public:
  /// Opens the file. Throws `ErreurFichier` when it is missing or may not be written.
  explicit VerrouExclusif(const QString &chemin);
  ~VerrouExclusif();
  VerrouExclusif(const VerrouExclusif &) = delete;
  VerrouExclusif &operator=(const VerrouExclusif &) = delete;

  /// Does not wait: false while another program reads or writes. Throws `ErreurFichier` where the
  /// file system has no locks.
  bool Prendre();

  /// The name of the program that keeps the lock from this one and its number, as "velmira (1234)";
  /// empty when none of this computer does.
  QString Detenteur() const;

  /// Whether the file still bears the name that it was opened by.
  bool EstEnPlace() const;

 private:
  QString chemin_;
  int descripteur_;
};
