#include "exchange/SelectionClasseur.h"

#include "directory/ChoixEtendue.h"
#include "exchange/ClasseurVelmiras.h"
#include "ui/Avancement.h"
#include "ui/Garde.h"
#include "ui/Sablier.h"

#include <QPushButton>
#include <QTemporaryDir>

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
      montrerPremier_(std::move(montrerPremier)) {
  Boites &boites = session_.plateforme.boites;
  connect(CmdExcel, &QPushButton::clicked, this, Garde(boites, [this](bool) { Exporter(); }));
  connect(CmdAnnExp, &QPushButton::clicked, this,
          Garde(boites, [this](bool) { MontrerChoix(false); }));
  MontrerChoix(false);
}

SelectionClasseur::~SelectionClasseur() = default;

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
    const TableAdresse table(session_.base);
    const QList<Cle> choisis = liste_.Arbre().Coches();
    Avancement avancement(CmdExcel->window(), u"Lecture des velmiras"_s, choisis.size());
    QList<Correspondant> velmiras;
    for (qsizetype i = 0; i < choisis.size(); ++i) {
      if (!avancement.Montrer(i)) return;  // the choice stands for another try
      if (auto velmira = table.Lire(choisis[i])) velmiras.append(std::move(*velmira));
    }

    // A folder of its own each time: a spreadsheet that shows the workbook before would show it
    // again.
    auto dossier = std::make_unique<QTemporaryDir>();
    const QString chemin = dossier->filePath(u"Velmira.xlsx"_s);
    session_.plateforme.classeur.Ecrire(chemin, FeuilleVelmiras(velmiras));
    dossier_ = std::move(dossier);
    session_.plateforme.coquille.Ouvrir(chemin);
  }
  MontrerChoix(false);
  montrerPremier_();
}
