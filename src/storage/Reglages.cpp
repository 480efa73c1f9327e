#include "storage/Reglages.h"

#include "platform/Enregistrement.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"
#include "platform/Sections.h"
#include "storage/Preferences.h"
#include "storage/ReglagesNonLus.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <tuple>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

template <typename Valeur>
struct CleIni {
  const char16_t *nom;
  Valeur ReglagesPlomex::*valeur;
  /// Of the buffer that takes the text, its closing zero included.
  qsizetype taille = kLongueurPolice + 1;
};
template <typename Valeur>
CleIni(const char16_t *, Valeur ReglagesPlomex::*) -> CleIni<Valeur>;
template <typename Valeur>
CleIni(const char16_t *, Valeur ReglagesPlomex::*, qsizetype) -> CleIni<Valeur>;

/// The keys of `Plomex.ini` in file order.
constexpr auto kClesPlomex = [] {
  using P = ReglagesPlomex;
  return std::tuple{
      CleIni{u"Imprimante", &P::Imprimante, kLongueurImprimante + 1},
      CleIni{u"Orientation", &P::Orientation},
      CleIni{u"Bord imprimé", &P::BordImprime},
      CleIni{u"Position enveloppe", &P::PositionEnveloppe},
      CleIni{u"PoliceA", &P::PoliceA},
      CleIni{u"PoliceE", &P::PoliceE},
      CleIni{u"TailleA", &P::TailleA},
      CleIni{u"TailleE", &P::TailleE},
      CleIni{u"GrasA", &P::GrasA},
      CleIni{u"GrasE", &P::GrasE},
      CleIni{u"NePas", &P::NePas},
      CleIni{u"SautLigne", &P::SautLigne},
      CleIni{u"SautDLigne", &P::SautDLigne},
      CleIni{u"GrasDLigne", &P::GrasDLigne},
      CleIni{u"SautPLigne", &P::SautPLigne},
      CleIni{u"GrasPLigne", &P::GrasPLigne},
      CleIni{u"MargeHaute", &P::MargeHaute},
      CleIni{u"MargeDroite", &P::MargeDroite},
      CleIni{u"Raccourci", &P::Raccourci},
      CleIni{u"Minimise", &P::Minimise},
      CleIni{u"MargeMAX", &P::MargeMAX},
      CleIni{u"MargeMAY", &P::MargeMAY},
      CleIni{u"MargeMEX", &P::MargeMEX},
      CleIni{u"MargeMEY", &P::MargeMEY},
      CleIni{u"AlignE", &P::AlignE},
      CleIni{u"AlignA", &P::AlignA},
      CleIni{u"Adresse", &P::Adresse},
      CleIni{u"Enveloppe", &P::Enveloppe},
      CleIni{u"AdresseEnGras", &P::AdresseEnGras},
      CleIni{u"TaillePoliceTV1", &P::TaillePoliceTV1},
      CleIni{u"TaillePoliceTV2", &P::TaillePoliceTV2},
      CleIni{u"Telephone", &P::Telephone},
      CleIni{u"IcoMenu", &P::IcoMenu},
  };
}();

/// The values of `RTColor.ini` in the order of its record.
constexpr auto kValeursRTColor = [] {
  using R = ReglagesRTColor;
  return std::tuple{&R::CouleurR,
                    &R::CouleurV,
                    &R::CouleurB,
                    &R::NomPerso,
                    &R::PortCom,
                    &R::TailleFenetre,
                    &R::OuvrirSurFavoris,
                    &R::MenuClicDroit,
                    &R::AffichageNaissance,
                    &R::AnnulerCommentaire,
                    &R::InterdireCommentaire,
                    &R::VitesseTransition,
                    &R::EffetVisuel,
                    &R::FondUni};
}();

constexpr std::tuple kValeursMemora{&ReglagesMemora::LancerAuDemarrage,
                                    &ReglagesMemora::AssocierAlertes};

constexpr std::tuple kValeursAlarme{&ReglagesAlarme::AlerteAvecWindows,
                                    &ReglagesAlarme::AlerteAvecProgramme,
                                    &ReglagesAlarme::AlerteDivers};

constexpr std::tuple kValeursSauvan{&ReglagesSauvan::RecuperationFaite,
                                    &ReglagesSauvan::AdressesPresentes};

const QString kSection = u"Defaut"_s;

QString Fichier(const QString &appPath, const char16_t *nom) {
  return appPath + u'/' + QString::fromUtf16(nom);
}

void PrendreIni(const QString &texte, QString &valeur) {
  valeur = texte;
}

