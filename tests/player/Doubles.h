#pragma once
// What stands in the place of the system: it records what the program asks, and answers from the
// scenario.

#include "platform/Boites.h"
#include "platform/Coquille.h"
#include "platform/Horloge.h"
#include "platform/Imprimante.h"
#include "platform/ListeDemarrage.h"
#include "platform/Polices.h"
#include "platform/PortSerie.h"
#include "player/Monde.h"

#include <QPointer>
#include <QStringList>

#include <deque>
#include <memory>

/// Time stands until the scenario moves it. What is planned runs when its time has come.
class HorlogeScenario : public Horloge {
 public:
  /// A failure of a planned action ends in the error box, as one of the toolkit's timers does.
  explicit HorlogeScenario(Boites &boites) : boites_(boites) {}

  QDateTime Maintenant() const override { return maintenant_; }
  void Pause(std::chrono::milliseconds duree) override { pauses_.push_back(duree); }
  /// Takes no time; what is queued for such a wait runs in it.
  void Attendre(std::chrono::milliseconds duree, const std::function<bool()> &arret) override;
  /// The scenario goes on meanwhile.
  void AttendreQue(const std::function<bool()> &arret) override;
  void Apres(std::chrono::milliseconds delai, QObject *contexte,
             std::function<void()> action) override;

  void PendantPause(std::function<void()> action) { pendant_.push_back(std::move(action)); }
  bool ResteAFaire() const { return !pendant_.empty(); }

  /// How many waits the program is in, one inside the other.
  int Attentes() const { return attentes_; }
  /// Ends the waits, also those to come: the scenario is over.
  void Abandonner() { abandonnee_ = true; }

  /// Is at a time at once, as a computer that wakes: what has come due meanwhile runs then. Going
  /// back runs nothing.
  void Aller(const QDateTime &instant);
  /// Lets the time pass: all runs when its time has come.
  void Avancer(std::chrono::milliseconds duree);
  std::deque<std::chrono::milliseconds> &Pauses() { return pauses_; }

 private:
  struct Echeance {
    QDateTime instant;
    bool lie;
    QPointer<QObject> contexte;
    std::function<void()> action;
  };

  void FaireEchoir();

  Boites &boites_;
  QDateTime maintenant_{QDate(2026, 6, 15), QTime(10, 0)};
  std::deque<Echeance> echeances_;  ///< by time, equal ones as they were planned
  std::deque<std::chrono::milliseconds> pauses_;
  std::deque<std::function<void()>> pendant_;
  int attentes_ = 0;
  bool abandonnee_ = false;
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
  std::optional<QString> Saisie(const QString &titre, const QString &invite,
                                const QString &defaut) override;
  bool Confirmation(const QString &titre, const QString &texte) override;
  Choix QuestionAnnulable(const QString &titre, const QString &texte) override;
  /// Recorded with the filter as its text and the folder as what is proposed.
  QString Fichier(const QString &invite, const QString &dossier, const QString &filtre) override;
  /// Recorded with the present colour as what is proposed, as "#rrggbb".
  std::optional<Couleur> ChoixCouleur(const Couleur &depart) override;
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

/// Every program can be started but those that were taken away. The program's own restart is
/// recorded as the start of "Velmira", the sound control as that of "Volume". A link is an empty
/// file in the desktop folder `home/Bureau`.
class CoquilleScenario : public Coquille {
 public:
  explicit CoquilleScenario(const Monde &monde) : monde_(monde) {}

  bool Lancer(const QString &programme) override;
  bool PeutLancer(const QString &programme) const override {
    return !inerte_ && !absents_.contains(programme);
  }
  void RelancerProgramme() override { lances_.push_back(monde_.Chemin(QStringLiteral("Velmira"))); }
  void ReglerSon() override { lances_.push_back(monde_.Chemin(QStringLiteral("Volume"))); }
  bool LienExiste(const QString &nom) const override;
  void CreerLien(const QString &nom, const QString &programme) override;

  /// From here on the start of this program fails.
  void Desinstaller(const QString &programme) { absents_.append(programme); }
  /// From here on nothing can be started or opened.
  void Desinstaller() { inerte_ = true; }

  std::deque<QString> &Ouverts() { return ouverts_; }
  const std::deque<QString> &Ouverts() const { return ouverts_; }
  /// Paths of the programs that have been started.
  std::deque<QString> &Lances() { return lances_; }
  const std::deque<QString> &Lances() const { return lances_; }
  /// Path of the workbook opened last, also when its opening has been checked; empty for none.
  const QString &Classeur() const { return classeur_; }

 protected:
  bool OuvrirSurLeBureau(const QString &document) override;

 private:
  QString CheminLien(const QString &nom) const;

  const Monde &monde_;
  QStringList absents_;
  bool inerte_ = false;
  std::deque<QString> ouverts_, lances_;
  QString classeur_;
};

/// An entry is a file of the world that holds its command line.
class ListeDemarrageScenario : public ListeDemarrage {
 public:
  explicit ListeDemarrageScenario(const Monde &monde) : monde_(monde) {}

  void Ajouter(const QString &nom, const QString &programme, const QString &argument) override;
  void Retirer(const QString &nom) override;

  QString Chemin(const QString &nom) const;

 private:
  const Monde &monde_;
};

/// A port with a modem at its other end, once the scenario has put one there. Each command that is
/// written takes the next answer.
class PortSerieScenario : public PortSerie {
 public:
  bool Ouvrir(int numero) override;
  void Ecrire(const QByteArray &octets) override;
  QByteArray Lire() override;
  bool Vivant() const override { return ouvert_; }
  void Fermer() override { ouvert_ = false; }

  void Brancher() { branche_ = true; }
  void Prevoir(const QByteArray &reponse) { reponses_.push_back(reponse); }
  const std::deque<QByteArray> &Reponses() const { return reponses_; }

  /// Takes what has been sent since the last call.
  QByteArray PrendreEnvoyes() { return std::exchange(envoyes_, {}); }
  const QStringList &Fautes() const { return fautes_; }

 private:
  bool branche_ = false;
  bool ouvert_ = false;
  std::deque<QByteArray> reponses_;
  QByteArray recus_, envoyes_;
  QStringList fautes_;
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

/// Records the pages of the documents that are ended; text is measured as on the screen.
class ImprimanteScenario : public Imprimante {
 public:
  explicit ImprimanteScenario(const Monde &monde) : monde_(monde) {}

  QStringList Noms() override;
  QString ParDefaut() override { return Noms().constFirst(); }
  std::unique_ptr<Document> Ouvrir(const QString &appareil,
                                   const DescriptionDocument &description) override;
  QStringList NomsConnus() const override { return connus_; }
  void Demander(QObject *contexte, std::function<void(bool repondu)> suite) override;

  /// Printers of the system, the first being the default one.
  void Installer(const QStringList &noms) { systeme_ = noms; }
  /// These printers, which are there, print nothing from here on; the others do.
  void Refuser(const QStringList &noms) { muettes_ = noms; }
  /// Whether the print server answers.
  void Repondre(bool repond) { repond_ = repond; }

  /// Takes the pages that have been printed since the last call.
  QList<PageImprimee> PrendrePages() { return std::exchange(pages_, {}); }
  const QStringList &Fautes() const { return fautes_; }

 private:
  class DocumentScenario;

  const Monde &monde_;
  QStringList systeme_{QStringLiteral("HP Test")};
  QStringList muettes_;
  QStringList connus_{NomPdf()};
  bool repond_ = true;
  QList<PageImprimee> pages_;
  QStringList fautes_;
};
