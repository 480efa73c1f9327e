#include "player/Echec.h"
#include "player/Lignes.h"
#include "player/Verbes.h"

using namespace Qt::StringLiterals;

namespace {

/// The world changes only while nobody works in it.
const Monde &MondeAuRepos(const Scene &scene) {
  Exiger(!scene.EnMarche(), u"a program that is closed expected, it is running"_s);
  return scene.monde;
}

LignesDuMonde Lignes(const Scene &scene) {
  return LignesDuMonde(scene.monde.Base());
}

void Occuper(Scene &scene, AutreEcrivain::Verrou verrou) {
  scene.autreEcrivain.reset();
  scene.autreEcrivain.emplace(scene.monde.Base(), verrou);
}

void MettreJour(Scene &scene, const Mots &mots) {
  const QDate jour = QDate::fromString(mots[0].texte, u"dd/MM/yyyy"_s);
  Exiger(jour.isValid(), u"a day jj/mm/aaaa expected, \"%1\" found"_s.arg(mots[0].texte));
  scene.horloge.Aller(QDateTime(jour, scene.horloge.Maintenant().time()));
}

void MettreHeure(Scene &scene, const Mots &mots) {
  const QTime heure = QTime::fromString(mots[0].texte, u"hh:mm"_s);
  Exiger(heure.isValid(), u"a time hh:mm expected, \"%1\" found"_s.arg(mots[0].texte));
  scene.horloge.Aller(QDateTime(scene.horloge.Maintenant().date(), heure));
}

void Repondre(Scene &scene, const Mots &mots) {
  const Mot &mot = mots[0];
  const bool mot4 = mot.Est(u"oui") || mot.Est(u"non") || mot.Est(u"annuler") || mot.Est(u"ok");
  scene.boites.Prevoir({mot.texte, !mot4});
}

void MettreModem(Scene &scene, const Mots &mots) {
  scene.port.Brancher();
  if (!mots[0].Est(u"ouvert")) scene.port.Prevoir(mots[0].texte.toLatin1());
}

}  // namespace

QList<Verbe> VerbesDuMonde() {
  using S = Scene;
  using M = Mots;
  constexpr auto kSansLimite = Verbe::kSansLimite;
  return {
      {u"monde installe"_s, 0, 0, [](S &s, const M &) { MondeAuRepos(s).Installer(); }},
      {u"monde fichier"_s, 1, kSansLimite,
       [](S &s, const M &m) { MondeAuRepos(s).Ecrire(m[0].texte, Textes(m, 1)); }},
      {u"monde copie"_s, 2, 2,
       [](S &s, const M &m) {
         MondeAuRepos(s).CopierDepuisScenario(m[0].texte, s.monde.Chemin(m[1].texte));
       }},
      {u"monde base"_s, 1, 1,
       [](S &s, const M &m) {
         MondeAuRepos(s).CopierDepuisScenario(m[0].texte, s.monde.Donnees() + u"/Velmira.mdb"_s);
       }},
      {u"monde nouvelle-base"_s, 0, 0, [](S &s, const M &) { MondeAuRepos(s).LivrerBase(); }},
      {u"monde dossier"_s, 1, 1,
       [](S &s, const M &m) { MondeAuRepos(s).CreerDossier(m[0].texte); }},
      {u"monde illisible"_s, 1, 1,
       [](S &s, const M &m) { MondeAuRepos(s).RendreIllisible(m[0].texte); }},
      {u"monde tube"_s, 1, 1, [](S &s, const M &m) { MondeAuRepos(s).PoserTube(m[0].texte); }},
      {u"monde sans-acces"_s, 1, 1,
       [](S &s, const M &m) { MondeAuRepos(s).FermerLAcces(m[0].texte); }},
      {u"monde efface"_s, 1, 1, [](S &s, const M &m) { MondeAuRepos(s).Effacer(m[0].texte); }},
      {u"monde imprimante"_s, 0, kSansLimite,
       [](S &s, const M &m) {
         MondeAuRepos(s);
         s.imprimante.Installer(Textes(m, 0));
       }},
      {u"monde imprimante-muette"_s, 0, kSansLimite,
       [](S &s, const M &m) { s.imprimante.Refuser(Textes(m, 0)); }},
      {u"monde serveur-muet"_s, 0, 0, [](S &s, const M &) { s.imprimante.Repondre(false); }},
      {u"monde serveur-present"_s, 0, 0, [](S &s, const M &) { s.imprimante.Repondre(true); }},
      {u"monde sans-programme"_s, 0, 1,
       [](S &s, const M &m) {
         if (const Monde &monde = MondeAuRepos(s); m.isEmpty())
           s.coquille.Desinstaller();
         else
           s.coquille.Desinstaller(monde.Chemin(m[0].texte));
       }},
      {u"ligne"_s, 1, kSansLimite,
       [](S &s, const M &m) { Lignes(s).Ajouter(m[0].texte, m.sliced(1)); }},
      {u"champ-ecrit"_s, 3, kSansLimite,
       [](S &s, const M &m) { Lignes(s).Ecrire(m[0].texte, Nombre(m[1]), m.sliced(2)); }},
      {u"ligne-efface"_s, 2, 2,
       [](S &s, const M &m) { Lignes(s).Effacer(m[0].texte, Nombre(m[1])); }},
      {u"base-occupee"_s, 0, 0,
       [](S &s, const M &) { Occuper(s, AutreEcrivain::Verrou::Ecriture); }},
      {u"base-bloquee"_s, 0, 0,
       [](S &s, const M &) { Occuper(s, AutreEcrivain::Verrou::Exclusif); }},
      {u"base-libre"_s, 0, 0, [](S &s, const M &) { s.autreEcrivain.reset(); }},
      {u"base-illisible"_s, 0, 0, [](S &s, const M &) { s.monde.AbimerBase(); }},
      {u"jour"_s, 1, 1, MettreJour},
      {u"heure"_s, 1, 1, MettreHeure},
      {u"utilisateur"_s, 1, 1,
       [](S &s, const M &m) {
         MondeAuRepos(s);
         s.utilisateur = m[0].texte;
       }},
      {u"demarrer"_s, 0, 0, [](S &s, const M &) { s.Demarrer(); }},
      {u"fermer"_s, 0, 0, [](S &s, const M &) { s.Fermer(); }},
      {u"relancer"_s, 0, 0,
       [](S &s, const M &) {
         s.Fermer();
         s.Demarrer();
       }},
      {u"attendre"_s, 1, 1,
       [](S &s, const M &m) { s.horloge.Avancer(std::chrono::milliseconds(Nombre(m[0]))); }},
      {u"pendant-pause"_s, 1, kSansLimite,
       [](S &s, const M &m) {
         s.horloge.PendantPause([&s, commande = Commande{0, {}, m[0].texte, m.sliced(1)}] {
           try {
             Executer(s, commande);
           } catch (const Echec &echec) {
             s.Noter(echec.texte);
           }
         });
       }},
      {u"reponse"_s, 1, 1, Repondre},
      {u"modem"_s, 1, 1, MettreModem},
  };
}
