#include "exchange/Contact.h"

#include "address/NomsProposes.h"
#include "calendar/SansAccents.h"
#include "directory/Categories.h"
#include "platform/Saisie.h"
#include "storage/Noms.h"
#include "storage/Telephone.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using L = Correspondant;

bool EstCommande(QChar c) {
  return c < u' ' || (c >= u'\x7F' && c <= u'\x9F');
}

/// Most texts are: they need no copy.
bool EstSurUneLigne(const QString &texte) {
  bool blanc = true;
  for (const QChar c : texte) {
    const bool avant = std::exchange(blanc, c.isSpace());
    if (EstCommande(c) || (blanc && (avant || c != u' '))) return false;
  }
  return !blanc || texte.isEmpty();
}

/// On one line, without blanks at its ends.
QString SurUneLigne(QString texte) {
  if (EstSurUneLigne(texte)) return texte;
  std::ranges::replace_if(texte, EstCommande, QChar(u' '));
  return std::move(texte).simplified();
}

/// Without the two signs that separate the items of an address.
QString PourAdresse(QString texte) {
  return SurUneLigne(texte.replace(u'*', u' ').replace(u'$', u' '));
}

QStringList Lignes(const QString &texte) {
  QStringList lignes;
  for (const QString &ligne : texte.split(u'\n'))
    if (const QString seule = PourAdresse(ligne); !seule.isEmpty()) lignes.append(seule);
  return lignes;
}

QString Assembler(const QStringList &parties, const QString &lien) {
  QStringList pleines;
  for (const QString &partie : parties)
    if (!partie.isEmpty()) pleines.append(partie);
  return pleines.join(lien);
}

bool EstFrance(const QString &pays) {
  static const QSet<QString> kFrance{u"france"_s, u"fr"_s, u"fra"_s};
  return kFrance.contains(pays.toLower());
}

/// The words of a text, without signs, case and accents.
QStringList Mots(const QString &texte) {
  QStringList mots;
  QString mot;
  for (const QChar c : SansAccents(texte) + u' ')
    if (c.isLetterOrNumber())
      mot += c.toLower();
    else if (!mot.isEmpty())
      mots.append(std::exchange(mot, {}));
  return mots;
}

struct MotUsage {
  Lieu lieu = Lieu::Aucun;
  Usage::Genre genre = Usage::Genre::Ordinaire;
};
using MotsUsage = QHash<QString, MotUsage>;

/// The words of labels and types that tell a use; those without one say nothing.
const MotsUsage &MotsConnus() {
  using Genre = Usage::Genre;
  static const MotsUsage kMots = [] {
    const std::pair<MotUsage, const char16_t *> groupes[]{
        {{Lieu::Domicile}, u"home domicile maison personnel personnelle perso prive privee"},
        {{Lieu::Travail}, u"work business travail bureau professionnel professionnelle pro"},
        {{Lieu::Autre}, u"other autre"},
        {{Lieu::Aucun, Genre::Mobile}, u"mobile cell cellular iphone portable gsm"},
        {{Lieu::Aucun, Genre::Fax}, u"fax telecopie telecopieur"},
        {{Lieu::Domicile, Genre::Fax}, u"homefax"},
        {{Lieu::Travail, Genre::Fax}, u"workfax"},
        {{Lieu::Autre, Genre::Fax}, u"otherfax"},
        {{Lieu::Aucun, Genre::Divers},
         u"pager radiomessagerie telex isdn rnis modem car voiture callback rappel radio tty tdd "
         "ttytdd assistant bbs textphone"},
        {{},
         u"main principal primary profile profil homepage internet voice msg dom intl postal "
         "parcel pref x400 text video phone telephone tel numero smtp"}};
    MotsUsage mots;
    for (const auto &[usage, noms] : groupes)
      for (const QString &nom : QString::fromUtf16(noms).split(u' ')) mots.insert(nom, usage);
    return mots;
  }();
  return kMots;
}

