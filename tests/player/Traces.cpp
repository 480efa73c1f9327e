// The verbs of what the program tells the system, and what it is answered.

#include "envelope/FrmVueAV.h"
#include "maintenance/SauvegardeDuJour.h"
#include "player/Verbes.h"
#include "ui/FeuilleEcran.h"

#include <QtWidgets>

#include <algorithm>
#include <cmath>

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

/// The copy of the day is made beside the windows.
void FinirLaSauvegarde() {
  for (const QWidget *fenetre : QApplication::topLevelWidgets())
    for (const auto *copie : fenetre->findChildren<SauvegardeDuJour *>())
      while (copie->EnCours()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void VerifierBoite(Scene &scene, const Mots &mots) {
  const auto boite = PremiereBoite(scene, mots[0]);
  QStringList attendus = Textes(mots, 0), trouves{boite.genre, boite.titre, boite.texte};
  for (qsizetype i = 0; i < trouves.size(); ++i)
    if (mots[i].Joker()) attendus[i] = trouves[i];
  if (mots.size() > 3) trouves += {u"defaut"_s, boite.defaut};
  ExigerListe(u"box"_s, attendus, trouves);
}

void VerifierBoites(Scene &scene, const Mots &mots) {
  BoiteVue boite;
  for (const Mot &mot : mots) {
    if (!mot.cite) boite = PremiereBoite(scene, mot);
    ExigerEgal(u"box"_s, mot.texte, mot.cite ? boite.texte : boite.genre);
  }
}

/// Queues answers for the boxes to come.
void Prevoir(Scene &scene, const Mots &mots) {
  static const QStringList kBoutons{u"oui"_s, u"non"_s, u"annuler"_s, u"ok"_s};
  for (const Mot &mot : mots)
    scene.journal.reponses.push_back({mot.texte, mot.cite || !kBoutons.contains(mot.texte)});
}

void Aller(Scene &scene, const QDate &jour, const QTime &heure) {
  Exiger(jour.isValid() && heure.isValid(), u"a day dd/mm/yyyy or a time hh:mm expected"_s);
  scene.horloge.Aller({jour, heure});
  FinirLaSauvegarde();
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

void BrancherModem(Scene &scene, const Mots &mots) {
  scene.port.branche = true;
  if (!mots[0].Est(u"ouvert")) scene.journal.reponsesModem.push_back(mots[0].texte.toLatin1());
}

/// The oldest of what was opened or started, by the name of its file or as it stands.
Verbe Lancement(const QString &nom, std::deque<QString> Journal::*traces) {
  return Valeur(nom, 1, [nom, traces](S &s, const M &m) {
    const QString trouve = Premiere(s.journal.*traces, nom + u' ' + m[0].texte);
    const QString fichier = QFileInfo(trouve).fileName();
    return fichier == m[0].texte ? fichier : trouve;
  });
}

qsizetype CompterPages(Scene &scene) {
  scene.pages = std::exchange(scene.journal.pages, {});
  scene.page = scene.pages.size() - 1;
  return scene.pages.size();
}

/// One that has not been counted must be the only one.
const PageImprimee &Page(Scene &scene) {
  Exiger(scene.journal.pages.isEmpty() || CompterPages(scene) == 1,
         u"one page expected, %1 found"_s.arg(scene.pages.size()));
  Exiger(scene.page >= 0 && scene.page < scene.pages.size(),
         u"page %1 expected, %2 were counted"_s.arg(scene.page + 1).arg(scene.pages.size()));
  return scene.pages[scene.page];
}

/// As it was sent.
void CapturerPage(Scene &scene, const Mots &mots) {
  if (scene.options.captures.isEmpty()) return;
  constexpr double kPoints = 3;  // for a millimetre
  const PageImprimee &page = Page(scene);
  const Taille taille = page.papier.page;
  QImage image((QSizeF(taille.largeur.valeur, taille.hauteur.valeur) * kPoints).toSize(),
               QImage::Format_RGB32);
  image.fill(kPapier);
  QPainter dessin(&image);
  dessin.setRenderHint(QPainter::Antialiasing);
  FeuilleEcran feuille(dessin, QPointF(), kPoints);
  for (const LigneImprimee &l : page.lignes) feuille.Ecrire(l.x, l.y, l.police, l.texte);
  for (const TraitImprime &t : page.traits) feuille.Tracer(t.de, t.a, t.epaisseur);
  dessin.end();
  const QString chemin = QDir(scene.options.captures).filePath(mots[0].texte + u".png"_s);
  Exiger(QDir().mkpath(scene.options.captures) && image.save(chemin), chemin + u" not written"_s);
}

Verbe Orientee(const QString &nom, Orientation orientation) {
  return {u"page "_s + nom, 0, 0, [nom, orientation](S &s, const M &) {
            Exiger(Page(s).papier.page == Papier::A4(orientation).page, nom + u" expected"_s);
          }};
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

/// In the words of a check.
QStringList PoliceDe(const LigneImprimee &ligne) {
  const Police &police = ligne.police;
  QStringList mots{police.nom, QString::number(std::round(police.points * 10) / 10),
                   police.gras ? u"gras"_s : u"maigre"_s};
  if (police.souligne) mots.append(u"souligne"_s);
  return mots;
}

/// One of the lines of the text that comes first is as expected.
template <typename Convient>
void ExigerLigne(const Lignes &lignes, const Mots &mots, Convient convient) {
  QStringList trouvees;
  for (const LigneImprimee &ligne : lignes) {
    if (ligne.texte != mots[0].texte) continue;
    if (convient(ligne)) return;
    trouvees.append(u"%1 %2 %3"_s.arg(ligne.x.valeur, 0, 'f', 2)
                        .arg(ligne.y.valeur, 0, 'f', 2)
                        .arg(PoliceDe(ligne).join(u' ')));
  }
  throw Echec{u"%1 expected, %2 found"_s.arg(
      EnListe(Textes(mots, 0)), EnListe(trouvees.isEmpty() ? TextesDe(lignes) : trouvees))};
}

void VerifierPlaces(const Lignes &lignes, const Mots &mots) {
  // With room for what a number loses on its way to text.
  const auto estEn = [](const Mot &attendu, Millimetres trouve) {
    return attendu.Joker() || std::abs(Nombre(attendu) - trouve.valeur) <= 0.1 + 1e-9;
  };
  Exiger(mots.size() % 3 == 0, u"places expected, each a text and two numbers"_s);
  for (qsizetype i = 0; i < mots.size(); i += 3)
    ExigerLigne(lignes, mots.sliced(i, 3), [&](const LigneImprimee &ligne) {
      return estEn(mots[i + 1], ligne.x) && estEn(mots[i + 2], ligne.y);
    });
}

void VerifierPolice(const Lignes &lignes, const Mots &mots) {
  ExigerLigne(lignes, mots, [&](const LigneImprimee &ligne) {
    const QStringList police = PoliceDe(ligne);
    return std::ranges::all_of(Textes(mots, 1),
                               [&](const QString &mot) { return police.contains(mot); });
  });
}

QList<Verbe> VerbesDesLignes(const QString &quoi, bool apercu) {
  return {
      {quoi + u" texte"_s, 3, kSansLimite,
       [=](S &s, const M &m) { VerifierPlaces(LignesDe(s, apercu), m); }},
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
  QJsonObject &lu = scene.journal.classeurLu;
  if (!lu.isEmpty()) return lu;
  const QString &fichier = scene.journal.classeur;
  Exiger(QFileInfo(fichier).isFile(), u"an opened workbook expected, none is there"_s);
  constexpr int kLimite = 50'000;  // milliseconds
  QProcess lecteur;
  // The system's, whose package the reading library is.
  lecteur.start(u"/usr/bin/python3"_s, {QStringLiteral(VELMIRA_LIRE_CLASSEUR), fichier});
  Exiger(lecteur.waitForFinished(kLimite) && lecteur.exitCode() == 0,
         u"the workbook cannot be read: "_s + QString::fromUtf8(lecteur.readAllStandardError()));
  return lu = QJsonDocument::fromJson(lecteur.readAllStandardOutput()).object();
}

QString Cellule(Scene &scene, const QString &nom, const QString &quoi) {
  const QJsonObject lue = ContenuDuClasseur(scene)[u"cellules"][nom].toObject();
  const QString valeur = lue[quoi].toVariant().toString();
  Exiger(quoi != u"texte"_s || valeur.isEmpty() || lue[u"type"] == u"s"_s,
         u"%1: a text expected, a formula or a number found"_s.arg(nom));
  if (quoi == u"gras"_s) return valeur == u"true"_s ? u"gras"_s : u"maigre"_s;
  if (quoi != u"horizontal"_s) return valeur;
  return valeur == u"center"_s ? u"centre"_s : valeur == u"right"_s ? u"droite"_s : u"gauche"_s;
}

/// A property of cells, each with what is expected of it.
Verbe DeCellules(const QString &verbe, const QString &quoi) {
  return {u"classeur "_s + verbe, 2, kSansLimite, [quoi](S &s, const M &m) {
            for (qsizetype i = 0; i + 1 < m.size(); i += 2)
              ExigerEgal(m[i].texte, m[i + 1].texte, Cellule(s, m[i].texte, quoi));
          }};
}

Verbe Graisse(const QString &attendue) {
  return {u"classeur "_s + attendue, 1, kSansLimite, [attendue](S &s, const M &m) {
            for (const Mot &mot : m)
              ExigerEgal(mot.texte, attendue, Cellule(s, mot.texte, u"gras"_s));
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
         FinirLaSauvegarde();
       }},
      {u"pendant-pause"_s, 1, kSansLimite, PendantPause},
      Valeur(u"pause"_s, 1,
             [](S &s, const M &) {
               return QString::number(Premiere(s.journal.pauses, u"pause"_s).count());
             }),
      {u"reponse"_s, 1, kSansLimite, Prevoir},
      {u"boite"_s, 3, 5, VerifierBoite},
      {u"boites"_s, 1, kSansLimite, VerifierBoites},
      {u"aucune-boite"_s, 0, 0, [](S &s, const M &) { s.VerifierAucuneBoite(); }},
      {u"boites-vues"_s, 0, 0, [](S &s, const M &) { s.journal.boites.clear(); }},
      Lancement(u"ouvre"_s, &Journal::ouverts),
      Lancement(u"lance"_s, &Journal::lances),
      Valeur(u"fin-compagnon"_s, 1,
             [](S &s, const M &) {
               const auto statut = s.FinCompagnon();
               return statut ? QString::number(*statut) : u"aucune"_s;
             }),
      {u"rien-ouvert"_s, 0, 0, [](S &s, const M &) { s.VerifierToutVu(); }},
      {u"rien-lance"_s, 0, 0, [](S &s, const M &) { s.VerifierToutVu(); }},
      Valeur(u"demarrage"_s, 2,
             [](S &s, const M &m) {
               const bool present = QFileInfo::exists(s.demarrage.Chemin(m[0].texte));
               return present ? u"present"_s : u"absent"_s;
             }),
      {u"modem"_s, 1, 1, BrancherModem},
      Valeur(u"envoye"_s, 1,
             [](S &s, const M &) {
               return QString::fromLatin1(std::exchange(s.journal.envoyes, {}));
             }),
      Valeur(u"pages"_s, 1, [](S &s, const M &) { return QString::number(CompterPages(s)); }),
      {u"page"_s, 1, 1,
       [](S &s, const M &m) {
         s.page = qRound(Nombre(m[0])) - 1;
         Page(s);
       }},
      Valeur(u"page imprimante"_s, 1, [](S &s, const M &) { return Page(s).imprimante; }),
      {u"page capture"_s, 1, 1, CapturerPage},
      Valeur(u"page papier"_s, 1, [](S &s, const M &) { return Page(s).papier.Nom(); }),
      Orientee(u"portrait"_s, Orientation::Portrait),
      Orientee(u"paysage"_s, Orientation::Paysage),
      Valeur(u"classeur feuille"_s, 1,
             [](S &s, const M &) {
               return ContenuDuClasseur(s)[u"feuilles"].toVariant().toStringList().join(u", ");
             }),
      Valeur(
          u"classeur lignes"_s, 1,
          [](S &s, const M &) { return QString::number(ContenuDuClasseur(s)[u"nombre"].toInt()); }),
      DeCellules(u"cellule"_s, u"texte"_s),
      DeCellules(u"fond"_s, u"fond"_s),
      DeCellules(u"couleur"_s, u"couleur"_s),
      DeCellules(u"alignement"_s, u"horizontal"_s),
      Graisse(u"gras"_s),
      Graisse(u"maigre"_s),
  };
  return verbes + VerbesDesLignes(u"page"_s, false) + VerbesDesLignes(u"apercu"_s, true);
}
