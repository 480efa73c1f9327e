#include "directory/RechercheTotale.h"

#include "calendar/SansAccents.h"
#include "directory/Categories.h"
#include "directory/Protection.h"
#include "storage/ExtraitAdresse.h"
#include "storage/Noms.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using C = Correspondant;

struct ChampCherche {
  std::size_t ordinal;
  QStringView libelle;
  bool numero = false;  ///< only its digits count
};

// In the order of what is found.
const std::array kChamps{
    ChampCherche{Ordinal(&C::NomVelmira), u""},
    ChampCherche{Ordinal(&C::Ligne1), u"Adresse"},
    ChampCherche{Ordinal(&C::Ligne2), u"Adresse"},
    ChampCherche{Ordinal(&C::Ligne3), u"Adresse"},
    ChampCherche{Ordinal(&C::Ligne4), u"Adresse"},
    ChampCherche{Ordinal(&C::Ligne5), u"Adresse"},
    ChampCherche{Ordinal(&C::Ville), u"Ville"},
    ChampCherche{Ordinal(&C::CodePostal), u"Code postal"},
    ChampCherche{Ordinal(&C::Pays), u"Pays"},
    ChampCherche{Ordinal(&C::Tel), u"Tél.", true},
    ChampCherche{Ordinal(&C::Portable), u"Portable", true},
    ChampCherche{Ordinal(&C::TelTravail), u"Travail", true},
    ChampCherche{Ordinal(&C::Fax), u"Fax", true},
    ChampCherche{Ordinal(&C::Mail), u"E-mail"},
    ChampCherche{Ordinal(&C::Web), u"Web"},
    ChampCherche{Ordinal(&C::Commentaires), u"Notes"},
    ChampCherche{Ordinal(&C::Categories), u"Catégorie"},
    ChampCherche{Ordinal(&C::AdresseImportee), u"Adresse importée"},
    ChampCherche{Ordinal(&C::DDN), u"Né(e) le"},
};
constexpr qsizetype kNom = 0, kVille = 6, kCode = 7, kPremierNumero = 9, kDernierNumero = 12,
                    kCategories = 16;

constexpr char kFin = '\n';       // ends a field; no folded text holds it
constexpr char kFinTexte = '\0';  // the same of a text as it was typed, which may have lines
constexpr std::size_t kDegresNom = 3;

constexpr std::u16string_view kEntreMots = u",;:()\"«»“”!?*'’ʼ`´";

QString PliDe(QChar signe) {
  switch (signe.unicode()) {
    case u'Œ':
    case u'œ':
      return u"oe"_s;
    case u'Æ':
    case u'æ':
      return u"ae"_s;
    case u'ß':
    case u'ẞ':
      return u"ss"_s;
    default:
      break;
  }
  if (signe.isSurrogate()) return QString(signe);
  const auto categorie = signe.category();
  if (categorie == QChar::Other_Format) return {};
  if (signe.isSpace() || categorie == QChar::Punctuation_Dash ||
      categorie == QChar::Other_Control || kEntreMots.find(signe.unicode()) != kEntreMots.npos)
    return u" "_s;
  QString plie;
  for (const QChar c : SansAccents(QString(signe)).normalized(QString::NormalizationForm_KD))
    if (!c.isMark()) plie += c.toLower();
  return plie;
}

/// The signs of the western languages at once, the others one by one.
const QString &Pli(QChar signe, QString &autre) {
  static const std::array kPlis = [] {
    std::array<QString, 0x250> plis;
    for (std::size_t i = 0; i < plis.size(); ++i) plis[i] = PliDe(QChar(static_cast<char16_t>(i)));
    return plis;
  }();
  if (signe.unicode() < kPlis.size()) return kPlis[signe.unicode()];
  return autre = PliDe(signe);
}

/// The folded text, and in `places`, where it is given, from which character each byte comes.
QByteArray Plier(QStringView texte, std::vector<qsizetype> *places) {
  QString plie, autre;
  plie.reserve(texte.size());
  std::vector<qsizetype> origines;
  for (qsizetype i = 0; i < texte.size(); ++i)
    for (const QChar c : Pli(texte[i], autre)) {
      if (c == u' ' && (plie.isEmpty() || plie.endsWith(u' '))) continue;
      plie += c;
      if (places != nullptr) origines.push_back(i);
    }
  if (plie.endsWith(u' ')) plie.chop(1);
  if (places != nullptr)
    for (qsizetype i = 0; i < plie.size(); ++i) {
      const qsizetype octets = plie[i].isLowSurrogate() ? 0
                               : plie[i].isHighSurrogate()
                                   ? 4
                                   : QStringView(plie).mid(i, 1).toUtf8().size();
      places->insert(places->end(), static_cast<std::size_t>(octets),
                     origines[static_cast<std::size_t>(i)]);
    }
  return plie.toUtf8();
}

