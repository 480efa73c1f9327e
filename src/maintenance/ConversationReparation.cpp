#include "maintenance/ConversationReparation.h"

#include "maintenance/FrmBilan.h"
#include "platform/Erreurs.h"
#include "storage/Reparation.h"
#include "ui/Travail.h"

using namespace Qt::StringLiterals;

namespace {

IssueReparation Conclure(Boites &boites, Coquille &coquille,
                         const std::optional<BilanReparation> &bilan) {
  if (!bilan) {
    boites.Information(
        u"Réparation arrêtée : la base de données est restée telle qu'elle était."_s);
    return IssueReparation::RienFait;
  }
  FrmBilan(boites, coquille, *bilan).exec();
  return bilan->Entier() ? IssueReparation::ToutGarde : IssueReparation::LignesPerdues;
}

}  // namespace

IssueReparation ReparerEnFenetre(Boites &boites, Coquille &coquille, const QString &base,
                                 const QDateTime &maintenant, std::chrono::milliseconds attente) {
  auto issue = IssueReparation::RienFait;
  Signaler(boites, [&] {
    const Travail travail(nullptr, u"Réparation et compactage de la base de données"_s);
    issue = Conclure(boites, coquille, travail.Executer([&](const Avance &avance) {
      return ReparerBase(base, maintenant, attente, avance);
    }));
  });
  return issue;
}
