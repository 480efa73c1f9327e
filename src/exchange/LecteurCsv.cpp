#include "exchange/LecteurCsv.h"

#include "address/NomsProposes.h"
#include "address/Titres.h"
#include "platform/Erreurs.h"
#include "platform/FluxOctets.h"
#include "platform/PageDeCode.h"
#include "platform/Saisie.h"

#include <QDir>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Champ = Destination::Champ;
using L = Correspondant;

constexpr qsizetype kEnregistrementMax = 4 << 20;  ///< bytes
constexpr qsizetype kColonnesMax = 1000;
constexpr std::array kSeparateurs{';', ',', '\t'};
constexpr QByteArrayView kDirective("sep=");  ///< a line that tells a spreadsheet the separator

/// How often a separator stands in the first line, outside quotes.
qsizetype NombreDe(char separateur, QByteArrayView debut) {
  bool cite = false;
  qsizetype nombre = 0;
  for (const char c : debut) {
    if (c == '"') cite = !cite;
    if (!cite && (c == '\n' || c == '\r')) break;
    if (!cite && c == separateur) ++nombre;
  }
  return nombre;
}

char SeparateurDe(QByteArrayView debut) {
  return *std::ranges::max_element(
      kSeparateurs, {}, [debut](char separateur) { return NombreDe(separateur, debut); });
}

/// Reads record after record; lines without a value are none.
class Tableau {
 public:
  explicit Tableau(const QString &chemin) : flux_(chemin) {
    if (flux_.Debut().startsWith(kDirective)) {
      QByteArray ligne;
      flux_.Ligne(ligne, kColonnesMax);
      ++ligne_;
      if (ligne.size() > kDirective.size()) separateur_ = ligne[kDirective.size()];
    }
    if (separateur_ == 0) separateur_ = SeparateurDe(flux_.Debut());
  }

  /// The values of the next record, or why it cannot be read.
  bool Suivant(QStringList &valeurs, QString &refus) {
    do {
      if (flux_.Devant() < 0) return false;
      debut_ = ligne_ + 1;
      octets_.clear();
      fins_.clear();
      refus = Decouper();
    } while (refus.isEmpty() && octets_.trimmed().isEmpty());
    valeurs = Textes();
    return true;
  }

  qsizetype Ligne() const { return debut_; }
  qint64 Lu() const { return flux_.Lu(); }
  qint64 Taille() const { return flux_.Taille(); }

 private:
  /// Puts the values of a record one behind the other.
  QString Decouper() {
    bool cite = false, auDebut = true;
    for (;;) {
      const int lu = flux_.Suivant();
      const char c = static_cast<char>(lu);
      const bool trop = octets_.size() > kEnregistrementMax || fins_.size() >= kColonnesMax;
      if (lu < 0 || (c == '\n' && (!cite || trop)) || (c == '\r' && !cite)) {
        if (c == '\r' && flux_.Devant() == '\n') flux_.Suivant();
        if (lu >= 0) ++ligne_;
        fins_.append(octets_.size());
        if (octets_.size() > kEnregistrementMax) return u"La ligne dépasse 4 Mo."_s;
        if (fins_.size() > kColonnesMax) return u"La ligne compte plus de 1000 valeurs."_s;
        return cite ? u"Un guillemet n'est pas refermé."_s : QString();
      }
      if (c == '\n') ++ligne_;
      if (c == '"' && (cite || auDebut)) {
        if (cite && flux_.Devant() == '"')
          Garder(static_cast<char>(flux_.Suivant()), trop);
        else
          cite = !cite;
        auDebut = false;
      } else if (c == separateur_ && !cite) {
        if (!trop) fins_.append(octets_.size());
        auDebut = true;
      } else {
        Garder(c, trop);
        auDebut = false;
      }
    }
  }

  void Garder(char c, bool trop) {
    if (!trop) octets_ += c;
  }

