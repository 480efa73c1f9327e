#include "exchange/EchangeTexte.h"

#include "platform/PageDeCode.h"
#include "platform/Saisie.h"
#include "storage/ExtraitAdresse.h"
#include "storage/Noms.h"
#include "storage/Tables.h"

#include <QHash>

#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

// Records between two tellings of the progress; also what one transaction writes.
constexpr qsizetype kBloc = 1000;

using L = Correspondant;

/// The fields of a record in the order of their lines.
constexpr std::tuple kChamps{
    &L::NomVelmira,    &L::Ligne1,        &L::Ligne2,
    &L::Ligne3,        &L::Ligne4,        &L::Ligne5,
    &L::CodePostal,    &L::Ville,         &L::Pays,
    &L::Categories,    &L::Tel,           &L::Fax,
    &L::Mail,          &L::Portable,      &L::AdresseImportee,
    &L::OptionAdresse, &L::Web,           &L::TelTravail,
    &L::Photo,         &L::ListeRougeTel, &L::ListeRougeTravail,
    &L::DDN,           &L::DataProt,      &L::AlerteActive,
};
constexpr std::size_t kNombreChamps = std::tuple_size_v<decltype(kChamps)>;

/// The same as columns of the table.
constexpr auto kOrdinaux =
    std::apply([](auto... champ) { return std::array{Ordinal(champ)...}; }, kChamps);

/// Calls `f` with the place of each field in the record, from 0, and the field.
template <typename Fonction>
void PourChaqueChamp(Fonction &&f) {
  int place = 0;
  std::apply([&](auto... champ) { (f(place++, champ), ...); }, kChamps);
}

// What a column is as a line, and a line as a field. A line that does not suit gives false.

template <typename Champ>
QString Ligne(const LigneStockee &ligne, int place, Champ L::*) {
  if constexpr (std::is_same_v<Champ, bool>)
    return ligne.Vrai(place) ? u"True"_s : u"False"_s;
  else
    return ligne.Texte(place);
}

bool Prendre(const QString &ligne, QString &champ) {
  champ = ligne;
  return true;
}

bool Prendre(const QString &ligne, int &champ) {
  constexpr int kOctet = 255;
  bool nombre = true;
  champ = ligne.isEmpty() ? 0 : ligne.toInt(&nombre);
  return nombre && champ >= 0 && champ <= kOctet;
}

bool Prendre(const QString &ligne, bool &champ) {
  const auto est = [&](const QString &texte) {
    return ligne.compare(texte, Qt::CaseInsensitive) == 0;
  };
  champ = est(u"True"_s) || est(u"Vrai"_s) || est(u"-1"_s) || est(u"1"_s);
  return champ || ligne.isEmpty() || est(u"False"_s) || est(u"Faux"_s) || est(u"0"_s);
}

/// Whether a field of the row is to take this line. A boolean always holds a value.
template <typename Champ>
bool EstACompleter(const LigneStockee &present, int place, Champ L::*, const QString &ligne) {
  if constexpr (std::is_same_v<Champ, QString>)
    return present.Nul(place) || (present.Texte(place).isEmpty() && !ligne.isEmpty());
  else if constexpr (std::is_same_v<Champ, int>)
    return present.Nul(place);
  else
    return false;
}

/// The lines of a file, ended by CR LF, LF or CR.
class LecteurLignes {
 public:
  explicit LecteurLignes(const QByteArray &octets) : texte_(DepuisPageDeCode(octets)) {}

  std::optional<QString> Suivante() {
    if (position_ == texte_.size()) return std::nullopt;
    const qsizetype debut = position_;
    while (position_ < texte_.size() && texte_[position_] != u'\r' && texte_[position_] != u'\n')
      ++position_;
    const QString ligne = texte_.mid(debut, position_ - debut);
    const bool deuxSignes = QStringView(texte_).mid(position_, 2) == u"\r\n";
    position_ = std::min(position_ + (deuxSignes ? 2 : 1), texte_.size());
    ++numero_;
    return ligne;
  }

  /// Of the line given last, from 1.
  qsizetype Numero() const { return numero_; }
  /// What has been read, of `Taille`.
  qsizetype Position() const { return position_; }
  qsizetype Taille() const { return texte_.size(); }

 private:
  const QString texte_;
  qsizetype position_ = 0, numero_ = 0;
};

/// A record as it stands in the file: as many lines as the file holds of it, the name trimmed.
struct Fiche {
  QStringList lignes;
  qsizetype numero = 0;  ///< of its first line
};

std::optional<Fiche> FicheSuivante(LecteurLignes &lecteur) {
  auto ligne = lecteur.Suivante();
  while (ligne && !ligne->startsWith(u'*')) ligne = lecteur.Suivante();
  if (!ligne) return std::nullopt;
  Fiche fiche{{SansBlancs(QStringView(*ligne).mid(1))}, lecteur.Numero()};
  while (fiche.lignes.size() < static_cast<qsizetype>(kNombreChamps) &&
         (ligne = lecteur.Suivante()))
    fiche.lignes.append(*ligne);
  return fiche;
}

