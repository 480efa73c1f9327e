#include "alerts/ListeAlertes.h"

#include "alerts/SaisieEvenement.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString kTitre = u"Alertes"_s;
const QString kTrait = u"\n\n"_s + QString(30, u'_') + u"\n\n"_s;

}  // namespace

void ListeAlertes::RemplirTVA() {
  const TablesAlertes tables(base_);
  if (ModeReinscription) {
    c_.arbre->MontrerSupprimees(tables.PersonnesSupprimees());
    saisie_.Vider();
    return;
  }
  const auto personnes = tables.Personnes();
  c_.arbre->Montrer(personnes, c_.seulementAlertes->isChecked());
  if (personnes.isEmpty()) return;
  saisie_.Vider();
  qsizetype alertes = 0;
  for (const PersonneEvenements &personne : personnes) alertes += personne.evenements.size();
  c_.compte->setText(QString::number(alertes) + u" alerte(s) enregistrée(s) sur "_s +
                     QString::number(personnes.size()) + u" velmira(s)"_s);
}

void ListeAlertes::Supprimer(const QList<ArbreAlertes::Noeud> &noeuds) {
  QList<Cle> personnes, evenements;
  for (const auto &noeud : noeuds) (noeud.personne ? personnes : evenements).append(noeud.cle);
  TablesAlertes(base_).Supprimer(personnes, evenements);
}

void ListeAlertes::SupprimerSelection() {
  const auto noeud = c_.arbre->Selection();
  if (!noeud) return;
  const QString genre = noeud->personne ? u"le velmira  "_s : u"l'alerte  "_s;
  if (boites_.Question(u"Confirmation de suppression"_s,
                       u"Supprimer "_s + genre + u'"' + noeud->texte.toUpper() + u"\" ?"_s,
                       Boites::Reponse::Non) != Boites::Reponse::Oui)
    return;
  Supprimer({*noeud});
  saisie_.Vider();
  RemplirTVA();
}

void ListeAlertes::BasculerSuppression() {
  if (c_.arbre->topLevelItemCount() == 0) {
    boites_.Message(Boites::Genre::Attention, u"Répertoire Vide"_s,
                    u"Pas d'élément à supprimer !"_s);
    return;
  }
  if (ModeSuppression) {
    SupprimerCoches();
    return;
  }
  ModeSuppression = true;
  c_.reinscrire->setEnabled(false);
  boites_.Message(Boites::Genre::Information, kTitre,
                  u"Cochez, dans la liste, les velmiras ou alertes à supprimer."_s + kTrait +
                      u"Puis cliquez à nouveau sur le bouton \"Supprimer\""_s);
  c_.arbre->MettreCases(true);
}

void ListeAlertes::SupprimerCoches() {
  const bool confirme = boites_.Question(kTitre, u"Confirmez la suppression ?"_s,
                                         Boites::Reponse::Non) == Boites::Reponse::Oui;
  if (confirme) Supprimer(c_.arbre->Coches());
  ModeSuppression = false;
  c_.reinscrire->setEnabled(true);
  c_.arbre->MettreCases(false);
  saisie_.Vider();
  if (confirme) RemplirTVA();
}

void ListeAlertes::BasculerReinscription() {
  if (!ModeReinscription) {
    const QString intitule = c_.reinscrire->text().remove(u'&');
    boites_.Message(
        Boites::Genre::Information, intitule,
        u"Dans la liste, qui va apparaitre, des velmiras qui ont été supprimés, cochez ceux que "
        "vous voulez voir de nouveau figurer."_s +
            kTrait + u"Puis cliquez à nouveau sur le menu \""_s + intitule + u'"');
  } else {
    QList<Cle> personnes;
    for (const auto &noeud : c_.arbre->Coches()) personnes.append(noeud.cle);
    TablesAlertes(base_).Reinscrire(personnes);
  }
  ModeReinscription = !ModeReinscription;
  c_.supprimer->setEnabled(!ModeReinscription);
  c_.arbre->clear();  // the nodes of one mode mean nothing in the other
  c_.arbre->MettreCases(ModeReinscription);
  RemplirTVA();
}