QString AvecLieu(const QString &quoi, const Usage &usage) {
  const auto entre = [&](const QString &ou) { return u"%1 (%2)"_s.arg(quoi, ou); };
  if (!usage.libelle.isEmpty()) return entre(usage.libelle);
  switch (usage.lieu) {
    case Lieu::Domicile:
      return entre(u"domicile"_s);
    case Lieu::Travail:
      return entre(u"travail"_s);
    case Lieu::Autre:
      return entre(u"autre"_s);
    case Lieu::Aucun:
      break;
  }
  return quoi;
}

/// What people write in a number beside its digits.
bool EstNumeroSeul(const QString &numero) {
  return std::ranges::all_of(numero, [](QChar c) {
    return (c >= u'0' && c <= u'9') || c.isSpace() || QStringView(u".-/()+").contains(c);
  });
}

QString Chiffres(QString texte) {
  return texte.removeIf([](QChar c) { return c < u'0' || c > u'9'; });
}

/// A number of France in the form of this directory; any other as it is written.
QString Numero(QString numero, const QString &separateur) {
  numero = SurUneLigne(numero);
  if (!EstNumeroSeul(numero)) return numero;
  static const QRegularExpression kFrance(u"^\\s*(\\+|00)\\s*33\\s*(\\(0\\))?[\\s.-]*0?"_s);
  QString national = numero;
  if (const auto trouve = kFrance.match(numero); trouve.hasMatch())
    national = u'0' + numero.mid(trouve.capturedEnd());
  if (national.contains(u'+') || national.startsWith(u"00"_s)) return numero;
  const QString chiffres = Chiffres(national);
  constexpr qsizetype kEntier = 10;
  const bool ailleurs = chiffres.size() == kEntier && !chiffres.startsWith(u'0');
  return chiffres.isEmpty() || ailleurs ? numero : FormatTelephone(chiffres, separateur);
}

class Redaction {
 public:
  Redaction(Contact &&contact, const UsagesReprise &usages)
      : c_(std::move(contact)), usages_(usages) {}

  PersonneImportee Rediger() {
    Nommer();
    Adresser();
    Numeroter();
    Premiere(c_.courriels, &L::Mail, u"Adresse email"_s);
    Premiere(c_.sites, &L::Web, u"Adresse web"_s);
    if (c_.naissance.isValid()) f_.DDN = EcritureDate(c_.naissance);
    Classer();
    const auto notes = c_.colonnes.constFind(Ordinal(&L::Commentaires));
    const bool entieres = notes != c_.colonnes.cend();
    if (entieres) {
      // They hold already what has no column.
      c_.note = *notes;
      personne_.auxNotes.clear();
      c_.redites.clear();
    }
    for (const auto &[libelle, valeur] : std::as_const(c_.autres)) Noter(libelle, valeur);
    NoterRedites();
    for (auto [ordinal, texte] : c_.colonnes.asKeyValueRange()) LireColonne(f_, ordinal, texte);
    f_.Commentaires = c_.note;
    Annexer(f_.Commentaires, personne_.auxNotes);
    NommerFauteDeMieux();
    personne_.photo = std::move(c_.photo);
    SansNul(f_);
    return std::move(personne_);
  }

 private:
  void Noter(const QString &libelle, const QString &valeur) {
    const QString texte = valeur.trimmed();
    if (!texte.isEmpty()) personne_.auxNotes.append(u"%1 : %2"_s.arg(libelle, texte));
  }

  /// Into the column, or whole to the notes where it is too long for one.
  void Poser(QString L::*champ, const QString &valeur, const QString &libelle) {
    if (valeur.size() <= kPlusLong)
      f_.*champ = valeur;
    else
      Noter(libelle, valeur);
  }

