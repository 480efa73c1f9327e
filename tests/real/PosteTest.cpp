// The real desktop services, the waits and the real serial port: entries of the desktop are started
// by the desktop's own launcher, and a pseudo-terminal stands where the modem would.

#include "commun/DisquePlein.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "platform/linux/BoitesSysteme.h"
#include "platform/linux/CoquilleSysteme.h"
#include "platform/linux/HorlogeSysteme.h"
#include "platform/linux/ListeDemarrageSysteme.h"
#include "platform/linux/PortSerieSysteme.h"
#include "platform/linux/Utilisateur.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <QUrl>
#include <QWidget>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 20'000;  // milliseconds, for a computer under load

/// Lets events through until `condition` holds. False when it never does.
template <typename Condition>
bool Attendre(Condition &&condition) {
  const QDeadlineTimer limite(kPatience);
  while (!condition()) {
    if (limite.hasExpired()) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    QThread::msleep(2);
  }
  return true;
}

/// A user's home with a desktop folder of another name, and a program in a folder of unkind signs.
class Poste : public testing::Test {
 protected:
  Poste() {
    qputenv("HOME", QFile::encodeName(maison_.path()));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(maison_.filePath(u"config"_s)));
    CreerDossier(maison_.filePath(u"config"_s));
    RemplacerFichier(maison_.filePath(u"config/user-dirs.dirs"_s),
                     "XDG_DESKTOP_DIR=\"$HOME/Bureau\"\n");
    CreerDossier(dossierProgramme_);
    RemplacerFichier(programme_,
                     "#!/bin/sh\n"
                     "ici=$(dirname \"$0\")\n"
                     "printf '%s\\n' \"$#\" \"$1\" \"$PWD\" >\"$ici/encours\"\n"
                     "mv \"$ici/encours\" \"$ici/trace\"\n");
    QFile::setPermissions(programme_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }

  QString Lien(const QString &nom) const {
    return maison_.filePath(u"Bureau/%1.desktop"_s.arg(nom));
  }
  QStringList EntreesDemarrage() const {
    return QDir(maison_.filePath(u"config/autostart"_s)).entryList(QDir::Files);
  }

  /// What the program tells once it has been started: how many arguments, the first of them, where.
  QStringList Trace() const {
    const QString trace = dossierProgramme_ + u"/trace"_s;
    if (!Attendre([&] { return QFileInfo::exists(trace); })) return {u"not started"_s};
    const QString texte = QString::fromUtf8(LireFichier(trace).value_or(""));
    EffacerFichier(trace);
    return texte.split(u'\n');
  }
  /// Starts an entry as the desktop does.
  QStringList DemarrerEntree(const QString &chemin) const {
    QProcess gio;
    gio.start(u"gio"_s, {u"launch"_s, chemin});
    EXPECT_TRUE(gio.waitForFinished(kPatience));
    EXPECT_EQ(gio.exitCode(), 0) << gio.readAllStandardError().constData();
    return Trace();
  }

  QTemporaryDir maison_;
  const QString dossierProgramme_ =
      QFileInfo(maison_.path()).canonicalFilePath() + u"/l'été \"à $HOME\" `ls` \\n & ;#"_s;
  const QString programme_ = dossierProgramme_ + u"/Vigilo"_s;
  CoquilleSysteme coquille_;
  ListeDemarrageSysteme demarrage_;
};

TEST(Utilisateur, NomOuNumero) {
  constexpr uid_t kInconnu = 3'123'456'789;
  EXPECT_EQ(NomDuCompte(0), u"root"_s);
  EXPECT_EQ(NomDuCompte(kInconnu), u"3123456789"_s);
  EXPECT_FALSE(NomUtilisateur().isEmpty());
}

TEST_F(Poste, ListeDemarrage) {
  const QString fichier = u"Velmira-Alerte.desktop"_s;
  const QString chemin = maison_.filePath(u"config/autostart/"_s + fichier);
  demarrage_.Retirer(u"Alerte"_s);
  demarrage_.Ajouter(u"Alerte"_s, programme_, u"auto"_s);
  EXPECT_EQ(EntreesDemarrage(), QStringList{fichier});
  EXPECT_EQ(DemarrerEntree(chemin).mid(0, 2), (QStringList{u"1"_s, u"auto"_s}));

  const QString argument = u"100 %f $HOME \"\\\" `"_s;
  demarrage_.Ajouter(u"Alerte"_s, programme_, argument);
  demarrage_.Ajouter(u"Memora"_s, programme_, u"auto"_s);
  EXPECT_EQ(EntreesDemarrage().size(), 2);
  EXPECT_EQ(DemarrerEntree(chemin).mid(0, 2), (QStringList{u"1"_s, argument}));

  demarrage_.Retirer(u"Alerte"_s);
  EXPECT_EQ(EntreesDemarrage(), QStringList{u"Velmira-Memora.desktop"_s});
}

