// velmira_bench: measures the program's work, "Velmira", and the same work without it, "bare".
// A start is measured in a process of its own, which is this program with --start.

#include "Cartes.h"
#include "Donnees.h"
#include "Echanges.h"
#include "Ecran.h"
#include "GrandeListe.h"
#include "Lancement.h"
#include "Nu.h"
#include "address/MiseEnLignes.h"
#include "directory/ArbreVelmiras.h"
#include "directory/Categories.h"
#include "envelope/MiseEnPage.h"
#include "envelope/VueEnveloppe.h"
#include "envelope/ZonesEnveloppe.h"
#include "platform/Fichiers.h"
#include "storage/Tables.h"
#include "ui/Icones.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSplitter>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr int kEnveloppes = 1000;
constexpr Cle kFiches = 10000;   ///< correspondents in the list while records are shown
constexpr Cle kGrande = 100000;  ///< and while a key is typed and a change is written

using Montre = std::chrono::steady_clock;

double Secondes(Montre::time_point debut) {
  return std::chrono::duration<double>(Montre::now() - debut).count();
}

/// A value in KiB of this process, as the kernel counts it.
double Memoire(const QByteArray &nom) {
  QFile statut(u"/proc/self/status"_s);
  if (!statut.open(QIODevice::ReadOnly)) return 0;
  for (const QByteArray &ligne : statut.readAll().split('\n'))
    if (ligne.startsWith(nom + ':')) return ligne.simplified().split(' ').at(1).toDouble();
  return 0;
}

// The list.

void RemplirVelmira(benchmark::State &etat, const Donnees &donnees, const QString &categorie) {
  Base base;
  base.Ouvrir(donnees.CheminBase());
  const TableAdresse table(base);
  ArbreVelmiras arbre;
  for (auto _ : etat) {
    arbre.Remplir(categorie, ListerVelmiras(table, {categorie, {}, {}}));
    arbre.doItemsLayout();
  }
}

void RemplirNu(benchmark::State &etat, const Donnees &donnees, const QString &categorie) {
  const BaseNue base(donnees.CheminBase());
  std::vector<LigneNue> lignes;
  for (auto _ : etat) {
    lignes = base.Lister(categorie);
    benchmark::DoNotOptimize(lignes.data());
  }
}

/// Both ways of filling the list must give the same one, or their times say nothing.
bool MemesListes(const Donnees &donnees, const QString &categorie, const QString &filtreNu) {
  Base base;
  base.Ouvrir(donnees.CheminBase());
  const auto noeuds = ListerVelmiras(TableAdresse(base), {categorie, {}, {}});
  const auto lignes = BaseNue(donnees.CheminBase()).Lister(filtreNu);
  return !noeuds.empty() && std::equal(noeuds.begin(), noeuds.end(), lignes.begin(), lignes.end(),
                                       [](const NoeudListe &noeud, const LigneNue &ligne) {
                                         return noeud.texte == ligne.texte &&
                                                noeud.index == ligne.index;
                                       });
}

// A record: each turn chooses the next one in the list, which scrolls, until it is painted.

void MontrerVelmira(benchmark::State &etat, const Donnees &donnees) {
  const Lancement lancement(donnees.AppPath());
  ArbreVelmiras &liste = lancement.Liste();
  const ModeleListe &modele = liste.Modele();
  int ligne = 0;
  for (auto _ : etat) {
    ligne = (ligne + 1) % static_cast<int>(donnees.Nombre());
    liste.SelectionnerEtCliquer(modele.index(ligne, 0, modele.Racine()));
    AttendreLaPeinture();
  }
}

void MontrerNu(benchmark::State &etat, const Donnees &donnees) {
  const BaseNue base(donnees.CheminBase());
  const std::vector<LigneNue> lignes = base.Lister();
  QSplitter fenetre;
  FenetreNue gauche(base);
  FicheNue fiche(base);
  fenetre.addWidget(&gauche);
  fenetre.addWidget(&fiche);
  fenetre.resize(900, 600);
  fenetre.show();
  AttendreLaPeinture();
  int ligne = 0;
  for (auto _ : etat) {
    ligne = (ligne + 1) % static_cast<int>(lignes.size());
    gauche.Liste().setCurrentIndex(gauche.Liste().model()->index(ligne, 0));
    fiche.Montrer(lignes[static_cast<std::size_t>(ligne)].index);
    AttendreLaPeinture();
  }
}

