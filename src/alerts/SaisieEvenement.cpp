#include "alerts/SaisieEvenement.h"

#include "alerts/ComboEvenements.h"
#include "storage/Historique.h"
#include "storage/Noms.h"
#include "ui/Accord.h"
#include "ui/Brancheur.h"
#include "ui/Debrancher.h"
#include "ui/Sablier.h"
#include "ui_SaisieEvenement.h"

#include <QCheckBox>
#include <QComboBox>
#include <QRegularExpression>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString kTitre = u"Alertes"_s;
constexpr int kDelaiMax = 31, kJourMax = 31, kAnnees = 5;

/// Day, month and year of a stored date; 0 for what it lacks.
std::array<int, 3> Parties(const QString &date) {
  static const QRegularExpression kEntre(u"\\D+"_s);
  std::array<int, 3> parties{};
  const QStringList nombres = date.trimmed().split(kEntre);
  for (std::size_t i = 0; i < parties.size() && static_cast<qsizetype>(i) < nombres.size(); ++i)
    parties[i] = nombres[static_cast<qsizetype>(i)].toInt();
  return parties;
}

/// What the list lacks leaves it without a selection.
void Choisir(QComboBox *liste, int valeur, int premiere) {
  const int index = valeur - premiere;
  liste->setCurrentIndex(index >= 0 && index < liste->count() ? index : -1);
}

Libelles<Evenement> LibellesEvenement(const TablesAlertes &tables) {
  const auto type = [&tables](const Evenement &evenement) {
    const auto types = tables.Types();
    const auto trouve = std::ranges::find(types, evenement.Alerte, &TypeAlerte::ID);
    return trouve == types.end() ? QString() : trouve->Type_alerte;
  };
  return {{Ordinal(&Evenement::Alerte), {u"Evènement"_s, type}},
          {Ordinal(&Evenement::Date), {u"Date de l'évènement"_s}},
          {Ordinal(&Evenement::Annuel), {u"Alerte annuelle"_s}},
          {Ordinal(&Evenement::Age), {u"Indiquer âge dans l'alerte"_s}},
          {Ordinal(&Evenement::Delai), {u"Début de l'alerte avant la date, en jours"_s}},
          {Ordinal(&Evenement::Actif), {u"Générer une alerte"_s}}};
}

}  // namespace

SaisieEvenement::SaisieEvenement(QWidget *parent)
    : QGroupBox(parent), ui_(std::make_unique<Ui::SaisieEvenement>()) {
  ui_->setupUi(this);
  connect(ui_->ChkAlAn, &QCheckBox::toggled, this, &SaisieEvenement::SuivreAnnuelle);
  SuivreAnnuelle();
}

SaisieEvenement::~SaisieEvenement() {
  DebrancherEnfants(*this);
}

void SaisieEvenement::Relier(Boites &boites, Base &base, const Horloge &horloge) {
  boites_ = &boites;
  base_ = &base;
  horloge_ = &horloge;
  ui_->CboE->Relier(boites, base);
  RemplirListes();
  const Brancheur brancher(boites, this);
  brancher(ui_->CmdEnrAlerte, &SaisieEvenement::Enregistrer);
  brancher(ui_->CmdEnrTypeAlerte, &SaisieEvenement::ExpliquerTypes);
  brancher(ui_->CboE, &ComboEvenements::TypeSupprime, &SaisieEvenement::EvenementsChanges);
}

void SaisieEvenement::Charger() {
  ui_->CboE->Charger();
}

void SaisieEvenement::RemplirListes() {
  for (int i = 0; i <= kDelaiMax; ++i) ui_->cboAlerte->addItem(QString::number(i));
  for (int i = 1; i <= kJourMax; ++i) ui_->CboJ->addItem(QString::number(i));
  ui_->CboM->addItems({u"JANVIER"_s, u"FEVRIER"_s, u"MARS"_s, u"AVRIL"_s, u"MAI"_s, u"JUIN"_s,
                       u"JUILLET"_s, u"AOUT"_s, u"SEPTEMBRE"_s, u"OCTOBRE"_s, u"NOVEMBRE"_s,
                       u"DECEMBRE"_s});
  const int annee = horloge_->Maintenant().date().year();
  for (int i = 0; i < kAnnees; ++i) ui_->CboA->addItem(QString::number(annee + i));
  for (QComboBox *liste : {ui_->CboJ, ui_->CboM, ui_->CboA, ui_->cboAlerte})
    liste->setCurrentIndex(-1);
}

void SaisieEvenement::SuivreAnnuelle() {
  const bool annuelle = ui_->ChkAlAn->isChecked();
  ui_->LblAl->setText(annuelle ? u" A&lerte annuelle (anniversaire,  fête, etc...)"_s
                               : u" A&lerte ponctuelle (réunion,       etc...)"_s);
  ui_->ChkAnn->setEnabled(annuelle);
  if (!annuelle) ui_->ChkAnn->setChecked(false);
  ui_->CboA->setEnabled(!annuelle);
  if (annuelle) ui_->CboA->setCurrentIndex(-1);
}

void SaisieEvenement::ChoisirJour(const QString &date) {
  const auto parties = Parties(date);
  Choisir(ui_->CboJ, parties[0], 1);
  Choisir(ui_->CboM, parties[1], 1);
}

void SaisieEvenement::Vider() {
  cible_.reset();
  ui_->LblVelmira->clear();
  ui_->CboE->Vider();
  for (QComboBox *liste : {ui_->CboJ, ui_->CboM, ui_->CboA}) liste->setCurrentIndex(-1);
}