  /// In one encoding for the whole record: half of it may tell nothing.
  QStringList Textes() const {
    const bool utf8 = DepuisUtf8(octets_).has_value();
    QStringList textes;
    qsizetype debut = 0;
    for (const qsizetype fin : fins_) {
      const QByteArray octets = octets_.sliced(debut, fin - debut);
      textes.append(utf8 ? DepuisUtf8OuPageDeCode(octets) : DepuisPageDeCode(octets));
      debut = fin;
    }
    return textes;
  }

  FluxOctets flux_;
  QByteArray octets_;
  QList<qsizetype> fins_;  ///< of the values
  char separateur_ = 0;
  qsizetype ligne_ = 0, debut_ = 0;
};

ErreurFichier Aucun(const QString &chemin, const QString &raison) {
  return ErreurFichier(u"Le fichier « %1 » n'est pas un tableau qui puisse être repris : %2"_s.arg(
      QDir::toNativeSeparators(chemin), raison));
}

/// What other programs put into a field that nobody has filled.
bool EstReglageVide(const QString &texte) {
  static const QSet<QString> kVides{u"normal"_s,       u"normale"_s, u"smtp"_s,   u"ex"_s,
                                    u"false"_s,        u"faux"_s,    u"0/0/00"_s, u"unspecified"_s,
                                    u"non spécifié"_s, u"00/00/00"_s};
  return kVides.contains(texte.toLower());
}

QDate DateDe(const QString &texte, bool moisDevant) {
  if (const QDate date = QDate::fromString(texte.left(10), Qt::ISODate); date.isValid())
    return date;
  static const QRegularExpression kDate(u"^(\\d{1,2})([/.-])(\\d{1,2})(\\2.*)$"_s);
  const auto trouve = kDate.match(texte);
  if (!moisDevant || !trouve.hasMatch()) return DateSaisie(texte);
  return DateSaisie(trouve.captured(3) + trouve.captured(2) + trouve.captured(1) +
                    trouve.captured(4));
}

/// The label of notes for a head.
QString LibelleDe(const QString &entete) {
  static const QHash<QString, QString> kFrancais{{u"Nickname"_s, u"Surnom"_s},
                                                 {u"Titre"_s, u"Fonction"_s},
                                                 {u"Job Title"_s, u"Fonction"_s},
                                                 {u"Organization Title"_s, u"Fonction"_s},
                                                 {u"Organization 1 - Title"_s, u"Fonction"_s},
                                                 {u"Spouse"_s, u"Conjoint"_s},
                                                 {u"Children"_s, u"Enfants"_s},
                                                 {u"Hobby"_s, u"Loisirs"_s},
                                                 {u"Anniversary"_s, u"Anniversaire de mariage"_s},
                                                 {u"Manager's Name"_s, u"Responsable"_s}};
  const QString seul = entete.simplified();
  return kFrancais.value(seul, seul);
}

// How a table of ours holds what a spreadsheet would change.

QString ProtegerFormule(const QString &texte) {
  static const QRegularExpression kFormule(u"^'*([=@\\t\\r]|[+-](?![\\d .()/-]*$))"_s);
  return kFormule.match(texte).hasMatch() ? u'\'' + texte : texte;
}

/// The inverse.
QString SansProtection(const QString &texte) {
  if (!texte.startsWith(u'\'')) return texte;
  const QString nu = texte.sliced(1);
  return ProtegerFormule(nu) == texte ? nu : texte;
}

QString CategoriesLues(const QString &texte) {
  if (texte.startsWith(u'*')) return texte.sliced(1);
  const QStringList noms = texte.split(u", "_s, Qt::SkipEmptyParts);
  return noms.isEmpty() ? u""_s : u'*' + noms.join(u'*') + u'*';
}

/// Names between commas; a string of another form as it is, behind a star.
QString CategoriesEcrites(const QString &categories) {
  const QString noms = NomsCategories(categories).join(u", "_s);
  return CategoriesLues(noms) == categories ? noms : u'*' + categories;
}

/// Makes a contact of the values of a record.
class Traduction {
 public:
  Traduction(const QStringList &entetes, const Correspondances &correspondances,
             const QStringList &valeurs, const QStringList &titres)
      : entetes_(entetes), correspondances_(correspondances), valeurs_(valeurs), titres_(titres) {}

