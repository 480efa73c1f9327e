#include "exchange/ColonnesCsv.h"

#include "calendar/SansAccents.h"

#include <QCryptographicHash>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

using Champ = Destination::Champ;
using L = Correspondant;

struct ColonnePropre {
  std::size_t ordinal;
  const char16_t *entete;
};

/// As they stand in a table of ours.
constexpr std::array kColonnesPropres{
    ColonnePropre{Ordinal(&L::NomVelmira), u"Nom dans la liste"},
    ColonnePropre{Ordinal(&L::Ligne1), u"Nom sur l'enveloppe"},
    ColonnePropre{Ordinal(&L::Ligne2), u"Adresse 2"},
    ColonnePropre{Ordinal(&L::Ligne3), u"Adresse 3"},
    ColonnePropre{Ordinal(&L::Ligne4), u"Adresse 4"},
    ColonnePropre{Ordinal(&L::Ligne5), u"Adresse 5"},
    ColonnePropre{Ordinal(&L::CodePostal), u"Code postal"},
    ColonnePropre{Ordinal(&L::Ville), u"Ville"},
    ColonnePropre{Ordinal(&L::Pays), u"Pays"},
    ColonnePropre{Ordinal(&L::Categories), u"Catégories"},
    ColonnePropre{Ordinal(&L::Tel), u"Téléphone domicile"},
    ColonnePropre{Ordinal(&L::TelTravail), u"Téléphone travail"},
    ColonnePropre{Ordinal(&L::Portable), u"Portable"},
    ColonnePropre{Ordinal(&L::Fax), u"Fax"},
    ColonnePropre{Ordinal(&L::Mail), u"Adresse email"},
    ColonnePropre{Ordinal(&L::Web), u"Adresse web"},
    ColonnePropre{Ordinal(&L::DDN), u"Né(e) le"},
    ColonnePropre{Ordinal(&L::Commentaires), u"Notes"},
    ColonnePropre{Ordinal(&L::Photo), u"Photo"},
    ColonnePropre{Ordinal(&L::ListeRougeTel), u"Liste rouge domicile"},
    ColonnePropre{Ordinal(&L::ListeRougeTravail), u"Liste rouge travail"},
    ColonnePropre{Ordinal(&L::OptionAdresse), u"Place du code postal"},
    ColonnePropre{Ordinal(&L::AdresseImportee), u"Adresse importée"},
    ColonnePropre{Ordinal(&L::DataProt), u"Protection"},
    ColonnePropre{Ordinal(&L::AlerteActive), u"Alertes"}};
static_assert(kColonnesPropres.size() + 1 == kNombreColonnes<L>);  // all but the key

/// A head in small letters, without accents and signs.
QString Plier(const QString &entete) {
  QString plie = SansAccents(entete).toLower();
  for (QChar &c : plie)
    if (!c.isLetterOrNumber()) c = u' ';
  return plie.simplified();
}

template <typename Valeur>
struct Groupe {
  Valeur valeur;
  const char16_t *noms;  ///< between "|"
};

template <typename Valeur, std::size_t n>
QHash<QString, Valeur> Table(const Groupe<Valeur> (&groupes)[n]) {
  QHash<QString, Valeur> table;
  for (const auto &[valeur, noms] : groupes)
    for (const QString &nom : QString::fromUtf16(noms).split(u'|')) table.insert(nom, valeur);
  return table;
}

