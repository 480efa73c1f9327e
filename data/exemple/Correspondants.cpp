#include "Correspondants.h"

#include "Listes.h"
#include "Villes.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr const char16_t *kImpasse = u"impasse des Glycines";

struct Personne {
  bool femme = false;
  QString prenom, nom;

  QString NomListe() const { return nom + u' ' + prenom; }
  QString Civilite() const { return femme ? u"Mme"_s : u"M."_s; }
};

struct Lieu {
  QString ville, codePostal;
  int zone = 1;
};

/// An address out of the country, whole.
struct Etranger {
  const char16_t *rue, *code, *ville, *pays;
  int option;  ///< 1 puts the postal code behind the town
};

constexpr auto kEtrangers = std::to_array<Etranger>({
    {u"18 rue des Éperonniers", u"1000", u"Bruxelles", u"Belgique", 0},
    {u"5 quai de la Batte", u"4000", u"Liège", u"Belgique", 0},
    {u"11 avenue de la Gare", u"1003", u"Lausanne", u"Suisse", 0},
    {u"27 rue de Carouge", u"1205", u"Genève", u"Suisse", 0},
    {u"4270 rue Saint-Denis", u"H2J 2K8", u"Montréal", u"Québec, Canada", 1},
    {u"96 rue Saint-Jean", u"G1R 1N8", u"Québec", u"Québec, Canada", 1},
});

class Fabrique {
 public:
  explicit Fabrique(Hasard &hasard) : hasard_(hasard) {}

  std::vector<Invente> Tous() {
    Famille();
    Amis();
    AmisAuLoin();
    Travail();
    Medecins();
    Artisans();
    Club();
    Voisins();
    SansCategorie();
    Proteger();
    return std::move(tous_);
  }

 private:
  void Famille();
  void Amis();
  void AmisAuLoin();
  void Travail();
  void Medecins();
  void Artisans();
  void Club();
  void Voisins();
  void SansCategorie();
  void Proteger();

  Personne InventerPersonne(const QString &nom = {});
  Lieu InventerLieu();
  QString Numero(const QString &prefixe);
  QString Fixe(int zone);
  QString DateNaissance(int premiere, int derniere);

  Correspondant Particulier(const Personne &personne, const QString &categories);
  void Adresser(Correspondant &c, const Lieu &lieu);
  void Joindre(Correspondant &c, const Personne &personne, const Lieu &lieu);
  void Ajouter(Correspondant c) { tous_.push_back({std::move(c), {}, false}); }
  void AjouterPersonne(Correspondant c, const Personne &personne, bool portrait);

  Hasard &hasard_;
  QSet<QString> pris_;  ///< names in the list that are given away already
  std::vector<Invente> tous_;
};

Personne Fabrique::InventerPersonne(const QString &nom) {
  Personne p;
  do {
    p.femme = hasard_.UneFois(2);
    p.prenom =
        QString::fromUtf16(p.femme ? hasard_.Parmi(kPrenomsFemmes) : hasard_.Parmi(kPrenomsHommes));
    p.nom = nom.isEmpty() ? QString::fromUtf16(hasard_.Parmi(kNoms)) : nom;
  } while (pris_.contains(p.NomListe()));
  pris_.insert(p.NomListe());
  return p;
}

Lieu Fabrique::InventerLieu() {
  const VilleExemple &ville = hasard_.Parmi(kVilles);
  const QString code = hasard_.Parmi(QString::fromUtf16(ville.codes).split(u' '));
  return {QString::fromUtf16(ville.nom), code, ville.zone};
}

QString Fabrique::Numero(const QString &prefixe) {
  QString numero = prefixe;
  for (int paire = 0; paire < 2; ++paire)
    numero += u" %1"_s.arg(hasard_.Entier(0, 99), 2, 10, QLatin1Char('0'));
  return numero;
}

QString Fabrique::Fixe(int zone) {
  static constexpr std::array<const char16_t *, 5> kPrefixes{u"01 99 00", u"02 61 91", u"03 53 01",
                                                             u"04 65 71", u"05 36 49"};
  return Numero(QString::fromUtf16(kPrefixes[static_cast<std::size_t>(zone - 1)]));
}

