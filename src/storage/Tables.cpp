#include "storage/Tables.h"

#include "storage/Schema.h"

using namespace Qt::StringLiterals;

namespace {

void Prendre(const Requete &requete, int colonne, QString &champ) {
  champ = requete.Texte(colonne);
}
void Prendre(const Requete &requete, int colonne, qint64 &champ) {
  champ = requete.Entier(colonne);
}
void Prendre(const Requete &requete, int colonne, int &champ) {
  champ = static_cast<int>(requete.Entier(colonne));
}
void Prendre(const Requete &requete, int colonne, bool &champ) {
  champ = requete.Entier(colonne) != 0;
}

/// The row that the statement stands on; its columns are those of the table, in their order.
template <typename L>
L LigneCourante(const Requete &requete) {
  L ligne;
  int ordinal = 0;
  std::apply(
      [&](const auto &...colonne) { (Prendre(requete, ordinal++, ligne.*colonne.champ), ...); },
      Table<L>::colonnes);
  return ligne;
}

}  // namespace

template <typename L>
Cle AjouterLigne(Base &base, const L &ligne) {
  constexpr Table<L> table;
  constexpr auto nombre = std::tuple_size_v<decltype(Table<L>::colonnes)>;
  const QString marques = u"?, "_s.repeated(static_cast<qsizetype>(nombre) - 2) + u'?';
  Requete requete(base, u"INSERT INTO "_s + Nom(table) + u" ("_s + ListeColonnes(table, 1) +
                            u") VALUES ("_s + marques + u')');
  std::apply(
      [&](const auto &, const auto &...colonne) { (requete.Lier(ligne.*colonne.champ), ...); },
      Table<L>::colonnes);
  requete.Executer();
  return requete.CleAjoutee();
}

template Cle AjouterLigne(Base &, const Correspondant &);
template Cle AjouterLigne(Base &, const Expediteur &);
template Cle AjouterLigne(Base &, const VilleCode &);

std::optional<Correspondant> TableAdresse::Lire(Cle index) const {
  Requete requete(base_, u"SELECT "_s + ListeColonnes(Table<Correspondant>{}) +
                             uR"( FROM "Adresse" WHERE "Index"=?)"_s);
  requete.Lier(index);
  if (!requete.Suivante()) return std::nullopt;
  return LigneCourante<Correspondant>(requete);
}

void TableAdresse::PourChaque(const std::function<void(EntreeListe &&)> &visiteur) const {
  Requete requete(
      base_,
      uR"(SELECT "Index", "NomVelmira", "Categories", "DataProt" FROM "Adresse" ORDER BY "Index")"_s);
  while (requete.Suivante())
    visiteur({requete.Entier(0), requete.Texte(1), requete.Texte(2), requete.Texte(3)});
}

bool TableAdresse::EstVide() const {
  return !Requete(base_, uR"(SELECT 1 FROM "Adresse" LIMIT 1)"_s).Suivante();
}

QList<CategoriesDistinctes> TableAdresse::Categories() const {
  // Few distinct values stand in many rows: the engine gathers them faster than a walk would.
  Requete requete(base_,
                  uR"(SELECT "Categories", MIN("Index") FROM "Adresse" WHERE "Categories"<>'')"
                  uR"( GROUP BY "Categories" ORDER BY 2)"_s);
  QList<CategoriesDistinctes> toutes;
  while (requete.Suivante()) toutes.append({requete.Texte(0), requete.Entier(1)});
  return toutes;
}

bool TableAdresse::Supprimer(Cle index) {
  Transaction transaction(base_);
  const auto supprimees =
      Requete(base_, uR"(DELETE FROM "Adresse" WHERE "Index"=?)"_s).Lier(index).Executer();
  transaction.Valider();
  return supprimees > 0;
}

void TableAdresse::MasquerProteges(const QString &utilisateur, bool masquer) {
  const QString visible = utilisateur + u'$';
  Transaction transaction(base_);
  Requete(base_, uR"(UPDATE "Adresse" SET "DataProt"=? WHERE "DataProt"=?)"_s)
      .Lier(masquer ? utilisateur : visible)
      .Lier(masquer ? visible : utilisateur)
      .Executer();
  transaction.Valider();
}

void TableAdresse::EcrireChamp(Cle index, const QString &champ, const QString &valeur) {
  Transaction transaction(base_);
  const auto changees =
      Requete(base_, uR"(UPDATE "Adresse" SET ")"_s + champ + uR"("=? WHERE "Index"=?)"_s)
          .Lier(valeur)
          .Lier(index)
          .Executer();
  if (changees == 0)
    throw ErreurBase(
        u"Ce correspondant n'existe plus : un autre utilisateur l'a supprimé entre-temps."_s);
  transaction.Valider();
}

void TableAdresse::EcrireCommentaires(Cle index, const QString &texte) {
  EcrireChamp(index, u"Commentaires"_s, texte);
}

void TableAdresse::EcrireCategories(Cle index, const QString &categories) {
  EcrireChamp(index, u"Categories"_s, categories);
}

void TableAdresse::EffacerPhoto(Cle index) {
  EcrireChamp(index, u"Photo"_s, u""_s);
}

void TableExpediteur::OublierDefaut() {
  Transaction transaction(base_);
  Requete(base_, uR"(UPDATE "Expediteur" SET "ParDefaut"=0 WHERE "ParDefaut"<>0)"_s).Executer();
  transaction.Valider();
}