  Contact Traduire() {
    for (qsizetype i = 0; i < valeurs_.size(); ++i)
      if (const Destination d = De(i); d.champ == Champ::Libelle && !valeurs_[i].isEmpty())
        libelles_.insert(d.groupe, valeurs_[i]);
    for (qsizetype i = 0; i < valeurs_.size(); ++i) Placer(De(i), i);
    Naitre();
    for (const auto &[cle, adresse] : std::as_const(adresses_)) c_.adresses.append(adresse);
    NoterLibellesSeuls();
    return std::move(c_);
  }

 private:
  Destination De(qsizetype colonne) const { return correspondances_.colonnes.value(colonne); }

  void Placer(const Destination &d, qsizetype colonne) {
    if (d.champ == Champ::Colonne) return PlacerColonne(d, colonne);
    const QString valeur = valeurs_[colonne].trimmed();
    if (valeur.isEmpty() || d.champ == Champ::Ignorer || d.champ == Champ::Libelle) return;
    if (d.champ >= Champ::Complement && d.champ <= Champ::Pays) return PlacerAdresse(d, valeur);
    if (d.champ >= Champ::Numero && d.champ <= Champ::Site) return PlacerValeurs(d, valeur);
    if (QString *nom = Nom(d.champ)) return PlacerNom(*nom, valeur, colonne);
    switch (d.champ) {
      case Champ::NomPrenom:
        PlacerNomPrenom(valeur, colonne);
        break;
      case Champ::Service:
        c_.services.append(valeur);
        break;
      case Champ::Redite:
        c_.redites.append({Entete(colonne), valeur});
        break;
      case Champ::Reglage:
        if (!EstReglageVide(valeur)) Noter(d, colonne, valeur);
        break;
      case Champ::Naissance:
        PlacerNaissance(d, colonne, valeur);
        break;
      case Champ::JourNaissance:
      case Champ::MoisNaissance:
      case Champ::AnneeNaissance:
        naissance_.append({d.champ, valeur});
        break;
      case Champ::Note:
        c_.note += (c_.note.isEmpty() ? u""_s : u"\n"_s) + valeur;
        break;
      case Champ::Categories:
        Classer(valeur);
        break;
      default:
        Noter(d, colonne, valeur);
    }
  }

  QString *Nom(Champ champ) {
    switch (champ) {
      case Champ::Prefixe:
        return &c_.prefixe;
      case Champ::Prenom:
        return &c_.prenom;
      case Champ::AutresPrenoms:
        return &c_.autresPrenoms;
      case Champ::Famille:
        return &c_.famille;
      case Champ::Suffixe:
        return &c_.suffixe;
      case Champ::Complet:
        return &c_.complet;
      case Champ::Societe:
        return &c_.societe;
      default:
        return nullptr;
    }
  }

  void PlacerNom(QString &nom, const QString &valeur, qsizetype colonne) {
    if (nom.isEmpty())
      nom = valeur;
    else if (nom != valeur)
      Noter({}, colonne, valeur);
  }

  void PlacerNomPrenom(const QString &valeur, qsizetype colonne) {
    const QString entier = valeur.simplified().remove(u'"');
    QString liste = RemplacerTitre(entier, titres_, u""_s);
    if (liste.isEmpty() || entier.startsWith(u"Société "_s)) liste = entier;
    if (c_.complet.isEmpty() && liste.size() <= kPlusLong)
      c_.colonnes.insert(Ordinal(&L::NomVelmira), liste);
    PlacerNom(c_.complet, entier.chopped(liste.size()) + NomPourEnveloppe(liste), colonne);
  }

  void PlacerColonne(const Destination &d, qsizetype colonne) {
    const auto ordinal = static_cast<std::size_t>(d.groupe);
    const QString texte = LireCellule(valeurs_[colonne], ordinal);
    Correspondant essai;
    if (LireColonne(essai, ordinal, texte))
      c_.colonnes.insert(ordinal, texte);
    else
      Noter(d, colonne, texte);
  }

