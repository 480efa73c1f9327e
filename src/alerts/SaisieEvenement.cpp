#include "alerts/SaisieEvenement.h"

#include <QCheckBox>
#include <QLabel>
#include <QRegularExpression>

#include <array>

using namespace Qt::StringLiterals;

namespace {

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

}  // namespace

SaisieEvenement::SaisieEvenement(Boites &boites, Base &base, const Horloge &horloge,
                                 const Controles &controles)
    : boites_(boites), base_(base), horloge_(horloge), c_(controles) {
  RemplirListes();
  connect(c_.annuelle, &QCheckBox::toggled, this, [this] { SuivreAnnuelle(); });
  SuivreAnnuelle();
}

void SaisieEvenement::RemplirListes() {
  for (int i = 0; i <= kDelaiMax; ++i) c_.delai->addItem(QString::number(i));
  for (int i = 1; i <= kJourMax; ++i) c_.jour->addItem(QString::number(i));
  c_.mois->addItems({u"JANVIER"_s, u"FEVRIER"_s, u"MARS"_s, u"AVRIL"_s, u"MAI"_s, u"JUIN"_s,
                     u"JUILLET"_s, u"AOUT"_s, u"SEPTEMBRE"_s, u"OCTOBRE"_s, u"NOVEMBRE"_s,
                     u"DECEMBRE"_s});
  const int annee = horloge_.Maintenant().date().year();
  for (int i = 0; i < kAnnees; ++i) c_.annee->addItem(QString::number(annee + i));
  for (QComboBox *liste : {c_.jour, c_.mois, c_.annee, c_.delai}) liste->setCurrentIndex(-1);
}

void SaisieEvenement::SuivreAnnuelle() {
  const bool annuelle = c_.annuelle->isChecked();
  c_.texteAnnuelle->setText(annuelle ? u" A&lerte annuelle (anniversaire,  fête, etc...)"_s
                                     : u" A&lerte ponctuelle (réunion,       etc...)"_s);
  c_.age->setEnabled(annuelle);
  if (!annuelle) c_.age->setChecked(false);
  c_.annee->setEnabled(!annuelle);
  if (annuelle) c_.annee->setCurrentIndex(-1);
}

void SaisieEvenement::Vider() {
  cible_.reset();
  c_.velmira->clear();
  c_.evenement->Vider();
  for (QComboBox *liste : {c_.jour, c_.mois, c_.annee}) liste->setCurrentIndex(-1);
}

void SaisieEvenement::Proposer(Cle personne, const QString &texteNoeud) {
  Vider();
  Evenement nouveau;
  nouveau.Nom = personne;
  cible_ = nouveau;
  c_.velmira->setText(texteNoeud.split(u" ("_s).constFirst() + u"   "_s);
  c_.delai->setCurrentIndex(-1);
  if (!texteNoeud.contains(u':')) return;
  const auto [jour, mois, annee] = Parties(texteNoeud.split(u':').constLast());
  Choisir(c_.jour, jour, 1);
  Choisir(c_.mois, mois, 1);
}

void SaisieEvenement::Montrer(const EvenementJoint &joint) {
  const Evenement &evenement = joint.evenement;
  cible_ = evenement;
  c_.velmira->setText(joint.Nom + u"   "_s);
  c_.evenement->Choisir({evenement.Alerte, joint.Type_alerte, true});
  const auto [jour, mois, annee] = Parties(evenement.Date);
  Choisir(c_.jour, jour, 1);
  Choisir(c_.mois, mois, 1);
  // A year that is not offered any more becomes the current one.
  c_.annee->setCurrentIndex(qMax(0, c_.annee->findText(QString::number(annee))));
  Choisir(c_.delai, evenement.Delai, 0);
  c_.annuelle->setChecked(evenement.Annuel);
  c_.age->setChecked(evenement.Age);
  c_.generer->setChecked(evenement.Actif);
  SuivreAnnuelle();
}

QDate SaisieEvenement::DateChoisie() const {
  const bool cetteAnnee = c_.annuelle->isChecked() && c_.annee->currentIndex() < 0;
  const int annee =
      cetteAnnee ? horloge_.Maintenant().date().year() : c_.annee->currentText().toInt();
  return {annee, c_.mois->currentIndex() + 1, c_.jour->currentIndex() + 1};
}

bool SaisieEvenement::Complet() const {
  return cible_ && !c_.evenement->currentText().trimmed().isEmpty() &&
         c_.delai->currentIndex() >= 0 && DateChoisie().isValid();
}

bool SaisieEvenement::Enregistrer() {
  const bool complet = Complet();
  if (complet) c_.evenement->AjouterSaisie();
  if (!complet || c_.evenement->Type() == 0) {
    boites_.Message(Boites::Genre::Information, u"Alertes"_s,
                    u"Un élément n'est pas renseigné !"_s);
    return false;
  }
  Evenement evenement = *cible_;
  evenement.Alerte = c_.evenement->Type();
  evenement.Date = DateChoisie().toString(u"dd/MM/yyyy"_s);
  evenement.Annuel = c_.annuelle->isChecked();
  evenement.Age = c_.age->isChecked();
  evenement.Delai = c_.delai->currentIndex();
  evenement.Actif = c_.generer->isChecked();
  TablesAlertes tables(base_);
  if (evenement.ID == 0)
    tables.AjouterEvenement(evenement);
  else
    tables.ModifierEvenement(evenement);
  return true;
}
