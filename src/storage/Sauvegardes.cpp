#include "storage/Sauvegardes.h"

#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "platform/Pannes.h"
#include "storage/Balayage.h"
#include "storage/Dossiers.h"
#include "storage/Moteur.h"
#include "storage/Preferences.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QSqlError>
#include <QSqlQuery>
#include <QStorageInfo>

#include <algorithm>
#include <array>
#include <chrono>
#include <functional>
#include <optional>
#include <tuple>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kAttente = 2s;

const QString kSection = u"Sauvegardes"_s, kCle = u"Dossier"_s;

/// What a motive is called in the name of a file, and for the user.
struct NomMotif {
  MotifSauvegarde motif;
  const char16_t *fichier, *texte;
};
constexpr std::array kMotifs{
    NomMotif{MotifSauvegarde::Jour, u"", u"du jour"},
    NomMotif{MotifSauvegarde::MiseAJour, u"mise-a-jour", u"avant une mise à jour"},
    NomMotif{MotifSauvegarde::Transfert, u"transfert", u"avant un transfert"},
    NomMotif{MotifSauvegarde::Import, u"import", u"avant une importation"},
    NomMotif{MotifSauvegarde::Restauration, u"restauration", u"avant une restauration"}};

const NomMotif &NomDe(MotifSauvegarde motif) {
  return *std::ranges::find(kMotifs, motif, &NomMotif::motif);
}

QString NomFichier(const QDateTime &quand, MotifSauvegarde motif) {
  const QString jour = u"Velmira_"_s + quand.toString(u"yyyy-MM-dd"_s);
  if (motif == MotifSauvegarde::Jour) return jour + u".mdb"_s;
  return jour + quand.toString(u"_HH-mm-ss_"_s) + QString::fromUtf16(NomDe(motif).fichier) +
         u".mdb"_s;
}

/// Nothing of another form of name.
std::optional<Sauvegarde> Reconnaitre(const QFileInfo &fichier) {
  static const QRegularExpression forme(
      uR"(^Velmira_(\d{4}-\d\d-\d\d)(?:_(\d\d-\d\d-\d\d)_([a-z-]+))?\.mdb$)"_s);
  const auto trouve = forme.match(fichier.fileName());
  const QString nom = trouve.captured(3);
  const auto motif = std::ranges::find_if(
      kMotifs, [&](const NomMotif &m) { return nom == QString::fromUtf16(m.fichier); });
  const QDateTime quand(
      QDate::fromString(trouve.captured(1), u"yyyy-MM-dd"_s),
      nom.isEmpty() ? QTime(0, 0) : QTime::fromString(trouve.captured(2), u"HH-mm-ss"_s));
  if (!quand.isValid() || motif == kMotifs.end()) return std::nullopt;
  return Sauvegarde{fichier.filePath(), quand, motif->motif, fichier.size()};
}

/// Of the last `nombre` periods that have copies, these as `garder` takes them; `periode` names the
/// period of a day. The newest copies come first.
template <typename Periode>
void Garder(const QList<Sauvegarde> &sauvegardes, qsizetype nombre, bool toutes,
            const Periode &periode, QSet<QString> &gardees) {
  QList<decltype(periode(QDate()))> vues;
  for (const Sauvegarde &sauvegarde : sauvegardes) {
    const auto celle = periode(sauvegarde.quand.date());
    const bool nouvelle = !vues.contains(celle);
    if (nouvelle && vues.size() == nombre) return;
    if (nouvelle) vues.append(celle);
    if (nouvelle || toutes) gardees.insert(sauvegarde.chemin);
  }
}

bool DisqueEtroit(const QString &dossier) {
  constexpr qint64 kReserve = qint64{1} << 30;
  const QStorageInfo disque(dossier);
  return disque.isValid() && disque.bytesAvailable() < std::min(kReserve, disque.bytesTotal() / 10);
}

void Effacer(const Sauvegarde &sauvegarde) {
  Ignorer([&] { EffacerFichier(sauvegarde.chemin); });  // another user may have been faster
}

QSqlQuery &Lancer(QSqlQuery &requete, const QString &chemin) {
  if (!requete.exec()) throw ErreurMoteur(requete.lastError(), chemin);
  return requete;
}

/// All that a statement gives, as texts.
QStringList Lire(const Connexion &connexion, const QString &texte, const QString &chemin) {
  const auto requete = connexion.Preparer(texte);
  Lancer(*requete, chemin);
  QStringList valeurs;
  while (requete->next()) valeurs.append(requete->value(0).toString());
  if (requete->lastError().isValid()) throw ErreurMoteur(requete->lastError(), chemin);
  return valeurs;
}

