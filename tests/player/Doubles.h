#pragma once
// What stands in the place of the system: it answers from the scenario, and writes what the program
// asks into a journal.

#include "platform/Boites.h"
#include "platform/Coquille.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "platform/Horloge.h"
#include "platform/Imprimante.h"
#include "platform/ListeDemarrage.h"
#include "platform/Notifications.h"
#include "platform/PageDeCode.h"
#include "platform/Polices.h"
#include "platform/PortSerie.h"
#include "player/Analyse.h"
#include "player/Monde.h"
#include "ui/MesurePolices.h"

#include <QtWidgets>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <stop_token>
#include <utility>
#include <vector>

struct BoiteVue {
  QString genre, titre, texte, defaut;
  bool repondue = false;  ///< by an answer that the story had foreseen
};

struct LigneImprimee {
  QString texte;
  Millimetres x, y;
  Police police;
};

struct TraitImprime {
  Point de, a;
  Millimetres epaisseur;
};

struct PageImprimee {
  QString imprimante;
  Papier papier;
  QList<LigneImprimee> lignes;
  QList<TraitImprime> traits;
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
  QJsonObject classeurLu;               ///< its content, once it has been read
  QByteArray envoyes;                   ///< to the modem
  std::deque<QByteArray> reponsesModem;
  QList<PageImprimee> pages;
  QStringList fautes;  ///< what cannot be answered fails the scenario
};

/// Boxes are answered at once. A picker is written down with its filter as the text and the folder
/// as what is proposed, the choice of a colour with the present one as "#rrggbb".
class BoitesScenario : public Boites {
 public:
  BoitesScenario(Journal &journal, const Monde &monde) : journal_(journal), monde_(monde) {}

  void Message(Genre genre, const QString &titre, const QString &texte) override {
    static const QHash<Genre, QString> kNoms{{Genre::Information, u"information"_s},
                                             {Genre::Attention, u"attention"_s},
                                             {Genre::Critique, u"critique"_s},
                                             {Genre::Simple, u"simple"_s}};
    journal_.boites.push_back({kNoms.value(genre), titre, texte, u"ok"_s});
  }
  void Erreur(const QString &texte) override {
    journal_.boites.push_back({u"erreur"_s, Titre(), texte, u"ok"_s});
  }
  Reponse Question(const QString &titre, const QString &texte, Reponse defaut) override {
    const QString bouton = defaut == Reponse::Oui ? u"oui"_s : u"non"_s;
    const auto reponse = Demander({u"question"_s, titre, texte, bouton}, u"oui non annuler"_s);
    return reponse.texte == u"oui"_s ? Reponse::Oui : Reponse::Non;
  }
  ReponseEnFrappe QuestionEnFrappe(const QString &titre, const QString &texte) override {
    ReponseEnFrappe reponse{Question(titre, texte, Reponse::Oui), {}};
    auto &suites = journal_.reponses;
    if (suites.empty() || !suites.front().cite) return reponse;
    reponse.suite = suites.front().texte;
    suites.pop_front();
    return reponse;
  }
  Choix QuestionAnnulable(const QString &titre, const QString &texte) override {
    const auto reponse = Demander({u"question"_s, titre, texte, {}}, u"oui non annuler"_s);
    if (reponse.texte == u"oui"_s) return Choix::Oui;
    return reponse.texte == u"non"_s ? Choix::Non : Choix::Annuler;
  }
  bool Confirmation(const QString &titre, const QString &texte) override {
    return Demander({u"question"_s, titre, texte, {}}, u"ok annuler"_s).texte == u"ok"_s;
  }
  std::optional<QString> Saisie(const QString &titre, const QString &invite,
                                const QString &defaut) override {
    const auto reponse = Demander({u"saisie"_s, titre, invite, defaut}, u"ok annuler *"_s);
    if (reponse.cite) return reponse.texte;
    return reponse.texte == u"ok"_s ? std::optional(defaut) : std::nullopt;
  }
  QString Fichier(const QString &invite, const QString &dossier, const QString &filtre) override {
    return Chemin(Demander({u"fichier"_s, invite, filtre, dossier}, u"annuler *"_s));
  }
  QStringList Fichiers(const QString &invite, const QString &dossier,
                       const QString &filtre) override {
    const auto reponse = Demander({u"fichier"_s, invite, filtre, dossier}, u"annuler *"_s);
    QStringList chemins;
    if (reponse.cite)
      for (const QString &nom : reponse.texte.split(u'\n')) chemins.append(monde_.Chemin(nom));
    return chemins;
  }
  QString FichierAEcrire(const QString &invite, const QString &propose,
                         const QString &filtre) override {
    return Chemin(Demander({u"fichier"_s, invite, filtre, propose}, u"annuler *"_s));
  }
  QString Dossier(const QString &invite) override {
    return Chemin(Demander({u"dossier"_s, Titre(), invite, {}}, u"annuler *"_s));
  }
  std::optional<Couleur> ChoixCouleur(const Couleur &depart) override {
    const QString avant = QColor(depart.rouge, depart.vert, depart.bleu).name();
    const auto reponse = Demander({u"couleur"_s, Titre(), {}, avant}, u"annuler *"_s);
    if (!reponse.cite) return std::nullopt;
    const QColor couleur(reponse.texte);
    return Couleur{couleur.red(), couleur.green(), couleur.blue()};
  }

