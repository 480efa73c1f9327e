// The services of the real desktop, the waits, the boxes, and the serial port with a
// pseudo-terminal where the modem would be.

#include "Reel.h"
#include "platform/linux/BoitesSysteme.h"
#include "platform/linux/CoquilleSysteme.h"
#include "platform/linux/HorlogeSysteme.h"
#include "platform/linux/ListeDemarrageSysteme.h"
#include "platform/linux/PortSerieSysteme.h"
#include "platform/linux/Utilisateur.h"

#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <QWidget>

#include <fcntl.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

namespace {

/// A user's home with a desktop folder of another name, and a program in a folder of unkind signs.
class Poste : public testing::Test {
 protected:
  Poste() {
    qputenv("HOME", QFile::encodeName(maison_));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(maison_ + u"/config"_s));
    CreerDossier(maison_ + u"/config"_s);
    RemplacerFichier(maison_ + u"/config/user-dirs.dirs"_s, "XDG_DESKTOP_DIR=\"$HOME/Bureau\"\n");
    Programmer(programme_, "printf '%s\\n' \"$#\" \"$1\" \"$PWD\"");
  }

  /// Makes a program of what it does; what that prints can be read once it has been started.
  void Programmer(const QString &chemin, const QByteArray &actes) const {
    CreerDossier(QFileInfo(chemin).path());
    const QByteArray trace = '\'' + QFile::encodeName(trace_);
    RemplacerFichier(chemin, "#!/bin/sh\n{ " + actes + "; } >" + trace + "+' && mv " + trace +
                                 "+' " + trace + "'\n");
    QFile::setPermissions(chemin, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }
  QString Dit() const {
    Attendre([&] { return QFile::exists(trace_); });
    const QByteArray texte = LireFichier(trace_).value_or("");
    EffacerFichier(trace_);
    return QString::fromUtf8(texte);
  }
  /// Starts an entry as the desktop does.
  QString DemarrerEntree(const QString &chemin) const {
    Executer(u"gio"_s, {u"launch"_s, chemin});
    return Dit();
  }

  QTemporaryDir dossier_;
  const QString maison_ = QFileInfo(dossier_.path()).canonicalFilePath();
  const QString ici_ = maison_ + u"/l'été \"à $HOME\" `ls` \\n & ;#"_s;
  const QString programme_ = ici_ + u"/Vigilo"_s, trace_ = maison_ + u"/trace"_s;
  CoquilleSysteme coquille_;
};

TEST_F(Poste, ListeDemarrage) {
  ListeDemarrageSysteme demarrage;
  const QString dossier = maison_ + u"/config/autostart"_s;
  RemplacerFichier(dossier, "un obstacle");
  EXPECT_NO_THROW(demarrage.Ajouter(u"Alerte"_s, programme_, u"auto"_s));
  EffacerFichier(dossier);
  const QString argument = u"100 %f $HOME \"\\\" `"_s;
  demarrage.Ajouter(u"Alerte"_s, programme_, u"avant"_s);
  demarrage.Ajouter(u"Alerte"_s, programme_, argument);
  demarrage.Ajouter(u"Memora"_s, programme_, u"auto"_s);
  EXPECT_TRUE(DemarrerEntree(dossier + u"/Velmira-Alerte.desktop"_s)
                  .startsWith(u"1\n"_s + argument + u'\n'));
  demarrage.Retirer(u"Alerte"_s);
  demarrage.Retirer(u"Inconnu"_s);
  EXPECT_EQ(QDir(dossier).entryList(QDir::Files), QStringList{u"Velmira-Memora.desktop"_s});
}

TEST_F(Poste, LiensDuBureau) {
  const QDir bureau(maison_ + u"/Bureau"_s);
  CreerDossier(bureau.filePath(u"a"_s));
  for (const QString &nom : {u""_s, u"."_s, u".."_s, u"a/b"_s, QString(300, u'x')}) {
    EXPECT_THROW(coquille_.CreerLien(nom, programme_), ErreurFichier) << qPrintable(nom);
    EXPECT_FALSE(coquille_.LienExiste(nom)) << qPrintable(nom);
  }
  EXPECT_EQ(bureau.entryList(QDir::Files | QDir::Hidden), QStringList());

  const QString nom = u"Mes notes d'été, 100 % \\n"_s;
  const QString lien = bureau.filePath(nom + u".desktop"_s);
  coquille_.CreerLien(nom, programme_);
  EXPECT_TRUE(coquille_.LienExiste(nom) && QFileInfo(lien).isExecutable());
  EXPECT_EQ(DemarrerEntree(lien)[0], u'0');
  EXPECT_TRUE(LireFichier(lien)->contains("\nName=Mes notes d'été, 100 % \\\\n\n"));
  EXPECT_TRUE(coquille_.PeutLancer(programme_) && coquille_.Lancer(programme_));
  EXPECT_EQ(Dit(), u"0\n\n%1\n"_s.arg(ici_));
  EXPECT_FALSE(coquille_.Lancer(ici_ + u"/Brikel"_s));
  QFile::setPermissions(programme_, QFile::ReadOwner);
  EXPECT_FALSE(coquille_.PeutLancer(programme_) || coquille_.Lancer(programme_));
}

TEST_F(Poste, DocumentsEtAdresses) {
  const QByteArray chemins = qgetenv("PATH");
  qputenv("PATH", QFile::encodeName(maison_ + u"/bin:"_s) + chemins);
  const QString ouvreur = maison_ + u"/bin/xdg-open"_s, document = maison_ + u"/à #1 100%.pdf"_s;
  RemplacerFichier(document, "");
  const QString cas[][2] = {
      {document, u"file://%1/%C3%A0%20%231%20100%25.pdf"_s.replace(u"%1"_s, maison_)},
      {u"mailto:paul.durand@exemple.fr"_s, u"mailto:paul.durand@exemple.fr"_s},
      {u"www.exemple.fr/a?b=c"_s, u"http://www.exemple.fr/a?b=c"_s}};
  for (const auto &[ceci, adresse] : cas) {
    Programmer(ouvreur, "printf '%s' \"$*\"");
    EXPECT_NO_THROW(coquille_.Ouvrir(ceci)) << qPrintable(ceci);
    EXPECT_EQ(Dit(), adresse);
    Programmer(ouvreur, "sleep 0.1; exit 3");  // refused, a little later
    try {
      coquille_.Ouvrir(ceci);
      ADD_FAILURE() << qPrintable(ceci);
    } catch (const ErreurFichier &erreur) {
      EXPECT_TRUE(erreur.Texte().contains(u"« %1 »"_s.arg(ceci))) << qPrintable(erreur.Texte());
    }
  }
  Programmer(ouvreur, "exit 0");
  EXPECT_THROW(coquille_.Ouvrir(maison_ + u"/absent.pdf"_s), ErreurFichier);

  // Without a desktop the launcher lasts as long as what it has started, and is let live.
  const QByteArray fin = QFile::encodeName(maison_ + u"/fin"_s);
  Programmer(ouvreur, "for i in $(seq 600); do [ -e '" + fin +
                          "' ] && break; sleep 0.05; done; [ -e '" + fin + "' ] && echo fini");
  EXPECT_NO_THROW(coquille_.Ouvrir(programme_));
  RemplacerFichier(maison_ + u"/fin"_s, "");
  EXPECT_EQ(Dit(), u"fini\n"_s);
  qputenv("PATH", chemins);
}

TEST(Systeme, CompteEtAttentes) {
  EXPECT_EQ(NomDuCompte(0), u"root"_s);
  EXPECT_EQ(NomDuCompte(3'123'456'789), u"3123456789"_s);

  HorlogeSysteme horloge;
  bool clique = false;
  QTimer::singleShot(0, [&] { clique = true; });
  horloge.Attendre(std::chrono::hours(24), [&] { return clique; });  // ends by what happens
  EXPECT_TRUE(clique);
  horloge.Attendre(std::chrono::milliseconds(1), [] { return false; });  // ends by its time
  clique = false;
  horloge.Apres(std::chrono::milliseconds(0), qApp, [&] { clique = true; });
  horloge.AttendreQue([&] { return clique; });
}

// A box that belongs to a minimised window would be out of sight with it, and hold the program; one
// that belongs to none can lie behind the window.
TEST(Systeme, BoiteDevantLaFenetre) {
  const auto montrer = [] {
    QPair<QWidget *, QString> montree;
    QTimer::singleShot(0, [&] {
      QWidget *boite = QApplication::activeModalWidget();
      montree = {boite->parentWidget(), boite->findChild<QLabel *>(u"qt_msgbox_label"_s)->text()};
      boite->close();
    });
    BoitesSysteme().Attention(u"« Paul » n'a pas d'adresse : à corriger !"_s);
    return montree;
  };
  QWidget fenetre;
  fenetre.show();
  fenetre.activateWindow();
  Attendre([&] { return QApplication::activeWindow() == &fenetre; });
  QApplication::setActiveWindow(nullptr);  // as between two boxes
  EXPECT_EQ(montrer().first, &fenetre);
  fenetre.activateWindow();
  fenetre.showMinimized();
  EXPECT_EQ(montrer().first, nullptr);
  EXPECT_EQ(montrer().second, u"«\u00A0Paul\u00A0» n'a pas d'adresse\u00A0: à corriger\u00A0!"_s);
}

TEST(Port, Dialogue) {
  int modem = -1, ligne = -1;
  char nom[64] = {};
  ASSERT_EQ(::openpty(&modem, &ligne, nom, nullptr, nullptr), 0);
  ::fcntl(modem, F_SETFL, O_NONBLOCK);
  const int numero = QString::fromLatin1(nom).section(u'/', -1).toInt() + 1;
  PortSerieSysteme port(u"/dev/pts/"_s);
  EXPECT_FALSE(port.Vivant());
  ASSERT_TRUE(port.Ouvrir(numero) && port.Vivant());
  termios reglages{};
  ASSERT_EQ(::tcgetattr(ligne, &reglages), 0);
  EXPECT_EQ(::cfgetospeed(&reglages), B9600);
  EXPECT_EQ(reglages.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS), CS8);

  const auto arrive = [&](const QByteArray &octets) {
    char tampon[512];
    QByteArray lu;
    Attendre([&] {
      lu.append(tampon, std::max<ssize_t>(::read(modem, tampon, sizeof tampon), 0));
      return lu.size() >= octets.size();
    });
    EXPECT_EQ(lu, octets);
  };
  const auto dialoguer = [&](const QByteArray &octets) {  // every byte as it is
    port.Ecrire(octets);
    arrive(octets);
    EXPECT_EQ(::write(modem, octets.constData(), static_cast<size_t>(octets.size())),
              octets.size());
    QByteArray lu;
    Attendre([&] { return (lu += port.Lire()).size() >= octets.size(); });
    EXPECT_EQ(lu, octets);
  };
  QByteArray tous;
  for (int i = 0; i < 256; ++i) tous += static_cast<char>(i);
  dialoguer(tous);
  ASSERT_TRUE(port.Ouvrir(numero)) << "a port that is open is closed first";
  port.Ecrire("ATH\r");  // right before it is closed
  port.Fermer();
  arrive("ATH\r");
  EXPECT_FALSE(port.Vivant());
  port.Ecrire("perdu");
  EXPECT_EQ(port.Lire(), QByteArray());

  ASSERT_TRUE(port.Ouvrir(numero));
  dialoguer("AT\r");
  ::close(modem), ::close(ligne);  // it has gone
  Attendre([&] { return !port.Vivant(); });
  port.Ecrire("ATH\r");
  EXPECT_FALSE(port.Ouvrir(numero) || port.Ouvrir(0) || port.Vivant());
}

}  // namespace
