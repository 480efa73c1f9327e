#pragma once

#include "directory/Liste.h"
#include "envelope/EtatEnveloppe.h"
#include "envelope/FrmNouveau.h"
#include "envelope/ZonesEnveloppe.h"
#include "session/Session.h"
#include "storage/Imprimantes.h"

#include <QMainWindow>
#include <QShortcut>

#include <functional>
#include <memory>

class Annulation;
class CommandesCommentaire;
class FrmCarnet;
class Repertoire;
class Tirage;
class QToolButton;

namespace Ui {
class FrmPlomex;
}

/// The envelope window: one envelope, its format, the printer, and the printing.
class FrmPlomex : public QMainWindow {
  Q_OBJECT

 public:
  FrmPlomex(Session &session, Repertoire &repertoire);
  ~FrmPlomex() override;

  /// Reads the names and the sender; to be called once, before it is shown. What fails is told in a
  /// box, and the window goes without it.
  void Charger();

  /// Shows an address, or the empty state for none: it becomes the current one. `fiche` is the key
  /// of the correspondent whom it was read of, whose later changes are shown.
  void MontrerAdresse(const AdresseComposee &adresse, Cle fiche);

  /// Opens the address book on a category with all in it ticked, and prints their envelopes as one
  /// document. `montres` are those whom the directory shows, for a category that is the result of a
  /// search. False when the user has left the book.
  bool ImprimerCategorie(const QString &categorie, const QList<NoeudListe> &montres);

  /// The menu "?", whose commands the program brings.
  QMenu *mnuAide() const;

  /// Puts the menu of the sticky notes into the menu bar and under its button.
  void PoserMenuMemora(QMenu *menu);

 signals:
  void RepertoireDemande();
  void AlertesDemandees();
  void FermetureDemandee();

 protected:
  void closeEvent(QCloseEvent *evenement) override;
  bool event(QEvent *evenement) override;
  /// Enter prints the address that has the focus.
  void keyPressEvent(QKeyEvent *evenement) override;

 private:
  void PoserAnnulation();
  void Preparer();
  /// Printer and fonts whose names the settings have cut get them whole, where the system has one
  /// such name only.
  void CompleterNoms();
  /// A name as it is shown: that it could not be completed stands before it, where no label cuts
  /// it.
  QString AvecMarque(const QString &nom) const;
  void Brancher();
  /// Paper and correction of the printer, for the format in force.
  void MajPapier();
  /// Brings the labels of the window, the fonts and the places of the zones in step with the state.
  void MajEtiquettes();
  void PreparerRaccourci();
  void RemplirBarre();
  void RendreFocus();

  void ChoisirFormat(int index);
  void DemanderTaille();

  void SaisirAdresse(FrmNouveau::Mode mode);
  void ChoisirDansCarnet();
  void ImprimerPlusieurs();
  /// Offers the rest of an earlier run, then lets the user tick in the book, which `preparer` has
  /// made ready, and prints. False when he has left it.
  bool ImprimerCoches(bool dUnTrait, const std::function<void(FrmCarnet &)> &preparer);
  /// The window before a run and after it; `tirer` tells whether all of it was printed.
  void Tirer(const std::function<bool()> &tirer);
  void NouveauVelmira();

  void Imprimer();
  void Apercu();

  Session &session_;
  Repertoire &repertoire_;
  Imprimantes imprimantes_;
  std::unique_ptr<Ui::FrmPlomex> ui_;
  EtatEnveloppe etat_;
  ZonesEnveloppe zones_;
  std::unique_ptr<CommandesCommentaire> commentaire_;
  std::unique_ptr<Tirage> tirage_;
  QToolButton *imprimer_ = nullptr;
  QMenu *mnuInv3_ = nullptr;  ///< of the sticky notes
  QList<QShortcut *> raccourcis_;
  QStringList introuvables_;  ///< names that were cut, and could not be completed at the load
  int format_ = 0;            ///< index of the format in force
  int categorieCarnet_ = 0;   ///< index of the category chosen last in the address book
};