/// The tables with the number of their rows.
QStringList Lignes(const Connexion &connexion, const QString &chemin) {
  QStringList lignes;
  for (const QString &table : Lire(
           connexion, u"SELECT name FROM sqlite_master WHERE type='table' ORDER BY name"_s, chemin))
    lignes.append(
        table + u' ' +
        Lire(connexion,
             u"SELECT count(*) FROM \"%1\""_s.arg(QString(table).replace(u'"', u"\"\""_s)), chemin)
            .value(0));
  return lignes;
}

/// One that nobody could restore is none.
void Verifier(const QString &copie, const QString &base, const QStringList &lignes) {
  const Connexion connexion(copie, Connexion::Fichier::Present, kAttente);
  const QStringList verdict = Lire(connexion, u"PRAGMA integrity_check(1)"_s, copie);
  const bool lignesJustes = lignes.isEmpty() || Lignes(connexion, copie) == lignes;
  if (verdict == QStringList{u"ok"_s} && lignesJustes) return;
  throw ErreurBase(
      u"La sauvegarde de la base de données « %1 » n'a pas pu être faite : la copie n'est pas "
      "conforme à la base.\nLes sauvegardes précédentes sont intactes. Lancez « Réparer et "
      "compacter la base de données », puis recommencez.\n\nDétail technique : %2"_s.arg(
          QDir::toNativeSeparators(base), verdict.join(u' ')),
      GenreErreur::Endommagee);
}

/// Fills an empty file. The rows are compared where nobody has written since before the copying.
void CopierBase(const QString &base, const QString &copie) {
  const Connexion connexion(base, Connexion::Fichier::Present, kAttente);
  const auto ecritures = [&] { return Lire(connexion, u"PRAGMA data_version"_s, base); };
  const QStringList avant = ecritures();
  const auto requete = connexion.Preparer(u"VACUUM INTO ?"_s);
  requete->addBindValue(copie);
  Lancer(*requete, base);
  QStringList lignes = Lignes(connexion, base);
  if (ecritures() != avant) lignes.clear();
  Verifier(copie, base, lignes);
  QFile::setPermissions(copie, QFile::permissions(base));  // who uses the base may restore it
}

/// What is to be upgraded or replaced may be of another format, or damaged, and is kept as it is
/// then. The engine holds no locks on it here, which the closing of the file would take off it.
void Copier(const QString &base, const QString &copie, MotifSauvegarde motif) {
  try {
    CopierBase(base, copie);
  } catch (const ErreurBase &erreur) {
    const GenreErreur genre = erreur.Genre();
    const bool remplacee = motif != MotifSauvegarde::Jour && motif != MotifSauvegarde::Import;
    if (!remplacee || (genre != GenreErreur::Etrangere && genre != GenreErreur::Endommagee)) throw;
    RemplacerFichier(copie, LireFichierPresent(base));
  }
}

/// Gives the path; empty where the day has its copy, and where it was stopped.
QString SauvegarderDans(const QString &dossier, const QString &base, const QDateTime &maintenant,
                        MotifSauvegarde motif, const std::stop_token &arret) {
  CreerDossier(dossier);
  for (QDateTime quand = maintenant;; quand = quand.addSecs(1)) {
    const QString chemin = dossier + u'/' + NomFichier(quand, motif);
    const bool prise = EstPresent(chemin);
    if (arret.stop_requested() || (prise && motif == MotifSauvegarde::Jour)) return {};
    if (!prise &&
        CreerFichierPar(chemin, [&](const QString &copie) { Copier(base, copie, motif); })) {
      EntretenirSauvegardes(dossier, maintenant);
      return chemin;
    }
  }
}

/// Throws where the chosen folder is not there.
void ExigerChoisi(const LieuxSauvegardes &lieux) {
  if (!lieux.EstAbsent()) return;
  throw ErreurFichier(
      PhraseEchec(u"Le répertoire des sauvegardes « %1 » n'a pas pu être ouvert"_s.arg(
                      QDir::toNativeSeparators(lieux.ailleurs)),
                  {u"il est introuvable"_s,
                   u"Branchez la clé ou le disque qui le porte, ou choisissez un autre "
                   "répertoire dans le menu « Options »."_s},
                  u"Les sauvegardes précédentes sont intactes."_s, {}));
}

}  // namespace

