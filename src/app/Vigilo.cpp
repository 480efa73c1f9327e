#include "app/Vigilo.h"

#include "alerts/Compagnons.h"
#include "alerts/FrmVigilo.h"
#include "app/Lancement.h"
#include "help/ToucheAide.h"
#include "platform/Erreurs.h"
#include "ui/EchelleProgramme.h"
#include "ui/Garde.h"
#include "ui/PlacesFenetres.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kEssais = 12;

QString TitreNotification(const Vigilance &vigilance) {
  const qsizetype nombre = vigilance.dues.size() + vigilance.manquees.size();
  return nombre == 1 ? u"Une alerte"_s : u"%1 alertes"_s.arg(nombre);
}

QString TexteNotification(const Vigilance &vigilance, const QLocale &langue) {
  constexpr qsizetype kLignes = 5;
  QStringList lignes;
  for (const Alerte &alerte : vigilance.dues + vigilance.manquees)
    lignes.append(LigneAlerte(alerte, langue));
  if (lignes.size() > kLignes) lignes = lignes.first(kLignes) + QStringList{u"…"_s};
  return lignes.join(u'\n');
}

}  // namespace

Vigilo::Depart Vigilo::DepartDe(const QStringList &mots) {
  if (mots.contains(u"auto"_s)) return Depart::Session;
  return mots.contains(u"--montrer"_s) ? Depart::Voulu : Depart::Programme;
}

Vigilo::Vigilo(const Moyens &moyens, const QString &appPath, Depart depart)
    : moyens_(moyens), appPath_(appPath), depart_(depart) {}

Vigilo::~Vigilo() = default;

void Vigilo::Commencer() {
  try {
    Lire();
  } catch (const Erreur &erreur) {
    Echouer(erreur.Texte());
    return;
  }
  if (!lus_.reserve.isEmpty() && Patienter()) return;
  if (vigilance_.EstVide() && depart_ != Depart::Voulu)
    Finir();
  else
    Ouvrir();
}

bool Vigilo::Patienter() {
  if (depart_ != Depart::Session || ++essais_ >= kEssais) return false;
  moyens_.horloge.Apres(10s, this, [this] {
    if (!fenetre_) Commencer();
  });
  return true;
}

void Vigilo::Echouer(const QString &texte) {
  if (Patienter()) return;
  if (depart_ != Depart::Session) moyens_.boites.Erreur(texte);
  emit Termine(EXIT_FAILURE);
}

void Vigilo::Lire() {
  jour_ = Aujourdhui();
  lus_ = LireEvenements(appPath_, moyens_.utilisateur);
  if (lus_.base.isEmpty()) {
    vigilance_ = {};
    return;
  }
  if (!memoireLue_)
    Ignorer([this] {
      memoire_ = MemoireAlertes(appPath_, lus_.base, moyens_.utilisateur);
      memoireLue_ = true;
    });
  vigilance_ = Surveiller(lus_.personnes, memoire_, jour_);
}

void Vigilo::Ouvrir() {
  LireReglages(appPath_, reglages_);
  places_ = std::make_unique<PlacesFenetres>(appPath_, reglages_.rtcolor.TailleFenetre);
  echelle_ = std::make_unique<EchelleProgramme>(reglages_.rtcolor.TailleFenetre);
  fenetre_ = std::make_unique<FrmVigilo>(moyens_.boites, moyens_.langue);
  connect(fenetre_.get(), &FrmVigilo::Vues, this,
          Garde(moyens_.boites, [this](const QList<Alerte> &alertes) { NoterVues(alertes); }));
  connect(fenetre_.get(), &FrmVigilo::FicheDemandee, this,
          Garde(moyens_.boites, [this](const QString &nom) { Demander(nom, false); }));
  connect(fenetre_.get(), &FrmVigilo::EnveloppeDemandee, this,
          Garde(moyens_.boites, [this](const QString &nom) { Demander(nom, true); }));
  new ToucheAide(moyens_.boites, moyens_.coquille, appPath_, fenetre_.get());
  connect(fenetre_.get(), &FrmVigilo::finished, this, &Vigilo::Finir);
  echelle_->Appliquer(fenetre_.get());
  Montrer();
  fenetre_->show();
  if (!vigilance_.EstVide()) Annoncer();
  SuivreLeJour();
}

void Vigilo::Montrer() {
  fenetre_->Montrer(
      vigilance_, jour_,
      lus_.base.isEmpty() ? u"Aucune base de données n'a été trouvée."_s : lus_.reserve);
}

void Vigilo::Annoncer() {
  if (depart_ == Depart::Session)
    moyens_.notifications.Montrer(TitreNotification(vigilance_),
                                  TexteNotification(vigilance_, moyens_.langue), this,
                                  [this] { Reprendre(Depart::Voulu); });
  if (reglages_.memora.AssocierAlertes)
    moyens_.coquille.Lancer(CheminCompagnon(appPath_, Compagnon::Memora), {u"auto"_s});
}

void Vigilo::Reprendre(Depart depart) {
  if (!fenetre_) {  // between two tries at log-on, say
    depart_ = depart;
    Commencer();
    return;
  }
  Ignorer([this] { Lire(); });
  Montrer();
  fenetre_->show();
  fenetre_->raise();
  fenetre_->activateWindow();
}

void Vigilo::SuivreLeJour() {
  moyens_.horloge.Apres(60s, this, [this] {
    SuivreLeJour();
    if (jour_ == Aujourdhui()) return;
    Ignorer([this] {
      Lire();
      Montrer();
    });
  });
}

void Vigilo::NoterVues(const QList<Alerte> &alertes) {
  for (const Alerte &alerte : alertes)
    if (alerte.due)
      memoire_.NoterVue(alerte.evenement, alerte.jour, jour_);
    else
      memoire_.NoterDite(alerte.evenement, alerte.jour);
  vigilance_ = Surveiller(lus_.personnes, memoire_, jour_);
  Montrer();
  if (memoireLue_) memoire_.Ecrire();
}

void Vigilo::Demander(const QString &nom, bool enveloppe) {
  QStringList arguments{u"--fiche"_s, CibleDe(appPath_, moyens_.utilisateur, nom)};
  if (enveloppe) arguments.append(u"--enveloppe"_s);
  if (!LancerVelmira(moyens_.coquille, appPath_, arguments))
    throw ErreurFichier(u"Velmira n'a pas pu être lancé : le programme est introuvable."_s);
}

void Vigilo::Finir() {
  if (places_) places_->Ecrire();
  if (memoireLue_) {
    for (const Alerte &alerte : vigilance_.dues) memoire_.NoterDite(alerte.evenement, alerte.jour);
    memoire_.NoterRegard(jour_);
    Ignorer([this] { memoire_.Ecrire(); });
  }
  emit Termine(EXIT_SUCCESS);
}
