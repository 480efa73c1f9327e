#include "directory/ImpressionListe.h"

#include <QStringList>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <initializer_list>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// A file may go on to a printer that needs margins.
constexpr Millimetres kMargeFichier(15);

// Between the parts of a line.
constexpr QLatin1StringView kLiaison(" - ");

Police Titre() {
  return {u"Arial"_s, 14, true, true};
}
Police Nom() {
  return {u"Arial"_s, 10, true, true};
}
Police Texte() {
  return {u"Arial"_s, 10, false, false};
}
Police Petite() {
  return {u"Arial"_s, 8, false, false};
}

/// The beginning of a text that fits into a width, for a line of its own; the rest stays.
class Coupe {
 public:
  Coupe(const MesureTexte &mesure, const Police &police, Millimetres largeur)
      : mesure_(mesure), police_(police), largeur_(largeur) {}

  QString Prendre(QString &texte) const {
    if (Tient(texte, texte.size())) return std::exchange(texte, {});
    const QString debut = texte.left(Place(texte) + 1);  // with the sign that is too many
    if (const auto partie = debut.lastIndexOf(kLiaison); partie > 0)
      return Detacher(texte, partie + kTrait);
    if (const auto blanc = debut.lastIndexOf(u' '); blanc > 0) return Detacher(texte, blanc);
    return Detacher(texte, SignesEntiers(debut));
  }

 private:
  // Of what joins two parts, the hyphen stays at the end of the line.
  static constexpr qsizetype kTrait = 2;

  bool Tient(const QString &texte, qsizetype longueur) const {
    return mesure_.Largeur(texte.left(longueur), police_) <= largeur_;
  }
  /// How many characters of a text that does not fit do so, if any. The bounds are doubled first:
  /// a text may be many pages long.
  qsizetype Place(const QString &texte) const {
    qsizetype trop = 1;
    while (trop < texte.size() && Tient(texte, trop)) trop = std::min(trop * 2, texte.size());
    qsizetype tient = trop / 2;
    while (trop - tient > 1) {
      const qsizetype milieu = std::midpoint(tient, trop);
      (Tient(texte, milieu) ? tient : trop) = milieu;
    }
    return tient;
  }
  /// Where the last sign begins, unless it is the only one.
  static qsizetype SignesEntiers(const QString &debut) {
    QTextBoundaryFinder signes(QTextBoundaryFinder::Grapheme, debut);
    signes.toEnd();
    const qsizetype dernier = signes.toPreviousBoundary();
    return dernier > 0 ? dernier : debut.size();
  }
  static QString Detacher(QString &texte, qsizetype longueur) {
    QString debut = texte.left(longueur);
    while (debut.endsWith(u' ')) debut.chop(1);
    texte.remove(0, longueur);
    while (texte.startsWith(u' ')) texte.remove(0, 1);
    return debut;
  }

  const MesureTexte &mesure_;
  const Police &police_;
  Millimetres largeur_;
};

/// Writes lines from the top of a page on, and goes to the next page with the line that no longer
/// fits. What is wider than the page goes on in the next line.
class Redaction {
 public:
  explicit Redaction(Document &document)
      : document_(document), largeur_(document.LargeurPage()), hauteur_(document.HauteurPage()) {}

  void Ecrire(const std::vector<LigneListe> &lignes) {
    for (const LigneListe &ligne : lignes) Ecrire(ligne);
  }

  int Pages() const { return pages_; }

 private:
  void Ecrire(const LigneListe &ligne) {
    const Coupe coupe(document_, ligne.police, largeur_);
    QString reste = ligne.texte;
    do {
      Ecrire(ligne.police, coupe.Prendre(reste));
    } while (!reste.isEmpty());
  }
  void Ecrire(const Police &police, const QString &texte) {
    const Millimetres hauteur = document_.HauteurLigne(police);
    if (y_ + hauteur > hauteur_) {
      document_.NouvellePage();
      ++pages_;
      y_ = {};
    }
    if (!texte.isEmpty()) document_.Ecrire({}, y_, police, texte);
    y_ += hauteur;
  }

  Document &document_;
  Millimetres largeur_, hauteur_;
  Millimetres y_;
  int pages_ = 1;
};