void PrendreIni(const QString &texte, bool &valeur) {
  bool nombre = false;
  const double n = texte.toDouble(&nombre);
  if (nombre)
    valeur = n != 0;
  else if (texte.compare(u"True"_s, Qt::CaseInsensitive) == 0 ||
           texte.compare(u"Vrai"_s, Qt::CaseInsensitive) == 0)
    valeur = true;
  else if (texte.compare(u"False"_s, Qt::CaseInsensitive) == 0 ||
           texte.compare(u"Faux"_s, Qt::CaseInsensitive) == 0)
    valeur = false;
}

template <typename Entier>
requires std::is_integral_v<Entier>
void PrendreIni(const QString &texte, Entier &valeur) {
  bool nombre = false;
  const double n = std::round(texte.toDouble(&nombre));
  if (nombre && n >= std::numeric_limits<Entier>::min() && n <= std::numeric_limits<Entier>::max())
    valeur = static_cast<Entier>(n);
}

// What the files keep of the types that they know as whole numbers only.
quint8 EnNombre(Drapeau drapeau) {
  return drapeau.Nombre();
}

qint16 EnNombre(Millimetres longueur) {
  return static_cast<qint16>(std::lround(longueur.valeur));
}

template <typename Valeur>
requires std::is_enum_v<Valeur>
auto EnNombre(Valeur valeur) {
  return static_cast<std::underlying_type_t<Valeur>>(valeur);
}

template <typename Entier>
requires std::is_integral_v<Entier> Entier EnNombre(Entier valeur) {
  return valeur;
}

void Prendre(quint8 nombre, Drapeau &drapeau) {
  drapeau = Drapeau::DepuisNombre(nombre);
}

void Prendre(qint16 nombre, Millimetres &longueur) {
  longueur = Millimetres(nombre);
}

template <typename Nombre, typename Valeur>
void Prendre(Nombre nombre, Valeur &valeur) {
  valeur = static_cast<Valeur>(nombre);
}

template <typename Valeur>
void PrendreIni(const QString &texte, Valeur &valeur) {
  auto nombre = EnNombre(valeur);
  PrendreIni(texte, nombre);
  Prendre(nombre, valeur);
}

QString TexteIni(const QString &valeur) {
  return valeur;
}

QString TexteIni(bool valeur) {
  return valeur ? u"True"_s : u"False"_s;
}

template <typename Valeur>
QString TexteIni(Valeur valeur) {
  return QString::number(EnNombre(valeur));
}

void LireValeur(LecteurEnregistrement &lecteur, QString &valeur) {
  lecteur.Lire(valeur);
}

template <typename Valeur>
void LireValeur(LecteurEnregistrement &lecteur, Valeur &valeur) {
  auto nombre = EnNombre(valeur);
  lecteur.Lire(nombre);
  Prendre(nombre, valeur);
}

void EcrireValeur(RedacteurEnregistrement &redacteur, const QString &valeur) {
  redacteur.Ecrire(valeur);
}

template <typename Valeur>
void EcrireValeur(RedacteurEnregistrement &redacteur, Valeur valeur) {
  redacteur.Ecrire(std::int64_t{EnNombre(valeur)});
}

enum class Lecture { Absente, Faite, Manquee };

/// Hands over what a settings file holds.
template <typename Fonction>
Lecture Lire(const QString &chemin, Fonction &&prendre) {
  try {
    const auto octets = LireFichier(chemin);
    if (octets) prendre(*octets);
    return octets ? Lecture::Faite : Lecture::Absente;
  } catch (const ErreurFichier &) {
    return Lecture::Manquee;
  }
}

template <typename Structure, typename... Membres>
void PrendreEnregistrement(const QByteArray &octets, Structure &cible,
                           const std::tuple<Membres...> &membres) {
  LecteurEnregistrement lecteur(octets);
  std::apply([&](auto... membre) { (LireValeur(lecteur, cible.*membre), ...); }, membres);
}

template <typename Structure, typename... Membres>
Lecture LireEnregistrement(const QString &chemin, Structure &cible,
                           const std::tuple<Membres...> &membres) {
  return Lire(chemin,
              [&](const QByteArray &octets) { PrendreEnregistrement(octets, cible, membres); });
}

template <typename Structure, typename... Membres>
void EcrireEnregistrement(const QString &chemin, const Structure &source,
                          const std::tuple<Membres...> &membres) {
  if constexpr (requires { source.NonLu; }) ExigerLu(!source.NonLu, chemin);
  RedacteurEnregistrement redacteur;
  std::apply([&](auto... membre) { (EcrireValeur(redacteur, source.*membre), ...); }, membres);
  RemplacerFichier(chemin, redacteur.Octets());
}

