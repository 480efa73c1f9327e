#include "Echanges.h"

#include "Nu.h"
#include "exchange/ClasseurVelmiras.h"
#include "exchange/EchangeTexte.h"
#include "exchange/ExportPersonnes.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"
#include "platform/linux/ClasseurSysteme.h"
#include "storage/Historique.h"
#include "storage/Requete.h"
#include "storage/Schema.h"
#include "storage/Tables.h"

#include <QFile>
#include <QHash>
#include <QSaveFile>
#include <QStringEncoder>
#include <QtEndian>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <xlsxwriter.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLignes = 24;            ///< of a record
constexpr int kOptions = 15;           ///< place of the number among them
constexpr int kTrous[] = {7, 10, 12};  ///< places of the fields that a gap leaves empty

bool EstBooleen(int place) {
  return place == 19 || place == 20 || place == 23;
}

/// The columns in the order of the lines of a record.
QStringList Colonnes() {
  return {u"NomVelmira"_s,    u"Ligne1"_s,        u"Ligne2"_s,
          u"Ligne3"_s,        u"Ligne4"_s,        u"Ligne5"_s,
          u"CodePostal"_s,    u"Ville"_s,         u"Pays"_s,
          u"Categories"_s,    u"Tel"_s,           u"Fax"_s,
          u"Mail"_s,          u"Portable"_s,      u"AdresseImportee"_s,
          u"OptionAdresse"_s, u"Web"_s,           u"TelTravail"_s,
          u"Photo"_s,         u"ListeRougeTel"_s, u"ListeRougeTravail"_s,
          u"DDN"_s,           u"DataProt"_s,      u"AlerteActive"_s};
}

QString Selection() {
  return uR"(SELECT ")"_s + Colonnes().join(uR"(", ")"_s) + uR"(" FROM "Adresse")"_s;
}

bool SansArret(qsizetype, qsizetype) {
  return true;
}

// The import.

qsizetype Importer(Base &base, const Envoi &envoi) {
  return ImporterVelmiras(base, LireFichier(envoi.Fichier()).value(), SansArret).traites;
}

QVariant Valeur(const QStringList &fiche, int place) {
  if (EstBooleen(place)) return fiche[place] == u"True"_s ? 1 : 0;
  if (place == kOptions) return fiche[place].toInt();
  return fiche[place];
}

void AjouterNu(BaseNue &base, const std::vector<QStringList> &fiches) {
  base.Executer(u"BEGIN IMMEDIATE"_s);
  QSqlQuery ajout = base.Preparer(uR"(INSERT INTO "Adresse" (")"_s + Colonnes().join(uR"(", ")"_s) +
                                  uR"(") VALUES (?)"_s + u", ?"_s.repeated(kLignes - 1) + u')');
  for (const QStringList &fiche : fiches) {
    for (int place = 0; place < kLignes; ++place) ajout.addBindValue(Valeur(fiche, place));
    Lancer(ajout);
  }
  base.Executer(u"COMMIT"_s);
}

/// Reads every row by its key and fills its gaps.
void CompleterNu(BaseNue &base, const std::vector<QStringList> &fiches) {
  base.Executer(u"BEGIN IMMEDIATE"_s);
  QHash<QString, qint64> cles;
  QSqlQuery noms = base.Preparer(uR"(SELECT "Index", "NomVelmira" FROM "Adresse")"_s);
  Lancer(noms);
  while (noms.next()) cles.insert(noms.value(1).toString().toUpper(), noms.value(0).toLongLong());

  QSqlQuery lecture = base.Preparer(Selection() + uR"( WHERE "Index"=?)"_s);
  QSqlQuery ecriture =
      base.Preparer(uR"(UPDATE "Adresse" SET "Ville"=?, "Tel"=?, "Mail"=? WHERE "Index"=?)"_s);
  for (const QStringList &fiche : fiches) {
    const qint64 cle = cles.value(fiche[0].toUpper());
    lecture.addBindValue(cle);
    Lancer(lecture);
    if (!lecture.next()) qFatal("a row is missing");
    bool trou = false;
    for (int place = 1; place < kLignes; ++place)
      trou |= lecture.value(place).toString().isEmpty() && !fiche[place].isEmpty();
    if (!trou) continue;
    for (const int place : kTrous) ecriture.addBindValue(fiche[place]);
    ecriture.addBindValue(cle);
    Lancer(ecriture);
  }
  lecture.finish();
  base.Executer(u"COMMIT"_s);
}

void Importer(BaseNue &base, const std::vector<QStringList> &fiches, Annuaire annuaire) {
  annuaire == Annuaire::Vide ? AjouterNu(base, fiches) : CompleterNu(base, fiches);
}

