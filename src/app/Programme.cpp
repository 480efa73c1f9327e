#include "app/Programme.h"

#include "alerts/Compagnons.h"
#include "alerts/FrmOptionsAnn.h"
#include "alerts/MenuMemora.h"
#include "app/Demarrage.h"
#include "app/FrmDepart.h"
#include "calendar/CommandesFetes.h"
#include "directory/FrmVelmira.h"
#include "envelope/FrmPlomex.h"
#include "exchange/CommandesAutresProgrammes.h"
#include "exchange/CommandesEchange.h"
#include "exchange/SelectionClasseur.h"
#include "help/CommandesAide.h"
#include "help/ToucheAide.h"
#include "maintenance/CommandesBase.h"
#include "maintenance/CommandesSauvegarde.h"
#include "platform/Erreurs.h"
#include "storage/Balayage.h"
#include "storage/DossierApplication.h"
#include "storage/Sauvegardes.h"
#include "storage/Tables.h"
#include "ui/EchelleProgramme.h"
#include "ui/Garde.h"
#include "ui/PlacesFenetres.h"
#include "ui/Sablier.h"
#include "ui/TravailDeFond.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

void MettreDevant(QWidget &fenetre) {
  fenetre.setWindowState(fenetre.windowState() & ~Qt::WindowMinimized);
  fenetre.show();
  fenetre.raise();
  fenetre.activateWindow();
}

/// Waits for a window to be painted; the user's input waits meanwhile.
class AttentePeinture : public QObject {
 public:
  explicit AttentePeinture(QWidget &fenetre) { fenetre.installEventFilter(this); }

  void Attendre() {
    if (peinte_) return;
    QTimer::singleShot(500ms, &boucle_, &QEventLoop::quit);  // a desktop may keep it hidden
    boucle_.exec(QEventLoop::ExcludeUserInputEvents);
  }

  bool eventFilter(QObject *, QEvent *evenement) override {
    if (evenement->type() == QEvent::Paint) {
      peinte_ = true;
      boucle_.quit();
    }
    return false;
  }

 private:
  QEventLoop boucle_;
  bool peinte_ = false;
};

}  // namespace

Programme::Programme(Plateforme &plateforme, const QString &appPath)
    : session_{plateforme, {}, {}, {}} {
  session_.dossiers.AppPath = appPath;
  session_.dossiers.Classeurs = plateforme.cache + u"/Classeurs"_s;
}

Programme::~Programme() = default;

bool Programme::Demarrer() {
  depart_ = std::make_unique<FrmDepart>();
  AttentePeinture attente(*depart_);
  depart_->show();
  attente.Attendre();
  std::optional<Sablier> sablier;
  const auto montrer = [&](const QString &texte) {
    if (texte.isEmpty())
      sablier.reset();
    else if (!sablier)
      sablier.emplace();
    depart_->Annoncer(texte);
  };
  // From the thread of an upgrade the lines come one after the other; from this one, at once.
  const auto annoncer = [&](const QString &texte) {
    QMetaObject::invokeMethod(depart_.get(), [&montrer, texte] { montrer(texte); });
  };
  const auto executer = [](const std::function<void()> &tache) {
    TravailDeFond fond([&tache](const std::stop_token &) { tache(); });
    fond.Attendre(QEventLoop::ExcludeUserInputEvents);
    fond.Finir();
  };
  const auto sauver = [this](const QString &base) {
    Sauvegarder({base, LireDossierChoisi(session_.dossiers.AppPath)},
                session_.plateforme.horloge.Maintenant(), MotifSauvegarde::MiseAJour);
  };
  if (!Demarrage(session_.plateforme.boites, session_.dossiers, {annoncer, executer, sauver})
           .Executer()) {
    depart_->hide();
    return false;
  }
  if (Charger())
    session_.plateforme.horloge.Apres(1500ms, this, [this] { MontrerPremiereFenetre(); });
  else
    Finir([this] { CommandesBase::LancerReparation(session_); });
  return true;
}

bool Programme::Charger() {
  LireReglages(session_.dossiers.AppPath, session_.reglages);
  EntretenirDossier(session_.dossiers);
  if (!Ouvrir([this] { OuvrirBase(); })) return false;

  const qint32 taille = session_.reglages.rtcolor.TailleFenetre;
  places_ = std::make_unique<PlacesFenetres>(session_.dossiers.AppPath, taille);
  echelle_ = std::make_unique<EchelleProgramme>(taille);
  echelle_->Appliquer(depart_.get());  // which was there before its size was known
  velmira_ = std::make_unique<FrmVelmira>(session_);
  if (!Ouvrir([this] { velmira_->OuvrirListe(); })) return false;
  BrancherRepertoire();
  PoserCommandes();
  echelle_->Appliquer(velmira_.get());
  return true;
}

