#include "envelope/MiseEnPage.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The DL envelope on which the zones are defined.
constexpr double kLongueurDL = 220;
constexpr double kHauteurDL = 110;

// What a buffer of 40 characters of the settings keeps of a printer's name.
constexpr qsizetype kNomCoupe = 39;

enum Alignement { kGauche = 0, kDroite = 1, kCentre = 2 };

/// One of the two text zones: where it begins, how it is written.
struct Zone {
  QStringList lignes;
  Point origine;
  Police police;
  int alignement = kGauche;
};

Millimetres Decalage(int alignement, Millimetres bloc, Millimetres ligne) {
  switch (alignement) {
    case kDroite:
      return bloc - ligne;
    case kCentre:
      return bloc / 2 - ligne / 2;
    default:
      return {};
  }
}

/// Any other alignment prints nothing. `gras` tells which lines are bold by themselves: the block's
/// width is measured without it, the line's width with it.
template <typename LigneEnGras>
void Placer(const Zone &zone, const MesureTexte &mesure, std::vector<LignePlacee> &page,
            LigneEnGras &&gras) {
  if (zone.alignement < kGauche || zone.alignement > kCentre) return;
  Millimetres largeur;
  for (const QString &ligne : zone.lignes)
    largeur = std::max(largeur, mesure.Largeur(ligne, zone.police));

  Millimetres y = zone.origine.y;
  for (qsizetype i = 0; i < zone.lignes.size(); ++i) {
    const QString &ligne = zone.lignes[i];
    Police police = zone.police;
    police.gras = police.gras || gras(i);
    if (!ligne.trimmed().isEmpty())
      page.push_back(
          {ligne,
           zone.origine.x + Decalage(zone.alignement, largeur, mesure.Largeur(ligne, police)), y,
           police});
    y += mesure.HauteurLigne(police);
  }
}

/// A settings file may lack the font; the page must come out all the same.
Police PoliceLisible(const QString &nom, int points, bool gras, int defaut) {
  return {nom.isEmpty() ? u"Arial"_s : nom, static_cast<double>(points > 0 ? points : defaut), gras,
          false};
}

}  // namespace

Point OrigineAdresse(const ReglagesPlomex &p, const EtatEnveloppe &e) {
  // Kept as 32-bit values between computing and printing.
  const auto x = static_cast<float>((p.MargeMAX + 80) / kLongueurDL * e.LargeurEnv);
  const auto y = static_cast<float>((p.MargeMAY + 50) / kHauteurDL * e.HauteurEnv);
  return {Millimetres(x), Millimetres(y)};
}

Point OrigineExpediteur(const ReglagesPlomex &p, const EtatEnveloppe &e) {
  return {Millimetres(p.MargeMEX + 2), Millimetres((p.MargeMEY + 5) / kHauteurDL * e.HauteurEnv)};
}

Point OriginePage(const ReglagesPlomex &p, const EtatEnveloppe &e) {
  double x = -p.MargeDroite, y = -p.MargeHaute;
  if (p.Orientation != 1) {
    if (p.BordImprime != 1) x += e.LargeurEnv - kLongueurDL;
    if (p.PositionEnveloppe == 2)
      y += (e.HauteurEnv - kHauteurDL) / 2;
    else if (p.PositionEnveloppe != 1)
      y += e.HauteurEnv - kHauteurDL;
  }
  return {Millimetres(x), Millimetres(y)};
}

Police PoliceAdresse(const ReglagesPlomex &p) {
  return PoliceLisible(p.PoliceA, p.TailleA, p.GrasA == 1, 10);
}

Police PoliceExpediteur(const ReglagesPlomex &p) {
  return PoliceLisible(p.PoliceE, p.TailleE, p.GrasE == 1, 8);
}