  /// The parts of one address stand in columns of one group and one place.
  void PlacerAdresse(const Destination &d, const QString &valeur) {
    const std::pair cle(d.groupe, d.lieu);
    auto adresse = std::ranges::find(adresses_, cle, &CleEtAdresse::first);
    if (adresse == adresses_.end()) {
      adresses_.append({cle, {}});
      adresse = adresses_.end() - 1;
      adresse->second.usage = UsageDuGroupe(d);
    }
    QString &partie = Partie(adresse->second, d.champ);
    if (!partie.isEmpty()) partie += u'\n';
    partie += valeur;
  }

  static QString &Partie(AdresseContact &adresse, Champ champ) {
    switch (champ) {
      case Champ::Complement:
        return adresse.complement;
      case Champ::BoitePostale:
        return adresse.boitePostale;
      case Champ::CodePostal:
        return adresse.code;
      case Champ::Ville:
        return adresse.ville;
      case Champ::Region:
        return adresse.region;
      case Champ::Pays:
        return adresse.pays;
      default:
        return adresse.rue;
    }
  }

  /// Some programs put several into one field.
  static QStringList Plusieurs(const QString &valeur) { return valeur.split(u" ::: "_s); }

  void PlacerValeurs(const Destination &d, const QString &valeur) {
    Usage usage = UsageDuGroupe(d);
    if (d.champ == Champ::Mobile) usage.genre = Usage::Genre::Mobile;
    if (d.champ == Champ::Fax) usage.genre = Usage::Genre::Fax;
    auto &valeurs = d.champ == Champ::Courriel ? c_.courriels
                    : d.champ == Champ::Site   ? c_.sites
                                               : c_.numeros;
    for (const QString &une : Plusieurs(valeur)) valeurs.append({une, usage});
  }

  /// A star marks the preferred one.
  Usage UsageDuGroupe(const Destination &d) {
    if (d.groupe == 0 || !libelles_.contains(d.groupe)) return {d.lieu, {}, {}};
    QString libelle = libelles_.value(d.groupe);
    dits_.insert(d.groupe);
    const bool prefere = libelle.startsWith(u'*');
    Usage usage = UsageDe(libelle.remove(0, prefere ? 1 : 0).trimmed());
    if (prefere) usage.rang = 1;
    return usage;
  }

  void PlacerNaissance(const Destination &d, qsizetype colonne, const QString &valeur) {
    const QDate date = DateDe(valeur, correspondances_.moisDevant);
    if (date.isValid() && !c_.naissance.isValid())
      c_.naissance = date;
    else if (const QString jour = JourSansAnnee(valeur); jour != valeur)
      NoterJour(jour);
    else if (!EstReglageVide(valeur))
      Noter(d, colonne, valeur);
  }

  void NoterJour(const QString &jour) { c_.autres.append({u"Né(e) le"_s, jour}); }

  /// Day, month and year of columns of their own.
  void Naitre() {
    const auto nombre = [this](Champ champ) {
      const auto partie = std::ranges::find(naissance_, champ, &std::pair<Champ, QString>::first);
      return partie == naissance_.end() ? 0 : partie->second.toInt();
    };
    const int annee = nombre(Champ::AnneeNaissance), mois = nombre(Champ::MoisNaissance),
              jour = nombre(Champ::JourNaissance);
    const QDate date(annee, mois, jour);
    if (date.isValid() && !c_.naissance.isValid()) {
      c_.naissance = date;
      return;
    }
    const QString sansAnnee =
        u"--%1-%2"_s.arg(mois, 2, 10, QChar(u'0')).arg(jour, 2, 10, QChar(u'0'));
    if (const QString ecrit = JourSansAnnee(sansAnnee);
        naissance_.size() == 2 && ecrit != sansAnnee)
      return NoterJour(ecrit);
    for (const auto &[champ, valeur] : std::as_const(naissance_))
      c_.autres.append({LibelleDestination({champ}), valeur});
  }

