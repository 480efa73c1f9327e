#include "exchange/ChoixRencontres.h"

#include "directory/LibellesFiche.h"
#include "exchange/ColonnesCsv.h"
#include "storage/Conflits.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using L = Correspondant;
using Choix = ChoixColonnes<L>;

struct Groupe {
  QString nom;
  Choix colonnes;
};

/// In the order of a table of ours.
const QList<Groupe> &Groupes() {
  static const QList<Groupe> kGroupes = [] {
    const Choix adresse = ColonnesAdresse();
    QList<Groupe> groupes;
    bool avecAdresse = false;
    for (const std::size_t ordinal : OrdreColonnes()) {
      if (!adresse[ordinal])
        groupes.append({EntetePropre(ordinal), Choix().set(ordinal)});
      else if (!std::exchange(avecAdresse, true))
        groupes.append({u"Adresse"_s, adresse});
    }
    return groupes;
  }();
  return kGroupes;
}

QString LignesAdresse(const L &fiche) {
  QStringList lignes;
  for (const auto champ : {&L::Ligne2, &L::Ligne3, &L::Ligne4, &L::Ligne5})
    lignes.append(fiche.*champ);
  lignes.append((fiche.CodePostal + u' ' + fiche.Ville).trimmed());
  lignes.append(fiche.Pays);
  lignes.removeAll(QString());
  return lignes.join(u'\n');
}

std::pair<QString, QString> Valeurs(const Rencontre &rencontre, const Choix &colonnes) {
  const L &la = rencontre.presente, &ici = rencontre.personne.fiche;
  if (colonnes[Ordinal(&L::Ville)]) return {LignesAdresse(la), LignesAdresse(ici)};
  if (colonnes[Ordinal(&L::Commentaires)])
    return {la.Commentaires, NotesNouvelles(la.Commentaires, rencontre.personne).join(u'\n')};
  if (colonnes[Ordinal(&L::Photo)])
    return {la.Photo.isEmpty() ? QString() : u"une photo"_s, u"une photo"_s};
  const QList<ChampEnConflit> champs = ChampsEnConflit(colonnes, ici, la, LibellesFiche());
  return {champs.constFirst().sienne, champs.constFirst().mienne};
}

}  // namespace

QStringList NomsChamps(const Confrontation &faite) {
  const Choix differents = faite.manques | faite.ecarts;
  QStringList noms;
  for (const Groupe &groupe : Groupes())
    if ((groupe.colonnes & differents).any()) noms.append(groupe.nom);
  return noms;
}

QList<ChampRencontre> ChampsDe(const Rencontre &rencontre) {
  const Choix differents = rencontre.faite.manques | rencontre.faite.ecarts;
  QList<ChampRencontre> champs;
  for (const Groupe &groupe : Groupes()) {
    if ((groupe.colonnes & differents).none()) continue;
    auto [la, ici] = Valeurs(rencontre, groupe.colonnes);
    champs.append({groupe.nom, groupe.colonnes, std::move(la), std::move(ici)});
  }
  return champs;
}

std::pair<QString, qsizetype> ChoixRencontres::CleDe(qsizetype rang) const {
  const Origine &origine = rencontres_[rang].personne.origine;
  return {origine.fichier, origine.rang};
}

const ReponseReprise *ChoixRencontres::Propre(qsizetype rang) const {
  const auto propre = propres_.constFind(CleDe(rang));
  return propre == propres_.cend() ? nullptr : &*propre;
}

void ChoixRencontres::Repondre(qsizetype rang, const ReponseReprise &reponse) {
  propres_.insert(CleDe(rang), reponse);
}

void ChoixRencontres::RepondreCommeTous(qsizetype rang) {
  propres_.remove(CleDe(rang));
}

Deja ChoixRencontres::DejaDe(qsizetype rang) const {
  const ReponseReprise *propre = Propre(rang);
  return propre == nullptr ? pourTous_ : propre->deja;
}

Choix ChoixRencontres::Prises(qsizetype rang) const {
  const Confrontation &faite = rencontres_[rang].faite;
  const Choix tout = faite.manques | faite.ecarts;
  const ReponseReprise *propre = Propre(rang);
  if (propre != nullptr && propre->prises) return *propre->prises & tout;
  switch (DejaDe(rang)) {
    case Deja::Completer:
      return faite.manques;
    case Deja::Prendre:
      return tout;
    case Deja::Garder:
    case Deja::Deux:
      break;
  }
  return {};
}

Choix ChoixRencontres::Notees(qsizetype rang) const {
  const Confrontation &faite = rencontres_[rang].faite;
  if (DejaDe(rang) != Deja::Completer) return {};
  return faite.ecarts & ~Prises(rang) & ~faite.notees & Notables();
}

void ChoixRencontres::Prendre(qsizetype rang, const Choix &champ, bool prend) {
  const Choix prises = Prises(rang);
  Repondre(rang, {.deja = DejaDe(rang), .prises = prend ? prises | champ : prises & ~champ});
}

qsizetype ChoixRencontres::Nombre(const Choix &champ) const {
  return std::ranges::count_if(rencontres_, [&](const Rencontre &rencontre) {
    return ((rencontre.faite.manques | rencontre.faite.ecarts) & champ).any();
  });
}

qsizetype ChoixRencontres::Nombre() const {
  qsizetype nombre = 0;
  for (qsizetype rang = 0; rang < rencontres_.size(); ++rang) {
    const ReponseReprise *propre = Propre(rang);
    const bool deux = DejaDe(rang) == Deja::Deux && (propre == nullptr || !propre->prises);
    if (deux || (Prises(rang) | Notees(rang)).any()) ++nombre;
  }
  return nombre;
}

void ChoixRencontres::PrendrePartout(const Choix &champ, bool prend) {
  for (qsizetype rang = 0; rang < rencontres_.size(); ++rang) {
    const Confrontation &faite = rencontres_[rang].faite;
    const Choix ici = (faite.manques | faite.ecarts) & champ;
    const bool deja = prend ? (Prises(rang) & ici) == ici : (Prises(rang) & ici).none();
    if (ici.any() && !deja) Prendre(rang, champ, prend);
  }
}