 private:
  /// The next answer. One that is neither of `possibles` nor, where these hold "*", a text is a
  /// fault, as is none at all.
  Journal::Reponse Demander(const BoiteVue &boite, const QString &possibles) {
    journal_.boites.push_back(boite);
    const QString elle = EnListe({boite.genre, boite.titre, boite.texte});
    if (journal_.reponses.empty()) {
      journal_.fautes.append(u"no answer is queued for the box "_s + elle);
      return {};
    }
    journal_.boites.back().repondue = true;
    const Journal::Reponse reponse = journal_.reponses.front();
    journal_.reponses.pop_front();
    if (!possibles.split(u' ').contains(reponse.cite ? u"*"_s : reponse.texte))
      journal_.fautes.append(u"\"%1\" is no answer to the box %2"_s.arg(reponse.texte, elle));
    return reponse;
  }
  QString Chemin(const Journal::Reponse &reponse) const {
    return reponse.cite ? QDir::cleanPath(monde_.Chemin(reponse.texte)) : QString();
  }

  Journal &journal_;
  const Monde &monde_;
};

/// Time stands until the scenario moves it. What is planned runs when its time has come.
class HorlogeScenario : public Horloge {
 public:
  /// A failure of a planned action ends in the error box, as one of the toolkit's timers does.
  HorlogeScenario(Journal &journal, Boites &boites) : journal_(journal), boites_(boites) {}

