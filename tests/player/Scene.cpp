#include "player/Scene.h"

#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "player/Verbes.h"
#include "storage/Reglages.h"

#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QTimer>

#include <cstdio>

using namespace std::chrono_literals;

namespace {

constexpr qint64 kLimite = 60'000;  // milliseconds for one command

/// With the command, as it stands in the scenario, below the reason.
Echec FauteDe(const Commande &commande, const QString &raison) {
  return {raison + u"\n    "_s + commande.texte, commande.ligne};
}

void EcrireTaille(const QString &app, qint32 taille) {
  Reglages reglages;
  LireReglages(app, reglages);
  reglages.rtcolor.TailleFenetre = taille;
  EcrireRTColor(app, reglages.rtcolor);
}

}  // namespace

void LaisserPasser() {
  // Bounded: a window may plan its next repaint at each one.
  constexpr int kTours = 8;
  for (int i = 0; i < kTours; ++i) QCoreApplication::processEvents();
}

Scene::Scene(Application &application, QString fichier, Options options)
    : fichier_(std::move(fichier)),
      options_(std::move(options)),
      monde(options_.monde.isEmpty() ? temporaire_.path() : options_.monde,
            QFileInfo(fichier_).absolutePath()),
      application_(application) {
  const auto texte = LireFichier(fichier_);
  Exiger(texte.has_value(), u"the file cannot be read"_s);
  commandes_ = Analyser(QString::fromUtf8(*texte));
  application_.SignalerPar(&boites);
}

Scene::~Scene() {
  programme_.reset();
  application_.SignalerPar(nullptr);
}

std::optional<Echec> Scene::Jouer() {
  depuis_.start();
  Planifier();
  boucle_.exec();
  return faute_;
}

void Scene::Demarrer() {
  Exiger(!EnMarche(), u"a program that is closed expected, it is running"_s);
  port.Fermer();
  if (options_.taille != 0) EcrireTaille(monde.App(), options_.taille);
  plateforme_.emplace(Plateforme{horloge, boites, coquille, imprimante, polices, demarrage, port,
                                 classeur, utilisateur, QLocale(QLocale::French, QLocale::France),
                                 monde.Home() + u"/Cache"_s});
  programme_ = std::make_unique<Programme>(*plateforme_, monde.App());
  programmeTermine_ = false;
  QObject::connect(programme_.get(), &Programme::Termine, &ecran,
                   [this] { programmeTermine_ = true; });

  bool lance = false;
  Signaler(boites, [&] { lance = programme_->Demarrer(); });
  LaisserPasser();
  if (lance)
    horloge.Avancer(1500ms);
  else
    programme_.reset();
}

void Scene::Fermer() {
  Exiger(EnMarche(), u"a running program expected, it is closed"_s);
  Exiger(QApplication::activeModalWidget() == nullptr, u"no open dialog expected, one found"_s);
  if (QWidget *surgissante = QApplication::activePopupWidget()) {
    surgissante->close();
    throw Reessayer{};
  }
  ecran.Active()->close();
  constexpr int kTours = 20;
  for (int i = 0; i < kTours && !programmeTermine_; ++i) {
    LaisserPasser();
    if (!programmeTermine_) horloge.Avancer(100ms);
  }
  Exiger(programmeTermine_, u"the end of the program expected after its close box, it goes on"_s);
  if (horloge.Attentes() == 0) Liberer();
}

void Scene::Liberer() {
  if (!programmeTermine_) return;
  programme_.reset();
  programmeTermine_ = false;
}

void Scene::VerifierFautes() const {
  Exiger(journal.fautes.isEmpty(), journal.fautes.join(u"; "));
}

void Scene::VerifierToutVu() const {
  const auto rien = [](const QString &quoi, const auto &traces) {
    Exiger(traces.empty(), u"nothing %1 expected, \"%2\" found"_s.arg(
                               quoi, traces.empty() ? QString() : traces.front()));
  };
  VerifierAucuneBoite();
  rien(u"opened"_s, journal.ouverts);
  rien(u"started"_s, journal.lances);
}

void Scene::VerifierAucuneBoite() const {
  for (const BoiteVue &boite : journal.boites)
    Exiger(boite.repondue, u"no unread box expected, %1 found"_s.arg(
                               EnListe({boite.genre, boite.titre, boite.texte})));
}

void Scene::VerifierFin() const {
  VerifierFautes();  // of commands that have not returned
  VerifierToutVu();
  for (const auto &reponse : journal.reponses)
    throw Echec{u"a box expected for the answer \"%1\", none came"_s.arg(reponse.texte)};
  Exiger(!horloge.ResteAFaire(), u"a pause expected for what was to be done in one, none came"_s);
  for (const QByteArray &reponse : journal.reponsesModem)
    throw Echec{u"the modem expected to answer \"%1\", it was never asked"_s.arg(
        QString::fromLatin1(reponse))};
}

void Scene::Planifier() {
  // Not 0: that would be an event again and again in the same turn.
  QTimer::singleShot(1ms, &contexte_, [this] { Pas(); });
}

void Scene::Pas() {
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

Scene::Prenantes Scene::PrenantesOuvertes() {
  Prenantes ouvertes;
  for (const QWidget *fenetre : QApplication::topLevelWidgets())
    if (fenetre->isVisible() && (fenetre->isModal() || fenetre->windowType() == Qt::Popup))
      ouvertes.insert(fenetre);
  return ouvertes;
}

bool Scene::VaPasser(const QWidget &prenante) const {
  const QString nom = prenante.objectName();
  return nom == u"FrmEnCours"_s || (nom == u"FrmAvancement"_s && !autreEcrivain);
}

bool Scene::PeutAvancer() const {
  // A command that has not returned waits in a dialog or a menu that it opened itself, or for
  // something to happen; or it only lets events through: then nothing may come between.
  if (pile_.empty() || horloge.Attentes() > pile_.back().attentes) return true;
  for (const QWidget *prenante :
       {QApplication::activeModalWidget(), QApplication::activePopupWidget()})
    if (prenante != nullptr && !pile_.back().ouvertes.contains(prenante) && !VaPasser(*prenante))
      return true;
  return false;
}

void Scene::ExecuterSuivante() {
  if (suivante_ == commandes_.size()) {
    try {
      VerifierFin();
      Terminer(std::nullopt);
    } catch (const Echec &echec) {
      Terminer(Echec{echec.texte, commandes_.isEmpty() ? 0 : commandes_.constLast().ligne});
    }
    return;
  }
  const qsizetype celleCi = suivante_++;
  depuis_.start();
  pile_.push_back({PrenantesOuvertes(), horloge.Attentes()});
  try {
    // What a handler throws reaches this far only where no event lies between.
    Signaler(boites, [&] { Executer(*this, commandes_[celleCi]); });
    LaisserPasser();
    ecran.DonnerFocus();
    VerifierFautes();
    if (const QWidget *fenetre = ecran.FenetreActive()) VerifierAccessibilite(*fenetre);
  } catch (const Reessayer &) {
    suivante_ = celleCi;
  } catch (const Echec &echec) {
    Terminer(FauteDe(commandes_[celleCi], echec.texte));
  }
  pile_.pop_back();
  if (pile_.empty()) Liberer();
}

void Scene::Terminer(const std::optional<Echec> &faute) {
  if (terminee_) return;
  terminee_ = true;
  faute_ = faute;
  horloge.Abandonner();
  depuis_.start();
}

void Scene::FermerDialogues() {
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