TEST_F(Poste, ListeDemarrageSansDossier) {
  RemplacerFichier(maison_.filePath(u"config/autostart"_s), "un obstacle");
  EXPECT_NO_THROW(demarrage_.Ajouter(u"Alerte"_s, programme_, u"auto"_s));
  EXPECT_NO_THROW(demarrage_.Retirer(u"Alerte"_s));
}

TEST_F(Poste, LienDuBureau) {
  const QString nom = u"Mes notes d'été, 100 % \\n"_s;
  EXPECT_FALSE(coquille_.LienExiste(nom));
  coquille_.CreerLien(nom, programme_);
  EXPECT_TRUE(coquille_.LienExiste(nom));
  EXPECT_FALSE(coquille_.LienExiste(u"Mes notes"_s));
  EXPECT_TRUE(QFileInfo(Lien(nom)).isExecutable());
  EXPECT_EQ(DemarrerEntree(Lien(nom)).constFirst(), u"0"_s);
  EXPECT_TRUE(LireFichier(Lien(nom)).value_or("").contains(
      u"\nName=Mes notes d'été, 100 % \\\\n\n"_s.toUtf8()));

  // The launcher itself cannot find a program in such a folder: it looks for it by the doubled
  // sign.
  coquille_.CreerLien(u"Cent"_s, u"/opt/100 %f/Memora"_s);
  EXPECT_TRUE(
      LireFichier(Lien(u"Cent"_s)).value_or("").contains("\nExec=\"/opt/100 %%f/Memora\"\n"));
}

TEST_F(Poste, LienRefuse) {
  CreerDossier(maison_.filePath(u"Bureau/a"_s));
  for (const QString &nom : {u""_s, u"."_s, u".."_s, u"a/b"_s, u"../a"_s, QString(300, u'x')}) {
    EXPECT_THROW(coquille_.CreerLien(nom, programme_), ErreurFichier) << qPrintable(nom);
    EXPECT_FALSE(coquille_.LienExiste(nom)) << qPrintable(nom);
  }
  {
    const DisquePlein plein(16);
    EXPECT_THROW(coquille_.CreerLien(u"Memora"_s, programme_), ErreurFichier);
  }
  EXPECT_EQ(QDir(maison_.filePath(u"Bureau"_s)).entryList(QDir::Files | QDir::Hidden),
            QStringList());
}

TEST_F(Poste, ProgrammeLance) {
  EXPECT_TRUE(coquille_.Lancer(programme_));
  EXPECT_EQ(Trace().mid(0, 3), (QStringList{u"0"_s, QString(), dossierProgramme_}));
  EXPECT_FALSE(coquille_.Lancer(dossierProgramme_ + u"/Brikel"_s));
  QFile::setPermissions(programme_, QFile::ReadOwner | QFile::WriteOwner);
  EXPECT_FALSE(coquille_.Lancer(programme_));
}

/// Stands for the desktop's launcher: it notes what it is to open, and ends as it is told.
class Ouvreur {
 public:
  explicit Ouvreur(const QTemporaryDir &maison)
      : trace_(maison.filePath(u"ouvert"_s)), lanceur_(maison.filePath(u"bin/xdg-open"_s)) {
    CreerDossier(maison.filePath(u"bin"_s));
    qputenv("PATH", QFile::encodeName(maison.filePath(u"bin:"_s)) + chemins_);
  }
  ~Ouvreur() { qputenv("PATH", chemins_); }
  Q_DISABLE_COPY_MOVE(Ouvreur)

