// The verbs of what the program tells the system, and what it is answered.

#include "envelope/FrmVueAV.h"
#include "player/Echec.h"
#include "player/Verbes.h"

#include <QColor>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

#include <cmath>

using namespace Qt::StringLiterals;

using S = Scene;
using M = Mots;

namespace {

template <typename Trace>
Trace Premiere(std::deque<Trace> &traces, const QString &attendu) {
  Exiger(!traces.empty(), attendu + u" expected, none found"_s);
  Trace premiere = std::move(traces.front());
  traces.pop_front();
  return premiere;
}

/// What was foreseen by an answer needs no check.
BoiteVue PremiereBoite(Scene &scene, const Mot &genre) {
  BoiteVue boite;
  do boite = Premiere(scene.journal.boites, u"box "_s + genre.texte);
  while (boite.repondue && !genre.Joker() && boite.genre != genre.texte);
  return boite;
}

void VerifierBoite(Scene &scene, const Mots &mots) {
  const auto boite = PremiereBoite(scene, mots[0]);
  QStringList attendus = Textes(mots, 0), trouves{boite.genre, boite.titre, boite.texte};
  for (qsizetype i = 0; i < trouves.size(); ++i)
    if (mots[i].Joker()) attendus[i] = trouves[i];
  if (mots.size() > 3) trouves += {u"defaut"_s, boite.defaut};
  ExigerListe(u"box"_s, attendus, trouves);
}

/// Queues answers for the boxes to come.
void Prevoir(Scene &scene, const Mots &mots) {
  for (const Mot &mot : mots) {
    const bool bouton = mot.Est(u"oui") || mot.Est(u"non") || mot.Est(u"annuler") || mot.Est(u"ok");
    scene.journal.reponses.push_back({mot.texte, !bouton});
  }
}

void Aller(Scene &scene, const QDate &jour, const QTime &heure) {
  Exiger(jour.isValid() && heure.isValid(), u"a day dd/mm/yyyy or a time hh:mm expected"_s);
  scene.horloge.Aller({jour, heure});
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

void VerifierDemarrage(Scene &scene, const Mots &mots) {
  const bool trouve = QFileInfo::exists(scene.demarrage.Chemin(mots[0].texte));
  ExigerEgal(u"\"%1\" in the start list"_s.arg(mots[0].texte), mots[1].texte,
             trouve ? u"present"_s : u"absent"_s);
}

void CompterPages(Scene &scene, int nombre) {
  scene.pages = std::exchange(scene.journal.pages, {});
  scene.page = scene.pages.size() - 1;
  ExigerEgal(u"pages"_s, QString::number(nombre), QString::number(scene.pages.size()));
}

/// One that has not been counted must be the only one.
const PageImprimee &Page(Scene &scene) {
  if (!scene.journal.pages.isEmpty()) CompterPages(scene, 1);
  Exiger(scene.page >= 0 && scene.page < scene.pages.size(),
         u"page %1 expected, %2 were counted"_s.arg(scene.page + 1).arg(scene.pages.size()));
  return scene.pages[scene.page];
}

using Lignes = QList<LigneImprimee>;

/// The lines of the page, or of the preview in millimetres of the envelope.
Lignes LignesDe(Scene &scene, bool apercu) {
  if (!apercu) return Page(scene).lignes;
  constexpr double kReduction = 1.18;
  const auto *fenetre = qobject_cast<const FrmVueAV *>(scene.ecran.Active());
  Exiger(fenetre != nullptr, u"FrmVueAV expected as the active window"_s);
  Lignes lignes;
  for (const LignePlacee &ligne : fenetre->Lignes())
    lignes.append({ligne.texte, Millimetres(ligne.x.valeur * kReduction),
                   Millimetres(ligne.y.valeur * kReduction), ligne.police});
  return lignes;
}

QStringList TextesDe(const Lignes &lignes) {
  QStringList textes;
  for (const LigneImprimee &ligne : lignes) textes.append(ligne.texte);
  return textes;
}

/// One of the lines of this text is as expected; `dire` tells what the others are.
template <typename Convient, typename Dire>
void ExigerLigne(const Lignes &lignes, const Mots &mots, Convient convient, Dire dire) {
  QStringList trouvees;
  for (const LigneImprimee &ligne : lignes) {
    if (ligne.texte != mots[0].texte) continue;
    if (convient(ligne)) return;
    trouvees.append(dire(ligne));
  }
  throw Echec{u"%1 expected, %2 found"_s.arg(
      EnListe(Textes(mots, 0)), EnListe(trouvees.isEmpty() ? TextesDe(lignes) : trouvees))};
}

void VerifierPlace(const Lignes &lignes, const Mots &mots) {
  // With room for what a number loses on its way to text.
  const auto estEn = [](const Mot &attendu, Millimetres trouve) {
    return attendu.Joker() || std::abs(Nombre(attendu) - trouve.valeur) <= 0.1 + 1e-9;
  };
  ExigerLigne(
      lignes, mots,
      [&](const LigneImprimee &l) { return estEn(mots[1], l.x) && estEn(mots[2], l.y); },
      [](const LigneImprimee &l) {
        return u"%1 %2"_s.arg(l.x.valeur, 0, 'f', 2).arg(l.y.valeur, 0, 'f', 2);
      });
}

void VerifierPolice(const Lignes &lignes, const Mots &mots) {
  const auto convient = [&](const LigneImprimee &ligne) {
    const Police &police = ligne.police;
    bool bien = police.nom == mots[1].texte && std::abs(police.points - Nombre(mots[2])) < 0.05;
    for (const Mot &style : mots.sliced(3))
      bien &= style.Est(u"gras")       ? police.gras
              : style.Est(u"souligne") ? police.souligne
                                       : style.Est(u"maigre") && !police.gras;
    return bien;
  };
  ExigerLigne(lignes, mots, convient, [](const LigneImprimee &ligne) {
    return u"%1 %2 %3 %4"_s.arg(ligne.police.nom)
        .arg(ligne.police.points)
        .arg(ligne.police.gras ? u"gras"_s : u"maigre"_s,
             ligne.police.souligne ? u"souligne"_s : u""_s);
  });
}

QList<Verbe> VerbesDesLignes(const QString &quoi, bool apercu) {
  return {
      {quoi + u" texte"_s, 3, kSansLimite,
       [=](S &s, const M &m) {
         Exiger(m.size() % 3 == 0, u"places expected, each a text and two numbers"_s);
         for (qsizetype i = 0; i < m.size(); i += 3)
           VerifierPlace(LignesDe(s, apercu), m.sliced(i, 3));
       }},
      {quoi + u" police"_s, 3, 5,
       [=](S &s, const M &m) { VerifierPolice(LignesDe(s, apercu), m); }},
      {quoi + u" lignes"_s, 0, kSansLimite,
       [=](S &s, const M &m) {
         ExigerListe(u"lines"_s, Textes(m, 0), TextesDe(LignesDe(s, apercu)));
       }},
      {quoi + u" absente"_s, 1, 1,
       [=](S &s, const M &m) {
         Exiger(!TextesDe(LignesDe(s, apercu)).contains(m[0].texte),
                u"no line \"%1\" expected"_s.arg(m[0].texte));
       }},
  };
}

/// The workbook that the program opened last, read by another program than its writer.
const QJsonObject &ContenuDuClasseur(Scene &scene) {
  const QFileInfo fichier(scene.journal.classeur);
  Exiger(fichier.isFile(), u"an opened workbook expected, none is there"_s);
  Scene::ClasseurLu &lu = scene.classeurLu;
  if (lu.chemin == fichier.filePath() && lu.ecrit == fichier.lastModified()) return lu.contenu;
  constexpr int kLimite = 50'000;  // milliseconds
  QProcess lecteur;
  // The system's, whose package the reading library is.
  lecteur.start(u"/usr/bin/python3"_s, {QStringLiteral(VELMIRA_LIRE_CLASSEUR), fichier.filePath()});
  Exiger(lecteur.waitForFinished(kLimite) && lecteur.exitCode() == 0,
         u"the workbook cannot be read: "_s + QString::fromUtf8(lecteur.readAllStandardError()));
  lu = {fichier.filePath(), fichier.lastModified(),
        QJsonDocument::fromJson(lecteur.readAllStandardOutput()).object()};
  return lu.contenu;
}

QString Cellule(Scene &scene, const QString &nom, const QString &quoi) {
  const QJsonObject lue = ContenuDuClasseur(scene)[u"cellules"][nom].toObject();
  const QString valeur = lue[quoi].toVariant().toString();
  Exiger(quoi != u"texte"_s || valeur.isEmpty() || lue[u"type"] == u"s"_s,
         u"%1: a text expected, a formula or a number found"_s.arg(nom));
  return valeur;
}

Verbe ChampDeCellule(const QString &verbe, const QString &quoi) {
  return {u"classeur "_s + verbe, 2, kSansLimite, [quoi](S &s, const M &m) {
            static const QHash<QString, QString> kCotes{
                {u"centre"_s, u"center"_s}, {u"droite"_s, u"right"_s}, {u"gauche"_s, u"left"_s}};
            const bool cote = quoi == u"horizontal"_s;
            for (qsizetype i = 0; i + 1 < m.size(); i += 2) {
              QString trouve = Cellule(s, m[i].texte, quoi);
              if (cote && trouve != u"center"_s && trouve != u"right"_s) trouve = u"left"_s;
              const QString &voulu = m[i + 1].texte;
              ExigerEgal(m[i].texte, cote ? kCotes.value(voulu) : voulu, trouve);
            }
          }};
}

Verbe GrasDeCellule(const QString &verbe, const QString &attendu) {
  return {u"classeur "_s + verbe, 1, kSansLimite, [attendu](S &s, const M &m) {
            for (const Mot &mot : m)
              ExigerEgal(mot.texte + u" bold"_s, attendu, Cellule(s, mot.texte, u"gras"_s));
          }};
}

/// The oldest of what was opened or started.
Verbe Lancement(const QString &nom, std::deque<QString> Journal::*traces) {
  return {nom, 1, 1, [nom, traces](S &s, const M &m) {
            const QString trouve = Premiere(s.journal.*traces, nom + u' ' + m[0].texte);
            if (QFileInfo(trouve).fileName() != m[0].texte) ExigerEgal(nom, m[0].texte, trouve);
          }};
}

}  // namespace

QList<Verbe> VerbesDesTraces() {
  const QList<Verbe> verbes{
      {u"jour"_s, 1, 1,
       [](S &s, const M &m) {
         Aller(s, QDate::fromString(m[0].texte, u"dd/MM/yyyy"_s), s.horloge.Maintenant().time());
       }},
      {u"heure"_s, 1, 1,
       [](S &s, const M &m) {
         Aller(s, s.horloge.Maintenant().date(), QTime::fromString(m[0].texte, u"hh:mm"_s));
       }},
      {u"attendre"_s, 1, 1,
       [](S &s, const M &m) {
         s.horloge.Avancer(std::chrono::milliseconds(qRound(Nombre(m[0]))));
       }},
      {u"pendant-pause"_s, 1, kSansLimite, PendantPause},
      {u"modem"_s, 1, 1,
       [](S &s, const M &m) {
         s.port.branche = true;
         if (!m[0].Est(u"ouvert")) s.journal.reponsesModem.push_back(m[0].texte.toLatin1());
       }},
      {u"reponse"_s, 1, kSansLimite, Prevoir},
      {u"boite"_s, 3, 5, VerifierBoite},
      {u"boites"_s, 1, kSansLimite,
       [](S &s, const M &m) {
         BoiteVue boite;
         for (const Mot &mot : m) {
           if (!mot.cite) boite = PremiereBoite(s, mot);
           ExigerEgal(u"box"_s, mot.texte, mot.cite ? boite.texte : boite.genre);
         }
       }},
      {u"aucune-boite"_s, 0, 0, [](S &s, const M &) { s.VerifierAucuneBoite(); }},
      {u"rien-ouvert"_s, 0, 0, [](S &s, const M &) { s.VerifierToutVu(); }},
      {u"rien-lance"_s, 0, 0, [](S &s, const M &) { s.VerifierToutVu(); }},
      {u"boites-vues"_s, 0, 0, [](S &s, const M &) { s.journal.boites.clear(); }},
      {u"pause"_s, 1, 1,
       [](S &s, const M &m) {
         const auto pause = Premiere(s.journal.pauses, u"pause "_s + m[0].texte);
         ExigerEgal(u"pause"_s, m[0].texte, QString::number(pause.count()));
       }},
      Lancement(u"ouvre"_s, &Journal::ouverts),
      Lancement(u"lance"_s, &Journal::lances),
      {u"demarrage"_s, 2, 2, VerifierDemarrage},
      {u"envoye"_s, 1, 1,
       [](S &s, const M &m) {
         ExigerEgal(u"sent"_s, m[0].texte,
                    QString::fromLatin1(std::exchange(s.journal.envoyes, {})));
       }},
      {u"pages"_s, 1, 1, [](S &s, const M &m) { CompterPages(s, qRound(Nombre(m[0]))); }},
      {u"page"_s, 1, 1,
       [](S &s, const M &m) {
         s.page = qRound(Nombre(m[0])) - 1;
         Page(s);
       }},
      {u"page imprimante"_s, 1, 1,
       [](S &s, const M &m) { ExigerEgal(u"printer"_s, m[0].texte, Page(s).imprimante); }},
      {u"page portrait"_s, 0, 0,
       [](S &s, const M &) {
         Exiger(Page(s).orientation == Orientation::Portrait, u"portrait expected"_s);
       }},
      {u"page paysage"_s, 0, 0,
       [](S &s, const M &) {
         Exiger(Page(s).orientation == Orientation::Paysage, u"paysage expected"_s);
       }},
      {u"classeur feuille"_s, 1, 1,
       [](S &s, const M &m) {
         ExigerListe(u"sheets"_s, {m[0].texte},
                     ContenuDuClasseur(s)[u"feuilles"].toVariant().toStringList());
       }},
      {u"classeur lignes"_s, 1, 1,
       [](S &s, const M &m) {
         ExigerEgal(u"rows of the workbook"_s, m[0].texte,
                    QString::number(ContenuDuClasseur(s)[u"nombre"].toInt()));
       }},
      ChampDeCellule(u"cellule"_s, u"texte"_s),
      ChampDeCellule(u"fond"_s, u"fond"_s),
      ChampDeCellule(u"couleur"_s, u"couleur"_s),
      ChampDeCellule(u"alignement"_s, u"horizontal"_s),
      GrasDeCellule(u"gras"_s, u"true"_s),
      GrasDeCellule(u"maigre"_s, u"false"_s),
  };
  return verbes + VerbesDesLignes(u"page"_s, false) + VerbesDesLignes(u"apercu"_s, true);
}
