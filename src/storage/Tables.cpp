#include "storage/Tables.h"

#include "storage/Schema.h"

#include <QMap>

#include <array>

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

/// The statement that reads whole rows, without its condition.
template <typename L>
QString Selection() {
  static const QString kTexte =
      u"SELECT "_s + ListeColonnes(Table<L>{}) + u" FROM "_s + Nom(Table<L>{});
  return kTexte;
}

/// The row of a key.
template <typename L>
std::optional<L> LireLigne(Base &base, Cle index) {
  Requete requete(base, Selection<L>() + uR"( WHERE "Index"=?)"_s);
  requete.Lier(index);
  if (!requete.Suivante()) return std::nullopt;
  return LigneCourante<L>(requete);
}

/// All rows in the order of the keys.
template <typename L>
QList<L> LireLignes(Base &base) {
  Requete requete(base, Selection<L>() + uR"( ORDER BY "Index")"_s);
  QList<L> lignes;
  while (requete.Suivante()) lignes.append(LigneCourante<L>(requete));
  return lignes;
}

/// What the editor gives; the others are written by commands of their own.
template <typename Champ>
bool EstSaisie(Champ Correspondant::*champ) {
  if constexpr (std::is_same_v<Champ, QString>)
    return champ != &Correspondant::Commentaires && champ != &Correspondant::AdresseImportee;
  else if constexpr (std::is_same_v<Champ, bool>)
    return champ != &Correspondant::AlerteActive;
  else
    return true;
}

void AjouterPersonne(Base &base, const Correspondant &fiche) {
  if (fiche.NomVelmira.trimmed().isEmpty()) return;
  AjouterLigne(
      base, PersonneAlerte{.ID = 0, .Nom = fiche.NomVelmira, .DDN = fiche.DDN, .Disponible = true});
}

}  // namespace

QString TexteDisparu() {
  return u"Ce correspondant n'existe plus : un autre utilisateur l'a supprimé entre-temps."_s;
}

template <typename L>
Cle AjouterLigne(Base &base, const L &ligne) {
  constexpr auto nombre = static_cast<qsizetype>(std::tuple_size_v<decltype(Table<L>::colonnes)>);
  static const QString kTexte = u"INSERT INTO "_s + Nom(Table<L>{}) + u" ("_s +
                                ListeColonnes(Table<L>{}, 1) + u") VALUES ("_s +
                                u"?, "_s.repeated(nombre - 2) + u"?)"_s;
  Requete requete(base, kTexte);
  std::apply(
      [&](const auto &, const auto &...colonne) { (requete.Lier(ligne.*colonne.champ), ...); },
      Table<L>::colonnes);
  requete.Executer();
  return requete.CleAjoutee();
}

template Cle AjouterLigne(Base &, const Correspondant &);
template Cle AjouterLigne(Base &, const Expediteur &);
template Cle AjouterLigne(Base &, const VilleCode &);
template Cle AjouterLigne(Base &, const TypeAlerte &);
template Cle AjouterLigne(Base &, const PersonneAlerte &);
template Cle AjouterLigne(Base &, const Evenement &);

std::optional<Correspondant> TableAdresse::Lire(Cle index) const {
  return LireLigne<Correspondant>(base_, index);
}

void TableAdresse::PourChaque(const std::function<void(EntreeListe &&)> &visiteur) const {
  Parcourir(u""_s, visiteur);
}

void TableAdresse::PourChaqueAdresse(const std::function<void(EntreeListe &&)> &visiteur) const {
  Parcourir(uR"( WHERE "Ligne1"<>'')"_s, visiteur);
}

void TableAdresse::Parcourir(const QString &condition,
                             const std::function<void(EntreeListe &&)> &visiteur) const {
  Requete requete(base_,
                  uR"(SELECT "Index", "NomVelmira", "Categories", "DataProt" FROM "Adresse")"_s +
                      condition + uR"( ORDER BY "Index")"_s);
  while (requete.Suivante())
    visiteur({requete.Entier(0), requete.Texte(1), requete.Texte(2), requete.Texte(3)});
}

bool TableAdresse::EstVide() const {
  return !Requete(base_, uR"(SELECT 1 FROM "Adresse" LIMIT 1)"_s).Suivante();
}

