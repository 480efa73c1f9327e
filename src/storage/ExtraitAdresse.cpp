#include "storage/ExtraitAdresse.h"

#include "storage/Requete.h"
#include "storage/Schema.h"

#include <QStringList>

using namespace Qt::StringLiterals;

bool LigneStockee::Nul(int place) const {
  return requete_.Nul(place);
}

QString LigneStockee::Texte(int place) const {
  return requete_.Texte(place);
}

bool LigneStockee::Vrai(int place) const {
  return requete_.Entier(place) != 0;
}

ExtraitAdresse::ExtraitAdresse(Base &base, std::span<const std::size_t> ordinaux) : base_(base) {
  constexpr Table<Correspondant> kTable;
  QStringList noms;
  for (const std::size_t ordinal : ordinaux)
    noms.append(Entre(NomsColonnes<Correspondant>()[ordinal]));
  const QString selection = u"SELECT "_s + noms.join(u", ") + u" FROM "_s + Nom(kTable);
  parcours_ = selection + OrdreDesCles(kTable);
  parCle_ = selection + ParCle(kTable);
}

bool ExtraitAdresse::PourChaque(const std::function<bool(const LigneStockee &)> &visiteur) const {
  Requete requete(base_, parcours_);
  while (requete.Suivante())
    if (!visiteur(LigneStockee(requete))) return false;
  return true;
}

bool ExtraitAdresse::Lire(Cle index,
                          const std::function<void(const LigneStockee &)> &visiteur) const {
  Requete requete(base_, parCle_);
  if (!requete.Lier(index).Suivante()) return false;
  visiteur(LigneStockee(requete));
  return true;
}
