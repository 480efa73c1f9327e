// velmira-jet FILE TABLE: hands over a table of a Jet database by TramesJet.h.
//
// The file may be any bytes, and libmdb trusts it: so this is a process of its own that can be
// lost. It bounds its memory and its time, and gives up files, programs and the network before it
// reads more than the head of the file. Ends with 1 when the file's tables cannot be found, 2 for
// other arguments.

#include "platform/TramesJet.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <mdbtools.h>
#include <memory>
#include <optional>
#include <seccomp.h>
#include <string>
#include <string_view>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr rlim_t kMemoire = rlim_t{512} << 20;
constexpr rlim_t kSecondes = 60;
constexpr rlim_t kFichiers = 16;

constexpr unsigned kDeplacee = 0x4000;  // the slot holds the place where the row is now
constexpr unsigned kAbsente = 0x8000;  // no row of its own: deleted, or what a moved one has become
constexpr unsigned kDecalage = 0x1fff;  // the rest of a slot: where on the page
constexpr std::uint32_t kSurPlace = 0x80000000, kUnMorceau = 0x40000000;  // of a note's length
constexpr int kSauts = 8;  // a row moves to a place; that one's moving again rewrites the first
constexpr std::size_t kLignesMax = 1 << 24;

void Limiter(int ressource, rlim_t valeur) {
  const rlimit limite{valeur, valeur};
  ::setrlimit(ressource, &limite);
}

void LimiterRessources() {
  Limiter(RLIMIT_AS, kMemoire);
  Limiter(RLIMIT_CPU, kSecondes);
  Limiter(RLIMIT_NOFILE, kFichiers);
  Limiter(RLIMIT_FSIZE, 0);
  Limiter(RLIMIT_NPROC, 0);
  Limiter(RLIMIT_CORE, 0);
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
}

/// What is asked of the system but this is refused. A kernel without such filters leaves the other
/// limits.
void Enfermer() {
  const std::unique_ptr<void, decltype(&seccomp_release)> filtre(
      seccomp_init(SCMP_ACT_ERRNO(EPERM)), seccomp_release);
  if (!filtre) return;
  for (const int appel :
       {SCMP_SYS(read), SCMP_SYS(write), SCMP_SYS(lseek), SCMP_SYS(_llseek), SCMP_SYS(fstat),
        SCMP_SYS(newfstatat), SCMP_SYS(close), SCMP_SYS(brk), SCMP_SYS(mmap), SCMP_SYS(mmap2),
        SCMP_SYS(munmap), SCMP_SYS(mremap), SCMP_SYS(madvise), SCMP_SYS(futex),
        SCMP_SYS(rt_sigreturn), SCMP_SYS(exit), SCMP_SYS(exit_group)})
    seccomp_rule_add(filtre.get(), SCMP_ACT_ALLOW, appel, 0);
  seccomp_load(filtre.get());
}

class Redacteur {
 public:
  void Octet(std::uint8_t valeur) { corps_ += static_cast<char>(valeur); }
  void Entier(std::uint64_t valeur, int octets) {
    while (octets-- > 0) Octet(static_cast<std::uint8_t>(valeur >> (8 * octets)));
  }
  void Genre(jet::Champ genre) { Octet(static_cast<std::uint8_t>(genre)); }
  void Nombre(std::int64_t valeur) {
    Genre(jet::Champ::Nombre);
    Entier(static_cast<std::uint64_t>(valeur), 8);
  }
  void Texte(const std::string &texte) {
    Genre(jet::Champ::Texte);
    Entier(texte.size(), 4);
    corps_ += texte;
  }
  void Envoyer(jet::Trame trame) {
    std::string corps;
    corps.swap(corps_);
    Octet(static_cast<std::uint8_t>(trame));
    Entier(corps.size(), 4);
    corps_ += corps;
    if (std::fwrite(corps_.data(), 1, corps_.size(), stdout) != corps_.size()) ::_exit(1);
    corps_.clear();
  }

 private:
  std::string corps_;
};

/// Where a row's bytes lie: on which page, in which slot.
struct Place {
  guint32 page = 0;
  int rang = 0;
  std::int64_t cle = 0;
};

