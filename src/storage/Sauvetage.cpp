#include "storage/Sauvetage.h"

#include "storage/Lignes.h"
#include "storage/PagesFeuilles.h"

#include <QtEndian>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

using Numero = PagesFeuilles::Numero;

constexpr qint64 kPlusGrandeCle = qint64{1} << 40;  // what is above was never given
constexpr qint64 kCleDevinee = 1'000'000;           // where nothing tells the last one
constexpr int kProfondeur = 20;                     // no tree of the format is deeper
constexpr qsizetype kPas = 64;                      // pages between two words of progress

bool EstTexte(const QString *) {
  return true;
}
bool EstTexte(const void *) {
  return false;
}

/// The fields of a table: whether each holds texts.
using Forme = QList<bool>;

template <typename L>
Forme FormeDe(Table<L>) {
  Forme forme;
  const auto ajouter = [&]<typename C>(const Colonne<L, C> &) {
    forme.append(EstTexte(static_cast<const C *>(nullptr)));
  };
  std::apply([&](const auto &...colonne) { (ajouter(colonne), ...); }, Table<L>::colonnes);
  return forme;
}

bool Convient(const QVariantList &champs, const Forme &forme) {
  if (champs.size() != forme.size() || !champs.constFirst().isNull()) return false;
  for (qsizetype i = 1; i < champs.size(); ++i) {
    const int attendu = forme[i] ? QMetaType::QString : QMetaType::LongLong;
    if (champs[i].isValid() && champs[i].typeId() != attendu) return false;
  }
  return true;
}

/// Of keys that should rise, those of the longest rising row.
std::vector<bool> Montantes(const std::vector<qint64> &cles) {
  const std::size_t n = cles.size();
  if (std::ranges::is_sorted(cles, std::ranges::less_equal())) return std::vector<bool>(n, true);
  std::vector<std::size_t> rang(n, 1), avant(n, n);
  std::size_t fin = n;
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t j = 0; j < i; ++j)
      if (cles[j] < cles[i] && rang[j] + 1 > rang[i]) rang[i] = rang[j] + 1, avant[i] = j;
    if (fin == n || rang[i] > rang[fin]) fin = i;
  }
  std::vector<bool> montantes(n, false);
  for (; fin < n; fin = avant[fin]) montantes[fin] = true;
  return montantes;
}

/// The keys behind `apres`, `jusqua` the last of them.
struct Plage {
  qint64 apres = 0;
  std::optional<qint64> jusqua;
};

class Sauvetage {
 public:
  Sauvetage(const QByteArray &fichier, qsizetype taillePage, const Avance &avance)
      : pages_(fichier, taillePage), avance_(avance) {
    PourChaqueTable([this]<typename L>(Table<L> table) {
      formes_.push_back(FormeDe(table));
      tables_.emplace_back().nom = QString::fromUtf16(Table<L>::nom);
      plages_.emplace_back();
    });
  }

  /// False when it was stopped.
  bool Executer() {
    SuivreArbres();
    if (!RelireEgarees()) return false;
    for (std::size_t i = 0; i < tables_.size(); ++i) Compter(i);
    return true;
  }

  std::vector<TableSauvee> Tables() && { return std::move(tables_); }

 private:
  void SuivreArbres() {
    const PagesFeuilles::Feuille noms = pages_.LireFeuille(1);
    const bool sain = !noms.lignes.isEmpty() && noms.illisibles == 0;
    std::vector<bool> suivies(tables_.size(), false);
    for (const EnregistrementLu &ligne : noms.lignes) {
      if (ligne.champs.size() < 4 || ligne.champs[0].toString() != u"table"_s) continue;
      const QString nom = ligne.champs[1].toString();
      const auto racine = static_cast<Numero>(ligne.champs[3].toUInt());
      if (nom == u"sqlite_sequence"_s) LireCles(racine);
      const std::size_t i = Rang(nom);
      if (i == tables_.size() || suivies[i]) continue;
      suivies[i] = true;
      Suivre(i, racine, {}, kProfondeur);
    }
    for (std::size_t i = 0; i < tables_.size(); ++i)
      if (!suivies[i] && !sain) plages_[i].append(Plage{});
  }

  std::size_t Rang(const QString &nom) const {
    const auto table = std::ranges::find_if(tables_, [&](const TableSauvee &t) {
      return t.nom.compare(nom, Qt::CaseInsensitive) == 0;
    });
    return static_cast<std::size_t>(table - tables_.begin());
  }

