#include "player/Monde.h"

#include "platform/Enregistrement.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"
#include "player/Echec.h"
#include "storage/Lignes.h"
#include "storage/Requete.h"

#include <QDir>
#include <QFileInfo>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kFinDeLigne = "\r\n";

void EcrireOctets(const QString &chemin, const QByteArray &octets) {
  QDir().mkpath(QFileInfo(chemin).path());
  QFile fichier(chemin);
  Exiger(fichier.open(QIODevice::WriteOnly) && fichier.write(octets) == octets.size(),
         u"\"%1\" cannot be written: %2"_s.arg(chemin, fichier.errorString()));
}

void Copier(const QString &source, const QString &cible) {
  const auto octets = LireFichier(source);
  Exiger(octets.has_value(), u"file \"%1\" expected to be copied, it is not there"_s.arg(source));
  EcrireOctets(cible, *octets);
}

/// A table as the engine tells it; the first column is the key.
struct TableLue {
  QString sql;
  QStringList champs;
  QList<bool> textes;
};

/// Runs a step on the open database.
template <typename Etape>
auto Avec(const QString &chemin, const QString &nom, Etape &&etape) {
  try {
    Base base;
    base.Ouvrir(chemin);
    TableLue table{u'"' + nom + u'"', {}, {}};
    Requete colonnes(base, u"SELECT name, type = 'TEXT' FROM pragma_table_info(?)"_s);
    colonnes.Lier(nom);
    while (colonnes.Suivante()) {
      table.champs.append(colonnes.Texte(0));
      table.textes.append(colonnes.Entier(1) != 0);
    }
    Exiger(!table.champs.isEmpty(), u"there is no table %1"_s.arg(nom));
    return etape(base, table);
  } catch (const Erreur &erreur) {
    throw Echec{erreur.Texte()};
  }
}

/// One statement for a row, with the values of `Field=value` words and the key where it has one.
void Changer(const QString &chemin, const QString &nom, const QString &texte,
             const QList<Mot> &champs, std::optional<Cle> cle) {
  Avec(chemin, nom, [&](Base &base, const TableLue &table) {
    QStringList noms, places;
    QList<QString> valeurs;
    for (const Mot &mot : champs) {
      const QString valeur = mot.texte.mid(mot.egal + 1);
      noms.append(u'"' + mot.texte.left(mot.egal) + u'"');
      places.append(noms.constLast() + u"=?"_s);
      Exiger(mot.egal > 0 && table.champs.contains(mot.texte.left(mot.egal)),
             u"Field=\"value\" of %1 expected, \"%2\" found"_s.arg(nom, mot.texte));
      valeurs.append(!mot.cite && valeur == u"nul"_s    ? QString()
                     : !mot.cite && valeur == u"vrai"_s ? u"1"_s
                     : !mot.cite && valeur == u"faux"_s ? u"0"_s
                                                        : valeur + u""_s);
    }
    for (qsizetype i = 1; !cle && i < table.champs.size(); ++i)
      if (const QString champ = u'"' + table.champs[i] + u'"'; !noms.contains(champ)) {
        noms.append(champ);
        valeurs.append(table.textes[i] ? u""_s : u"0"_s);
      }
    Transaction transaction(base);
    // A number as a text becomes a number by the affinity of its column.
    Requete requete(base, texte.arg(table.sql, cle ? places.join(u", ") : noms.join(u", "),
                                    cle ? table.champs[0] : u"?, "_s.repeated(noms.size() - 1)));
    for (const QString &valeur : valeurs) requete.Lier(valeur);
    if (cle) requete.Lier(*cle);
    Exiger(requete.Executer() == 1,
           u"table %1: row %2 expected, none of this key found"_s.arg(nom).arg(cle.value_or(0)));
    transaction.Valider();
  });
}

}  // namespace

Monde::Monde(const QString &dossier, QString livraison, QString dossierScenario)
    : dossier_(QFileInfo(dossier).canonicalFilePath()),
      livraison_(std::move(livraison)),
      dossierScenario_(std::move(dossierScenario)) {
  for (const QString &partie : {App(), Home()})
    Exiger(!QFileInfo::exists(partie) && QDir().mkpath(partie),
           u"\"%1\" cannot be made anew"_s.arg(partie));
  for (const QString &nom : QDir(livraison_).entryList(QDir::Files))
    Copier(livraison_ + u'/' + nom, App() + u'/' + nom);
}

QString Monde::Donnees() const {
  return Home() + u"/Users/Paul/DataTrevona/DataVelmira"_s;
}

QString Monde::Base() const {
  QString enregistre;
  if (const auto octets = LireFichier(App() + u"/Cheminbase.cfg"_s))
    LecteurEnregistrement(*octets).Lire(enregistre);
  const QString autre = enregistre + u"/Velmira.mdb"_s;
  return !enregistre.isEmpty() && QFileInfo(autre).isFile() ? autre : Donnees() + u"/Velmira.mdb"_s;
}

QString Monde::Chemin(const QString &nom) const {
  if (QDir::isAbsolutePath(nom)) return nom;
  const bool duMonde = nom.startsWith(u"app/"_s) || nom.startsWith(u"home/"_s);
  return QDir::cleanPath((duMonde ? dossier_ : App()) + u'/' + nom);
}

QString Monde::Completer(QString texte) const {
  constexpr int kLong = 33'000;
  return texte.replace(u"{app}"_s, App())
      .replace(u"{home}"_s, Home())
      .replace(u"{long}"_s, QString(kLong, u'x'));
}