/// Whole heads.
const QHash<QString, Champ> &EntetesConnus() {
  static const auto kConnus = Table<Champ>({
      {Champ::Prefixe, u"name prefix|civilite|honorific prefix|prefix|prefixe|titre|title"},
      {Champ::Prenom, u"first name|given name|firstname|prenom|prenoms|prenom s"},
      {Champ::AutresPrenoms,
       u"middle name|additional name|deuxieme prenom|autre prenom|autres prenoms"},
      {Champ::Famille, u"last name|family name|surname|lastname|nom de famille|nom"},
      {Champ::Suffixe, u"name suffix|suffix|suffixe|honorific suffix"},
      {Champ::Complet,
       u"name|full name|display name|nom complet|nom a afficher|nom affiche|prenom et nom|prenom "
       u"nom"},
      {Champ::NomPrenom, u"nom et prenom|nom et prenoms|nom prenom|nom prenoms|nom prenom s"},
      {Champ::Redite, u"file as|classer sous|short name"},
      {Champ::Societe,
       u"company|societe|organization|organisation|entreprise|organization name|organisation name"
       "|organization 1 name"},
      {Champ::Service, u"department|service|organization department|organization 1 department"},
      {Champ::Naissance,
       u"birthday|birth date|birthdate|date of birth|date de naissance|naissance|ne e le|ne le"
       "|anniversaire|anniv|date d anniversaire|date naissance"},
      {Champ::JourNaissance, u"birth day|jour de naissance|jour"},
      {Champ::MoisNaissance, u"birth month|mois de naissance|mois"},
      {Champ::AnneeNaissance, u"birth year|annee de naissance"},
      {Champ::Note, u"notes|note|remarques|commentaires|comments|memo"},
      {Champ::Categories,
       u"categories|categorie|category|labels|group membership|groupes|groups|tags"},
      {Champ::Reglage,
       u"priority|priorite|private|prive|sensitivity|critere de diffusion|gender|sexe|anniversary"
       "|anniversaire de mariage ou fete"},
      {Champ::Region, u"pays etat"},
      {Champ::Notes, u"location|lieu|office location|emplacement|bureau"},
  });
  return kConnus;
}

/// Words within a head, the stronger ones first.
struct MotDeChamp {
  Champ champ;
  const char16_t *mots;
};
constexpr std::array kMots{
    MotDeChamp{Champ::Courriel, u"email|courriel|messagerie|mail|electronique"},
    MotDeChamp{Champ::Notes,
               u"assistant|car|voiture|callback|rappel|radio|telex|tty|tdd|isdn|rnis|pager"
               "|radiomessagerie|identification|id|yomi|phonetic|custom|im|spouse|manager"},
    MotDeChamp{Champ::Fax, u"fax|telecopie|telecopieur"},
    MotDeChamp{Champ::Mobile, u"mobile|portable|cell|cellular|gsm|iphone"},
    MotDeChamp{Champ::Numero, u"phone|telephone|tel|telephones|fixe"},
    MotDeChamp{Champ::Site, u"web|website|site|url|homepage"},
    MotDeChamp{Champ::BoitePostale, u"box|bp"},
    MotDeChamp{Champ::Complement, u"extended|complement"},
    MotDeChamp{Champ::Redite, u"formatted"},
    MotDeChamp{Champ::CodePostal, u"zip|zipcode|postal|post|postcode|cp"},
    MotDeChamp{Champ::Pays, u"country|pays"},
    MotDeChamp{Champ::Region, u"state|region|province|etat|dep|county|departement"},
    MotDeChamp{Champ::Ville, u"city|ville|town|localite|commune"},
    MotDeChamp{Champ::Rue, u"street|rue|adresse|address|voie"},
};

/// The place of each word in that list.
const QHash<QString, std::size_t> &RangsDesMots() {
  static const QHash<QString, std::size_t> kRangs = [] {
    QHash<QString, std::size_t> rangs;
    for (std::size_t rang = 0; rang < kMots.size(); ++rang)
      for (const QString &mot : QString::fromUtf16(kMots[rang].mots).split(u'|'))
        rangs.insert(mot, rang);
    return rangs;
  }();
  return kRangs;
}

bool EstAdresse(Champ champ) {
  return champ >= Champ::Complement && champ <= Champ::Pays;
}

/// Names the columns of one file.
class Reconnaissance {
 public:
  explicit Reconnaissance(const QStringList &entetes) {
    for (const QString &entete : entetes) plies_.append(Plier(entete));
    prenom_ = std::ranges::any_of(
        plies_, [](const QString &plie) { return EntetesConnus().value(plie) == Champ::Prenom; });
    parGroupes_ =
        std::ranges::any_of(plies_, [](const QString &plie) { return plie.endsWith(u" value"_s); });
  }

  Correspondances Toutes() {
    Correspondances toutes;
    for (const QString &plie : std::as_const(plies_)) {
      toutes.colonnes.append(Une(plie));
      vus_.insert(plie);
    }
    // The country that puts the month first heads its columns in English.
    toutes.moisDevant = plies_.contains(u"birthday"_s) && !parGroupes_;
    return toutes;
  }

