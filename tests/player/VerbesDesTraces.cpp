#include "envelope/FrmVueAV.h"
#include "platform/Fichiers.h"
#include "player/Echec.h"
#include "player/Lignes.h"
#include "player/Verbes.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

template <typename Trace>
Trace Premiere(std::deque<Trace> &traces, const QString &manque) {
  Exiger(!traces.empty(), manque);
  Trace premiere = std::move(traces.front());
  traces.pop_front();
  return premiere;
}

void VerifierBoite(Scene &scene, const Mots &mots) {
  const auto boite =
      Premiere(scene.boites.Vues(),
               u"box \"%1\" expected, none found"_s.arg(Textes(mots, 0).join(u"\" \""_s)));
  const std::array trouve{boite.genre, boite.titre, boite.texte};
  constexpr std::array kQuoi{u"kind", u"title", u"text"};
  for (std::size_t i = 0; i < trouve.size(); ++i) {
    const Mot &attendu = mots[static_cast<qsizetype>(i)];
    if (!attendu.Joker())
      ExigerEgal(
          u"box %1 \"%2\", its %3"_s.arg(boite.genre, boite.texte, QString::fromUtf16(kQuoi[i])),
          attendu.texte, trouve[i]);
  }
  if (mots.size() == 3) return;
  Exiger(mots.size() == 5 && mots[3].Est(u"defaut"),
         u"defaut X expected behind the text, \"%1\" found"_s.arg(Textes(mots, 3).join(u' ')));
  ExigerEgal(u"box %1 \"%2\", its default"_s.arg(boite.genre, boite.texte), mots[4].texte,
             boite.defaut);
}

void VerifierAucuneBoite(Scene &scene, const Mots &) {
  for (const BoiteVue &boite : scene.boites.Vues())
    throw Echec{
        u"no box expected, %1 \"%2\" \"%3\" found"_s.arg(boite.genre, boite.titre, boite.texte)};
}

void VerifierPause(Scene &scene, const Mots &mots) {
  const auto pause =
      Premiere(scene.horloge.Pauses(), u"pause %1 expected, none found"_s.arg(mots[0].texte));
  ExigerEgal(u"pause"_s, QString::number(Nombre(mots[0])), QString::number(pause.count()));
}

void VerifierOuvert(Scene &scene, const Mots &mots) {
  const QString document = Premiere(scene.coquille.Ouverts(),
                                    u"opening of \"%1\" expected, none found"_s.arg(mots[0].texte));
  if (QFileInfo(document).fileName() != mots[0].texte)
    ExigerEgal(u"opened"_s, mots[0].texte, document);
}

void VerifierLance(Scene &scene, const Mots &mots) {
  ExigerEgal(u"started"_s, scene.monde.Chemin(mots[0].texte),
             Premiere(scene.coquille.Lances(),
                      u"start of \"%1\" expected, none found"_s.arg(mots[0].texte)));
}

void VerifierDemarrage(Scene &scene, const Mots &mots) {
  const bool present = mots[1].Est(u"present");
  Exiger(present || mots[1].Est(u"absent"),
         u"demarrage: present or absent expected, \"%1\" found"_s.arg(mots[1].texte));
  const bool trouve = QFileInfo::exists(scene.demarrage.Chemin(mots[0].texte));
  ExigerEgal(u"\"%1\" in the start list"_s.arg(mots[0].texte), mots[1].texte,
             trouve ? u"present"_s : u"absent"_s);
}

void VerifierLignes(Scene &scene, const Mots &mots) {
  ExigerEgal(u"rows of "_s + mots[0].texte, QString::number(Nombre(mots[1])),
             QString::number(LignesDuMonde(scene.monde.Base()).Nombre(mots[0].texte)));
}

QString Champ(const Scene &scene, const Mots &mots) {
  return LignesDuMonde(scene.monde.Base()).Champ(mots[0].texte, Nombre(mots[1]), mots[2].texte);
}

