#include "storage/ReunionTables.h"

#include "storage/Enonces.h"
#include "storage/Noms.h"
#include "storage/Tables.h"

#include <QHash>
#include <QSet>
#include <QStringList>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// By what texts are the same.
QString CleTexte(const QString &texte) {
  return EnCapitales(texte.simplified());
}

qsizetype ReunirVilles(Base &source, Base &cible) {
  QSet<QString> villes;
  QSet<std::pair<QString, QString>> paires;
  const auto noter = [&](const VilleCode &ligne) {
    villes.insert(CleTexte(ligne.Ville));
    paires.insert({CleTexte(ligne.Ville), CleTexte(ligne.CodePostal)});
  };
  for (const VilleCode &ligne : TableVille(cible).Toutes()) noter(ligne);
  qsizetype ajoutees = 0;
  for (const VilleCode &ligne : TableVille(source).Toutes()) {
    const QString ville = CleTexte(ligne.Ville), code = CleTexte(ligne.CodePostal);
    const bool connue = code.isEmpty() ? villes.contains(ville) : paires.contains({ville, code});
    if (connue || EstSansNom(ville)) continue;
    AjouterLigne(
        cible,
        VilleCode{
            .Index = 0, .CodePostal = ligne.CodePostal, .Ville = ligne.Ville, .Liens = u""_s});
    noter(ligne);
    ++ajoutees;
  }
  if (ajoutees > 0) RelierVilles(cible);
  return ajoutees;
}

QString CleExpediteur(const Expediteur &e) {
  QStringList lignes;
  for (const QString &ligne :
       {e.Ligne1, e.Ligne2, e.Ligne3, e.Ligne4, e.Ligne5, e.CodePostal, e.Ville, e.Pays})
    if (const QString cle = CleTexte(ligne); !EstSansNom(cle)) lignes.append(cle);
  return lignes.join(u'\n');
}

qsizetype ReunirExpediteurs(Base &source, Base &cible) {
  QSet<QString> la{QString()};
  for (const Expediteur &expediteur : TableExpediteur(cible).Tous())
    la.insert(CleExpediteur(expediteur));
  qsizetype ajoutes = 0;
  for (Expediteur &expediteur : TableExpediteur(source).Tous()) {
    const QString cle = CleExpediteur(expediteur);
    if (la.contains(cle)) continue;
    la.insert(cle);
    expediteur.ParDefaut = false;
    AjouterLigne(cible, expediteur);
    ++ajoutes;
  }
  return ajoutes;
}

QString CleDe(const TypeAlerte &type) {
  return CleTexte(type.Type_alerte);
}
QString CleDe(const PersonneAlerte &personne) {
  return CleTexte(personne.Nom) + u'\n' + CleTexte(personne.DDN);
}
const QString &NomDe(const TypeAlerte &type) {
  return type.Type_alerte;
}
const QString &NomDe(const PersonneAlerte &personne) {
  return personne.Nom;
}

/// Kinds or people: those in force of the source, and which row each is here.
template <typename L>
QHash<Cle, Cle> Reunir(Base &source, Base &cible, qsizetype &ajoutes) {
  QHash<QString, L> la;
  for (const L &ligne : LireLignes<L>(cible))
    if (const auto deja = la.constFind(CleDe(ligne)); deja == la.cend() || !deja->Disponible)
      la.insert(CleDe(ligne), ligne);
  QHash<Cle, Cle> cles;
  for (const L &ligne : LireLignes<L>(source, u" WHERE Disponible<>0"_s)) {
    if (EstSansNom(NomDe(ligne))) continue;
    L &ici = la[CleDe(ligne)];
    if (!ici.Disponible) {
      ++ajoutes;
      if (ici.ID == 0) {
        ici = ligne;
        ici.ID = AjouterLigne(cible, ligne);
      } else {
        ici.Disponible = true;
        ModifierLigne(cible, ici, Seulement(&L::Disponible));
      }
    }
    cles.insert(ligne.ID, ici.ID);
  }
  return cles;
}

QString CleEvenement(const Evenement &e) {
  return u"%1 %2 %3 %4"_s.arg(e.Nom).arg(e.Alerte).arg(e.Annuel ? 1 : 0).arg(e.Date.trimmed());
}

void ReunirAlertes(Base &source, const ClesAlertes &cles, Base &cible, Reunion &reunion) {
  const auto types = Reunir<TypeAlerte>(source, cible, reunion.types);
  const auto personnes = Reunir<PersonneAlerte>(source, cible, reunion.personnes);
  QSet<QString> la;
  for (const Evenement &evenement : LireLignes<Evenement>(cible))
    la.insert(CleEvenement(evenement));
  for (Evenement &evenement : LireLignes<Evenement>(source)) {
    evenement.Nom = personnes.value(cles.personnes.value(evenement.Nom));
    evenement.Alerte = types.value(cles.types.value(evenement.Alerte));
    const QString cle = CleEvenement(evenement);
    if (evenement.Nom == 0 || evenement.Alerte == 0) {
      ++reunion.laisses;
    } else if (!la.contains(cle)) {
      la.insert(cle);
      AjouterLigne(cible, evenement);
      ++reunion.evenements;
    }
  }
}

}  // namespace

Reunion &Reunion::operator+=(const Reunion &autre) {
  villes += autre.villes;
  expediteurs += autre.expediteurs;
  types += autre.types;
  personnes += autre.personnes;
  evenements += autre.evenements;
  laisses += autre.laisses;
  return *this;
}

ClesAlertes LireClesAlertes(SourceAncienne &source) {
  const auto lire = [&source](auto table) {
    QHash<Cle, Cle> cles;
    if (!source.Ouvrir(QString::fromUtf16(table.nom))) return cles;
    for (Cle nouvelle = 1; source.Suivante(); ++nouvelle)
      if (const auto ancienne = source.Champ(0)) cles.insert(ancienne->toLongLong(), nouvelle);
    return cles;
  };
  return {lire(Table<PersonneAlerte>{}), lire(Table<TypeAlerte>{})};
}

Reunion ReunirTables(Base &source, const ClesAlertes &cles, Base &cible) {
  Reunion reunion;
  reunion.villes = ReunirVilles(source, cible);
  reunion.expediteurs = ReunirExpediteurs(source, cible);
  ReunirAlertes(source, cles, cible, reunion);
  return reunion;
}
