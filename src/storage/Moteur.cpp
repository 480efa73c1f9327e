#include "storage/Moteur.h"

#include "platform/Pannes.h"
#include "storage/SourceJet.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QUrl>
#include <QVariant>

#include <cerrno>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

/// Of the engine's code; what stands above its first byte tells details.
GenreErreur Genre(int code) {
  switch (code & 0xFF) {
    case 5:  // busy
    case 6:  // locked
      return GenreErreur::Occupee;
    case 8:
      return GenreErreur::LectureSeule;
    case 3:   // no right
    case 14:  // cannot be opened, or its journal cannot
    case 23:
      return GenreErreur::Inaccessible;
    case 10:
      return GenreErreur::Materiel;
    case 11:  // a page makes no sense
      return GenreErreur::Endommagee;
    case 26:
      return GenreErreur::Etrangere;
    case 13:
      return GenreErreur::Pleine;
    case 19:
      return GenreErreur::Contrainte;
    default:
      return GenreErreur::Autre;
  }
}

constexpr int kRemplacee = 8 | 4 << 8;  // the file no longer bears its name

Panne PanneBase(GenreErreur genre) {
  switch (genre) {
    case GenreErreur::Occupee:
      return PanneSysteme(EBUSY);
    case GenreErreur::Pleine:
      return PanneSysteme(ENOSPC);
    case GenreErreur::LectureSeule:
      return PanneSysteme(EROFS);
    case GenreErreur::Materiel:
      return PanneSysteme(EIO);
    case GenreErreur::Inaccessible:
      return {u"le fichier ou son répertoire n'est pas accessible"_s,
              u"Vérifiez vos droits sur l'un et l'autre, et que le disque ou le serveur répond, "
              "puis recommencez."_s};
    case GenreErreur::Endommagee:
      return {
          u"le fichier est endommagé"_s,
          u"Lancez « Réparer et compacter la base de données » du menu « Options », ou remettez à "
          "sa place une copie de sauvegarde."_s};
    case GenreErreur::Etrangere:
      return {u"ce n'est pas une base de données de Velmira"_s,
              u"Remettez à sa place votre base ou une copie de sauvegarde."_s};
    case GenreErreur::PlusRecente:
      return {u"elle vient d'une version plus récente de Velmira"_s,
              u"Installez cette version pour l'ouvrir."_s};
    case GenreErreur::Contrainte:
      return {u"la base n'admet pas cet enregistrement"_s, u"Corrigez-le, puis recommencez."_s};
    case GenreErreur::Autre:
      break;
  }
  return {u"une erreur imprévue s'est produite"_s,
          u"Recommencez ; si cela se reproduit, relancez Velmira."_s};
}

/// Why a file that the engine could not reach cannot be opened. It is looked at only: to open a
/// file here and close it would take this program's own locks off it.
Panne PanneAcces(const QString &chemin) {
  const QFileInfo fichier(chemin);
  if (fichier.isDir()) return PanneSysteme(EISDIR);
  if (!fichier.isReadable()) return PanneSysteme(EACCES);
  return PanneBase(GenreErreur::Inaccessible);
}

QString Adresse(const QString &chemin, const QString &mode) {
  return QUrl::fromLocalFile(QFileInfo(chemin).absoluteFilePath()).toString(QUrl::FullyEncoded) +
         u"?mode="_s + mode;
}

Panne PanneOuverture(const QString &chemin, GenreErreur genre) {
  if (genre == GenreErreur::Inaccessible) return PanneAcces(chemin);
  if (genre == GenreErreur::Etrangere && EstJet(chemin))
    return {u"elle vient des premières versions de Velmira"_s,
            u"Relancez Velmira, qui la mettra à jour."_s};
  return PanneBase(genre);
}

}  // namespace

QString AdresseMoteur(const QString &chemin) {
  return Adresse(chemin, u"rw"_s);
}

QString AdresseEnLecture(const QString &chemin) {
  return Adresse(chemin, u"ro"_s);
}

