#include "player/Verbes.h"

#include "platform/Fichiers.h"

#include <QHash>

using namespace Qt::StringLiterals;

using S = Scene;
using M = Mots;

namespace {

const Verbe &TrouverVerbe(const QString &nom) {
  static const QHash<QString, Verbe> kVerbes = [] {
    QHash<QString, Verbe> verbes;
    QList<Verbe> actes = VerbesDesGestes();
    for (Verbe &acte : actes) acte.acte = true;
    for (const auto &groupe : {VerbesDuMonde(), actes, VerbesDesControles(), VerbesDesTraces()})
      for (const Verbe &verbe : groupe) verbes.insert(verbe.nom, verbe);
    return verbes;
  }();
  const auto verbe = kVerbes.constFind(nom);
  Exiger(verbe != kVerbes.cend(), u"unknown verb \"%1\""_s.arg(nom));
  return *verbe;
}

/// The world changes only while nobody works in it.
const Monde &AuRepos(const Scene &scene) {
  Exiger(!scene.EnMarche(), u"a program that is closed expected, it is running"_s);
  return scene.monde;
}

/// Does the same to each of the files that it names.
Verbe SurFichiers(const QString &nom, void (Monde::*faire)(const QString &) const) {
  return {nom, 1, kSansLimite, [faire](S &s, const M &m) {
            for (const Mot &mot : m) (AuRepos(s).*faire)(mot.texte);
          }};
}

/// The world that most stories begin in, told in the language too.
void InstallerType(Scene &scene, const Mots &) {
  const auto texte = LireFichier(QStringLiteral(VELMIRA_MONDE_TYPE));
  for (const Commande &commande : Analyser(QString::fromUtf8(texte.value_or(QByteArray()))))
    Executer(scene, commande);
}

void MettreInstant(Scene &scene, const Mot &mot, const QString &forme) {
  const bool jour = forme == u"dd/MM/yyyy"_s;
  QDateTime instant = scene.horloge.Maintenant();
  const QDate date = QDate::fromString(mot.texte, forme);
  const QTime heure = QTime::fromString(mot.texte, forme);
  Exiger(jour ? date.isValid() : heure.isValid(),
         u"%1 expected, \"%2\" found"_s.arg(forme, mot.texte));
  jour ? instant.setDate(date) : instant.setTime(heure);
  scene.horloge.Aller(instant);
}

void PendantPause(Scene &scene, const Mots &mots) {
  scene.horloge.PendantPause([&scene, commande = Commande{0, {}, mots[0].texte, mots.sliced(1)}] {
    try {
      Executer(scene, commande);
    } catch (const Echec &echec) {
      scene.journal.fautes.append(echec.texte);
    }
  });
}

/// Queues answers for the boxes to come.
void Prevoir(Scene &scene, const Mots &mots) {
  for (const Mot &mot : mots) {
    const bool bouton = mot.Est(u"oui") || mot.Est(u"non") || mot.Est(u"annuler") || mot.Est(u"ok");
    scene.journal.reponses.push_back({mot.texte, !bouton});
  }
}

}  // namespace

void Executer(Scene &scene, const Commande &commande) {
  Mots mots = commande.mots;
  for (Mot &mot : mots) mot.texte = scene.monde.Completer(mot.texte);
  QString nom = commande.verbe;
  bool nombre = false;
  if (!mots.isEmpty()) mots.first().texte.toInt(&nombre);
  const bool deuxMots = nom == u"monde"_s || nom == u"apercu"_s || nom == u"classeur"_s ||
                        (nom == u"page"_s && !nombre);
  if (deuxMots && !mots.isEmpty()) nom += u' ' + mots.takeFirst().texte;

  const Verbe &verbe = TrouverVerbe(nom);
  Exiger(mots.size() >= verbe.minimum && mots.size() <= verbe.maximum,
         u"%1, words behind it: %2 to %3 expected, %4 found"_s.arg(nom)
             .arg(verbe.minimum)
             .arg(verbe.maximum)
             .arg(mots.size()));
  if (verbe.acte) {
    scene.VerifierToutVu();
    scene.journal.boites.clear();
  }
  verbe.faire(scene, mots);
}

