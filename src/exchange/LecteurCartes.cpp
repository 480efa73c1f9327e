#include "exchange/LecteurCartes.h"

#include "directory/FichierPhoto.h"
#include "exchange/Contact.h"
#include "exchange/DecoupageCartes.h"
#include "exchange/LibellesCartes.h"
#include "platform/PageDeCode.h"

#include <QHash>
#include <QStringDecoder>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView kPropre("X-VELMIRA-");

/// A date with its year, "1980-03-22" or "19800322", a time behind it or none.
QDate Date(const QString &texte) {
  QString jour = texte.section(u'T', 0, 0).trimmed();
  if (jour.size() == 10 && jour[4] == u'-' && jour[7] == u'-') jour.remove(7, 1).remove(4, 1);
  bool nombre = false;
  const int n = jour.size() == 8 ? jour.toInt(&nombre) : 0;
  return nombre ? QDate(n / 10000, n / 100 % 100, n % 100) : QDate();
}

/// Makes a contact of the lines of a card.
class Traduction {
 public:
  explicit Traduction(const QList<Propriete> &proprietes) : proprietes_(proprietes) {
    for (const Propriete &p : proprietes)
      if (p.nom == "VERSION" && !p.imbriquee) ancienne_ = p.valeur.trimmed() == "2.1";
    for (const Propriete &p : proprietes)
      if (p.nom == "X-ABLABEL" && !p.imbriquee) libelles_.insert(p.groupe, Texte(p).trimmed());
  }

  Contact Traduire() {
    for (const Propriete &p : proprietes_) {
      if (p.imbriquee)
        NoterImbriquee(p);
      else if (!EstTechnique(p) && !Propre(p))
        Placer(p);
    }
    for (const Propriete &p : proprietes_)
      if (p.nom == "X-ABLABEL" && libelles_.contains(p.groupe) && !dits_.contains(p.groupe))
        c_.autres.append({LibelleDePropriete(p.nom), libelles_.take(p.groupe)});
    return std::move(c_);
  }

 private:
  using Regle = void (Traduction::*)(const Propriete &);

  void Placer(const Propriete &p) {
    static const QHash<QByteArray, Regle> kRegles{{"N", &Traduction::Nom},
                                                  {"FN", &Traduction::NomComplet},
                                                  {"ORG", &Traduction::Societe},
                                                  {"ADR", &Traduction::Adresse},
                                                  {"LABEL", &Traduction::Redite},
                                                  {"X-ABADR", &Traduction::Redite},
                                                  {"SORT-STRING", &Traduction::Redite},
                                                  {"X-EVOLUTION-FILE-AS", &Traduction::Redite},
                                                  {"TEL", &Traduction::Telephone},
                                                  {"EMAIL", &Traduction::Courriel},
                                                  {"URL", &Traduction::Site},
                                                  {"BDAY", &Traduction::Naissance},
                                                  {"NOTE", &Traduction::Note},
                                                  {"CATEGORIES", &Traduction::Categories},
                                                  {"PHOTO", &Traduction::Photo},
                                                  {"AGENT", &Traduction::Agent},
                                                  {"KIND", &Traduction::Sorte},
                                                  {"X-ADDRESSBOOKSERVER-KIND", &Traduction::Sorte},
                                                  {"X-ABSHOWAS", &Traduction::MontreComme},
                                                  {"X-ANDROID-CUSTOM", &Traduction::Androide},
                                                  {"X-ABLABEL", &Traduction::Rien}};
    (this->*kRegles.value(p.nom, &Traduction::Autre))(p);
  }

  // Texts.

  static QString Decoder(const Propriete &p, const QByteArray &octets) {
    const QByteArray jeu = p.Parametre("CHARSET");
    if (!jeu.isEmpty() && jeu.compare("UTF-8", Qt::CaseInsensitive) != 0)
      if (QStringDecoder decodeur(jeu.constData()); decodeur.isValid())
        return decodeur.decode(octets);
    return DepuisUtf8OuPageDeCode(octets);
  }

  /// Version 2.1 hides separators only; a backslash before anything else is one in all versions.
  QString SansBarres(const QString &texte, bool propre = false) const {
    if (!texte.contains(u'\\')) return texte;
    QString clair;
    for (qsizetype i = 0; i < texte.size(); ++i) {
      const QChar suite = texte[i] == u'\\' && i + 1 < texte.size() ? texte[i + 1] : QChar();
      const bool separateur = suite == u',' || suite == u';' || suite == u':';
      const bool saut = !ancienne_ && (suite == u'n' || suite == u'N');
      if (saut)
        clair += u'\n';
      else if (propre && suite == u'r')
        clair += u'\r';
      else if (separateur || (!ancienne_ && suite == u'\\'))
        clair += suite;
      else {
        clair += texte[i];
        continue;
      }
      ++i;
    }
    return clair;
  }