  void Nommer() {
    for (QString *partie : {&c_.prefixe, &c_.prenom, &c_.famille, &c_.suffixe, &c_.complet})
      *partie = SurUneLigne(*partie);
    const QString societe = SurUneLigne(c_.societe);
    const QString liste = Assembler({c_.famille, c_.prenom}, u" "_s);
    const bool memeSociete = !societe.isEmpty() && MemeNom(c_.complet, societe);
    if (c_.estSociete || (liste.isEmpty() && (c_.complet.isEmpty() || memeSociete))) {
      const QString nom = !societe.isEmpty() ? societe : c_.complet.isEmpty() ? liste : c_.complet;
      NomEtLigne(nom, nom);
      nomme_ = !societe.isEmpty();
      NoterNom(!liste.isEmpty() && nom != liste);
    } else if (liste.isEmpty()) {
      NomEtLigne(NomPourListe(c_.complet, usages_.titres), c_.complet);
      NoterNom(false);
    } else {
      NomEtLigne(liste, Assembler({c_.prefixe, c_.prenom, c_.famille, c_.suffixe}, u" "_s));
    }
    Noter(u"Autres prénoms"_s, c_.autresPrenoms);
    const bool dit = c_.complet == f_.Ligne1 || c_.complet == c_.prenom + u' ' + c_.famille;
    if (!dit) c_.redites.prepend({u"Nom complet"_s, c_.complet});
  }

  void NomEtLigne(QString liste, const QString &ligne) {
    Poser(&L::Ligne1, PourAdresse(ligne), u"Nom sur l'enveloppe"_s);
    if (liste.size() > kPlusLong) {
      Noter(u"Nom"_s, liste);
      liste.truncate(kPlusLong);
    }
    // The editor takes none of them.
    f_.NomVelmira = liste.remove(u'"').trimmed();
  }

  /// What is left of a name that has given none, or is not shown.
  void NoterNom(bool personne) {
    if (personne) Noter(u"Nom"_s, Assembler({c_.famille, c_.prenom}, u" "_s));
    Noter(u"Civilité"_s, c_.prefixe);
    Noter(u"Suffixe"_s, c_.suffixe);
  }

  /// Whoever has no name is known by what else there is.
  void NommerFauteDeMieux() {
    const bool propre = c_.colonnes.contains(Ordinal(&L::NomVelmira));
    if (!EstSansNom(f_.NomVelmira) || (propre && !f_.NomVelmira.isEmpty())) return;
    for (const auto &[libelle, valeur] : c_.autres)
      if (libelle == u"Surnom"_s) f_.NomVelmira = SurUneLigne(valeur).left(kPlusLong);
    for (const auto champ :
         {&L::Ligne1, &L::Mail, &L::Portable, &L::Tel, &L::TelTravail, &L::Fax, &L::Web})
      if (EstSansNom(f_.NomVelmira)) f_.NomVelmira = f_.*champ;
    f_.NomVelmira.remove(u'"');
    if (EstSansNom(f_.NomVelmira)) personne_.refus = RefusSansNom();
  }

  void Adresser() {
    QStringList lignes, derriere;
    if (!nomme_) lignes += Lignes(c_.societe);
    c_.adresses.removeIf([](const AdresseContact &a) { return a.EstVide(); });
    const auto choisie = std::ranges::min_element(c_.adresses, {}, [](const AdresseContact &a) {
      return std::pair(a.usage.rang, a.usage.lieu != Lieu::Domicile);
    });
    if (choisie != c_.adresses.end()) {
      AdresseContact adresse = *choisie;
      c_.adresses.erase(choisie);
      adresse_ = EnUneLigne(adresse);
      Noter(u"Libellé de l'adresse"_s, adresse.usage.libelle);
      Situer(adresse);
      derriere = Lignes(adresse.complement) + Lignes(adresse.rue) + Lignes(adresse.boitePostale);
    }
    Aligner(lignes, derriere);
    for (const AdresseContact &adresse : c_.adresses)
      Noter(AvecLieu(u"Adresse"_s, adresse.usage), EnUneLigne(adresse));
  }