QString Fabrique::DateNaissance(int premiere, int derniere) {
  const int jour = hasard_.Entier(1, 28);
  const int mois = hasard_.Entier(1, 12);
  const int annee = hasard_.Entier(premiere, derniere);
  return u"%1/%2/%3"_s.arg(jour, 2, 10, QLatin1Char('0'))
      .arg(mois, 2, 10, QLatin1Char('0'))
      .arg(annee);
}

/// The name as it goes on the envelope and into the list; nothing else yet.
Correspondant Fabrique::Particulier(const Personne &personne, const QString &categories) {
  Correspondant c;
  c.Ligne1 = personne.Civilite() + u' ' + personne.prenom + u' ' + personne.nom;
  c.NomVelmira = personne.NomListe();
  c.Categories = categories;
  return c;
}

void Fabrique::Adresser(Correspondant &c, const Lieu &lieu) {
  QString rue = QString::number(hasard_.Entier(1, 128));
  rue += hasard_.UneFois(9) ? u" bis "_s : u" "_s;
  rue += QString::fromUtf16(hasard_.Parmi(kVoies));
  QString &libre = c.Ligne2.isEmpty() ? c.Ligne2 : c.Ligne3;
  if (hasard_.UneFois(5)) {
    libre = QString::fromUtf16(hasard_.Parmi(kComplements));
    (&libre == &c.Ligne2 ? c.Ligne3 : c.Ligne4) = rue;
  } else {
    libre = rue;
  }
  c.CodePostal = lieu.codePostal;
  c.Ville = lieu.ville;
}

/// Telephones, mail and a note of a private person: not everybody has each.
void Fabrique::Joindre(Correspondant &c, const Personne &personne, const Lieu &lieu) {
  if (!hasard_.UneFois(4)) c.Tel = Fixe(lieu.zone);
  if (!hasard_.UneFois(5)) c.Portable = Numero(u"06 39 98"_s);
  c.ListeRougeTel = !c.Tel.isEmpty() && hasard_.UneFois(9);
  if (!hasard_.UneFois(3))
    c.Mail = SansAccents(personne.prenom) + u'.' + SansAccents(personne.nom) +
             (hasard_.UneFois(2) ? u"@courriel.example"_s : u"@poste.example"_s);
  if (hasard_.UneFois(12)) c.Web = u"www."_s + SansAccents(personne.NomListe()) + u".example"_s;
  if (hasard_.UneFois(4)) c.Commentaires = QString::fromUtf16(hasard_.Parmi(kNotes));
}

void Fabrique::AjouterPersonne(Correspondant c, const Personne &personne, bool portrait) {
  if (portrait)
    tous_.push_back({std::move(c), personne.prenom.left(1) + personne.nom.left(1), personne.femme});
  else
    Ajouter(std::move(c));
}

void Fabrique::Famille() {
  for (int i = 0; i < 24; ++i) {
    const QString nom = i < 9 ? u"Exemple"_s : i < 17 ? u"Kermarrec"_s : u"Bellanger"_s;
    const Personne personne = InventerPersonne(nom);
    Correspondant c = Particulier(personne, i % 6 == 0 ? u"*Famille*Favoris*"_s : u"*Famille*"_s);
    const Lieu lieu = InventerLieu();
    Adresser(c, lieu);
    Joindre(c, personne, lieu);
    c.DDN = DateNaissance(1938, 2019);
    AjouterPersonne(std::move(c), personne, i % 2 == 0);
  }
}