void Monde::Installer() const {
  CreerDossier(Donnees());
  RedacteurEnregistrement chemin;
  chemin.Ecrire(Donnees());
  EcrireOctets(App() + u"/CheminData.cfg"_s, chemin.Octets());
  EcrireOctets(App() + u"/Cheminbase.cfg"_s, chemin.Octets());
  Exiger(QFile::rename(App() + u"/Velmira_base.mdb"_s, Donnees() + u"/Velmira.mdb"_s),
         u"the delivered Velmira_base.mdb cannot be put in place"_s);
}

void Monde::LivrerBase() const {
  Copier(livraison_ + u"/Velmira_base.mdb"_s, App() + u"/Velmira_base.mdb"_s);
}

void Monde::Ecrire(const QString &nom, const QStringList &lignes) const {
  QByteArray octets;
  for (const QString &ligne : lignes) octets += VersPageDeCode(ligne) + kFinDeLigne;
  EcrireOctets(Chemin(nom), octets);
}

void Monde::CopierDepuisScenario(const QString &source, const QString &cible) const {
  Copier(QDir(dossierScenario_).filePath(source), Chemin(cible));
}

void Monde::CreerDossier(const QString &nom) const {
  Exiger(QDir().mkpath(Chemin(nom)), u"\"%1\" cannot be made"_s.arg(nom));
}

void Monde::RendreIllisible(const QString &nom) const {
  QFile::remove(Chemin(nom));
  Exiger(QFile::link(u"/proc/self/mem"_s, Chemin(nom)), u"\"%1\" cannot be made"_s.arg(nom));
}

void Monde::PoserTube(const QString &nom) const {
  Exiger(mkfifo(QFile::encodeName(Chemin(nom)).constData(), S_IRUSR | S_IWUSR) == 0,
         u"\"%1\" cannot be made"_s.arg(nom));
}

void Monde::FermerLAcces(const QString &nom) const {
  QFile::remove(Chemin(nom));
  Exiger(QFile::link(Chemin(nom), Chemin(nom)), u"\"%1\" cannot be made"_s.arg(nom));
}

void Monde::Effacer(const QString &nom) const {
  QFile fichier(Chemin(nom));
  Exiger(fichier.remove(), u"\"%1\" cannot be deleted: %2"_s.arg(nom, fichier.errorString()));
}

void Monde::AbimerBase() const {
  QFile fichier(Base());
  Exiger(fichier.open(QFile::ReadWrite), u"%1 cannot be written"_s.arg(Base()));
  fichier.write(QByteArray(4096, 'x'));
}

QByteArray Monde::Octets(const QString &nom) const {
  const auto octets = LireFichier(Chemin(nom));
  const QDir dossier = QFileInfo(Chemin(nom)).dir();
  Exiger(octets.has_value(),
         u"file %1 expected, its folder holds %2"_s.arg(
             nom, EnListe(dossier.entryList(QDir::AllEntries | QDir::NoDotAndDotDot))));
  return *octets;
}

QStringList Monde::Lire(const QString &nom) const {
  QByteArray octets = Octets(nom);
  if (octets.isEmpty()) return {};
  if (octets.endsWith(kFinDeLigne)) octets.chop(2);
  return DepuisPageDeCode(octets).split(QLatin1StringView(kFinDeLigne));
}

void Monde::Ajouter(const QString &table, const QList<Mot> &champs) const {
  Changer(Base(), table, u"INSERT INTO %1 (%2) VALUES (%3?)"_s, champs, std::nullopt);
}

void Monde::Modifier(const QString &table, Cle cle, const QList<Mot> &champs) const {
  Changer(Base(), table, u"UPDATE %1 SET %2 WHERE \"%3\"=?"_s, champs, cle);
}

void Monde::Supprimer(const QString &table, Cle cle) const {
  Changer(Base(), table, u"DELETE FROM %1 WHERE %2\"%3\"=?"_s, {}, cle);
}

qint64 Monde::Nombre(const QString &table) const {
  return Avec(Base(), table, [](::Base &base, const TableLue &lue) {
    Requete requete(base, u"SELECT count(*) FROM "_s + lue.sql);
    return requete.Suivante() ? requete.Entier(0) : 0;
  });
}

QString Monde::Champ(const QString &table, Cle cle, const QString &champ) const {
  return Avec(Base(), table, [&](::Base &base, const TableLue &lue) {
    Exiger(lue.champs.contains(champ), u"table %1: there is no %2"_s.arg(table, champ));
    Requete requete(base,
                    u"SELECT \"%1\" FROM %2 WHERE \"%3\"=?"_s.arg(champ, lue.sql, lue.champs[0]));
    requete.Lier(cle);
    Exiger(requete.Suivante(), u"table %1: row %2 expected, none found"_s.arg(table).arg(cle));
    return requete.Nul(0) ? QString() : requete.Texte(0) + u""_s;
  });
}

QStringList Monde::Colonne(const QString &table, const QString &champ) const {
  return Avec(Base(), table, [&](::Base &base, const TableLue &lue) {
    Exiger(lue.champs.contains(champ), u"table %1: there is no %2"_s.arg(table, champ));
    QStringList valeurs;
    Requete requete(base,
                    u"SELECT \"%1\" FROM %2 ORDER BY \"%3\""_s.arg(champ, lue.sql, lue.champs[0]));
    while (requete.Suivante()) valeurs.append(requete.Nul(0) ? u"nul"_s : requete.Texte(0));
    return valeurs;
  });
}

AutreEcrivain::AutreEcrivain(const QString &chemin, bool seul) {
  base_.Ouvrir(chemin);
  Requete(base_, seul ? u"BEGIN EXCLUSIVE"_s : u"BEGIN IMMEDIATE"_s).Executer();
}
