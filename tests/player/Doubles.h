#pragma once
// What stands in the place of the system: it records what the program asks, and answers from the
// scenario.

#include "platform/Boites.h"
#include "platform/Coquille.h"
#include "platform/Horloge.h"
#include "platform/Imprimante.h"
#include "platform/Polices.h"
#include "player/Monde.h"
#include "ui/MesurePolices.h"

#include <QPointer>
#include <QStringList>

#include <deque>

/// Time stands until the scenario moves it. What is planned runs when its time has come.
class HorlogeScenario : public Horloge {
 public:
  /// A failure of a planned action ends in the error box, as one of the toolkit's timers does.
  explicit HorlogeScenario(Boites &boites) : boites_(boites) {}

  QDateTime Maintenant() const override { return maintenant_; }
  void Pause(std::chrono::milliseconds duree) override { pauses_.push_back(duree); }
  void Apres(std::chrono::milliseconds delai, QObject *contexte,
             std::function<void()> action) override;

  /// Goes to a time; going back runs nothing.
  void Aller(const QDateTime &instant);
  void Avancer(std::chrono::milliseconds duree) {
    Aller(maintenant_.addMSecs(static_cast<qint64>(duree.count())));
  }
  std::deque<std::chrono::milliseconds> &Pauses() { return pauses_; }

 private:
  struct Echeance {
    QDateTime instant;
    bool lie;
    QPointer<QObject> contexte;
    std::function<void()> action;
  };

  Boites &boites_;
  QDateTime maintenant_{QDate(2026, 6, 15), QTime(10, 0)};
  std::deque<Echeance> echeances_;  ///< by time, equal ones as they were planned
  std::deque<std::chrono::milliseconds> pauses_;
};

struct BoiteVue {
  QString genre, titre, texte, defaut;
};

/// Boxes are answered at once. What cannot be answered is a fault of the run.
class BoitesScenario : public Boites {
 public:
  explicit BoitesScenario(const Monde &monde) : monde_(monde) {}

  void Message(Genre genre, const QString &titre, const QString &texte) override;
  Reponse Question(const QString &titre, const QString &texte, Reponse defaut) override;
  QString Saisie(const QString &titre, const QString &invite, const QString &defaut) override;
  Choix QuestionAnnulable(const QString &titre, const QString &texte) override;
  /// Recorded with the filter as its text and the folder as what is proposed.
  QString Fichier(const QString &invite, const QString &dossier, const QString &filtre) override;
  void Erreur(const QString &texte) override;
  QString Dossier(const QString &invite) override;

  /// An answer: `oui`, `non`, `annuler`, `ok`, or a text.
  struct ReponsePrevue {
    QString texte;
    bool cite = false;
  };
  void Prevoir(ReponsePrevue reponse) { reponses_.push_back(std::move(reponse)); }
  const std::deque<ReponsePrevue> &Reponses() const { return reponses_; }

  std::deque<BoiteVue> &Vues() { return vues_; }
  const std::deque<BoiteVue> &Vues() const { return vues_; }
  const QStringList &Fautes() const { return fautes_; }

 private:
  /// The answer to a picker: a full path, or nothing.
  QString RepondreChemin(const BoiteVue &boite);

  /// The next answer. One that is neither of `possibles` nor, where `texte` allows it, a text is a
  /// fault, as is none at all.
  ReponsePrevue Repondre(const BoiteVue &boite, const QStringList &possibles, bool texte);

  const Monde &monde_;
  std::deque<ReponsePrevue> reponses_;
  std::deque<BoiteVue> vues_;
  QStringList fautes_;
};

class CoquilleScenario : public Coquille {
 public:
  void Ouvrir(const QString &document) override { ouverts_.push_back(document); }
  std::deque<QString> &Ouverts() { return ouverts_; }

 private:
  std::deque<QString> ouverts_;
};

class PolicesScenario : public Polices {
 public:
  QStringList Familles() const override {
    return {QStringLiteral("Arial"), QStringLiteral("Courier New"),
            QStringLiteral("Times New Roman"), QStringLiteral("Verdana")};
  }
};

struct LigneImprimee {
  QString texte;
  Millimetres x, y;
  Police police;
};

struct PageImprimee {
  QString imprimante;
  Orientation orientation = Orientation::Portrait;
  QList<LigneImprimee> lignes;
};

/// Records pages; text is measured as on the screen.
class ImprimanteScenario : public Imprimante {
 public:
  explicit ImprimanteScenario(const Monde &monde) : monde_(monde) {}

  QStringList Noms() const override { return systeme_ + QStringList{NomPdf()}; }
  QString Courante() const override { return choisie_.isEmpty() ? Noms().constFirst() : choisie_; }
  void Choisir(const QString &nom) override;
  void OuvrirPage(Orientation orientation) override;
  void Ecrire(Millimetres x, Millimetres y, const Police &police, const QString &texte) override;
  QString TerminerDocument() override;
  Millimetres Largeur(const QString &texte, const Police &police) const override {
    return mesure_.Largeur(texte, police);
  }
  Millimetres HauteurLigne(const Police &police) const override {
    return mesure_.HauteurLigne(police);
  }

  /// Printers of the system, the first being the default one.
  void Installer(const QStringList &noms) { systeme_ = noms; }
  /// A new run of the program begins with the default printer.
  void OublierChoix() { choisie_.clear(); }

  /// Takes the pages that have been printed since the last call.
  QList<PageImprimee> PrendrePages() { return std::exchange(pages_, {}); }
  const QStringList &Fautes() const { return fautes_; }

 private:
  const Monde &monde_;
  MesurePolices mesure_;
  QStringList systeme_{QStringLiteral("HP Test")};
  QString choisie_;
  std::optional<PageImprimee> ouverte_;
  QList<PageImprimee> pages_;
  QStringList fautes_;
};