QStringList TableAdresse::Categories() const {
  // Few distinct values stand in many rows: the engine gathers them in the order of its walk,
  // without the sorting of all rows that a grouping would cost.
  Requete requete(base_,
                  uR"(SELECT DISTINCT "Categories" FROM "Adresse" WHERE "Categories"<>'')"_s);
  QStringList toutes;
  while (requete.Suivante()) toutes.append(requete.Texte(0));
  return toutes;
}

Cle TableAdresse::Ajouter(const Correspondant &fiche, bool alerte) {
  Transaction transaction(base_);
  const Cle index = AjouterLigne(base_, fiche);
  if (alerte) AjouterPersonne(base_, fiche);
  transaction.Valider();
  return index;
}

void TableAdresse::Modifier(const Correspondant &fiche, bool alerte) {
  QStringList affectations;
  const auto champs = [&](auto &&f) {
    std::apply([&](const auto &, const auto &...c) { ((EstSaisie(c.champ) ? f(c) : void()), ...); },
               Table<Correspondant>::colonnes);
  };
  champs([&](const auto &c) { affectations.append(Entre(c.nom) + u"=?"_s); });
  Transaction transaction(base_);
  Requete requete(
      base_, uR"(UPDATE "Adresse" SET )"_s + affectations.join(u", ") + uR"( WHERE "Index"=?)"_s);
  champs([&](const auto &c) { requete.Lier(fiche.*c.champ); });
  if (requete.Lier(fiche.Index).Executer() == 0) throw ErreurBase(TexteDisparu());
  if (alerte) {
    Requete(base_, uR"(UPDATE "Adresse" SET "AlerteActive"=1 WHERE "Index"=?)"_s)
        .Lier(fiche.Index)
        .Executer();
    AjouterPersonne(base_, fiche);
  }
  transaction.Valider();
}

void TableAdresse::ChangerCategories(const QString &nom,
                                     const std::function<QString(const QString &)> &regle) {
  Transaction transaction(base_);
  QList<std::pair<Cle, QString>> touchees;
  Requete lecture(base_,
                  uR"(SELECT "Index", "Categories" FROM "Adresse")"
                  uR"( WHERE instr("Categories", ?) > 0)"_s);
  lecture.Lier(nom);
  while (lecture.Suivante()) touchees.append({lecture.Entier(0), lecture.Texte(1)});
  Requete ecriture(base_, uR"(UPDATE "Adresse" SET "Categories"=? WHERE "Index"=?)"_s);
  for (const auto &[index, categories] : touchees)
    ecriture.Lier(regle(categories)).Lier(index).Executer();
  transaction.Valider();
}