void SaisieEvenement::Proposer(const PersonneAlerte &personne) {
  Vider();
  Evenement nouveau;
  nouveau.Nom = personne.ID;
  cible_ = nouveau;
  // Behind a name with a birth date stand the blanks that part them in the list as well.
  const QString blancs(personne.DDN.isEmpty() ? 3 : 6, u' ');
  ui_->LblVelmira->setText(EnCapitales(personne.Nom) + blancs);
  ui_->cboAlerte->setCurrentIndex(-1);
  if (!personne.DDN.isEmpty()) ChoisirJour(personne.DDN);
  depart_ = Champs();
}

void SaisieEvenement::Montrer(const EvenementJoint &joint) {
  const Evenement &evenement = joint.evenement;
  cible_ = evenement;
  ui_->LblVelmira->setText(joint.Nom + u"   "_s);
  ui_->CboE->Choisir({evenement.Alerte, joint.Type_alerte, true});
  ChoisirJour(evenement.Date);
  // A year that is not offered any more becomes the current one.
  ui_->CboA->setCurrentIndex(
      qMax(0, ui_->CboA->findText(QString::number(Parties(evenement.Date)[2]))));
  Choisir(ui_->cboAlerte, evenement.Delai, 0);
  ui_->ChkAlAn->setChecked(evenement.Annuel);
  ui_->ChkAnn->setChecked(evenement.Age);
  ui_->ChkGA->setChecked(evenement.Actif);
  SuivreAnnuelle();
  affiche_ = Saisi().value_or(evenement);
  depart_ = Champs();
}

QStringList SaisieEvenement::Champs() const {
  QStringList champs;
  for (const QComboBox *liste : findChildren<QComboBox *>()) champs.append(liste->currentText());
  for (const QCheckBox *coche : findChildren<QCheckBox *>())
    champs.append(QString::number(coche->isChecked()));
  return champs;
}

bool SaisieEvenement::EstEntamee() const {
  return cible_ && Champs() != depart_;
}

QDate SaisieEvenement::DateChoisie() const {
  const int mois = ui_->CboM->currentIndex() + 1, jour = ui_->CboJ->currentIndex() + 1;
  const bool cetteAnnee = ui_->ChkAlAn->isChecked() && ui_->CboA->currentIndex() < 0;
  if (!cetteAnnee) return {ui_->CboA->currentText().toInt(), mois, jour};
  int annee = horloge_->Maintenant().date().year();
  // Due in every year, so it is entered in every year; what is stored has to be a date.
  if (mois == 2 && jour == 29)
    while (!QDate::isLeapYear(annee)) --annee;
  return {annee, mois, jour};
}

std::optional<Evenement> SaisieEvenement::Saisi() const {
  const QDate date = DateChoisie();
  if (!cible_ || ui_->CboE->currentText().trimmed().isEmpty() ||
      ui_->cboAlerte->currentIndex() < 0 || !date.isValid())
    return std::nullopt;
  Evenement evenement = *cible_;
  evenement.Date = date.toString(u"dd/MM/yyyy"_s);
  evenement.Annuel = ui_->ChkAlAn->isChecked();
  evenement.Age = ui_->ChkAnn->isChecked();
  evenement.Delai = ui_->cboAlerte->currentIndex();
  evenement.Actif = ui_->ChkGA->isChecked();
  return evenement;
}

void SaisieEvenement::Enregistrer() {
  const Acte acte(*base_, u"alerte de « %1 »"_s.arg(ui_->LblVelmira->text().trimmed()));
  auto evenement = Saisi();
  if (evenement) ui_->CboE->AjouterSaisie();
  const auto type = ui_->CboE->Type();
  if (!evenement || !type) {
    boites_->Message(Boites::Genre::Information, kTitre, u"Un élément n'est pas renseigné !"_s);
    return;
  }
  evenement->Alerte = *type;
  if (!Ecrire(*evenement)) return;
  depart_ = Champs();
  emit EvenementsChanges();
}

bool SaisieEvenement::Ecrire(const Evenement &saisi) {
  TablesAlertes tables(*base_);
  if (saisi.ID == 0) {
    SousSablier([&] { tables.AjouterEvenement(saisi); });
    return true;
  }
  const auto touchees = Differences(affiche_, saisi);
  // The year of a date is the one of its saving, whether it was touched or not.
  const auto dates = Seulement(&Evenement::Date);
  Evenement change = *cible_;
  Recopier(change, saisi, touchees | dates);
  return EcrireEnAccord(
      *boites_, *cible_, change, LibellesEvenement(tables),
      [&](const Evenement &montre, const Evenement &aEcrire) {
        return SousSablier([&] { return tables.ModifierEvenement(montre, aEcrire); });
      },
      dates & ~touchees);
}

void SaisieEvenement::ExpliquerTypes() {
  boites_->Message(
      Boites::Genre::Information, kTitre,
      u"Chaque nouvelle entrée, écrite dans le zone de saisie de la liste des évènements,\n"
      "est systématiquement enregistrée quand on déroule la liste, ou lorsqu'on enregistre "
      "l'alerte.\n\n"
      "Pour supprimer une entrée de la liste déroulante, il faut :\n\n"
      "o - La sélectionner,\n"
      "o - Puis appuyer sur la touche Suppr (ou Dell) du clavier."_s);
}