  QDateTime Maintenant() const override { return maintenant_; }
  void Pause(std::chrono::milliseconds duree) override { Attendre(duree, {}); }
  /// Takes no time; what is queued for a wait runs in it.
  void Attendre(std::chrono::milliseconds duree, const std::function<bool()> &) override {
    journal_.pauses.push_back(duree);
    if (pendant_.empty()) return;
    const auto action = std::move(pendant_.front());
    pendant_.pop_front();
    action();
  }
  /// The scenario goes on meanwhile.
  void AttendreQue(const std::function<bool()> &arret) override {
    ++attentes_;
    const auto fin = qScopeGuard([this] { --attentes_; });
    while (!arret()) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
      if (abandonnee_) return;
    }
  }
  void Apres(std::chrono::milliseconds delai, QObject *contexte,
             std::function<void()> action) override {
    const QDateTime instant = maintenant_.addMSecs(static_cast<qint64>(delai.count()));
    const auto place = std::ranges::upper_bound(echeances_, instant, {}, &Echeance::instant);
    echeances_.insert(place, {instant, contexte != nullptr, contexte, std::move(action)});
  }

  void PendantPause(std::function<void()> action) { pendant_.push_back(std::move(action)); }
  bool ResteAFaire() const { return !pendant_.empty(); }
  /// How many waits the program is in, one inside the other.
  int Attentes() const { return attentes_; }
  /// Ends the waits, also those to come: the scenario is over.
  void Abandonner() { abandonnee_ = true; }

  /// Is at a time at once, as a computer that wakes: what has come due meanwhile runs then. Going
  /// back runs nothing.
  void Aller(const QDateTime &instant) {
    const auto dues = std::ranges::upper_bound(echeances_, instant, {}, &Echeance::instant);
    maintenant_ = instant;
    for (auto reste = dues - echeances_.begin(); reste > 0 && !echeances_.empty(); --reste)
      FaireEchoir();
  }
  /// Lets the time pass: all runs when its time has come.
  void Avancer(std::chrono::milliseconds duree) {
    const QDateTime instant = maintenant_.addMSecs(static_cast<qint64>(duree.count()));
    while (!echeances_.empty() && echeances_.front().instant <= instant) {
      maintenant_ = std::max(maintenant_, echeances_.front().instant);
      FaireEchoir();
    }
    // What ran may have waited in a dialog, with the clock going on meanwhile.
    maintenant_ = std::max(maintenant_, instant);
  }

 private:
  struct Echeance {
    QDateTime instant;
    bool lie;
    QPointer<QObject> contexte;
    std::function<void()> action;
  };

  void FaireEchoir() {
    const Echeance echeance = std::move(echeances_.front());
    echeances_.pop_front();
    if (!echeance.lie || echeance.contexte) Signaler(boites_, echeance.action);
  }

  Journal &journal_;
  Boites &boites_;
  QDateTime maintenant_{QDate(2026, 6, 15), QTime(10, 0)};
  std::deque<Echeance> echeances_;  ///< by time, equal ones as they were planned
  std::deque<std::function<void()>> pendant_;
  int attentes_ = 0;
  bool abandonnee_ = false;
};

/// The program's own restart is written down as the start of "Velmira", the sound control as that
/// of "Volume". A link is an empty file in the desktop folder `home/Bureau`.
class CoquilleScenario : public Coquille {
 public:
  CoquilleScenario(Journal &journal, const Monde &monde) : journal_(journal), monde_(monde) {}

  using Coquille::Lancer;
  bool Lancer(const QString &programme, const QStringList &arguments) override {
    if (!PeutLancer(programme)) return false;
    journal_.lances.push_back((QStringList{programme} + arguments).join(u' '));
    return true;
  }
  bool PeutLancer(const QString &programme) const override {
    return !inerte && !absents.contains(programme);
  }
  void RelancerProgramme() override { Lancer(monde_.Chemin(u"Velmira"_s)); }
  void ReglerSon() override { Lancer(monde_.Chemin(u"Volume"_s)); }
  bool LienExiste(const QString &nom) const override { return QFileInfo::exists(CheminLien(nom)); }
  void CreerLien(const QString &nom, const QString &) override {
    if (nom.contains(u'/') || nom == u"."_s || nom == u".."_s)
      throw ErreurFichier(u"« %1 » ne peut pas être le nom d'un fichier."_s.arg(nom));
    CreerDossier(QFileInfo(CheminLien(nom)).path());
    RemplacerFichier(CheminLien(nom), {});
  }

  QStringList absents;  ///< programs that cannot be started
  bool inerte = false;  ///< nothing can be started or opened

 protected:
  bool OuvrirSurLeBureau(const QString &document) override {
    if (inerte) return false;
    journal_.ouverts.push_back(document);
    if (document.endsWith(u".xlsx"_s)) {
      journal_.classeur = document;
      journal_.classeurLu = {};
    }
    return true;
  }

 private:
  QString CheminLien(const QString &nom) const {
    return monde_.Home() + u"/Bureau/"_s + nom + u".desktop"_s;
  }

  Journal &journal_;
  const Monde &monde_;
};

