#include "storage/Reparation.h"

#include "platform/Disque.h"
#include "platform/Fichiers.h"
#include "platform/Pannes.h"
#include "platform/Verrou.h"
#include "storage/Base.h"
#include "storage/Moteur.h"
#include "storage/Requete.h"
#include "storage/Sauvetage.h"
#include "storage/Schema.h"
#include "storage/SourceJet.h"
#include "storage/TransfertBase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QScopeGuard>

#include <algorithm>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kPauseVerrou = 100ms;
constexpr qsizetype kPas = 500;                // rows between two words of progress
constexpr quint32 kVersionVraisemblable = 99;  // a higher one is damage

// How much of the whole each step is, in hundredths, by what it ends at.
constexpr qsizetype kReservee = 5, kCopiee = 15, kVerifiee = 35, kLue = 60, kEcrite = 90,
                    kTotal = 100;

class Arret {};

/// The progress of one step out of the whole; its "no" is thrown where it can be.
Avance Etape(const Avance &avance, qsizetype debut, qsizetype fin) {
  return [&avance, debut, fin](qsizetype fait, qsizetype total) {
    return avance(debut + (total > 0 ? fait * (fin - debut) / total : 0), kTotal);
  };
}

void Dire(const Avance &avance, qsizetype fait) {
  if (!avance(fait, kTotal)) throw Arret();
}

QString NomTable(Table<Correspondant>) {
  return u"Correspondants"_s;
}
QString NomTable(Table<Expediteur>) {
  return u"Expéditeurs"_s;
}
QString NomTable(Table<VilleCode>) {
  return u"Villes et codes postaux"_s;
}
QString NomTable(Table<TypeAlerte>) {
  return u"Types d'évènements"_s;
}
QString NomTable(Table<PersonneAlerte>) {
  return u"Personnes des alertes"_s;
}
QString NomTable(Table<Evenement>) {
  return u"Évènements"_s;
}

QString Phrase(const QString &chemin) {
  return u"La base de données « %1 » n'a pas pu être réparée"_s.arg(
      QDir::toNativeSeparators(chemin));
}

ErreurBase Refus(const QString &chemin, GenreErreur genre) {
  return AutrementDit(Phrase(chemin), ErreurBase({}, genre));
}

ErreurBase RienALire(const QString &chemin) {
  return ErreurBase(PhraseEchec(Phrase(chemin),
                                {u"rien ne peut plus y être lu"_s,
                                 u"Remettez à sa place une copie de sauvegarde."_s},
                                u"Le fichier n'a pas été modifié."_s, {}),
                    GenreErreur::Endommagee);
}

ErreurBase Occupee(const QString &chemin, const QString &detenteur) {
  const QString qui = detenteur.isEmpty()
                          ? u"un programme d'un autre ordinateur, ou un autre utilisateur, s'en "
                            "sert"_s
                          : u"le programme %1 s'en sert"_s.arg(detenteur);
  return ErreurBase(
      PhraseEchec(Phrase(chemin),
                  {qui,
                   u"Fermez Velmira sur tous les postes qui travaillent sur cette base, puis "
                   "recommencez."_s},
                  u"Le fichier n'a pas été modifié."_s, {}),
      GenreErreur::Occupee);
}

/// Beside the file itself, and not beside a link to it, lie its journal and its copies.
QString SansLien(const QString &chemin) {
  const QFileInfo fichier(chemin);
  return fichier.isSymLink() && fichier.exists() ? fichier.canonicalFilePath() : chemin;
}

bool JournalPresent(const QString &chemin) {
  return QFileInfo(chemin + u"-journal"_s).size() > 0;
}

/// What a killed program left half written is the engine's to take back. It may not know how to any
/// more.
void ReprendreEcriture(const QString &chemin) {
  if (!JournalPresent(chemin)) return;
  Ignorer([&] {
    Connexion(chemin, Connexion::Fichier::Present, kPauseVerrou)
        .Executer(u"SELECT name FROM sqlite_master"_s);
  });
}

/// Waits for the lock. Someone may have put another file in the place meanwhile, or have been
/// killed in the middle of a writing: both are taken up once more.
std::unique_ptr<VerrouExclusif> Reserver(const QString &chemin, std::chrono::milliseconds attente,
                                         const Avance &avance) {
  const auto limite = std::chrono::steady_clock::now() + attente;
  for (bool repris = false;;) {
    ReprendreEcriture(chemin);
    auto verrou = std::make_unique<VerrouExclusif>(chemin);
    if (verrou->Prendre() && verrou->EstEnPlace()) {
      if (!JournalPresent(chemin) || repris) return verrou;
      repris = true;
      continue;
    }
    if (std::chrono::steady_clock::now() >= limite) throw Occupee(chemin, verrou->Detenteur());
    Dire(avance, 0);
    std::this_thread::sleep_for(std::min(attente, kPauseVerrou));
  }
}