/// The digits of a number as it is dialled at home.
QByteArray Chiffres(const QString &numero) {
  QByteArray chiffres;
  for (const QChar c : numero)
    if (c.isDigit()) chiffres += static_cast<char>('0' + c.digitValue());
  const bool international = numero.trimmed().startsWith(u'+');
  for (const char *indicatif : {"0033", "33"})
    if ((international || indicatif[0] == '0') && chiffres.startsWith(indicatif)) {
      chiffres.remove(0, static_cast<qsizetype>(std::strlen(indicatif)));
      while (chiffres.startsWith('0')) chiffres.remove(0, 1);
      return '0' + chiffres;
    }
  return chiffres;
}

bool EstNumero(const QString &saisie) {
  constexpr std::u16string_view kSignes = u"0123456789 .-/+()";
  return std::ranges::all_of(saisie,
                             [&](QChar c) { return kSignes.find(c.unicode()) != kSignes.npos; });
}

/// The first place of a text at or behind `depuis`, -1 for none.
qsizetype Place(QByteArrayView ou, const QByteArray &quoi, qsizetype depuis = 0) {
  const auto reste = static_cast<std::size_t>(ou.size() - depuis);
  const void *place =
      ::memmem(ou.data() + depuis, reste, quoi.data(), static_cast<std::size_t>(quoi.size()));
  return place == nullptr ? -1 : static_cast<const char *>(place) - ou.data();
}

/// Looks for a word in the texts of all records, in a few milliseconds for a hundred thousand:
/// blocks in which its two rarest bytes do not stand at their distance are passed over, many bytes
/// at once.
class Lecteur {
 public:
  Lecteur(QByteArrayView ou, const QByteArray &mot, const std::array<qsizetype, 256> &frequences)
      : ou_(ou), mot_(mot) {
    std::vector<qsizetype> places(static_cast<std::size_t>(mot.size()));
    std::iota(places.begin(), places.end(), 0);
    std::ranges::stable_sort(
        places, {}, [&](qsizetype i) { return frequences[static_cast<unsigned char>(mot[i])]; });
    une_ = places.front();
    autre_ = places[places.size() > 1 ? 1 : 0];
  }

  /// The first place at or behind `depuis`, -1 for none.
  qsizetype Suivante(qsizetype depuis) const {
    const char *un = ou_.data() + une_, *autre = ou_.data() + autre_;
    const char a = mot_[une_], b = mot_[autre_];
    const qsizetype dernier = ou_.size() - mot_.size() - kBloc;
    for (; depuis <= dernier; depuis += kBloc) {
      unsigned char peut = 0;  // without a branch inside, so that the compiler takes many at once
      for (qsizetype i = depuis; i < depuis + kBloc; ++i)
        peut = static_cast<unsigned char>(peut | ((un[i] == a) & (autre[i] == b)));
      if (peut == 0) continue;
      for (qsizetype i = depuis; i < depuis + kBloc; ++i)
        if (un[i] == a && autre[i] == b && ou_.sliced(i, mot_.size()) == mot_) return i;
    }
    return Place(ou_, mot_, depuis);
  }

 private:
  static constexpr qsizetype kBloc = 32;

  QByteArrayView ou_;
  const QByteArray &mot_;
  qsizetype une_, autre_;
};

bool EnTeteDeMot(QByteArrayView nom, const QByteArray &mot) {
  for (qsizetype place = Place(nom, mot); place >= 0; place = Place(nom, mot, place + 1))
    if (place == 0 || nom[place - 1] == ' ') return true;
  return false;
}

/// Where the first number or code stands that holds these digits, -1 for none.
qsizetype PlaceDuNumero(QByteArrayView plie, const QByteArray &chiffres) {
  if (chiffres.isEmpty()) return -1;
  for (qsizetype place = Place(plie, chiffres); place >= 0;
       place = Place(plie, chiffres, place + 1)) {
    const auto champ = std::count(plie.begin(), plie.begin() + place, kFin);
    if (champ == kCode || (champ >= kPremierNumero && champ <= kDernierNumero)) return place;
  }
  return -1;
}

/// Where the first word that is found in a text begins; 0 for none.
qsizetype PremierMot(const QString &texte, const QList<QByteArray> &mots) {
  std::vector<qsizetype> places;
  const QByteArray plie = Plier(texte, &places);
  qsizetype premier = plie.size();
  for (const QByteArray &mot : mots)
    if (const qsizetype place = Place(plie, mot); place >= 0) premier = std::min(premier, place);
  return premier < plie.size() ? places[static_cast<std::size_t>(premier)] : 0;
}