 private:
  Destination Une(const QString &plie) {
    const bool fonction = plie == u"titre"_s && vus_.contains(plie);
    if (fonction) return {};
    if (plie == u"nom"_s && !prenom_) return {Champ::Complet};
    const auto connu = EntetesConnus().constFind(plie);
    Destination d = connu == EntetesConnus().cend() ? ParMots(plie) : Destination{*connu};
    // A part that says nothing belongs to the address in front of it.
    if (!EstAdresse(d.champ) || d.groupe > 0) return d;
    if (d.lieu == Lieu::Aucun) d.lieu = dernier_;
    dernier_ = d.lieu;
    return d;
  }

  Destination ParMots(const QString &plie) {
    const QStringList mots =
        QString(plie).replace(u"e mail"_s, u"email"_s).replace(u"b p "_s, u"bp "_s).split(u' ');
    const Usage usage = UsageDe(plie);
    Destination d{ChampDe(mots), usage.lieu, 0};
    if (const int groupe = GroupeDe(plie); groupe > 0) {
      d.groupe = groupe;
      d.lieu = Lieu::Aucun;
      if (mots.last() == u"label"_s || mots.last() == u"type"_s) d.champ = Champ::Libelle;
    } else if (d.champ == Champ::Courriel) {
      if (mots.contains(u"type"_s)) d.champ = Champ::Reglage;
      if (mots.contains(u"display"_s) || mots.contains(u"nom"_s)) d.champ = Champ::Redite;
    }
    // A firm's own telephone is where one works.
    if (d.champ == Champ::Numero && (mots.contains(u"company"_s) || mots.contains(u"societe"_s)))
      d.lieu = Lieu::Travail;
    if (d.champ < Champ::Complement) d.lieu = Lieu::Aucun;
    return d;
  }

  static Champ ChampDe(const QStringList &mots) {
    std::size_t rang = kMots.size();
    static const QRegularExpression kNumero(u"\\d+$"_s);
    for (QString mot : mots) rang = std::min(rang, RangsDesMots().value(mot.remove(kNumero), rang));
    return rang < kMots.size() ? kMots[rang].champ : Champ::Notes;
  }

  /// Of "Phone 2 - Value" and "Address 1 - City": one for each thing and its number.
  int GroupeDe(const QString &plie) {
    static const QRegularExpression kGroupe(u"^(.*? \\d+) \\S.*$"_s);
    if (!parGroupes_) return 0;
    const auto trouve = kGroupe.match(plie);
    if (!trouve.hasMatch()) return 0;
    const QString nom = trouve.captured(1);
    if (!groupes_.contains(nom)) groupes_.append(nom);
    return static_cast<int>(groupes_.indexOf(nom)) + 1;
  }

  QStringList plies_, groupes_;
  QSet<QString> vus_;
  Lieu dernier_ = Lieu::Aucun;  ///< of the address that the last columns are parts of
  bool prenom_ = false;
  bool parGroupes_ = false;  ///< values stand beside columns that label them
};

QString AvecLieu(const QString &quoi, Lieu lieu) {
  switch (lieu) {
    case Lieu::Domicile:
      return quoi + u" (domicile)"_s;
    case Lieu::Travail:
      return quoi + u" (travail)"_s;
    case Lieu::Autre:
      return quoi + u" (autre)"_s;
    case Lieu::Aucun:
      break;
  }
  return quoi;
}

/// In the order of `Champ`.
constexpr std::array kLibelles{u"Ne pas reprendre",
                               u"Notes, avec le titre de la colonne",
                               u"Notes, si rien ne le dit déjà",
                               u"Notes, si ce n'est pas un réglage",
                               u"Libellé de la colonne suivante",
                               u"Colonne de Velmira",
                               u"Civilité",
                               u"Prénom",
                               u"Autres prénoms",
                               u"Nom de famille",
                               u"Suffixe",
                               u"Nom complet (prénom, nom)",
                               u"Nom complet (nom, prénom)",
                               u"Société",
                               u"Service",
                               u"Complément d'adresse",
                               u"Rue",
                               u"Boîte postale",
                               u"Code postal",
                               u"Ville",
                               u"Région",
                               u"Pays",
                               u"Téléphone",
                               u"Portable",
                               u"Fax",
                               u"Adresse email",
                               u"Adresse web",
                               u"Date de naissance",
                               u"Jour de naissance",
                               u"Mois de naissance",
                               u"Année de naissance",
                               u"Notes",
                               u"Catégories"};

constexpr int kDernier = static_cast<int>(Champ::Categories);
static_assert(kLibelles.size() == kDernier + 1);

