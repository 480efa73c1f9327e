#include "envelope/ListeExpediteurs.h"

#include "envelope/ExpediteurDefaut.h"
#include "storage/Tables.h"
#include "ui/Garde.h"

#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

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
  setCurrentItem(aChoisir != nullptr ? aChoisir : defaut);
}

std::optional<Cle> ListeExpediteurs::Choisi() const {
  const auto choisis = selectedItems();
  if (choisis.isEmpty()) return std::nullopt;
  return Index(choisis.first());
}

Cle ListeExpediteurs::Defaut() const {
  for (int i = 1; i < count(); ++i)
    if (item(i)->checkState() == Qt::Checked) return Index(item(i));
  return 0;
}

void ListeExpediteurs::SupprimerChoisi() {
  const QListWidgetItem *element = selectedItems().first();
  TableExpediteur(session_->base).Supprimer(Index(element));
  if (element->checkState() == Qt::Checked) OublierExpediteurDefaut(session_->dossiers.AppPath);
  const QSignalBlocker silence(this);
  delete element;
  clearSelection();
}

void ListeExpediteurs::Cocher(QListWidgetItem *element) {
  const bool coche = element->checkState() == Qt::Checked;
  const QString &appPath = session_->dossiers.AppPath;
  TableExpediteur table(session_->base);
  const auto expediteur = table.Lire(Index(element));
  const AdresseComposee adresse =
      expediteur ? ComposerAdresse(AdresseSaisie::De(*expediteur)) : AdresseComposee();
  {
    const QSignalBlocker silence(this);
    for (int i = 0; i < count(); ++i)
      if (item(i) != element) item(i)->setCheckState(Qt::Unchecked);
  }
  table.ChoisirDefaut(coche ? Index(element) : 0);
  if (coche)
    EcrireExpediteurDefaut(appPath, adresse);
  else
    OublierExpediteurDefaut(appPath);
  change_(adresse);
}
