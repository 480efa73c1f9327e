#include "player/Scene.h"

#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "player/Verbes.h"
#include "storage/Reglages.h"

#include <QtWidgets>

#include <cstdio>
#include <thread>

using namespace std::chrono_literals;

namespace {

constexpr qint64 kLimite = 60'000;  // milliseconds for one command

/// With the command, as it stands in the scenario, below the reason.
Echec FauteDe(const Commande &commande, const QString &raison) {
  return {raison + u"\n    "_s + commande.texte, commande.ligne};
}

}  // namespace

void LaisserPasser() {
  // Bounded: a window may plan its next repaint at each one.
  constexpr int kTours = 8;
  for (int i = 0; i < kTours; ++i) QCoreApplication::processEvents();
}

Scene::Scene(Application &application, QString f, Options o)
    : fichier(std::move(f)),
      options(std::move(o)),
      monde(options.monde.isEmpty() ? temporaire.path() : options.monde),
      application_(application) {
  const auto texte = LireFichier(fichier);
  Exiger(texte.has_value(), u"the file cannot be read"_s);
  commandes_ = Analyser(QString::fromUtf8(*texte));
  application_.SignalerPar(&boites);
}

Scene::~Scene() {
  vigilo_.reset();
  memora_.reset();
  programme_.reset();
  imprimante.gel.Poser(false);
  while (abandons_.EnCours() > 0) std::this_thread::sleep_for(1ms);
  application_.SignalerPar(nullptr);
}

std::optional<Echec> Scene::Jouer() {
  depuis_.start();
  Planifier();
  boucle_.exec();
  return faute_;
}

void Scene::PoserTaille() const {
  if (options.taille == 0) return;
  Reglages reglages;
  LireReglages(monde.App(), reglages);
  reglages.rtcolor.TailleFenetre = options.taille;
  EcrireRTColor(monde.App(), reglages.rtcolor);
}

void Scene::Demarrer(const std::optional<FicheVoulue> &fiche) {
  Exiger(!EnMarche(), u"a program that is closed expected, it is running"_s);
  port.Fermer();
  PoserTaille();
  plateforme_.emplace(Plateforme{horloge, boites, coquille, imprimante, polices, demarrage, port,
                                 classeur, utilisateur, QLocale(QLocale::French, QLocale::France),
                                 monde.Home() + u"/Cache"_s, abandons_});
  programme_ = std::make_unique<Programme>(*plateforme_, monde.App());
  programmeTermine_ = false;
  if (fiche) programme_->OuvrirFiche(*fiche);
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

void Scene::LancerVigilo(const QStringList &mots) {
  const auto depart = Vigilo::DepartDe(mots);
  if (vigilo_) return vigilo_->Reprendre(depart);
  PoserTaille();
  vigilo_ =
      std::make_unique<Vigilo>(Vigilo::Moyens{boites, horloge, coquille, notifications, utilisateur,
                                              QLocale(QLocale::French, QLocale::France)},
                               monde.App(), depart);
  finCompagnon_.reset();
  QObject::connect(vigilo_.get(), &Vigilo::Termine, &ecran, [this](int s) { finCompagnon_ = s; });
  vigilo_->Commencer();
}

void Scene::LancerMemora(const QStringList &mots) {
  if (!memora_) memora_ = std::make_unique<Memora>(boites, monde.App());
  finCompagnon_.reset();
  QObject::connect(memora_.get(), &Memora::Termine, &ecran, [this] { finCompagnon_ = 0; });
  memora_->Commencer(!mots.contains(u"auto"_s));
}

void Scene::DemanderFiche(const QStringList &mots) {
  const auto fiche = LireFicheVoulue(mots);
  Exiger(fiche.has_value(), u"\"--fiche KEY\" expected"_s);
  if (EnMarche())
    programme_->OuvrirFiche(*fiche);
  else
    Demarrer(fiche);
}

void Scene::Liberer() {
  if (finCompagnon_) {
    vigilo_.reset();
    memora_.reset();
  }
  if (!programmeTermine_) return;
  programme_.reset();
  programmeTermine_ = false;
}

void Scene::VerifierFautes() const {
  Exiger(journal.fautes.isEmpty(), journal.fautes.join(u"; "));
}

void Scene::VerifierToutVu() const {
  VerifierAucuneBoite();
  for (const auto *traces : {&journal.ouverts, &journal.lances})
    for (const QString &trace : *traces)
      throw Echec{u"nothing opened or started expected, \"%1\" found"_s.arg(trace)};
}

void Scene::VerifierAucuneBoite() const {
  for (const BoiteVue &boite : journal.boites)
    Exiger(boite.repondue, u"no unread box expected, %1 found"_s.arg(
                               EnListe({boite.genre, boite.titre, boite.texte})));
}

void Scene::VerifierFin() const {
  VerifierFautes();  // of commands that have not returned
  VerifierToutVu();
  Exiger(journal.reponses.empty(),
         u"a box expected for each answer, %1 are left"_s.arg(journal.reponses.size()));
  Exiger(!horloge.ResteAFaire(), u"a pause expected for what was to be done in one, none came"_s);
  Exiger(journal.reponsesModem.empty(), u"the modem expected to answer, it was never asked"_s);
}

void Scene::Planifier() {
  // Not 0: that would be an event again and again in the same turn.
  QTimer::singleShot(1ms, &contexte_, [this] { Pas(); });
}

void Scene::Pas() {
  if (terminee_ && pile_.empty()) return boucle_.quit();
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

bool Scene::Passe(const QWidget &fenetre) const {
  const bool tirage = fenetre.objectName() == u"FrmEnCours"_s;
  if (!tirage && fenetre.objectName() != u"FrmAvancement"_s) return false;
  if (!imprimante.gel.EstPose()) return tirage || !autreEcrivain;
  const auto *abandon =
      fenetre.findChild<QAbstractButton *>(tirage ? u"CmdAbandonner"_s : u"CmdArreter"_s);
  return abandon != nullptr && !abandon->isEnabled();
}

bool Scene::PeutAvancer() const {
  // A command that has not returned waits in a dialog or a menu that it opened itself, or for
  // something to happen; or it only lets events through: then nothing may come between.
  if (pile_.empty() || horloge.Attentes() > pile_.back().attentes) return true;
  for (const QWidget *prenante :
       {QApplication::activeModalWidget(), QApplication::activePopupWidget()})
    if (prenante != nullptr && !pile_.back().ouvertes.contains(prenante) && !Passe(*prenante))
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
    QWidget *fenetre = ecran.FenetreActive();
    if (options.etroit && fenetre != nullptr) {
      fenetre->resize(fenetre->minimumSize());
      LaisserPasser();
    }
    if (fenetre != nullptr) VerifierAccessibilite(*fenetre);
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
  imprimante.Degeler();
  depuis_.start();
}

void Scene::FermerDialogues() {
  if (depuis_.elapsed() > kLimite) {
    // The program sits in a handler that never returns: there is no way out but this one.
    std::fprintf(stdout, "%s:%d: %s; the program cannot be left\n", qPrintable(fichier),
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