  static QString Brut(const Propriete &p, const QByteArray &valeur) {
    if (p.EstEnBase64()) return Decoder(p, QByteArray::fromBase64(valeur));
    return Decoder(p, p.EstImprimable() ? Imprimes(valeur) : valeur);
  }

  QString Texte(const Propriete &p, const QByteArray &valeur) const {
    QString texte = SansBarres(Brut(p, valeur));
    if (texte.contains(u'\r')) texte.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    return texte;
  }
  QString Texte(const Propriete &p) const { return Texte(p, p.valeur); }

  /// The parts of a value. What separates them stands in it before the bytes are decoded.
  QStringList Parties(const Propriete &p, char separateur) const {
    QStringList parties;
    qsizetype debut = 0;
    for (qsizetype i = 0; i <= p.valeur.size(); ++i) {
      if (i + 1 < p.valeur.size() && p.valeur[i] == '\\') {
        ++i;
        continue;
      }
      if (i < p.valeur.size() && p.valeur[i] != separateur) continue;
      parties.append(Texte(p, p.valeur.sliced(debut, i - debut)));
      debut = i + 1;
    }
    return parties;
  }

  QStringList Types(const Propriete &p) const {
    QStringList types;
    for (const auto &[nom, valeur] : p.parametres)
      if (nom == "TYPE")
        for (const QString &type : QString::fromUtf8(valeur).split(u',', Qt::SkipEmptyParts))
          types.append(type.isUpper() ? type.trimmed().toLower() : type.trimmed());
    return types;
  }

  Usage UsageDe(const Propriete &p) {
    const QStringList types = Types(p);
    Usage usage;
    for (QString type : types) {
      // The mark of a type of the program's own, or of the user's.
      if (type.startsWith(u"x-"_s, Qt::CaseInsensitive)) type.remove(0, 2);
      Fondre(usage, ::UsageDe(type));
    }
    bool nombre = false;
    const int rang = p.Parametre("PREF").toInt(&nombre);
    if (nombre) usage.rang = rang;
    if (types.contains(u"pref"_s, Qt::CaseInsensitive)) usage.rang = 1;
    Fondre(usage, ::UsageDe(LibellePropre(p)));
    return usage;
  }

  static void Fondre(Usage &usage, const Usage &autre) {
    if (autre.lieu != Lieu::Aucun) usage.lieu = autre.lieu;
    if (autre.genre != Usage::Genre::Ordinaire) usage.genre = autre.genre;
    if (!autre.libelle.isEmpty()) usage.libelle = autre.libelle;
  }

  /// The label of the property's group, which is said then.
  QString LibellePropre(const Propriete &p) {
    const QString libelle = p.groupe.isEmpty() ? QString() : libelles_.value(p.groupe);
    if (!libelle.isEmpty()) dits_.append(p.groupe);
    return LibelleDeGroupe(libelle);
  }

  // Each property in its place.

  void Nom(const Propriete &p) {
    const QStringList parties = Parties(p, ';');
    if (nomme_) return Noter(p, parties.join(u' ').simplified());
    nomme_ = true;
    c_.famille = parties.value(0);
    c_.prenom = parties.value(1);
    c_.autresPrenoms = parties.value(2);
    c_.prefixe = parties.value(3);
    c_.suffixe = parties.value(4);
    for (const QString &partie : parties.mid(5)) Noter(p, partie);
  }

  void NomComplet(const Propriete &p) {
    if (c_.complet.isEmpty())
      c_.complet = Texte(p);
    else
      Redite(p);
  }

  void Societe(const Propriete &p) {
    QStringList parties = Parties(p, ';');
    if (!c_.societe.isEmpty()) return Noter(p, parties.join(u", "_s));
    c_.societe = parties.takeFirst();
    for (const QString &partie : std::as_const(parties))
      if (!partie.trimmed().isEmpty()) c_.services.append(partie.trimmed());
  }

  void Adresse(const Propriete &p) {
    const QStringList parties = Parties(p, ';');
    c_.adresses.append({parties.value(1), parties.value(2), parties.value(0), parties.value(3),
                        parties.value(4), parties.value(5), parties.value(6), UsageDe(p)});
    for (const QString &partie : parties.mid(7)) Noter(p, partie);
    if (const QByteArray etiquette = p.Parametre("LABEL"); !etiquette.isEmpty())
      c_.redites.append({LibelleDePropriete(p.nom), SansBarres(Decoder(p, etiquette))});
  }

