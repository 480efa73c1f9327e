#pragma once
// One run of the program: it makes the session and the windows, and the wires between them.

#include "app/LigneDeCommande.h"
#include "session/Session.h"
#include "storage/Lignes.h"
#include "ui/EntreePresse.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

class EchelleProgramme;
class FrmDepart;
class FrmPlomex;
class FrmVelmira;
class MenuMemora;
class PlacesFenetres;
class SelectionClasseur;
class TravailDeFond;
struct AdresseComposee;

class Programme : public QObject {
  Q_OBJECT

 public:
  Programme(Plateforme &plateforme, const QString &appPath);
  ~Programme() override;

  /// Shows the splash, finds the data, loads the directory window and plans the showing of the
  /// first window. Gives false when the user has stopped the launch: the program then ends. It has
  /// ended already (`Termine`) when a damaged database is repaired first.
  bool Demarrer();

  /// Shows a record, in the directory at the front, and prepares its envelope where that is asked
  /// for: once the windows are there and no dialog waits for the user.
  void OuvrirFiche(const FicheVoulue &fiche);

 signals:
  /// The program has been closed: settings are written, the database is closed.
  void Termine();

 private:
  /// False: the repair of the database is wanted, which begins once the program has ended.
  bool Charger();
  /// A step of the opening; what fails is told, and what comes after goes on with what there is.
  /// The first that finds the database damaged offers its repair; false when that is wanted.
  bool Ouvrir(const std::function<void()> &etape);
  bool ReparationVoulue();
  /// The envelope window, made when it is first needed: it stays to the end.
  FrmPlomex &Enveloppes();
  /// What goes from the directory to the other window, and to the next run.
  void BrancherRepertoire();
  /// What goes from either window to what belongs to neither, and to the end.
  template <typename Fenetre>
  void BrancherModules(Fenetre &fenetre);
  /// The commands that stand in the directory's menus and belong to other modules.
  void PoserCommandes();
  void MontrerPremiereFenetre();
  void OuvrirBase();
  void OuvrirFicheVoulue();
  /// Makes visible again what a run that died while hiding has left hidden.
  void RendreMarques();
  void VersEnveloppes(Cle fiche, const AdresseComposee &adresse);
  void VersEnveloppesDeCategorie(const QString &categorie);
  /// The envelope window takes the place of the directory's.
  void PasserAuxEnveloppes();
  void VersRepertoire();
  /// The pause between the two windows, where the user has asked for it.
  void PasserLentement();

  /// Closes the program, once the handler that asks for it has returned: what was typed and the
  /// settings are written. When that fails it is told, and the program goes on without `suite`;
  /// otherwise `suite` is its last act, its windows gone and the database closed.
  void FermerPuis(std::function<void()> suite);
  /// Writes what was typed and the settings, and shows the records that were hidden. False when the
  /// user goes on with what could not be written.
  bool Enregistrer();
  /// Ends the program at once; nothing more is written.
  void Terminer();
  /// The end of both.
  void Finir(const std::function<void()> &suite);

  Session session_;
  EntreePresse entree_;
  std::unique_ptr<PlacesFenetres> places_;
  std::unique_ptr<EchelleProgramme> echelle_;
  std::unique_ptr<FrmDepart> depart_;
  std::unique_ptr<FrmVelmira> velmira_;
  std::unique_ptr<FrmPlomex> plomex_;
  MenuMemora *memora_ = nullptr;  ///< the directory's
  std::unique_ptr<SelectionClasseur> classeur_;
  std::unique_ptr<TravailDeFond> balayage_;
  std::optional<FicheVoulue> voulue_;  ///< that is to be opened as soon as it can
  bool endommagee_ = false;            ///< the database, and the user knows it
  bool pret_ = false;                  ///< the windows have been shown
  bool fermeture_ = false;             ///< it has begun, and nothing stops it any more
};
