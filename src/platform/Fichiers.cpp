#include "platform/Fichiers.h"

#include "platform/Disque.h"
#include "platform/Pannes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QScopeGuard>
#include <QTextBoundaryFinder>

#include <cerrno>
#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

/// `patron` names the file as %1.
QString Nommer(const QString &patron, const QString &chemin) {
  return patron.arg(QDir::toNativeSeparators(chemin));
}

fs::file_type Genre(const QString &chemin) {
  std::error_code erreur;
  const fs::path place(QFile::encodeName(chemin).toStdString());
  const fs::file_type genre = fs::status(place, erreur).type();
  if (genre == fs::file_type::none)
    throw EchecSysteme(Nommer(u"« %1 » n'est pas accessible"_s, chemin), {}, erreur.value());
  return genre;
}

ErreurFichier NonLu(const QString &chemin, int code) {
  return EchecSysteme(Nommer(u"Le fichier « %1 » n'a pas pu être lu"_s, chemin),
                      u"Il n'a pas été modifié."_s, code);
}

ErreurFichier NonEcrit(const QString &chemin, int code) {
  return EchecSysteme(Nommer(u"Le fichier « %1 » n'a pas pu être écrit"_s, chemin),
                      u"Ce qui était enregistré est intact."_s, code);
}

ErreurFichier NonDeplace(const QString &ancien, const QString &nouveau, int code) {
  return EchecSysteme(u"Le fichier « %1 » n'a pas pu être déplacé vers « %2 »"_s.arg(
                          QDir::toNativeSeparators(ancien), QDir::toNativeSeparators(nouveau)),
                      u"Il est intact."_s, code);
}

/// The renaming or deleting of a file is safe only once its folder is on the disk too.
void SynchroniserDossierDe(const QString &chemin) {
  const QString dossier = QFileInfo(chemin).absolutePath();
  if (!SynchroniserDossier(dossier))
    throw EchecSysteme(Nommer(u"Ce qui vient d'être écrit dans le répertoire « %1 » pourrait "
                              "manquer après une coupure de courant"_s,
                              dossier),
                       {}, errno);
}

/// Lets a new file of a name in use until it is whole be filled, and brings it to the disk; it goes
/// where that fails. `chemin` is the one that the user knows.
QString Remplir(const QString &dossier, const QString &chemin, const Remplissage &remplir) {
  const QString provisoire =
      dossier + u'/' + PrefixeProvisoire() +
      QString::number(QRandomGenerator::system()->generate64(), 36).rightJustified(13, u'0');
  auto effacer = qScopeGuard([&] { QFile::remove(provisoire); });
  QFile fichier(provisoire);
  errno = 0;
  if (!fichier.open(QIODevice::NewOnly)) throw NonEcrit(chemin, errno);
  remplir(provisoire);
  if (!SynchroniserFichier(fichier.handle())) throw NonEcrit(chemin, errno);
  effacer.dismiss();
  return provisoire;
}

/// The same beside `chemin`, and lets it be renamed. It goes unless it was.
void Ecrire(const QString &chemin, const Remplissage &remplir, const Remplissage &renommer) {
  const QString provisoire = Remplir(QFileInfo(chemin).absolutePath(), chemin, remplir);
  const auto effacer = qScopeGuard([&] { QFile::remove(provisoire); });
  renommer(provisoire);
}

Remplissage Ecrivain(const QString &chemin, const QByteArray &contenu) {
  return [&chemin, &contenu](const QString &provisoire) {
    QFile fichier(provisoire);
    errno = 0;
    if (!fichier.open(QIODevice::WriteOnly) || fichier.write(contenu) != contenu.size() ||
        !fichier.flush())
      throw NonEcrit(chemin, errno);
  };
}

/// Moves a file to another disk: it stands whole under one of the names at any moment.
void CopierPuisEffacer(const QString &ancien, const QString &nouveau) {
  if (!CreerFichier(nouveau, LireFichierPresent(ancien))) throw NonDeplace(ancien, nouveau, EEXIST);
  EffacerFichier(ancien);
}

}  // namespace

bool EstPresent(const QString &chemin) {
  return Genre(chemin) != fs::file_type::not_found;
}

bool EstFichier(const QString &chemin) {
  return Genre(chemin) == fs::file_type::regular;
}

bool EstDossier(const QString &chemin) {
  return Genre(chemin) == fs::file_type::directory;
}

std::optional<QByteArray> LireFichier(const QString &chemin) {
  if (!EstPresent(chemin)) return std::nullopt;
  if (!EstFichier(chemin)) throw NonLu(chemin, EISDIR);
  QFile fichier(chemin);
  QByteArray octets;
  errno = 0;
  if (fichier.open(QIODevice::ReadOnly)) octets = fichier.readAll();
  // The content ends where the reading fails; only the error tells.
  if (const int code = errno; fichier.error() != QFileDevice::NoError) throw NonLu(chemin, code);
  return octets;
}

QByteArray LireFichierPresent(const QString &chemin) {
  if (auto octets = LireFichier(chemin)) return *std::move(octets);
  throw NonLu(chemin, ENOENT);
}