QString TexteMotif(MotifSauvegarde motif) {
  return QString::fromUtf16(NomDe(motif).texte);
}

QString DossierSauvegardes(const QString &dossier) {
  return dossier + u'/' + NomDossierSauvegardes();
}

QString LireDossierChoisi(const QString &appPath) {
  return Preferences(appPath).Texte(kSection, kCle);
}

void EcrireDossierChoisi(const QString &appPath, const QString &dossier) {
  if (!dossier.isEmpty()) CreerDossier(DossierSauvegardes(dossier));
  Preferences(appPath).Ecrire(kSection, {{kCle, dossier}});
}

QString LieuxSauvegardes::Voisin() const {
  return DossierSauvegardes(QFileInfo(base).absolutePath());
}

QString LieuxSauvegardes::Ailleurs() const {
  if (ailleurs.isEmpty()) return {};
  // Without the word that makes a folder one of data.
  const QString lieu = QFileInfo(base).absolutePath().remove(NomDossierDonnees());
  return DossierSauvegardes(ailleurs) + u'/' + DebutNomFichier(lieu);
}

bool LieuxSauvegardes::EstAbsent() const {
  return !ailleurs.isEmpty() && !EstDossier(DossierSauvegardes(ailleurs));
}

QList<Sauvegarde> ListerSauvegardes(const QString &dossier) {
  QList<Sauvegarde> sauvegardes;
  for (const QFileInfo &fichier : QDir(dossier).entryInfoList(QDir::Files))
    if (const auto sauvegarde = Reconnaitre(fichier)) sauvegardes.append(*sauvegarde);
  std::ranges::sort(sauvegardes, [](const Sauvegarde &a, const Sauvegarde &b) {
    return std::tie(b.quand, b.chemin) < std::tie(a.quand, a.chemin);
  });
  return sauvegardes;
}

QList<Sauvegarde> ListerSauvegardes(const LieuxSauvegardes &lieux) {
  QList<Sauvegarde> sauvegardes = ListerSauvegardes(lieux.Voisin());
  if (!lieux.ailleurs.isEmpty()) sauvegardes += ListerSauvegardes(lieux.Ailleurs());
  std::ranges::stable_sort(sauvegardes, std::greater(), &Sauvegarde::quand);
  return sauvegardes;
}

QList<Sauvegarde> Superflues(const QList<Sauvegarde> &sauvegardes) {
  QList<Sauvegarde> rangees = sauvegardes;
  std::ranges::stable_sort(rangees, std::greater(), &Sauvegarde::quand);
  QSet<QString> gardees;
  Garder(
      rangees, 7, true, [](QDate jour) { return jour; }, gardees);
  Garder(
      rangees, 4, false, [](QDate jour) { return jour.addDays(1 - jour.dayOfWeek()); }, gardees);
  Garder(
      rangees, 12, false, [](QDate jour) { return QDate(jour.year(), jour.month(), 1); }, gardees);
  rangees.removeIf([&](const Sauvegarde &s) { return gardees.contains(s.chemin); });
  return rangees;
}

void EntretenirSauvegardes(const QString &dossier, const QDateTime &maintenant) {
  BalayerProvisoires(dossier, maintenant);
  QList<Sauvegarde> sauvegardes = ListerSauvegardes(dossier);
  for (const Sauvegarde &superflue : Superflues(sauvegardes)) Effacer(superflue);
  for (sauvegardes = ListerSauvegardes(dossier); sauvegardes.size() > 1 && DisqueEtroit(dossier);
       sauvegardes.removeLast())
    Effacer(sauvegardes.constLast());
}

SauvegardeFaite Sauvegarder(const LieuxSauvegardes &lieux, const QDateTime &maintenant,
                            MotifSauvegarde motif, const std::stop_token &arret) {
  SauvegardeFaite faite;
  const auto dans = [&](const QString &dossier) {
    return SauvegarderDans(dossier, lieux.base, maintenant, motif, arret);
  };
  try {
    if (lieux.ailleurs.isEmpty()) return {dans(lieux.Voisin()), {}};
    ExigerChoisi(lieux);
    return {dans(lieux.Ailleurs()), {}};
  } catch (const Erreur &erreur) {
    if (lieux.ailleurs.isEmpty()) throw;
    faite.panne = erreur.Texte();
  }
  faite.chemin = dans(lieux.Voisin());
  return faite;
}
