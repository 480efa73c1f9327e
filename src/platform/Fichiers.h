#pragma once
// Files read and written as a whole. Every file that the program writes goes through here.
// What fails throws `ErreurFichier`, a French sentence with the file's name and what can be done.

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>
#include <optional>
#include <utility>

/// Whether anything, a file or a folder stands there. A folder on the way that may not be entered
/// and a disk that does not answer are no absence: they throw `ErreurFichier`.
bool EstPresent(const QString &chemin);
bool EstFichier(const QString &chemin);
bool EstDossier(const QString &chemin);

/// The whole content; nothing when nothing bears that name. Throws `ErreurFichier` when it is there
/// and cannot be read to its end.
std::optional<QByteArray> LireFichier(const QString &chemin);
/// The same of a file that has to be there: its absence is thrown too.
QByteArray LireFichierPresent(const QString &chemin);
/// The same of a file that can be done without: nothing also when it cannot be read.
std::optional<QByteArray> LireSiPossible(const QString &chemin);

// What is written and renamed stands on the disk afterwards. Where only the flush of the folder has
// failed, that is thrown too, with the new file in its place.

/// Replaces the file: after a crash there stands either the old content or the new one, with the
/// old one's rights and, as far as this user may give them, its owner and group. Throws
/// `ErreurFichier`; the old file is then untouched.
void RemplacerFichier(const QString &chemin, const QByteArray &contenu);
/// The same with a content that `remplir` puts into the empty file whose path it gets; what it
/// throws comes out.
using Remplissage = std::function<void(const QString &)>;
void RemplacerFichierPar(const QString &chemin, const Remplissage &remplir);
/// Makes a file of a name that none bears; false where one does. Throws `ErreurFichier`. Never is
/// there anything else than the whole content under that name.
bool CreerFichier(const QString &chemin, const QByteArray &contenu);
/// The same with a content that `remplir` puts into an empty file, as `RemplacerFichierPar` does.
bool CreerFichierPar(const QString &chemin, const Remplissage &remplir);
/// How the names begin that files bear until they are whole: what a kill leaves of them.
QString PrefixeProvisoire();
/// Writes a file under such a name in a folder, and gives its path. Throws `ErreurFichier`.
QString CreerProvisoire(const QString &dossier, const QByteArray &contenu);
/// Gives files of one folder, by their paths, the names that they are to bear. Throws
/// `ErreurFichier`, also where one is taken; those before it bear theirs then.
void NommerProvisoires(const QList<std::pair<QString, QString>> &noms);

/// What of a text can begin the name of a file, on the disks of other systems too: one line without
/// the signs that they refuse, cut to what leaves room for a date and an ending. Empty where
/// nothing is left.
QString DebutNomFichier(const QString &texte);

/// Deletes, moves, also to another disk. They throw `ErreurFichier`; a move never replaces a file.
void EffacerFichier(const QString &chemin);
void RenommerFichier(const QString &ancien, const QString &nouveau);
/// Renames within a folder and replaces what bears the new name, in one step. Throws
/// `ErreurFichier`; both files are then as they were.
void RemplacerParRenommage(const QString &ancien, const QString &nouveau);

enum class Acces {
  Herite,  ///< what the folder above gives
  Prive,   ///< its owner alone
};
/// Makes a folder, with those above it. One that is there stays as it is. Throws `ErreurFichier`.
void CreerDossier(const QString &chemin, Acces acces = Acces::Herite);