namespace {

/// The optional comment: its right end stands 40 mm from the right end of the envelope.
LignePlacee PlacerCommentaire(const ReglagesPlomex &p, const EtatEnveloppe &e, double reduction,
                              const MesureTexte &mesure) {
  Police police = PoliceExpediteur(p);
  police.points += 2;
  police.gras = e.CommentaireGras;
  police.souligne = e.CommentaireSouligne;
  const Millimetres x =
      Millimetres(static_cast<double>(e.LargeurEnv) - 40) - mesure.Largeur(e.Commentaire, police);
  return {e.Commentaire, x / reduction, OrigineExpediteur(p, e).y / reduction, police};
}

/// Comment, sender, address. `reduction` divides every place but the sender's horizontal one.
std::vector<LignePlacee> PlacerSurEnveloppe(const ReglagesPlomex &p, const EtatEnveloppe &e,
                                            const ContenuEnveloppe &contenu,
                                            const Police &policeExpediteur, double reduction,
                                            const MesureTexte &mesure) {
  std::vector<LignePlacee> lignes;
  if (contenu.commentaire) lignes.push_back(PlacerCommentaire(p, e, reduction, mesure));

  const Point origineE = OrigineExpediteur(p, e);
  const Zone expediteur{contenu.expediteur.split(u'\n'),
                        {origineE.x, origineE.y / reduction},
                        policeExpediteur,
                        p.AlignE};
  Placer(expediteur, mesure, lignes, [](qsizetype) { return false; });

  const Point origineA = OrigineAdresse(p, e);
  const Zone adresse{contenu.adresse.split(u'\n'),
                     {origineA.x / reduction, origineA.y / reduction},
                     PoliceAdresse(p),
                     p.AlignA};
  const qsizetype derniere = adresse.lignes.size() - 1;
  Placer(adresse, mesure, lignes, [&](qsizetype i) {
    const bool ville = i == derniere || (e.PaysPresent == 1 && i == derniere - 2);
    return (i == 0 && p.GrasPLigne == 1) || (ville && p.GrasDLigne == 1);
  });
  return lignes;
}

}  // namespace

std::vector<LignePlacee> MettreEnPage(const ReglagesPlomex &p, const EtatEnveloppe &e,
                                      const ContenuEnveloppe &contenu, const MesureTexte &mesure) {
  std::vector<LignePlacee> page = PlacerSurEnveloppe(p, e, contenu, PoliceExpediteur(p), 1, mesure);
  const Point origine = OriginePage(p, e);
  for (LignePlacee &ligne : page) {
    ligne.x = ligne.x - origine.x;
    ligne.y = ligne.y - origine.y;
  }
  return page;
}

std::vector<LignePlacee> MettreEnApercu(const ReglagesPlomex &p, const EtatEnveloppe &e,
                                        const ContenuEnveloppe &contenu,
                                        const MesureTexte &mesure) {
  Police expediteur = PoliceExpediteur(p);
  expediteur.points -= 1;
  return PlacerSurEnveloppe(p, e, contenu, expediteur, kReductionApercu, mesure);
}

bool CommentaireImprime(const ReglagesRTColor &rtcolor, const EtatEnveloppe &e) {
  return !e.Commentaire.isEmpty() &&
         (e.ImpressionMultiple == 0 || rtcolor.InterdireCommentaire == 0);
}

bool ImpressionConfiguree(const ReglagesPlomex &p) {
  return p.Orientation > 0 && p.BordImprime > 0 && p.PositionEnveloppe > 0;
}

std::optional<QString> TrouverImprimante(const QStringList &noms, const QString &nom) {
  if (noms.contains(nom)) return nom;
  if (nom.size() == kNomCoupe)
    for (const QString &candidat : noms)
      if (candidat.startsWith(nom)) return candidat;
  return std::nullopt;
}

FinImpression ImprimerPage(Imprimante &imprimante, const QString &appareil, const ReglagesPlomex &p,
                           const EtatEnveloppe &e, const ContenuEnveloppe &contenu) {
  const auto sens = p.Orientation == 1 ? Orientation::Portrait : Orientation::Paysage;
  const auto document = imprimante.Ouvrir(appareil, {.nom = u"Enveloppe"_s, .orientation = sens});
  if (document == nullptr) return {};
  EcrireLignes(MettreEnPage(p, e, contenu, *document), *document);
  return document->Terminer();
}

void EcrireLignes(const std::vector<LignePlacee> &lignes, Feuille &feuille) {
  for (const LignePlacee &ligne : lignes)
    feuille.Ecrire(ligne.x, ligne.y, ligne.police, ligne.texte);
}