// A start.

int Demarrer(const QStringList &arguments) {
  const auto debut = Montre::now();
  const auto rendre = [debut] {
    std::printf("%.9f %.0f\n", Secondes(debut), Memoire("VmHWM"));
    return EXIT_SUCCESS;
  };
  if (arguments.value(2) == u"Velmira"_s) {
    const Lancement lancement(arguments.value(3));
    return rendre();
  }
  const Peinture peinture;
  const BaseNue base(arguments.value(3) + u"/DataVelmira/Velmira.mdb"_s);
  FenetreNue fenetre(base);
  fenetre.show();
  peinture.Attendre();
  return rendre();
}

void MesurerDemarrage(benchmark::State &etat, const Donnees &donnees, const QString &qui) {
  double kio = 0;
  for (auto _ : etat) {
    QProcess processus;
    processus.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    processus.start(QCoreApplication::applicationFilePath(),
                    {u"--start"_s, qui, donnees.AppPath()});
    processus.waitForFinished(-1);
    const QList<QByteArray> mesures = processus.readAllStandardOutput().simplified().split(' ');
    if (processus.exitCode() != 0 || mesures.size() != 2) {
      etat.SkipWithError("the start failed");
      return;
    }
    etat.SetIterationTime(mesures[0].toDouble());
    kio = std::max(kio, mesures[1].toDouble());
  }
  etat.counters["KiB"] = kio;
}

// Envelopes.

const QStringList kExpediteur{u"Mme Claire Moreau"_s, u"7 rue du Port"_s, u"29200 - BREST"_s};

QStringList Destinataire(int numero) {
  return {u"M. et Mme Durand"_s, u"Résidence des Tilleuls"_s,
          u"%1 rue de la République"_s.arg(numero), u"44000 - NANTES"_s};
}

class DossierPdf {
 public:
  QString Chemin() const { return dossier_.path(); }
  qsizetype Nombre() const { return QDir(Chemin()).entryList({u"*.pdf"_s}).size(); }

 private:
  QTemporaryDir dossier_{u"enveloppes-XXXXXX"_s};
};

ReglagesPlomex ReglagesTirage() {
  ReglagesPlomex plomex;
  plomex.Orientation = OrientationFeuille::Paysage;
  plomex.BordImprime = BordImprime::Gauche;
  plomex.PositionEnveloppe = PositionEnveloppe::Milieu;
  plomex.PoliceA = plomex.PoliceE = u"Arial"_s;
  plomex.TailleA = 10;
  plomex.TailleE = 8;
  return plomex;
}

void ImprimerVelmira(ImprimanteSysteme &imprimante, int numero) {
  const ContenuEnveloppe contenu{kExpediteur.join(u'\n'), Destinataire(numero).join(u'\n'), false};
  ImprimerPlis(imprimante, Imprimante::NomPdf(), ReglagesTirage(), Imprimantes({}),
               {{EtatEnveloppe(), contenu}});
}

template <typename Imprimer>
void MesurerEnveloppes(benchmark::State &etat, Imprimer &&imprimer) {
  for (auto _ : etat) {
    const DossierPdf dossier;
    const auto debut = Montre::now();
    imprimer(dossier.Chemin());
    etat.SetIterationTime(Secondes(debut));
    if (dossier.Nombre() != kEnveloppes) etat.SkipWithError("envelopes are missing");
  }
}

void EnveloppesVelmira(benchmark::State &etat) {
  MesurerEnveloppes(etat, [](const QString &dossier) {
    const HorlogeSysteme horloge;
    ImprimanteSysteme imprimante(horloge, dossier);
    for (int numero = 1; numero <= kEnveloppes; ++numero) ImprimerVelmira(imprimante, numero);
  });
}

void EnveloppesNues(benchmark::State &etat) {
  MesurerEnveloppes(etat, [](const QString &dossier) {
    for (int numero = 1; numero <= kEnveloppes; ++numero)
      EcrirePdfNu(u"%1/%2.pdf"_s.arg(dossier).arg(numero), kExpediteur, Destinataire(numero));
  });
}

