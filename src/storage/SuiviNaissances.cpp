#include "storage/SuiviNaissances.h"

#include "storage/Requete.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kBeaucoup = 100;

}  // namespace

void SuiviNaissances::Commencer() {
  for (const auto &enonce :
       {u"CREATE TEMP TABLE IF NOT EXISTS NaissanceTouchee (Cle INTEGER PRIMARY KEY)"_s,
        u"CREATE TEMP TRIGGER IF NOT EXISTS NaissanceAjoutee AFTER INSERT ON main.Adresse "
        "BEGIN INSERT OR IGNORE INTO NaissanceTouchee VALUES (new.[Index]); END"_s,
        u"CREATE TEMP TRIGGER IF NOT EXISTS NaissanceChangee "
        "AFTER UPDATE OF NomVelmira, DDN, DataProt ON main.Adresse "
        "BEGIN INSERT OR IGNORE INTO NaissanceTouchee VALUES (new.[Index]); END"_s,
        u"CREATE TEMP TRIGGER IF NOT EXISTS NaissanceSupprimee AFTER DELETE ON main.Adresse "
        "BEGIN INSERT OR IGNORE INTO NaissanceTouchee VALUES (old.[Index]); END"_s,
        u"DELETE FROM NaissanceTouchee"_s})
    Requete(base_, enonce).Executer();
  changements_ = base_.Changements();
}

std::optional<QList<Cle>> SuiviNaissances::Touchees() {
  if (base_.Changements() != changements_) return std::nullopt;
  Requete requete(base_, u"SELECT Cle FROM NaissanceTouchee LIMIT ?"_s);
  requete.Lier(kBeaucoup);
  QList<Cle> touchees;
  while (requete.Suivante()) touchees.append(requete.Entier(0));
  if (touchees.size() == kBeaucoup) return std::nullopt;
  return touchees;
}
