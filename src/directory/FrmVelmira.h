#pragma once

#include "session/Session.h"
#include "storage/Lignes.h"

#include <QMainWindow>

#include <memory>

namespace Ui {
class FrmVelmira;
}

/// The directory: the list of correspondents, the record on display, the command bar and the menus.
class FrmVelmira : public QMainWindow {
  Q_OBJECT

 public:
  explicit FrmVelmira(Session &session);
  ~FrmVelmira() override;

  /// Saves what has been typed into the notes. Throws `ErreurBase`; what was typed stays on the
  /// screen then, and is not saved again.
  void EnregistrerNotes();

 signals:
  /// The envelope window is asked for; the address string of the record is the current one.
  void EnveloppeDemandee();
  void FermetureDemandee();

 protected:
  void closeEvent(QCloseEvent *evenement) override;
  bool event(QEvent *evenement) override;

 private:
  void Charger();
  void ChargerJour();
  void BrancherMenus();
  void AppliquerReglages();
  void CommandeBarre(int index);
  void VenirDevant();

  /// Collects the categories and fills the combo, its selection lost.
  void RemplirCategories();
  /// Fills the tree for the category of the combo.
  void ChargerListe();
  void EffacerFiche();

  void NoeudClic(const QModelIndex &noeud, Qt::MouseButton bouton);
  void MontrerFiche(const Correspondant &fiche);
  void AllerAuxEnveloppes();

  void ChoisirNaissance(quint8 affichage);
  void BasculerAdresseImportee(bool importee);
  QString LigneAge(const QString &ddn) const;

  Session &session_;
  std::unique_ptr<Ui::FrmVelmira> ui_;
  QMenu *mnuInv2_;  ///< pop-up of the list
  QString CategorieCourante;
  QString LettreRR;             ///< initial of the quick search
  Cle IndexCourant = 0;         ///< record on display, 0 for none
  QString adresseAffichee_;     ///< address string of the record on display
  quint8 OptionCourante = 0;    ///< order of its postal line
  bool RetourDeModule = false;  ///< another window has taken over: the record is to be shown anew
  bool premierPassage_ = true;
};
