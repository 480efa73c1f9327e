#include "platform/Fichiers.h"

#include "platform/Disque.h"
#include "platform/Erreurs.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

/// The renaming or deleting of a file is safe only once its folder is on the disk too.
void SynchroniserDossierDe(const QString &chemin) {
  SynchroniserDossier(QFileInfo(chemin).absolutePath());
}

ErreurFichier NonDeplace(const QString &ancien, const QString &nouveau, const QString &raison) {
  return ErreurFichier(u"Le fichier « %1 » n'a pas pu être déplacé vers « %2 » :\n%3"_s.arg(
      QDir::toNativeSeparators(ancien), QDir::toNativeSeparators(nouveau), raison));
}

}  // namespace

std::optional<QByteArray> LireFichier(const QString &chemin) {
  QFile fichier(chemin);
  if (!QFileInfo(chemin).isFile() || !fichier.open(QIODevice::ReadOnly)) return std::nullopt;
  return fichier.readAll();
}

void RemplacerFichier(const QString &chemin, const QByteArray &contenu) {
  QSaveFile fichier(chemin);
  const bool ecrit = fichier.open(QIODevice::WriteOnly) &&
                     fichier.write(contenu) == contenu.size() && fichier.flush() &&
                     SynchroniserFichier(fichier.handle()) && fichier.commit();
  if (!ecrit)
    throw ErreurFichier(u"Le fichier « %1 » n'a pas pu être écrit :\n%2"_s.arg(
        QDir::toNativeSeparators(chemin), fichier.errorString()));
  SynchroniserDossierDe(chemin);
}

void EffacerFichier(const QString &chemin) {
  QFile fichier(chemin);
  if (!fichier.remove())
    throw ErreurFichier(u"Le fichier « %1 » n'a pas pu être effacé :\n%2"_s.arg(
        QDir::toNativeSeparators(chemin), fichier.errorString()));
  SynchroniserDossierDe(chemin);
}

void RenommerFichier(const QString &ancien, const QString &nouveau) {
  QFile fichier(ancien);
  if (!fichier.rename(nouveau)) throw NonDeplace(ancien, nouveau, fichier.errorString());
  SynchroniserDossierDe(nouveau);
}

void RemplacerParRenommage(const QString &ancien, const QString &nouveau) {
  if (!RenommerEnRemplacant(ancien, nouveau)) throw NonDeplace(ancien, nouveau, qt_error_string());
  SynchroniserDossierDe(nouveau);
}

void CreerDossier(const QString &chemin) {
  if (!QDir().mkpath(chemin))
    throw ErreurFichier(
        u"Le répertoire « %1 » n'a pas pu être créé."_s.arg(QDir::toNativeSeparators(chemin)));
}