void Fabrique::Amis() {
  for (int i = 0; i < 34; ++i) {
    const Personne personne = InventerPersonne();
    Correspondant c = Particulier(personne, i % 8 == 0   ? u"*Amis*Favoris*"_s
                                            : i % 7 == 0 ? u"*Amis*Club*"_s
                                                         : u"*Amis*"_s);
    const bool couple = i % 6 == 1, adresseInconnue = i % 11 == 10;
    if (couple)
      c.Ligne1 = (personne.femme ? u"Mme et M. "_s : u"M. et Mme "_s) + personne.prenom + u' ' +
                 personne.nom;
    const Lieu lieu = InventerLieu();
    Joindre(c, personne, lieu);
    if (!adresseInconnue) Adresser(c, lieu);
    if (!hasard_.UneFois(3)) c.DDN = DateNaissance(1950, 2002);
    AjouterPersonne(std::move(c), personne, i % 3 == 0);
  }
}

void Fabrique::AmisAuLoin() {
  for (const Etranger &e : kEtrangers) {
    const Personne personne = InventerPersonne();
    Correspondant c = Particulier(personne, u"*Amis*"_s);
    c.Ligne2 = QString::fromUtf16(e.rue);
    c.CodePostal = QString::fromUtf16(e.code);
    c.Ville = QString::fromUtf16(e.ville);
    c.Pays = QString::fromUtf16(e.pays);
    c.OptionAdresse = e.option;
    c.Mail = SansAccents(personne.prenom) + u"@ailleurs.example"_s;
    c.DDN = DateNaissance(1950, 2002);
    AjouterPersonne(std::move(c), personne, e.option == 1);
  }
}

void Fabrique::Travail() {
  for (const char16_t *nom : kSocietes) {
    const QString societe = QString::fromUtf16(nom);
    const QString domaine = SansAccents(societe) + u".example"_s;
    const Lieu lieu = InventerLieu();

    Correspondant siege;
    siege.Ligne1 = siege.NomVelmira = societe;
    siege.Categories = u"*Travail*"_s;
    Adresser(siege, lieu);
    siege.TelTravail = Fixe(lieu.zone);
    siege.Fax = Fixe(lieu.zone);
    siege.Mail = u"contact@"_s + domaine;
    siege.Web = u"www."_s + domaine;
    const Correspondant adresse = siege;
    Ajouter(std::move(siege));

    for (int i = 0; i < 3; ++i) {
      const Personne personne = InventerPersonne();
      Correspondant c = Particulier(personne, u"*Travail*"_s);
      c.Ligne2 = societe;
      c.Ligne3 = adresse.Ligne2;
      c.Ligne4 = adresse.Ligne3;
      c.CodePostal = adresse.CodePostal;
      c.Ville = adresse.Ville;
      c.TelTravail = Fixe(lieu.zone);
      c.ListeRougeTravail = hasard_.UneFois(6);
      if (hasard_.UneFois(2)) c.Portable = Numero(u"06 39 98"_s);
      c.Mail =
          SansAccents(personne.prenom).left(1) + u'.' + SansAccents(personne.nom) + u'@' + domaine;
      AjouterPersonne(std::move(c), personne, i == 0);
    }
  }
}

void Fabrique::Medecins() {
  for (const char16_t *specialite : kSpecialites) {
    const Personne personne = InventerPersonne();
    Correspondant c;
    c.Ligne1 = u"Dr "_s + personne.prenom + u' ' + personne.nom;
    c.Ligne2 = QString::fromUtf16(specialite);
    c.NomVelmira = personne.NomListe() + u" (Dr)"_s;
    c.Categories = u"*Médecins*"_s;
    const Lieu lieu{u"Nantes"_s, u"44000"_s, 2};
    Adresser(c, lieu);
    c.TelTravail = Fixe(lieu.zone);
    if (hasard_.UneFois(2)) c.Fax = Fixe(lieu.zone);
    if (hasard_.UneFois(2)) c.Commentaires = u"Prendre rendez-vous au secrétariat."_s;
    Ajouter(std::move(c));
  }
}

