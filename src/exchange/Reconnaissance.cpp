#include "exchange/Reconnaissance.h"

#include "directory/Protection.h"
#include "platform/Saisie.h"
#include "storage/ExtraitAdresse.h"
#include "storage/Noms.h"
#include "storage/Tables.h"

#include <QStringList>

#include <array>
#include <utility>

namespace {

using L = Correspondant;

constexpr std::array kAdresses{&L::Mail, &L::Tel, &L::TelTravail, &L::Portable, &L::Fax};

/// Short ones are those of services, which many have.
QString Nue(const L &fiche, QString L::*champ) {
  constexpr qsizetype kPlusCourt = 6;
  const QString nue = champ == &L::Mail ? SansEcriture(fiche.*champ) : NumeroNu(fiche.*champ);
  return nue.size() < kPlusCourt ? QString() : nue;
}

QString NomConnu(const QString &nom) {
  return EnCapitales(SansBlancs(nom));
}

std::size_t Empreinte(const QString &cleNom, const L &fiche) {
  std::size_t empreinte = qHash(cleNom);
  for (const auto champ : kAdresses) empreinte = qHash(NumeroNu(fiche.*champ), empreinte);
  return empreinte;
}

}  // namespace

Reconnaissance::Reconnaissance(Base &base, const QString &utilisateur, LecturePhoto lirePhoto)
    : base_(base), utilisateur_(utilisateur), lirePhoto_(std::move(lirePhoto)) {
  constexpr std::array kLues{
      Ordinal(&L::Index), Ordinal(&L::NomVelmira), Ordinal(&L::DataProt), Ordinal(&L::Mail),
      Ordinal(&L::Tel),   Ordinal(&L::TelTravail), Ordinal(&L::Portable), Ordinal(&L::Fax)};
  ExtraitAdresse(base, kLues).PourChaque([&](const LigneStockee &ligne) {
    L fiche;
    fiche.NomVelmira = ligne.Texte(1);
    fiche.DataProt = ligne.Texte(2);
    int place = 3;
    for (const auto champ : kAdresses) fiche.*champ = ligne.Texte(place++);
    const bool visible = EstVisible(fiche.DataProt, utilisateur_);
    Noter(fiche, !visible, ligne.Texte(0).toLongLong());
    if (visible) NoterAdresses(fiche);
    return true;
  });
}

void Reconnaissance::Commencer(const FichierRepris &fichier) {
  roles_.clear();
  ligneALigne_ = fichier.base != nullptr;
}

bool Reconnaissance::EstCachee(const L &fiche) const {
  return ligneALigne_ && !EstVisible(fiche.DataProt, utilisateur_);
}

QString Reconnaissance::Marque(const L &fiche) const {
  return ligneALigne_ || EstVisible(fiche.DataProt, utilisateur_) ? fiche.DataProt : utilisateur_;
}

QString Reconnaissance::CleNom(const L &fiche, bool cachee) const {
  return (cachee ? fiche.DataProt : QString()) + QChar::Null + NomConnu(fiche.NomVelmira);
}

QList<Cle> Reconnaissance::DeCeNom(const L &fiche) const {
  return noms_.value(CleNom(fiche, EstCachee(fiche)));
}

void Reconnaissance::Noter(const L &fiche, bool cachee, Cle cle) {
  const QString nom = CleNom(fiche, cachee);
  noms_[nom].append(cle);
  semblables_.insert(Empreinte(nom, fiche), cle);
}

QList<Cle> Reconnaissance::Candidates(const L &fiche) const {
  constexpr qsizetype kHomonymes = 50;  // more are no name, but a word that a table puts there
  const QString nom = CleNom(fiche, EstCachee(fiche));
  const QList<Cle> tous = noms_.value(nom);
  if (tous.size() <= kHomonymes) return tous;
  QList<Cle> candidates;
  for (auto [semblable, fin] = semblables_.equal_range(Empreinte(nom, fiche));
       semblable != fin && candidates.size() < kHomonymes; ++semblable)
    candidates.append(*semblable);
  return candidates + tous.first(kHomonymes);
}

std::optional<Reconnue> Reconnaissance::Chercher(const PersonneImportee &personne, Deja deja) {
  std::optional<Reconnue> libre, prise;
  for (const Cle cle : Candidates(personne.fiche)) {
    const auto role = roles_.constFind(cle);
    const bool occupee = role != roles_.cend();
    if (occupee && ligneALigne_) continue;
    const auto presente = TableAdresse(base_).Lire(cle);
    if (!presente) continue;
    const Confrontation faite = Confronter(*presente, personne, lirePhoto_);
    if (faite.Pareils() && (deja != Deja::Prendre || faite.ecarts.none())) {
      if (!occupee) Prendre(cle);
      return Reconnue{Reconnue::Lien::Pareille, *presente, faite};
    }
    if (!occupee) {
      if (!libre) libre = {Reconnue::Lien::Libre, *presente, faite};
    } else if (!prise && (faite.ecarts & ~faite.notees).none() &&
               (*role == Role::Ajoutee || deja == Deja::Completer)) {
      prise = {Reconnue::Lien::Prise, *presente, faite};
    }
  }
  return libre ? libre : prise;
}

void Reconnaissance::Ajouter(const L &fiche, Cle cle) {
  const bool cachee = EstCachee(fiche);
  Noter(fiche, cachee, cle);
  if (!cachee) NoterAdresses(fiche);
  roles_.insert(cle, Role::Ajoutee);
}

std::optional<std::pair<QString, QString>> Reconnaissance::MemeAdresse(const L &fiche) const {
  const QString nom = NomConnu(fiche.NomVelmira);
  for (const auto champ : kAdresses) {
    const auto autre = adresses_.constFind(Nue(fiche, champ));
    if (autre != adresses_.cend() && NomConnu(*autre) != nom)
      return std::pair(*autre, fiche.*champ);
  }
  return std::nullopt;
}

void Reconnaissance::NoterAdresses(const L &fiche) {
  for (const auto champ : kAdresses)
    if (const QString adresse = Nue(fiche, champ);
        !adresse.isEmpty() && !adresses_.contains(adresse))
      adresses_.insert(adresse, fiche.NomVelmira);
}
