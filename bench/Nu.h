#pragma once
// The same work with the bare engine: Qt SQL, the collator, the toolkit's own widgets, QPdfWriter.

#include <QLabel>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QSqlDatabase>
#include <QStringList>
#include <QTreeView>

#include <vector>

struct LigneNue {
  QString texte;
  qint64 index = 0;
};

/// A connection of its own to a database file.
class BaseNue {
 public:
  explicit BaseNue(const QString &chemin);
  ~BaseNue();
  BaseNue(const BaseNue &) = delete;
  BaseNue &operator=(const BaseNue &) = delete;

  /// The sorted names; of all records where `categorie` is empty.
  std::vector<LigneNue> Lister(const QString &categorie = {}) const;

 private:
  friend class FicheNue;
  QSqlDatabase connexion_;
};

/// A window with the sorted names in a tree.
class FenetreNue : public QMainWindow {
 public:
  explicit FenetreNue(const BaseNue &base);
  QTreeView &Liste() { return *liste_; }

 private:
  QTreeView *liste_;
};

/// Plain labels for what a record shows; the address can be selected, as in the program.
class FicheNue : public QWidget {
 public:
  explicit FicheNue(const BaseNue &base);
  void Montrer(qint64 index);

 private:
  const BaseNue &base_;
  std::vector<QLabel *> etiquettes_;
  QLabel *adresse_;
  QPlainTextEdit *notes_;
};

/// One A4 page of lines in a PDF, which stands on the disk with its folder when this returns. Gives
/// false when it does not.
bool EcrirePdfNu(const QString &chemin, const QStringList &expediteur, const QStringList &adresse);