void LirePlomex(const QString &appPath, ReglagesPlomex &plomex) {
  const Lecture lecture = Lire(Fichier(appPath, u"Plomex.ini"), [&](const QByteArray &octets) {
    const Sections sections(octets);
    std::apply(
        [&](const auto &...cle) {
          (PrendreIni(sections.LireCle(kSection, QString::fromUtf16(cle.nom), cle.taille),
                      plomex.*cle.valeur),
           ...);
        },
        kClesPlomex);
  });
  plomex.NonLu = lecture == Lecture::Manquee;
  if (lecture == Lecture::Faite) return;
  plomex.PoliceA = plomex.PoliceE = u"Arial"_s;
  plomex.TailleA = 10;
  plomex.TailleE = 8;
}

void LireRTColor(const QString &appPath, ReglagesRTColor &rtcolor) {
  const QString chemin = Fichier(appPath, u"RTColor.ini");
  const Lecture lecture = LireEnregistrement(chemin, rtcolor, kValeursRTColor);
  rtcolor.NonLu = lecture == Lecture::Manquee;
  if (lecture == Lecture::Absente) Ignorer([&] { EcrireRTColor(appPath, rtcolor); });
  if (rtcolor.TailleFenetre == 0 || rtcolor.TailleFenetre == 1) rtcolor.TailleFenetre = 9000;
}

const QString kSectionNorme = u"Norme postale"_s, kNormeActive = u"Active"_s,
              kNormeCapitales = u"Capitales"_s, kNormeAccents = u"Accents"_s;

void LireNorme(const QString &appPath, ReglagesNorme &norme) {
  const Preferences preferences(appPath);
  norme.NonLu = preferences.NonLues();
  norme.Active = preferences.Nombre(kSectionNorme, kNormeActive, 0) == 1;
  norme.Accents = preferences.Nombre(kSectionNorme, kNormeAccents, 1) != 0;
  const int capitales = preferences.Nombre(kSectionNorme, kNormeCapitales, -1);
  if (capitales >= 0 && capitales <= static_cast<int>(CapitalesNorme::Toutes))
    norme.Capitales = static_cast<CapitalesNorme>(capitales);
}

/// An older form of the text between postal code and town: read once, then deleted.
void LireAncienneLiaison(const QString &appPath, QString &liaisonCP) {
  const QString chemin = Fichier(appPath, u"Liaison.txt");
  const auto octets = LireSiPossible(chemin);
  if (!octets) return;
  LecteurEnregistrement(*octets).Lire(liaisonCP);
  Ignorer([&] { EffacerFichier(chemin); });
}

}  // namespace

void LireReglages(const QString &appPath, Reglages &reglages) {
  try {
    reglages.SeparateurTel = LireSeparateurTel(appPath);
    reglages.LiaisonNonLue = false;
  } catch (const ErreurFichier &) {
    reglages.LiaisonNonLue = true;
  }
  // Each run begins with this text, whatever `Liaison.cfg` stores of the last one.
  reglages.LiaisonCP = u" - "_s;
  LireAncienneLiaison(appPath, reglages.LiaisonCP);
  LireAlarme(appPath, reglages.alarme);
  LireRTColor(appPath, reglages.rtcolor);
  reglages.memora.NonLu = LireEnregistrement(Fichier(appPath, u"Memora.ini"), reglages.memora,
                                             kValeursMemora) == Lecture::Manquee;
  const Lecture sauvan =
      LireEnregistrement(Fichier(appPath, u"Sauvan.cfg"), reglages.sauvan, kValeursSauvan);
  LirePlomex(appPath, reglages.plomex);
  LireNorme(appPath, reglages.norme);
  if (sauvan == Lecture::Faite && reglages.sauvan.AdressesPresentes.EstNul())
    reglages.plomex.Adresse = false;
}

bool PeutEtreAbrege(const QString &nom, qsizetype longueur) {
  return nom.size() == longueur || nom.contains(u'?');
}

std::optional<QString> NomComplet(const QStringList &noms, const QString &nom, qsizetype longueur) {
  if (noms.contains(nom)) return nom;
  QStringList candidats;
  std::ranges::copy_if(noms, std::back_inserter(candidats), [&](const QString &candidat) {
    return DepuisPageDeCode(VersPageDeCode(candidat)).left(longueur) == nom;
  });
  return candidats.size() == 1 ? std::optional(candidats.first()) : std::nullopt;
}