  void Classer(const QString &valeur) {
    static const QRegularExpression kEntre(u" ::: |[;,\\n]"_s);
    for (QString nom : valeur.split(kEntre, Qt::SkipEmptyParts)) {
      nom = nom.trimmed();
      // What the other program's own groups are marked by.
      if (nom.startsWith(u"* "_s)) nom.remove(0, 2);
      if (nom == u"starred"_s) nom = u"Favoris"_s;
      if (nom != u"myContacts"_s) c_.categories.append(nom);
    }
  }

  QString Entete(qsizetype colonne) const {
    const QString entete = LibelleDe(entetes_.value(colonne));
    return entete.isEmpty() ? u"Colonne %1"_s.arg(colonne + 1) : entete;
  }

  void Noter(const Destination &d, qsizetype colonne, const QString &valeur) {
    const QString libelle =
        d.groupe > 0 && d.champ == Champ::Notes ? libelles_.value(d.groupe) : QString();
    if (!libelle.isEmpty()) dits_.insert(d.groupe);
    c_.autres.append({libelle.isEmpty() ? Entete(colonne) : libelle, valeur});
  }

  /// A label of the user's own that labels nothing.
  void NoterLibellesSeuls() {
    for (qsizetype i = 0; i < valeurs_.size(); ++i)
      if (const Destination d = De(i); d.champ == Champ::Libelle && !dits_.contains(d.groupe) &&
                                       !UsageDe(valeurs_[i]).libelle.isEmpty())
        c_.autres.append({Entete(i), valeurs_[i]});
  }

  using CleEtAdresse = std::pair<std::pair<int, Lieu>, AdresseContact>;

  const QStringList &entetes_;
  const Correspondances &correspondances_;
  const QStringList &valeurs_;
  const QStringList &titres_;
  Contact c_;
  QHash<int, QString> libelles_;  ///< of the groups
  QSet<int> dits_;                ///< groups whose label has been used
  QList<CleEtAdresse> adresses_;
  QList<std::pair<Champ, QString>> naissance_;
};

class LecteurCsv : public SourcePersonnes {
 public:
  LecteurCsv(const QString &chemin, const FormeCsv &forme, Correspondances &&correspondances,
             UsagesReprise &&usages)
      : chemin_(chemin),
        entetes_(forme.entetes),
        correspondances_(std::move(correspondances)),
        usages_(std::move(usages)),
        tableau_(chemin) {
    QStringList entetes;
    QString refus;
    if (forme.avecEntetes) tableau_.Suivant(entetes, refus);
  }

  std::optional<PersonneImportee> Suivante() override {
    QStringList valeurs;
    QString refus;
    if (!tableau_.Suivant(valeurs, refus)) return std::nullopt;
    PersonneImportee personne = PersonneDe(
        Traduction(entetes_, correspondances_, valeurs, usages_.titres).Traduire(), usages_);
    personne.origine = {chemin_, ++rang_, tableau_.Ligne()};
    if (!refus.isEmpty()) personne.refus = refus;
    return personne;
  }

  qsizetype Lu() const override { return tableau_.Lu(); }
  qsizetype Taille() const override { return tableau_.Taille(); }

 private:
  const QString chemin_;
  const QStringList entetes_;
  const Correspondances correspondances_;
  const UsagesReprise usages_;
  Tableau tableau_;
  qsizetype rang_ = 0;
};

/// A first line with a number or an address of mail in it is a person.
bool EstUnePersonne(const QStringList &valeurs) {
  return std::ranges::any_of(valeurs, [](const QString &valeur) {
    return valeur.contains(u'@') || (!valeur.isEmpty() && valeur.front().isDigit());
  });
}

bool SontInconnus(const QStringList &entetes) {
  return std::ranges::all_of(Reconnaitre(entetes).colonnes,
                             [](const Destination &d) { return d.champ == Champ::Notes; });
}

/// Whether a column, of which no head tells, holds mails only.
bool SontDesCourriels(const FormeCsv &forme, qsizetype colonne) {
  static const QRegularExpression kCourriel(u"^[^\\s@]+@[^\\s@]+$"_s);
  bool unSeul = false;
  for (const QStringList &valeurs : forme.echantillon) {
    const QString valeur = valeurs.value(colonne).trimmed();
    if (!valeur.isEmpty() && !kCourriel.match(valeur).hasMatch()) return false;
    unSeul = unSeul || !valeur.isEmpty();
  }
  return unSeul;
}