/// All digits as they are written, and from which character each comes.
QByteArray ChiffresEcrits(const QString &numero, std::vector<qsizetype> &places) {
  QByteArray chiffres;
  for (qsizetype i = 0; i < numero.size(); ++i)
    if (numero[i].isDigit()) {
      chiffres += static_cast<char>('0' + numero[i].digitValue());
      places.push_back(i);
    }
  return chiffres;
}

/// Where all these words stand in a text; in a number their digits, whatever stands between those.
QList<PrecisionListe::Passage> Passages(const QString &texte, const QList<QByteArray> &mots,
                                        bool numero) {
  std::vector<qsizetype> places;
  const QByteArray plie = numero ? ChiffresEcrits(texte, places) : Plier(texte, &places);
  const auto origine = [&](qsizetype place) { return places[static_cast<std::size_t>(place)]; };
  QList<PrecisionListe::Passage> passages;
  for (QByteArray mot : mots) {
    // "06" may be written "+33 6".
    if (numero && mot.startsWith('0') && Place(plie, mot) < 0) mot.remove(0, 1);
    if (mot.isEmpty()) continue;
    for (qsizetype place = Place(plie, mot); place >= 0;
         place = Place(plie, mot, place + mot.size())) {
      const qsizetype debut = origine(place);
      qsizetype fin = origine(place + mot.size() - 1) + 1;
      while (fin < texte.size() && (texte[fin].isMark() || texte[fin].isLowSurrogate())) ++fin;
      passages.append({debut, fin - debut});
    }
  }
  std::ranges::sort(passages, {}, &PrecisionListe::Passage::debut);
  return passages;
}

/// A text in one line, from the word at a place on where that lies far inside: in the list there is
/// room for little more.
QString Autour(const QString &texte, qsizetype place) {
  constexpr qsizetype kPres = 10, kLongueur = 80;
  qsizetype debut = place > kPres ? place : 0;
  while (debut > 0 && !texte[debut - 1].isSpace()) --debut;
  QString extrait = texte.mid(debut, kLongueur).simplified();
  if (debut > 0) extrait.prepend(u"… "_s);
  if (debut + kLongueur < texte.size()) extrait += u" …"_s;
  return extrait;
}

}  // namespace

QByteArray Plier(const QString &texte) {
  return Plier(texte, nullptr);
}

RechercheTotale::RechercheTotale(Base &base, const QString &utilisateur,
                                 const std::stop_token &arret) {
  struct Lue {
    QCollatorSortKey ordre;
    Cle cle;
    QByteArray plie, texte;
  };
  std::vector<std::size_t> ordinaux;
  ordinaux.reserve(std::size(kChamps) + 2);
  for (const ChampCherche &champ : kChamps) ordinaux.push_back(champ.ordinal);
  const auto nombre = static_cast<int>(ordinaux.size());
  ordinaux.insert(ordinaux.end(), {Ordinal(&C::Index), Ordinal(&C::DataProt)});

  const QCollator ordre = OrdreDesNoms();
  std::vector<Lue> lues;
  ExtraitAdresse(base, ordinaux).PourChaque([&](const LigneStockee &ligne) {
    if (!EstVisible(ligne.Texte(nombre + 1), utilisateur)) return !arret.stop_requested();
    Lue lue{ordre.sortKey(NomListe(ligne.Texte(kNom))), ligne.Texte(nombre).toLongLong(), {}, {}};
    for (int i = 0; i < nombre; ++i) {
      const QString champ = ligne.Texte(i);
      lue.plie +=
          (kChamps[static_cast<std::size_t>(i)].numero ? Chiffres(champ) : Plier(champ, nullptr)) +
          kFin;
      lue.texte += champ.toUtf8().replace(kFinTexte, ' ') + kFinTexte;
    }
    lues.push_back(std::move(lue));
    return !arret.stop_requested();
  });
  std::stable_sort(lues.begin(), lues.end(),
                   [](const Lue &a, const Lue &b) { return a.ordre < b.ordre; });

  fiches_.reserve(lues.size() + 1);
  parCle_.reserve(lues.size());
  for (const Lue &lue : lues) {
    parCle_.emplace_back(lue.cle, fiches_.size());
    fiches_.push_back({lue.cle, noms_.size(), plies_.size(), textes_.size()});
    noms_ += lue.plie.first(lue.plie.indexOf(kFin) + 1);
    plies_ += lue.plie;
    textes_ += lue.texte;
  }
  fiches_.push_back({0, noms_.size(), plies_.size(), textes_.size()});
  std::ranges::sort(parCle_);
  for (const char octet : std::as_const(plies_)) ++frequences_[static_cast<unsigned char>(octet)];
}