template <typename Fenetre>
void Programme::BrancherModules(Fenetre &fenetre) {
  connect(&fenetre, &Fenetre::AlertesDemandees, this,
          Garde(session_.plateforme.boites, [this, &fenetre] {
            FrmOptionsAnn(session_, velmira_->LeRepertoire(), &fenetre).exec();
          }));
  connect(&fenetre, &Fenetre::FermetureDemandee, this, [this] { FermerPuis({}); });
}

void Programme::BrancherRepertoire() {
  BrancherModules(*velmira_);
  connect(velmira_.get(), &FrmVelmira::EnveloppeDemandee, this, &Programme::VersEnveloppes);
  connect(velmira_.get(), &FrmVelmira::EnveloppesDeCategorieDemandees, this,
          Garde(session_.plateforme.boites,
                [this](const QString &categorie) { VersEnveloppesDeCategorie(categorie); }));
  // Only once everything is written: the next run reads it.
  connect(velmira_.get(), &FrmVelmira::RelanceDemandee, this,
          [this] { FermerPuis([this] { session_.plateforme.coquille.RelancerProgramme(); }); });
}

FrmPlomex &Programme::Enveloppes() {
  if (plomex_) return *plomex_;
  plomex_ = std::make_unique<FrmPlomex>(session_, velmira_->LeRepertoire());
  connect(plomex_.get(), &FrmPlomex::RepertoireDemande, this, &Programme::VersRepertoire);
  BrancherModules(*plomex_);
  auto *menu = new MenuMemora(session_, plomex_.get());
  plomex_->PoserMenuMemora(menu);
  connect(memora_, &MenuMemora::Change, menu, &MenuMemora::MajCoches);
  connect(menu, &MenuMemora::Change, memora_, &MenuMemora::MajCoches);
  new CommandesAide(session_, plomex_->mnuAide(), plomex_.get());
  echelle_->Appliquer(plomex_.get());
  plomex_->Charger();  // last: a box may let others come here meanwhile
  return *plomex_;
}

void Programme::PoserCommandes() {
  FrmVelmira *velmira = velmira_.get();
  const FrmVelmira::Actions a = velmira->LesActions();
  new CommandesEchange(session_, {a.mnuExport, a.mnuImport, a.mnuVelmira, a.mnuEnvoyer},
                       velmira->LeRepertoire(), velmira->LeCompteRendu(), velmira);
  new CommandesAutresProgrammes(session_, {a.mnuImporterAutre, a.mnuExporterAutre},
                                velmira->LeRepertoire(), velmira->Liste(), velmira->LeCompteRendu(),
                                velmira);
  new CommandesFetes(session_, a.mnuJF, a.mnuFete, a.mnuDate, velmira);
  new CommandesBase(session_, {a.mnuLiaison, a.mnuChemin, a.mnuTransfert, a.mnuRepComp, a.mnuRecup},
                    {[velmira] { velmira->Liste().CliquerRacine(); },
                     [this](std::function<void()> suite) { FermerPuis(std::move(suite)); },
                     [this] { return Enregistrer(); }, [this] { Terminer(); }},
                    velmira);
  new CommandesSauvegarde(
      session_, {a.mnuRestaurer, a.mnuSauvegardes, a.mnuMasquer},
      {[velmira] { velmira->Liste().CliquerRacine(); },
       [this] { FermerPuis([this] { session_.plateforme.coquille.RelancerProgramme(); }); }},
      velmira->LeCompteRendu(), velmira);
  classeur_ =
      std::make_unique<SelectionClasseur>(session_, velmira->Liste(), velmira->LeCompteRendu());
  connect(velmira, &FrmVelmira::ClasseurDemande, this,
          Garde(session_.plateforme.boites, [this] { classeur_->Commencer(); }));
  memora_ = new MenuMemora(session_, velmira);
  velmira->PoserMenuMemora(memora_);
  new CommandesAide(session_, a.mnuAide, velmira);
  new ToucheAide(session_.plateforme.boites, session_.plateforme.coquille,
                 session_.dossiers.AppPath, this);
}

bool Programme::Ouvrir(const std::function<void()> &etape) {
  bool suite = true;
  Signaler(session_.plateforme.boites, [&] {
    try {
      etape();
    } catch (const ErreurBase &erreur) {
      if (erreur.Genre() != GenreErreur::Endommagee) throw;
      if (!std::exchange(endommagee_, true)) suite = !ReparationVoulue();
    }
  });
  return suite;
}

bool Programme::ReparationVoulue() {
  const QString base = QDir::toNativeSeparators(session_.dossiers.Base());
  if (session_.plateforme.boites.Question(
          Boites::Titre(),
          u"La base de données « %1 » est endommagée. La réparer maintenant ?"_s.arg(base)) !=
      Boites::Reponse::Oui)
    return false;
  CommandesBase::ExigerReparation(session_);
  return true;
}

void Programme::OuvrirBase() {
  try {
    session_.base.Ouvrir(session_.dossiers.Base());
  } catch (const ErreurBase &erreur) {
    if (erreur.Genre() == GenreErreur::Endommagee) throw;
    session_.plateforme.boites.Critique(erreur.Texte());
  }
  if (session_.base.Ouverte()) RendreMarques();
}

