#include "player/Lignes.h"

#include "player/Echec.h"
#include "storage/Base.h"
#include "storage/Requete.h"
#include "storage/Schema.h"

using namespace Qt::StringLiterals;

namespace {

enum class Genre { Texte, Nombre, Booleen };

Genre GenreDe(const QString *) {
  return Genre::Texte;
}
Genre GenreDe(const bool *) {
  return Genre::Booleen;
}
Genre GenreDe(const int *) {
  return Genre::Nombre;
}
Genre GenreDe(const Cle *) {
  return Genre::Nombre;
}

struct ChampDeTable {
  QString nom, sql;
  Genre genre;
};

struct TableDuMonde {
  QString nom, sql;
  QList<ChampDeTable> champs;  ///< the first is the key

  const QString &Cle() const { return champs.first().sql; }
  const ChampDeTable &Champ(const QString &cherche) const {
    for (const ChampDeTable &champ : champs)
      if (champ.nom == cherche) return champ;
    QStringList noms;
    for (const ChampDeTable &champ : champs) noms.append(champ.nom);
    throw Echec{u"table %1: field %2 expected, it has %3"_s.arg(nom, cherche, noms.join(u", "_s))};
  }
};

template <typename L, typename Champ>
ChampDeTable DecrireChamp(const Colonne<L, Champ> &colonne) {
  return {QString::fromUtf16(colonne.nom), Entre(colonne.nom),
          GenreDe(static_cast<const Champ *>(nullptr))};
}

TableDuMonde TrouverTable(const QString &nom) {
  TableDuMonde trouvee;
  QStringList noms;
  PourChaqueTable([&]<typename L>(Table<L> table) {
    noms.append(QString::fromUtf16(Table<L>::nom));
    if (nom != noms.constLast()) return;
    trouvee = {nom, Nom(table), {}};
    std::apply([&](const auto &...c) { (trouvee.champs.append(DecrireChamp(c)), ...); },
               Table<L>::colonnes);
  });
  Exiger(!trouvee.champs.isEmpty(),
         u"table %1 expected, there are %2"_s.arg(nom, noms.join(u", "_s)));
  return trouvee;
}

struct Affectation {
  const ChampDeTable *champ;
  QString valeur;  ///< null for nul
};

Affectation Affecter(const TableDuMonde &table, const Mot &mot) {
  Exiger(mot.egal > 0, u"Field=\"value\" expected, \"%1\" found"_s.arg(mot.texte));
  const ChampDeTable &champ = table.Champ(mot.texte.left(mot.egal));
  const QString valeur = mot.texte.mid(mot.egal + 1);
  if (!mot.cite && valeur == u"nul"_s) return {&champ, QString()};
  return {&champ, valeur.isNull() ? u""_s : valeur};
}

void Lier(Requete &requete, const Affectation &affectation) {
  const auto &[champ, valeur] = affectation;
  if (champ->genre == Genre::Texte || valeur.isNull()) {
    requete.Lier(valeur);
  } else if (champ->genre == Genre::Booleen) {
    Exiger(valeur == u"vrai"_s || valeur == u"faux"_s,
           u"%1: vrai or faux expected, \"%2\" found"_s.arg(champ->nom, valeur));
    requete.Lier(valeur == u"vrai"_s);
  } else {
    bool nombre = false;
    const qint64 entier = valeur.toLongLong(&nombre);
    Exiger(nombre, u"%1: a number expected, \"%2\" found"_s.arg(champ->nom, valeur));
    requete.Lier(entier);
  }
}

QString ValeurParDefaut(Genre genre) {
  switch (genre) {
    case Genre::Nombre:
      return u"0"_s;
    case Genre::Booleen:
      return u"faux"_s;
    case Genre::Texte:
      break;
  }
  return u""_s;
}

/// Runs a step on the open database; what the engine refuses is the scenario's failure.
template <typename Etape>
auto Avec(const QString &chemin, Etape &&etape) {
  try {
    Base base;
    base.Ouvrir(chemin);
    return etape(base);
  } catch (const Erreur &erreur) {
    throw Echec{erreur.Texte()};
  }
}

void Modifier(const QString &chemin, const QString &texte, const QList<Affectation> &valeurs,
              Cle cle) {
  Avec(chemin, [&](Base &base) {
    Transaction transaction(base);
    Requete requete(base, texte);
    for (const Affectation &valeur : valeurs) Lier(requete, valeur);
    Exiger(requete.Lier(cle).Executer() == 1,
           u"row %1 expected for \"%2\", none of this key found"_s.arg(cle).arg(texte));
    transaction.Valider();
  });
}

}  // namespace

void LignesDuMonde::Ajouter(const QString &table, const QList<Mot> &champs) const {
  const TableDuMonde t = TrouverTable(table);
  QList<Affectation> valeurs;
  for (const ChampDeTable &champ : t.champs)
    if (champ.sql != t.Cle()) valeurs.append({&champ, ValeurParDefaut(champ.genre)});
  for (const Mot &mot : champs) {
    const Affectation nommee = Affecter(t, mot);
    valeurs.removeIf([&](const Affectation &a) { return a.champ == nommee.champ; });
    valeurs.append(nommee);
  }
  QStringList noms;
  for (const Affectation &valeur : valeurs) noms.append(valeur.champ->sql);
  const QString marques = u"?, "_s.repeated(noms.size() - 1) + u'?';
  Avec(chemin_, [&](Base &base) {
    Transaction transaction(base);
    Requete requete(base,
                    u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(t.sql, noms.join(u", "), marques));
    for (const Affectation &valeur : valeurs) Lier(requete, valeur);
    requete.Executer();
    transaction.Valider();
  });
}

void LignesDuMonde::Ecrire(const QString &table, Cle cle, const QList<Mot> &champs) const {
  const TableDuMonde t = TrouverTable(table);
  QList<Affectation> valeurs;
  QStringList places;
  for (const Mot &mot : champs) {
    valeurs.append(Affecter(t, mot));
    places.append(valeurs.constLast().champ->sql + u"=?"_s);
  }
  Modifier(chemin_, u"UPDATE %1 SET %2 WHERE %3=?"_s.arg(t.sql, places.join(u", "), t.Cle()),
           valeurs, cle);
}

void LignesDuMonde::Effacer(const QString &table, Cle cle) const {
  const TableDuMonde t = TrouverTable(table);
  Modifier(chemin_, u"DELETE FROM %1 WHERE %2=?"_s.arg(t.sql, t.Cle()), {}, cle);
}

qint64 LignesDuMonde::Nombre(const QString &table) const {
  const TableDuMonde t = TrouverTable(table);
  return Avec(chemin_, [&](Base &base) {
    Requete requete(base, u"SELECT count(*) FROM "_s + t.sql);
    return requete.Suivante() ? requete.Entier(0) : 0;
  });
}

QString LignesDuMonde::Champ(const QString &table, Cle cle, const QString &champ) const {
  const TableDuMonde t = TrouverTable(table);
  const ChampDeTable &c = t.Champ(champ);
  return Avec(chemin_, [&](Base &base) {
    Requete requete(base, u"SELECT %1 FROM %2 WHERE %3=?"_s.arg(c.sql, t.sql, t.Cle()));
    requete.Lier(cle);
    Exiger(requete.Suivante(),
           u"table %1: row %2 expected, none of this key found"_s.arg(t.nom).arg(cle));
    if (requete.Nul(0)) return QString();
    if (c.genre == Genre::Booleen) return requete.Entier(0) != 0 ? u"vrai"_s : u"faux"_s;
    const QString texte = requete.Texte(0);
    return texte.isNull() ? u""_s : texte;
  });
}
