#include "app/Memora.h"

#include "alerts/FrmNote.h"
#include "platform/Erreurs.h"
#include "ui/Brancheur.h"
#include "ui/Garde.h"
#include "ui/Icones.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QColor>
#include <QEvent>
#include <QPainter>
#include <QPixmap>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

struct Teinte {
  const char16_t *nom, *couleur;
};
constexpr Teinte kTeintes[] = {{u"&Jaune", u"#fff3a3"},  {u"&Vert", u"#cdeec0"},
                               {u"&Bleu", u"#c6e2ff"},   {u"&Rose", u"#ffd0dc"},
                               {u"&Orange", u"#ffd9a8"}, {u"B&lanc", u"#ffffff"}};
constexpr int kTailles[] = {9, 11, 13, 16, 20, 26};

QIcon Pastille(const QColor &couleur) {
  constexpr int kCote = 32;
  QPixmap image(kCote, kCote);
  image.fill(EncreSur(couleur));
  QPainter(&image).fillRect(image.rect().adjusted(2, 2, -2, -2), couleur);
  return image;
}

}  // namespace

Memora::Memora(Boites &boites, const QString &appPath)
    : boites_(boites), notes_(appPath), icone_(IconeProgramme()) {
  FaireMenu();
  qApp->installEventFilter(this);
  icone_.setToolTip(u"Memora"_s);
  icone_.setContextMenu(&menu_);
  connect(&icone_, &QSystemTrayIcon::activated, this,
          Garde(boites_, [this](QSystemTrayIcon::ActivationReason raison) {
            if (raison == QSystemTrayIcon::Trigger) ToutMontrer();
          }));
}

Memora::~Memora() = default;

void Memora::Commencer(bool toutes) {
  if (fenetres_.empty()) {
    icone_.show();
    for (const NoteMemora &note : notes_.Notes()) Ouvrir(note);
    if (!notes_.Ecarte().isEmpty())
      boites_.Attention(
          u"Le fichier des notes était illisible. Il a été mis de côté sous le nom « %1 »."_s.arg(
              notes_.Ecarte()));
  }
  if (toutes) ToutMontrer();
  // A desktop that is starting may bring its tray a little later.
  QTimer::singleShot(30s, this, &Memora::FinirSiInvisible);
}

QAction *Memora::Ajouter(const QString &nom, const QString &texte, void (Memora::*commande)()) {
  QAction *action = menu_.addAction(texte);
  action->setObjectName(nom);
  Brancheur(boites_, this)(action, commande);
  return action;
}

void Memora::FaireMenu() {
  menu_.setObjectName(u"mnuNotes"_s);
  mnuNouveau_ = Ajouter(u"mnuNouveau"_s, u"&Nouveau Memora"_s, &Memora::Nouvelle);
  mnuMasquer_ = Ajouter(u"mnuMasquer"_s, u"&Masquer"_s, &Memora::Masquer);
  Ajouter(u"mnuToutMontrer"_s, u"&Tout afficher"_s, &Memora::ToutMontrer);
  menu_.addSeparator();
  FaireMenuCouleurs();
  FaireMenuTailles();
  menu_.addSeparator();
  mnuSupprimer_ = Ajouter(u"mnuSupprimer"_s, u"&Supprimer"_s, &Memora::Supprimer);
  mnuRendre_ = Ajouter(u"mnuRendre"_s, u"&Annuler la suppression"_s, &Memora::Rendre);
  menu_.addSeparator();
  Ajouter(u"mnuQuitter"_s, u"&Quitter"_s, &Memora::Quitter);
  connect(&menu_, &QMenu::aboutToShow, this, &Memora::MajMenu);
}

void Memora::FaireMenuCouleurs() {
  couleurs_ = menu_.addMenu(u"&Couleur"_s);
  const Brancheur brancher(boites_, this);
  for (const Teinte &teinte : kTeintes)
    brancher(couleurs_->addAction(Pastille(QString::fromUtf16(teinte.couleur)),
                                  QString::fromUtf16(teinte.nom)),
             [this, teinte] {
               if (FrmNote *note = Active())
                 note->ChangerCouleur(QString::fromUtf16(teinte.couleur));
             });
  couleurs_->addSeparator();
  brancher(couleurs_->addAction(u"A&utre..."_s), &Memora::AutreCouleur);
}

void Memora::FaireMenuTailles() {
  tailles_ = menu_.addMenu(u"Taille des ca&ractères"_s);
  for (const int points : kTailles) {
    QAction *action = tailles_->addAction(QString::number(points));
    action->setCheckable(true);
    action->setData(points);
    Brancheur(boites_, this)(action, [this, points] {
      if (FrmNote *note = Active()) note->ChangerPoints(points);
    });
  }
}

