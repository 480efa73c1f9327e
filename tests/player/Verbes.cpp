#include "player/Verbes.h"

#include "platform/Fichiers.h"
#include "player/Gestes.h"
#include "ui/Bulle.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPixmap>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

using S = Scene;
using M = Mots;

namespace {

const Verbe &TrouverVerbe(const QString &nom) {
  static const QHash<QString, Verbe> kVerbes = [] {
    QHash<QString, Verbe> verbes;
    for (const auto &groupe :
         {VerbesDuMonde(), VerbesDesGestes(), VerbesDesControles(), VerbesDesTraces()})
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

Controle Atteindre(const Scene &scene, const Mots &mots) {
  return scene.ecran.Atteindre(mots[0].texte);
}

Controle Trouver(const Scene &scene, const Mots &mots) {
  return scene.ecran.Trouver(mots[0].texte);
}

Verbe ClicSurNoeud(const QString &nom, Clic clic) {
  return {nom, 2, 2,
          [clic](S &s, const M &m) {
            const Controle arbre = Atteindre(s, m);
            CliquerElement(arbre, arbre.Element(m[1]), clic);
          },
          true};
}

Verbe ClicSurControle(const QString &nom, Clic clic) {
  return {nom, 1, 1, [clic](S &s, const M &m) { Cliquer(Atteindre(s, m), clic); }, true};
}

void MettreCase(Scene &scene, const Mots &mots, bool etat) {
  const Controle controle = Atteindre(scene, mots);
  if (mots.size() == 1) {
    if (controle.EstCoche() != etat) Cliquer(controle, Clic::Simple);
    return LaisserPasser();
  }
  const QPersistentModelIndex element = controle.Element(mots[1]);
  if (EstCoche(element) != etat) CliquerCase(controle, element);
  LaisserPasser();
  Exiger(!element.isValid() || EstCoche(element) == etat,
         u"%1, box of \"%2\": a click changes nothing"_s.arg(controle.nom, mots[1].texte));
}

/// Files of the world by their names, addresses as they stand.
void DeposerFichiers(Scene &scene, const Mots &mots) {
  QList<QUrl> adresses;
  for (const QString &nom : Textes(mots, 1))
    adresses.append(nom.contains(u"://"_s) ? QUrl(nom)
                                           : QUrl::fromLocalFile(scene.monde.Chemin(nom)));
  Deposer(Atteindre(scene, mots), adresses);
}

void Capturer(Scene &scene, const Mots &mots) {
  QWidget *fenetre = scene.ecran.Active();
  for (const QWidget *autre : QApplication::topLevelWidgets())
    if (autre->objectName().startsWith(u"Frm"_s)) Mesurer(mots[0].texte, *autre, scene.mesures);
  if (scene.captures.isEmpty()) return;
  const QString chemin = QDir(scene.captures).filePath(mots[0].texte + u".png"_s);
  Exiger(QDir().mkpath(scene.captures) && fenetre->grab().save(chemin),
         u"\"%1\" cannot be written"_s.arg(chemin));
}

/// A state of one or several controls.
Verbe Etat(const QString &nom, bool (Controle::*lire)() const, bool attendu) {
  return {nom, 1, kSansLimite, [nom, lire, attendu](S &s, const M &m) {
            for (const Mot &mot : m)
              Exiger((s.ecran.Trouver(mot.texte).*lire)() == attendu,
                     u"%1: %2 expected, the contrary found"_s.arg(mot.texte, nom));
          }};
}

Verbe Case(const QString &nom, bool attendu) {
  return {nom, 1, 2, [nom, attendu](S &s, const M &m) {
            const Controle controle = Trouver(s, m);
            if (m.size() == 2)
              Exiger(CocheEstPeinte(controle, controle.Element(m[1])) == attendu,
                     u"%1: what is painted in the box is not %2"_s.arg(EnListe(Textes(m, 0)), nom));
            const bool trouve =
                m.size() == 1 ? controle.EstCoche() : EstCoche(controle.Element(m[1]));
            Exiger(trouve == attendu,
                   u"%1: %2 expected, the contrary found"_s.arg(EnListe(Textes(m, 0)), nom));
          }};
}

/// What is read of a control as a text.
Verbe Lecture(const QString &nom, QString (Controle::*lire)() const) {
  return {nom, 2, kSansLimite, [lire](S &s, const M &m) {
            for (qsizetype i = 0; i + 1 < m.size(); i += 2)
              ExigerEgal(m[i].texte, m[i + 1].texte, (s.ecran.Trouver(m[i].texte).*lire)());
          }};
}

void VerifierPolice(Scene &scene, const Mots &mots) {
  const QFont police = Trouver(scene, mots).Police();
  if (!mots[1].Joker()) ExigerEgal(mots[0].texte, mots[1].texte, police.family());
  Exiger(std::abs(police.pointSizeF() - NombreDecimal(mots[2])) < 0.05,
         u"%1: %2 points expected, %3 found"_s.arg(mots[0].texte, mots[2].texte)
             .arg(police.pointSizeF()));
}

/// The control wants the room that this text takes in its font.
void VerifierPlace(Scene &scene, const Mots &mots) {
  const Controle controle = Trouver(scene, mots);
  const int largeur = QFontMetrics(controle.Police()).horizontalAdvance(mots[1].texte);
  const int voulue = controle.Widget()->sizeHint().width();
  Exiger(std::abs(voulue - largeur) <= 2,
         u"%1: %2 pixels wide expected, %3 found"_s.arg(controle.nom).arg(largeur).arg(voulue));
}

/// The control is as high as its lines are.
void VerifierEntier(Scene &scene, const Mots &mots) {
  const Controle controle = Trouver(scene, mots);
  const QWidget *widget = controle.Widget();
  const int voulue = widget->heightForWidth(widget->width());
  Exiger(widget->height() >= voulue, u"%1: %2 pixels high expected, %3 found"_s.arg(controle.nom)
                                         .arg(voulue)
                                         .arg(widget->height()));
}

/// Whether this colour is painted anywhere on the control.
Verbe Encre(const QString &nom, bool attendue) {
  return {nom, 2, 2, [nom, attendue](S &s, const M &m) {
            const QImage image = Trouver(s, m).Widget()->grab().toImage();
            bool trouvee = false;
            for (int y = 0; y < image.height() && !trouvee; ++y)
              for (int x = 0; x < image.width() && !trouvee; ++x)
                trouvee = image.pixel(x, y) == QColor(m[1].texte).rgb();
            Exiger(trouvee == attendue, u"%1: %2 %3 expected"_s.arg(m[0].texte, nom, m[1].texte));
          }};
}

void VerifierElements(Scene &scene, const Mots &mots) {
  ExigerListe(mots[0].texte, Textes(mots, 1), Textes(Trouver(scene, mots).Elements()));
}

void VerifierIndex(Scene &scene, const Mots &mots) {
  const Controle controle = Trouver(scene, mots);
  const QModelIndexList choisis = controle.Selection();
  const qsizetype index =
      choisis.isEmpty() ? -1 : controle.Elements().indexOf(choisis.constFirst());
  ExigerEgal(mots[0].texte, mots[1].texte, QString::number(index));
}

const Bulle &BulleDe(const Scene &scene, const Mots &mots) {
  const auto *bulle = Trouver(scene, mots)
                          .Widget()
                          ->findChild<const Bulle *>(QString(), Qt::FindDirectChildrenOnly);
  Exiger(bulle != nullptr, u"%1 has no tip"_s.arg(mots[0].texte));
  return *bulle;
}

Verbe BulleMontree(const QString &nom, bool attendue) {
  return {nom, 1, 1, [nom, attendue](S &s, const M &m) {
            Exiger(BulleDe(s, m).EstMontree() == attendue, nom + u" expected"_s);
          }};
}

void VerifierBulle(Scene &scene, const Mots &mots) {
  const AspectBulle &aspect = BulleDe(scene, mots).Aspect();
  ExigerListe(
      u"tip of "_s + mots[0].texte,
      {mots[1].texte, mots[2].texte.toLower(), mots[3].texte.toLower()},
      {aspect.texte, QColor(aspect.teinte.fond).name(), QColor(aspect.teinte.encre).name()});
}

void VerifierFenetre(Scene &scene, const Mots &mots) {
  const QWidget *fenetre = scene.ecran.Active();
  if (!mots[0].Joker()) ExigerEgal(u"active window"_s, mots[0].texte, fenetre->objectName());
  if (mots.size() > 1 && !mots[1].Joker())
    ExigerEgal(u"title of "_s + fenetre->objectName(), mots[1].texte, fenetre->windowTitle());
}

Verbe Montree(const QString &nom, bool attendue) {
  return {nom, 1, 1, [nom, attendue](S &, const M &m) {
            const QWidget *fenetre = Ecran::Fenetre(m[0].texte);
            const bool montree = fenetre && fenetre->isVisible() && !fenetre->isMinimized();
            Exiger(montree == attendue && m[0].texte.startsWith(u"Frm"_s),
                   u"%1: %2 expected"_s.arg(m[0].texte, nom));
          }};
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
      {u"demarrer"_s, 0, 0, [](S &s, const M &) { s.Demarrer(); }, true},
      {u"fermer"_s, 0, 0, [](S &s, const M &) { s.Fermer(); }, true},
      {u"relancer"_s, 0, 0,
       [](S &s, const M &) {
         s.Fermer();
         s.VerifierToutVu();
         s.Demarrer();
       },
       true},
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

QList<Verbe> VerbesDesGestes() {
  return {
      ClicSurControle(u"clic"_s, Clic::Simple),
      ClicSurControle(u"double"_s, Clic::Double),
      ClicSurControle(u"droit"_s, Clic::Droit),
      ClicSurNoeud(u"noeud"_s, Clic::Simple),
      ClicSurNoeud(u"double-noeud"_s, Clic::Double),
      ClicSurNoeud(u"droit-noeud"_s, Clic::Droit),
      {u"cocher"_s, 1, 2, [](S &s, const M &m) { MettreCase(s, m, true); }, true},
      {u"decocher"_s, 1, 2, [](S &s, const M &m) { MettreCase(s, m, false); }, true},
      {u"choisir"_s, 2, 2, [](S &s, const M &m) { Choisir(Atteindre(s, m), m[1], true); }, true},
      {u"retirer"_s, 2, 2, [](S &s, const M &m) { Choisir(Atteindre(s, m), m[1], false); }, true},
      {u"derouler"_s, 1, 1, [](S &s, const M &m) { Derouler(Atteindre(s, m)); }, true},
      {u"taper"_s, 2, 2, [](S &s, const M &m) { Taper(Atteindre(s, m), m[1].texte, true); }, true},
      {u"ajouter"_s, 2, 2, [](S &s, const M &m) { Taper(Atteindre(s, m), m[1].texte, false); },
       true},
      {u"touche"_s, 2, 2, [](S &s, const M &m) { Toucher(Atteindre(s, m), m[1].texte); }, true},
      {u"glisser"_s, 3, 3,
       [](S &s, const M &m) { Glisser(Atteindre(s, m), NombreDecimal(m[1]), NombreDecimal(m[2])); },
       true},
      {u"deposer"_s, 2, kSansLimite, DeposerFichiers, true},
      {u"quitter"_s, 1, 1, [](S &s, const M &m) { Quitter(Atteindre(s, m)); }, true},
      {u"survoler"_s, 1, 1, [](S &s, const M &m) { Survoler(Atteindre(s, m)); }, true},
      {u"fermer-fenetre"_s, 0, 0, [](S &s, const M &) { s.ecran.Active()->close(); }, true},
      {u"capture"_s, 1, 1, Capturer},
  };
}

QList<Verbe> VerbesDesControles() {
  using C = Controle;
  return {
      Lecture(u"egal"_s, &C::Texte),
      Lecture(u"couleur"_s, &C::CouleurTexte),
      Lecture(u"fond"_s, &C::CouleurFond),
      Lecture(u"alignement"_s, &C::Alignement),
      Etat(u"visible"_s, &C::EstVisible, true),
      Etat(u"cache"_s, &C::EstVisible, false),
      Etat(u"actif"_s, &C::EstActif, true),
      Etat(u"inactif"_s, &C::EstActif, false),
      Etat(u"gras"_s, &C::EstGras, true),
      Etat(u"maigre"_s, &C::EstGras, false),
      Etat(u"focus"_s, &C::ALeFoyer, true),
      Case(u"coche"_s, true),
      Case(u"decoche"_s, false),
      Encre(u"encre"_s, true),
      Encre(u"sans-encre"_s, false),
      Etat(u"chasse-fixe"_s, &C::AChasseFixe, true),
      Etat(u"debut"_s, &C::MontreSonDebut, true),
      {u"police"_s, 3, 3, VerifierPolice},
      {u"place"_s, 2, 2, VerifierPlace},
      {u"entier"_s, 1, 1, VerifierEntier},
      {u"items"_s, 1, kSansLimite, VerifierElements},
      {u"noeuds"_s, 1, kSansLimite, VerifierElements},
      {u"items-contient"_s, 2, 2, [](S &s, const M &m) { Trouver(s, m).Element(m[1]); }},
      {u"items-nombre"_s, 2, 2,
       [](S &s, const M &m) {
         ExigerEgal(m[0].texte, m[1].texte, QString::number(Trouver(s, m).Elements().size()));
       }},
      {u"index"_s, 2, 2, VerifierIndex},
      {u"selection"_s, 2, kSansLimite,
       [](S &s, const M &m) {
         ExigerListe(m[0].texte, m[1].Est(u"rien") ? QStringList() : Textes(m, 1),
                     Textes(Trouver(s, m).Selection()));
       }},
      {u"en-haut"_s, 2, 2,
       [](S &s, const M &m) {
         ExigerEgal(m[0].texte, m[1].texte, Trouver(s, m).Vue()->indexAt({0, 0}).data().toString());
       }},
      {u"tag"_s, 3, 3,
       [](S &s, const M &m) {
         ExigerEgal(m[1].texte, m[2].texte,
                    Trouver(s, m).Element(m[1]).data(Qt::UserRole).toString());
       }},
      {u"bulle"_s, 4, 4, VerifierBulle},
      BulleMontree(u"bulle-montree"_s, true),
      BulleMontree(u"bulle-cachee"_s, false),
      {u"fenetre"_s, 1, 2, VerifierFenetre},
      Montree(u"montree"_s, true),
      Montree(u"cachee"_s, false),
  };
}