/// Tells what this process holds after the first hundred envelopes, and after all.
int MemoireEnveloppes() {
  const DossierPdf dossier;
  HorlogeSysteme horloge;
  ImprimanteSysteme imprimante(horloge, dossier.Chemin());
  BoitesSysteme boites;
  CoquilleSysteme coquille;
  PolicesSysteme polices;
  ListeDemarrageSysteme demarrage;
  PortSerieSysteme port;
  ClasseurSysteme classeur;
  Plateforme plateforme{horloge, boites,   coquille,    imprimante, polices, demarrage,
                        port,    classeur, u"mesure"_s, QLocale(),  {}};
  Session session{plateforme, {}, {}, {}};
  session.reglages.plomex = ReglagesTirage();
  EtatEnveloppe etat;
  VueEnveloppe vue;
  ZonesEnveloppe zones(session, etat, &vue);
  zones.EcrireExpediteur(ComposerAdresse({.lignes = {kExpediteur[0], kExpediteur[1]}}), 0);
  for (int numero = 1; numero <= kEnveloppes; ++numero) {
    AdresseSaisie adresse;
    const QStringList lignes = Destinataire(numero);
    std::copy(lignes.begin(), lignes.end(), adresse.lignes.begin());
    zones.EcrireLignesAdresse(
        MettreEnLignes(ComposerAdresse(adresse), Role::Destinataire, session.reglages));
    ImprimerPlis(imprimante, Imprimante::NomPdf(), session.reglages.plomex, Imprimantes({}),
                 {{etat, zones.Contenu()}});
    if (numero == 100 || numero == kEnveloppes) std::printf("%d %.0f\n", numero, Memoire("VmRSS"));
  }
  return dossier.Nombre() == kEnveloppes ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// Takes files of cards into a table, and tells the most that this process has held.
int ReprendreFichiers(const QStringList &arguments) {
  Reprendre(arguments.value(2), arguments.mid(3));
  std::printf("%.0f\n", Memoire("VmHWM"));
  return EXIT_SUCCESS;
}

/// Tells the number of files and correspondents, and what a process has held that took them.
int MemoireCartes() {
  const Donnees donnees(kFiches);
  const Envoi envoi(donnees);
  const Atelier lots;
  for (const LotDeCartes &lot : LotsDeCartes(envoi, lots)) {
    const Atelier atelier;
    QProcess processus;
    processus.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    processus.start(
        QCoreApplication::applicationFilePath(),
        QStringList{u"--take"_s, atelier.CopierBase(envoi.Base(Annuaire::Autres))} + lot.fichiers);
    processus.waitForFinished(-1);
    if (processus.exitCode() != 0) return EXIT_FAILURE;
    std::printf("%lld %lld %s", static_cast<long long>(lot.fichiers.size()),
                static_cast<long long>(lot.correspondants),
                processus.readAllStandardOutput().constData());
  }
  return EXIT_SUCCESS;
}

/// How a row is measured.
struct Facon {
  int tours = 0;        ///< of a repetition, 0 for as many as it takes
  bool montre = false;  ///< a half tells its time
  int fois = 0;         ///< repetitions, 0 for as many as the command says
};
/// Of a row that takes a second or more.
constexpr Facon kLongue{.tours = 1, .montre = true, .fois = 3};
constexpr Facon kBreve{.tours = 1, .montre = true};

/// A row of the table: its two halves have the same name but for what stands behind the last slash.
template <typename Velmira, typename Nu>
void Ligne(const QString &nom, Velmira &&velmira, Nu &&nu, const Facon &facon = {}) {
  for (auto *mesure :
       {benchmark::RegisterBenchmark((nom + u"/Velmira"_s).toUtf8().constData(), velmira),
        benchmark::RegisterBenchmark((nom + u"/bare"_s).toUtf8().constData(), nu)}) {
    mesure->Unit(benchmark::kMillisecond);
    if (facon.tours > 0) mesure->Iterations(facon.tours);
    if (facon.fois > 0) mesure->Repetitions(facon.fois);
    if (facon.montre)
      mesure->UseManualTime();
    else
      mesure->UseRealTime();
  }
}

void Inscrire(const std::map<Cle, Donnees> &toutes) {
  using benchmark::State;
  for (const auto &paire : toutes) {
    const Donnees &donnees = paire.second;
    Ligne(
        u"Fill the list, %1 correspondents"_s.arg(donnees.Nombre()),
        [&](State &etat) { RemplirVelmira(etat, donnees, ToutesCategories()); },
        [&](State &etat) { RemplirNu(etat, donnees, {}); });
  }
  for (const auto &paire : toutes) {
    const Donnees &donnees = paire.second;
    Ligne(
        u"Fill one category, a tenth of %1"_s.arg(donnees.Nombre()),
        [&](State &etat) { RemplirVelmira(etat, donnees, CategorieRare()); },
        [&](State &etat) { RemplirNu(etat, donnees, CategorieRare()); });
  }
  const Donnees &fiches = toutes.at(kFiches);
  Ligne(
      u"Choose a record in the list and show it"_s,
      [&fiches](State &etat) { MontrerVelmira(etat, fiches); },
      [&fiches](State &etat) { MontrerNu(etat, fiches); });
  for (const auto &paire : toutes) {
    const Donnees &donnees = paire.second;
    Ligne(
        u"Start, %1 correspondents"_s.arg(donnees.Nombre()),
        [&](State &etat) { MesurerDemarrage(etat, donnees, u"Velmira"_s); },
        [&](State &etat) { MesurerDemarrage(etat, donnees, u"bare"_s); }, kBreve);
  }
  Ligne(u"Print %1 envelopes"_s.arg(kEnveloppes), EnveloppesVelmira, EnveloppesNues, kLongue);
}

/// `ecrites` is for the rows that write: the others go on reading what they read at first.
void InscrireGrandeListe(const Donnees &lues, const Donnees &ecrites, const QStringList &debuts,
                         const QByteArray &codes) {
  using benchmark::State;
  Ligne(
      u"Type a key of the search, %1 names"_s.arg(kGrande),
      [&](State &etat) { TaperVelmira(etat, lues, debuts); },
      [&](State &etat) { TaperNu(etat, lues, debuts); }, {.tours = kNomsCherches * 4});
  Ligne(
      u"Search in everything, %1 correspondents"_s.arg(kGrande),
      [&](State &etat) { ChercherVelmira(etat, lues); },
      [&](State &etat) { ChercherNu(etat, lues); }, {.tours = 4});
  Ligne(
      u"Rename a category, a tenth of %1"_s.arg(kGrande),
      [&](State &etat) { RenommerVelmira(etat, ecrites); },
      [&](State &etat) { RenommerNu(etat, ecrites); }, {.tours = 2});
  Ligne(
      u"Save a record, %1 listed"_s.arg(kGrande),
      [&](State &etat) { EnregistrerVelmira(etat, ecrites); },
      [&](State &etat) { EnregistrerNu(etat, ecrites); }, {.tours = 16});
  Ligne(
      u"Kept for undo: a save among %1"_s.arg(kGrande),
      [&](State &etat) { EcrireFiche(etat, ecrites, true); },
      [&](State &etat) { EcrireFiche(etat, ecrites, false); });
  Ligne(
      u"Search the postal codes"_s, [&](State &etat) { ChercherCodesVelmira(etat, codes); },
      [&](State &etat) { ChercherCodesNu(etat, codes); });
}

void InscrireEchanges(const std::map<Cle, Envoi> &envois, const std::map<Cle, Donnees> &toutes) {
  using benchmark::State;
  constexpr auto kVide = Annuaire::Vide, kConnus = Annuaire::Connus, kAutres = Annuaire::Autres;
  for (const Annuaire annuaire : {kVide, kConnus})
    for (const auto &paire : envois) {
      const Envoi &envoi = paire.second;
      Ligne(
          annuaire == kConnus ? u"Import %1 that are known, gaps in a tenth"_s.arg(envoi.Nombre())
                              : u"Import %1 into an empty table"_s.arg(envoi.Nombre()),
          [&envoi, annuaire](State &etat) { ImporterVelmira(etat, envoi, annuaire); },
          [&envoi, annuaire](State &etat) { ImporterNu(etat, envoi, annuaire); },
          envoi.Nombre() == kGrande ? kLongue : kBreve);
    }
  const Envoi &grand = envois.at(kGrande);
  for (const Annuaire annuaire : {kVide, kConnus})
    Ligne(
        annuaire == kConnus
            ? u"Kept for undo: import of %1 that are known, gaps in a tenth"_s.arg(kGrande)
            : u"Kept for undo: import of %1 into an empty table"_s.arg(kGrande),
        [&grand, annuaire](State &etat) { ImporterVelmira(etat, grand, annuaire, true); },
        [&grand, annuaire](State &etat) { ImporterVelmira(etat, grand, annuaire); }, kLongue);
  const Envoi &envoi = envois.at(kFiches);
  for (const Annuaire annuaire : {kAutres, kConnus})
    Ligne(
        annuaire == kAutres ? u"Cards of %1 into as many others, beside our own file"_s.arg(kFiches)
                            : u"Cards of %1 that are known, beside our own file"_s.arg(kFiches),
        [&envoi, annuaire](State &etat) { ReprendreCartes(etat, envoi, annuaire); },
        [&envoi, annuaire](State &etat) { ImporterVelmira(etat, envoi, annuaire); }, kBreve);
  Ligne(
      u"Cards of %1 into as many others, beside Evolution's data server"_s.arg(kFiches),
      [&envoi](State &etat) { ReprendreCartes(etat, envoi, kAutres); },
      [&envoi](State &etat) { ReprendreParEvolution(etat, envoi); }, kLongue);
  const Donnees &grande = toutes.at(kGrande), &fiches = toutes.at(kFiches);
  Ligne(
      u"Export %1"_s.arg(kGrande), [&](State &etat) { ExporterVelmira(etat, grande); },
      [&](State &etat) { ExporterNu(etat, grande); }, kBreve);
  Ligne(
      u"Workbook of %1"_s.arg(kFiches), [&](State &etat) { ClasseurVelmira(etat, fiches); },
      [&](State &etat) { ClasseurNu(etat, fiches); }, kBreve);
}

}  // namespace