void Memora::MajMenu() {
  const FrmNote *note = Active();
  mnuNouveau_->setEnabled(notes_.PeutAjouter());
  mnuRendre_->setEnabled(notes_.PeutRendre());
  mnuMasquer_->setEnabled(note != nullptr && note->isVisible());
  mnuSupprimer_->setEnabled(note != nullptr);
  couleurs_->setEnabled(note != nullptr);
  tailles_->setEnabled(note != nullptr);
  mnuMasquer_->setText(note == nullptr ? u"&Masquer"_s
                                       : u"&Masquer « Memora %1 »"_s.arg(note->Numero()));
  mnuSupprimer_->setText(note == nullptr ? u"&Supprimer"_s
                                         : u"&Supprimer « Memora %1 »"_s.arg(note->Numero()));
  for (QAction *action : tailles_->actions())
    action->setChecked(note != nullptr && action->data().toInt() == note->Note().points);
}

FrmNote *Memora::Active() const {
  const auto place = fenetres_.find(active_);
  if (place != fenetres_.end()) return place->second.get();
  return fenetres_.empty() ? nullptr : fenetres_.begin()->second.get();
}

void Memora::Ouvrir(const NoteMemora &note) {
  auto &fenetre = fenetres_[note.numero];
  fenetre = std::make_unique<FrmNote>(note);
  const Brancheur brancher(boites_, this);
  connect(fenetre.get(), &FrmNote::Changee, this, &Memora::Garder);
  connect(fenetre.get(), &FrmNote::Activee, this, [this](int numero) { active_ = numero; });
  brancher(fenetre.get(), &FrmNote::MasquageDemande, &Memora::MasquerNote);
  brancher(fenetre.get(), &FrmNote::MenuDemande, &Memora::MontrerMenu);
  if (note.montree) fenetre->show();
}

void Memora::MontrerMenu(int numero, QPoint place, QMenu *texte) {
  active_ = numero;
  MajMenu();
  texte->setTitle(u"Te&xte"_s);
  texte->setAttribute(Qt::WA_DeleteOnClose, false);
  const std::unique_ptr<QMenu> garde(texte);
  QMenu ensemble(fenetres_.at(numero).get());
  ensemble.addActions(menu_.actions());
  ensemble.addSeparator();
  ensemble.addMenu(texte);
  ensemble.exec(place);
}

void Memora::Garder(const NoteMemora &note) {
  try {
    notes_.Changer(note);
    echecDit_ = false;
  } catch (const Erreur &erreur) {
    if (!std::exchange(echecDit_, true)) boites_.Erreur(erreur.Texte());
  }
}

void Memora::Nouvelle() {
  const NoteMemora note = notes_.Ajouter();
  Ouvrir(note);
  active_ = note.numero;
  fenetres_[note.numero]->activateWindow();
}

void Memora::Masquer() {
  if (const FrmNote *note = Active()) MasquerNote(note->Numero());
}

void Memora::MasquerNote(int numero) {
  fenetres_.at(numero)->Montrer(false);
  FinirSiInvisible();
}

void Memora::ToutMontrer() {
  if (fenetres_.empty()) Nouvelle();
  for (const auto &[numero, fenetre] : fenetres_) fenetre->Montrer(true);
}

void Memora::AutreCouleur() {
  FrmNote *note = Active();
  if (note == nullptr) return;
  const QColor avant(note->Note().couleur);
  const auto choix = boites_.ChoixCouleur({avant.red(), avant.green(), avant.blue()});
  if (choix) note->ChangerCouleur(QColor(choix->rouge, choix->vert, choix->bleu).name());
}

void Memora::Supprimer() {
  const FrmNote *note = Active();
  if (note == nullptr) return;
  const int numero = note->Numero();
  fenetres_.at(numero)->Poser();
  notes_.Supprimer(numero);
  // Later: the menu may have come from it.
  fenetres_.at(numero).release()->deleteLater();
  fenetres_.erase(numero);
}

void Memora::Rendre() {
  const NoteMemora note = notes_.Rendre();
  Ouvrir(note);
  active_ = note.numero;
}

void Memora::Quitter() {
  for (const auto &[numero, fenetre] : fenetres_) {
    fenetre->Poser();
    Garder(fenetre->Note());  // what could not be written before
  }
  emit Termine();
}

bool Memora::eventFilter(QObject *, QEvent *evenement) {
  if (evenement->type() != QEvent::Quit) return false;
  Quitter();
  return true;
}

void Memora::FinirSiInvisible() {
  const bool visible = std::ranges::any_of(
      fenetres_, [](const auto &fenetre) { return fenetre.second->isVisible(); });
  if (!visible && !QSystemTrayIcon::isSystemTrayAvailable()) emit Termine();
}