bool TableAdresse::ReformaterTelephones(const std::function<QString(const QString &)> &regle,
                                        const Avance &avance) {
  using Numeros = std::array<QString, 4>;
  constexpr qsizetype kPas = 200;  // records between two calls of `avance`
  Transaction transaction(base_);
  QList<std::pair<Cle, Numeros>> changees;
  Requete lecture(base_,
                  uR"(SELECT "Index", "Tel", "Fax", "Portable", "TelTravail" FROM "Adresse")"
                  uR"( ORDER BY "Index")"_s);
  while (lecture.Suivante()) {
    Numeros numeros;
    bool change = false;
    for (std::size_t i = 0; i < numeros.size(); ++i) {
      const QString ancien = lecture.Texte(static_cast<int>(i) + 1);
      numeros[i] = ancien.isEmpty() ? ancien : regle(ancien);
      if (numeros[i].isNull() && !ancien.isNull()) numeros[i] = u""_s;
      change |= numeros[i] != ancien;
    }
    if (change) changees.append({lecture.Entier(0), numeros});
  }
  Requete ecriture(base_,
                   uR"(UPDATE "Adresse" SET "Tel"=?, "Fax"=?, "Portable"=?, "TelTravail"=?)"
                   uR"( WHERE "Index"=?)"_s);
  qsizetype faites = 0;
  for (const auto &[index, numeros] : changees) {
    for (const QString &numero : numeros) ecriture.Lier(numero);
    ecriture.Lier(index);
    Ignorer([&] { ecriture.Executer(); });
    ++faites;
    if ((faites % kPas == 0 || faites == changees.size()) && !avance(faites, changees.size()))
      return false;
  }
  transaction.Valider();
  return true;
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
  if (changees == 0) throw ErreurBase(TexteDisparu());
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

QList<Expediteur> TableExpediteur::Tous() const {
  return LireLignes<Expediteur>(base_);
}

std::optional<Expediteur> TableExpediteur::Lire(Cle index) const {
  return LireLigne<Expediteur>(base_, index);
}

Cle TableExpediteur::Ajouter(const Expediteur &expediteur) {
  Transaction transaction(base_);
  const Cle index = AjouterLigne(base_, expediteur);
  if (expediteur.ParDefaut) MettreDefaut(index);
  transaction.Valider();
  return index;
}

void TableExpediteur::Modifier(const Expediteur &e) {
  Transaction transaction(base_);
  const auto changees =
      Requete(base_,
              uR"(UPDATE "Expediteur" SET "Ligne1"=?, "Ligne2"=?, "Ligne3"=?, "Ligne4"=?,)"
              uR"( "Ligne5"=?, "CodePostal"=?, "Ville"=?, "Pays"=?, "OptionAdresse"=?)"
              uR"( WHERE "Index"=?)"_s)
          .Lier(e.Ligne1)
          .Lier(e.Ligne2)
          .Lier(e.Ligne3)
          .Lier(e.Ligne4)
          .Lier(e.Ligne5)
          .Lier(e.CodePostal)
          .Lier(e.Ville)
          .Lier(e.Pays)
          .Lier(e.OptionAdresse)
          .Lier(e.Index)
          .Executer();
  if (changees == 0)
    throw ErreurBase(
        u"Cet expéditeur n'existe plus : un autre utilisateur l'a supprimé entre-temps."_s);
  transaction.Valider();
}

void TableExpediteur::Supprimer(Cle index) {
  Transaction transaction(base_);
  Requete(base_, uR"(DELETE FROM "Expediteur" WHERE "Index"=?)"_s).Lier(index).Executer();
  transaction.Valider();
}

void TableExpediteur::ChoisirDefaut(Cle index) {
  Transaction transaction(base_);
  MettreDefaut(index);
  transaction.Valider();
}

void TableExpediteur::MettreDefaut(Cle index) {
  Requete(base_, uR"(UPDATE "Expediteur" SET "ParDefaut"=("Index"=?))"_s).Lier(index).Executer();
}

QList<VilleCode> TableVille::Toutes() const {
  return LireLignes<VilleCode>(base_);
}

std::optional<VilleCode> TableVille::Lire(Cle index) const {
  return LireLigne<VilleCode>(base_, index);
}

void TableVille::Enregistrer(const QString &ville, const QString &code) {
  Transaction transaction(base_);
  QList<VilleCode> memes;
  QStringList cles;
  QString codes;
  for (const VilleCode &ligne : Toutes()) {
    if (ligne.Ville.toUpper() != ville.toUpper()) continue;
    memes.append(ligne);
    cles.append(QString::number(ligne.Index));
    if (!codes.contains(ligne.CodePostal)) codes += ligne.CodePostal + u'*';
  }
  if (codes.endsWith(u'*')) codes.chop(1);
  if (memes.isEmpty() || !codes.contains(code)) {
    VilleCode nouvelle{.Index = 0, .CodePostal = code, .Ville = ville, .Liens = u""_s};
    nouvelle.Index = AjouterLigne(base_, nouvelle);
    cles.append(QString::number(nouvelle.Index));
    memes.append(nouvelle);
  }
  EcrireLiens(memes, cles.size() > 1 ? cles.join(u'*') : u""_s);
  transaction.Valider();
}

void TableVille::Relier() {
  Transaction transaction(base_);
  Requete(base_, uR"(UPDATE "Ville" SET "Liens"='')"_s).Executer();
  QMap<QString, QList<VilleCode>> villes;
  for (const VilleCode &ligne : Toutes()) villes[ligne.Ville.toUpper()].append(ligne);
  for (auto ville = villes.cbegin(); ville != villes.cend(); ++ville) {
    if (ville->size() < 2 || ville.key().contains(u'"')) continue;
    QStringList cles;
    for (const VilleCode &ligne : *ville) cles.append(QString::number(ligne.Index));
    EcrireLiens(*ville, cles.join(u'*'));
  }
  transaction.Valider();
}

void TableVille::EcrireLiens(const QList<VilleCode> &lignes, const QString &liens) {
  for (const VilleCode &ligne : lignes)
    Requete(base_, uR"(UPDATE "Ville" SET "Liens"=? WHERE "Index"=?)"_s)
        .Lier(liens)
        .Lier(ligne.Index)
        .Executer();
}
