#pragma once
// The same work with the bare engine: Qt SQL, the collator, the toolkit's own widgets, QPdfWriter.

#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QSaveFile>
#include <QSplitter>
#include <QSqlDatabase>
#include <QSqlQuery>
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

  /// The records in whose columns each word of a text stands, upper and lower case alike where a
  /// letter has no accent.
  QList<qint64> Chercher(const QString &texte) const;

  /// The categories of all records, each once, in the order in which the table holds them.
  QStringList Categories() const;

  /// Each writes in one transaction. A category is renamed wherever its name stands.
  void Renommer(const QString &ancienne, const QString &nouvelle);
  void EcrireNom(qint64 index, const QString &nom);

  /// A statement to be run, forward only; one without values and without rows.
  QSqlQuery Preparer(const QString &texte) const;
  void Executer(const QString &texte);

 private:
  QSqlDatabase connexion_;
};

/// Runs a prepared statement; its failure ends the process.
void Lancer(QSqlQuery &requete);

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

/// A plain field above the sorted names and beside a record: what is typed shows the first name
/// that begins with it.
class RechercheNue : public QSplitter {
 public:
  explicit RechercheNue(const BaseNue &base);

  QLineEdit &Saisie() { return *saisie_; }
  /// The line of the first name that begins so, upper and lower case alike; -1 for none.
  int Chercher(const QString &debut) const;
  /// The name that is shown.
  QModelIndex Trouve() const { return liste_->Liste().currentIndex(); }

 private:
  std::vector<LigneNue> lignes_;
  std::vector<QString> hauts_;  ///< the names in upper case
  QLineEdit *saisie_;
  FenetreNue *liste_;
  FicheNue *fiche_;
};

/// The lines that hold a text, in lower case, anywhere; upper and lower case alike. One byte is one
/// character, and only the letters without accents have two cases.
QStringList ChercherOctets(const QByteArray &fichier, const QByteArray &texte);

/// Brings a written file to the disk, in the same steps as the program does: its content, its name,
/// its folder. Gives false when it does not stand there.
bool Terminer(QSaveFile &fichier);

/// One A4 page of lines in a PDF, which stands on the disk with its folder when this returns. Gives
/// false when it does not.
bool EcrirePdfNu(const QString &chemin, const QStringList &expediteur, const QStringList &adresse);
