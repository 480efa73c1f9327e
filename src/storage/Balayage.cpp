#include "storage/Balayage.h"

#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "storage/Base.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString Exactement(const QString &motif) {
  return QRegularExpression::anchoredPattern(motif);
}

/// The entries of a folder whose whole name is of this form and that nobody has touched since.
QFileInfoList Anciens(const QString &dossier, const QString &motif, const QDateTime &limite) {
  const QRegularExpression forme(Exactement(motif));
  QFileInfoList entrees = QDir(dossier).entryInfoList(QDir::Files | QDir::Dirs | QDir::Hidden |
                                                      QDir::NoSymLinks | QDir::NoDotAndDotDot);
  entrees.removeIf([&](const QFileInfo &entree) {
    return !forme.match(entree.fileName()).hasMatch() || entree.lastModified() >= limite;
  });
  return entrees;
}

void Effacer(const QFileInfoList &fichiers) {
  for (const QFileInfo &fichier : fichiers)
    if (fichier.isFile()) Ignorer([&] { EffacerFichier(fichier.filePath()); });
}

/// An older base is converted in a folder of its own below the system's temporary one, as earlier
/// versions copied there what they transferred.
void BalayerCopies(const QDateTime &limite) {
  for (const QFileInfo &dossier :
       Anciens(QDir::tempPath(), u"(Velmira|Sauvan)-[A-Za-z]{6}"_s, limite)) {
    Effacer(Anciens(dossier.filePath(), u"(copie|convertie)\\.mdb(-journal)?"_s, limite));
    QDir().rmdir(dossier.filePath());  // refused unless that was all
  }
}

/// Each lies in a folder of its own, write-protected; one that is not so any more is its user's.
void BalayerClasseurs(const QString &dossier, const QDateTime &limite) {
  if (dossier.isEmpty()) return;
  for (const QFileInfo &propre : Anciens(dossier, u"[A-Za-z]{6}"_s, limite)) {
    QFileInfoList classeurs =
        Anciens(propre.filePath(), QRegularExpression::escape(NomClasseur()), limite);
    classeurs.removeIf([](const QFileInfo &f) { return f.permission(QFile::WriteOwner); });
    Effacer(classeurs);
    QDir().rmdir(propre.filePath());  // refused unless that was all
  }
}

/// Runs of envelopes that were never taken up.
void BalayerTirages(const QString &dossier, const QDateTime &limite) {
  Effacer(Anciens(dossier, u"[0-9-]+\\.json(\\.verrou)?"_s, limite));
  Effacer(Anciens(dossier, QRegularExpression::escape(PrefixeProvisoire()) + u"[0-9a-z]{13}"_s,
                  limite));
}

/// Whether nothing waits beside the base to be taken back. One that cannot be reached may have
/// something there.
bool EstAchevee(const QString &chemin) {
  if (!QFileInfo(chemin).isFile()) return false;
  Base base;
  base.Ouvrir(chemin);  // takes back what it finds
  return !QFileInfo::exists(chemin + u"-journal"_s);
}

/// The bases of a transaction over several files, from its super-journal, which names their
/// journals; none when it does not make sense.
QStringList BasesDe(const QString &superJournal) {
  const QString fin = u"-journal"_s;
  const QByteArray contenu = LireFichier(superJournal).value_or("?");
  QStringList bases{superJournal.left(superJournal.lastIndexOf(u"-mj"_s))};
  for (const QByteArray &nom : contenu.split('\0')) {
    if (nom.isEmpty()) continue;
    const QString journal = QFile::decodeName(nom);
    if (!journal.endsWith(fin)) return {};
    bases.append(journal.chopped(fin.size()));
  }
  return bases;
}

/// As long as a journal that names it is left, in whichever folder, it decides whether that base's
/// transaction counts.
void BalayerSuperJournaux(const QString &dossier, const QDateTime &limite) {
  for (const QFileInfo &fichier : Anciens(dossier, u".*\\.mdb-mj[0-9A-F]{9}"_s, limite))
    Ignorer([&] {
      const QStringList bases = BasesDe(fichier.filePath());
      if (!bases.isEmpty() && std::all_of(bases.cbegin(), bases.cend(), EstAchevee))
        EffacerFichier(fichier.filePath());
    });
}

}  // namespace

void BalayerRestes(const Dossiers &dossiers, const QDateTime &maintenant) {
  const QDateTime limite = maintenant.addDays(-1);
  BalayerCopies(limite);
  BalayerClasseurs(dossiers.Classeurs, maintenant.addDays(-30));
  BalayerTirages(dossiers.AppPath + u"/Tirages"_s, maintenant.addDays(-30));
  // The toolkit made six letters of both cases; what a person calls a copy is hardly so.
  Effacer(Anciens(dossiers.AppPath,
                  u".*\\.(ini|cfg|txt)\\.(?![A-Z]*[a-z]*([A-Z][a-z]*)?$)[A-Za-z]{6}"_s, limite));
  const QSet<QString> ou{dossiers.AppPath, dossiers.Photos(), dossiers.CheminData,
                         dossiers.CheminBase};
  for (const QString &dossier : ou) {
    BalayerProvisoires(dossier, maintenant);
    BalayerSuperJournaux(dossier, limite);
  }
}

void BalayerProvisoires(const QString &dossier, const QDateTime &maintenant) {
  Effacer(Anciens(dossier, QRegularExpression::escape(PrefixeProvisoire()) + u"[0-9a-z]{13}"_s,
                  maintenant.addDays(-1)));
}