/// Of columns without heads the first text is a name.
void NommerSansEntetes(const QStringList &valeurs, QList<Destination> &colonnes) {
  for (qsizetype i = 0; i < valeurs.size(); ++i) {
    const bool chiffre = std::ranges::any_of(valeurs[i], [](QChar c) { return c.isDigit(); });
    if (chiffre || valeurs[i].isEmpty() || colonnes[i].champ == Champ::Courriel) continue;
    colonnes[i] = {Champ::Complet};
    return;
  }
}

}  // namespace

bool EstUnTableau(QByteArrayView debut) {
  const bool balise = debut.trimmed().startsWith('<');  // a page of the web
  return debut.startsWith(kDirective) ||
         (!balise && !debut.contains('\0') && NombreDe(SeparateurDe(debut), debut) > 0);
}

FormeCsv AnalyserCsv(const QString &chemin) {
  constexpr qsizetype kEchantillon = 200;
  if (!EstUnTableau(FluxOctets(chemin).Debut()))
    throw Aucun(chemin,
                u"sa première ligne n'a pas deux colonnes, séparées par « ; », « , » ou "
                "une tabulation."_s);
  Tableau tableau(chemin);
  FormeCsv forme;
  QString refus;
  tableau.Suivant(forme.entetes, refus);
  if (!refus.isEmpty()) throw Aucun(chemin, u"sa première ligne est illisible. "_s + refus);
  if (EstUnePersonne(forme.entetes) && SontInconnus(forme.entetes)) {
    forme.avecEntetes = false;
    forme.echantillon.append(forme.entetes);
    for (qsizetype i = 0; i < forme.entetes.size(); ++i)
      forme.entetes[i] = u"Colonne %1"_s.arg(i + 1);
  }
  QStringList valeurs;
  while (forme.echantillon.size() < kEchantillon && tableau.Suivant(valeurs, refus))
    if (refus.isEmpty()) forme.echantillon.append(valeurs);
  return forme;
}

Correspondances Proposer(const FormeCsv &forme) {
  static const QRegularExpression kDate(u"^(\\d{1,2})[/.-](\\d{1,2})[/.-]\\d+$"_s);
  constexpr int kMois = 12;
  Correspondances proposees = Reconnaitre(forme.entetes);
  for (qsizetype i = 0; i < proposees.colonnes.size(); ++i)
    if (proposees.colonnes[i] == Destination() && SontDesCourriels(forme, i))
      proposees.colonnes[i] = {Champ::Courriel};
  if (!forme.avecEntetes) NommerSansEntetes(forme.echantillon.first(), proposees.colonnes);
  for (qsizetype i = 0; i < proposees.colonnes.size(); ++i) {
    if (proposees.colonnes[i].champ != Champ::Naissance) continue;
    for (const QStringList &valeurs : forme.echantillon) {
      const auto trouve = kDate.match(valeurs.value(i).trimmed());
      if (trouve.captured(1).toInt() > kMois) proposees.moisDevant = false;
      if (trouve.captured(2).toInt() > kMois) proposees.moisDevant = true;
    }
  }
  return proposees;
}

std::unique_ptr<SourcePersonnes> OuvrirCsv(const QString &chemin, const FormeCsv &forme,
                                           Correspondances correspondances, UsagesReprise usages) {
  return std::make_unique<LecteurCsv>(chemin, forme, std::move(correspondances), std::move(usages));
}

QString EcrireCellule(const Correspondant &fiche, std::size_t ordinal) {
  const QString texte = EcrireColonne(fiche, ordinal);
  return ProtegerFormule(ordinal == Ordinal(&L::Categories) ? CategoriesEcrites(texte) : texte);
}

QString LireCellule(const QString &cellule, std::size_t ordinal) {
  const QString texte = SansProtection(cellule);
  return ordinal == Ordinal(&L::Categories) ? CategoriesLues(texte) : texte;
}
