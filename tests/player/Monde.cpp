#include "player/Monde.h"

#include "platform/Enregistrement.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"
#include "player/Verbes.h"

#include <QDir>
#include <QFileInfo>

#include <sys/stat.h>

namespace {

constexpr auto kFinDeLigne = "\r\n";

QString Livre(const QString &nom) {
  return QStringLiteral(VELMIRA_DONNEES) + u'/' + nom;
}

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

/// The world changes only while nobody works in it.
const Monde &AuRepos(const Scene &scene) {
  Exiger(!scene.EnMarche(), u"a program that is closed expected, it is running"_s);
  return scene.monde;
}

void Installer(Scene &scene, const Mots &) {
  const Monde &monde = AuRepos(scene);
  RedacteurEnregistrement chemin;
  chemin.Ecrire(monde.Donnees());
  EcrireOctets(monde.App() + u"/CheminData.cfg"_s, chemin.Octets());
  EcrireOctets(monde.App() + u"/Cheminbase.cfg"_s, chemin.Octets());
  Exiger(QDir().mkpath(monde.Donnees()) && QFile::rename(monde.App() + u"/Velmira_base.mdb"_s,
                                                         monde.Donnees() + u"/Velmira.mdb"_s),
         u"the delivered Velmira_base.mdb cannot be put in place"_s);
}

/// The world that most stories begin in, told in the language too.
void InstallerType(Scene &scene, const Mots &) {
  const auto texte = LireFichier(QStringLiteral(VELMIRA_MONDE_TYPE));
  for (const Commande &commande : Analyser(QString::fromUtf8(texte.value_or(QByteArray()))))
    Executer(scene, commande);
}

void Ecrire(Scene &scene, const Mots &mots) {
  QByteArray octets;
  for (const QString &ligne : Textes(mots, 1)) octets += VersPageDeCode(ligne) + kFinDeLigne;
  EcrireOctets(AuRepos(scene).Chemin(mots[0].texte), octets);
}

/// Does the same to each of the paths that it names.
Verbe SurChemins(const QString &nom, bool (*faire)(const QString &chemin)) {
  return {nom, 1, kSansLimite, [nom, faire](S &s, const M &m) {
            for (const Mot &mot : m)
              Exiger(faire(AuRepos(s).Chemin(mot.texte)), u"%1 %2: refused"_s.arg(nom, mot.texte));
          }};
}

bool CreerDossiers(const QString &chemin) {
  return QDir().mkpath(chemin);
}

/// Puts in its place a file that opens and cannot be read, also by the superuser.
bool RendreIllisible(const QString &chemin) {
  QFile::remove(chemin);
  return QFile::link(u"/proc/self/mem"_s, chemin);
}

/// Puts there a pipe that nobody writes into.
bool PoserTube(const QString &chemin) {
  return mkfifo(QFile::encodeName(chemin).constData(), S_IRUSR | S_IWUSR) == 0;
}

/// Puts there a name that leads nowhere: not even what it is can be told.
bool FermerLAcces(const QString &chemin) {
  QFile::remove(chemin);
  return QFile::link(chemin, chemin);
}

QByteArray Octets(const Scene &scene, const QString &nom) {
  const auto octets = LireFichier(scene.monde.Chemin(nom));
  const QDir dossier = QFileInfo(scene.monde.Chemin(nom)).dir();
  Exiger(octets.has_value(),
         u"file %1 expected, its folder holds %2"_s.arg(
             nom, EnListe(dossier.entryList(QDir::AllEntries | QDir::NoDotAndDotDot))));
  return *octets;
}

/// Without the final line end.
QStringList Lignes(const Scene &scene, const QString &nom) {
  QByteArray octets = Octets(scene, nom);
  if (octets.isEmpty()) return {};
  if (octets.endsWith(kFinDeLigne)) octets.chop(2);
  return DepuisPageDeCode(octets).split(QLatin1StringView(kFinDeLigne));
}

void VerifierFichier(Scene &scene, const Mots &mots) {
  const QString &nom = mots[0].texte;
  const Mot &quoi = mots[1];
  const QStringList noms = Textes(mots.first(mots.size() - 1), 0);
  if (mots.constLast().Est(u"absent")) {
    for (const QString &absent : noms)
      Exiger(!QFileInfo::exists(scene.monde.Chemin(absent)), u"no file %1 expected"_s.arg(absent));
  } else if (mots.constLast().Est(u"present")) {
    for (const QString &present : noms) Octets(scene, present);
  } else if (quoi.Est(u"egal") && mots.size() == 3) {
    Exiger(Octets(scene, nom) == Octets(scene, mots[2].texte),
           u"%1 and %2 differ"_s.arg(nom, mots[2].texte));
  } else if (quoi.Est(u"lignes")) {
    ExigerListe(nom, Textes(mots, 2), Lignes(scene, nom));
  } else if (quoi.Est(u"ligne") && mots.size() == 4) {
    ExigerEgal(u"line %1 of %2"_s.arg(mots[2].texte, nom), mots[3].texte,
               Lignes(scene, nom).value(qRound(Nombre(mots[2])) - 1, u"no line"_s));
  } else {
    throw Echec{u"fichier: what is meant by %1?"_s.arg(quoi.texte)};
  }
}

}  // namespace