  void Redite(const Propriete &p) { c_.redites.append({LibelleDePropriete(p.nom), Texte(p)}); }

  void Telephone(const Propriete &p) {
    QString numero = Texte(p).trimmed();
    if (numero.startsWith(u"tel:"_s, Qt::CaseInsensitive)) numero.remove(0, 4);
    c_.numeros.append({numero, UsageDe(p)});
  }

  void Courriel(const Propriete &p) {
    QString adresse = Texte(p).trimmed();
    if (adresse.startsWith(u"mailto:"_s, Qt::CaseInsensitive)) adresse.remove(0, 7);
    c_.courriels.append({adresse, UsageDe(p)});
  }

  void Site(const Propriete &p) { c_.sites.append({Texte(p), UsageDe(p)}); }

  void Naissance(const Propriete &p) {
    const QString texte = Texte(p).trimmed();
    const QDate date = Date(texte);
    if (!p.Parametre("X-APPLE-OMIT-YEAR").isEmpty() && date.isValid())
      Noter(p, date.toString(u"dd/MM"_s));
    else if (date.isValid() && !c_.naissance.isValid())
      c_.naissance = date;
    else
      Noter(p, JourSansAnnee(texte));
  }

  void Note(const Propriete &p) {
    if (c_.note.isEmpty())
      c_.note = Texte(p);
    else
      Noter(p, Texte(p));
  }

  void Categories(const Propriete &p) { c_.categories += Parties(p, ','); }

  void Sorte(const Propriete &p) {
    c_.estSociete = EstLigne(p.valeur, "org");
    if (!c_.estSociete) Noter(p, Texte(p));
  }

  void MontreComme(const Propriete &p) {
    if (EstLigne(p.valeur, "company"))
      c_.estSociete = true;
    else
      Noter(p, Texte(p));
  }

  void Rien(const Propriete &) {}

  /// A thing, its values and the numbers of their kinds:
  /// "vnd.android.cursor.item/nickname;Jo;1;;".
  void Androide(const Propriete &p) {
    static const QHash<QString, QString> kChoses{{u"nickname"_s, u"Surnom"_s},
                                                 {u"contact_event"_s, u"Date"_s},
                                                 {u"relation"_s, u"Relation"_s}};
    const QStringList parties = Parties(p, ';');
    const QString chose = parties.first().section(u'/', -1);
    QStringList valeurs;
    for (const QString &partie : parties.mid(1))
      if (partie.size() > 1) valeurs.append(partie);
    c_.autres.append({kChoses.value(chose, chose), valeurs.join(u", "_s)});
  }

  void Photo(const Propriete &p) {
    QByteArray octets;
    const qsizetype virgule = p.valeur.indexOf(',');
    if (p.EstEnBase64())
      octets = QByteArray::fromBase64(p.valeur);
    else if (p.valeur.trimmed().startsWith("data:") &&
             p.valeur.first(std::max(virgule, qsizetype{0})).contains("base64"))
      octets = QByteArray::fromBase64(p.valeur.sliced(virgule + 1));
    else
      return Noter(p, Texte(p));
    const QString genre = GenreImage(octets);
    if (octets.isEmpty()) return;
    if (genre.isEmpty() || c_.photo)
      Noter(p, u"%1, %2 octets, non reprise"_s.arg(
                   genre.isEmpty() ? u"image d'une forme inconnue"_s : u"autre image"_s,
                   QString::number(octets.size())));
    else
      c_.photo = PhotoImportee{octets, genre};
  }

  /// Whatever else; of bytes that are no text only that they are there.
  void Autre(const Propriete &p) {
    if (p.EstEnBase64() && !p.valeur.trimmed().isEmpty())
      return Noter(p, u"%1 octets, non repris"_s.arg(QByteArray::fromBase64(p.valeur).size()));
    const QString texte = Texte(p);
    Noter(p, EstDuTexte(texte) ? texte : u"%1 octets, non repris"_s.arg(texte.size()));
  }

  /// Bytes that were written as a text have control characters, and hardly a letter.
  static bool EstDuTexte(const QString &texte) {
    const auto commande = [](QChar c) {
      return c.category() == QChar::Other_Control && c != u'\n' && c != u'\t';
    };
    const auto parlant = [](QChar c) { return c.isLetterOrNumber() || c == u' '; };
    return std::ranges::none_of(texte, commande) ||
           2 * std::ranges::count_if(texte, parlant) >= texte.size();
  }

