#pragma once

#include "directory/Annulation.h"
#include "directory/CommandesFiche.h"
#include "directory/CommandesImpression.h"
#include "directory/FicheAffichee.h"
#include "directory/ListeVelmiras.h"
#include "session/Session.h"

#include <QDate>
#include <QMainWindow>

#include <memory>
#include <utility>

class Apparence;
class CommandesAppel;
class CompteRendu;
class FrmLoupe;
struct Aspect;

namespace Ui {
class FrmVelmira;
}

/// The directory: the list of correspondents, the record on display, the command bar and the menus.
class FrmVelmira : public QMainWindow {
  Q_OBJECT

 public:
  explicit FrmVelmira(Session &session);
  ~FrmVelmira() override;

  /// Fills the list from the database, once, before the window is shown. Throws `ErreurBase`, and
  /// the list stays empty.
  void OuvrirListe();

  /// What the other windows may ask of the directory.
  Repertoire &LeRepertoire() { return commandes_; }

  /// The left side.
  ListeVelmiras &Liste() const;

  /// The items of its menus whose commands the program brings.
  struct Actions {
    QAction *mnuExport, *mnuImport, *mnuVelmira, *mnuEnvoyer;  ///< exchange
    QAction *mnuImporterAutre, *mnuExporterAutre;              ///< exchange with other programs
    QAction *mnuJF, *mnuFete, *mnuDate;                        ///< calendar
    QAction *mnuLiaison, *mnuChemin, *mnuTransfert, *mnuRepComp, *mnuRecup;  ///< the base
    QAction *mnuRestaurer, *mnuSauvegardes, *mnuMasquer;                     ///< its copies
    QMenu *mnuAide;
  };
  Actions LesActions() const;

  /// Puts the menu of the sticky notes into the menu bar and under its button.
  void PoserMenuMemora(QMenu *menu);

  /// Its line at the foot.
  CompteRendu &LeCompteRendu() const;

  /// Ends the call that is under way, if there is one.
  void Raccrocher();

  /// Shows the record that another program asks for, by its key or its name. Where several or none
  /// bear that name the list shows what a search for it finds, and false is given back. Throws
  /// `ErreurBase`.
  bool MontrerFiche(const QString &cible);
  /// Asks for the envelope window with the record on display.
  void AllerAuxEnveloppes();

  /// Saves what has been typed into the notes, and shows the user's protected records to the others
  /// again; when that fails it is told. False when notes that cannot be written are to stay on the
  /// screen.
  bool PreparerFermeture();

 signals:
  /// The envelope window is asked for, with the address of the record on display; key 0 for none.
  void EnveloppeDemandee(Cle fiche, const AdresseComposee &adresse);
  /// The envelopes of all those in a category, a pseudo-category too, are to be printed.
  void EnveloppesDeCategorieDemandees(const QString &categorie);
  void AlertesDemandees();
  void FermetureDemandee();
  void ClasseurDemande();

  /// The program is to be closed, as its close box does, and started anew.
  void RelanceDemandee();

 protected:
  void closeEvent(QCloseEvent *evenement) override;
  bool event(QEvent *evenement) override;

 private:
  void FaireCommandes();
  void RemplirBarre();
  void Brancher();
  void BrancherRecherche();
  void BrancherFiche();
  void Habiller(const Aspect &aspect);
  void ChargerJour();
  void VenirDevant();

  /// Shows what other users have changed since the last time. Throws `ErreurBase`; it is made up
  /// for at the next time.
  void Actualiser();
  /// The same where no command of the user's is under way, and without waiting for anybody.
  void ActualiserAuRepos();
  /// Shows what has been taken back, or done again, in whichever window.
  void SuivreReprise();
  /// What says something of the whole directory follows it.
  void SuivreDonnees();
  void InviterSelonDonnees();
  /// Shows a correspondent, in the whole list where the one on display has not got it.
  void OuvrirFiche(Cle index);
  /// Shows a category of the record on display, which stays selected.
  void OuvrirCategorie(const QString &categorie);
  void TrouverFiche(Cle index);

  /// The list selects the record on display, whatever was asked for.
  void AccorderSelection();

  /// Another user has deleted what is asked for: the list goes by that, and the user is told.
  void AnnoncerDisparition();

  void NoeudClic(Cle index, Qt::MouseButton bouton);
  void Nouveau();
  void Modifier();
  void Supprimer();
  void ImprimerListe();
  void MontrerCalendrier();
  void AllerAuxEnveloppesDeCategorie();
  void AllerAuxAlertes();
  void MasquerProteges(bool masquer);
  void EcrireMarques(bool masquer);
  void Agrandir();

  Session &session_;
  std::unique_ptr<Ui::FrmVelmira> ui_;
  FicheAffichee fiche_;
  CommandesFiche commandes_;
  CommandesImpression impression_;
  Annulation *annulation_ = nullptr;
  std::unique_ptr<Apparence> apparence_;
  CommandesAppel *appel_ = nullptr;
  std::unique_ptr<FrmLoupe> loupe_;
  QMenu *mnuInv2_;              ///< pop-up of the list
  QMenu *mnuInv3_ = nullptr;    ///< of the sticky notes
  bool RetourDeModule = false;  ///< another window has taken over: the record is to be shown anew
  QString depart_;              ///< why the record on display has gone, until another one is chosen
  bool premierPassage_ = true;
  const int niveau_;        ///< of the event loop that no command runs in
  qint64 changements_ = 0;  ///< of the database when it was shown last
  /// When the directory was last looked through, and as it was then.
  std::pair<QDate, Base::Etat> suivi_;
};