  /// Code, town and country. Some programs give an address as one text.
  void Situer(AdresseContact &adresse) {
    QString &seul = adresse.rue.isEmpty() ? adresse.complement : adresse.rue;
    if (QStringList lignes = Lignes(seul);
        adresse.ville.isEmpty() && adresse.code.isEmpty() && lignes.size() > 1) {
      static const QRegularExpression kFin(u"^(?:F-)?(\\d{5}) (\\D.*)$"_s);
      if (adresse.pays.isEmpty() && EstFrance(lignes.constLast())) lignes.removeLast();
      if (const auto trouve = kFin.match(lignes.constLast()); trouve.hasMatch()) {
        adresse.code = trouve.captured(1);
        adresse.ville = trouve.captured(2);
        lignes.removeLast();
        seul = lignes.join(u'\n');
      }
    }
    Poser(&L::CodePostal, PourAdresse(adresse.code), u"Code postal"_s);
    Poser(&L::Ville, PourAdresse(adresse.ville), u"Ville"_s);
    const QString pays = PourAdresse(adresse.pays), region = SurUneLigne(adresse.region);
    if (!EstFrance(pays)) Poser(&L::Pays, pays, u"Pays"_s);
    if (region != f_.Ville) Noter(u"Région"_s, region);
  }

  /// The firm, its departments where there is room, the lines of the address.
  void Aligner(QStringList lignes, const QStringList &derriere) {
    constexpr std::array kLignes{&L::Ligne2, &L::Ligne3, &L::Ligne4, &L::Ligne5};
    const auto places = static_cast<qsizetype>(kLignes.size());
    const QString service = PourAdresse(Assembler(c_.services, u", "_s));
    const bool tient = !service.isEmpty() && lignes.size() + 1 + derriere.size() <= places;
    if (tient) lignes += service;
    lignes += derriere;
    for (qsizetype i = 0; i < std::min(places, lignes.size()); ++i)
      Poser(kLignes[static_cast<std::size_t>(i)], lignes[i], u"Adresse"_s);
    if (lignes.size() > places) Noter(u"Suite de l'adresse"_s, lignes.mid(places).join(u", "));
    if (!tient) Noter(u"Service"_s, service);
  }

  static QString EnUneLigne(const AdresseContact &a) {
    const auto texte = [](const QString &t) { return Lignes(t).join(u", "_s); };
    return Assembler({texte(a.complement), texte(a.rue), texte(a.boitePostale),
                      Assembler({PourAdresse(a.code), PourAdresse(a.ville)}, u" "_s),
                      texte(a.region), texte(a.pays)},
                     u", "_s);
  }

  /// Each number into the column of its use, further ones into those that are free.
  void Numeroter() {
    std::ranges::stable_sort(c_.numeros, {}, [](const ValeurContact &n) { return n.usage.rang; });
    QList<ValeurContact> reste;
    for (ValeurContact &numero : c_.numeros) {
      numero.valeur = Numero(numero.valeur, usages_.separateurTel);
      if (numero.valeur.isEmpty()) continue;
      if (!Occuper(Propre(numero.usage), numero)) reste.append(numero);
    }
    for (const ValeurContact &numero : std::as_const(reste)) NumeroterSuivant(numero);
  }

  static QString L::*Propre(const Usage &usage) {
    using Genre = Usage::Genre;
    if (!usage.libelle.isEmpty()) return nullptr;
    if (usage.genre == Genre::Fax) return &L::Fax;
    if (usage.genre == Genre::Mobile) return &L::Portable;
    if (usage.genre == Genre::Divers) return nullptr;
    if (usage.lieu == Lieu::Domicile) return &L::Tel;
    return usage.lieu == Lieu::Travail ? &L::TelTravail : nullptr;
  }

  bool Occuper(QString L::*champ, const ValeurContact &numero) {
    if (champ == nullptr || numero.valeur.size() > kPlusLong) return false;
    if (!(f_.*champ).isEmpty()) return f_.*champ == numero.valeur;
    f_.*champ = numero.valeur;
    return true;
  }

