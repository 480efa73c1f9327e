#include "exchange/EchangeTexte.h"

#include "platform/PageDeCode.h"
#include "platform/Saisie.h"
#include "storage/ExtraitAdresse.h"
#include "storage/Noms.h"
#include "storage/Tables.h"

#include <QHash>

#include <array>
#include <utility>

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

QString SurUneLigne(QString valeur) {
  return valeur.replace(u"\r\n"_s, u" "_s).replace(u'\r', u' ').replace(u'\n', u' ');
}

/// Everywhere, not in the booleans only: this is what readers of the file know.
QString BooleensTraduits(QString texte) {
  return texte.replace(u"Faux"_s, u"False"_s).replace(u"Vrai"_s, u"True"_s);
}

/// What comes back of a value that is exported.
QString AuRetour(const QString &valeur) {
  return DepuisPageDeCode(VersPageDeCode(BooleensTraduits(SurUneLigne(valeur))));
}

/// Whether enough is left of a name to tell who bears it.
bool EstReconnaissable(const QString &nom) {
  return 2 * nom.count(u'?') < nom.size();
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
    terminee_ = position_ < texte_.size();
    const bool deuxSignes = QStringView(texte_).mid(position_, 2) == u"\r\n";
    position_ = std::min(position_ + (deuxSignes ? 2 : 1), texte_.size());
    ++numero_;
    return ligne;
  }

  /// Of the line given last, from 1.
  qsizetype Numero() const { return numero_; }
  /// Whether it has a line end.
  bool Terminee() const { return terminee_; }
  /// What has been read, of `Taille`.
  qsizetype Position() const { return position_; }
  qsizetype Taille() const { return texte_.size(); }

 private:
  const QString texte_;
  qsizetype position_ = 0, numero_ = 0;
  bool terminee_ = true;
};

/// A record as it stands in the file, the name trimmed.
struct Fiche {
  QStringList lignes;
  qsizetype numero = 0;  ///< of its first line
  bool entiere = false;  ///< not cut off by the end of the file
};

std::optional<Fiche> FicheSuivante(LecteurLignes &lecteur) {
  auto ligne = lecteur.Suivante();
  while (ligne && !ligne->startsWith(u'*')) ligne = lecteur.Suivante();
  if (!ligne) return std::nullopt;
  Fiche fiche{{SansBlancs(QStringView(*ligne).mid(1))}, lecteur.Numero()};
  while (fiche.lignes.size() < static_cast<qsizetype>(kNombreChamps) &&
         (ligne = lecteur.Suivante()))
    fiche.lignes.append(*ligne);
  bool active = false;
  fiche.entiere = fiche.lignes.size() == static_cast<qsizetype>(kNombreChamps) &&
                  (lecteur.Terminee() || Prendre(fiche.lignes.constLast(), active));
  return fiche;
}

QString Debut(const QString &texte) {
  constexpr qsizetype kMontres = 80;
  return texte.size() <= kMontres ? texte : texte.left(kMontres) + u"..."_s;
}

class Fusion {
 public:
  explicit Fusion(Base &base) : base_(base), extrait_(base, kOrdinaux) {}

  /// Reads the names anew where others have written meanwhile. In each transaction, so that two
  /// imports at once give no name twice.
  void Rattraper() {
    const qint64 changements = base_.Changements();
    if (changements == changements_) return;
    changements_ = changements;
    premiers_.clear();
    deformes_.clear();
    TableAdresse(base_).PourChaque([this](EntreeListe &&entree) {
      if (!entree.NomVelmira.isNull()) Noter(entree.NomVelmira, entree.Index);
    });
  }

  void Integrer(const Fiche &fiche, BilanImport &bilan) {
    const QString &nom = fiche.lignes.first();
    if (const auto connu = Connu(EnCapitales(nom))) {
      bilan.completes += Completer(*connu, fiche);
    } else {
      premiers_.insert(EnCapitales(nom), Ajouter(fiche));
      ++bilan.ajoutes;
      if (nom.contains(u'?')) bilan.douteux.append(Debut(nom));
    }
    ++bilan.traites;
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

  void Noter(const QString &nom, Cle index) {
    const QString cle = EnCapitales(nom);
    if (!premiers_.contains(cle)) premiers_.insert(cle, index);
    if (const QString retour = AuRetour(nom); retour != nom)
      deformes_.insert(EnCapitales(SansBlancs(retour)), index);
  }

  std::optional<Cle> Connu(const QString &nom) const {
    if (const auto connu = premiers_.constFind(nom); connu != premiers_.cend()) return *connu;
    if (deformes_.count(nom) != 1 || !EstReconnaissable(nom)) return std::nullopt;
    return deformes_.value(nom);
  }

  Cle Ajouter(const Fiche &fiche) {
    L correspondant;
    PourChaqueChamp([&](int place, auto champ) { Lire(fiche, place, champ, correspondant); });
    return AjouterLigne(base_, correspondant);
  }

  /// Whether it had something to fill.
  bool Completer(Cle index, const Fiche &fiche) {
    L correspondant;
    correspondant.Index = index;
    ChoixColonnes<L> pris;
    extrait_.Lire(index, [&](const LigneStockee &present) {
      PourChaqueChamp([&](int place, auto champ) {
        if (!EstACompleter(present, place, champ, fiche.lignes[place])) return;
        Lire(fiche, place, champ, correspondant);
        pris.set(Ordinal(champ));
      });
    });
    if (pris.any()) ModifierLigne(base_, correspondant, pris);
    return pris.any();
  }

  Base &base_;
  ExtraitAdresse extrait_;
  std::optional<qint64> changements_;  ///< of the database when the names were read
  QHash<QString, Cle> premiers_;       ///< key of the first row of each name
  QMultiHash<QString, Cle> deformes_;  ///< by the names that an export has made of others
};

}  // namespace

std::optional<Exportation> ExporterVelmiras(Base &base, const Avance &avance) {
  const qsizetype total = TableAdresse(base).Nombre();
  Exportation exportation;
  qsizetype faits = 0;
  const bool entier = ExtraitAdresse(base, kOrdinaux).PourChaque([&](const LigneStockee &ligne) {
    QString texte = u"*"_s;
    PourChaqueChamp([&](int place, auto champ) {
      const QString valeur = Ligne(ligne, place, champ);
      const bool plusieurs = valeur.contains(u'\n') || valeur.contains(u'\r');
      if (plusieurs) ++exportation.coupees;
      texte += plusieurs ? SurUneLigne(valeur) : valeur;
      texte += u"\r\n"_s;
    });
    const QByteArray octets = VersPageDeCode(BooleensTraduits(texte));
    exportation.remplaces += octets.count('?') - texte.count(u'?');
    exportation.octets += octets;
    return ++faits % kBloc != 0 || avance(faits, total);
  });
  if (!entier) return std::nullopt;
  exportation.octets += "\r\n";
  return exportation;
}

BilanImport ImporterVelmiras(Base &base, const QByteArray &octets, const Avance &avance) {
  LecteurLignes lecteur(octets);
  Fusion fusion(base);
  BilanImport bilan;
  const auto suivante = [&]() -> std::optional<Fiche> {
    auto fiche = FicheSuivante(lecteur);
    if (!fiche || fiche->entiere) return fiche;
    bilan.coupe = Debut(fiche->lignes.constFirst());
    return std::nullopt;
  };
  auto fiche = suivante();
  while (fiche && !bilan.arrete) {
    Transaction transaction(base);
    fusion.Rattraper();
    try {
      for (qsizetype n = 0; fiche && n < kBloc; ++n) {
        fusion.Integrer(*fiche, bilan);
        fiche = suivante();
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