Monde::Monde(const QString &dossier, QString dossierScenario)
    : dossierScenario_(std::move(dossierScenario)) {
  QDir().mkpath(dossier);
  dossier_ = QFileInfo(dossier).canonicalFilePath();
  for (const QString &partie : {App(), Home()})
    Exiger(!QFileInfo::exists(partie) && QDir().mkpath(partie),
           u"\"%1\" cannot be made anew"_s.arg(partie));
  for (const QString &nom : QDir(Livre({})).entryList(QDir::Files))
    Copier(Livre(nom), App() + u'/' + nom);
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

QString Monde::ACote(const QString &nom) const {
  return QDir(dossierScenario_).filePath(nom);
}

QString Monde::Completer(QString texte) const {
  constexpr int kLong = 33'000;
  return texte.replace(u"{app}"_s, App())
      .replace(u"{home}"_s, Home())
      .replace(u"{long}"_s, QString(kLong, u'x'));
}

QList<Verbe> VerbesDuMonde() {
  return {
      {u"monde installe"_s, 0, 0, Installer},
      {u"monde type"_s, 0, 0, InstallerType},
      {u"monde fichier"_s, 1, kSansLimite, Ecrire},
      {u"monde copie"_s, 2, 2,
       [](S &s, const M &m) { Copier(AuRepos(s).ACote(m[0].texte), s.monde.Chemin(m[1].texte)); }},
      {u"monde base"_s, 1, 1,
       [](S &s, const M &m) {
         Copier(AuRepos(s).ACote(m[0].texte), s.monde.Donnees() + u"/Velmira.mdb"_s);
       }},
      {u"monde nouvelle-base"_s, 0, 0,
       [](S &s, const M &) {
         Copier(Livre(u"Velmira_base.mdb"_s), AuRepos(s).App() + u"/Velmira_base.mdb"_s);
       }},
      SurChemins(u"monde dossier"_s, CreerDossiers),
      SurChemins(u"monde illisible"_s, RendreIllisible),
      SurChemins(u"monde tube"_s, PoserTube),
      SurChemins(u"monde sans-acces"_s, FermerLAcces),
      SurChemins(u"monde efface"_s, [](const QString &chemin) { return QFile::remove(chemin); }),
      {u"fichier"_s, 2, kSansLimite, VerifierFichier},
      {u"utilisateur"_s, 1, 1,
       [](S &s, const M &m) {
         AuRepos(s);
         s.utilisateur = m[0].texte;
       }},
      {u"monde imprimante"_s, 0, kSansLimite,
       [](S &s, const M &m) {
         AuRepos(s);
         s.imprimante.systeme = Textes(m, 0);
       }},
      {u"monde imprimante-muette"_s, 0, kSansLimite,
       [](S &s, const M &m) { s.imprimante.muettes = Textes(m, 0); }},
      {u"monde serveur-muet"_s, 0, 0, [](S &s, const M &) { s.imprimante.repond = false; }},
      {u"monde serveur-present"_s, 0, 0, [](S &s, const M &) { s.imprimante.repond = true; }},
      {u"monde sans-programme"_s, 0, 1,
       [](S &s, const M &m) {
         if (const Monde &monde = AuRepos(s); m.isEmpty())
           s.coquille.inerte = true;
         else
           s.coquille.absents.append(monde.Chemin(m[0].texte));
       }},
  };
}