/// All rows, with the difference between null and an empty text.
std::vector<QVariantList> Lignes(const QString &chemin) {
  const BaseNue base(chemin);
  QSqlQuery requete = base.Preparer(uR"(SELECT * FROM "Adresse" ORDER BY "Index")"_s);
  Lancer(requete);
  std::vector<QVariantList> lignes;
  while (requete.next()) {
    QVariantList ligne;
    for (int colonne = 0; colonne <= kLignes + 1; ++colonne)
      ligne << requete.value(colonne) << requete.isNull(colonne);
    lignes.push_back(std::move(ligne));
  }
  return lignes;
}

// The export.

void Exporter(Base &base, const QString &chemin) {
  RemplacerFichier(chemin, ExporterVelmiras(base, SansArret).value().octets);
}

void Exporter(const BaseNue &base, const QString &chemin) {
  QSaveFile fichier(chemin);
  if (!fichier.open(QIODevice::WriteOnly)) qFatal("%s", qPrintable(fichier.errorString()));
  QStringEncoder page("windows-1252", QStringConverter::Flag::Stateless);
  QSqlQuery requete = base.Preparer(Selection() + uR"( ORDER BY "Index")"_s);
  Lancer(requete);
  QString texte;
  while (requete.next()) {
    texte = u"*"_s;
    for (int place = 0; place < kLignes; ++place) {
      if (EstBooleen(place))
        texte += requete.value(place).toInt() != 0 ? u"True"_s : u"False"_s;
      else
        texte += requete.value(place).toString();
      texte += u"\r\n"_s;
    }
    fichier.write(page(texte));
  }
  fichier.write("\r\n");
  if (!Terminer(fichier)) qFatal("%s", qPrintable(fichier.errorString()));
}

// The workbook.

FeuilleClasseur Feuille(Base &base, Cle nombre) {
  const TableAdresse table(base);
  QList<Correspondant> velmiras;
  for (Cle index = 1; index <= nombre; ++index)
    if (auto velmira = table.Lire(index)) velmiras.append(std::move(*velmira));
  return FeuilleVelmiras(velmiras);
}

/// The columns are as wide as those of `modele`; of it nothing else is taken but the titles.
void EcrireClasseur(const BaseNue &base, Cle nombre, const FeuilleClasseur &modele,
                    const QString &chemin) {
  lxw_workbook *classeur = workbook_new(QFile::encodeName(chemin).constData());
  lxw_worksheet *feuille = workbook_add_worksheet(classeur, "VELMIRA");
  const auto format = [classeur](const std::function<void(lxw_format *)> &style) {
    lxw_format *neuf = workbook_add_format(classeur);
    style(neuf);
    format_set_align(neuf, LXW_ALIGN_VERTICAL_CENTER);
    return neuf;
  };
  const auto tete = [](lxw_format *f) {
    format_set_bg_color(f, 0x404040);
    format_set_align(f, LXW_ALIGN_CENTER);
  };
  lxw_format *simple = format([](lxw_format *) {});
  lxw_format *rangTitres = format(tete);
  lxw_format *titre = format([&](lxw_format *f) {
    tete(f);
    format_set_bold(f);
    format_set_italic(f);
    format_set_underline(f, LXW_UNDERLINE_SINGLE);
    format_set_font_color(f, 0xFFFFFF);
  });
  lxw_format *gras = format([](lxw_format *f) { format_set_bold(f); });
  lxw_format *lignes = format([](lxw_format *f) { format_set_text_wrap(f); });

  lxw_col_t colonne = 0;
  for (const double largeur : modele.largeurs) {
    worksheet_set_column(feuille, colonne, colonne, largeur, simple);
    ++colonne;
  }
  worksheet_set_column(feuille, colonne, LXW_COL_MAX - 1, LXW_DEF_COL_WIDTH, simple);
  worksheet_set_row(feuille, 0, LXW_DEF_ROW_HEIGHT, rangTitres);
  colonne = 0;
  for (const auto &cellule : modele.rangs.front().cellules)
    worksheet_write_string(feuille, 0, colonne++, cellule.texte.toUtf8().constData(), titre);

  QSqlQuery requete = base.Preparer(
      uR"(SELECT ' ' || "NomVelmira", ' ' || ifnull("Tel", ''), ' ' || ifnull("TelTravail", ''),)"
      uR"( ' ' || ifnull("Portable", ''), ' ' || ifnull("Fax", ''), ' ' || ifnull("Mail", ''),)"
      uR"( ' ' || ifnull("Web", ''), "Ligne1", "Ligne2", "Ligne3", "Ligne4", "Ligne5",)"
      uR"( "CodePostal", "Ville" FROM "Adresse" WHERE "Index"=?)"_s);
  for (Cle index = 1; index <= nombre; ++index) {
    requete.addBindValue(index);
    Lancer(requete);
    if (!requete.next()) qFatal("a row is missing");
    const auto rang = static_cast<lxw_row_t>(index);
    QByteArray adresse;
    int hauteur = 0;
    for (int champ = 7; champ < 14; ++champ) {
      const QByteArray texte = requete.value(champ).toString().toUtf8();
      if (texte.isEmpty()) continue;
      if (hauteur++ > 0) adresse += '\n';
      adresse += texte;
    }
    worksheet_set_row(feuille, rang, 15 * hauteur, simple);
    for (int champ = 0; champ < 7; ++champ)
      worksheet_write_string(feuille, rang, static_cast<lxw_col_t>(champ),
                             requete.value(champ).toString().toUtf8().constData(),
                             champ == 0 ? gras : simple);
    worksheet_write_string(feuille, rang, 7, adresse.constData(), lignes);
  }
  if (workbook_close(classeur) != LXW_NO_ERROR) qFatal("the workbook cannot be written");
}

