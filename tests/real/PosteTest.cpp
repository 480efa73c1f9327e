// The services of the real desktop, the waits, the boxes, and the serial port with a
// pseudo-terminal where the modem would be.

#include "Reel.h"
#include "commun/BoitesMuettes.h"
#include "maintenance/ConversationReparation.h"
#include "platform/Verrou.h"
#include "platform/linux/BoitesSysteme.h"
#include "platform/linux/CoquilleSysteme.h"
#include "platform/linux/HorlogeSysteme.h"
#include "platform/linux/ListeDemarrageSysteme.h"
#include "platform/linux/PortSerieSysteme.h"
#include "platform/linux/Utilisateur.h"
#include "platform/linux/VoisinageSysteme.h"
#include "storage/Schema.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

#include <future>
#include <numeric>
#include <optional>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

/// A home with a desktop folder of another name, and a program in a folder of unkind signs.
class Poste : public testing::Test {
 protected:
  Poste() {
    qputenv("HOME", QFile::encodeName(maison_));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(maison_ + u"/config"_s));
    CreerDossier(maison_ + u"/config"_s);
    RemplacerFichier(maison_ + u"/config/user-dirs.dirs"_s, "XDG_DESKTOP_DIR=\"$HOME/Bureau\"\n");
    Programmer(programme_, u"printf '%s\\n' \"$#\" \"$1\" \"$PWD\""_s);
  }

  /// Makes a program of what it does; what that prints can be read once it has been started.
  void Programmer(const QString &chemin, const QString &actes) const {
    CreerDossier(QFileInfo(chemin).path());
    RemplacerFichier(chemin, u"#!/bin/sh\n{ %1; } >'%2'\n"_s.arg(actes, trace_).toUtf8());
    QFile::setPermissions(chemin, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }
  QString Dit() const {
    QByteArray dit;
    Attendre([&] { return !(dit = LireFichier(trace_).value_or("")).isEmpty(); });
    EffacerFichier(trace_);
    return QString::fromUtf8(dit);
  }

  QTemporaryDir dossier_;
  const QString maison_ = QFileInfo(dossier_.path()).canonicalFilePath();
  const QString ici_ = maison_ + u"/l'été \"à $HOME\" `ls` \\n & ;#"_s;
  const QString programme_ = ici_ + u"/Vigilo"_s, trace_ = maison_ + u"/trace"_s;
  CoquilleSysteme coquille_;
};

// At the start of a session and on the desktop; the desktop itself starts them.
TEST_F(Poste, EntreesEtProgrammes) {
  ListeDemarrageSysteme demarrage;
  const QDir demarres(maison_ + u"/config/autostart"_s), bureau(maison_ + u"/Bureau"_s);
  RemplacerFichier(demarres.path(), "un obstacle");
  EXPECT_NO_THROW(demarrage.Ajouter(u"Alerte"_s, programme_, u"auto"_s));
  EffacerFichier(demarres.path());
  CreerDossier(bureau.filePath(u"a"_s));
  for (const QString &refuse : {u""_s, u"."_s, u".."_s, u"a/b"_s})
    EXPECT_THROW(coquille_.CreerLien(refuse, programme_), ErreurFichier) << qPrintable(refuse);
  const QString argument = u"100 %f $HOME \"\\\" `"_s, nom = u"Mes notes d'été, 100 % \\n"_s,
                lien = bureau.filePath(nom + u".desktop"_s),
                alerte = demarres.filePath(u"Velmira-Alerte.desktop"_s);
  demarrage.Ajouter(u"Alerte"_s, programme_, argument);
  demarrage.Ajouter(u"Memora"_s, programme_, u"auto"_s);
  coquille_.CreerLien(nom, programme_);
  EXPECT_TRUE(coquille_.LienExiste(nom) && QFileInfo(lien).isExecutable());
  EXPECT_TRUE(LireFichier(lien)->contains("\nName=Mes notes d'été, 100 % \\\\n\n"));
  const QString entrees[][2] = {{lien, u"0\n\n"_s}, {alerte, u"1\n%1\n"_s.arg(argument)}};
  for (const auto &[entree, dit] : entrees) {
    Executer(u"gio"_s, {u"launch"_s, entree});
    EXPECT_TRUE(Dit().startsWith(dit)) << qPrintable(entree);
  }
  for (const QString &retire : {u"Alerte"_s, u"Inconnu"_s}) demarrage.Retirer(retire);
  EXPECT_EQ(demarres.entryList(QDir::Files), QStringList{u"Velmira-Memora.desktop"_s});

  EXPECT_TRUE(coquille_.PeutLancer(programme_) && coquille_.Lancer(programme_));
  EXPECT_EQ(Dit(), u"0\n\n%1\n"_s.arg(ici_));
  QFile::setPermissions(programme_, QFile::ReadOwner);
  EXPECT_FALSE(coquille_.PeutLancer(programme_) || coquille_.Lancer(programme_));
  // What is not in the application folder stands beside this program.
  const QFileInfo celui(QApplication::applicationFilePath());
  EXPECT_TRUE(coquille_.PeutLancer(u"/absent/"_s + celui.fileName()));
}

