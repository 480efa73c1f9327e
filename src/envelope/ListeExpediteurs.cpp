#include "envelope/ListeExpediteurs.h"

#include "envelope/ExpediteurDefaut.h"
#include "storage/Conflits.h"
#include "storage/Tables.h"
#include "ui/Garde.h"
#include "ui/Sablier.h"

#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

const QString kAucun = u"aucun"_s;

Cle Index(const QListWidgetItem *element) {
  return element->data(Qt::UserRole).toLongLong();
}

}  // namespace

ListeExpediteurs::ListeExpediteurs(QWidget *parent) : QListWidget(parent) {}

void ListeExpediteurs::Relier(Session &session,
                              std::function<void(const AdresseComposee &)> change) {
  session_ = &session;
  change_ = std::move(change);
  connect(this, &QListWidget::itemChanged, this,
          Garde(session.plateforme.boites, [this](QListWidgetItem *element) { Cocher(element); }));
}

void ListeExpediteurs::Remplir(std::optional<Cle> choisi) {
  const QSignalBlocker silence(this);
  clear();
  const auto ajouter = [this](const QString &texte, Cle index, bool coche) {
    auto *element = new QListWidgetItem(texte, this);
    element->setData(Qt::UserRole, index);
    element->setCheckState(coche ? Qt::Checked : Qt::Unchecked);
    return element;
  };
  QListWidgetItem *personne =
      ajouter(session_->reglages.plomex.NePas ? u"Ne jamais imprimer l'expéditeur"_s
                                              : u"Ne pas imprimer l'expéditeur "_s,
              0, false);
  QListWidgetItem *defaut = nullptr, *aChoisir = nullptr;
  for (const Expediteur &e : TableExpediteur(session_->base).Tous()) {
    QListWidgetItem *element = ajouter(e.Ligne1, e.Index, e.ParDefaut && defaut == nullptr);
    if (element->checkState() == Qt::Checked) defaut = element;
    if (e.Index == choisi) aChoisir = element;
  }
  if (defaut == nullptr) {
    personne->setCheckState(Qt::Checked);
    defaut = personne;
  }
  coche_ = Index(defaut);
  setCurrentItem(aChoisir != nullptr ? aChoisir : defaut);
}

std::optional<Cle> ListeExpediteurs::Choisi() const {
  const auto choisis = selectedItems();
  if (choisis.isEmpty()) return std::nullopt;
  return Index(choisis.first());
}

Cle ListeExpediteurs::Defaut() const {
  return coche_.value_or(0);
}

Boites::Choix ListeExpediteurs::AccorderDefaut(
    const QString &nom, const std::function<std::optional<Cle>(Cle montre)> &ecrire) {
  auto choix = Boites::Choix::Oui;
  Cle montre = Defaut();
  while (const auto autre = SousSablier([&] { return ecrire(montre); })) {
    const auto sien = TableExpediteur(session_->base).Lire(*autre);
    choix = session_->plateforme.boites.QuestionAnnulable(
        Boites::Titre(),
        TexteConflit({{u"Expéditeur par défaut"_s, nom, sien ? sien->Ligne1 : kAucun}}));
    // Behind the click that has asked for it, whose item would go.
    QMetaObject::invokeMethod(this, Garde(session_->plateforme.boites, [this] { Relire(); }),
                              Qt::QueuedConnection);
    if (choix != Boites::Choix::Oui) break;
    montre = *autre;
  }
  return choix;
}

void ListeExpediteurs::Relire() {
  const bool aucuneCoche = !coche_;
  Remplir(Choisi());
  if (aucuneCoche && coche_ == 0) MontrerCoche(std::nullopt);
  emit itemSelectionChanged();
}

void ListeExpediteurs::SupprimerChoisi() {
  const QListWidgetItem *element = selectedItems().first();
  SousSablier([&] { TableExpediteur(session_->base).Supprimer(Index(element)); });
  if (coche_ == Index(element)) {
    OublierExpediteurDefaut(session_->dossiers.AppPath);
    coche_.reset();
  }
  const QSignalBlocker silence(this);
  delete element;
  clearSelection();
}

void ListeExpediteurs::Cocher(QListWidgetItem *element) {
  const bool coche = element->checkState() == Qt::Checked;
  const Cle index = Index(element), voulu = coche ? index : 0;
  MontrerCoche(coche_);  // until it is written
  TableExpediteur table(session_->base);
  const auto choix = AccorderDefaut(voulu != 0 ? element->text() : kAucun,
                                    [&](Cle montre) { return table.ChangerDefaut(montre, voulu); });
  if (choix == Boites::Choix::Annuler) return;
  if (choix == Boites::Choix::Oui)
    Suivre(index, coche);
  else if (const Cle sien = table.Defaut())
    Suivre(sien, true);
}

void ListeExpediteurs::Suivre(Cle index, bool coche) {
  const auto expediteur = TableExpediteur(session_->base).Lire(index);
  const AdresseComposee adresse =
      expediteur ? ComposerAdresse(AdresseSaisie::De(*expediteur)) : AdresseComposee();
  MontrerCoche(coche ? std::optional(index) : std::nullopt);
  if (coche)
    EcrireExpediteurDefaut(session_->dossiers.AppPath, adresse);
  else
    OublierExpediteurDefaut(session_->dossiers.AppPath);
  change_(adresse);
}

void ListeExpediteurs::MontrerCoche(std::optional<Cle> coche) {
  const QSignalBlocker silence(this);
  for (int i = 0; i < count(); ++i)
    item(i)->setCheckState(Index(item(i)) == coche ? Qt::Checked : Qt::Unchecked);
  coche_ = coche;
}