void Fabrique::Artisans() {
  for (const Metier &metier : kMetiers) {
    const QString nom = QString::fromUtf16(hasard_.Parmi(kNoms));
    const QString court = QString::fromUtf16(metier.court);
    Correspondant c;
    c.NomVelmira = nom + u' ' + court;
    c.Ligne1 = u"Entreprise "_s + nom;
    c.Ligne2 = QString::fromUtf16(metier.enseigne);
    c.Categories = u"*Artisans*"_s;
    const Lieu lieu = InventerLieu();
    Adresser(c, lieu);
    c.TelTravail = Fixe(lieu.zone);
    if (hasard_.UneFois(3)) c.Fax = Fixe(lieu.zone);
    if (hasard_.UneFois(2)) c.Portable = Numero(u"06 39 98"_s);
    c.Web = u"www."_s + SansAccents(nom + u' ' + court) + u".example"_s;
    if (hasard_.UneFois(3)) c.Commentaires = u"Demander un devis avant l'automne."_s;
    Ajouter(std::move(c));
  }
}

void Fabrique::Club() {
  for (const QString &nom : {u"Les Randonneurs du Canal"_s, u"Chorale des Mariniers"_s}) {
    Correspondant c;
    c.Ligne1 = c.NomVelmira = nom;
    c.Ligne2 = u"Maison des associations"_s;
    c.Ligne3 = u"2 quai des Platanes"_s;
    c.CodePostal = u"44000"_s;
    c.Ville = u"Nantes"_s;
    c.Categories = u"*Club*"_s;
    c.Tel = Fixe(2);
    c.Mail = u"bureau@"_s + SansAccents(nom) + u".example"_s;
    Ajouter(std::move(c));
  }
  for (int i = 0; i < 18; ++i) {
    const Personne personne = InventerPersonne();
    Correspondant c = Particulier(personne, i % 5 == 0 ? u"*Club*Voisins*"_s : u"*Club*"_s);
    const Lieu lieu{u"Nantes"_s, u"44300"_s, 2};
    Adresser(c, lieu);
    Joindre(c, personne, lieu);
    if (hasard_.UneFois(2)) c.DDN = DateNaissance(1945, 1995);
    AjouterPersonne(std::move(c), personne, i % 5 == 0);
  }
}

void Fabrique::Voisins() {
  const Lieu lieu{u"Nantes"_s, u"44100"_s, 2};
  for (int i = 0; i < 14; ++i) {
    const Personne personne = InventerPersonne();
    Correspondant c = Particulier(personne, u"*Voisins*"_s);
    c.Ligne2 = QString::number(9 + i) + u' ' + QString::fromUtf16(kImpasse);
    c.CodePostal = lieu.codePostal;
    c.Ville = lieu.ville;
    Joindre(c, personne, lieu);
    AjouterPersonne(std::move(c), personne, i % 7 == 0);
  }
}

void Fabrique::SansCategorie() {
  for (const char16_t *nom : kOrganismes) {
    Correspondant c;
    c.Ligne1 = c.NomVelmira = QString::fromUtf16(nom);
    const Lieu lieu = InventerLieu();
    Adresser(c, lieu);
    c.TelTravail = Fixe(lieu.zone);
    c.Web = u"www."_s + SansAccents(c.NomVelmira) + u".example"_s;
    Ajouter(std::move(c));
  }
}

/// Three records that their owner leaves visible to everybody, two that nobody else sees.
void Fabrique::Proteger() {
  constexpr std::array<std::size_t, 3> kVisibles{3, 30, 52};
  constexpr std::array<std::size_t, 2> kCaches{41, 47};
  for (const std::size_t i : kVisibles) tous_[i].ligne.DataProt = u"exemple$"_s;
  for (const std::size_t i : kCaches) tous_[i].ligne.DataProt = u"autre"_s;
}

}  // namespace

std::vector<Invente> InventerCorrespondants(Hasard &hasard) {
  return Fabrique(hasard).Tous();
}

QString SansAccents(const QString &nom) {
  QString resultat;
  for (const QChar c : nom.normalized(QString::NormalizationForm_D).toLower()) {
    if (c.category() == QChar::Mark_NonSpacing) continue;
    const bool garde = (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9');
    if (garde)
      resultat += c;
    else if (!resultat.endsWith(u'-'))
      resultat += u'-';
  }
  return resultat;
}
