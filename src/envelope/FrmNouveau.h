#pragma once

#include "address/AdresseSaisie.h"
#include "envelope/ZonesEnveloppe.h"
#include "session/Session.h"
#include "storage/Lignes.h"

#include <QDialog>

#include <memory>
#include <optional>

class Repertoire;

namespace Ui {
class FrmNouveau;
}

/// Entry of a free address for the envelope, or of the senders that are kept.
class FrmNouveau : public QDialog {
  Q_OBJECT

 public:
  enum class Mode { Adresse = 1, Expediteurs = 2 };

  FrmNouveau(Session &session, Repertoire &repertoire, ZonesEnveloppe &zones, Mode mode,
             QWidget *parent);
  ~FrmNouveau() override;

 public slots:
  /// The same as the button, but for a question where something has been typed.
  void reject() override;

 protected:
  bool event(QEvent *evenement) override;
  void showEvent(QShowEvent *evenement) override;
  /// The close box ends an entry together with the window.
  void closeEvent(QCloseEvent *evenement) override;

 private:
  void Preparer();
  void Ecrire();
  /// Gives up the entry that is under way; without one the window closes.
  void Annuler();
  /// Asks where the fields are not as they were shown. What was given up is asked about no more.
  bool PeutPartir();

  void EnregistrerAdresse();
  void EnregistrerExpediteur();
  void EnregistrerChangement();
  void EnregistrerNouveau();
  /// The sender that is changed has been deleted by another user: the entry becomes a new one's.
  void ContinuerEnNouveau();
  void CommencerNouveau();
  void CommencerModification();
  /// For a new entry.
  void ViderChamps();
  void SupprimerExpediteur();
  void MontrerChoisi();
  /// Reads the list again and shows the chosen sender as it is now. Nothing, with a word to the
  /// user, when another has deleted it.
  std::optional<Expediteur> RelireChoisi(Cle index);
  /// Shows what other users have changed, while nothing is typed in and no dialog stands before
  /// this one.
  void Actualiser();
  /// Shows what has been taken back, or done again.
  void MontrerReprise();
  /// Of the default sender it is tried at once; nothing stands for the order of the table.
  void EssayerOption(std::optional<OptionCP> option);
  /// An order of the postal line that was tried goes out of the file again.
  void RendreOption();

  /// A sender is typed in or changed: the fields are open, the other commands shut.
  void Saisir(const QString &titre);
  void QuitterSaisie(const QString &titre);

  Session &session_;
  Repertoire &repertoire_;
  ZonesEnveloppe &zones_;
  Mode mode_;
  std::unique_ptr<Ui::FrmNouveau> ui_;
  bool enSaisie_ = false;     ///< a sender is typed in or changed
  bool ordreEssaye_ = false;  ///< the file has an order of the postal line that is only tried
  qint64 changements_ = 0;    ///< of other users, as of the last look
  Expediteur modifie_ = {};   ///< the one that is changed, as it was read; without a key a new one
  AdresseSaisie affichee_ = {};  ///< what the fields held before anything was typed
};
