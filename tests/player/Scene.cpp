#include "player/Scene.h"

#include "platform/Erreurs.h"
#include "player/Echec.h"
#include "storage/Reglages.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

void LaisserPasser() {
  // Bounded: a window may plan its next repaint at each one.
  constexpr int kTours = 8;
  for (int i = 0; i < kTours; ++i) QCoreApplication::processEvents();
}

Scene::Scene(Application &application, Monde m, QString dossierCaptures)
    : monde(std::move(m)), captures(std::move(dossierCaptures)), application_(application) {
  application_.SignalerPar(&boites);
}

Scene::~Scene() {
  programme_.reset();
  application_.SignalerPar(nullptr);
}

void Scene::EcrireTaille() const {
  Reglages reglages;
  LireReglages(monde.App(), reglages);
  reglages.rtcolor.TailleFenetre = taille;
  EcrireRTColor(monde.App(), reglages.rtcolor);
}

void Scene::Demarrer() {
  Exiger(!EnMarche(), u"a program that is closed expected, it is running"_s);
  port.Fermer();
  if (taille != 0) EcrireTaille();
  plateforme_.emplace(Plateforme{horloge, boites, coquille, imprimante, polices, demarrage, port,
                                 classeur, utilisateur, QLocale(QLocale::French, QLocale::France),
                                 monde.Home() + u"/Cache"_s});
  programme_ = std::make_unique<Programme>(*plateforme_, monde.App());
  termine_ = false;
  QObject::connect(programme_.get(), &Programme::Termine, &ecran, [this] { termine_ = true; });

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
  const QWidget *dialogue = QApplication::activeModalWidget();
  Exiger(dialogue == nullptr, u"no dialog expected, %1 is open"_s.arg(
                                  dialogue != nullptr ? dialogue->objectName() : QString()));
  if (QWidget *surgissante = QApplication::activePopupWidget()) {
    surgissante->close();
    throw Reessayer{};
  }
  QWidget *fenetre = ecran.FenetreActive();
  Exiger(fenetre != nullptr, u"a window to close expected, none on the screen"_s);
  const QString nom = fenetre->objectName();
  fenetre->close();
  constexpr int kTours = 20;
  for (int i = 0; i < kTours && !termine_; ++i) {
    LaisserPasser();
    if (!termine_) horloge.Avancer(100ms);
  }
  Exiger(termine_,
         u"the end of the program expected after the close box of %1, it goes on"_s.arg(nom));
  if (horloge.Attentes() == 0) Liberer();
}

void Scene::Liberer() {
  if (!termine_) return;
  programme_.reset();
  termine_ = false;
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