/// A row on the page that is in memory.
struct Etendue {
  int debut = 0;
  std::size_t taille = 0;
  unsigned marques = 0;
};

class Lecteur {
 public:
  Lecteur(MdbHandle *mdb, MdbTableDef *table) : mdb_(mdb), table_(table) {}

  void Envoyer() {
    EnvoyerEntete();
    TrouverPlaces();
    champs_.resize(table_->num_cols);
    LireCles();
    for (const Place &place : places_) EnvoyerLigne(place);
    redacteur_.Octet(abime_ ? 1 : 0);
    redacteur_.Envoyer(jet::Trame::Fin);
  }

 private:
  void EnvoyerEntete() {
    redacteur_.Entier(table_->num_cols, 2);
    redacteur_.Entier(table_->num_rows, 4);
    redacteur_.Envoyer(jet::Trame::Entete);
  }

  bool Lire(guint32 page) { return mdb_read_pg(mdb_, page) == mdb_->fmt->pg_size; }

  int Rangs() { return mdb_get_int16(mdb_->pg_buf, mdb_->fmt->row_count_offset); }

  std::optional<Etendue> Trouver(int rang) {
    Etendue etendue;
    int debut = 0;
    if (mdb_find_row(mdb_, rang, &debut, &etendue.taille) != 0) return std::nullopt;
    etendue.marques = static_cast<unsigned>(debut) & (kDeplacee | kAbsente);
    etendue.debut = debut & static_cast<int>(kDecalage);
    return etendue;
  }

  /// Goes on from a slot to where its row is.
  std::optional<Place> Suivre(Place place) {
    for (int saut = 0; saut < kSauts; ++saut) {
      if (!Lire(place.page)) return std::nullopt;
      const auto etendue = place.rang < Rangs() ? Trouver(place.rang) : std::nullopt;
      if (!etendue || etendue->taille == 0) return std::nullopt;
      if ((etendue->marques & kDeplacee) == 0) return place;
      if (etendue->taille < 4) return std::nullopt;
      const auto ou = static_cast<guint32>(mdb_get_int32(mdb_->pg_buf, etendue->debut));
      place = {ou >> 8, static_cast<int>(ou & 0xff)};
    }
    return std::nullopt;
  }

  void TrouverPlaces() {
    ChaquePage([this](guint32 page) {
      const int rangs = Rangs();
      std::vector<Place> vivantes;
      for (int rang = 0; rang < rangs; ++rang) {
        const auto etendue = Trouver(rang);
        if (!etendue)
          abime_ = true;
        else if ((etendue->marques & kAbsente) == 0)
          vivantes.push_back({page, rang});
      }
      for (const Place &place : vivantes) {
        if (places_.size() >= kLignesMax) return;
        if (const auto ici = Suivre(place))
          places_.push_back(*ici);
        else
          abime_ = true;
      }
    });
  }

  /// The data pages of the table by its map; where that makes no sense, all that bear its mark.
  template <typename Visiteur>
  void ChaquePage(Visiteur &&visiteur) {
    const bool carte = table_->usage_map != nullptr && table_->map_sz >= 5 &&
                       table_->usage_map[0] <= 1 && table_->map_sz <= MDB_PGSIZE;
    if (carte) {
      mdb_rewind_table(table_);
      while (mdb_read_next_dpg(table_) > 0) {
        const guint32 page = mdb_->cur_pg;
        visiteur(page);
      }
      return;
    }
    abime_ = true;
    for (guint32 page = 1; Lire(page); ++page)
      if (mdb_->pg_buf[0] == MDB_PAGE_DATA &&
          mdb_get_int32(mdb_->pg_buf, 4) == static_cast<long>(table_->entry->table_pg))
        visiteur(page);
  }

  MdbColumn *Colonne(unsigned i) {
    return static_cast<MdbColumn *>(g_ptr_array_index(table_->columns, i));
  }