TEST_F(Poste, DocumentsEtAdresses) {
  qputenv("PATH", QFile::encodeName(maison_ + u"/bin:"_s) + qgetenv("PATH"));
  const QString ouvreur = maison_ + u"/bin/xdg-open"_s, document = maison_ + u"/à #1 100%.pdf"_s;
  RemplacerFichier(document, "");
  const QString cas[][2] = {
      {document, u"file://"_s + maison_ + u"/%C3%A0%20%231%20100%25.pdf"_s},
      {u"mailto:paul.durand@exemple.fr"_s, u"mailto:paul.durand@exemple.fr"_s},
      {u"www.exemple.fr/a?b=c"_s, u"http://www.exemple.fr/a?b=c"_s}};
  Programmer(ouvreur, u"printf '%s' \"$*\""_s);
  for (const auto &[ceci, adresse] : cas) {
    EXPECT_NO_THROW(coquille_.Ouvrir(ceci)) << qPrintable(ceci);
    EXPECT_EQ(Dit(), adresse);
  }
  EXPECT_THROW(coquille_.Ouvrir(maison_ + u"/absent.pdf"_s), ErreurFichier);
  Programmer(ouvreur, u"sleep 0.1; exit 3"_s);  // refused, a little later
  EXPECT_THROW(coquille_.Ouvrir(document), ErreurFichier);

  // Without a desktop the launcher lasts as long as what it has started, and is let live.
  Programmer(ouvreur,
             u"for i in $(seq 600); do sleep 0.05; [ -e fin ] && echo fini && break; done"_s);
  QDir::setCurrent(maison_);
  EXPECT_NO_THROW(coquille_.Ouvrir(programme_));
  RemplacerFichier(u"fin"_s, "");
  EXPECT_EQ(Dit(), u"fini\n"_s);
}

// The base is another program's, and is waited for until the user stops; then it is free.
TEST_F(Poste, ReparationEnFenetre) {
  struct : BoitesMuettes {
    void Message(Genre, const QString &, const QString &texte) override { vues.append(texte); }
  } boites;
  const QString base = maison_ + u"/Velmira.mdb"_s;
  CreerBaseVide(base);
  const auto reparer = [&](std::chrono::milliseconds attente) {
    boites.vues.clear();
    return ReparerEnFenetre(boites, coquille_, base, QDateTime(QDate(2026, 3, 1), QTime(12, 0)),
                            attente);
  };
  std::optional<VerrouExclusif> autre(base);
  ASSERT_TRUE(autre->Prendre());
  EXPECT_EQ(reparer(0ms), IssueReparation::RienFait);
  EXPECT_TRUE(boites.vues.value(0).contains(u"s'en sert"_s));
  bool arreter = true;
  QString copie;
  QTimer impatience;
  QObject::connect(&impatience, &QTimer::timeout, [&] {
    QWidget *fenetre = QApplication::activeModalWidget();
    const auto *bilan = fenetre != nullptr ? fenetre->findChild<QLineEdit *>() : nullptr;
    if (bilan != nullptr) copie = bilan->text();
    if (fenetre != nullptr && (bilan != nullptr || arreter)) fenetre->close();
  });
  impatience.start(50ms);
  EXPECT_EQ(reparer(1h), IssueReparation::RienFait);
  EXPECT_TRUE(boites.vues.value(0).contains(u"arrêtée"_s));
  autre.reset();
  arreter = false;
  EXPECT_EQ(reparer(0ms), IssueReparation::ToutGarde);
  EXPECT_EQ(copie, u"Velmira_2026-03-01_120000.mdb"_s);
}

