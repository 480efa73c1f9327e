#include "platform/Fichiers.h"

#include "platform/Disque.h"
#include "platform/Erreurs.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QScopeGuard>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

/// The renaming or deleting of a file is safe only once its folder is on the disk too.
void SynchroniserDossierDe(const QString &chemin) {
  const QString dossier = QFileInfo(chemin).absolutePath();
  if (!SynchroniserDossier(dossier))
    throw ErreurFichier(
        u"Ce qui vient d'être écrit dans le répertoire « %1 » pourrait manquer après une coupure "
        u"de "
        "courant :\n%2"_s.arg(QDir::toNativeSeparators(dossier), qt_error_string()));
}

ErreurFichier NonEcrit(const QString &chemin, const QString &raison) {
  return ErreurFichier(u"Le fichier « %1 » n'a pas pu être écrit :\n%2"_s.arg(
      QDir::toNativeSeparators(chemin), raison));
}

/// Lets a new file beside `chemin` be filled, brings it to the disk and lets it be renamed. It goes
/// unless it was.
void Ecrire(const QString &chemin, const Remplissage &remplir, const Remplissage &renommer) {
  const QString provisoire =
      QFileInfo(chemin).absolutePath() + u'/' + PrefixeProvisoire() +
      QString::number(QRandomGenerator::global()->generate64(), 36).rightJustified(13, u'0');
  const auto effacer = qScopeGuard([&] { QFile::remove(provisoire); });
  QFile fichier(provisoire);
  if (!fichier.open(QIODevice::NewOnly)) throw NonEcrit(chemin, fichier.errorString());
  remplir(provisoire);
  if (!SynchroniserFichier(fichier.handle())) throw NonEcrit(chemin, qt_error_string());
  fichier.close();
  renommer(provisoire);
}

Remplissage Ecrivain(const QString &chemin, const QByteArray &contenu) {
  return [&chemin, &contenu](const QString &provisoire) {
    QFile fichier(provisoire);
    if (!fichier.open(QIODevice::WriteOnly) || fichier.write(contenu) != contenu.size() ||
        !fichier.flush())
      throw NonEcrit(chemin, fichier.errorString());
  };
}

ErreurFichier NonDeplace(const QString &ancien, const QString &nouveau, const QString &raison) {
  return ErreurFichier(u"Le fichier « %1 » n'a pas pu être déplacé vers « %2 » :\n%3"_s.arg(
      QDir::toNativeSeparators(ancien), QDir::toNativeSeparators(nouveau), raison));
}

/// Moves a file to another disk: it stands whole under one of the names at any moment.
void CopierPuisEffacer(const QString &ancien, const QString &nouveau) {
  const auto contenu = LireFichier(ancien);
  if (!contenu || !CreerFichier(nouveau, *contenu))
    throw NonDeplace(ancien, nouveau, qt_error_string(contenu ? EEXIST : ENOENT));
  EffacerFichier(ancien);
}

}  // namespace

std::optional<QByteArray> LireFichier(const QString &chemin) {
  QFile fichier(chemin);
  if (!QFileInfo(chemin).isFile() || !fichier.open(QIODevice::ReadOnly)) return std::nullopt;
  return fichier.readAll();
}

QString PrefixeProvisoire() {
  return u".velmira-"_s;
}

void RemplacerFichier(const QString &chemin, const QByteArray &contenu) {
  RemplacerFichierPar(chemin, Ecrivain(chemin, contenu));
}

void RemplacerFichierPar(const QString &chemin, const Remplissage &remplir) {
  const QFileInfo ancien(chemin);
  const QString cible = ancien.isSymLink() ? ancien.symLinkTarget() : chemin;
  if (ancien.isDir()) throw NonEcrit(chemin, qt_error_string(EISDIR));
  if (ancien.exists() && !ancien.isWritable()) throw NonEcrit(chemin, qt_error_string(EACCES));
  Ecrire(cible, remplir, [&](const QString &provisoire) {
    if (ancien.exists()) QFile::setPermissions(provisoire, ancien.permissions());
    if (!RenommerEnRemplacant(provisoire, cible)) throw NonEcrit(chemin, qt_error_string());
  });
  SynchroniserDossierDe(cible);
}

bool CreerFichier(const QString &chemin, const QByteArray &contenu) {
  Renommage renommage = Renommage::Echoue;
  Ecrire(chemin, Ecrivain(chemin, contenu), [&](const QString &provisoire) {
    renommage = RenommerSansRemplacer(provisoire, chemin);
    if (renommage != Renommage::Fait && renommage != Renommage::NomPris)
      throw NonEcrit(chemin, qt_error_string());
  });
  if (renommage == Renommage::NomPris) return false;
  SynchroniserDossierDe(chemin);
  return true;
}

void EffacerFichier(const QString &chemin) {
  QFile fichier(chemin);
  if (!fichier.remove())
    throw ErreurFichier(u"Le fichier « %1 » n'a pas pu être effacé :\n%2"_s.arg(
        QDir::toNativeSeparators(chemin), fichier.errorString()));
  SynchroniserDossierDe(chemin);
}

void RenommerFichier(const QString &ancien, const QString &nouveau) {
  const Renommage renommage = RenommerSansRemplacer(ancien, nouveau);
  if (renommage == Renommage::AutreDisque) {
    CopierPuisEffacer(ancien, nouveau);
    return;
  }
  if (renommage != Renommage::Fait) throw NonDeplace(ancien, nouveau, qt_error_string());
  SynchroniserDossierDe(nouveau);
  SynchroniserDossierDe(ancien);
}

void RemplacerParRenommage(const QString &ancien, const QString &nouveau) {
  if (!RenommerEnRemplacant(ancien, nouveau)) throw NonDeplace(ancien, nouveau, qt_error_string());
  SynchroniserDossierDe(nouveau);
}

void CreerDossier(const QString &chemin, Acces acces) {
  const QString dossier = QDir::cleanPath(QFileInfo(chemin).absoluteFilePath());
  if (QFileInfo(dossier).isDir()) return;
  CreerDossier(QFileInfo(dossier).path(), acces);
  const bool cree =
      acces == Acces::Prive
          ? QDir().mkdir(dossier, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner)
          : QDir().mkdir(dossier);
  if (!cree && !QFileInfo(dossier).isDir())
    throw ErreurFichier(
        u"Le répertoire « %1 » n'a pas pu être créé."_s.arg(QDir::toNativeSeparators(chemin)));
  SynchroniserDossierDe(dossier);
}