void VerifierNul(Scene &scene, const Mots &mots) {
  const QString valeur = Champ(scene, mots);
  Exiger(valeur.isNull(), u"%1 %2, %3: nul expected, \"%4\" found"_s.arg(
                              mots[0].texte, mots[1].texte, mots[2].texte, valeur));
}

/// That a file is missing, and what lies in its folder.
QString Absent(const Scene &scene, const QString &nom) {
  const QDir dossier = QFileInfo(scene.monde.Chemin(nom)).dir();
  return u"file %1 expected, its folder holds \"%2\""_s.arg(
      nom, dossier.entryList(QDir::AllEntries | QDir::NoDotAndDotDot).join(u"\" \""_s));
}

void VerifierMemesOctets(const Scene &scene, const QString &nom, const QString &autre) {
  const auto octets = LireFichier(scene.monde.Chemin(nom));
  const auto attendus = LireFichier(scene.monde.Chemin(autre));
  Exiger(octets && attendus, Absent(scene, octets ? autre : nom));
  const auto [ici, la] =
      std::mismatch(octets->begin(), octets->end(), attendus->begin(), attendus->end());
  Exiger(ici == octets->end() && la == attendus->end(),
         u"%1 of %2 bytes and %3 of %4 differ from byte %5 on"_s.arg(nom)
             .arg(octets->size())
             .arg(autre)
             .arg(attendus->size())
             .arg(ici - octets->begin()));
}

void VerifierFichier(Scene &scene, const Mots &mots) {
  const QString &nom = mots[0].texte;
  const auto lignes = scene.monde.Lire(nom);
  if (mots[1].Est(u"absent") && mots.size() == 2)
    return Exiger(!QFileInfo::exists(scene.monde.Chemin(nom)),
                  u"no file %1 expected, %2 bytes found"_s.arg(nom).arg(
                      QFileInfo(scene.monde.Chemin(nom)).size()));
  Exiger(lignes.has_value(), Absent(scene, nom));
  if (mots[1].Est(u"present") && mots.size() == 2) return;
  if (mots[1].Est(u"egal") && mots.size() == 3)
    return VerifierMemesOctets(scene, nom, mots[2].texte);
  if (mots[1].Est(u"lignes"))
    return ExigerEgal(nom, Textes(mots, 2).join(u"\r\n"_s), lignes->join(u"\r\n"_s));
  Exiger(
      mots[1].Est(u"ligne") && mots.size() == 4,
      u"fichier: present, absent, egal FILE, lignes ... or ligne i \"a\" expected, \"%1\" found"_s
          .arg(Textes(mots, 1).join(u' ')));
  const int i = Nombre(mots[2]);
  Exiger(i >= 1 && i <= lignes->size(),
         u"line %1 of %2 expected, it has %3"_s.arg(i).arg(nom).arg(lignes->size()));
  ExigerEgal(u"line %1 of %2"_s.arg(i).arg(nom), mots[3].texte, lignes->at(i - 1));
}

void CompterPages(Scene &scene, const Mots &mots) {
  scene.pages = scene.imprimante.PrendrePages();
  scene.page = scene.pages.size() - 1;
  ExigerEgal(u"pages"_s, QString::number(Nombre(mots[0])), QString::number(scene.pages.size()));
}

void ChoisirPage(Scene &scene, const Mots &mots) {
  const int n = Nombre(mots[0]);
  Exiger(n >= 1 && n <= scene.pages.size(),
         u"page %1 expected, %2 were counted"_s.arg(n).arg(scene.pages.size()));
  scene.page = n - 1;
}

const PageImprimee &Page(const Scene &scene) {
  Exiger(scene.page >= 0, u"a page expected, none has been counted"_s);
  return scene.pages[scene.page];
}

/// What a check of lines looks at: a page or a preview.
using Lignes = QList<LigneImprimee> (*)(const Scene &scene);

QList<LigneImprimee> LignesDePage(const Scene &scene) {
  return Page(scene).lignes;
}

