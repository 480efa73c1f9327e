#include "player/Doubles.h"

#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"
#include "ui/MesurePolices.h"

#include <QColor>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

void HorlogeScenario::Attendre(std::chrono::milliseconds duree, const std::function<bool()> &) {
  pauses_.push_back(duree);
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
  const auto nom = [genre] {
    switch (genre) {
      case Genre::Information:
        return u"information"_s;
      case Genre::Attention:
        return u"attention"_s;
      case Genre::Critique:
        return u"critique"_s;
      case Genre::Simple:
        break;
    }
    return u"simple"_s;
  };
  vues_.push_back({nom(), titre, texte, u"ok"_s});
}

Boites::Reponse BoitesScenario::Question(const QString &titre, const QString &texte,
                                         Reponse defaut) {
  vues_.push_back({u"question"_s, titre, texte, defaut == Reponse::Oui ? u"oui"_s : u"non"_s});
  const auto reponse = Repondre(vues_.back(), {u"oui"_s, u"non"_s, u"annuler"_s}, false);
  return reponse.texte == u"oui"_s ? Reponse::Oui : Reponse::Non;
}

std::optional<QString> BoitesScenario::Saisie(const QString &titre, const QString &invite,
                                              const QString &defaut) {
  vues_.push_back({u"saisie"_s, titre, invite, defaut});
  const auto reponse = Repondre(vues_.back(), {u"ok"_s, u"annuler"_s}, true);
  if (reponse.cite) return reponse.texte;
  return reponse.texte == u"ok"_s ? std::optional(defaut) : std::nullopt;
}

bool BoitesScenario::Confirmation(const QString &titre, const QString &texte) {
  vues_.push_back({u"question"_s, titre, texte, {}});
  return Repondre(vues_.back(), {u"ok"_s, u"annuler"_s}, false).texte == u"ok"_s;
}

Boites::Choix BoitesScenario::QuestionAnnulable(const QString &titre, const QString &texte) {
  vues_.push_back({u"question"_s, titre, texte, {}});
  const auto reponse = Repondre(vues_.back(), {u"oui"_s, u"non"_s, u"annuler"_s}, false);
  if (reponse.texte == u"oui"_s) return Choix::Oui;
  return reponse.texte == u"non"_s ? Choix::Non : Choix::Annuler;
}

QString BoitesScenario::Fichier(const QString &invite, const QString &dossier,
                                const QString &filtre) {
  vues_.push_back({u"fichier"_s, invite, filtre, dossier});
  return RepondreChemin(vues_.back());
}

std::optional<Boites::Couleur> BoitesScenario::ChoixCouleur(const Couleur &depart) {
  vues_.push_back(
      {u"couleur"_s, Titre(), {}, QColor(depart.rouge, depart.vert, depart.bleu).name()});
  const auto reponse = Repondre(vues_.back(), {u"annuler"_s}, true);
  if (!reponse.cite) return std::nullopt;
  const QColor couleur(reponse.texte);
  if (!couleur.isValid()) fautes_.append(u"\"%1\" is no colour"_s.arg(reponse.texte));
  return Couleur{couleur.red(), couleur.green(), couleur.blue()};
}

void BoitesScenario::Erreur(const QString &texte) {
  vues_.push_back({u"erreur"_s, Titre(), texte, u"ok"_s});
}

QString BoitesScenario::Dossier(const QString &invite) {
  vues_.push_back({u"dossier"_s, Titre(), invite, {}});
  return RepondreChemin(vues_.back());
}

QString BoitesScenario::RepondreChemin(const BoiteVue &boite) {
  const auto reponse = Repondre(boite, {u"annuler"_s}, true);
  return reponse.cite ? QDir::cleanPath(monde_.Chemin(reponse.texte)) : QString();
}

BoitesScenario::ReponsePrevue BoitesScenario::Repondre(const BoiteVue &boite,
                                                       const QStringList &possibles, bool texte) {
  if (reponses_.empty()) {
    fautes_.append(u"no answer is queued for the box %1 \"%2\" \"%3\""_s.arg(
        boite.genre, boite.titre, boite.texte));
    return {};
  }
  ReponsePrevue reponse = std::move(reponses_.front());
  reponses_.pop_front();
  if (reponse.cite ? !texte : !possibles.contains(reponse.texte))
    fautes_.append(
        u"\"%1\" is no answer to the box %2 \"%3\""_s.arg(reponse.texte, boite.genre, boite.texte));
  return reponse;
}

bool CoquilleScenario::OuvrirSurLeBureau(const QString &document) {
  if (inerte_) return false;
  ouverts_.push_back(document);
  if (document.endsWith(u".xlsx"_s)) classeur_ = document;
  return true;
}

bool CoquilleScenario::Lancer(const QString &programme) {
  if (!PeutLancer(programme)) return false;
  lances_.push_back(programme);
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
  const QString chemin = CheminLien(nom);
  CreerDossier(QFileInfo(chemin).path());
  RemplacerFichier(chemin, {});
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
  if (ouvert_) fautes_.append(u"a port is opened before the last one is closed"_s);
  ouvert_ = branche_;
  recus_.clear();
  return ouvert_;
}

void PortSerieScenario::Ecrire(const QByteArray &octets) {
  if (!ouvert_) {
    fautes_.append(u"\"%1\" is sent without a port"_s.arg(QString::fromLatin1(octets)));
    return;
  }
  envoyes_ += octets;
  if (reponses_.empty()) return;
  recus_ += reponses_.front();
  reponses_.pop_front();
}

QByteArray PortSerieScenario::Lire() {
  if (!ouvert_) fautes_.append(u"the port is read while it is closed"_s);
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
    if (termine_) imprimante_.fautes_.append(u"\"%1\" is printed behind the end"_s.arg(texte));
    pages_.last().lignes.append({texte, x, y, police});
  }
  FinImpression Terminer() override {
    if (std::exchange(termine_, true)) imprimante_.fautes_.append(u"a document is ended twice"_s);
    const QString appareil = pages_.first().imprimante;
    if (imprimante_.muettes_.contains(appareil))
      return {.raison = appareil == Imprimante::NomPdf() ? u"Le disque est plein."_s : QString()};
    imprimante_.pages_.append(pages_);
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
  bool termine_ = false;
};

QStringList ImprimanteScenario::Noms() {
  if (!repond_) throw Erreur(u"Le serveur d'impression ne répond pas."_s);
  return connus_ = systeme_ + QStringList{NomPdf()};
}

void ImprimanteScenario::Demander(QObject *contexte, std::function<void(bool repondu)> suite) {
  // Told later, as the system does.
  QMetaObject::invokeMethod(
      contexte,
      [this, suite = std::move(suite)] {
        Ignorer([this] { Noms(); });
        suite(repond_);
      },
      Qt::QueuedConnection);
}

std::unique_ptr<Document> ImprimanteScenario::Ouvrir(const QString &appareil,
                                                     const DescriptionDocument &description) {
  if (appareil != NomPdf() && !Noms().contains(appareil)) {
    fautes_.append(u"there is no printer \"%1\""_s.arg(appareil));
    throw Erreur(u"L'imprimante n'est plus là."_s);
  }
  return std::make_unique<DocumentScenario>(*this, appareil, description);
}