struct Partie {
  bool choisie;
  const char16_t *libelle;
  const QString &valeur;
};

/// The parts that are chosen and hold something, each behind its label.
QString Reunir(std::initializer_list<Partie> parties) {
  QStringList textes;
  for (const Partie &partie : parties)
    if (partie.choisie && !partie.valeur.isEmpty())
      textes.append(QString::fromUtf16(partie.libelle) + partie.valeur);
  return textes.join(kLiaison);
}

void Ajouter(std::vector<LigneListe> &lignes, int vides, const Police &police) {
  lignes.insert(lignes.end(), static_cast<std::size_t>(vides), {u""_s, police});
}

/// The walk sets out only where the first is not the last: one correspondent alone is not printed.
qsizetype Imprimes(const CadreListe &cadre) {
  return cadre.nombre == 1 ? 0 : cadre.nombre;
}

}  // namespace

std::vector<LigneListe> LignesTete(const CadreListe &cadre) {
  std::vector<LigneListe> lignes;
  Ajouter(lignes, 1, Texte());
  lignes.push_back({u"Velmiras de "_s + cadre.NomPerso + u" : "_s + QString::number(cadre.nombre) +
                        u" enregistrements"_s,
                    Titre()});
  Ajouter(lignes, 4, Titre());
  return lignes;
}

std::vector<LigneListe> LignesFiche(const Correspondant &f, const ChoixListe &choix) {
  std::vector<LigneListe> lignes{{f.NomVelmira, Nom()}};
  const auto ajouter = [&lignes](const QString &texte) {
    if (!texte.isEmpty()) lignes.push_back({texte, Texte()});
  };
  ajouter(Reunir({{choix.adresse, u"", f.Ligne2},
                  {choix.adresse, u"", f.Ligne3},
                  {choix.adresse, u"", f.Ligne4},
                  {choix.adresse, u"", f.Ligne5},
                  {choix.adresse, u"", f.CodePostal},
                  {choix.adresse, u"", f.Ville}}));
  Ajouter(lignes, 1, Texte());
  ajouter(Reunir({{choix.domicile, u"Tél. domicile : ", f.Tel},
                  {choix.travail, u"Tél. travail : ", f.TelTravail},
                  {choix.portable, u"Portable : ", f.Portable},
                  {choix.fax, u"Fax : ", f.Fax}}));
  ajouter(Reunir({{choix.mail, u"Email : ", f.Mail}, {choix.web, u"Site Web : ", f.Web}}));
  Ajouter(lignes, 1, Texte());
  return lignes;
}

std::vector<LigneListe> LignesPied(const CadreListe &cadre) {
  std::vector<LigneListe> lignes;
  // The font of what stands above goes on.
  Ajouter(lignes, 3, Imprimes(cadre) == 0 ? Titre() : Texte());
  lignes.push_back({u"Imprimé le  "_s + cadre.instant.toString(u"dd/MM/yyyy"_s) + u"  à  "_s +
                        cadre.instant.toString(u"HH:mm:ss"_s),
                    Petite()});
  lignes.push_back({u"Velmira"_s, Petite()});
  return lignes;
}

ListeImprimee ImprimerListe(Imprimante &imprimante, const Imprimantes &imprimantes,
                            const CadreListe &cadre, const ChoixListe &choix,
                            const LectureListe &lire, const std::stop_token &arret) {
  const QString appareil = imprimante.ParDefaut();
  const Correction correction = imprimantes.CorrigeListe(appareil)
                                    ? imprimantes.CorrectionDe(appareil, Papier())
                                    : Correction();
  const auto document = imprimante.Ouvrir(
      appareil,
      {.nom = u"Liste"_s, .correction = correction, .margeFichier = kMargeFichier, .arret = arret});
  Redaction redaction(*document);
  redaction.Ecrire(LignesTete(cadre));
  for (qsizetype rang = 0; rang < Imprimes(cadre); ++rang) {
    const auto fiche = lire(rang);
    if (!fiche) return {};
    redaction.Ecrire(LignesFiche(*fiche, choix));
  }
  redaction.Ecrire(LignesPied(cadre));
  return {document->Terminer(), appareil, redaction.Pages()};
}