std::optional<Destination> LireDestination(const QString &texte) {
  const QStringList nombres = texte.split(u'.');
  if (nombres.size() != 3) return std::nullopt;
  const int champ = nombres[0].toInt(), lieu = nombres[1].toInt(), groupe = nombres[2].toInt();
  const bool sens = champ >= 0 && champ <= kDernier && lieu >= 0 &&
                    lieu <= static_cast<int>(Lieu::Autre) && groupe >= 0;
  if (!sens) return std::nullopt;
  return Destination{static_cast<Champ>(champ), static_cast<Lieu>(lieu), groupe};
}

}  // namespace

Correspondances Reconnaitre(const QStringList &entetes) {
  if (!entetes.contains(EntetePropre(Ordinal(&L::NomVelmira))))
    return Reconnaissance(entetes).Toutes();
  Correspondances propres;
  for (const QString &entete : entetes) {
    const auto colonne = std::ranges::find_if(
        kColonnesPropres,
        [&entete](const ColonnePropre &propre) { return QStringView(propre.entete) == entete; });
    propres.colonnes.append(
        colonne == kColonnesPropres.end()
            ? Destination{}
            : Destination{Champ::Colonne, Lieu::Aucun, static_cast<int>(colonne->ordinal)});
  }
  return propres;
}

bool DonnentUnNom(const Correspondances &correspondances) {
  return std::ranges::any_of(correspondances.colonnes, [](const Destination &destination) {
    static const QSet<Champ> kNoms{Champ::Prenom, Champ::Famille, Champ::Complet, Champ::NomPrenom,
                                   Champ::Societe};
    return kNoms.contains(destination.champ) ||
           (destination.champ == Champ::Colonne &&
            static_cast<std::size_t>(destination.groupe) == Ordinal(&Correspondant::NomVelmira));
  });
}

QList<Destination> DestinationsProposees() {
  QList<Destination> choix{{Champ::Ignorer}, {Champ::Notes}};
  for (int champ = static_cast<int>(Champ::Prefixe); champ <= kDernier; ++champ) {
    const auto c = static_cast<Champ>(champ);
    choix.append({c});
    if (EstAdresse(c) || c == Champ::Numero || c == Champ::Courriel)
      for (const Lieu lieu : {Lieu::Domicile, Lieu::Travail}) choix.append({c, lieu});
  }
  return choix;
}

QString LibelleDestination(const Destination &d) {
  if (d.champ == Champ::Colonne) return EntetePropre(static_cast<std::size_t>(d.groupe));
  return AvecLieu(QString::fromUtf16(kLibelles[static_cast<std::size_t>(d.champ)]), d.lieu);
}

QString CleEntetes(const QStringList &entetes) {
  constexpr int kChiffres = 16;
  const QByteArray octets = entetes.join(u'\n').toUtf8();
  return QString::fromLatin1(
      QCryptographicHash::hash(octets, QCryptographicHash::Sha1).toHex().first(kChiffres));
}

QString EcrireCorrespondances(const Correspondances &correspondances) {
  QString texte = correspondances.moisDevant ? u"m"_s : u"j"_s;
  for (const Destination &d : correspondances.colonnes)
    texte +=
        u",%1.%2.%3"_s.arg(static_cast<int>(d.champ)).arg(static_cast<int>(d.lieu)).arg(d.groupe);
  return texte;
}

std::optional<Correspondances> LireCorrespondances(const QString &texte, qsizetype colonnes) {
  const QStringList parties = texte.split(u',');
  if (parties.size() != colonnes + 1) return std::nullopt;
  Correspondances lues{{}, parties.first() == u"m"_s};
  for (const QString &partie : parties.mid(1)) {
    const auto destination = LireDestination(partie);
    if (!destination) return std::nullopt;
    lues.colonnes.append(*destination);
  }
  return lues;
}

QList<std::size_t> OrdreColonnes() {
  QList<std::size_t> ordinaux;
  for (const ColonnePropre &colonne : kColonnesPropres) ordinaux.append(colonne.ordinal);
  return ordinaux;
}

QString EntetePropre(std::size_t ordinal) {
  const auto colonne = std::ranges::find(kColonnesPropres, ordinal, &ColonnePropre::ordinal);
  return colonne == kColonnesPropres.end() ? QString() : QString::fromUtf16(colonne->entete);
}