int Nombre(const Mot &mot) {
  bool nombre = false;
  const int valeur = mot.texte.toInt(&nombre);
  Exiger(nombre, u"a number expected, \"%1\" found"_s.arg(mot.texte));
  return valeur;
}

double NombreDecimal(const Mot &mot) {
  bool nombre = false;
  const double valeur = mot.texte.toDouble(&nombre);
  Exiger(nombre, u"a number expected, \"%1\" found"_s.arg(mot.texte));
  return valeur;
}

QStringList Textes(const Mots &mots, qsizetype premier) {
  QStringList textes;
  for (const Mot &mot : mots.sliced(premier)) textes.append(mot.texte);
  return textes;
}

QList<Verbe> VerbesDuMonde() {
  return {
      {u"monde installe"_s, 0, 0, [](S &s, const M &) { AuRepos(s).Installer(); }},
      {u"monde type"_s, 0, 0, InstallerType},
      {u"monde fichier"_s, 1, kSansLimite,
       [](S &s, const M &m) { AuRepos(s).Ecrire(m[0].texte, Textes(m, 1)); }},
      {u"monde copie"_s, 2, 2,
       [](S &s, const M &m) { AuRepos(s).CopierDepuisScenario(m[0].texte, m[1].texte); }},
      {u"monde base"_s, 1, 1,
       [](S &s, const M &m) {
         AuRepos(s).CopierDepuisScenario(m[0].texte, s.monde.Donnees() + u"/Velmira.mdb"_s);
       }},
      {u"monde nouvelle-base"_s, 0, 0, [](S &s, const M &) { AuRepos(s).LivrerBase(); }},
      SurFichiers(u"monde dossier"_s, &Monde::CreerDossier),
      SurFichiers(u"monde illisible"_s, &Monde::RendreIllisible),
      SurFichiers(u"monde tube"_s, &Monde::PoserTube),
      SurFichiers(u"monde sans-acces"_s, &Monde::FermerLAcces),
      SurFichiers(u"monde efface"_s, &Monde::Effacer),
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
      {u"ligne"_s, 1, kSansLimite,
       [](S &s, const M &m) { s.monde.Ajouter(m[0].texte, m.sliced(1)); }},
      {u"champ-ecrit"_s, 3, kSansLimite,
       [](S &s, const M &m) { s.monde.Modifier(m[0].texte, Nombre(m[1]), m.sliced(2)); }},
      {u"ligne-efface"_s, 2, 2,
       [](S &s, const M &m) { s.monde.Supprimer(m[0].texte, Nombre(m[1])); }},
      {u"base-occupee"_s, 0, 0,
       [](S &s, const M &) { s.autreEcrivain.emplace(s.monde.Base(), false); }},
      {u"base-bloquee"_s, 0, 0,
       [](S &s, const M &) { s.autreEcrivain.emplace(s.monde.Base(), true); }},
      {u"base-libre"_s, 0, 0, [](S &s, const M &) { s.autreEcrivain.reset(); }},
      {u"base-illisible"_s, 0, 0, [](S &s, const M &) { s.monde.AbimerBase(); }},
      {u"jour"_s, 1, 1, [](S &s, const M &m) { MettreInstant(s, m[0], u"dd/MM/yyyy"_s); }},
      {u"heure"_s, 1, 1, [](S &s, const M &m) { MettreInstant(s, m[0], u"hh:mm"_s); }},
      {u"utilisateur"_s, 1, 1,
       [](S &s, const M &m) {
         AuRepos(s);
         s.utilisateur = m[0].texte;
       }},
      {u"attendre"_s, 1, 1,
       [](S &s, const M &m) { s.horloge.Avancer(std::chrono::milliseconds(Nombre(m[0]))); }},
      {u"pendant-pause"_s, 1, kSansLimite, PendantPause},
      {u"reponse"_s, 1, kSansLimite, Prevoir},
      {u"modem"_s, 1, 1,
       [](S &s, const M &m) {
         s.port.branche = true;
         if (!m[0].Est(u"ouvert")) s.journal.reponsesModem.push_back(m[0].texte.toLatin1());
       }},
  };
}
