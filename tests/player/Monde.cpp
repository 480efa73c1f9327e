// The world of a scenario, and the verbs that make and look at its files and rows. Rows come beside
// the program, as from another user.

#include "player/Monde.h"

#include "platform/Enregistrement.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"
#include "player/Verbes.h"
#include "storage/Requete.h"
#include "storage/Schema.h"

#include <QtCore>

namespace {

constexpr auto kFinDeLigne = "\r\n";

const QString kApparence = u"RTColor.ini"_s;

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

/// A file that lies beside the scenario.
void CopierDACote(const Scene &scene, const QString &nom, const QString &cible) {
  Copier(QFileInfo(scene.fichier).dir().filePath(nom), AuRepos(scene).Chemin(cible));
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

bool Lier(const QString &vers, const QString &chemin) {
  QFile::remove(chemin);
  return QFile::link(vers, chemin);
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
  const bool absents = mots.constLast().Est(u"absent");
  if (absents || mots.constLast().Est(u"present")) {
    for (const QString &chacun : Textes(mots.first(mots.size() - 1), 0)) {
      const QFileInfo fichier(scene.monde.Chemin(chacun));
      Exiger(absents ? !fichier.exists() : fichier.isFile(),
             u"%1 expected to be %2"_s.arg(chacun, mots.constLast().texte));
    }
  } else if (quoi.Est(u"egal") && mots.size() == 3) {
    Exiger(Octets(scene, nom) == Octets(scene, mots[2].texte),
           u"%1 and %2 differ"_s.arg(nom, mots[2].texte));
  } else if (quoi.Est(u"lignes")) {
    ExigerListe(nom, Textes(mots, 2), Lignes(scene, nom));
  } else if (quoi.Est(u"contient") && mots.size() == 3) {
    Exiger(QString::fromUtf8(Octets(scene, nom)).contains(mots[2].texte),
           u"%1 expected in %2"_s.arg(mots[2].texte, nom));
  } else if (quoi.Est(u"ligne") && mots.size() == 4) {
    ExigerEgal(u"line %1 of %2"_s.arg(mots[2].texte, nom), mots[3].texte,
               Lignes(scene, nom).value(qRound(Nombre(mots[2])) - 1, u"no line"_s));
  } else {
    throw Echec{u"fichier: what is meant by %1?"_s.arg(quoi.texte)};
  }
}

/// The first column of what a statement finds. What the engine refuses fails the scenario.
QStringList Valeurs(const Scene &scene, const QString &texte, const QStringList &liees = {}) {
  try {
    Base base;
    base.Ouvrir(scene.monde.Base());
    Requete requete(base, texte);
    for (const QString &valeur : liees) requete.Lier(valeur);
    QStringList valeurs;
    while (requete.Suivante())
      valeurs.append(requete.Nul(0) ? QString() : requete.Texte(0) + u""_s);
    return valeurs;
  } catch (const Erreur &erreur) {
    throw Echec{erreur.Texte()};
  }
}

/// Changes one row. A number as a text becomes a number by the affinity of its column.
void Changer(const Scene &scene, const QString &texte, const QStringList &liees) {
  Exiger(Valeurs(scene, texte + u" RETURNING rowid"_s, liees).size() == 1,
         u"a row to change expected, none of this key found"_s);
}

/// The values of `Field=value` words by the names of their fields.
QMap<QString, QString> Champs(const Mots &mots) {
  QMap<QString, QString> valeurs;
  for (const Mot &mot : mots) {
    Exiger(mot.egal > 0, u"Field=\"value\" expected, \"%1\" found"_s.arg(mot.texte));
    const QString valeur = mot.texte.mid(mot.egal + 1);
    valeurs[mot.texte.left(mot.egal)] = mot.cite              ? valeur + u""_s
                                        : valeur == u"nul"_s  ? QString()
                                        : valeur == u"vrai"_s ? u"1"_s
                                        : valeur == u"faux"_s ? u"0"_s
                                                              : valeur + u""_s;
  }
  return valeurs;
}

/// A field that is not named is the empty text, 0 or faux.
void Ajouter(Scene &scene, const Mots &mots) {
  QMap<QString, QString> champs;
  const QString autres =
      u"SELECT name || iif(type = 'TEXT', '=', '=0') FROM pragma_table_info(?) WHERE pk = 0"_s;
  for (const QString &mot : Valeurs(scene, autres, {mots[0].texte}))
    champs[mot.section(u'=', 0, 0)] = mot.section(u'=', 1) + u""_s;
  champs.insert(Champs(mots.sliced(1)));
  Changer(scene,
          u"INSERT INTO [%1] ([%2]) VALUES (%3?)"_s.arg(mots[0].texte, champs.keys().join(u"], ["),
                                                        u"?, "_s.repeated(champs.size() - 1)),
          champs.values());
}

void Modifier(Scene &scene, const Mots &mots) {
  const auto champs = Champs(mots.sliced(2));
  Changer(scene,
          u"UPDATE [%1] SET [%2] = ? WHERE rowid = ?"_s.arg(mots[0].texte,
                                                            champs.keys().join(u"] = ?, [")),
          champs.values() + QStringList{mots[1].texte});
}

void Supprimer(Scene &scene, const Mots &mots) {
  Changer(scene, u"DELETE FROM [%1] WHERE rowid = ?"_s.arg(mots[0].texte), {mots[1].texte});
}

/// Of the row with the key that follows the table. A yes or no is 1 or 0, null a null text.
QString Champ(const Scene &scene, const Mots &mots, const QString &champ) {
  const QStringList valeurs = Valeurs(
      scene, u"SELECT [%1] FROM [%2] WHERE rowid = ?"_s.arg(champ, mots[0].texte), {mots[1].texte});
  Exiger(!valeurs.isEmpty(),
         u"table %1: row %2 expected, none found"_s.arg(mots[0].texte, mots[1].texte));
  return valeurs[0];
}

/// `Field "value"` or `Field=value`, any number of them.
void VerifierChamps(Scene &scene, const Mots &mots) {
  for (qsizetype i = 2; i < mots.size(); ++i) {
    const Mot &mot = mots[i];
    const bool egal = mot.egal > 0;
    Exiger(egal || i + 1 < mots.size(), u"a value of %1 expected"_s.arg(mot.texte));
    const QString nom = egal ? mot.texte.left(mot.egal) : mot.texte;
    QString attendu = egal ? mot.texte.mid(mot.egal + 1) : mots[++i].texte;
    const QString trouve = Champ(scene, mots, nom);
    if (egal && !mot.cite && attendu == u"nul"_s)
      attendu = trouve.isNull() ? u""_s : u"nul"_s;
    else if (attendu == u"vrai"_s || attendu == u"faux"_s)
      attendu = attendu == u"vrai"_s ? u"1"_s : u"0"_s;
    ExigerEgal(nom, attendu, trouve);
  }
}

void VerifierColonne(Scene &scene, const Mots &mots) {
  QStringList valeurs =
      Valeurs(scene, u"SELECT [%1] FROM [%2] ORDER BY rowid"_s.arg(mots[1].texte, mots[0].texte));
  for (QString &valeur : valeurs)
    if (valeur.isNull()) valeur = u"nul"_s;
  ExigerListe(mots[0].texte + u'.' + mots[1].texte, Textes(mots, 2), valeurs);
}

/// All rows, and the files that go with some of them.
QStringList Etat(const Scene &scene) {
  QStringList etat;
  PourChaqueTable([&]<typename L>(Table<L> table) {
    QStringList colonnes;
    for (const char16_t *colonne : NomsColonnes<L>())
      colonnes.append(u"quote(%1)"_s.arg(Entre(colonne)));
    etat += Valeurs(scene, u"SELECT %1 FROM %2"_s.arg(colonnes.join(u"||','||"_s), Nom(table)));
  });
  for (const QString &nom : {u"Defaut.ini"_s, u"Liaison.cfg"_s})
    etat += DepuisPageDeCode(LireFichier(scene.monde.Chemin(nom)).value_or("aucun"));
  return etat;
}

void VerifierEtat(Scene &scene, const Mots &mots) {
  QStringList attendus = scene.etats.value(mots[0].texte), trouves = Etat(scene);
  Exiger(!attendus.isEmpty(), u"state %1 has not been noted"_s.arg(mots[0].texte));
  for (const QString &ligne : QStringList(attendus))
    if (trouves.removeOne(ligne)) attendus.removeOne(ligne);
  ExigerListe(u"state, as far as it differs"_s, attendus, trouves);
}

/// Another program that keeps the database to itself.
Verbe Tenir(const QString &nom, const QString &comment) {
  return {nom, 0, 0, [comment](S &s, const M &) {
            s.autreEcrivain = std::make_unique<Base>();
            s.autreEcrivain->Ouvrir(s.monde.Base());
            Requete(*s.autreEcrivain, comment).Executer();
          }};
}

void Figer(Scene &scene, bool serveur) {
  scene.imprimante.serveurFige = serveur;
  scene.imprimante.gel.Poser(true);
}

}  // namespace

Monde::Monde(const QString &dossier) {
  QDir().mkpath(dossier);
  dossier_ = QFileInfo(dossier).canonicalFilePath();
  for (const QString &partie : {App(), Home()})
    Exiger(!QFileInfo::exists(partie) && QDir().mkpath(partie),
           u"\"%1\" cannot be made anew"_s.arg(partie));
  // Stories begin with the looks of the program itself, unless they ask for the delivered ones.
  for (const QString &nom : QDir(Livre({})).entryList(QDir::Files))
    if (nom != kApparence) Copier(Livre(nom), App() + u'/' + nom);
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

QList<Verbe> VerbesDuMonde() {
  return {
      {u"monde installe"_s, 0, 0, Installer},
      {u"monde type"_s, 0, 0, InstallerType},
      {u"monde fichier"_s, 1, kSansLimite, Ecrire},
      {u"monde copie"_s, 2, 2, [](S &s, const M &m) { CopierDACote(s, m[0].texte, m[1].texte); }},
      {u"monde base"_s, 1, 1,
       [](S &s, const M &m) {
         CopierDACote(s, m[0].texte, s.monde.Donnees() + u"/Velmira.mdb"_s);
       }},
      {u"monde apparence-livree"_s, 0, 0,
       [](S &s, const M &) { Copier(Livre(kApparence), AuRepos(s).App() + u'/' + kApparence); }},
      {u"monde nouvelle-base"_s, 0, 0,
       [](S &s, const M &) {
         Copier(Livre(u"Velmira_base.mdb"_s), AuRepos(s).App() + u"/Velmira_base.mdb"_s);
       }},
      SurChemins(u"monde dossier"_s, [](const QString &c) { return QDir().mkpath(c); }),
      SurChemins(u"monde efface"_s, [](const QString &c) { return QFile::remove(c); }),
      // Opens and cannot be read, also by the superuser.
      SurChemins(u"monde illisible"_s,
                 [](const QString &c) { return Lier(u"/proc/self/mem"_s, c); }),
      // Leads nowhere: not even what it is can be told.
      SurChemins(u"monde sans-acces"_s, [](const QString &c) { return Lier(c, c); }),
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
      {u"monde imprimante-incertaine"_s, 0, kSansLimite,
       [](S &s, const M &m) { s.imprimante.incertaines = Textes(m, 0); }},
      {u"monde serveur-muet"_s, 0, 0, [](S &s, const M &) { s.imprimante.repond = false; }},
      {u"monde serveur-present"_s, 0, 0, [](S &s, const M &) { s.imprimante.repond = true; }},
      {u"monde serveur-fige"_s, 0, 0, [](S &s, const M &) { Figer(s, true); }},
      {u"monde imprimante-figee"_s, 0, 0, [](S &s, const M &) { Figer(s, false); }},
      {u"monde imprimante-degelee"_s, 0, 0, [](S &s, const M &) { s.imprimante.Degeler(); }},
      {u"monde sans-programme"_s, 0, 1,
       [](S &s, const M &m) {
         if (const Monde &monde = AuRepos(s); m.isEmpty())
           s.coquille.inerte = true;
         else
           s.coquille.absents.append(monde.Chemin(m[0].texte));
       }},
      {u"ligne"_s, 1, kSansLimite, Ajouter},
      {u"champ-ecrit"_s, 3, kSansLimite, Modifier},
      {u"ligne-efface"_s, 2, 2, Supprimer},
      Valeur(u"lignes"_s, 2,
             [](S &s, const M &m) {
               return Valeurs(s, u"SELECT count(*) FROM [%1]"_s.arg(m[0].texte)).value(0);
             }),
      {u"champ"_s, 3, kSansLimite, VerifierChamps},
      {u"nul"_s, 3, 3,
       [](S &s, const M &m) {
         Exiger(Champ(s, m, m[2].texte).isNull(), u"%1: nul expected"_s.arg(m[2].texte));
       }},
      {u"colonne"_s, 2, kSansLimite, VerifierColonne},
      {u"etat-note"_s, 1, 1, [](S &s, const M &m) { s.etats[m[0].texte] = Etat(s); }},
      {u"etat"_s, 1, 1, VerifierEtat},
      Tenir(u"base-occupee"_s, u"BEGIN IMMEDIATE"_s),
      Tenir(u"base-bloquee"_s, u"BEGIN EXCLUSIVE"_s),
      {u"base-libre"_s, 0, 0, [](S &s, const M &) { s.autreEcrivain.reset(); }},
      {u"base-abimee"_s, 1, 1,
       [](S &s, const M &m) {
         constexpr qsizetype kPage = 4096;
         auto octets = LireFichierPresent(AuRepos(s).Base());
         const qsizetype place = octets.indexOf(m[0].texte.toUtf8());
         Exiger(place >= 0, u"\"%1\" expected in the database"_s.arg(m[0].texte));
         EcrireOctets(s.monde.Base(),
                      octets.replace(place / kPage * kPage, kPage, QByteArray(kPage, '\0')));
       }},
      {u"base-illisible"_s, 0, 0,
       [](S &s, const M &) {
         QFile fichier(s.monde.Base());
         Exiger(fichier.open(QFile::ReadWrite) && fichier.write(QByteArray(4096, 'x')) > 0,
                u"the database cannot be written"_s);
       }},
  };
}