  /// Takes the row apart into `champs_`. Its page stays in memory.
  std::optional<Etendue> Ouvrir(const Place &place) {
    if (!Lire(place.page)) return std::nullopt;
    const auto etendue = Trouver(place.rang);
    if (!etendue || mdb_crack_row(table_, etendue->debut, etendue->taille, champs_.data()) < 0)
      return std::nullopt;
    return etendue;
  }

  bool EstDans(const Etendue &etendue, const MdbField &champ) const {
    return champ.siz >= 0 && champ.start >= etendue.debut &&
           static_cast<std::size_t>(champ.start - etendue.debut) +
                   static_cast<std::size_t>(champ.siz) <=
               etendue.taille;
  }

  void LireCles() {
    std::erase_if(places_, [this](Place &place) {
      const auto etendue = Ouvrir(place);
      if (!etendue) {
        abime_ = true;
        return true;
      }
      const MdbField &cle = champs_.front();
      if (!cle.is_null && EstDans(*etendue, cle))
        place.cle = Entier(cle, Colonne(0)->col_type).value_or(0);
      return false;
    });
    std::stable_sort(places_.begin(), places_.end(),
                     [](const Place &a, const Place &b) { return a.cle < b.cle; });
  }

  std::optional<std::int64_t> Entier(const MdbField &champ, int type) {
    void *page = mdb_->pg_buf;
    if (type == MDB_BYTE && champ.siz >= 1) return mdb_get_byte(page, champ.start);
    if (type == MDB_INT && champ.siz >= 2)
      return static_cast<std::int16_t>(mdb_get_int16(page, champ.start));
    if ((type == MDB_LONGINT || type == MDB_COMPLEX) && champ.siz >= 4)
      return static_cast<std::int32_t>(mdb_get_int32(page, champ.start));
    return std::nullopt;
  }

  void EnvoyerLigne(const Place &place) {
    const auto etendue = Ouvrir(place);
    if (!etendue) ::_exit(1);  // it was there a moment ago
    for (unsigned i = 0; i < table_->num_cols; ++i) EnvoyerChamp(*etendue, champs_[i], Colonne(i));
    redacteur_.Envoyer(jet::Trame::Ligne);
  }

  void EnvoyerChamp(const Etendue &etendue, const MdbField &champ, const MdbColumn *colonne) {
    const int type = colonne->col_type;
    if (type == MDB_BOOL) return redacteur_.Nombre(champ.is_null ? 0 : 1);
    if (champ.is_null) return redacteur_.Genre(jet::Champ::Nul);
    if (!EstDans(etendue, champ)) return redacteur_.Genre(jet::Champ::Illisible);
    if (const auto entier = Entier(champ, type)) return redacteur_.Nombre(*entier);
    if (const auto texte = Texte(champ, colonne)) return redacteur_.Texte(*texte);
    redacteur_.Genre(jet::Champ::Illisible);
  }

  std::optional<std::string> Texte(const MdbField &champ, const MdbColumn *colonne) {
    const auto *octets = reinterpret_cast<const char *>(mdb_->pg_buf) + champ.start;
    const auto taille = static_cast<std::size_t>(champ.siz);
    switch (colonne->col_type) {
      case MDB_TEXT:
        return Convertir({octets, taille});
      case MDB_MEMO:
        return Note(octets, taille);
      case MDB_FLOAT:
      case MDB_DOUBLE:
      case MDB_MONEY:
      case MDB_DATETIME:
        return taille < 4 || (taille < 8 && colonne->col_type != MDB_FLOAT)
                   ? std::nullopt
                   : EnTexte(mdb_col_to_string(mdb_, mdb_->pg_buf, champ.start, colonne->col_type,
                                               champ.siz));
      case MDB_NUMERIC:
        return taille < 17 ? std::nullopt
                           : EnTexte(mdb_numeric_to_string(mdb_, champ.start, colonne->col_scale,
                                                           colonne->col_prec));
      default:
        return std::nullopt;
    }
  }

  static std::optional<std::string> EnTexte(char *texte) {
    if (texte == nullptr) return std::nullopt;
    const std::string copie(texte);
    g_free(texte);
    return copie;
  }

