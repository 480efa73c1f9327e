// The programs themselves, off the screen, in a portable folder: how they end, who of two goes on,
// and what a kill leaves.

#include "Reel.h"
#include "alerts/NotesMemora.h"
#include "storage/Base.h"
#include "storage/EmplacementDonnees.h"
#include "storage/Schema.h"
#include "storage/TablesAlertes.h"

#include <QDate>

#include <csignal>
#include <filesystem>
#include <memory>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace {

class Compagnons : public testing::Test {
 protected:
  Compagnons() {
    Poser(QStringLiteral(VELMIRA_PROGRAMME), u"Velmira"_s);
    Poser(QStringLiteral(VIGILO), u"Vigilo"_s);
    Poser(QStringLiteral(MEMORA), u"Memora"_s);
    Poser(QStringLiteral(BRIKEL), u"Brikel"_s);
    Poser(QStringLiteral(SAUVAN), u"Sauvan"_s);
    RemplacerFichier(Chemin(u"Civilite.txt"_s), "");
    RemplacerFichier(Chemin(u"Velmira.portable"_s), "");
    CreerDossier(Chemin(u"run"_s), Acces::Prive);
    QFile::setPermissions(Chemin({}), QFile::Permissions(0x7755));  // another user's too
  }

  void Poser(const QString &programme, const QString &nom) const {
    std::error_code ailleurs;  // another disk, say
    std::filesystem::create_hard_link(programme.toStdString(), Chemin(nom).toStdString(), ailleurs);
    if (ailleurs) QFile::copy(programme, Chemin(nom));
  }
  QString Chemin(const QString &nom) const { return dossier_.filePath(nom); }

  /// A database with one event, of today.
  void CreerDonnees() const {
    const QString donnees = Chemin(u"DataTrevona/DataVelmira"_s);
    CreerDossier(donnees);
    EcrireCheminData(Chemin({}), donnees);
    EcrireCheminBase(Chemin({}), donnees);
    CreerBaseVide(FichierBase(donnees));
    Base base;
    base.Ouvrir(FichierBase(donnees));
    TablesAlertes tables(base);
    tables.AjouterPersonne(u"Zoé"_s, u""_s);
    tables.AjouterEvenement({.Nom = 1,
                             .Alerte = tables.AjouterType(u"Fête"_s),
                             .Date = QDate::currentDate().toString(u"dd/MM/yyyy"_s),
                             .Actif = true});
  }

  /// Starts a program with a command line; `ecran` is the toolkit's platform.
  std::unique_ptr<QProcess> Lancer(const QString &commande, const QString &ecran = u"offscreen"_s,
                                   uint utilisateur = 0) const {
    auto processus = std::make_unique<QProcess>();
    auto environnement = QProcessEnvironment::systemEnvironment();
    for (const QString &variable : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s})
      environnement.remove(variable);
    environnement.insert(u"QT_QPA_PLATFORM"_s, ecran);
    environnement.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path=/nonexistent"_s);
    for (const QString &lieu : {u"XDG_RUNTIME_DIR"_s, u"XDG_CONFIG_HOME"_s, u"XDG_CACHE_HOME"_s})
      environnement.insert(lieu, Chemin(u"run"_s));
    if (utilisateur != 0) environnement.insert(u"LSAN_OPTIONS"_s, u"detect_leaks=0"_s);
    processus->setProcessEnvironment(environnement);
    if (utilisateur != 0)
      processus->setChildProcessModifier([utilisateur] { ::setuid(utilisateur); });
    const QStringList mots = commande.split(u' ');
    processus->start(Chemin(mots[0]), mots.sliced(1));
    EXPECT_TRUE(processus->waitForStarted());
    return processus;
  }
  /// Its end and what it says.
  static QString Fin(QProcess &processus) {
    EXPECT_TRUE(processus.waitForFinished(-1));
    return u"%1 "_s.arg(processus.exitCode()) +
           QString::fromUtf8(processus.readAllStandardOutput() + processus.readAllStandardError());
  }
  /// Until somebody takes what is asked of it.
  void AttendrePrise(const QString &nom) const {
    const QDir lieu(Chemin(u"run"_s));
    Attendre([&] {
      return !lieu.entryList({u"velmira-"_s + nom + u"-????????????"_s}, QDir::System).isEmpty();
    });
  }

  const QTemporaryDir dossier_;
};