void Programme::RendreMarques() {
  const QString &utilisateur = session_.plateforme.utilisateur;
  TableAdresse adresses(session_.base);
  if (!utilisateur.isEmpty() && adresses.ADesMasques(utilisateur))
    adresses.MasquerProteges(utilisateur, false);
}

void Programme::MontrerPremiereFenetre() {
  pret_ = true;
  if (session_.reglages.plomex.Enveloppe && !voulue_)
    MettreDevant(Enveloppes());
  else
    MettreDevant(*velmira_);
  depart_->hide();
  balayage_ = std::make_unique<TravailDeFond>(
      [dossiers = session_.dossiers, maintenant = session_.plateforme.horloge.Maintenant()](
          const std::stop_token &) { BalayerRestes(dossiers, maintenant); });
  OuvrirFicheVoulue();
  if (session_.reglages.alarme.AlerteAvecProgramme)  // once the window has been painted
    session_.plateforme.horloge.Apres(500ms, this, [this] {
      session_.plateforme.coquille.Lancer(
          CheminCompagnon(session_.dossiers.AppPath, Compagnon::Alertes));
    });
}

void Programme::OuvrirFiche(const FicheVoulue &fiche) {
  const bool attendue = std::exchange(voulue_, fiche).has_value();
  if (!pret_) return;
  if (QWidget *dialogue = QApplication::activeModalWidget()) MettreDevant(*dialogue);
  if (!attendue) OuvrirFicheVoulue();
}

void Programme::OuvrirFicheVoulue() {
  if (!voulue_ || fermeture_) return;
  if (QApplication::activeModalWidget() != nullptr) {
    session_.plateforme.horloge.Apres(500ms, this, [this] { OuvrirFicheVoulue(); });
    return;
  }
  const FicheVoulue fiche = *std::exchange(voulue_, {});
  if (!velmira_->isVisible()) VersRepertoire();
  MettreDevant(*velmira_);
  Signaler(session_.plateforme.boites, [&] {
    if (!velmira_->MontrerFiche(fiche.cible) || !fiche.enveloppe) return;
    // Once the desktop has placed the directory, on whose middle the other window comes.
    session_.plateforme.horloge.Apres(200ms, velmira_.get(), [this] {
      if (!fermeture_) velmira_->AllerAuxEnveloppes();
    });
  });
}

void Programme::PasserLentement() {
  const ReglagesRTColor &rtcolor = session_.reglages.rtcolor;
  if (rtcolor.EffetVisuel)
    session_.plateforme.horloge.Pause(
        std::chrono::milliseconds(std::max<qint16>(0, rtcolor.VitesseTransition)));
}

void Programme::VersEnveloppes(Cle fiche, const AdresseComposee &adresse) {
  Enveloppes().MontrerAdresse(adresse, fiche);
  PasserAuxEnveloppes();
}

void Programme::VersEnveloppesDeCategorie(const QString &categorie) {
  const ModeleListe &modele = velmira_->Liste().Arbre().Modele();
  QList<NoeudListe> montres;
  for (int i = 0; i < modele.rowCount(modele.Racine()); ++i) {
    const QModelIndex noeud = modele.index(i, 0, modele.Racine());
    montres.append({Texte(noeud), noeud.data(Qt::UserRole).toLongLong()});
  }
  PasserAuxEnveloppes();
  if (!plomex_->ImprimerCategorie(categorie, montres)) VersRepertoire();
}

void Programme::PasserAuxEnveloppes() {
  MettreDevant(Enveloppes());
  PasserLentement();
  velmira_->hide();
}

void Programme::VersRepertoire() {
  MettreDevant(*velmira_);
  PasserLentement();
  if (plomex_) plomex_->hide();
}

void Programme::FermerPuis(std::function<void()> suite) {
  const auto fermer = [this, suite = std::move(suite)] {
    if (fermeture_) return;
    if (!Enregistrer()) return;  // it stays open for a second try
    fermeture_ = true;
    depart_->AnnoncerFermeture();
    depart_->show();
    session_.plateforme.horloge.Pause(500ms);
    Finir(suite);
  };
  // Later: the window that asks is still at work.
  QMetaObject::invokeMethod(this, Garde(session_.plateforme.boites, fermer), Qt::QueuedConnection);
}

bool Programme::Enregistrer() {
  if (!velmira_->PreparerFermeture()) return false;
  Signaler(session_.plateforme.boites,
           [this] { EcrireReglages(session_.dossiers.AppPath, session_.reglages.plomex); });
  return true;
}

void Programme::Terminer() {
  fermeture_ = true;
  velmira_->Raccrocher();  // nothing may keep the program from ending
  Finir({});
}

void Programme::Finir(const std::function<void()> &suite) {
  session_.base.Fermer();
  depart_->hide();
  if (velmira_) velmira_->hide();
  if (plomex_) plomex_->hide();
  if (places_) places_->Ecrire();
  if (suite) Signaler(session_.plateforme.boites, suite);
  emit Termine();
}
