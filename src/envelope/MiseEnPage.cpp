#include "envelope/MiseEnPage.h"

#include "envelope/FormatsEnveloppe.h"

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// One of the two text zones: where it begins, how it is written.
struct Zone {
  QStringList lignes;
  Point origine;
  Police police;
  Alignement alignement = Alignement::Gauche;
};

Millimetres Decalage(Alignement alignement, Millimetres bloc, Millimetres ligne) {
  switch (alignement) {
    case Alignement::Droite:
      return bloc - ligne;
    case Alignement::Centre:
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
  if (zone.alignement < Alignement::Gauche || zone.alignement > Alignement::Centre) return;
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
  return {(p.MargeMAX + Millimetres(80)) * (e.LargeurEnv / kLongueurDL),
          (p.MargeMAY + Millimetres(50)) * (e.HauteurEnv / kHauteurDL)};
}

Point OrigineExpediteur(const ReglagesPlomex &p, const EtatEnveloppe &e) {
  return {p.MargeMEX + Millimetres(2), (p.MargeMEY + Millimetres(5)) * (e.HauteurEnv / kHauteurDL)};
}

Point OriginePage(const ReglagesPlomex &p, const EtatEnveloppe &e) {
  Point origine{-p.MargeDroite, -p.MargeHaute};
  if (p.Orientation == OrientationFeuille::Portrait) return origine;
  if (p.BordImprime != BordImprime::Gauche) origine.x += e.LargeurEnv - kLongueurDL;
  if (p.PositionEnveloppe == PositionEnveloppe::Milieu)
    origine.y += (e.HauteurEnv - kHauteurDL) / 2;
  else if (p.PositionEnveloppe != PositionEnveloppe::Haut)
    origine.y += e.HauteurEnv - kHauteurDL;
  return origine;
}

Police PoliceAdresse(const ReglagesPlomex &p) {
  return PoliceLisible(p.PoliceA, p.TailleA, p.GrasA, 10);
}

Police PoliceExpediteur(const ReglagesPlomex &p) {
  return PoliceLisible(p.PoliceE, p.TailleE, p.GrasE, 8);
}

namespace {

/// Where a part of the envelope begins, from its place there.
using Placement = std::function<Point(Point)>;

/// The optional comment.
LignePlacee PlacerCommentaire(const ReglagesPlomex &p, const EtatEnveloppe &e, double reduction,
                              const MesureTexte &mesure, const Placement &placement) {
  Police police = PoliceExpediteur(p);
  police.points += 2;
  police.gras = e.CommentaireGras;
  police.souligne = e.CommentaireSouligne;
  const Millimetres x = e.LargeurEnv - kRetraitCommentaire - mesure.Largeur(e.Commentaire, police);
  const Point place = placement({x / reduction, OrigineExpediteur(p, e).y / reduction});
  return {e.Commentaire, place.x, place.y, police};
}

/// Comment, sender, address. `reduction` divides every place but the sender's horizontal one.
std::vector<LignePlacee> PlacerSurEnveloppe(const ReglagesPlomex &p, const EtatEnveloppe &e,
                                            const ContenuEnveloppe &contenu,
                                            const Police &policeExpediteur, double reduction,
                                            const MesureTexte &mesure, const Placement &placement) {
  std::vector<LignePlacee> lignes;
  if (contenu.commentaire) lignes.push_back(PlacerCommentaire(p, e, reduction, mesure, placement));

  const Point origineE = OrigineExpediteur(p, e);
  const Zone expediteur{contenu.expediteur.split(u'\n'),
                        placement({origineE.x, origineE.y / reduction}), policeExpediteur,
                        p.AlignE};
  Placer(expediteur, mesure, lignes, [](qsizetype) { return false; });

  const Point origineA = OrigineAdresse(p, e);
  const Zone adresse{contenu.adresse.split(u'\n'),
                     placement({origineA.x / reduction, origineA.y / reduction}), PoliceAdresse(p),
                     p.AlignA};
  const qsizetype derniere = adresse.lignes.size() - 1;
  Placer(adresse, mesure, lignes, [&](qsizetype i) {
    const bool ville = i == derniere || (contenu.paysPresent && i == derniere - 2);
    return (i == 0 && p.GrasPLigne) || (ville && p.GrasDLigne);
  });
  return lignes;
}

}  // namespace

std::vector<LignePlacee> MettreEnPage(const ReglagesPlomex &p, const EtatEnveloppe &e,
                                      const ContenuEnveloppe &contenu, const MesureTexte &mesure,
                                      std::optional<Point> coin) {
  const Point origine = coin ? Point{-p.MargeDroite, -p.MargeHaute} : OriginePage(p, e);
  return PlacerSurEnveloppe(p, e, contenu, PoliceExpediteur(p), 1, mesure, [&](Point place) {
    const Point pose = place - origine;
    return coin ? Point{std::max(pose.x, coin->x), std::max(pose.y, coin->y)} : pose;
  });
}

Papier PapierPour(const ReglagesPlomex &p, PapierEnveloppe choix, const Taille &enveloppe) {
  if (choix == PapierEnveloppe::FeuilleA4)
    return Papier::A4(p.Orientation == OrientationFeuille::Portrait ? Orientation::Portrait
                                                                    : Orientation::Paysage);
  const Tour couchee = p.BordImprime == BordImprime::Gauche ? Tour::Droite : Tour::Gauche;
  return {enveloppe, choix == PapierEnveloppe::GrandCote ? Tour::Aucun : couchee, true};
}

std::vector<LignePlacee> MettreEnApercu(const ReglagesPlomex &p, const EtatEnveloppe &e,
                                        const ContenuEnveloppe &contenu,
                                        const MesureTexte &mesure) {
  Police expediteur = PoliceExpediteur(p);
  expediteur.points -= 1;
  return PlacerSurEnveloppe(p, e, contenu, expediteur, kReductionApercu, mesure,
                            [](Point place) { return place; });
}

bool CommentaireImprime(const ReglagesRTColor &rtcolor, const EtatEnveloppe &e) {
  return !e.Commentaire.isEmpty() &&
         (!e.ImpressionMultiple || rtcolor.InterdireCommentaire.EstNul());
}

bool ImpressionConfiguree(const ReglagesPlomex &p) {
  return p.Orientation != OrientationFeuille::NonConfiguree &&
         p.BordImprime != BordImprime::NonConfigure &&
         p.PositionEnveloppe != PositionEnveloppe::NonConfiguree;
}

namespace {

QString PremiereLigne(const QString &texte) {
  for (const QString &ligne : texte.split(u'\n'))
    if (!ligne.trimmed().isEmpty()) return ligne.trimmed();
  return {};
}

QString NomDocument(const std::vector<Pli> &plis, const QString &titre) {
  if (plis.size() != 1) return (u"Enveloppes "_s + titre).trimmed();
  return (u"Enveloppe "_s + PremiereLigne(plis.front().contenu.adresse)).trimmed();
}

}  // namespace

std::optional<FinImpression> ImprimerPlis(Imprimante &imprimante, const QString &appareil,
                                          const ReglagesPlomex &plomex,
                                          const Imprimantes &imprimantes,
                                          const std::vector<Pli> &plis, const Conduite &conduite) {
  // Another printer in the place of one that is gone takes envelopes in its own way.
  const ReglagesPlomex p =
      appareil == plomex.Imprimante ? plomex : imprimantes.Reglages(appareil, plomex);
  const EtatEnveloppe &premier = plis.front().etat;
  const Papier papier =
      PapierPour(p, imprimantes.PapierDe(appareil), {premier.LargeurEnv, premier.HauteurEnv});
  const auto document =
      imprimante.Ouvrir(appareil, {.nom = NomDocument(plis, conduite.titre),
                                   .papier = papier,
                                   .correction = imprimantes.CorrectionDe(appareil, papier),
                                   .depuisLeBord = papier.enveloppe,
                                   .recto = true,
                                   .arret = conduite.arret});
  const auto coin = papier.enveloppe ? std::optional(document->CoinImprimable()) : std::nullopt;
  const auto nombre = static_cast<qsizetype>(plis.size());
  for (qsizetype rang = 0; rang < nombre; ++rang) {
    const auto &[etat, contenu] = plis[static_cast<std::size_t>(rang)];
    if (rang > 0) document->NouvellePage();
    EcrireLignes(MettreEnPage(p, etat, contenu, *document, coin), *document);
    if (!conduite.avance(rang + 1, nombre)) return std::nullopt;
  }
  return document->Terminer();
}

void EcrireLignes(const std::vector<LignePlacee> &lignes, Feuille &feuille) {
  for (const LignePlacee &ligne : lignes)
    feuille.Ecrire(ligne.x, ligne.y, ligne.police, ligne.texte);
}
