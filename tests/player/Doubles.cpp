#include "player/Doubles.h"

#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"
#include "player/Echec.h"
#include "ui/MesurePolices.h"

#include <QColor>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

void HorlogeScenario::Attendre(std::chrono::milliseconds duree, const std::function<bool()> &) {
  journal_.pauses.push_back(duree);
  if (pendant_.empty()) return;
  const auto action = std::move(pendant_.front());
  pendant_.pop_front();
  action();
}

void HorlogeScenario::AttendreQue(const std::function<bool()> &arret) {
  ++attentes_;
  const auto fin = qScopeGuard([this] { --attentes_; });
  while (!arret()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    if (abandonnee_) return;
  }
}

void HorlogeScenario::Apres(std::chrono::milliseconds delai, QObject *contexte,
                            std::function<void()> action) {
  const QDateTime instant = maintenant_.addMSecs(static_cast<qint64>(delai.count()));
  const auto place = std::ranges::upper_bound(echeances_, instant, {}, &Echeance::instant);
  echeances_.insert(place, {instant, contexte != nullptr, contexte, std::move(action)});
}

void HorlogeScenario::Aller(const QDateTime &instant) {
  const auto dues = std::ranges::upper_bound(echeances_, instant, {}, &Echeance::instant);
  maintenant_ = instant;
  for (auto reste = dues - echeances_.begin(); reste > 0 && !echeances_.empty(); --reste)
    FaireEchoir();
}

void HorlogeScenario::Avancer(std::chrono::milliseconds duree) {
  const QDateTime instant = maintenant_.addMSecs(static_cast<qint64>(duree.count()));
  while (!echeances_.empty() && echeances_.front().instant <= instant) {
    maintenant_ = std::max(maintenant_, echeances_.front().instant);
    FaireEchoir();
  }
  // What ran may have waited in a dialog, with the clock going on meanwhile.
  maintenant_ = std::max(maintenant_, instant);
}

void HorlogeScenario::FaireEchoir() {
  const Echeance echeance = std::move(echeances_.front());
  echeances_.pop_front();
  if (!echeance.lie || echeance.contexte) Signaler(boites_, echeance.action);
}

void BoitesScenario::Message(Genre genre, const QString &titre, const QString &texte) {
  static const QHash<Genre, QString> kNoms{{Genre::Information, u"information"_s},
                                           {Genre::Attention, u"attention"_s},
                                           {Genre::Critique, u"critique"_s},
                                           {Genre::Simple, u"simple"_s}};
  journal_.boites.push_back({kNoms.value(genre), titre, texte, u"ok"_s});
}

void BoitesScenario::Erreur(const QString &texte) {
  journal_.boites.push_back({u"erreur"_s, Titre(), texte, u"ok"_s});
}

Boites::Reponse BoitesScenario::Question(const QString &titre, const QString &texte,
                                         Reponse defaut) {
  const QString bouton = defaut == Reponse::Oui ? u"oui"_s : u"non"_s;
  const auto reponse = Demander({u"question"_s, titre, texte, bouton}, u"oui non annuler"_s);
  return reponse.texte == u"oui"_s ? Reponse::Oui : Reponse::Non;
}

std::optional<QString> BoitesScenario::Saisie(const QString &titre, const QString &invite,
                                              const QString &defaut) {
  const auto reponse = Demander({u"saisie"_s, titre, invite, defaut}, u"ok annuler *"_s);
  if (reponse.cite) return reponse.texte;
  return reponse.texte == u"ok"_s ? std::optional(defaut) : std::nullopt;
}

bool BoitesScenario::Confirmation(const QString &titre, const QString &texte) {
  return Demander({u"question"_s, titre, texte, {}}, u"ok annuler"_s).texte == u"ok"_s;
}

Boites::Choix BoitesScenario::QuestionAnnulable(const QString &titre, const QString &texte) {
  const auto reponse = Demander({u"question"_s, titre, texte, {}}, u"oui non annuler"_s);
  if (reponse.texte == u"oui"_s) return Choix::Oui;
  return reponse.texte == u"non"_s ? Choix::Non : Choix::Annuler;
}

QString BoitesScenario::Fichier(const QString &invite, const QString &dossier,
                                const QString &filtre) {
  return Chemin(Demander({u"fichier"_s, invite, filtre, dossier}, u"annuler *"_s));
}

QString BoitesScenario::Dossier(const QString &invite) {
  return Chemin(Demander({u"dossier"_s, Titre(), invite, {}}, u"annuler *"_s));
}

QString BoitesScenario::Chemin(const Journal::Reponse &reponse) const {
  return reponse.cite ? QDir::cleanPath(monde_.Chemin(reponse.texte)) : QString();
}

std::optional<Boites::Couleur> BoitesScenario::ChoixCouleur(const Couleur &depart) {
  const QString avant = QColor(depart.rouge, depart.vert, depart.bleu).name();
  const auto reponse = Demander({u"couleur"_s, Titre(), {}, avant}, u"annuler *"_s);
  if (!reponse.cite) return std::nullopt;
  const QColor couleur(reponse.texte);
  return Couleur{couleur.red(), couleur.green(), couleur.blue()};
}

