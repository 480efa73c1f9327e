#include "exchange/SelectionClasseur.h"

#include "directory/ChoixEtendue.h"
#include "ui/Brancheur.h"
#include "ui/Sablier.h"
#include "ui/Travail.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

QString TitreExport() {
  return u"Export Excel"_s;
}

}  // namespace

SelectionClasseur::SelectionClasseur(Session &session, ListeVelmiras &liste, QPushButton *exporter,
                                     QPushButton *annuler, std::function<void()> montrerPremier)
    : session_(session),
      liste_(liste),
      CmdExcel(exporter),
      CmdAnnExp(annuler),
      montrerPremier_(std::move(montrerPremier)),
      classeur_(session.plateforme.classeur) {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(CmdExcel, &SelectionClasseur::Exporter);
  brancher(CmdAnnExp, [this] { MontrerChoix(false); });
  MontrerChoix(false);
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
  MontrerChoix(true);
}

void SelectionClasseur::MontrerChoix(bool montre) {
  CmdExcel->setVisible(montre);
  CmdAnnExp->setVisible(montre);
  liste_.Arbre().MontrerCoches(montre);
}

void SelectionClasseur::Exporter() {
  {
    const Sablier sablier;
    const QList<Cle> choisis = liste_.Arbre().Coches();
    const auto chemin = Travail(CmdExcel->window(), u"Lecture des velmiras"_s)
                            .Executer(session_.base, [&](Base &base, const Avance &avance) {
                              return classeur_.Ecrire(base, choisis, avance);
                            });
    if (!chemin) return;  // the choice stands for another try
    session_.plateforme.coquille.Ouvrir(*chemin);
  }
  MontrerChoix(false);
  montrerPremier_();
}