  /// A byte of the file becomes three of UTF-8 at most.
  std::string Convertir(std::string_view octets) {
    std::string texte(3 * octets.size() + 8, '\0');
    errno = 0;  // the conversion looks at what an earlier call has left there
    const int taille = octets.empty() ? 0
                                      : mdb_unicode2ascii(mdb_, octets.data(), octets.size(),
                                                          texte.data(), texte.size() - 1);
    texte.resize(static_cast<std::size_t>(std::max(0, taille)));
    return texte;
  }

  /// A note lies behind its head, elsewhere in one piece, or in a chain of pieces.
  std::optional<std::string> Note(const char *tete, std::size_t taille) {
    if (taille == 0) return std::string();
    if (taille < MDB_MEMO_OVERHEAD) return std::nullopt;
    char copie[8];
    std::memcpy(copie, tete, sizeof copie);
    const auto marques = static_cast<std::uint32_t>(mdb_get_int32(copie, 0));
    const auto place = static_cast<std::uint32_t>(mdb_get_int32(copie, 4));
    const std::size_t longueur = marques & ~(kSurPlace | kUnMorceau);
    if (longueur > jet::kTexteMax) return std::nullopt;
    if ((marques & kSurPlace) != 0) {
      if (longueur > taille - MDB_MEMO_OVERHEAD) return std::nullopt;
      return Convertir({tete + MDB_MEMO_OVERHEAD, longueur});
    }
    const auto octets = (marques & kUnMorceau) != 0 ? Morceau(place) : Chaine(place, longueur);
    if (!octets || octets->size() < longueur) return std::nullopt;
    return Convertir(std::string_view(*octets).substr(0, longueur));
  }

  std::optional<std::string> Morceau(std::uint32_t place) {
    void *page = nullptr;
    int debut = 0;
    std::size_t taille = 0;
    if (mdb_find_pg_row(mdb_, static_cast<int>(place), &page, &debut, &taille) != 0)
      return std::nullopt;
    return std::string(static_cast<const char *>(page) + debut, taille);
  }

  /// Each piece begins with the place of the next one. One that brings nothing would have no end.
  std::optional<std::string> Chaine(std::uint32_t place, std::size_t longueur) {
    std::string octets;
    while (octets.size() < longueur) {
      auto morceau = place == 0 ? std::nullopt : Morceau(place);
      if (!morceau || morceau->size() <= 4) return std::nullopt;
      place = static_cast<std::uint32_t>(mdb_get_int32(morceau->data(), 0));
      octets.append(*morceau, 4);
    }
    return octets;
  }

  MdbHandle *mdb_;
  MdbTableDef *table_;
  std::vector<Place> places_;
  std::vector<MdbField> champs_;
  bool abime_ = false;
  Redacteur redacteur_;
};

/// Ends the process: what the library would free may not be what it has made.
[[noreturn]] void Finir(int statut) {
  std::fflush(stdout);
  ::_exit(statut);
}

}  // namespace

int main(int argc, char *argv[]) {
  if (argc != 3) {
    std::fputs("usage: velmira-jet FILE TABLE\n", stderr);
    return 2;
  }
  ::clearenv();  // some of it would choose another code page
  LimiterRessources();
  MdbHandle *mdb = mdb_open(argv[1], MDB_NOFLAGS);
  if (mdb == nullptr) Finir(1);
  Enfermer();  // the code page's converter is loaded by now
  mdb_set_date_fmt(mdb, "%d/%m/%Y");
  if (mdb_read_catalog(mdb, MDB_TABLE) == nullptr || mdb->num_catalog == 0) Finir(1);
  MdbCatalogEntry *entree = mdb_get_catalogentry_by_name(mdb, argv[2]);
  if (entree == nullptr) {
    Redacteur().Envoyer(jet::Trame::Absente);
    Finir(0);
  }
  MdbTableDef *table = mdb_read_table(entree);
  if (table == nullptr || table->num_cols == 0 || table->num_cols > jet::kColonnesMax ||
      mdb_read_columns(table) == nullptr || table->columns->len != table->num_cols)
    Finir(1);
  Lecteur(mdb, table).Envoyer();
  Finir(0);
}
