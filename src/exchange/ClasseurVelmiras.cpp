#include "exchange/ClasseurVelmiras.h"

#include "platform/Fichiers.h"
#include "platform/Pannes.h"
#include "storage/Dossiers.h"
#include "storage/Tables.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using L = Correspondant;

struct ColonneClasseur {
  const char16_t *titre;
  QString L::*champ;
};

constexpr std::array kColonnes{
    ColonneClasseur{u"VELMIRA", &L::NomVelmira},
    ColonneClasseur{u"TEL.  DOMICILE", &L::Tel},
    ColonneClasseur{u"TEL.  TRAVAIL", &L::TelTravail},
    ColonneClasseur{u"PORTABLE", &L::Portable},
    ColonneClasseur{u"FAX", &L::Fax},
    ColonneClasseur{u"ADRESSE  EMAIL", &L::Mail},
    ColonneClasseur{u"PAGE  WEB", &L::Web},
};
constexpr auto kTitreAdresse = u"ADRESSE";
constexpr std::array kAdresse{&L::Ligne1, &L::Ligne2,     &L::Ligne3, &L::Ligne4,
                              &L::Ligne5, &L::CodePostal, &L::Ville};

constexpr quint32 kGrisFonce = 0x404040, kBlanc = 0xFFFFFF;

// What a spreadsheet allows, and its default font: points and digits.
constexpr double kHauteurLigne = 15, kHauteurMax = 409;
constexpr double kLargeurMax = 255, kMarge = 1.5;
constexpr double kLarge = 1.3, kGras = 1.1;

QString TexteAdresse(const L &velmira) {
  QStringList lignes;
  for (const auto champ : kAdresse)
    if (!(velmira.*champ).isEmpty()) lignes.append(velmira.*champ);
  return lignes.join(u'*').replace(u'*', u'\n');
}

FeuilleClasseur::Rang RangTitres() {
  const StyleClasseur rang{.centre = true, .fond = kGrisFonce};
  StyleClasseur titre = rang;
  titre.gras = titre.italique = titre.souligne = true;
  titre.couleur = kBlanc;
  FeuilleClasseur::Rang titres{.cellules = {}, .style = rang};
  for (const ColonneClasseur &colonne : kColonnes)
    titres.cellules.push_back({QString::fromUtf16(colonne.titre), titre});
  titres.cellules.push_back({QString::fromUtf16(kTitreAdresse), titre});
  return titres;
}

FeuilleClasseur::Rang RangVelmira(const L &velmira) {
  FeuilleClasseur::Rang rang;
  for (const ColonneClasseur &colonne : kColonnes)
    rang.cellules.push_back({u' ' + velmira.*colonne.champ, {}});
  rang.cellules.front().style.gras = true;
  const QString adresse = TexteAdresse(velmira);
  const auto lignes = adresse.count(u'\n') + 1;
  rang.cellules.push_back({adresse, {.lignes = lignes > 1}});
  if (lignes > 1) rang.hauteur = std::min(static_cast<double>(lignes) * kHauteurLigne, kHauteurMax);
  return rang;
}

/// In digits of the default font, as near as it can be told without measuring.
double LargeurTexte(const FeuilleClasseur::Cellule &cellule) {
  double largeur = 0, ligne = 0;
  for (const QChar c : cellule.texte) {
    if (c == u'\n')
      ligne = 0;
    else
      ligne += c.isUpper() || c == u'm' || c == u'w' || c == u'@' ? kLarge : 1;
    largeur = std::max(largeur, ligne);
  }
  return (cellule.style.gras ? kGras : 1) * largeur;
}

}  // namespace

FeuilleClasseur FeuilleVelmiras(const QList<Correspondant> &velmiras) {
  FeuilleClasseur feuille{.nom = u"VELMIRA"_s, .milieu = true, .largeurs = {}, .rangs = {}};
  feuille.rangs.push_back(RangTitres());
  for (const L &velmira : velmiras) feuille.rangs.push_back(RangVelmira(velmira));
  feuille.largeurs.resize(feuille.rangs.front().cellules.size());
  for (const FeuilleClasseur::Rang &rang : feuille.rangs)
    for (std::size_t i = 0; i < rang.cellules.size(); ++i)
      feuille.largeurs[i] = std::max(
          feuille.largeurs[i], std::min(LargeurTexte(rang.cellules[i]) + kMarge, kLargeurMax));
  return feuille;
}

std::optional<QString> EcrireClasseur(Classeur &classeur, const QString &dossier, Base &base,
                                      const QList<Cle> &cles, const Avance &avance) {
  QList<Correspondant> velmiras;
  for (qsizetype i = 0; i < cles.size(); ++i) {
    if (!avance(i, cles.size())) return std::nullopt;
    if (auto velmira = TableAdresse(base).Lire(cles[i])) velmiras.append(*std::move(velmira));
  }
  CreerDossier(dossier, Acces::Prive);
  errno = 0;
  QTemporaryDir propre(dossier + u"/XXXXXX"_s);
  if (!propre.isValid())
    throw EchecSysteme(u"Le classeur n'a pas pu être écrit dans le répertoire « %1 »"_s.arg(
                           QDir::toNativeSeparators(dossier)),
                       u"Les données sont intactes."_s, errno);
  const QString chemin = propre.filePath(NomClasseur());
  classeur.Ecrire(chemin, FeuilleVelmiras(velmiras));
  if (!avance(cles.size(), cles.size())) return std::nullopt;
  QFile::setPermissions(chemin, QFile::ReadOwner);
  propre.setAutoRemove(false);
  return chemin;
}