/// The parts of a workbook by name, each by its checksum and its sizes as the zip file lists them.
/// The one that holds the time of making is left out.
std::map<QByteArray, QByteArray> Parties(const QByteArray &zip) {
  constexpr qsizetype kFin = 22, kTete = 46;  // bytes of the last record, of a part's in the list
  const auto entier = [&zip]<typename Entier>(qsizetype place, Entier) {
    return qFromLittleEndian<Entier>(zip.sliced(place, sizeof(Entier)).constData());
  };
  std::map<QByteArray, QByteArray> parties;
  qsizetype place = entier(zip.size() - kFin + 16, quint32());
  for (int reste = entier(zip.size() - kFin + 10, quint16()); reste > 0; --reste) {
    const int nom = entier(place + 28, quint16());
    parties[zip.sliced(place + kTete, nom)] = zip.sliced(place + 16, 12);
    place += kTete + nom + entier(place + 30, quint16()) + entier(place + 32, quint16());
  }
  if (parties.erase("docProps/core.xml") != 1) qFatal("a workbook without its time of making");
  return parties;
}

void EcrireCartes(Base &base, const QString &chemin) {
  ExporterPersonnes(base, {chemin, FormatExport::Cartes3, {}, {}, {}, {u" "_s, {}}}, SansArret);
}

void Changer(Base &base, const QString &colonnes) {
  Transaction transaction(base);
  Requete(base, uR"(UPDATE "Adresse" SET )"_s + colonnes).Executer();
  transaction.Valider();
}

void Exiger(bool vrai, const char *quoi) {
  if (!vrai) qFatal("the two halves differ: %s", quoi);
}

}  // namespace

Envoi::Envoi(const Donnees &donnees)
    : nombre_(static_cast<qsizetype>(donnees.Nombre())), dossier_(u"envoi-XXXXXX"_s) {
  class Base base;
  base.Ouvrir(donnees.CheminBase());
  QByteArrayList lignes = ExporterVelmiras(base, SansArret).value().octets.split('\n');
  for (qsizetype fiche = 0; fiche < nombre_; ++fiche) {
    QByteArray &nom = lignes[fiche * kLignes];
    nom.chop(1);
    nom += ' ' + QByteArray::number(fiche) + '\r';
  }
  RemplacerFichier(Fichier(), lignes.join('\n'));

  CreerBaseVide(Base(Annuaire::Vide));
  CreerBaseVide(Base(Annuaire::Connus));
  base.Ouvrir(Base(Annuaire::Connus));
  Importer(base, *this);
  EcrireCartes(base, Cartes());
  EcrireAutres();
  Changer(base, uR"("Ville"='', "Tel"='', "Mail"='' WHERE "Index" % 10 = 0)"_s);
}

void Envoi::EcrireAutres() const {
  const QString chemin = Base(Annuaire::Autres);
  RemplacerFichier(chemin, LireFichier(Base(Annuaire::Connus)).value());
  class Base base;
  base.Ouvrir(chemin);
  Changer(base,
          uR"("NomVelmira"='Autre ' || "NomVelmira", "Mail"='autre.' || "Mail",)"
          uR"( "Tel"='04' || substr("Tel", 3), "Portable"='07' || substr("Portable", 3))"_s);
  EcrireCartes(base, AutresCartes());
}

std::vector<QStringList> Envoi::Fiches() const {
  const QStringList lignes = DepuisPageDeCode(LireFichier(Fichier()).value()).split(u"\r\n"_s);
  std::vector<QStringList> fiches;
  for (qsizetype debut = 0; debut < nombre_ * kLignes; debut += kLignes) {
    fiches.push_back(lignes.mid(debut, kLignes));
    fiches.back().first().remove(0, 1);
  }
  return fiches;
}

