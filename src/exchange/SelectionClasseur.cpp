#include "exchange/SelectionClasseur.h"

#include "directory/ChoixEtendue.h"
#include "exchange/ClasseurVelmiras.h"
#include "ui/Brancheur.h"
#include "ui/CompteRendu.h"
#include "ui/Travail.h"

using namespace Qt::StringLiterals;

namespace {

QString TitreExport() {
  return u"Export Excel"_s;
}

}  // namespace

SelectionClasseur::SelectionClasseur(Session &session, ListeVelmiras &liste, CompteRendu &fait)
    : session_(session), liste_(liste), fait_(fait) {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(&liste_, &ListeVelmiras::ExportDemande, &SelectionClasseur::Exporter);
  brancher(&liste_, &ListeVelmiras::ExportAbandonne, [this] { liste_.MontrerChoix(false); });
}

void SelectionClasseur::Commencer() {
  Boites &boites = session_.plateforme.boites;
  if (liste_.Arbre().Modele().NombreEnfants() == 0) {
    boites.Message(Boites::Genre::Information, TitreExport(), u"Aucune donnée à exporter ."_s);
    return;
  }
  ChoisirEtendue(boites, liste_, TitreExport(), u"exporter"_s);
  boites.Message(Boites::Genre::Information, TitreExport(),
                 u"Décochez les velmiras que vous ne voulez pas exporter"_s);
  liste_.Arbre().CocherTous(true);
  liste_.MontrerChoix(true);
}

void SelectionClasseur::Exporter() {
  const QList<Cle> choisis = liste_.Arbre().Coches();
  const auto chemin =
      Travail(liste_.window(), u"Lecture des velmiras"_s)
          .Executer(session_.base, [&](Base &base, const Avance &avance) {
            return EcrireClasseur(session_.plateforme.classeur, session_.dossiers.Classeurs, base,
                                  choisis, avance);
          });
  if (!chemin) return;  // the choice stands for another try
  liste_.MontrerChoix(false);
  liste_.CliquerRacine();
  fait_.Dire(u"Classeur écrit : %1 velmira(s)"_s.arg(choisis.size()),
             {u"Ouvrir le classeur"_s, *chemin});
  session_.plateforme.coquille.Ouvrir(*chemin);
}