ErreurBase ErreurMoteur(const QSqlError &erreur, const QString &chemin) {
  const QString code = erreur.nativeErrorCode();
  const QString mots =
      erreur.databaseText().isEmpty() ? erreur.driverText() : erreur.databaseText();
  const QString detail = code.isEmpty() ? mots : u"%1 (%2)"_s.arg(mots, code);
  const GenreErreur genre = Genre(code.toInt());
  const Panne panne = code.toInt() == kRemplacee
                          ? Panne{u"son fichier a été déplacé, effacé ou remplacé"_s,
                                  u"Vérifiez qu'il est à sa place, puis recommencez."_s}
                          : PanneBase(genre);
  const QString intact =
      genre == GenreErreur::Endommagee ? QString() : u"Ce qui était enregistré est intact."_s;
  return ErreurBase(PhraseEchec(u"La base de données « %1 » n'a pas pu être lue ou écrite"_s.arg(
                                    QDir::toNativeSeparators(chemin)),
                                panne, intact, detail),
                    genre, detail);
}

ErreurBase AutrementDit(const QString &echec, const ErreurBase &erreur) {
  return ErreurBase(PhraseEchec(echec, PanneBase(erreur.Genre()),
                                u"Le fichier n'a pas été modifié."_s, erreur.Detail()),
                    erreur.Genre(), erreur.Detail());
}

ErreurBase ErreurOuverture(const QString &chemin, const ErreurBase &erreur) {
  const GenreErreur genre = erreur.Genre();
  const Panne panne = PanneOuverture(chemin, genre);
  return ErreurBase(PhraseEchec(u"La base de données « %1 » n'a pas pu être ouverte"_s.arg(
                                    QDir::toNativeSeparators(chemin)),
                                panne, u"Le fichier n'a pas été modifié."_s, erreur.Detail()),
                    genre, erreur.Detail());
}

Connexion::Connexion(const QString &chemin, Fichier fichier, std::chrono::milliseconds attente)
    : chemin_(chemin) {
  connexion_ = std::make_unique<QSqlDatabase>(QSqlDatabase::addDatabase(
      u"QSQLITE"_s, u"velmira-%1"_s.arg(reinterpret_cast<quintptr>(this))));
  connexion_->setDatabaseName(fichier == Fichier::Present ? AdresseMoteur(chemin)
                                                          : Adresse(chemin, u"rwc"_s));
  connexion_->setConnectOptions(u"QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1"_s.arg(attente.count()));
  if (connexion_->open()) return;
  const ErreurBase erreur = ErreurMoteur(connexion_->lastError(), chemin_);
  Fermer();
  throw erreur;
}

Connexion::~Connexion() {
  Fermer();
}

void Connexion::Fermer() {
  const QString nom = connexion_->connectionName();
  connexion_->close();
  connexion_.reset();
  QSqlDatabase::removeDatabase(nom);
}

std::unique_ptr<QSqlQuery> Connexion::Preparer(const QString &texte) const {
  auto requete = std::make_unique<QSqlQuery>(*connexion_);
  requete->setForwardOnly(true);
  if (!requete->prepare(texte)) throw ErreurMoteur(requete->lastError(), chemin_);
  return requete;
}

void Connexion::Executer(const QString &texte) const {
  const auto requete = Preparer(texte);
  if (!requete->exec()) throw ErreurMoteur(requete->lastError(), chemin_);
}

bool Connexion::ATable(const QString &nom) const {
  const auto requete = Preparer(
      u"SELECT 1 FROM sqlite_master WHERE type='table' AND rootpage>0 AND name=? COLLATE NOCASE"_s);
  requete->addBindValue(nom);
  const bool la = requete->exec() && requete->next();
  if (requete->lastError().isValid()) throw ErreurMoteur(requete->lastError(), chemin_);
  return la;
}

bool Connexion::EstRemplacee() const {
  int partie = 0;
  return sqlite3_file_control(Poignee(), "main", SQLITE_FCNTL_HAS_MOVED, &partie) == SQLITE_OK &&
         partie != 0 && QFileInfo::exists(chemin_);
}

sqlite3 *Connexion::Poignee() const {
  const QVariant poignee = connexion_->driver()->handle();
  return *static_cast<sqlite3 *const *>(poignee.constData());
}