/// Copies a content beside the file, under its name with the date, and gives the copy's path. It is
/// its owner's, with the file's rights.
QString MettreDeCote(const QString &chemin, const QByteArray &contenu,
                     const QDateTime &maintenant) {
  const QFileInfo fichier(chemin);
  const QString debut = fichier.absolutePath() + u'/' + fichier.completeBaseName() + u'_' +
                        maintenant.toString(u"yyyy-MM-dd_HHmmss"_s);
  const QString fin = fichier.suffix().isEmpty() ? QString() : u'.' + fichier.suffix();
  QString copie = debut + fin;
  for (int n = 2; !CreerFichier(copie, contenu); ++n) copie = debut + u"_%1"_s.arg(n) + fin;
  RendreAuProprietaire(copie, chemin);
  QFile::setPermissions(copie, fichier.permissions());
  return copie;
}

/// Whether the engine finds nothing wrong with a file.
bool EstSain(const QString &chemin) {
  try {
    Base base;
    base.Ouvrir(chemin);
    Requete verification(base, u"PRAGMA integrity_check(1)"_s);
    return verification.Suivante() && verification.Texte(0) == u"ok"_s;
  } catch (const ErreurBase &erreur) {
    return false;
  }
}

/// The first versions left no mark in their files, or had another engine.
ErreurBase TropAncienne(const QString &chemin) {
  return ErreurBase(PhraseEchec(Phrase(chemin),
                                {u"elle vient d'une version plus ancienne de Velmira"_s,
                                 u"Lancez Velmira, qui la mettra à jour."_s},
                                u"Le fichier n'a pas été modifié."_s, {}));
}

/// A file that is whole as far as it tells what it is, and is not ours to repair.
void ExigerLaNotre(const QString &chemin, const QByteArray &contenu) {
  const Identite identite = IdentiteDe(contenu);
  if (identite.lisible && !identite.tables) throw Refus(chemin, GenreErreur::Etrangere);
  if (EstJet(chemin) || (identite.lisible && identite.application == 0 && identite.version == 0))
    throw TropAncienne(chemin);
  if (identite.application == quint32{Base::kApplication} &&
      identite.version > quint32{Base::kVersion} && identite.version <= kVersionVraisemblable)
    throw Refus(chemin, GenreErreur::PlusRecente);
}

/// Opens a new file of ours, empty but for its tables; nobody else knows it yet.
void OuvrirNouvelle(Base &base, const QString &chemin) {
  CreerTables(chemin);
  base.Ouvrir(chemin);
  // A file that was not finished is thrown away: neither a journal nor the disk is waited for.
  Requete(base, u"PRAGMA journal_mode=MEMORY"_s).Suivante();
  Requete(base, u"PRAGMA synchronous=OFF"_s).Executer();
}

void Exiger(Base &base) {
  Requete verification(base, u"PRAGMA integrity_check(1)"_s);
  if (!verification.Suivante() || verification.Texte(0) != u"ok"_s)
    throw ErreurBase({}, GenreErreur::Materiel);
}

QList<BilanTable> Compter(Base &base) {
  QList<BilanTable> tables;
  PourChaqueTable([&](auto table) {
    Requete nombre(base, u"SELECT COUNT(*) FROM "_s + Nom(table));
    nombre.Suivante();
    tables.append({.nom = NomTable(table), .gardees = static_cast<qsizetype>(nombre.Entier(0))});
  });
  return tables;
}

/// An event without its type or its person would be in no list: both get a row with a name that
/// tells so. Whether there was any.
bool Renommer(Base &base) {
  Transaction transaction(base);
  const auto nommer = [&base](const QString &table, const QString &nom, const QString &cle,
                              const QString &genre) {
    return Requete(base,
                   u"INSERT INTO %1 (ID, %2, Disponible) SELECT DISTINCT %3, '%4 ' || %3, 1 "
                   "FROM ListeAlerte WHERE %3 BETWEEN 1 AND 2147483647 "  // no damaged key
                   "AND %3 NOT IN (SELECT ID FROM %1)"_s.arg(table, nom, cle, genre))
        .Executer();
  };
  const qint64 types = nommer(u"Alerte"_s, u"Type_alerte"_s, u"Alerte"_s, u"Évènement"_s);
  const qint64 personnes = nommer(u"Listecoal"_s, u"Nom"_s, u"Nom"_s, u"Personne"_s);
  transaction.Valider();
  return types + personnes > 0;
}

