#include "storage/SourceJet.h"

#include "platform/Pannes.h"
#include "platform/Processus.h"
#include "storage/Base.h"
#include "storage/Lignes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

constexpr qint64 kPlaceSigne = 4;
constexpr std::array<QByteArrayView, 2> kSignes{"Standard Jet DB", "Standard ACE DB"};

/// The tables in the words of the windows.
QString Libelle(const QString &table) {
  static const QHash<QString, QString> kLibelles{{u"Adresse"_s, u"correspondants"_s},
                                                 {u"Expediteur"_s, u"expéditeurs"_s},
                                                 {u"Ville"_s, u"villes"_s},
                                                 {u"Alerte"_s, u"types d'évènements"_s},
                                                 {u"Listecoal"_s, u"personnes des alertes"_s},
                                                 {u"ListeAlerte"_s, u"évènements"_s}};
  return kLibelles.value(table);
}

QStringList NomsTables() {
  QStringList noms;
  PourChaqueTable(
      [&noms]<typename L>(Table<L>) { noms.append(QString::fromUtf16(Table<L>::nom)); });
  return noms;
}

QString Etat(const TableJet &table) {
  if (!table.Finie() && table.Lignes() == 0) return u"illisibles"_s;
  const QLocale francais(QLocale::French, QLocale::France);
  QString etat = francais.toString(table.Lignes());
  if (table.Annoncees() > table.Lignes())
    etat += u" sur %1"_s.arg(francais.toString(table.Annoncees()));
  if (table.Illisibles() == 1) etat += u", dont une valeur illisible"_s;
  if (table.Illisibles() > 1)
    etat += u", dont %1 valeurs illisibles"_s.arg(francais.toString(table.Illisibles()));
  if (!table.Entiere() && table.Annoncees() <= table.Lignes() && table.Illisibles() == 0)
    etat += u", peut-être pas tous"_s;
  return etat;
}

/// The process that has read a table, in the words of a failure; null where it has ended well.
QString Raison(FinProcessus fin, const TableJet &table, seconds delai) {
  switch (fin) {
    case FinProcessus::Reussi:
      return table.Finie() ? QString() : u"le fichier est endommagé"_s;
    case FinProcessus::Echoue:
      return u"le fichier est endommagé"_s;
    case FinProcessus::Introuvable:
      return u"le programme velmira-jet, qui lit ces anciennes bases, ne peut pas être lancé, et "
             "il faut réinstaller Velmira"_s;
    case FinProcessus::Delai:
      return u"sa lecture n'a pas abouti en %1 secondes"_s.arg(delai.count());
    case FinProcessus::Interrompu:
      break;
  }
  return table.TropGrande() ? u"il contient trop de données"_s : u"le fichier est endommagé"_s;
}

ErreurBase NonLue(const QString &chemin, const QString &raison) {
  return ErreurBase(
      PhraseEchec(u"L'ancienne base de données « %1 » n'a pas pu être lue"_s.arg(
                      QDir::toNativeSeparators(chemin)),
                  {raison, u"Si vous en avez une copie de sauvegarde, employez-la à sa place."_s},
                  u"Le fichier n'a pas été modifié."_s, {}),
      GenreErreur::Endommagee);
}

}  // namespace

bool EstJet(const QString &chemin) {
  QFile fichier(chemin);
  if (!QFileInfo(chemin).isFile() || !fichier.open(QIODevice::ReadOnly)) return false;
  const QByteArray signe = fichier.read(kPlaceSigne + kSignes[0].size()).mid(kPlaceSigne);
  return std::find(kSignes.begin(), kSignes.end(), QByteArrayView(signe)) != kSignes.end();
}

SourceJet::SourceJet(const QString &chemin, const LimitesJet &limites)
    : chemin_(QFileInfo(chemin).absoluteFilePath()), empreinte_(Prendre(chemin_)) {
  Lire(limites);
}

SourceJet::Empreinte SourceJet::Prendre(const QString &chemin) {
  const QFileInfo fichier(chemin);
  return {fichier.size(), fichier.lastModified()};
}

void SourceJet::Lire(const LimitesJet &limites) {
  const QString lecteur =
      limites.lecteur.isEmpty() ? ProgrammeAuxiliaire(u"velmira-jet"_s) : limites.lecteur;
  const auto fin = steady_clock::now() + limites.delai;
  QString raison;
  for (const QString &nom : NomsTables()) {
    TableJet table(limites.octets);
    const FinProcessus ainsi =
        LireSortie(lecteur, {chemin_, nom}, duration_cast<milliseconds>(fin - steady_clock::now()),
                   [&table](QByteArrayView octets) { return table.Ajouter(octets); });
    if (raison.isNull()) raison = Raison(ainsi, table, duration_cast<seconds>(limites.delai));
    tables_[nom] = std::move(table);
  }
  Verifier(raison.isNull() ? u"le fichier est endommagé"_s : raison);
}

void SourceJet::Verifier(const QString &raison) const {
  for (const QString &table : {u"Adresse"_s, u"Expediteur"_s, u"Ville"_s})
    if (LaTable(table).Absente())
      throw ErreurBase(u"Le fichier « %1 » n'a pas de table %2."_s.arg(chemin_, table));
  const bool lues = std::any_of(tables_.cbegin(), tables_.cend(),
                                [](const TableJet &table) { return table.Lignes() > 0; });
  if (!lues && !Entiere()) throw NonLue(chemin_, raison);
}

bool SourceJet::Entiere() const {
  return std::all_of(tables_.cbegin(), tables_.cend(),
                     [](const TableJet &table) { return table.Absente() || table.Entiere(); });
}

QString SourceJet::Constat() const {
  QStringList lignes;
  for (const QString &nom : NomsTables())
    if (const TableJet &table = LaTable(nom); !table.Absente())
      lignes.append(u"- %1 : %2"_s.arg(Libelle(nom), Etat(table)));
  return lignes.join(u'\n');
}

bool SourceJet::EstEnPlace() const {
  if (!EstJet(chemin_)) return false;
  if (Prendre(chemin_) == empreinte_) return true;
  throw ErreurBase(
      u"La base de données « %1 » a changé pendant qu'elle était lue.\n"
      "Fermez les autres programmes qui l'emploient, puis recommencez."_s.arg(
          QDir::toNativeSeparators(chemin_)),
      GenreErreur::Occupee);
}

bool SourceJet::Ouvrir(const QString &table) {
  table_ = &LaTable(table);
  rang_ = -1;
  return table_->Colonnes() > 0;
}

bool SourceJet::Suivante() {
  if (++rang_ >= table_->Lignes()) return false;
  ligne_ = table_->Ligne(rang_);
  return true;
}

std::optional<QVariant> SourceJet::Champ(int ordinal) {
  if (ordinal >= ligne_.size()) return std::nullopt;
  return ligne_[ordinal];
}