/// A note is written down as the start of "Notification" with its words.
class NotificationsScenario : public Notifications {
 public:
  explicit NotificationsScenario(Journal &journal) : journal_(journal) {}

  void Montrer(const QString &titre, const QString &texte, QObject *,
               const std::function<void()> &) override {
    journal_.lances.push_back(u"Notification "_s + titre + u'\n' + texte);
  }

 private:
  Journal &journal_;
};

/// An entry is a file of the world that holds its command line.
class ListeDemarrageScenario : public ListeDemarrage {
 public:
  explicit ListeDemarrageScenario(const Monde &monde) : monde_(monde) {}

  void Ajouter(const QString &nom, const QString &programme, const QString &argument) override {
    Ignorer([&] {
      CreerDossier(QFileInfo(Chemin(nom)).path());
      RemplacerFichier(Chemin(nom), VersPageDeCode(programme + u' ' + argument + u"\r\n"_s));
    });
  }
  void Retirer(const QString &nom) override {
    Ignorer([&] { EffacerFichier(Chemin(nom)); });
  }
  QString Chemin(const QString &nom) const { return monde_.Home() + u"/Demarrage/"_s + nom; }

 private:
  const Monde &monde_;
};

/// A port with a modem at its other end, once the scenario has put one there. Each command that is
/// written takes the next answer.
class PortSerieScenario : public PortSerie {
 public:
  explicit PortSerieScenario(Journal &journal) : journal_(journal) {}

  bool Ouvrir(int) override {
    if (ouvert_) journal_.fautes.append(u"a port is opened before the last one is closed"_s);
    recus_.clear();
    return ouvert_ = branche;
  }
  void Ecrire(const QByteArray &octets) override {
    if (!ouvert_)
      journal_.fautes.append(u"\"%1\" is sent without a port"_s.arg(QString::fromLatin1(octets)));
    journal_.envoyes += octets;
    if (journal_.reponsesModem.empty()) return;
    recus_ += journal_.reponsesModem.front();
    journal_.reponsesModem.pop_front();
  }
  QByteArray Lire() override {
    if (!ouvert_) journal_.fautes.append(u"the port is read while it is closed"_s);
    return std::exchange(recus_, {});
  }
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
    return {u"Arial"_s, u"Courier New"_s, u"Times New Roman"_s, u"Verdana"_s};
  }
};

/// Where the system keeps whoever asks it waiting, in his thread, until it is let go.
class Gel {
 public:
  void Poser(bool pose) {
    std::unique_lock tenu(verrou_);
    pose_ = pose;
    change_.notify_all();
    change_.wait(tenu, [this] { return pose_ || attendent_ == 0; });
  }
  void Passer() {
    std::unique_lock tenu(verrou_);
    ++attendent_;
    change_.wait(tenu, [this] { return !pose_; });
    --attendent_;
    change_.notify_all();
  }
  bool EstPose() const { return pose_; }

 private:
  std::mutex verrou_;
  std::condition_variable change_;
  std::atomic<bool> pose_ = false;
  int attendent_ = 0;
};

/// Writes down the pages of the documents that are ended; text is measured as on the screen.
class ImprimanteScenario : public Imprimante {
 public:
  ImprimanteScenario(Journal &journal, const Monde &monde) : journal_(journal), monde_(monde) {}

