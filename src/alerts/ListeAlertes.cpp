#include "alerts/ListeAlertes.h"

#include "alerts/PersonnesAlerte.h"
#include "storage/Historique.h"
#include "storage/Noms.h"
#include "ui/Brancheur.h"
#include "ui/Debrancher.h"
#include "ui/Sablier.h"
#include "ui_ListeAlertes.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

const QString kTitre = u"Alertes"_s;
const QString kTrait = u"\n\n"_s + QString(30, u'_') + u"\n\n"_s;

}  // namespace

ListeAlertes::ListeAlertes(QWidget *parent)
    : QWidget(parent), ui_(std::make_unique<Ui::ListeAlertes>()), mnuInvOp_(new QMenu(this)) {
  ui_->setupUi(this);
  mnuInvOp_->setObjectName(u"mnuInvOp"_s);
  mnuInvOp_->addActions({ui_->mnuSupp, ui_->mnumodifier});
}

ListeAlertes::~ListeAlertes() {
  DebrancherEnfants(*this);
}

void ListeAlertes::Relier(Boites &boites, Base &base) {
  boites_ = &boites;
  base_ = &base;
  const Brancheur brancher(boites, this);
  brancher(ui_->TVA, &ArbreAlertes::NoeudClique, &ListeAlertes::Choisir);
  brancher(ui_->TVA, &ArbreAlertes::MenuDemande, [this](QPoint place) {
    if (ui_->TVA->Selection()) mnuInvOp_->popup(place);
  });
  brancher(ui_->ChkAlSeul, &QCheckBox::toggled, &ListeAlertes::Restreindre);
  brancher(ui_->CmdVelmirra, &ListeAlertes::VelmiraDemande);
  brancher(ui_->CmdVelmiraAlerte, &ListeAlertes::AjouterPersonne);
  brancher(ui_->CmdSupprimer, &ListeAlertes::BasculerSuppression);
  brancher(ui_->mnuReinscrire, &ListeAlertes::BasculerReinscription);
  brancher(ui_->mnuSupp, &ListeAlertes::SupprimerSelection);
  brancher(ui_->mnumodifier, &ListeAlertes::ModifierPersonne);
}

QAction *ListeAlertes::ActionReinscrire() const {
  return ui_->mnuReinscrire;
}

void ListeAlertes::Remplir() {
  if (Relire()) emit ChoixPerdu();
}

void ListeAlertes::Actualiser() {
  if (ModeSuppression || ModeReinscription || base_->Changements() == changements_) return;
  const auto choisi = ui_->TVA->Selection();
  Relire();
  if (choisi) ui_->TVA->Retrouver(*choisi);
}

bool ListeAlertes::Relire() {
  const TablesAlertes tables(*base_);
  const qint64 changements = base_->Changements();
  if (ModeReinscription) {
    ui_->TVA->MontrerSupprimees(tables.PersonnesSupprimees());
    return true;
  }
  const auto personnes = tables.Personnes();
  ui_->TVA->Montrer(personnes, ui_->ChkAlSeul->isChecked());
  changements_ = changements;
  emit Relue();
  if (personnes.isEmpty()) return false;
  qsizetype alertes = 0;
  for (const PersonneEvenements &personne : personnes) alertes += personne.evenements.size();
  ui_->LblAlerte->setText(QString::number(alertes) + u" alerte(s) enregistrée(s) sur "_s +
                          QString::number(personnes.size()) + u" velmira(s)"_s);
  return true;
}

void ListeAlertes::ProposerImport() {
  if (PersonnesAlerte(*boites_, *base_).ProposerImport()) Remplir();
}

void ListeAlertes::Choisir(const ArbreAlertes::Noeud &noeud) {
  const bool personne = noeud.Personne() != nullptr;
  ui_->mnuSupp->setText(personne ? u"&Supprimer ce velmira"_s : u"&Supprimer cette alerte"_s);
  ui_->mnumodifier->setVisible(personne);
  emit NoeudChoisi(noeud);
}

void ListeAlertes::Restreindre(bool seulementAlertes) {
  ui_->LblCD->setText(seulementAlertes ? u" Décoc&her pour voir tous les velmiras"_s
                                       : u" Coc&her pour ne voir que les alertes"_s);
  Remplir();
}