  void NumeroterSuivant(const ValeurContact &numero) {
    const QString libelle = LibelleNumero(numero.usage);
    bool place = false;
    if (numero.usage.genre == Usage::Genre::Fax) {
      place = Occuper(&L::Fax, numero);
    } else if (numero.usage.genre != Usage::Genre::Divers) {
      const QString chiffres = Chiffres(numero.valeur);
      const bool mobile = chiffres.startsWith(u"06"_s) || chiffres.startsWith(u"07"_s);
      for (const auto champ : mobile ? std::array{&L::Portable, &L::Tel, &L::TelTravail}
                                     : std::array{&L::Tel, &L::TelTravail, &L::Portable})
        place = place || Occuper(champ, numero);
    }
    if (!place || !numero.usage.libelle.isEmpty()) Noter(libelle, numero.valeur);
  }

  static QString LibelleNumero(const Usage &usage) {
    if (!usage.libelle.isEmpty()) return usage.libelle;
    switch (usage.genre) {
      case Usage::Genre::Mobile:
        return AvecLieu(u"Portable"_s, usage);
      case Usage::Genre::Fax:
        return AvecLieu(u"Fax"_s, usage);
      default:
        return AvecLieu(u"Téléphone"_s, usage);
    }
  }

  /// The first of them has the column; one with a label of its own is noted too, to keep it.
  void Premiere(QList<ValeurContact> &valeurs, QString L::*champ, const QString &quoi) {
    std::ranges::stable_sort(valeurs, {}, [](const ValeurContact &v) { return v.usage.rang; });
    for (const ValeurContact &valeur : std::as_const(valeurs)) {
      const QString texte = SurUneLigne(valeur.valeur);
      const bool premiere = (f_.*champ).isEmpty() && texte.size() <= kPlusLong;
      if (premiere) f_.*champ = texte;
      if (premiere ? !valeur.usage.libelle.isEmpty() : texte != f_.*champ)
        Noter(AvecLieu(quoi, valeur.usage), texte);
    }
  }

  void Classer() {
    QStringList noms;
    for (const QString &categorie : std::as_const(c_.categories)) {
      const QString nom = SurUneLigne(QString(categorie).replace(u'*', u' '));
      if (nom.isEmpty() || noms.contains(nom)) continue;
      if (EstEnregistree(nom) && nom.size() <= kPlusLong)
        noms.append(nom);
      else
        Noter(u"Catégorie"_s, nom);
    }
    if (!noms.isEmpty()) f_.Categories = u'*' + noms.join(u'*') + u'*';
  }

  void NoterRedites() {
    if (c_.redites.isEmpty()) return;
    QSet<QString> dits;
    const auto dire = [&dits](const QString &texte) {
      for (const QString &mot : Mots(texte)) dits.insert(mot);
    };
    for (const auto champ : {&L::NomVelmira, &L::Ligne1, &L::Ligne2, &L::Ligne3, &L::Ligne4,
                             &L::Ligne5, &L::CodePostal, &L::Ville, &L::Pays, &L::Mail})
      dire(f_.*champ);
    for (const QString &note : std::as_const(personne_.auxNotes)) dire(note);
    dire(adresse_);
    QStringList dites;
    for (const auto &[libelle, valeur] : std::as_const(c_.redites)) {
      const QStringList mots = Mots(valeur);
      const bool plus =
          std::ranges::any_of(mots, [&](const QString &m) { return !dits.contains(m); });
      if (!plus && !mots.isEmpty()) continue;
      if (dites.contains(valeur)) continue;
      dites.append(valeur);
      Noter(libelle, valeur);
    }
  }

  Contact c_;
  const UsagesReprise &usages_;
  PersonneImportee personne_;
  L &f_ = personne_.fiche;
  QString adresse_;     ///< the one of the columns, its country too
  bool nomme_ = false;  ///< the record bears the name of the firm
};

void RemplirNul(QString &texte) {
  if (texte.isNull()) texte = u""_s;
}
template <typename Champ>
void RemplirNul(Champ &) {}