void EcrireReglages(const QString &appPath, const ReglagesPlomex &plomex) {
  const QString chemin = Fichier(appPath, u"Plomex.ini");
  ExigerLu(!plomex.NonLu, chemin);
  Sections sections(LireFichier(chemin).value_or(QByteArray()));
  std::apply(
      [&](const auto &...cle) {
        (sections.EcrireCle(kSection, QString::fromUtf16(cle.nom), TexteIni(plomex.*cle.valeur)),
         ...);
      },
      kClesPlomex);
  RemplacerFichier(chemin, sections.Octets());
}

void EcrireNorme(const QString &appPath, const ReglagesNorme &norme) {
  Preferences preferences(appPath);
  ExigerLu(!norme.NonLu, appPath + u"/Preferences.ini"_s);
  preferences.Ecrire(kSectionNorme,
                     {{kNormeActive, QString::number(norme.Active ? 1 : 0)},
                      {kNormeCapitales, QString::number(static_cast<int>(norme.Capitales))},
                      {kNormeAccents, QString::number(norme.Accents ? 1 : 0)}});
}

void EcrireRTColor(const QString &appPath, const ReglagesRTColor &rtcolor) {
  EcrireEnregistrement(Fichier(appPath, u"RTColor.ini"), rtcolor, kValeursRTColor);
}

void NoterRecuperation(const QString &appPath, bool adresses) {
  const QString chemin = Fichier(appPath, u"Sauvan.cfg");
  ReglagesSauvan sauvan;
  if (const auto octets = LireFichier(chemin))
    PrendreEnregistrement(*octets, sauvan, kValeursSauvan);
  sauvan.RecuperationFaite = true;
  if (adresses) sauvan.AdressesPresentes = true;
  EcrireEnregistrement(chemin, sauvan, kValeursSauvan);
}

void EcrireMemora(const QString &appPath, const ReglagesMemora &memora) {
  EcrireEnregistrement(Fichier(appPath, u"Memora.ini"), memora, kValeursMemora);
}

namespace {

std::optional<AncienneAlarme> AncienneForme(const QByteArray &octets) {
  constexpr qsizetype kPlusLongue = 6;  // line of the present form
  QByteArray ligne = octets.split('\n').constFirst();
  if (ligne.endsWith('\r')) ligne.chop(1);
  if (ligne.size() <= kPlusLongue) return std::nullopt;

  AncienneAlarme lue;
  quint8 abandonnee = 0;
  LecteurEnregistrement lecteur(octets);
  lecteur.Lire(lue.JoursAvance);
  LireValeur(lecteur, lue.alarme.AlerteAvecWindows);
  LireValeur(lecteur, lue.alarme.AlerteAvecProgramme);
  lecteur.Lire(abandonnee);
  LireValeur(lecteur, lue.alarme.AlerteDivers);
  return lue;
}

}  // namespace

std::optional<AncienneAlarme> LireAncienneAlarme(const QString &appPath) {
  const auto octets = LireFichier(Fichier(appPath, u"Alarme.ini"));
  return octets ? AncienneForme(*octets) : std::nullopt;
}

void LireAlarme(const QString &appPath, ReglagesAlarme &alarme) {
  const Lecture lecture = Lire(Fichier(appPath, u"Alarme.ini"), [&](const QByteArray &octets) {
    // Five values are what an upgrade that failed has left; any other long line is a damaged file.
    const auto ancienne = AncienneForme(octets);
    if (ancienne && octets.count(',') == 4)
      alarme = ancienne->alarme;
    else
      PrendreEnregistrement(octets, alarme, kValeursAlarme);
  });
  alarme.NonLu = lecture == Lecture::Manquee;
}

void EcrireAlarme(const QString &appPath, const ReglagesAlarme &alarme) {
  EcrireEnregistrement(Fichier(appPath, u"Alarme.ini"), alarme, kValeursAlarme);
}

QString CheminLiaison(const QString &appPath) {
  return Fichier(appPath, u"Liaison.cfg");
}

QString LireSeparateurTel(const QString &appPath) {
  QString separateur = u" "_s;
  if (const auto octets = LireFichier(CheminLiaison(appPath)))
    LecteurEnregistrement(*octets).Lire(separateur);
  return separateur;
}

void EcrireLiaison(const QString &appPath, const Reglages &reglages) {
  const QString chemin = CheminLiaison(appPath);
  ExigerLu(!reglages.LiaisonNonLue, chemin);
  RedacteurEnregistrement redacteur;
  redacteur.Ecrire(reglages.SeparateurTel);
  redacteur.Ecrire(reglages.LiaisonCP);
  RemplacerFichier(chemin, redacteur.Octets());
}
