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

ListeExpediteurs::Ecriture::Ecriture(Session &session, const QString &nom)
    : Acte(session.base, nom) {
  Suivre(CheminDefaut(session.dossiers.AppPath), u"l'expéditeur par défaut"_s, true);
}

ListeExpediteurs::ListeExpediteurs(QWidget *parent) : QListWidget(parent) {}

void ListeExpediteurs::Relier(Session &session, Change change) {
  session_ = &session;
  change_ = std::move(change);
  connect(this, &QListWidget::itemChanged, this,
          Garde(session.plateforme.boites, [this](QListWidgetItem *element) { Cocher(element); }));
}

void ListeExpediteurs::Remplir(std::optional<Cle> choisi) {
  const QList<Expediteur> expediteurs = TableExpediteur(session_->base).Tous();
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
  for (const Expediteur &e : expediteurs) {
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

void ListeExpediteurs::Supprimer(Cle index) {
  TableExpediteur table(session_->base);
  const QString nom = table.Lire(index).value_or(Expediteur()).Ligne1;
  const Ecriture ecriture(*session_, u"suppression de l'expéditeur « %1 »"_s.arg(nom));
  FichierDefaut fichier(session_->dossiers.AppPath);
  SousSablier(
      [&] { table.Supprimer(index, [&](const Expediteur &defaut) { fichier.Suivre(defaut); }); });
  fichier.Garder();
  if (coche_ == index) coche_.reset();
  const QSignalBlocker silence(this);
  for (int i = count() - 1; i >= 0; --i)
    if (Index(item(i)) == index) delete item(i);
  clearSelection();
}

void ListeExpediteurs::AnnoncerDisparu() {
  const auto annoncer = [this] {
    session_->plateforme.boites.Information(TexteExpediteurDisparu());
    Relire();
  };
  QMetaObject::invokeMethod(this, Garde(session_->plateforme.boites, annoncer),
                            Qt::QueuedConnection);
}

void ListeExpediteurs::Cocher(QListWidgetItem *element) {
  const bool coche = element->checkState() == Qt::Checked;
  const Cle index = Index(element), voulu = coche ? index : 0;
  const QString nom = voulu != 0 ? element->text() : kAucun;
  MontrerCoche(coche_);  // until it is written
  TableExpediteur table(session_->base);
  if (index != 0 && !table.Lire(index)) {
    AnnoncerDisparu();
    return;
  }
  Ecriture ecriture(*session_, u"choix de l'expéditeur par défaut"_s);
  FichierDefaut fichier(session_->dossiers.AppPath);
  const auto suivre = [&](const Expediteur &defaut) {
    if (coche && voulu == 0)
      fichier.ChoisirAucun();
    else
      fichier.Suivre(defaut);
  };
  const auto choix =
      AccorderDefaut(nom, [&](Cle montre) { return table.ChangerDefaut(montre, voulu, suivre); });
  if (choix == Boites::Choix::Annuler) return;
  if (choix == Boites::Choix::Oui) {
    fichier.Garder();
    Suivre(index, coche);
  } else {
    ecriture.Oublier();
    SuivreAutre(table.Defaut());
  }
}

void ListeExpediteurs::SuivreAutre(Cle sien) {
  FichierDefaut fichier(session_->dossiers.AppPath);
  fichier.Suivre(TableExpediteur(session_->base).Lire(sien).value_or(Expediteur()));
  fichier.Garder();
  Suivre(sien, sien != 0);
}

void ListeExpediteurs::Suivre(Cle index, bool coche) {
  const auto expediteur = TableExpediteur(session_->base).Lire(index);
  MontrerCoche(coche ? std::optional(index) : std::nullopt);
  change_(expediteur ? ComposerAdresse(AdresseSaisie::De(*expediteur)) : AdresseComposee(), index,
          coche);
}

void ListeExpediteurs::MontrerCoche(std::optional<Cle> coche) {
  const QSignalBlocker silence(this);
  for (int i = 0; i < count(); ++i)
    item(i)->setCheckState(Index(item(i)) == coche ? Qt::Checked : Qt::Unchecked);
  coche_ = coche;
}