QString Atelier::CopierBase(const QString &source) const {
  RemplacerFichier(Chemin(u"Velmira.mdb"_s), LireFichier(source).value());
  return Chemin(u"Velmira.mdb"_s);
}

void ImporterVelmira(benchmark::State &etat, const Envoi &envoi, Annuaire annuaire, bool garde) {
  for (auto _ : etat) {
    const Atelier atelier;
    Base base;
    base.Ouvrir(atelier.CopierBase(envoi.Base(annuaire)));
    qsizetype traites = 0;
    Chronometrer(etat, [&] {
      std::optional<Acte> acte;
      if (garde) acte.emplace(base, u"importation"_s);
      traites = Importer(base, envoi);
    });
    if (garde && base.LHistorique().Prochaine(Historique::Sens::Annuler) == nullptr)
      etat.SkipWithError("nothing was kept");
    if (traites != envoi.Nombre()) etat.SkipWithError("records are missing");
  }
}

void ImporterNu(benchmark::State &etat, const Envoi &envoi, Annuaire annuaire) {
  const std::vector<QStringList> fiches = envoi.Fiches();
  for (auto _ : etat) {
    const Atelier atelier;
    BaseNue base(atelier.CopierBase(envoi.Base(annuaire)));
    Chronometrer(etat, [&] { Importer(base, fiches, annuaire); });
  }
}

void ExporterVelmira(benchmark::State &etat, const Donnees &donnees) {
  const Atelier atelier;
  Base base;
  base.Ouvrir(donnees.CheminBase());
  for (auto _ : etat) Chronometrer(etat, [&] { Exporter(base, atelier.Chemin(u"ici.txt"_s)); });
}

void ExporterNu(benchmark::State &etat, const Donnees &donnees) {
  const Atelier atelier;
  const BaseNue base(donnees.CheminBase());
  for (auto _ : etat) Chronometrer(etat, [&] { Exporter(base, atelier.Chemin(u"ici.txt"_s)); });
}

void ClasseurVelmira(benchmark::State &etat, const Donnees &donnees) {
  Base base;
  base.Ouvrir(donnees.CheminBase());
  ClasseurSysteme classeur;
  for (auto _ : etat) {
    const Atelier atelier;
    Chronometrer(etat, [&] {
      classeur.Ecrire(atelier.Chemin(u"ici.xlsx"_s), Feuille(base, donnees.Nombre()));
    });
  }
}

void ClasseurNu(benchmark::State &etat, const Donnees &donnees) {
  Base base;
  base.Ouvrir(donnees.CheminBase());
  const FeuilleClasseur modele = Feuille(base, donnees.Nombre());
  const BaseNue nue(donnees.CheminBase());
  for (auto _ : etat) {
    const Atelier atelier;
    Chronometrer(etat, [&] {
      EcrireClasseur(nue, donnees.Nombre(), modele, atelier.Chemin(u"ici.xlsx"_s));
    });
  }
}

void VerifierEchanges(const Envoi &envoi, const Donnees &donnees) {
  const Atelier ici, la;
  for (const Annuaire annuaire : {Annuaire::Vide, Annuaire::Connus}) {
    Base base;
    base.Ouvrir(ici.CopierBase(envoi.Base(annuaire)));
    Importer(base, envoi);
    {
      BaseNue nue(la.CopierBase(envoi.Base(annuaire)));
      Importer(nue, envoi.Fiches(), annuaire);
    }
    const auto lignes = Lignes(ici.Chemin(u"Velmira.mdb"_s));
    Exiger(lignes.size() == static_cast<std::size_t>(envoi.Nombre()) &&
               lignes != Lignes(envoi.Base(annuaire)) &&
               lignes == Lignes(la.Chemin(u"Velmira.mdb"_s)),
           "the import");
  }

  Base base;
  base.Ouvrir(donnees.CheminBase());
  const BaseNue nue(donnees.CheminBase());
  Exporter(base, ici.Chemin(u"Velmira.txt"_s));
  Exporter(nue, la.Chemin(u"Velmira.txt"_s));
  const auto exporte = LireFichier(ici.Chemin(u"Velmira.txt"_s));
  Exiger(exporte && exporte == LireFichier(la.Chemin(u"Velmira.txt"_s)), "the export");

  const FeuilleClasseur feuille = Feuille(base, donnees.Nombre());
  ClasseurSysteme().Ecrire(ici.Chemin(u"Velmira.xlsx"_s), feuille);
  EcrireClasseur(nue, donnees.Nombre(), feuille, la.Chemin(u"Velmira.xlsx"_s));
  const auto parties = [](const Atelier &atelier) {
    return Parties(LireFichier(atelier.Chemin(u"Velmira.xlsx"_s)).value());
  };
  Exiger(parties(ici) == parties(la), "the workbook");
}