  void Suivre(std::size_t i, Numero page, const Plage &plage, int profondeur) {
    const PagesFeuilles::Genre genre = pages_.GenreDe(page);
    if (genre == PagesFeuilles::Genre::Noeud && profondeur > 0 && !suivies_.contains(page)) {
      suivies_.insert(page);
      SuivreBranches(i, page, plage, profondeur - 1);
    } else if (genre != PagesFeuilles::Genre::Feuille || suivies_.contains(page) ||
               !Prendre(i, page, plage)) {
      plages_[i].append(plage);
      if (genre == PagesFeuilles::Genre::Autre) Fouiller(i, page, plage);
    }
  }

  void SuivreBranches(std::size_t i, Numero page, const Plage &plage, int profondeur) {
    qint64 apres = plage.apres;
    for (const PagesFeuilles::Branche &branche : pages_.LireNoeud(page)) {
      const std::optional<qint64> jusqua = branche.jusqua ? branche.jusqua : plage.jusqua;
      if (jusqua && (*jusqua <= apres || *jusqua > plage.jusqua.value_or(kPlusGrandeCle))) continue;
      Suivre(i, branche.page, {apres, jusqua}, profondeur);
      if (jusqua) apres = *jusqua;
    }
  }

  /// False for a page that is another table's.
  bool Prendre(std::size_t i, Numero page, const Plage &plage) {
    const PagesFeuilles::Feuille feuille = pages_.LireFeuille(page);
    const std::size_t vraie = TableDe(feuille);
    const bool admise = vraie == i || vraie == tables_.size() ||
                        Conviennent(feuille, formes_[i]) == Conviennent(feuille, formes_[vraie]);
    if (!admise || (feuille.lignes.isEmpty() && feuille.illisibles > 0)) return false;
    suivies_.insert(page);
    Ajouter(i, feuille, plage, true);
    if (feuille.illisibles > 0)
      tables_[i].perdues += std::max<qsizetype>(feuille.illisibles - Fouiller(i, page, plage), 0);
    return true;
  }

  /// Looks on a page whose own directory is damaged for rows with keys that nothing else has given.
  /// Gives how many there were.
  qsizetype Fouiller(std::size_t i, Numero page, const Plage &plage) {
    TableSauvee &table = tables_[i];
    const qint64 derniere = plage.jusqua.value_or(std::max(table.derniereCle, kCleDevinee));
    const auto lignes = pages_.Fouiller(page, [&](const EnregistrementLu &ligne) {
      return ligne.cle > plage.apres && ligne.cle <= derniere &&
             Convient(ligne.champs, formes_[i]) && !table.lignes.contains(ligne.cle);
    });
    for (const EnregistrementLu &ligne : lignes) {
      const bool nouvelle = table.lignes.emplace(ligne.cle, ligne.champs).second;
      if (nouvelle && !ligne.entier) ++table.incompletes;
    }
    return lignes.size();
  }

  /// Of any table of ours, also an older one: the key stands outside the fields.
  static bool EstLigne(const QVariantList &champs) {
    return champs.size() > 1 && champs.constFirst().isNull();
  }

  static qsizetype Conviennent(const PagesFeuilles::Feuille &feuille, const Forme &forme) {
    return std::ranges::count_if(feuille.lignes, [&](const EnregistrementLu &ligne) {
      return Convient(ligne.champs, forme);
    });
  }

  /// The table whose rows most of a page look like; none for a page without such rows.
  std::size_t TableDe(const PagesFeuilles::Feuille &feuille) const {
    std::size_t meilleure = tables_.size();
    qsizetype plus = feuille.lignes.size() / 2;
    for (std::size_t i = 0; i < tables_.size(); ++i) {
      const qsizetype lignes = Conviennent(feuille, formes_[i]);
      if (lignes > plus) plus = lignes, meilleure = i;
    }
    return meilleure;
  }