/// The lines of the preview, in millimetres of the envelope.
QList<LigneImprimee> LignesDApercu(const Scene &scene) {
  constexpr double kReduction = 1.18;
  const QWidget *active = scene.ecran.FenetreActive();
  const auto *apercu = qobject_cast<const FrmVueAV *>(active);
  Exiger(apercu != nullptr, u"active window: FrmVueAV expected, %1 found"_s.arg(
                                active != nullptr ? active->objectName() : u"none"_s));
  QList<LigneImprimee> lignes;
  for (const LignePlacee &ligne : apercu->Lignes())
    lignes.append({ligne.texte, Millimetres(ligne.x.valeur * kReduction),
                   Millimetres(ligne.y.valeur * kReduction), ligne.police});
  return lignes;
}

QStringList TextesDe(const QList<LigneImprimee> &lignes) {
  QStringList textes;
  for (const LigneImprimee &ligne : lignes) textes.append(ligne.texte);
  return textes;
}

/// The lines of this text; none at all is a failure.
QList<LigneImprimee> LignesDeTexte(const QList<LigneImprimee> &lignes, const QString &texte) {
  QList<LigneImprimee> trouvees;
  for (const LigneImprimee &ligne : lignes)
    if (ligne.texte == texte) trouvees.append(ligne);
  Exiger(!trouvees.isEmpty(),
         u"line \"%1\" expected, \"%2\" found"_s.arg(texte, TextesDe(lignes).join(u"\" \""_s)));
  return trouvees;
}

/// Within a tenth of a millimetre, with room for what a number loses on its way to text.
bool EstEn(const Mot &attendu, Millimetres trouve) {
  if (attendu.Joker()) return true;
  return std::abs(NombreDecimal(attendu) - trouve.valeur) <= 0.1 + 1e-9;
}

template <Lignes lignes>
void VerifierTexte(Scene &scene, const Mots &mots) {
  QStringList trouves;
  for (const LigneImprimee &ligne : LignesDeTexte(lignes(scene), mots[0].texte)) {
    if (EstEn(mots[1], ligne.x) && EstEn(mots[2], ligne.y)) return;
    trouves.append(u"%1 %2"_s.arg(ligne.x.valeur, 0, 'f', 2).arg(ligne.y.valeur, 0, 'f', 2));
  }
  throw Echec{u"\"%1\": %2 %3 expected, %4 found"_s.arg(mots[0].texte, mots[1].texte, mots[2].texte,
                                                        trouves.join(u" and "_s))};
}

template <Lignes lignes>
void VerifierPolice(Scene &scene, const Mots &mots) {
  bool gras = false, maigre = false, souligne = false;
  for (const Mot &style : mots.sliced(3)) {
    gras |= style.Est(u"gras");
    maigre |= style.Est(u"maigre");
    souligne |= style.Est(u"souligne");
    Exiger(style.Est(u"gras") || style.Est(u"maigre") || style.Est(u"souligne"),
           u"gras, maigre or souligne expected, \"%1\" found"_s.arg(style.texte));
  }
  QStringList trouvees;
  for (const LigneImprimee &ligne : LignesDeTexte(lignes(scene), mots[0].texte)) {
    const Police &police = ligne.police;
    if (police.nom == mots[1].texte && std::abs(police.points - mots[2].texte.toDouble()) < 0.05 &&
        (!gras || police.gras) && (!maigre || !police.gras) && (!souligne || police.souligne))
      return;
    trouvees.append(u"%1 %2%3%4"_s.arg(police.nom)
                        .arg(police.points)
                        .arg(police.gras ? u" gras"_s : u" maigre"_s,
                             police.souligne ? u" souligne"_s : u""_s));
  }
  throw Echec{u"\"%1\": %2 expected, %3 found"_s.arg(mots[0].texte, Textes(mots, 1).join(u' '),
                                                     trouvees.join(u" and "_s))};
}