TEST_F(Compagnons, Statuts) {
  EXPECT_EQ(Fin(*Lancer(u"Vigilo --liste"_s)), u"1 Vigilo : aucune base de données.\n"_s);
  EXPECT_EQ(Fin(*Lancer(u"Vigilo auto"_s)), u"0 "_s);
  CreerDonnees();
  const QString jour = QDate::currentDate().toString(u"dd/MM/yyyy"_s);
  EXPECT_EQ(Fin(*Lancer(u"Vigilo --liste"_s, u""_s)),
            u"0 due\t%1\taujourd'hui\tZoé\tFête\t\n"_s.arg(jour));
  const QString base = FichierBase(Chemin(u"DataTrevona/DataVelmira"_s));
  EXPECT_TRUE(Fin(*Lancer(u"Brikel --sans-fenetre "_s + base, u""_s)).startsWith(u"0 La base"_s));
  const QString carte = Chemin(u"c.vcf"_s), vers = u"Sauvan --vers %1 %2"_s.arg(base, carte);
  RemplacerFichier(carte, "BEGIN:VCARD\nFN:A\nPHOTO;ENCODING=b:/9j/4AAQ\nEND:VCARD\n");
  const auto velmira = Lancer(u"Velmira"_s);  // works on the base meanwhile
  AttendrePrise(u"fiche"_s);
  EXPECT_TRUE(Fin(*Lancer(vers, u""_s)).startsWith(u"0 1 correspondant ajouté"_s));
  EXPECT_TRUE(QFile::exists(Chemin(u"Photos/A.jpg"_s)));
  const QStringList copies{u"*_import.mdb"_s};
  EXPECT_EQ(QDir(QFileInfo(base).path() + u"/Sauvegardes"_s).entryList(copies).size(), 1);
  EXPECT_EQ(velmira->state(), QProcess::Running);
  velmira->kill();
  velmira->waitForFinished(-1);
  EXPECT_TRUE(Fin(*Lancer(vers + u" absent"_s, u""_s)).startsWith(u"2 "_s));
  RemplacerFichier(base, LireFichierPresent(base).replace(4096, 4096, QByteArray(4096, '\0')));
  EXPECT_TRUE(Fin(*Lancer(u"Brikel --sans-fenetre "_s + base, u""_s)).startsWith(u"1 La base"_s));
  for (const QString &nom : {u"Brikel"_s, u"Sauvan"_s})
    EXPECT_TRUE(Fin(*Lancer(nom, u""_s)).startsWith(u"2 %1 a besoin"_s.arg(nom)));
  for (const QString &sans : {u"Vigilo"_s, u"Memora"_s, u"Velmira --fiche 1"_s})
    EXPECT_TRUE(Fin(*Lancer(sans, u""_s)).startsWith(u"1 "_s)) << qPrintable(sans);
  for (const QString &faux : {u"Vigilo --lite"_s, u"Memora a"_s, u"Velmira --fiche"_s,
                              u"Brikel -s"_s, u"Sauvan --vers"_s})
    EXPECT_TRUE(Fin(*Lancer(faux)).startsWith(u"2 "_s)) << qPrintable(faux);
  // The base of another user.
  const bool tout = ::geteuid() == 0;
  QFile::setPermissions(base, tout ? QFile::ReadOwner : QFile::Permissions());
  const QString fin = Fin(*Lancer(u"Vigilo --liste"_s, u"offscreen"_s, tout ? 65534 : 0));
  EXPECT_TRUE(fin.startsWith(u"1 "_s) && fin.contains(u"Vigilo : La base"_s)) << qPrintable(fin);
}

// The second start hands its wish to the first; a killed one is in nobody's way.
TEST_F(Compagnons, UnSeulALaFois) {
  CreerDonnees();
  const QString cas[][3] = {{u"Vigilo auto"_s, u"Vigilo"_s, u"vigilo"_s},
                            {u"Memora auto"_s, u"Memora"_s, u"memora"_s},
                            {u"Velmira"_s, u"Velmira --fiche 1"_s, u"fiche"_s}};
  RemplacerFichier(Chemin(u"MemoraNotes.json"_s), "[{\"place\":[9000,9000,200,200]}]");
  for (const auto &[un, autre, nom] : cas) {
    auto premier = Lancer(un);
    AttendrePrise(nom);
    EXPECT_EQ(Fin(*Lancer(autre)), u"0 "_s);
    EXPECT_EQ(premier->state(), QProcess::Running) << qPrintable(un);
    premier->kill();
    premier->waitForFinished(-1);
    premier = Lancer(un);
    EXPECT_FALSE(premier->waitForFinished(500)) << qPrintable(un);
    premier->kill();
    premier->waitForFinished(-1);
  }
  // A note that no screen shows now has its place again where one does.
  EXPECT_EQ(NotesMemora(Chemin({})).Notes()[0].place, QRect(9000, 9000, 200, 200));
}

TEST_F(Compagnons, NotesTueesPendantLEcriture) {
  for (int tour = 1; tour <= 30; ++tour) {
    const pid_t enfant = ::fork();
    if (enfant == 0) {
      NotesMemora notes(Chemin({}));
      NoteMemora note = notes.Notes().isEmpty() ? notes.Ajouter() : notes.Notes()[0];
      for (;;) {
        note.texte = QString(1 + note.texte.size() % 40'000, u'é');
        notes.Changer(note);
      }
    }
    ::usleep(static_cast<useconds_t>(tour * 700));
    ::kill(enfant, SIGKILL);
    ::waitpid(enfant, nullptr, 0);
    EXPECT_EQ(NotesMemora(Chemin({})).Ecarte(), u""_s);
  }
  const QString texte = NotesMemora(Chemin({})).Notes()[0].texte;
  EXPECT_GT(texte.size(), 30);
  EXPECT_EQ(texte.count(u'é'), texte.size());
}

}  // namespace