std::optional<QByteArray> LireSiPossible(const QString &chemin) {
  try {
    return LireFichier(chemin);
  } catch (const ErreurFichier &) {
    return std::nullopt;
  }
}

QString DebutNomFichier(const QString &texte) {
  constexpr QLatin1StringView kRefuses(R"(/\:*?"<>|)");
  constexpr qsizetype kOctets = 180;  // of the 255 that a name can have
  QString nom = texte;
  for (QChar &signe : nom)
    if (kRefuses.contains(signe) || signe.category() == QChar::Other_Control ||
        signe.category() == QChar::Other_Format)
      signe = u' ';
  nom = nom.simplified();
  while (nom.startsWith(u'.') || nom.startsWith(u' ')) nom.remove(0, 1);  // it would be hidden
  QTextBoundaryFinder signes(QTextBoundaryFinder::Grapheme, nom);
  qsizetype fin = 0;
  for (qsizetype place = 0; place >= 0 && QStringView(nom).left(place).toUtf8().size() <= kOctets;
       place = signes.toNextBoundary())
    fin = place;
  nom.truncate(fin);
  return nom.trimmed();
}

QString PrefixeProvisoire() {
  return u".velmira-"_s;
}

QString CreerProvisoire(const QString &dossier, const QByteArray &contenu) {
  return Remplir(dossier, dossier, Ecrivain(dossier, contenu));
}

void NommerProvisoires(const QList<std::pair<QString, QString>> &noms) {
  for (const auto &[provisoire, nom] : noms)
    if (RenommerSansRemplacer(provisoire, nom) != Renommage::Fait) throw NonEcrit(nom, errno);
  if (!noms.isEmpty()) SynchroniserDossierDe(noms.constFirst().second);
}

void RemplacerFichier(const QString &chemin, const QByteArray &contenu) {
  RemplacerFichierPar(chemin, Ecrivain(chemin, contenu));
}

void RemplacerFichierPar(const QString &chemin, const Remplissage &remplir) {
  if (EstPresent(chemin) && !EstFichier(chemin)) throw NonEcrit(chemin, EISDIR);
  const QFileInfo ancien(chemin);
  const QString cible = ancien.isSymLink() ? ancien.symLinkTarget() : chemin;
  if (ancien.exists() && !ancien.isWritable()) throw NonEcrit(chemin, EACCES);
  Ecrire(cible, remplir, [&](const QString &provisoire) {
    if (ancien.exists()) {
      RendreAuProprietaire(provisoire, cible);
      QFile::setPermissions(provisoire, ancien.permissions());
    }
    if (!RenommerEnRemplacant(provisoire, cible)) throw NonEcrit(chemin, errno);
  });
  SynchroniserDossierDe(cible);
}

bool CreerFichier(const QString &chemin, const QByteArray &contenu) {
  return CreerFichierPar(chemin, Ecrivain(chemin, contenu));
}

bool CreerFichierPar(const QString &chemin, const Remplissage &remplir) {
  Renommage renommage = Renommage::Echoue;
  Ecrire(chemin, remplir, [&](const QString &provisoire) {
    renommage = RenommerSansRemplacer(provisoire, chemin);
    if (renommage != Renommage::Fait && renommage != Renommage::NomPris)
      throw NonEcrit(chemin, errno);
  });
  if (renommage == Renommage::NomPris) return false;
  SynchroniserDossierDe(chemin);
  return true;
}

void EffacerFichier(const QString &chemin) {
  errno = 0;
  if (!QFile::remove(chemin))
    throw EchecSysteme(Nommer(u"Le fichier « %1 » n'a pas pu être effacé"_s, chemin), {}, errno);
  SynchroniserDossierDe(chemin);
}

void RenommerFichier(const QString &ancien, const QString &nouveau) {
  const Renommage renommage = RenommerSansRemplacer(ancien, nouveau);
  if (renommage == Renommage::AutreDisque) {
    CopierPuisEffacer(ancien, nouveau);
    return;
  }
  if (renommage != Renommage::Fait) throw NonDeplace(ancien, nouveau, errno);
  SynchroniserDossierDe(nouveau);
  SynchroniserDossierDe(ancien);
}

void RemplacerParRenommage(const QString &ancien, const QString &nouveau) {
  if (!RenommerEnRemplacant(ancien, nouveau)) throw NonDeplace(ancien, nouveau, errno);
  SynchroniserDossierDe(nouveau);
}

void CreerDossier(const QString &chemin, Acces acces) {
  const QString dossier = QDir::cleanPath(QFileInfo(chemin).absoluteFilePath());
  if (EstDossier(dossier)) return;
  CreerDossier(QFileInfo(dossier).path(), acces);
  errno = 0;
  const bool cree =
      acces == Acces::Prive
          ? QDir().mkdir(dossier, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner)
          : QDir().mkdir(dossier);
  if (const int code = errno; !cree && !EstDossier(dossier))
    throw EchecSysteme(Nommer(u"Le répertoire « %1 » n'a pas pu être créé"_s, chemin), {}, code);
  SynchroniserDossierDe(dossier);
}
