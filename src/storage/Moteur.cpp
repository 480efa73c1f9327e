#include "storage/Moteur.h"

#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUrl>

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
    case 11:  // a page makes no sense
    case 26:  // not a database at all
      return GenreErreur::Endommagee;
    case 13:
      return GenreErreur::Pleine;
    case 19:
      return GenreErreur::Contrainte;
    default:
      return GenreErreur::Autre;
  }
}

QString Phrase(GenreErreur genre) {
  switch (genre) {
    case GenreErreur::Occupee:
      return u"La base de données est occupée par un autre utilisateur.\n"
             "Ce qui était enregistré est intact. Recommencez dans un instant."_s;
    case GenreErreur::Pleine:
      return u"Le disque est plein : la base de données n'a pas pu être écrite.\n"
             "Ce qui était enregistré est intact. Libérez de la place, puis recommencez."_s;
    case GenreErreur::LectureSeule:
      return u"La base de données est protégée en écriture.\n"
             "Ce qui était enregistré est intact. Vérifiez vos droits sur le fichier et sur son "
             "répertoire."_s;
    case GenreErreur::Endommagee:
      return u"La base de données est endommagée : elle ne peut pas être lue en entier.\n"
             "Reprenez-en une copie de sauvegarde."_s;
    case GenreErreur::Contrainte:
      return u"La base de données refuse cet enregistrement. Les autres sont intacts."_s;
    case GenreErreur::Autre:
      break;
  }
  return {};
}

QString Adresse(const QString &chemin, const QString &mode) {
  return QUrl::fromLocalFile(QFileInfo(chemin).absoluteFilePath()).toString(QUrl::FullyEncoded) +
         u"?mode="_s + mode;
}

}  // namespace

QString AdresseMoteur(const QString &chemin) {
  return Adresse(chemin, u"rw"_s);
}

QString AdresseEnLecture(const QString &chemin) {
  return Adresse(chemin, u"ro"_s);
}

ErreurBase ErreurMoteur(const QSqlError &erreur) {
  const GenreErreur genre = Genre(erreur.nativeErrorCode().toInt());
  const QString phrase = Phrase(genre);
  if (phrase.isEmpty()) return ErreurBase(erreur.text(), genre);
  return ErreurBase(phrase + u"\n\n"_s + erreur.text(), genre, erreur.text());
}

Connexion::Connexion(const QString &chemin, Fichier fichier, std::chrono::milliseconds attente) {
  connexion_ = std::make_unique<QSqlDatabase>(QSqlDatabase::addDatabase(
      u"QSQLITE"_s, u"velmira-%1"_s.arg(reinterpret_cast<quintptr>(this))));
  connexion_->setDatabaseName(fichier == Fichier::Present ? AdresseMoteur(chemin)
                                                          : Adresse(chemin, u"rwc"_s));
  connexion_->setConnectOptions(u"QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1"_s.arg(attente.count()));
  if (connexion_->open()) return;
  const ErreurBase erreur = ErreurMoteur(connexion_->lastError());
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
  if (!requete->prepare(texte)) throw ErreurMoteur(requete->lastError());
  return requete;
}

void Connexion::Executer(const QString &texte) const {
  const auto requete = Preparer(texte);
  if (!requete->exec()) throw ErreurMoteur(requete->lastError());
}

bool Connexion::ATable(const QString &nom) const {
  const auto requete = Preparer(
      u"SELECT 1 FROM sqlite_master WHERE type='table' AND rootpage>0 AND name=? COLLATE NOCASE"_s);
  requete->addBindValue(nom);
  if (!requete->exec()) throw ErreurMoteur(requete->lastError());
  return requete->next();
}