template <Lignes lignes>
void VerifierToutes(Scene &scene, const Mots &mots) {
  ExigerEgal(u"lines"_s, Textes(mots, 0).join(u"\" \""_s),
             TextesDe(lignes(scene)).join(u"\" \""_s));
}

template <Lignes lignes>
void VerifierAbsente(Scene &scene, const Mots &mots) {
  const QStringList trouvees = TextesDe(lignes(scene));
  Exiger(!trouvees.contains(mots[0].texte),
         u"no line \"%1\" expected, \"%2\" found"_s.arg(mots[0].texte, trouvees.join(u"\" \""_s)));
}

template <Orientation orientation>
void VerifierOrientation(Scene &scene, const Mots &) {
  const auto nom = [](Orientation o) {
    return o == Orientation::Portrait ? u"portrait"_s : u"paysage"_s;
  };
  ExigerEgal(u"page"_s, nom(orientation), nom(Page(scene).orientation));
}

}  // namespace

QList<Verbe> VerbesDesTraces() {
  using S = Scene;
  using M = Mots;
  constexpr auto kSansLimite = Verbe::kSansLimite;
  return {
      {u"boite"_s, 3, 5, VerifierBoite},
      {u"aucune-boite"_s, 0, 0, VerifierAucuneBoite},
      {u"boites-vues"_s, 0, 0, [](S &s, const M &) { s.boites.Vues().clear(); }},
      {u"pause"_s, 1, 1, VerifierPause},
      {u"ouvre"_s, 1, 1, VerifierOuvert},
      {u"rien-ouvert"_s, 0, 0,
       [](S &s, const M &) {
         for (const QString &document : s.coquille.Ouverts())
           throw Echec{u"nothing opened expected, \"%1\" found"_s.arg(document)};
       }},
      {u"lance"_s, 1, 1, VerifierLance},
      {u"rien-lance"_s, 0, 0,
       [](S &s, const M &) {
         for (const QString &programme : s.coquille.Lances())
           throw Echec{u"nothing started expected, \"%1\" found"_s.arg(programme)};
       }},
      {u"demarrage"_s, 2, 2, VerifierDemarrage},
      {u"envoye"_s, 1, 1,
       [](S &s, const M &m) {
         ExigerEgal(u"sent"_s, m[0].texte, QString::fromLatin1(s.port.PrendreEnvoyes()));
       }},
      {u"lignes"_s, 2, 2, VerifierLignes},
      {u"champ"_s, 4, 4, [](S &s, const M &m) { ExigerEgal(m[2].texte, m[3].texte, Champ(s, m)); }},
      {u"nul"_s, 3, 3, VerifierNul},
      {u"fichier"_s, 2, kSansLimite, VerifierFichier},
      {u"pages"_s, 1, 1, CompterPages},
      {u"page"_s, 1, 1, ChoisirPage},
      {u"page texte"_s, 3, 3, VerifierTexte<LignesDePage>},
      {u"page absente"_s, 1, 1, VerifierAbsente<LignesDePage>},
      {u"page police"_s, 3, 5, VerifierPolice<LignesDePage>},
      {u"page lignes"_s, 0, kSansLimite, VerifierToutes<LignesDePage>},
      {u"page imprimante"_s, 1, 1,
       [](S &s, const M &m) { ExigerEgal(u"printer"_s, m[0].texte, Page(s).imprimante); }},
      {u"page portrait"_s, 0, 0, VerifierOrientation<Orientation::Portrait>},
      {u"page paysage"_s, 0, 0, VerifierOrientation<Orientation::Paysage>},
      {u"apercu texte"_s, 3, 3, VerifierTexte<LignesDApercu>},
      {u"apercu absente"_s, 1, 1, VerifierAbsente<LignesDApercu>},
      {u"apercu police"_s, 3, 5, VerifierPolice<LignesDApercu>},
      {u"apercu lignes"_s, 0, kSansLimite, VerifierToutes<LignesDApercu>},
  };
}
