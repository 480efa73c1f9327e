#pragma once
// What the tests of the rules share: tables of cases, failures as words, a folder of their own.

#include "commun/BaseAncienne.h"
#include "commun/DisquePlein.h"
#include "platform/Erreurs.h"
#include "storage/Tables.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using Rangee = const QStringList &;

inline void PrintTo(const QString &texte, std::ostream *flux) {
  *flux << (texte.isNull() ? "null" : '"' + texte.left(2000).toStdString() + '"');
}

/// Calls `regle` with the cells of each row of a table; what it gives is the last cell. A row is a
/// line, or ends at "||"; its cells stand between "|". "·" is a blank, "¶" CR LF, "↵" LF.
template <typename Regle>
void Cas(const char *tableau, Regle &&regle) {
  for (const QString &ligne : QString::fromUtf8(tableau).replace(u"||"_s, u"\n"_s).split(u'\n')) {
    if (ligne.trimmed().isEmpty()) continue;
    SCOPED_TRACE(ligne.toStdString());
    QStringList cellules;
    for (const QString &cellule : ligne.split(u'|'))
      cellules.append(
          cellule.trimmed().replace(u'·', u' ').replace(u"¶"_s, u"\r\n"_s).replace(u'↵', u'\n'));
    if constexpr (std::is_void_v<decltype(regle(cellules))>)
      regle(cellules);
    else
      EXPECT_EQ(QString(regle(cellules)), cellules.constLast());
  }
}

inline QString OuiNon(bool oui) {
  return oui ? u"oui"_s : u"non"_s;
}

/// The words for the user of what a step throws; empty when it does not.
template <typename Etape>
QString Echec(Etape &&etape) {
  try {
    etape();
    return {};
  } catch (const Erreur &erreur) {
    return erreur.Texte();
  }
}

class DansUnDossier : public testing::Test {
 protected:
  QString Chemin(const QString &nom = {}) const { return dossier_.filePath(nom); }
  bool Existe(const QString &nom) const { return QFile::exists(Chemin(nom)); }
  QByteArray Octets(const QString &nom) const {
    QFile fichier(Chemin(nom));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("(no file)");
  }
  /// In the place of whatever is there, with the folders that it needs.
  void Poser(const QString &nom, const QByteArray &octets) const {
    QDir().mkpath(QFileInfo(Chemin(nom)).path());
    QFile::remove(Chemin(nom));
    QFile fichier(Chemin(nom));
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly) && fichier.write(octets) == octets.size());
  }
  /// A database of ours with a correspondent for each name.
  void CreerBase(const QString &nom, const QStringList &velmiras = {}) const {
    static const QByteArray vide = [this] {
      CreerBaseVide(Chemin(u"vide"_s));
      return Octets(u"vide"_s);
    }();
    Poser(nom, vide);
    for (const QString &velmira : velmiras)
      Sql(nom, u"INSERT INTO Adresse (NomVelmira) VALUES ('%1')"_s.arg(velmira));
  }
  /// A statement as another program would run it; gives its rows.
  QString Sql(const QString &nom, const QString &texte) const {
    return FichierNu(Chemin(nom)).Executer(texte).join(u' ');
  }
  QString Noms(const QString &nom) const {
    return Sql(nom, u"SELECT NomVelmira FROM Adresse ORDER BY [Index]"_s);
  }
  /// Another program is killed in the middle of a writing, with pages of it already in the file.
  void TuerUnEcrivain(const QString &nom) const {
    const pid_t enfant = ::fork();
    if (enfant == 0) {
      FichierNu fichier(Chemin(nom));
      for (const QString &texte :
           {u"PRAGMA cache_size=5"_s, u"BEGIN"_s, u"UPDATE Adresse SET NomVelmira='perdu'"_s,
            u"WITH s(i) AS (VALUES(1) UNION ALL SELECT i+1 FROM s WHERE i<300) "
            "INSERT INTO Ville (Ville) SELECT zeroblob(500) FROM s"_s})
        fichier.Executer(texte);
      ::kill(::getpid(), SIGKILL);
    }
    ASSERT_EQ(::waitpid(enfant, nullptr, 0), enfant);
    ASSERT_TRUE(Existe(nom + u"-journal"_s));
  }

 private:
  QTemporaryDir dossier_;
};
