#include "directory/AnniversairesProches.h"

#include "directory/Liste.h"
#include "directory/Protection.h"
#include "storage/Tables.h"

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

constexpr int kJours = 30;

/// The days from today on, and the one that is another where the year has not got it.
QStringList Jours(QDate aujourdhui) {
  QStringList jours{u"29/02"_s};
  for (int dans = 0; dans <= kJours; ++dans)
    jours.append(aujourdhui.addDays(dans).toString(u"dd/MM"_s));
  return jours;
}

/// `ligne` is a birth or a whole record.
template <typename L>
void Retenir(Proches &proches, const L &ligne, QDate aujourdhui, const QString &utilisateur) {
  const auto anniversaire = ProchainAnniversaire(ligne.DDN, aujourdhui);
  if (anniversaire && anniversaire->dans <= kJours && EstVisible(ligne.DataProt, utilisateur))
    proches.push_back({ligne.Index, NomListe(ligne.NomVelmira), *anniversaire});
}

Proches EnOrdre(Proches proches) {
  std::ranges::sort(proches, {}, [](const AnniversaireProche &p) {
    return std::tuple(p.anniversaire.dans, p.index);
  });
  if (proches.size() > kLimiteProches) proches.resize(kLimiteProches);
  return proches;
}

}  // namespace

Proches AnniversairesProches(Base &base, QDate aujourdhui, const QString &utilisateur) {
  Proches proches;
  for (const Naissance &naissance : TableAdresse(base).Naissances(Jours(aujourdhui)))
    Retenir(proches, naissance, aujourdhui, utilisateur);
  return EnOrdre(std::move(proches));
}

Proches AnniversairesProches(Base &base, QDate aujourdhui, const QString &utilisateur,
                             const Proches &avant, const QList<Cle> &changees) {
  Proches proches = avant;
  std::erase_if(proches, [&](const AnniversaireProche &p) { return changees.contains(p.index); });
  for (const Cle cle : changees)
    if (const auto fiche = TableAdresse(base).Lire(cle))
      Retenir(proches, *fiche, aujourdhui, utilisateur);
  return EnOrdre(std::move(proches));
}