/// Writes what was saved of the tables into an empty file of ours.
class Ecriture {
 public:
  Ecriture(Base &base, const std::vector<TableSauvee> &tables, const Avance &avance)
      : base_(base), tables_(tables), avance_(avance) {
    for (const TableSauvee &table : tables) total_ += table.Gardees();
  }

  /// Throws `Arret`.
  void Executer() {
    Transaction transaction(base_);
    auto sauvee = tables_.begin();
    PourChaqueTable([&](auto table) { Ecrire(table, *sauvee++); });
    transaction.Valider();
  }

 private:
  template <typename L>
  void Ecrire(Table<L> table, const TableSauvee &sauvee) {
    constexpr qsizetype champs = kNombreColonnes<L> - 1;
    Requete ajout(base_, u"INSERT INTO "_s + Nom(table) + u" ("_s + ListeColonnes(table) +
                             u") VALUES (?"_s + u", ?"_s.repeated(champs) + u')');
    for (const auto &[cle, ligne] : sauvee.lignes) Ajouter(ajout.Lier(cle), ligne, champs);
    RetenirCle(QString::fromUtf16(Table<L>::nom), sauvee.derniereCle);
    for (const QVariantList &ligne : sauvee.sansCle) Ajouter(ajout.Lier(QString()), ligne, champs);
  }

  void Ajouter(Requete &ajout, const QVariantList &ligne, qsizetype champs) {
    for (qsizetype i = 1; i <= champs; ++i) {
      const QVariant champ = ligne.value(i);
      if (champ.typeId() == QMetaType::LongLong)
        ajout.Lier(champ.toLongLong());
      else
        ajout.Lier(champ.isValid() ? u""_s + champ.toString() : QString());
    }
    ajout.Executer();
    if (++ecrites_ % kPas == 0 && !avance_(ecrites_, total_)) throw Arret();
  }

  /// So that a key which was given once is never given again.
  void RetenirCle(const QString &table, qint64 cle) {
    if (cle == 0) return;
    Requete(base_, u"DELETE FROM sqlite_sequence WHERE name=?"_s).Lier(table).Executer();
    Requete(base_, u"INSERT INTO sqlite_sequence (name, seq) VALUES (?, ?)"_s)
        .Lier(table)
        .Lier(cle)
        .Executer();
  }

  Base &base_;
  const std::vector<TableSauvee> &tables_;
  const Avance &avance_;
  qsizetype ecrites_ = 0, total_ = 0;
};

/// One repair, while the lock is held.
class Travaux {
 public:
  Travaux(const QString &chemin, const QByteArray &contenu, const Avance &avance)
      : chemin_(chemin), contenu_(contenu), avance_(avance) {}

  BilanReparation Executer(const QString &copie) {
    bilan_.ancienne = copie;
    bilan_.avant = contenu_.size();
    bilan_.endommagee = !EstSain(copie);
    Dire(avance_, kVerifiee);
    if (bilan_.endommagee) Lire();
    RemplacerFichierPar(chemin_, [this](const QString &nouvelle) { Remplir(nouvelle); });
    bilan_.apres = QFileInfo(chemin_).size();
    return bilan_;
  }

 private:
  void Lire() {
    auto sauvees = SauverTables(contenu_, Etape(avance_, kVerifiee, kLue));
    if (!sauvees) throw Arret();
    sauvees_ = *std::move(sauvees);
    if (std::ranges::all_of(sauvees_, [](const TableSauvee &t) { return t.Gardees() == 0; }))
      throw RienALire(chemin_);
  }

  void Transcrire(const QString &nouvelle) {
    Base base;
    OuvrirNouvelle(base, nouvelle);
    if (bilan_.endommagee)
      Ecriture(base, sauvees_, Etape(avance_, kLue, kEcrite)).Executer();
    else if (!PrendreLignes(base, bilan_.ancienne))
      throw ErreurBase({}, GenreErreur::PlusRecente);
    bilan_.tables = Compter(base);
    if (bilan_.endommagee) bilan_.renommes = Renommer(base);
    Exiger(base);
  }

  /// What the engine refuses, it refuses to a file that the user does not know.
  void Remplir(const QString &nouvelle) {
    try {
      Transcrire(nouvelle);
    } catch (const ErreurBase &erreur) {
      throw AutrementDit(Phrase(chemin_), erreur);
    }
    for (std::size_t i = 0; i < sauvees_.size(); ++i) {
      BilanTable &table = bilan_.tables[static_cast<qsizetype>(i)];
      table.incompletes = sauvees_[i].incompletes;
      table.perdues = sauvees_[i].perdues;
      table.sansBorne = sauvees_[i].sansBorne;
    }
    Dire(avance_, kEcrite);
    EcarterJournal();
  }