QString Debut(const QString &texte) {
  constexpr qsizetype kMontres = 80;
  return texte.size() <= kMontres ? texte : texte.left(kMontres) + u"..."_s;
}

class Fusion {
 public:
  explicit Fusion(Base &base) : base_(base), extrait_(base, kOrdinaux) { Rattraper(); }

  /// Takes in what others have added since the last block. At the beginning of each, so that two
  /// imports at once give no name twice.
  void Rattraper() {
    TableAdresse(base_).PourChaqueApres(derniere_, [&](EntreeListe &&entree) {
      derniere_ = entree.Index;
      if (entree.NomVelmira.isNull()) return;
      const QString nom = EnCapitales(std::move(entree.NomVelmira));
      if (!premiers_.contains(nom)) premiers_.insert(nom, entree.Index);
    });
  }

  void Integrer(const Fiche &fiche) {
    const QString nom = EnCapitales(fiche.lignes.first());
    const auto connu = premiers_.constFind(nom);
    if (connu == premiers_.cend() || !Completer(*connu, nom, fiche))
      premiers_.insert(nom, Ajouter(fiche));
  }

 private:
  template <typename Champ>
  static void Lire(const Fiche &fiche, int place, Champ L::*champ, L &correspondant) {
    if (Prendre(fiche.lignes[place], correspondant.*champ)) return;
    throw ErreurFichier(
        u"La ligne %1 du fichier, « %2 », ne convient pas au champ %3 du velmira « %4 ».\n"
        "L'importation s'arrête là. Les velmiras qui précèdent sont importés."_s.arg(
            QString::number(fiche.numero + place), Debut(fiche.lignes[place]),
            QString::fromUtf16(NomsColonnes<L>()[Ordinal(champ)]), Debut(fiche.lignes.first())));
  }

  Cle Ajouter(const Fiche &fiche) {
    L correspondant;
    PourChaqueChamp([&](int place, auto champ) {
      if (place < fiche.lignes.size()) Lire(fiche, place, champ, correspondant);
    });
    return derniere_ = AjouterLigne(base_, correspondant);
  }

  /// False when another user has deleted the row meanwhile, or given it another name.
  bool Completer(Cle index, const QString &nom, const Fiche &fiche) {
    L correspondant;
    correspondant.Index = index;
    ChoixColonnes<L> pris;
    bool memeNom = false;
    extrait_.Lire(index, [&](const LigneStockee &present) {
      memeNom = EnCapitales(present.Texte(0)) == nom;
      if (!memeNom) return;
      PourChaqueChamp([&](int place, auto champ) {
        if (place >= fiche.lignes.size() ||
            !EstACompleter(present, place, champ, fiche.lignes[place]))
          return;
        Lire(fiche, place, champ, correspondant);
        pris.set(Ordinal(champ));
      });
    });
    return memeNom && (pris.none() || ModifierLigne(base_, correspondant, pris));
  }

  Base &base_;
  ExtraitAdresse extrait_;
  QHash<QString, Cle> premiers_;                    ///< key of the first row of each name
  Cle derniere_ = std::numeric_limits<Cle>::min();  ///< of the rows that are known
};

}  // namespace

std::optional<QByteArray> ExporterVelmiras(Base &base, const Avance &avance) {
  const qsizetype total = TableAdresse(base).Nombre();
  QByteArray octets;
  qsizetype faits = 0;
  const bool entier = ExtraitAdresse(base, kOrdinaux).PourChaque([&](const LigneStockee &ligne) {
    QString texte = u"*"_s;
    PourChaqueChamp([&](int place, auto champ) {
      texte += Ligne(ligne, place, champ);
      texte += u"\r\n"_s;
    });
    // Everywhere, not in the booleans only: this is what readers of the file know.
    texte.replace(u"Faux"_s, u"False"_s).replace(u"Vrai"_s, u"True"_s);
    octets += VersPageDeCode(texte);
    return ++faits % kBloc != 0 || avance(faits, total);
  });
  if (!entier) return std::nullopt;
  octets += "\r\n";
  return octets;
}

BilanImport ImporterVelmiras(Base &base, const QByteArray &octets, const Avance &avance) {
  LecteurLignes lecteur(octets);
  Fusion fusion(base);
  BilanImport bilan;
  auto fiche = FicheSuivante(lecteur);
  while (fiche && !bilan.arrete) {
    Transaction transaction(base);
    fusion.Rattraper();
    try {
      for (qsizetype n = 0; fiche && n < kBloc; ++n) {
        fusion.Integrer(*fiche);
        ++bilan.traites;
        fiche = FicheSuivante(lecteur);
      }
    } catch (const ErreurFichier &) {
      transaction.Valider();
      throw;
    }
    transaction.Valider();
    const bool continuer = avance(lecteur.Position(), lecteur.Taille());
    bilan.arrete = fiche.has_value() && !continuer;
  }
  return bilan;
}
