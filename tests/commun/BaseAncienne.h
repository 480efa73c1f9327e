#pragma once
// Databases as earlier versions left them, and what stands in one.

#include "storage/Lignes.h"
#include "storage/Schema.h"

#include <QFile>
#include <QMap>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

#include <stdexcept>

/// Statements on the bare file, as another program would run them, or as one that is no longer
/// there did. Made where it is missing. Not flushed to the disk: what a test kills is a program.
class FichierNu {
 public:
  explicit FichierNu(const QString &chemin) {
    connexion_ = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("nu"));
    connexion_.setDatabaseName(chemin);
    if (!connexion_.open()) throw std::runtime_error("the file cannot be opened");
    QSqlQuery(connexion_).exec(QStringLiteral("PRAGMA synchronous=OFF"));
  }
  ~FichierNu() {
    connexion_.close();
    connexion_ = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("nu"));
  }

  /// Gives the rows, their fields joined by "|"; null is "nul".
  QStringList Executer(const QString &texte) {
    QSqlQuery requete(connexion_);
    if (!requete.exec(texte))
      throw std::runtime_error((texte + requete.lastError().text()).toStdString());
    QStringList lignes;
    while (requete.next()) {
      QStringList champs;
      for (int i = 0; i < requete.record().count(); ++i)
        champs.append(requete.isNull(i) ? QStringLiteral("nul") : requete.value(i).toString());
      lignes.append(champs.join(u'|'));
    }
    return lignes;
  }

 private:
  QSqlDatabase connexion_;
};

/// Makes the six tables without mark or version; `colonnes` tells how many columns a table has, 0
/// for no such table, where it is fewer than today.
inline void CreerBaseAncienne(const QString &chemin, const QMap<QString, int> &colonnes = {}) {
  QFile::remove(chemin);
  FichierNu fichier(chemin);
  PourChaqueTable([&]<typename L>(Table<L> table) {
    QStringList noms = ListeColonnes(table).split(QStringLiteral(", "));
    const QString nom = QString::fromUtf16(Table<L>::nom);
    noms = noms.mid(0, colonnes.value(nom, -1));
    if (noms.isEmpty()) return;
    noms.first() += QStringLiteral(" INTEGER PRIMARY KEY");
    fichier.Executer(QStringLiteral("CREATE TABLE [%1] (%2)").arg(nom, noms.join(u", ")));
  });
}