QByteArrayView RechercheTotale::Plie(std::size_t rang) const {
  const qsizetype debut = fiches_[rang].plie;
  return QByteArrayView(plies_).sliced(debut, fiches_[rang + 1].plie - debut);
}

QString RechercheTotale::Champ(std::size_t rang, qsizetype champ) const {
  qsizetype debut = fiches_[rang].texte;
  const auto fin = [&] { return textes_.indexOf(kFinTexte, debut); };
  for (; champ > 0; --champ) debut = fin() + 1;
  return QString::fromUtf8(QByteArrayView(textes_).sliced(debut, fin() - debut));
}

RechercheTotale::Demande RechercheTotale::Lire(const QString &saisie) {
  Demande demande;
  for (const QByteArray &mot : Plier(saisie, nullptr).split(' '))
    if (!mot.isEmpty()) demande.mots.append(mot);
  if (EstNumero(saisie))
    if (const QByteArray chiffres = Chiffres(saisie); demande.mots != QList{chiffres})
      demande.chiffres = chiffres;
  return demande;
}

qsizetype RechercheTotale::PlaceDans(QByteArrayView plie, const QList<QByteArray> &mots) {
  qsizetype loin = -1;
  for (const QByteArray &mot : mots) {
    const qsizetype place = Place(plie, mot);
    if (place < 0) return -1;
    loin = std::max(loin, place);
  }
  return loin;
}

RechercheTotale::Trouvees RechercheTotale::Parcourir(const QByteArray &ou, qsizetype Fiche::*debut,
                                                     const QList<QByteArray> &mots,
                                                     const FiltreListe &filtre) const {
  Trouvees trouvees;
  if (mots.isEmpty()) return trouvees;
  const QByteArray &rare = *std::ranges::max_element(mots, {}, &QByteArray::size);
  const Lecteur lecteur(ou, rare, frequences_);
  auto fin = fiches_.begin();  // of the record in which the word stands
  for (qsizetype place = 0; (place = lecteur.Suivante(place)) >= 0; place = (*fin).*debut) {
    ++fin;  // where many hold it the next one does
    if ((*fin).*debut <= place)
      fin = std::ranges::upper_bound(fin, fiches_.end(), place, {}, debut);
    const auto rang = static_cast<std::size_t>(fin - fiches_.begin()) - 1;
    const qsizetype depuis = fiches_[rang].*debut;
    const auto fiche = QByteArrayView(ou).sliced(depuis, (*fin).*debut - depuis);
    const qsizetype loin = mots.size() == 1 ? place - depuis : PlaceDans(fiche, mots);
    if (loin >= 0 && Passe(rang, filtre)) trouvees.push_back({rang, loin});
    if (trouvees.size() == kLimite) break;
  }
  return trouvees;
}

bool RechercheTotale::EstSuite(const Demande &demande, const FiltreListe &filtre) const {
  return !mots_.isEmpty() && trouvees_.size() < kLimite && filtre == filtre_ &&
         demande.chiffres.isEmpty() && std::ranges::all_of(mots_, [&](const QByteArray &ancien) {
           return std::ranges::any_of(demande.mots,
                                      [&](const QByteArray &mot) { return mot.contains(ancien); });
         });
}

RechercheTotale::Trouvees RechercheTotale::Reunir(const Trouvees &devant, const Trouvees &autres) {
  Trouvees toutes;
  std::ranges::set_union(devant, autres, std::back_inserter(toutes), {}, &Trouvee::rang,
                         &Trouvee::rang);
  return toutes;
}

RechercheTotale::Trouvees RechercheTotale::Trouver(const Demande &demande,
                                                   const FiltreListe &filtre) const {
  Trouvees trouvees;
  if (EstSuite(demande, filtre)) {
    for (const Trouvee &ancienne : trouvees_)
      if (const qsizetype place = PlaceDans(Plie(ancienne.rang), demande.mots); place >= 0)
        trouvees.push_back({ancienne.rang, place});
    return trouvees;
  }
  trouvees = Parcourir(plies_, &Fiche::plie, demande.mots, filtre);
  if (trouvees.size() == kLimite)  // the names stand in front, those at the end of the list too
    trouvees = Reunir(Parcourir(noms_, &Fiche::nom, demande.mots, filtre), trouvees);
  if (demande.chiffres.isEmpty()) return trouvees;
  Trouvees numeros = Parcourir(plies_, &Fiche::plie, {demande.chiffres}, filtre);
  std::erase_if(numeros, [&](Trouvee &numero) {
    numero.place = PlaceDuNumero(Plie(numero.rang), demande.chiffres);
    return numero.place < 0;
  });
  return Reunir(numeros, trouvees);
}

