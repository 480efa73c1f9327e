#include "player/Monde.h"

#include "platform/Enregistrement.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"
#include "player/Echec.h"

#include <QDir>
#include <QFile>
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

void EcrireChemin(const QString &fichier, const QString &chemin) {
  RedacteurEnregistrement redacteur;
  redacteur.Ecrire(chemin);
  EcrireOctets(fichier, redacteur.Octets());
}

}  // namespace

Monde::Monde(const QString &dossier, const QString &livraison, const QString &dossierScenario)
    : dossier_(QFileInfo(dossier).canonicalFilePath()),
      livraison_(livraison),
      dossierScenario_(dossierScenario) {
  for (const QString &partie : {App(), Home()})
    Exiger(!QFileInfo::exists(partie) && QDir().mkpath(partie),
           u"\"%1\" cannot be made anew"_s.arg(partie));
  for (const QString &nom : QDir(livraison).entryList(QDir::Files))
    Copier(livraison + u'/' + nom, App() + u'/' + nom);
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
  Exiger(QDir().mkpath(Donnees()), u"\"%1\" cannot be made"_s.arg(Donnees()));
  EcrireChemin(App() + u"/CheminData.cfg"_s, Donnees());
  EcrireChemin(App() + u"/Cheminbase.cfg"_s, Donnees());
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
  Copier(QDir(dossierScenario_).filePath(source), cible);
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

std::optional<QStringList> Monde::Lire(const QString &nom) const {
  auto octets = LireFichier(Chemin(nom));
  if (!octets) return std::nullopt;
  if (octets->isEmpty()) return QStringList();
  if (octets->endsWith(kFinDeLigne)) octets->chop(2);
  return DepuisPageDeCode(*octets).split(QLatin1StringView(kFinDeLigne));
}
