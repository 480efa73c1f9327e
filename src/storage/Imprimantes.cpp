#include "storage/Imprimantes.h"

#include <QStringList>

#include <cmath>
#include <tuple>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

template <typename Valeur>
struct CleReglage {
  const char16_t *nom;
  Valeur ReglagesPlomex::*valeur;
};
template <typename Valeur>
CleReglage(const char16_t *, Valeur ReglagesPlomex::*) -> CleReglage<Valeur>;

/// By the names that they have in `Plomex.ini`.
constexpr auto kReglages = [] {
  using P = ReglagesPlomex;
  return std::tuple{CleReglage{u"Orientation", &P::Orientation},
                    CleReglage{u"Bord imprimé", &P::BordImprime},
                    CleReglage{u"Position enveloppe", &P::PositionEnveloppe},
                    CleReglage{u"MargeHaute", &P::MargeHaute},
                    CleReglage{u"MargeDroite", &P::MargeDroite},
                    CleReglage{u"MargeMAX", &P::MargeMAX},
                    CleReglage{u"MargeMAY", &P::MargeMAY},
                    CleReglage{u"MargeMEX", &P::MargeMEX},
                    CleReglage{u"MargeMEY", &P::MargeMEY}};
}();

const QString kPapier = u"Papier"_s, kListe = u"Corriger la liste"_s;

/// A name may hold characters that no section and no code page has.
QString Section(const QString &appareil) {
  return QString::fromLatin1(appareil.toUtf8().toPercentEncoding(" /"));
}

QString CleCorrection(const Papier &papier) {
  return u"Correction "_s + papier.Nom();
}

double VersNombre(Millimetres valeur) {
  return std::round(valeur.valeur);
}
template <typename Enum>
double VersNombre(Enum valeur) {
  return static_cast<double>(valeur);
}

/// A number outside of an enum stays what it is.
void Prendre(int nombre, Millimetres &valeur) {
  valeur = Millimetres(nombre);
}
template <typename Enum>
void Prendre(int nombre, Enum &valeur) {
  valeur = static_cast<Enum>(static_cast<std::underlying_type_t<Enum>>(nombre));
}

}  // namespace

Imprimantes::Imprimantes(const QString &appPath) : fichier_(appPath, u"Imprimantes.ini"_s) {}

bool Imprimantes::EstReglee(const QString &appareil) const {
  return fichier_.Nombre(Section(appareil), u"Orientation"_s, 0) > 0;
}

ReglagesPlomex Imprimantes::Reglages(const QString &appareil, ReglagesPlomex plomex) const {
  plomex.Imprimante = appareil;
  if (!EstReglee(appareil)) return plomex;
  const auto lire = [&](const auto &cle) {
    Prendre(fichier_.Nombre(Section(appareil), QString::fromUtf16(cle.nom), 0), plomex.*cle.valeur);
  };
  std::apply([&](const auto &...cle) { (lire(cle), ...); }, kReglages);
  return plomex;
}

PapierEnveloppe Imprimantes::PapierDe(const QString &appareil) const {
  switch (fichier_.Nombre(Section(appareil), kPapier, 0)) {
    case static_cast<int>(PapierEnveloppe::GrandCote):
      return PapierEnveloppe::GrandCote;
    case static_cast<int>(PapierEnveloppe::PetitCote):
      return PapierEnveloppe::PetitCote;
    default:
      return PapierEnveloppe::FeuilleA4;
  }
}

void Imprimantes::Garder(const ReglagesPlomex &plomex, PapierEnveloppe papier) {
  Preferences::Valeurs valeurs{{kPapier, QString::number(static_cast<int>(papier))}};
  std::apply(
      [&](const auto &...cle) {
        (valeurs.append({QString::fromUtf16(cle.nom),
                         QString::number(VersNombre(plomex.*cle.valeur), 'f', 0)}),
         ...);
      },
      kReglages);
  fichier_.Ecrire(Section(plomex.Imprimante), valeurs);
}

Correction Imprimantes::CorrectionDe(const QString &appareil, const Papier &papier) const {
  const QStringList nombres =
      fichier_.Texte(Section(appareil), CleCorrection(papier)).split(u' ', Qt::SkipEmptyParts);
  if (nombres.size() != 4) return {};
  const Correction lue{nombres[0].toDouble(),
                       nombres[1].toDouble(),
                       {Millimetres(nombres[2].toDouble()), Millimetres(nombres[3].toDouble())}};
  // No printer is so far off; what was changed by hand must not print beside every sheet.
  constexpr double kPetite = 0.5, kGrande = 2, kLoin = 200;
  const auto sensee = [](double echelle, Millimetres decalage) {
    return echelle > kPetite && echelle < kGrande && std::abs(decalage.valeur) < kLoin;
  };
  return sensee(lue.echelleX, lue.decalage.x) && sensee(lue.echelleY, lue.decalage.y)
             ? lue
             : Correction();
}

void Imprimantes::Garder(const QString &appareil, const Papier &papier,
                         const Correction &correction) {
  const auto texte = [](double nombre) { return QString::number(nombre, 'f', 5); };
  const QString valeur =
      correction == Correction()
          ? QString()
          : QStringList{texte(correction.echelleX), texte(correction.echelleY),
                        texte(correction.decalage.x.valeur), texte(correction.decalage.y.valeur)}
                .join(u' ');
  fichier_.Ecrire(Section(appareil), {{CleCorrection(papier), valeur}});
}

bool Imprimantes::CorrigeListe(const QString &appareil) const {
  return fichier_.Nombre(Section(appareil), kListe, 0) == 1;
}

void Imprimantes::CorrigerListe(const QString &appareil, bool corriger) {
  fichier_.Ecrire(Section(appareil), {{kListe, QString::number(corriger ? 1 : 0)}});
}