std::size_t RechercheTotale::Degre(const Trouvee &trouvee, const QList<QByteArray> &mots) const {
  const QByteArrayView plie = Plie(trouvee.rang);
  const QByteArrayView nom = plie.first(plie.indexOf(kFin));
  if (trouvee.place > nom.size()) {
    const auto champ = std::count(plie.begin(), plie.begin() + trouvee.place, kFin);
    return kDegresNom - 1 + static_cast<std::size_t>(champ);
  }
  if (nom.startsWith(mots.join(' '))) return 0;
  const auto enTete = [&](const QByteArray &mot) { return EnTeteDeMot(nom, mot); };
  return std::ranges::all_of(mots, enTete) ? 1 : 2;
}

bool RechercheTotale::Passe(std::size_t rang, const FiltreListe &filtre) const {
  if (filtre.categorie == ToutesCategories()) return true;
  return EstDeLaCategorie({0, Champ(rang, kNom), Champ(rang, kCategories), {}}, filtre);
}

std::vector<NoeudListe> RechercheTotale::Chercher(const QString &saisie,
                                                  const FiltreListe &filtre) {
  const Demande demande = Lire(saisie);
  trouvees_ = Trouver(demande, filtre);
  filtre_ = filtre;
  // The other way of writing a number is no refinement of its words.
  mots_ = demande.chiffres.isEmpty() ? demande.mots : QList<QByteArray>();

  std::array<std::vector<std::size_t>, kDegresNom + 2 * kChamps.size()> degres;
  for (const Trouvee &trouvee : trouvees_) {
    std::size_t degre = Degre(trouvee, demande.mots);
    const bool epars = !demande.chiffres.isEmpty() && degre >= kDegresNom &&
                       PlaceDuNumero(Plie(trouvee.rang), demande.chiffres) < 0;
    if (epars) degre += kChamps.size();  // pieces of the number, each somewhere
    degres[degre].push_back(trouvee.rang);
  }

  std::vector<NoeudListe> noeuds;
  for (const auto &degre : degres)
    for (const std::size_t rang : degre) {
      if (noeuds.size() == kLimite) return noeuds;
      noeuds.push_back({NomListe(Champ(rang, kNom)), fiches_[rang].cle});
    }
  return noeuds;
}

bool RechercheTotale::Commence(const QString &debut, const FiltreListe &filtre) const {
  const QByteArray plie = Plier(debut, nullptr);
  for (std::size_t rang = 0; rang + 1 < fiches_.size(); ++rang)
    if (QByteArrayView(noms_).sliced(fiches_[rang].nom).startsWith(plie) &&
        CommencePar(NomListe(Champ(rang, kNom)), debut) && Passe(rang, filtre))
      return true;
  return false;
}

PrecisionListe RechercheTotale::Precision(Cle cle, const QString &saisie) const {
  const auto place = std::ranges::lower_bound(parCle_, std::pair(cle, std::size_t{0}));
  if (place == parCle_.end() || place->first != cle) return {};
  const std::size_t rang = place->second;
  const Demande demande = Lire(saisie);
  Trouvee trouvee{rang, PlaceDuNumero(Plie(rang), demande.chiffres)};
  const bool parChiffres = trouvee.place >= 0;
  if (!parChiffres) trouvee.place = PlaceDans(Plie(rang), demande.mots);
  if (trouvee.place < 0) return {};
  const std::size_t degre = Degre(trouvee, demande.mots);
  if (degre < kDegresNom) return {Champ(rang, kVille).simplified(), {}};

  const std::size_t champ = degre - (kDegresNom - 1);
  QString texte = Champ(rang, static_cast<qsizetype>(champ));
  if (champ == kCategories) texte = texte.split(u'*', Qt::SkipEmptyParts).join(u", "_s);
  PrecisionListe precision{Autour(texte, PremierMot(texte, demande.mots)), {}};
  precision.trouves =
      Passages(precision.texte, parChiffres ? QList{demande.chiffres} : demande.mots,
               parChiffres || kChamps[champ].numero);
  const QString libelle = kChamps[champ].libelle.toString() + u" : "_s;
  precision.texte.prepend(libelle);
  for (auto &passage : precision.trouves) passage.debut += libelle.size();
  return precision;
}