// One run has a name, another asks it; what a killed one has left is nobody's.
TEST(Systeme, Voisins) {
  const QTemporaryDir dossier;
  qputenv("XDG_RUNTIME_DIR", QFile::encodeName(dossier.path()));
  QFile::setPermissions(dossier.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  QStringList recu;
  const auto recevoir = [&](const QStringList &mots) { recu = mots; };
  const auto demander = [](const QString &nom) {
    auto reponse = std::async(std::launch::async, [nom] {
      return VoisinageSysteme().Demander(nom, {u"--fiche"_s, u"Zoé"_s});
    });
    Attendre(
        [&] { return reponse.wait_for(std::chrono::seconds(0)) == std::future_status::ready; });
    return reponse.get();
  };
  EXPECT_FALSE(demander(u"a"_s));
  RemplacerFichier(dossier.filePath(u"velmira-a.lock"_s),
                   u"999999999\nvelmira\n%1\n"_s.arg(QSysInfo::machineHostName()).toLocal8Bit());
  {
    VoisinageSysteme un, autre;
    EXPECT_TRUE(un.Prendre(u"a"_s, qApp, recevoir));
    EXPECT_FALSE(autre.Prendre(u"a"_s, qApp, recevoir));
    EXPECT_TRUE(demander(u"a"_s));
    EXPECT_EQ(recu, (QStringList{u"--fiche"_s, u"Zoé"_s}));
    EXPECT_FALSE(demander(u"b"_s));
  }
  EXPECT_FALSE(demander(u"a"_s));
}

TEST(Systeme, CompteEtAttentes) {
  EXPECT_EQ(NomDuCompte(0), u"root"_s);
  EXPECT_EQ(NomDuCompte(3'123'456'789), u"3123456789"_s);
  HorlogeSysteme horloge;
  bool clique = false;
  horloge.Apres(std::chrono::milliseconds(0), qApp, [&] { clique = true; });
  horloge.Attendre(std::chrono::hours(24), [&] { return clique; });      // ends by what happens
  horloge.Attendre(std::chrono::milliseconds(1), [] { return false; });  // ends by its time
}

// A box that belongs to a minimised window would be out of sight with it, and hold the program; one
// that belongs to none can lie behind the window.
TEST(Systeme, BoiteDevantLaFenetre) {
  const auto parent = [] {
    QWidget *trouve = nullptr;
    QTimer::singleShot(0, [&] {
      QWidget *boite = QApplication::activeModalWidget();
      EXPECT_EQ(boite->findChild<QLabel *>(u"qt_msgbox_label"_s)->text(),
                u"«\u00A0Paul\u00A0» n'a pas d'adresse\u00A0: à corriger\u00A0!"_s);
      trouve = boite->parentWidget();
      boite->close();
    });
    BoitesSysteme().Attention(u"« Paul » n'a pas d'adresse : à corriger !"_s);
    return trouve;
  };
  QWidget fenetre;
  fenetre.show();
  QApplication::setActiveWindow(nullptr);  // as between two boxes
  EXPECT_EQ(parent(), &fenetre);
  fenetre.showMinimized();
  EXPECT_EQ(parent(), nullptr);
}

// The one who types sees the question late: what is typed goes on in the field, not in the box.
TEST(Systeme, QuestionEnFrappe) {
  QLineEdit fenetre;
  fenetre.show();
  QTimer::singleShot(0, [&] {
    auto *boite = fenetre.findChild<QMessageBox *>();
    const auto taper = [](QWidget *ou, int touche, const QString &texte = {}) {
      QKeyEvent evenement(QEvent::KeyPress, touche, Qt::NoModifier, texte);
      QApplication::sendEvent(ou, &evenement);
    };
    taper(&fenetre, Qt::Key_X, u"x"_s);
    for (const QString &lettre : {u"n"_s, u" "_s, u"o"_s, u"q"_s})
      taper(boite, lettre[0].toUpper().unicode(), lettre);
    taper(boite, Qt::Key_Backspace);
    taper(&fenetre, Qt::Key_Escape);
    EXPECT_TRUE(boite->isVisible() && fenetre.text().isEmpty());
    taper(boite, Qt::Key_Escape);
  });
  const auto [reponse, suite] = BoitesSysteme().QuestionEnFrappe(u"Velmira"_s, u"Où ?"_s);
  EXPECT_EQ(reponse, Boites::Reponse::Non);
  EXPECT_EQ(suite, u"xn o"_s);
}

TEST(Port, Dialogue) {
  int modem = -1, ligne = -1;
  char nom[64] = {};
  ASSERT_EQ(::openpty(&modem, &ligne, nom, nullptr, nullptr), 0);
  const int numero = QString::fromLatin1(nom).section(u'/', -1).toInt() + 1;
  PortSerieSysteme port(u"/dev/pts/"_s);
  EXPECT_FALSE(port.Vivant());
  ASSERT_TRUE(port.Ouvrir(numero) && port.Vivant());
  termios reglages{};
  ::tcgetattr(ligne, &reglages);
  EXPECT_EQ(::cfgetospeed(&reglages), B9600);
  EXPECT_EQ(reglages.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS), CS8);

  const auto arrive = [&](const QByteArray &octets) {  // without letting events through
    QByteArray lu(octets.size(), '\0');
    for (qsizetype n = 0; n < lu.size();)
      n += ::read(modem, lu.data() + n, static_cast<size_t>(lu.size() - n));
    EXPECT_EQ(lu, octets);
  };
  QByteArray tous(256, '\0'), lu;  // every byte as it is
  std::iota(tous.begin(), tous.end(), '\0');
  port.Ecrire(tous);
  arrive(tous);
  EXPECT_EQ(::write(modem, tous.constData(), 256), 256);
  Attendre([&] { return (lu += port.Lire()).size() >= 256; });
  EXPECT_EQ(lu, tous);
  ASSERT_TRUE(port.Ouvrir(numero)) << "a port that is open is closed first";
  port.Ecrire("ATH\r");  // right before it is closed
  port.Fermer();
  arrive("ATH\r");
  port.Ecrire("perdu");
  EXPECT_TRUE(!port.Vivant() && port.Lire().isEmpty());

  ASSERT_TRUE(port.Ouvrir(numero));
  ::close(modem), ::close(ligne);  // it has gone
  Attendre([&] { return !port.Vivant(); });
  port.Ecrire("ATH\r");
  EXPECT_FALSE(port.Ouvrir(numero) || port.Ouvrir(0) || port.Vivant());
}

}  // namespace
