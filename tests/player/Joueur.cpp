#include "player/Joueur.h"

#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "player/Accessibilite.h"
#include "player/Echec.h"
#include "player/Verbes.h"

#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr qint64 kLimite = 60'000;  // milliseconds for one command

/// With the command, as it stands in the scenario, below the reason.
Joueur::Faute FauteDe(const Commande &commande, const QString &raison) {
  return {commande.ligne, raison + u"\n    "_s + commande.texte};
}

}  // namespace

Joueur::Joueur(Application &application, QString fichier, Options options)
    : application_(application), fichier_(std::move(fichier)), options_(std::move(options)) {}

std::optional<Joueur::Faute> Joueur::Jouer() {
  try {
    const auto texte = LireFichier(fichier_);
    Exiger(texte.has_value(), u"the file cannot be read"_s);
    commandes_ = Analyser(QString::fromUtf8(*texte));
    QTemporaryDir temporaire;
    Exiger(options_.monde.isEmpty() ? temporaire.isValid() : QDir().mkpath(options_.monde),
           u"the folder of the world cannot be made"_s);
    Scene scene(application_,
                Monde(options_.monde.isEmpty() ? temporaire.path() : options_.monde,
                      QStringLiteral(VELMIRA_DONNEES), QFileInfo(fichier_).absolutePath()),
                options_.captures);
    scene_ = &scene;
    scene.taille = options_.taille;
    Derouler();
    mesures_ = scene.mesures;
  } catch (const ErreurAnalyse &erreur) {
    return Faute{erreur.ligne, erreur.texte};
  } catch (const Echec &echec) {
    return Faute{0, echec.texte};
  }
  return faute_;
}

void Joueur::Derouler() {
  depuis_.start();
  Planifier();
  boucle_.exec();
}

void Joueur::Planifier() {
  // Not 0: that would be an event again and again in the same turn.
  QTimer::singleShot(1ms, &contexte_, [this] { Pas(); });
}

void Joueur::Pas() {
  if (terminee_ && pile_.empty()) {
    boucle_.quit();
    return;
  }
  // Before anything runs: the next command may stay in a dialog, and those behind it are to run
  // inside.
  Planifier();
  if (terminee_) {
    FermerDialogues();
  } else if (PeutAvancer()) {
    ExecuterSuivante();
  } else if (depuis_.elapsed() > kLimite) {
    Terminer(FauteDe(commandes_[suivante_ - 1], u"the command does not come to an end"_s));
  }
}

Joueur::Prenantes Joueur::PrenantesOuvertes() {
  Prenantes ouvertes;
  for (const QWidget *fenetre : QApplication::topLevelWidgets())
    if (fenetre->isVisible() && (fenetre->isModal() || fenetre->windowType() == Qt::Popup))
      ouvertes.insert(fenetre);
  return ouvertes;
}

bool Joueur::VaPasser(const QWidget &prenante) const {
  const QString nom = prenante.objectName();
  return nom == u"FrmEnCours"_s || (nom == u"FrmAvancement"_s && !scene_->autreEcrivain);
}

bool Joueur::PeutAvancer() const {
  // A command that has not returned waits in a dialog or a menu that it opened itself, or for
  // something to happen; or it only lets events through: then nothing may come between.
  if (pile_.empty() || scene_->horloge.Attentes() > pile_.back().attentes) return true;
  for (const QWidget *prenante :
       {QApplication::activeModalWidget(), QApplication::activePopupWidget()})
    if (prenante != nullptr && !pile_.back().ouvertes.contains(prenante) && !VaPasser(*prenante))
      return true;
  return false;
}

void Joueur::ExecuterSuivante() {
  if (suivante_ == commandes_.size()) {
    try {
      scene_->VerifierFin();
      Terminer(std::nullopt);
    } catch (const Echec &echec) {
      Terminer(Faute{commandes_.isEmpty() ? 0 : commandes_.constLast().ligne, echec.texte});
    }
    return;
  }
  const qsizetype celleCi = suivante_++;
  depuis_.start();
  pile_.push_back({PrenantesOuvertes(), scene_->horloge.Attentes()});
  try {
    // What a handler throws reaches this far only where no event lies between.
    Signaler(scene_->boites, [&] { Executer(*scene_, commandes_[celleCi]); });
    LaisserPasser();
    scene_->ecran.DonnerFocus();
    scene_->VerifierFautes();
    if (const QWidget *fenetre = scene_->ecran.FenetreActive()) VerifierAccessibilite(*fenetre);
  } catch (const Reessayer &) {
    suivante_ = celleCi;
  } catch (const Echec &echec) {
    Terminer(FauteDe(commandes_[celleCi], echec.texte));
  }
  pile_.pop_back();
  if (pile_.empty()) scene_->Liberer();
}

void Joueur::Terminer(const std::optional<Faute> &faute) {
  if (terminee_) return;
  terminee_ = true;
  faute_ = faute;
  scene_->horloge.Abandonner();
  depuis_.start();
}

void Joueur::FermerDialogues() {
  if (depuis_.elapsed() > kLimite) {
    // The program sits in a handler that never returns: there is no way out but this one.
    std::fprintf(stdout, "%s:%d: %s; the program cannot be left\n", qPrintable(fichier_),
                 faute_ ? faute_->ligne : 0, qPrintable(faute_ ? faute_->texte : u"ok"_s));
    std::fflush(stdout);
    std::_Exit(EXIT_FAILURE);
  }
  if (QWidget *surgissante = QApplication::activePopupWidget())
    surgissante->close();
  else if (auto *dialogue = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
    dialogue->reject();
  else if (QWidget *fenetre = QApplication::activeModalWidget())
    fenetre->close();
}