  void Faire(const QByteArray &suite) const {
    RemplacerFichier(lanceur_, "#!/bin/sh\nprintf '%s' \"$*\" >'" + QFile::encodeName(trace_) +
                                   "'\n" + suite + "\n");
    QFile::setPermissions(lanceur_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }
  /// What it was to open since the last call.
  QString Ouvert() const {
    const auto trace = LireFichier(trace_);
    if (trace) EffacerFichier(trace_);
    return QUrl::fromEncoded(trace.value_or("")).toString();
  }

 private:
  const QString trace_, lanceur_;
  const QByteArray chemins_ = qgetenv("PATH");
};

TEST_F(Poste, DocumentsEtAdresses) {
  const Ouvreur ouvreur(maison_);
  const QString document = maison_.filePath(u"à lire #1 100%.pdf"_s);
  RemplacerFichier(document, "");
  const struct {
    QString document, adresse;
  } cas[] = {
      {document, u"file://"_s + maison_.filePath(u"à lire %231 100%25.pdf"_s)},
      {u"mailto:paul.durand@exemple.fr"_s, u"mailto:paul.durand@exemple.fr"_s},
      {u"https://exemple.fr/a?b=c#d"_s, u"https://exemple.fr/a?b=c#d"_s},
      {u"www.exemple.fr"_s, u"http://www.exemple.fr"_s},
  };
  ouvreur.Faire("exit 0");
  for (const auto &[ceci, adresse] : cas) {
    EXPECT_NO_THROW(coquille_.Ouvrir(ceci)) << qPrintable(ceci);
    EXPECT_EQ(ouvreur.Ouvert(), adresse);
  }
  // Refused, sooner or a little later: it is told, with its place.
  ouvreur.Faire("sleep 0.3\nexit 3");
  for (const auto &[ceci, adresse] : cas) {
    try {
      coquille_.Ouvrir(ceci);
      ADD_FAILURE() << qPrintable(ceci);
    } catch (const ErreurFichier &erreur) {
      EXPECT_TRUE(erreur.Texte().contains(u"« %1 »"_s.arg(ceci))) << qPrintable(erreur.Texte());
    }
    ouvreur.Ouvert();
  }
  EXPECT_THROW(coquille_.Ouvrir(maison_.filePath(u"absent.pdf"_s)), ErreurFichier);
  EXPECT_EQ(ouvreur.Ouvert(), QString()) << "what is not there is asked of nobody";
}

// Without a desktop the launcher lasts as long as the program that it has started.
TEST_F(Poste, LanceurQuiReste) {
  const Ouvreur ouvreur(maison_);
  const QString fin = maison_.filePath(u"fin"_s);
  ouvreur.Faire("sleep 4\n>'" + QFile::encodeName(fin) + "'\nexit 3");
  QElapsedTimer depuis;
  depuis.start();
  EXPECT_NO_THROW(coquille_.Ouvrir(programme_));
  EXPECT_LT(depuis.elapsed(), 3900);
  EXPECT_FALSE(QFileInfo::exists(fin));
  EXPECT_TRUE(Attendre([&] { return QFileInfo::exists(fin); })) << "it is not ended with the wait";
}

/// A port with the test at its other end.
class Port : public testing::Test {
 protected:
  Port() {
    char nom[64] = {};
    EXPECT_EQ(::openpty(&modem_, &ligne_, nom, nullptr, nullptr), 0);
    ::fcntl(modem_, F_SETFL, O_NONBLOCK);
    numero_ = QString::fromLatin1(nom).section(u'/', -1).toInt() + 1;
  }
  ~Port() override { Debrancher(); }

  void Debrancher() {
    for (int *fd : {&modem_, &ligne_})
      if (*fd >= 0) ::close(std::exchange(*fd, -1));
  }
  void Repondre(const QByteArray &octets) const {
    EXPECT_EQ(::write(modem_, octets.constData(), static_cast<size_t>(octets.size())),
              octets.size());
  }
  /// What has arrived at the other end, once it is as long as what is expected.
  QByteArray Arrive(qsizetype longueur) const {
    QByteArray arrive;
    Attendre([&] {
      char tampon[512];
      const ssize_t n = ::read(modem_, tampon, sizeof tampon);
      if (n > 0) arrive.append(tampon, n);
      return arrive.size() >= longueur;
    });
    return arrive;
  }
  /// What the port gives, once it is as long as what is expected.
  QByteArray Lu(qsizetype longueur) {
    QByteArray lu;
    Attendre([&] { return (lu += port_.Lire()).size() >= longueur; });
    return lu;
  }

  static QByteArray TousLesOctets() {
    QByteArray octets;
    for (int i = 0; i < 256; ++i) octets += static_cast<char>(i);
    return octets;
  }