int main(int argc, char *argv[]) {
  QApplication application(argc, argv);
  PreparerIcones();
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.value(1) == u"--start"_s) return Demarrer(arguments);
  if (arguments.value(1) == u"--envelopes"_s) return MemoireEnveloppes();
  if (arguments.value(1) == u"--cards"_s) return MemoireCartes();
  if (arguments.value(1) == u"--take"_s) return ReprendreFichiers(arguments);

  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return EXIT_FAILURE;
  std::map<Cle, Donnees> toutes;
  for (const Cle nombre : {Cle{1000}, kFiches, kGrande}) toutes.try_emplace(nombre, nombre);
  for (const auto &[nombre, donnees] : toutes)
    if (!MemesListes(donnees, ToutesCategories(), {}) ||
        !MemesListes(donnees, CategorieRare(), CategorieRare()))
      qFatal("the two lists of %lld correspondents differ", nombre);
  const Donnees ecrites(kGrande);
  const auto codes = LireFichier(QStringLiteral(VELMIRA_DONNEES "/CdPostal.txt"));
  if (!codes) qFatal("the postal codes are missing");
  const QStringList debuts = DebutsCherches(toutes.at(kGrande));
  VerifierGrandeListe(ecrites, debuts, *codes);
  std::map<Cle, Envoi> envois;
  for (const Cle nombre : {kFiches, kGrande}) envois.try_emplace(nombre, toutes.at(nombre));
  VerifierEchanges(envois.at(kFiches), toutes.at(kFiches));
  Inscrire(toutes);
  InscrireGrandeListe(toutes.at(kGrande), ecrites, debuts, *codes);
  InscrireEchanges(envois, toutes);
  benchmark::AddCustomContext("compiler", __VERSION__);
  benchmark::AddCustomContext("qt", qVersion());
  benchmark::RunSpecifiedBenchmarks();
  return EXIT_SUCCESS;
}