void ListeAlertes::AjouterPersonne() {
  if (PersonnesAlerte(*boites_, *base_).Ajouter()) Remplir();
}

void ListeAlertes::ModifierPersonne() {
  const auto noeud = ui_->TVA->Selection();
  const auto rang = ui_->TVA->Rang();
  const auto *personne = noeud ? noeud->Personne() : nullptr;
  if (personne == nullptr || !PersonnesAlerte(*boites_, *base_).Modifier(personne->ID)) return;
  Remplir();
  ui_->TVA->Selectionner(*rang);
}

void ListeAlertes::Supprimer(const QList<ArbreAlertes::Noeud> &noeuds) {
  QList<Cle> personnes, evenements;
  for (const auto &noeud : noeuds)
    if (const auto *personne = noeud.Personne())
      personnes.append(personne->ID);
    else
      evenements.append(noeud.Evenement()->evenement.ID);
  const auto nom = [](const ArbreAlertes::Noeud &noeud) {
    return noeud.Personne() != nullptr ? noeud.Personne()->Nom : noeud.texte;
  };
  const Acte acte(*base_, noeuds.size() == 1
                              ? u"suppression de « %1 » des alertes"_s.arg(nom(noeuds.first()))
                              : u"suppressions dans les alertes"_s);
  SousSablier([&] { TablesAlertes(*base_).Supprimer(personnes, evenements); });
}

void ListeAlertes::SupprimerSelection() {
  const auto noeud = ui_->TVA->Selection();
  if (!noeud) return;
  const QString genre = noeud->Personne() != nullptr ? u"le velmira  "_s : u"l'alerte  "_s;
  if (boites_->Question(u"Confirmation de suppression"_s,
                        u"Supprimer "_s + genre + u'"' + EnCapitales(noeud->texte) + u"\" ?"_s,
                        Boites::Reponse::Non) != Boites::Reponse::Oui)
    return;
  Supprimer({*noeud});
  emit ChoixPerdu();
  Remplir();
}

void ListeAlertes::BasculerSuppression() {
  if (ui_->TVA->topLevelItemCount() == 0) {
    boites_->Message(Boites::Genre::Attention, u"Répertoire Vide"_s,
                     u"Pas d'élément à supprimer !"_s);
    return;
  }
  if (ModeSuppression) {
    SupprimerCoches();
    return;
  }
  ModeSuppression = true;
  ui_->mnuReinscrire->setEnabled(false);
  boites_->Message(Boites::Genre::Information, kTitre,
                   u"Cochez, dans la liste, les velmiras ou alertes à supprimer."_s + kTrait +
                       u"Puis cliquez à nouveau sur le bouton \"Supprimer\""_s);
  ui_->TVA->MettreCases(true);
}

void ListeAlertes::SupprimerCoches() {
  const bool confirme = boites_->Question(kTitre, u"Confirmez la suppression ?"_s,
                                          Boites::Reponse::Non) == Boites::Reponse::Oui;
  if (confirme) Supprimer(ui_->TVA->Coches());
  ModeSuppression = false;
  ui_->mnuReinscrire->setEnabled(true);
  ui_->TVA->MettreCases(false);
  emit ChoixPerdu();
  if (confirme) Remplir();
}

void ListeAlertes::BasculerReinscription() {
  if (!ModeReinscription) {
    const QString intitule = ui_->mnuReinscrire->text().remove(u'&');
    boites_->Message(
        Boites::Genre::Information, intitule,
        u"Dans la liste, qui va apparaitre, des velmiras qui ont été supprimés, cochez ceux que "
        "vous voulez voir de nouveau figurer."_s +
            kTrait + u"Puis cliquez à nouveau sur le menu \""_s + intitule + u'"');
  } else {
    QList<Cle> personnes;
    for (const auto &noeud : ui_->TVA->Coches())
      if (const auto *personne = noeud.Personne()) personnes.append(personne->ID);
    const Acte acte(*base_, u"réinscription dans les alertes"_s);
    SousSablier([&] { TablesAlertes(*base_).Reinscrire(personnes); });
  }
  ModeReinscription = !ModeReinscription;
  ui_->CmdSupprimer->setEnabled(!ModeReinscription);
  ui_->TVA->clear();  // the nodes of one mode mean nothing in the other
  ui_->TVA->MettreCases(ModeReinscription);
  Remplir();
}