  int modem_ = -1, ligne_ = -1;
  int numero_ = 0;
  PortSerieSysteme port_{u"/dev/pts/"_s};
};

TEST_F(Port, Dialogue) {
  EXPECT_FALSE(port_.Vivant());
  ASSERT_TRUE(port_.Ouvrir(numero_));
  EXPECT_TRUE(port_.Vivant());
  termios reglages{};
  ASSERT_EQ(::tcgetattr(ligne_, &reglages), 0);
  EXPECT_EQ(::cfgetospeed(&reglages), B9600);
  EXPECT_EQ(reglages.c_cflag & (CSIZE | PARENB | CSTOPB), CS8);

  port_.Ecrire("ATDT 02 40 12 34 56;\r");
  EXPECT_EQ(Arrive(21), "ATDT 02 40 12 34 56;\r");
  EXPECT_EQ(port_.Lire(), QByteArray());
  Repondre("\r\nO");
  EXPECT_EQ(Lu(3), "\r\nO");
  Repondre("K\r\n");
  EXPECT_EQ(Lu(3), "K\r\n");

  port_.Ecrire(TousLesOctets());
  EXPECT_EQ(Arrive(256), TousLesOctets());
  Repondre(TousLesOctets());
  EXPECT_EQ(Lu(256), TousLesOctets());

  // The last command is written right before the port is closed.
  port_.Ecrire("ATH\r");
  port_.Fermer();
  EXPECT_FALSE(port_.Vivant());
  EXPECT_EQ(Arrive(4), "ATH\r");
}

TEST_F(Port, Rouvrir) {
  ASSERT_TRUE(port_.Ouvrir(numero_));
  Repondre("OK");
  EXPECT_EQ(Lu(2), "OK");
  ASSERT_TRUE(port_.Ouvrir(numero_)) << "a port that is open is closed first";
  port_.Fermer();
  port_.Ecrire("perdu");
  EXPECT_EQ(port_.Lire(), QByteArray());
  ASSERT_TRUE(port_.Ouvrir(numero_));
  port_.Ecrire("AT\r");
  EXPECT_EQ(Arrive(3), "AT\r");
}

TEST_F(Port, AppareilDisparu) {
  ASSERT_TRUE(port_.Ouvrir(numero_));
  Debrancher();
  EXPECT_TRUE(Attendre([&] { return !port_.Vivant(); }));
  port_.Ecrire("ATH\r");
  EXPECT_EQ(port_.Lire(), QByteArray());
  port_.Fermer();
  EXPECT_FALSE(port_.Ouvrir(numero_));
  EXPECT_FALSE(port_.Vivant());
}

TEST_F(Port, RienDeTel) {
  ASSERT_TRUE(port_.Ouvrir(numero_));
  EXPECT_FALSE(port_.Ouvrir(100'000));
  EXPECT_FALSE(port_.Vivant()) << "the port before is closed";
  EXPECT_FALSE(port_.Ouvrir(0));

  const QTemporaryDir dossier;
  RemplacerFichier(dossier.filePath(u"tty0"_s), "un fichier");
  EXPECT_FALSE(PortSerieSysteme(dossier.filePath(u"tty"_s)).Ouvrir(1));
}

TEST(Attente, LaisseTravailler) {
  using namespace std::chrono_literals;
  HorlogeSysteme horloge;
  bool clique = false;
  QTimer::singleShot(0, [&] { clique = true; });
  horloge.Attendre(24h, [&] { return clique; });  // ends by what happens meanwhile
  EXPECT_TRUE(clique);

  clique = false;
  horloge.Attendre(1ms, [] { return false; });  // ends by its time
  QTimer::singleShot(0, [&] { clique = true; });
  horloge.AttendreQue([&] { return clique; });
  EXPECT_TRUE(clique);
}

/// Shows a box, which goes at once: the window that it stands before, and what it shows.
std::pair<QWidget *, QString> Montrer(const QString &texte) {
  std::pair<QWidget *, QString> montree;
  QTimer::singleShot(0, [&] {
    QWidget *boite = QApplication::activeModalWidget();
    ASSERT_NE(boite, nullptr);
    EXPECT_TRUE(boite->isVisible());
    montree = {boite->parentWidget(), boite->findChild<QLabel *>(u"qt_msgbox_label"_s)->text()};
    boite->close();
  });
  BoitesSysteme().Attention(texte);
  return montree;
}

// A box that belongs to a minimised window would be out of sight with it, and hold the program; one
// that belongs to none can lie behind the window.
TEST(Boites, DevantLaFenetre) {
  QWidget fenetre;
  fenetre.show();
  fenetre.activateWindow();
  ASSERT_TRUE(Attendre([&] { return QApplication::activeWindow() == &fenetre; }));
  QApplication::setActiveWindow(nullptr);  // as between two boxes
  EXPECT_EQ(Montrer(u"Encore une"_s).first, &fenetre);
  fenetre.activateWindow();
  fenetre.showMinimized();
  // no line begins or ends with one of these signs alone
  EXPECT_EQ(Montrer(u"« Paul » n'a pas d'adresse : à corriger !"_s),
            std::pair(static_cast<QWidget *>(nullptr),
                      u"«\u00A0Paul\u00A0» n'a pas d'adresse\u00A0: à corriger\u00A0!"_s));
}

}  // namespace

int main(int argc, char *argv[]) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