Journal::Reponse BoitesScenario::Demander(const BoiteVue &boite, const QString &possibles) {
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

bool CoquilleScenario::OuvrirSurLeBureau(const QString &document) {
  if (inerte) return false;
  journal_.ouverts.push_back(document);
  if (document.endsWith(u".xlsx"_s)) journal_.classeur = document;
  return true;
}

bool CoquilleScenario::Lancer(const QString &programme) {
  if (!PeutLancer(programme)) return false;
  journal_.lances.push_back(programme);
  return true;
}

QString CoquilleScenario::CheminLien(const QString &nom) const {
  return monde_.Home() + u"/Bureau/"_s + nom + u".desktop"_s;
}

bool CoquilleScenario::LienExiste(const QString &nom) const {
  return QFileInfo::exists(CheminLien(nom));
}

void CoquilleScenario::CreerLien(const QString &nom, const QString &) {
  if (nom.contains(u'/') || nom == u"."_s || nom == u".."_s)
    throw ErreurFichier(u"« %1 » ne peut pas être le nom d'un fichier."_s.arg(nom));
  CreerDossier(QFileInfo(CheminLien(nom)).path());
  RemplacerFichier(CheminLien(nom), {});
}

QString ListeDemarrageScenario::Chemin(const QString &nom) const {
  return monde_.Home() + u"/Demarrage/"_s + nom;
}

void ListeDemarrageScenario::Ajouter(const QString &nom, const QString &programme,
                                     const QString &argument) {
  const QString ligne = programme + u' ' + argument + u"\r\n"_s;
  Ignorer([&] {
    CreerDossier(QFileInfo(Chemin(nom)).path());
    RemplacerFichier(Chemin(nom), VersPageDeCode(ligne));
  });
}

void ListeDemarrageScenario::Retirer(const QString &nom) {
  Ignorer([&] { EffacerFichier(Chemin(nom)); });
}

bool PortSerieScenario::Ouvrir(int) {
  if (ouvert_) journal_.fautes.append(u"a port is opened before the last one is closed"_s);
  recus_.clear();
  return ouvert_ = branche;
}

void PortSerieScenario::Ecrire(const QByteArray &octets) {
  if (!ouvert_)
    journal_.fautes.append(u"\"%1\" is sent without a port"_s.arg(QString::fromLatin1(octets)));
  journal_.envoyes += octets;
  if (journal_.reponsesModem.empty()) return;
  recus_ += journal_.reponsesModem.front();
  journal_.reponsesModem.pop_front();
}

QByteArray PortSerieScenario::Lire() {
  if (!ouvert_) journal_.fautes.append(u"the port is read while it is closed"_s);
  return std::exchange(recus_, {});
}

class ImprimanteScenario::DocumentScenario : public Document {
 public:
  DocumentScenario(ImprimanteScenario &imprimante, const QString &appareil,
                   const DescriptionDocument &description)
      : imprimante_(imprimante),
        nom_(description.nom),
        pages_{PageImprimee{appareil, description.orientation, {}}} {}

  Millimetres LargeurPage() const override {
    return Millimetres(pages_.first().orientation == Orientation::Portrait ? 210 : 297);
  }
  Millimetres HauteurPage() const override {
    return Millimetres(pages_.first().orientation == Orientation::Portrait ? 297 : 210);
  }
  void NouvellePage() override {
    pages_.append(PageImprimee{pages_.first().imprimante, pages_.first().orientation, {}});
  }
  void Ecrire(Millimetres x, Millimetres y, const Police &police, const QString &texte) override {
    pages_.last().lignes.append({texte, x, y, police});
  }
  FinImpression Terminer() override {
    const QString appareil = pages_.first().imprimante;
    if (imprimante_.muettes.contains(appareil))
      return {.raison = appareil == Imprimante::NomPdf() ? u"Le disque est plein."_s : QString()};
    imprimante_.journal_.pages.append(pages_);
    if (appareil != NomPdf()) return {FinImpression::Issue::Imprimee};
    return {FinImpression::Issue::Enregistree,
            imprimante_.monde_.Home() + u"/Documents/"_s + nom_ + u".pdf"_s};
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
  QList<PageImprimee> pages_;
  MesurePolices mesure_;
};

QStringList ImprimanteScenario::Noms() {
  if (!repond) throw Erreur(u"Le serveur d'impression ne répond pas."_s);
  return connus_ = systeme + QStringList{NomPdf()};
}

void ImprimanteScenario::Demander(QObject *contexte, std::function<void(bool repondu)> suite) {
  // Told later, as the system does.
  QMetaObject::invokeMethod(
      contexte,
      [this, suite = std::move(suite)] {
        Ignorer([this] { Noms(); });
        suite(repond);
      },
      Qt::QueuedConnection);
}

std::unique_ptr<Document> ImprimanteScenario::Ouvrir(const QString &appareil,
                                                     const DescriptionDocument &description) {
  if (appareil != NomPdf() && !Noms().contains(appareil)) {
    journal_.fautes.append(u"there is no printer \"%1\""_s.arg(appareil));
    throw Erreur(u"L'imprimante n'est plus là."_s);
  }
  return std::make_unique<DocumentScenario>(*this, appareil, description);
}