  void Ajouter(std::size_t i, const PagesFeuilles::Feuille &feuille, const Plage &plage,
               bool remplacer) {
    std::vector<qint64> cles;
    for (const EnregistrementLu &ligne : feuille.lignes) cles.push_back(ligne.cle);
    const std::vector<bool> montantes = Montantes(cles);
    const qint64 derniere = plage.jusqua.value_or(kPlusGrandeCle);
    TableSauvee &table = tables_[i];
    for (std::size_t n = 0; n < cles.size(); ++n) {
      const EnregistrementLu &ligne = feuille.lignes[static_cast<qsizetype>(n)];
      if (remplacer ? !EstLigne(ligne.champs) : !Convient(ligne.champs, formes_[i])) continue;
      const bool sure = montantes[n] && cles[n] > plage.apres && cles[n] <= derniere;
      if (sure && !table.lignes.emplace(cles[n], ligne.champs).second) continue;
      if (!sure) table.sansCle.push_back(ligne.champs);
      if (!ligne.entier) ++table.incompletes;
    }
  }

  /// Pages that no tree leads to. What a tree has given stands: an old copy of a row may lie there.
  bool RelireEgarees() {
    const QSet<Numero> libres = pages_.Libres();
    const Numero nombre = pages_.Nombre();
    for (Numero page = 2; page <= nombre; ++page) {
      if (page % kPas == 0 && !avance_(page, nombre)) return false;
      if (suivies_.contains(page) || libres.contains(page)) continue;
      const PagesFeuilles::Feuille feuille = pages_.LireFeuille(page);
      if (const std::size_t i = TableDe(feuille); i < tables_.size())
        Ajouter(i, feuille, {}, false);
      else
        LireCles(page);
    }
    return avance_(nombre, nombre);
  }

  /// The engine's own table of the last keys: a name and a number.
  void LireCles(Numero page) {
    for (const EnregistrementLu &ligne : pages_.LireFeuille(page).lignes) {
      if (ligne.champs.size() != 2 || ligne.champs[1].typeId() != QMetaType::LongLong) continue;
      const std::size_t i = Rang(ligne.champs[0].toString());
      const qint64 cle = ligne.champs[1].toLongLong();
      if (i == tables_.size() || cle > kPlusGrandeCle) continue;
      tables_[i].derniereCle = std::max(tables_[i].derniereCle, cle);
      suivies_.insert(page);
    }
  }

  /// How many rows the pages that could not be read may have held.
  void Compter(std::size_t i) {
    TableSauvee &table = tables_[i];
    const bool connue = table.derniereCle > 0;
    if (!table.lignes.empty())
      table.derniereCle = std::max(table.derniereCle, table.lignes.rbegin()->first);
    for (const Plage &plage : plages_[i]) {
      const qint64 jusqua = plage.jusqua.value_or(table.derniereCle);
      if (!plage.jusqua && !connue) table.sansBorne = true;
      if (jusqua <= plage.apres) continue;
      const auto gardees =
          std::distance(table.lignes.upper_bound(plage.apres), table.lignes.upper_bound(jusqua));
      table.perdues += static_cast<qsizetype>(jusqua - plage.apres) - gardees;
    }
  }

  PagesFeuilles pages_;
  const Avance &avance_;
  std::vector<Forme> formes_;
  std::vector<TableSauvee> tables_;
  std::vector<QList<Plage>> plages_;  ///< of each table, what no readable page holds
  QSet<Numero> suivies_;
};

}  // namespace

Identite IdentiteDe(const QByteArray &fichier) {
  Identite identite;
  if (fichier.size() < 100) return identite;
  identite.version = qFromBigEndian<quint32>(fichier.constData() + 60);
  identite.application = qFromBigEndian<quint32>(fichier.constData() + 68);
  const auto noms = PagesFeuilles(fichier, TaillePages(fichier)).LireFeuille(1);
  identite.lisible = !noms.lignes.isEmpty() && noms.illisibles == 0;
  identite.tables = std::ranges::any_of(noms.lignes, [](const EnregistrementLu &ligne) {
    return ligne.champs.size() > 1 &&
           ligne.champs[1].toString().compare(QString::fromUtf16(Table<Correspondant>::nom),
                                              Qt::CaseInsensitive) == 0;
  });
  return identite;
}

std::optional<std::vector<TableSauvee>> SauverTables(QByteArray fichier, const Avance &avance) {
  // The page that a cut goes through may still hold rows.
  const qsizetype taille = TaillePages(fichier), reste = fichier.size() % taille;
  if (reste > 0) fichier.append(taille - reste, '\0');
  Sauvetage sauvetage(fichier, taille, avance);
  if (!sauvetage.Executer()) return std::nullopt;
  return std::move(sauvetage).Tables();
}