bool Prendre(const QString &texte, QString &champ) {
  champ = texte;
  return true;
}
bool Prendre(const QString &texte, bool &champ) {
  champ = texte == u"oui"_s;
  return champ || texte == u"non"_s || texte.isEmpty();
}
bool Prendre(const QString &texte, int &champ) {
  bool nombre = false;
  const int n = texte.toInt(&nombre);
  constexpr int kOctet = 255;
  const bool pris = texte.isEmpty() || (nombre && n >= 0 && n <= kOctet);
  if (pris) champ = n;
  return pris;
}
bool Prendre(const QString &, Cle &) {
  return false;
}

QString Texte(const QString &champ) {
  return champ;
}
QString Texte(bool champ) {
  return champ ? u"oui"_s : u"non"_s;
}
template <typename Entier>
QString Texte(Entier champ) {
  return QString::number(champ);
}

/// Calls `f` with the field of a column.
template <typename Fiche, typename Fonction>
void SurColonne(Fiche &fiche, std::size_t ordinal, Fonction &&f) {
  std::size_t place = 0;
  const auto essayer = [&](const auto &colonne) {
    if (place++ == ordinal) f(fiche.*colonne.champ);
  };
  std::apply([&](const auto &...colonne) { (essayer(colonne), ...); }, Table<L>::colonnes);
}

}  // namespace

bool AdresseContact::EstVide() const {
  return (complement + rue + boitePostale + ville + region + code + pays).trimmed().isEmpty();
}

Usage UsageDe(const QString &libelle) {
  const MotsUsage &connus = MotsConnus();
  Usage usage;
  if (libelle.isEmpty()) return usage;
  for (const QString &nom : Mots(libelle)) {
    const auto mot = connus.constFind(nom);
    const bool rare = mot == connus.cend() || mot->genre == Usage::Genre::Divers;
    if (rare) usage.libelle = SurUneLigne(libelle);
    if (mot == connus.cend()) continue;
    if (mot->lieu != Lieu::Aucun) usage.lieu = mot->lieu;
    if (mot->genre != Usage::Genre::Ordinaire) usage.genre = mot->genre;
  }
  return usage;
}

PersonneImportee PersonneDe(Contact contact, const UsagesReprise &usages) {
  return Redaction(std::move(contact), usages).Rediger();
}

void SansNul(Correspondant &fiche) {
  std::apply([&](const auto &...colonne) { (RemplirNul(fiche.*colonne.champ), ...); },
             Table<L>::colonnes);
}

void Annexer(QString &notes, const QStringList &lignes) {
  if (lignes.isEmpty()) return;
  if (!notes.isEmpty() && !notes.endsWith(u'\n')) notes += u'\n';
  notes += lignes.join(u'\n');
}

QString JourSansAnnee(const QString &texte) {
  static const QRegularExpression kJour(u"^--(\\d\\d)-?(\\d\\d)$"_s);
  constexpr int kBissextile = 2000;
  const auto trouve = kJour.match(texte);
  const QDate jour(kBissextile, trouve.captured(1).toInt(), trouve.captured(2).toInt());
  return jour.isValid() ? jour.toString(u"dd/MM"_s) : texte;
}

QString RefusSansNom() {
  return u"On n'y reconnaît ni nom, ni adresse email, ni numéro."_s;
}

QString EcrireColonne(const Correspondant &fiche, std::size_t ordinal) {
  QString texte;
  SurColonne(fiche, ordinal, [&](const auto &champ) { texte = Texte(champ); });
  return texte;
}

bool LireColonne(Correspondant &fiche, std::size_t ordinal, const QString &texte) {
  bool pris = false;
  SurColonne(fiche, ordinal, [&](auto &champ) { pris = Prendre(texte, champ); });
  return pris;
}

QStringList NomsCategories(const QString &categories) {
  return categories.split(u'*', Qt::SkipEmptyParts);
}
