#include "storage/Tables.h"

#include "storage/Conflits.h"
#include "storage/Enonces.h"
#include "storage/Historique.h"
#include "storage/Noms.h"

#include <QMap>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr Table<Correspondant> kAdresse;
constexpr Table<Expediteur> kExpediteur;

QString Entrees(const QString &condition) {
  return u"SELECT [Index], NomVelmira, Categories, DataProt FROM Adresse"_s + condition +
         OrdreDesCles(kAdresse);
}

void Visiter(Requete &requete, const std::function<void(EntreeListe &&)> &visiteur) {
  while (requete.Suivante())
    visiteur({requete.Entier(0), requete.Texte(1), requete.Texte(2), requete.Texte(3)});
}

void EcrireLiens(Base &base, const QList<VilleCode> &lignes, const QString &liens) {
  for (VilleCode ligne : lignes) {
    ligne.Liens = liens;
    ModifierLigne(base, ligne, Seulement(&VilleCode::Liens));
  }
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

QString TexteExpediteurDisparu() {
  return u"Cet expéditeur n'existe plus : un autre utilisateur l'a supprimé entre-temps."_s;
}

void EcrireMarques(Base &base, const QString &utilisateur, bool masquer) {
  const QString visible = utilisateur + u'$';
  Requete(base, u"UPDATE Adresse SET DataProt=? WHERE DataProt=?"_s)
      .Lier(masquer ? utilisateur : visible)
      .Lier(masquer ? visible : utilisateur)
      .Executer();
}

template <typename L>
Cle AjouterLigne(Base &base, const L &ligne) {
  static const QString kTexte = u"INSERT INTO "_s + Nom(Table<L>{}) + u" ("_s +
                                ListeColonnes(Table<L>{}, 1) + u") VALUES ("_s +
                                u"?, "_s.repeated(kNombreColonnes<L> - 2) + u"?)"_s;
  Requete requete(base, kTexte);
  std::apply(
      [&](const auto &, const auto &...colonne) { (requete.Lier(ligne.*colonne.champ), ...); },
      Table<L>::colonnes);
  requete.Executer();
  return requete.CleAjoutee();
}

template <typename L>
bool ModifierLigne(Base &base, const L &ligne, const ChoixColonnes<L> &choix) {
  constexpr Table<L> kTable;
  const auto pourChaque = [&](auto &&f) {
    std::size_t ordinal = 0;
    std::apply([&](const auto &...colonne) { ((choix[ordinal++] ? f(colonne) : void()), ...); },
               kTable.colonnes);
  };
  QStringList affectations;
  pourChaque([&](const auto &colonne) { affectations.append(Entre(colonne.nom) + u"=?"_s); });
  Requete requete(
      base, u"UPDATE "_s + Nom(kTable) + u" SET "_s + affectations.join(u", ") + ParCle(kTable));
  pourChaque([&](const auto &colonne) { requete.Lier(ligne.*colonne.champ); });
  return requete.Lier(ligne.*std::get<0>(kTable.colonnes).champ).Executer() > 0;
}

template <typename L>
std::optional<L> ModifierChangees(Base &base, const L &montree, const L &saisie,
                                  const QString &disparue) {
  auto stockee = LireLigne<L>(base, saisie.*std::get<0>(Table<L>::colonnes).champ);
  if (!stockee) throw ErreurBase(disparue);
  const auto [changees, conflits] = Comparer(montree, saisie, *stockee);
  if (conflits.any()) return stockee;
  if (changees.any()) ModifierLigne(base, saisie, changees);
  return std::nullopt;
}

template Cle AjouterLigne(Base &, const Correspondant &);
template bool ModifierLigne(Base &, const Correspondant &, const ChoixColonnes<Correspondant> &);
template std::optional<Correspondant> ModifierChangees(Base &, const Correspondant &,
                                                       const Correspondant &, const QString &);
template Cle AjouterLigne(Base &, const Expediteur &);
template bool ModifierLigne(Base &, const Expediteur &, const ChoixColonnes<Expediteur> &);
template std::optional<Expediteur> ModifierChangees(Base &, const Expediteur &, const Expediteur &,
                                                    const QString &);
template Cle AjouterLigne(Base &, const VilleCode &);
template bool ModifierLigne(Base &, const VilleCode &, const ChoixColonnes<VilleCode> &);
template Cle AjouterLigne(Base &, const TypeAlerte &);
template bool ModifierLigne(Base &, const TypeAlerte &, const ChoixColonnes<TypeAlerte> &);
template Cle AjouterLigne(Base &, const PersonneAlerte &);
template bool ModifierLigne(Base &, const PersonneAlerte &, const ChoixColonnes<PersonneAlerte> &);
template std::optional<PersonneAlerte> ModifierChangees(Base &, const PersonneAlerte &,
                                                        const PersonneAlerte &, const QString &);
template Cle AjouterLigne(Base &, const Evenement &);
template bool ModifierLigne(Base &, const Evenement &, const ChoixColonnes<Evenement> &);
template std::optional<Evenement> ModifierChangees(Base &, const Evenement &, const Evenement &,
                                                   const QString &);

std::optional<Correspondant> TableAdresse::Lire(Cle index) const {
  return LireLigne<Correspondant>(base_, index);
}

void TableAdresse::PourChaque(const std::function<void(EntreeListe &&)> &visiteur) const {
  Parcourir(u""_s, visiteur);
}

void TableAdresse::PourChaqueAdresse(const std::function<void(EntreeListe &&)> &visiteur) const {
  Parcourir(u" WHERE Ligne1<>''"_s, visiteur);
}

void TableAdresse::Parcourir(const QString &condition,
                             const std::function<void(EntreeListe &&)> &visiteur) const {
  Requete requete(base_, Entrees(condition));
  Visiter(requete, visiteur);
}

QList<Naissance> TableAdresse::Naissances(const QStringList &jours) const {
  Requete requete(base_,
                  u"SELECT [Index], NomVelmira, DDN, DataProt FROM Adresse WHERE DDN<>'' AND "
                  "(substr(DDN, 1, 5) IN (%1) OR DDN NOT GLOB '[0-9][0-9]/[0-9][0-9]/*')"_s.arg(
                      QStringList(jours.size(), u"?"_s).join(u',')) +
                      OrdreDesCles(kAdresse));
  for (const QString &jour : jours) requete.Lier(jour);
  QList<Naissance> naissances;
  while (requete.Suivante())
    naissances.append({requete.Entier(0), requete.Texte(1), requete.Texte(2), requete.Texte(3)});
  return naissances;
}

qsizetype TableAdresse::Nombre() const {
  Requete requete(base_, u"SELECT count(*) FROM Adresse"_s);
  requete.Suivante();
  return requete.Entier(0);
}

bool TableAdresse::EstGrande() const {
  constexpr int kDansUneImage = 1000;
  return APlusDe(kDansUneImage);
}

bool TableAdresse::APlusDe(int nombre) const {
  Requete requete(base_, u"SELECT 1 FROM Adresse LIMIT 1 OFFSET ?"_s);
  return requete.Lier(nombre).Suivante();
}

QStringList TableAdresse::Categories() const {
  // Few distinct values stand in many rows: the engine gathers them in the order of its walk,
  // without the sorting of all rows that a grouping would cost.
  Requete requete(base_, u"SELECT DISTINCT Categories FROM Adresse WHERE Categories<>''"_s);
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

std::optional<Correspondant> TableAdresse::Modifier(const Correspondant &montree,
                                                    const Correspondant &saisie, bool alerte) {
  Correspondant ecrite = saisie;
  ecrite.AlerteActive |= alerte;
  Transaction transaction(base_);
  const auto avant = Lire(saisie.Index);
  if (auto stockee = ModifierChangees(base_, montree, ecrite, TexteDisparu())) return stockee;
  if (alerte && !avant->AlerteActive) AjouterPersonne(base_, *Lire(saisie.Index));
  transaction.Valider();
  return std::nullopt;
}

void TableAdresse::ChangerCategories(const QString &nom,
                                     const std::function<QString(const QString &)> &regle) {
  Transaction transaction(base_);
  QList<std::pair<Cle, QString>> touchees;
  Requete lecture(base_,
                  u"SELECT [Index], Categories FROM Adresse WHERE instr(Categories, ?) > 0"_s);
  lecture.Lier(nom);
  while (lecture.Suivante()) touchees.append({lecture.Entier(0), lecture.Texte(1)});
  Requete ecriture(base_, u"UPDATE Adresse SET Categories=?"_s + ParCle(kAdresse));
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
  Requete lecture(base_, u"SELECT [Index], Tel, Fax, Portable, TelTravail FROM Adresse"_s +
                             OrdreDesCles(kAdresse));
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
  Requete ecriture(
      base_, u"UPDATE Adresse SET Tel=?, Fax=?, Portable=?, TelTravail=?"_s + ParCle(kAdresse));
  qsizetype faites = 0;
  for (const auto &[index, numeros] : changees) {
    for (const QString &numero : numeros) ecriture.Lier(numero);
    try {
      ecriture.Lier(index).Executer();
    } catch (const ErreurBase &erreur) {
      if (erreur.Genre() != GenreErreur::Contrainte) throw;
    }
    ++faites;
    if ((faites % kPas == 0 || faites == changees.size()) && !avance(faites, changees.size()))
      return false;
  }
  transaction.Valider();
  return true;
}

bool TableAdresse::Supprimer(Cle index) {
  Transaction transaction(base_);
  const bool supprimee = SupprimerLigne(base_, kAdresse, index);
  transaction.Valider();
  return supprimee;
}

void TableAdresse::MasquerProteges(const QString &utilisateur, bool masquer) {
  Transaction transaction(base_);
  EcrireMarques(base_, utilisateur, masquer);
  transaction.Valider();
  base_.LHistorique().NoterMasques(masquer ? utilisateur : QString());
}

bool TableAdresse::ADesMasques(const QString &utilisateur) const {
  Requete requete(base_, u"SELECT 1 FROM Adresse WHERE DataProt=? LIMIT 1"_s);
  return requete.Lier(utilisateur).Suivante();
}

bool TableAdresse::AjouterCategorie(Cle index, const QString &nom) {
  Transaction transaction(base_);
  auto fiche = Lire(index);
  if (!fiche) throw ErreurBase(TexteDisparu());
  QString &categories = fiche->Categories;
  if (categories.contains(nom)) return false;
  if (!categories.endsWith(u'*')) categories += u'*';
  categories += nom + u'*';
  ModifierLigne(base_, *fiche, Seulement(&Correspondant::Categories));
  transaction.Valider();
  return true;
}

QList<Expediteur> TableExpediteur::Tous() const {
  return LireLignes<Expediteur>(base_);
}

std::optional<Expediteur> TableExpediteur::Lire(Cle index) const {
  return LireLigne<Expediteur>(base_, index);
}

std::optional<Cle> TableExpediteur::Ajouter(Expediteur &expediteur, Cle defautMontre,
                                            const Suite &suite) {
  Transaction transaction(base_);
  if (const Cle stocke = Defaut(); expediteur.ParDefaut && stocke != defautMontre) return stocke;
  const Cle index = AjouterLigne(base_, expediteur);
  if (expediteur.ParDefaut) {
    MettreDefaut(index);
    suite(*Lire(index));
  }
  transaction.Valider();
  expediteur.Index = index;
  return std::nullopt;
}

std::optional<Expediteur> TableExpediteur::Modifier(const Expediteur &montre,
                                                    const Expediteur &saisi, const Suite &suite) {
  Transaction transaction(base_);
  auto stocke = ModifierChangees(base_, montre, saisi, TexteExpediteurDisparu());
  if (stocke) return stocke;
  if (Defaut() == saisi.Index) suite(*Lire(saisi.Index));
  transaction.Valider();
  return std::nullopt;
}

void TableExpediteur::Supprimer(Cle index, const Suite &suite) {
  Transaction transaction(base_);
  const bool defaut = Defaut() == index;
  SupprimerLigne(base_, kExpediteur, index);
  if (defaut) suite({});
  transaction.Valider();
}

Cle TableExpediteur::Defaut() const {
  Requete requete(base_,
                  u"SELECT [Index] FROM Expediteur WHERE ParDefaut<>0 ORDER BY [Index] LIMIT 1"_s);
  return requete.Suivante() ? requete.Entier(0) : 0;
}

std::optional<Cle> TableExpediteur::ChangerDefaut(Cle defautMontre, Cle index, const Suite &suite) {
  Transaction transaction(base_);
  if (index != 0 && !Lire(index)) throw ErreurBase(TexteExpediteurDisparu());
  if (const Cle stocke = Defaut(); stocke != defautMontre && stocke != index) return stocke;
  MettreDefaut(index);
  suite(Lire(index).value_or(Expediteur()));
  transaction.Valider();
  return std::nullopt;
}

void TableExpediteur::OublierDefaut() {
  Transaction transaction(base_);
  MettreDefaut(0);
  transaction.Valider();
}

void TableExpediteur::MettreDefaut(Cle index) {
  Requete(base_, u"UPDATE Expediteur SET ParDefaut=([Index]=?)"_s).Lier(index).Executer();
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
    if (!MemeNom(ligne.Ville, ville)) continue;
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
  EcrireLiens(base_, memes, cles.size() > 1 ? cles.join(u'*') : u""_s);
  transaction.Valider();
}

void TableVille::Relier() {
  Transaction transaction(base_);
  RelierVilles(base_);
  transaction.Valider();
}

void RelierVilles(Base &base) {
  Requete(base, u"UPDATE Ville SET Liens=''"_s).Executer();
  QMap<QString, QList<VilleCode>> villes;
  for (const VilleCode &ligne : TableVille(base).Toutes())
    villes[EnCapitales(ligne.Ville)].append(ligne);
  for (auto ville = villes.cbegin(); ville != villes.cend(); ++ville) {
    if (ville->size() < 2 || ville.key().contains(u'"')) continue;
    QStringList cles;
    for (const VilleCode &ligne : *ville) cles.append(QString::number(ligne.Index));
    EcrireLiens(base, *ville, cles.join(u'*'));
  }
}
