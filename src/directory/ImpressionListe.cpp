#include "directory/ImpressionListe.h"

#include <QStringList>

#include <algorithm>
#include <initializer_list>

using namespace Qt::StringLiterals;

namespace {

// A file may go on to a printer that needs margins.
constexpr Millimetres kMargeFichier(15);

// A text position above the top edge counts as the edge: the empty line that comes first begins
// there, and the heading stands one line below it.
constexpr Millimetres kDepart = kTwip * -600;

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

/// Writes lines from the top of a page on, and goes to the next page with the line that no longer
/// fits.
class Redaction {
 public:
  explicit Redaction(Document &document) : document_(document), hauteur_(document.HauteurPage()) {}

  void Ecrire(const std::vector<LigneListe> &lignes) {
    for (const LigneListe &ligne : lignes) Ecrire(ligne);
  }

 private:
  void Ecrire(const LigneListe &ligne) {
    const Millimetres hauteur = document_.HauteurLigne(ligne.police);
    y_ = std::max(y_, Millimetres());
    if (y_ + hauteur > hauteur_) {
      document_.NouvellePage();
      y_ = {};
    }
    if (!ligne.texte.isEmpty()) document_.Ecrire({}, y_, ligne.police, ligne.texte);
    y_ += hauteur;
  }

  Document &document_;
  Millimetres hauteur_;
  Millimetres y_ = kDepart;
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
  return textes.join(u" - "_s);
}

void Ajouter(std::vector<LigneListe> &lignes, int vides, const Police &police) {
  lignes.insert(lignes.end(), static_cast<std::size_t>(vides), {u""_s, police});
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
  Ajouter(lignes, 3, Texte());
  lignes.push_back({u"Imprimé le  "_s + cadre.instant.toString(u"dd/MM/yyyy"_s) + u"  à  "_s +
                        cadre.instant.toString(u"HH:mm:ss"_s),
                    Petite()});
  lignes.push_back({u"Velmira"_s, Petite()});
  return lignes;
}

FinImpression ImprimerListe(Imprimante &imprimante, const CadreListe &cadre,
                            const ChoixListe &choix, const LectureListe &lire) {
  const auto document =
      imprimante.Ouvrir(imprimante.ParDefaut(), {.nom = u"Liste"_s, .margeFichier = kMargeFichier});
  if (document == nullptr) return {};
  Redaction redaction(*document);
  redaction.Ecrire(LignesTete(cadre));
  // The walk sets out only where the first is not the last: one correspondent alone is not printed.
  const qsizetype imprimes = cadre.nombre == 1 ? 0 : cadre.nombre;
  for (qsizetype rang = 0; rang < imprimes; ++rang) {
    const auto fiche = lire(rang);
    if (!fiche) return {};
    redaction.Ecrire(LignesFiche(*fiche, choix));
  }
  redaction.Ecrire(LignesPied(cadre));
  return document->Terminer();
}