  QStringList Noms() override {
    if (serveurFige) gel.Passer();
    if (!repond) throw Erreur(u"Le serveur d'impression ne répond pas."_s);
    return connus_ = systeme + QStringList{NomPdf()};
  }
  QString ParDefaut() override { return Noms().constFirst(); }
  QStringList NomsConnus() const override { return connus_; }
  void Demander(QObject *contexte, std::function<void(bool repondu)> suite) override {
    const auto repondre = [this, suite = std::move(suite)] {
      Ignorer([this] { Noms(); });
      suite(repond);
    };
    const auto plusTard = [contexte = QPointer(contexte), repondre] {  // as the system
      if (contexte) QMetaObject::invokeMethod(contexte, repondre, Qt::QueuedConnection);
    };
    if (serveurFige && gel.EstPose())
      enAttente_.push_back(plusTard);
    else
      plusTard();
  }
  std::unique_ptr<Document> Ouvrir(const QString &appareil,
                                   const DescriptionDocument &description) override {
    if (appareil != NomPdf() && !Noms().contains(appareil)) {
      journal_.fautes.append(u"there is no printer \"%1\""_s.arg(appareil));
      throw Erreur(u"L'imprimante n'est plus là."_s);
    }
    return std::make_unique<DocumentScenario>(*this, appareil, description);
  }

  void Degeler() {
    gel.Poser(false);
    for (const auto &repondre : std::exchange(enAttente_, {})) repondre();
  }

  QStringList systeme{u"HP Test"_s};  ///< the first is the default one
  QStringList muettes;                ///< those that are there and print nothing
  QStringList incertaines;            ///< those that never say what they have printed
  bool repond = true;                 ///< whether the print server answers
  bool serveurFige = false;  ///< under `gel`, whatever it is asked; else it takes its documents
  Gel gel;                   ///< of those that never answer

 private:
  class DocumentScenario : public Document {
   public:
    DocumentScenario(ImprimanteScenario &imprimante, const QString &appareil,
                     const DescriptionDocument &description)
        : imprimante_(imprimante),
          nom_(description.nom),
          arret_(description.arret),
          correction_(description.correction),
          pages_{PageImprimee{appareil, description.papier, {}, {}}} {}

    Millimetres LargeurPage() const override { return pages_.first().papier.page.largeur; }
    Millimetres HauteurPage() const override { return pages_.first().papier.page.hauteur; }
    Point CoinImprimable() const override { return {Millimetres(4), Millimetres(3)}; }
    void NouvellePage() override {
      pages_.append(PageImprimee{pages_.first().imprimante, pages_.first().papier, {}, {}});
    }
    void Ecrire(Millimetres x, Millimetres y, const Police &police, const QString &texte) override {
      const Point place = correction_.Envoi({x, y});
      pages_.last().lignes.append({texte, place.x, place.y, police});
    }
    void Tracer(Point de, Point a, Millimetres epaisseur) override {
      pages_.last().traits.append({correction_.Envoi(de), correction_.Envoi(a), epaisseur});
    }
    FinImpression Terminer() override {
      const QString appareil = pages_.first().imprimante;
      if (appareil != NomPdf()) imprimante_.gel.Passer();
      if (arret_.stop_requested()) return {};
      if (imprimante_.incertaines.contains(appareil))
        return {.issue = FinImpression::Issue::Incertaine, .raison = u"Regardez."_s};
      if (imprimante_.muettes.contains(appareil))
        return {.raison = appareil == NomPdf() ? u"Le disque est plein."_s : QString()};
      imprimante_.journal_.pages.append(pages_);
      const Papier &papier = pages_.first().papier;
      if (appareil != NomPdf())
        return {.issue = FinImpression::Issue::Imprimee,
                .envoi = papier.enveloppe ? papier.Nom() : QString()};
      return {FinImpression::Issue::Enregistree,
              imprimante_.monde_.Home() + u"/Documents/"_s + DebutNomFichier(nom_) + u".pdf"_s};
    }
    Millimetres Largeur(const QString &texte, const Police &police) const override {
      return mesure_.Largeur(texte, police);
    }
    Millimetres HauteurLigne(const Police &police) const override {
      return mesure_.HauteurLigne(police);
    }

   private:
    ImprimanteScenario &imprimante_;
    QString nom_;
    std::stop_token arret_;
    Correction correction_;
    QList<PageImprimee> pages_;
    MesurePolices mesure_;
  };

  Journal &journal_;
  const Monde &monde_;
  QStringList connus_{NomPdf()};
  std::vector<std::function<void()>> enAttente_;  ///< who has asked the server while it is frozen
};