  /// One that the engine could not take back would be put into the new file.
  void EcarterJournal() const {
    const QString journal = chemin_ + u"-journal"_s;
    if (!EstFichier(journal)) return;
    if (JournalPresent(chemin_))
      RemplacerFichier(bilan_.ancienne + u".journal"_s, LireFichierPresent(journal));
    EffacerFichier(journal);
  }

  const QString &chemin_;
  const QByteArray &contenu_;
  const Avance &avance_;
  std::vector<TableSauvee> sauvees_;
  BilanReparation bilan_;
};

BilanReparation Reparer(const QString &chemin, const QDateTime &maintenant,
                        std::chrono::milliseconds attente, const Avance &avance) {
  const auto verrou = Reserver(chemin, attente, avance);
  Dire(avance, kReservee);
  const QByteArray contenu = LireFichierPresent(chemin);
  ExigerLaNotre(chemin, contenu);
  const QString copie = MettreDeCote(chemin, contenu, maintenant);
  auto inutile = qScopeGuard([&] { QFile::remove(copie); });
  Dire(avance, kCopiee);
  const BilanReparation bilan = Travaux(chemin, contenu, avance).Executer(copie);
  inutile.dismiss();
  avance(kTotal, kTotal);
  return bilan;
}

QString Nombre(qint64 nombre) {
  return QLocale(QLocale::French, QLocale::France).toString(nombre);
}

/// What the number of the lost is followed by.
QString Borne(const BilanTable &table) {
  if (table.sansBorne) return u" ou davantage"_s;
  return table.perdues > 0 ? u" au plus"_s : QString();
}

QString LigneBilan(const BilanTable &table) {
  const qsizetype toutes = table.gardees + table.perdues;
  if (toutes == 0 && !table.sansBorne) return u"%1 : aucune ligne\n"_s.arg(table.nom);
  QString ligne = u"%1 : %2 %3 sur %4%5"_s.arg(
      table.nom, Nombre(table.gardees), table.gardees < 2 ? u"ligne gardée"_s : u"lignes gardées"_s,
      Nombre(toutes), Borne(table));
  if (table.incompletes > 0)
    ligne += u", dont %1 %2"_s.arg(Nombre(table.incompletes),
                                   table.incompletes < 2 ? u"incomplète"_s : u"incomplètes"_s);
  return ligne + u'\n';
}

}  // namespace

bool BilanReparation::Entier() const {
  return std::ranges::all_of(tables, &BilanTable::Entiere);
}

QString PhraseBilan(const BilanReparation &bilan) {
  if (!bilan.endommagee) return u"La base de données était saine ; elle a été compactée."_s;
  if (bilan.Entier())
    return u"La base de données était endommagée ; toutes ses lignes ont été gardées."_s;
  const QString garde =
      u"La base de données était endommagée ; ce qui pouvait en être lu a été gardé."_s;
  if (!bilan.renommes) return garde;
  return garde +
         u" Des alertes y ont perdu leur nom : corrigez-les là où elles s'appellent « Personne » "
         u"ou "
         "« Évènement », suivi d'un numéro."_s;
}

QString TailleBilan(const BilanReparation &bilan) {
  return u"Taille : %1 octets, auparavant %2."_s.arg(Nombre(bilan.apres), Nombre(bilan.avant));
}

QStringList CellulesBilan(const BilanTable &table) {
  return {table.nom, Nombre(table.gardees), Nombre(table.incompletes),
          Nombre(table.perdues) + Borne(table)};
}

QString TexteBilan(const BilanReparation &bilan) {
  QString texte = PhraseBilan(bilan) + u"\n\n"_s;
  for (const BilanTable &table : bilan.tables) texte += LigneBilan(table);
  return texte + u'\n' + TailleBilan(bilan) +
         u"\nLa base telle qu'elle était se trouve ici :\n%1\n"_s.arg(
             QDir::toNativeSeparators(bilan.ancienne));
}

std::optional<BilanReparation> ReparerBase(const QString &chemin, const QDateTime &maintenant,
                                           std::chrono::milliseconds attente,
                                           const Avance &avance) {
  try {
    return Reparer(SansLien(chemin), maintenant, attente, avance);
  } catch (const Arret &) {
    return std::nullopt;
  }
}