  /// Labelled by its group's label, or by its name and use.
  void Noter(const Propriete &p, const QString &texte) {
    QString libelle = LibellePropre(p);
    if (libelle.isEmpty()) {
      QStringList types;
      for (const QString &type : Types(p)) {
        const Usage usage = ::UsageDe(type);
        if (usage.lieu == Lieu::Domicile) types.append(u"domicile"_s);
        if (usage.lieu == Lieu::Travail) types.append(u"travail"_s);
        if (!usage.libelle.isEmpty()) types.append(usage.libelle);
      }
      libelle = LibelleDePropriete(p.nom);
      if (!types.isEmpty()) libelle += u" (%1)"_s.arg(types.join(u", "_s));
    }
    c_.autres.append({libelle, texte});
  }

  void Agent(const Propriete &p) {
    const QString texte = Texte(p);
    if (!texte.startsWith(kDebutAgent, Qt::CaseInsensitive)) return Noter(p, texte);
    for (const QString &ligne : texte.split(u'\n')) NoterImbriquee(Decouper(ligne.toUtf8()));
  }

  void NoterImbriquee(const Propriete &p) {
    static const QList<QByteArray> kBornes{"BEGIN", "END"};
    if (EstTechnique(p) || kBornes.contains(p.nom)) return;
    QStringList parties = Parties(p, ';');
    parties.removeAll(QString());
    const bool octets = p.EstEnBase64();
    c_.autres.append(
        {u"Agent, %1"_s.arg(LibelleDePropriete(p.nom)),
         octets ? u"%1 octets, non repris"_s.arg(p.valeur.size()) : parties.join(u", "_s)});
  }

  /// A column that a program of ours has written whole.
  bool Propre(const Propriete &p) {
    if (!p.nom.startsWith(kPropre)) return false;
    static const QHash<QByteArray, std::size_t> kOrdinaux = [] {
      QHash<QByteArray, std::size_t> ordinaux;
      for (std::size_t i = 1; i < kNombreColonnes<Correspondant>; ++i)
        ordinaux.insert(NomPropre(i), i);
      return ordinaux;
    }();
    const auto ordinal = kOrdinaux.constFind(p.nom);
    if (ordinal == kOrdinaux.cend()) return false;
    const QString texte = SansBarres(Brut(p, p.valeur), true);
    Correspondant essai;
    if (!LireColonne(essai, *ordinal, texte)) return false;
    c_.colonnes.insert(*ordinal, texte);
    return true;
  }

  static constexpr QStringView kDebutAgent = u"BEGIN:VCARD";

  const QList<Propriete> &proprietes_;
  Contact c_;
  QHash<QByteArray, QString> libelles_;  ///< of the groups
  QList<QByteArray> dits_;               ///< groups whose label has been used
  bool ancienne_ = false;                ///< version 2.1
  bool nomme_ = false;
};

class LecteurCartes : public SourcePersonnes {
 public:
  LecteurCartes(const QString &chemin, UsagesReprise &&usages)
      : chemin_(chemin), usages_(std::move(usages)), decoupage_(chemin) {}

  std::optional<PersonneImportee> Suivante() override {
    Carte carte;
    if (!decoupage_.Suivante(carte)) return std::nullopt;
    PersonneImportee personne = PersonneDe(Traduction(carte.proprietes).Traduire(), usages_);
    personne.origine = {chemin_, ++rang_, carte.ligne};
    if (!carte.refus.isEmpty()) personne.refus = carte.refus;
    return personne;
  }

  qsizetype Lu() const override { return decoupage_.Lu(); }
  qsizetype Taille() const override { return decoupage_.Taille(); }

 private:
  const QString chemin_;
  const UsagesReprise usages_;
  DecoupageCartes decoupage_;
  qsizetype rang_ = 0;
};

}  // namespace

bool SontDesCartes(QByteArrayView debut) {
  while (!debut.isEmpty()) {
    const qsizetype fin =
        std::find_if(debut.begin(), debut.end(), [](char c) { return c == '\n' || c == '\r'; }) -
        debut.begin();
    if (EstLigne(debut.first(fin), kDebutDeCarte)) return true;
    debut = debut.sliced(std::min(fin + 1, debut.size()));
  }
  return false;
}

std::unique_ptr<SourcePersonnes> OuvrirCartes(const QString &chemin, UsagesReprise usages) {
  return std::make_unique<LecteurCartes>(chemin, std::move(usages));
}

PersonneImportee LireCarte(const QByteArrayList &lignes, const UsagesReprise &usages) {
  QList<Propriete> proprietes;
  for (const QByteArray &ligne : lignes) proprietes.append(Decouper(ligne));
  return PersonneDe(Traduction(proprietes).Traduire(), usages);
}

QByteArray NomPropre(std::size_t ordinal) {
  return kPropre.toByteArray() +
         QString::fromUtf16(NomsColonnes<Correspondant>()[ordinal]).toLatin1().toUpper();
}
