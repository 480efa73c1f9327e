#pragma once
// What stands in the place of the system: it answers from the scenario, and writes what the program
// asks into a journal.

#include "platform/Boites.h"
#include "platform/Coquille.h"
#include "platform/Horloge.h"
#include "platform/Imprimante.h"
#include "platform/ListeDemarrage.h"
#include "platform/Polices.h"
#include "platform/PortSerie.h"
#include "player/Monde.h"

#include <QDateTime>
#include <QPointer>
#include <QStringList>

#include <deque>
#include <memory>

struct BoiteVue {
  QString genre, titre, texte, defaut;
  bool repondue = false;  ///< by an answer that the story had foreseen
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

/// What the program has asked of the system and nobody has looked at yet, the oldest in front, and
/// what it will be answered.
struct Journal {
  /// An answer to a box: `oui`, `non`, `annuler`, `ok`, or a text.
  struct Reponse {
    QString texte;
    bool cite = false;
  };

  std::deque<BoiteVue> boites;
  std::deque<Reponse> reponses;
  std::deque<std::chrono::milliseconds> pauses;
  std::deque<QString> ouverts, lances;  ///< documents, and programs by their paths
  QString classeur;                     ///< the workbook opened last; stays when it is looked at
  QByteArray envoyes;                   ///< to the modem
  std::deque<QByteArray> reponsesModem;
  QList<PageImprimee> pages;
  QStringList fautes;  ///< what cannot be answered fails the scenario
};

/// Time stands until the scenario moves it. What is planned runs when its time has come.
class HorlogeScenario : public Horloge {
 public:
  /// A failure of a planned action ends in the error box, as one of the toolkit's timers does.
  HorlogeScenario(Journal &journal, Boites &boites) : journal_(journal), boites_(boites) {}

  QDateTime Maintenant() const override { return maintenant_; }
  void Pause(std::chrono::milliseconds duree) override { Attendre(duree, {}); }
  /// Takes no time; what is queued for a wait runs in it.
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

 private:
  struct Echeance {
    QDateTime instant;
    bool lie;
    QPointer<QObject> contexte;
    std::function<void()> action;
  };

  void FaireEchoir();

  Journal &journal_;
  Boites &boites_;
  QDateTime maintenant_{QDate(2026, 6, 15), QTime(10, 0)};
  std::deque<Echeance> echeances_;  ///< by time, equal ones as they were planned
  std::deque<std::function<void()>> pendant_;
  int attentes_ = 0;
  bool abandonnee_ = false;
};

/// Boxes are answered at once. A picker is written down with its filter as the text and the folder
/// as what is proposed, the choice of a colour with the present one as "#rrggbb".
class BoitesScenario : public Boites {
 public:
  BoitesScenario(Journal &journal, const Monde &monde) : journal_(journal), monde_(monde) {}

  void Message(Genre genre, const QString &titre, const QString &texte) override;
  Reponse Question(const QString &titre, const QString &texte, Reponse defaut) override;
  std::optional<QString> Saisie(const QString &titre, const QString &invite,
                                const QString &defaut) override;
  bool Confirmation(const QString &titre, const QString &texte) override;
  Choix QuestionAnnulable(const QString &titre, const QString &texte) override;
  QString Fichier(const QString &invite, const QString &dossier, const QString &filtre) override;
  std::optional<Couleur> ChoixCouleur(const Couleur &depart) override;
  void Erreur(const QString &texte) override;
  QString Dossier(const QString &invite) override;

 private:
  /// The next answer. One that is neither of `possibles` nor, where these hold "*", a text is a
  /// fault, as is none at all.
  Journal::Reponse Demander(const BoiteVue &boite, const QString &possibles);
  QString Chemin(const Journal::Reponse &reponse) const;

  Journal &journal_;
  const Monde &monde_;
};

/// The program's own restart is written down as the start of "Velmira", the sound control as that
/// of "Volume". A link is an empty file in the desktop folder `home/Bureau`.
class CoquilleScenario : public Coquille {
 public:
  CoquilleScenario(Journal &journal, const Monde &monde) : journal_(journal), monde_(monde) {}

  bool Lancer(const QString &programme) override;
  bool PeutLancer(const QString &programme) const override {
    return !inerte && !absents.contains(programme);
  }
  void RelancerProgramme() override { Lancer(monde_.Chemin(QStringLiteral("Velmira"))); }
  void ReglerSon() override { Lancer(monde_.Chemin(QStringLiteral("Volume"))); }
  bool LienExiste(const QString &nom) const override;
  void CreerLien(const QString &nom, const QString &programme) override;

  QStringList absents;  ///< programs that cannot be started
  bool inerte = false;  ///< nothing can be started or opened

 protected:
  bool OuvrirSurLeBureau(const QString &document) override;

 private:
  QString CheminLien(const QString &nom) const;

  Journal &journal_;
  const Monde &monde_;
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
  explicit PortSerieScenario(Journal &journal) : journal_(journal) {}

  bool Ouvrir(int numero) override;
  void Ecrire(const QByteArray &octets) override;
  QByteArray Lire() override;
  bool Vivant() const override { return ouvert_; }
  void Fermer() override { ouvert_ = false; }

  bool branche = false;

 private:
  Journal &journal_;
  bool ouvert_ = false;
  QByteArray recus_;
};

class PolicesScenario : public Polices {
 public:
  QStringList Familles() const override {
    return {QStringLiteral("Arial"), QStringLiteral("Courier New"),
            QStringLiteral("Times New Roman"), QStringLiteral("Verdana")};
  }
};

/// Writes down the pages of the documents that are ended; text is measured as on the screen.
class ImprimanteScenario : public Imprimante {
 public:
  ImprimanteScenario(Journal &journal, const Monde &monde) : journal_(journal), monde_(monde) {}

  QStringList Noms() override;
  QString ParDefaut() override { return Noms().constFirst(); }
  std::unique_ptr<Document> Ouvrir(const QString &appareil,
                                   const DescriptionDocument &description) override;
  QStringList NomsConnus() const override { return connus_; }
  void Demander(QObject *contexte, std::function<void(bool repondu)> suite) override;

  QStringList systeme{QStringLiteral("HP Test")};  ///< the first is the default one
  QStringList muettes;                             ///< those that are there and print nothing
  bool repond = true;                              ///< whether the print server answers

 private:
  class DocumentScenario;

  Journal &journal_;
  const Monde &monde_;
  QStringList connus_{NomPdf()};
};
