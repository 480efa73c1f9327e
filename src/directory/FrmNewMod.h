#pragma once

#include "directory/Categories.h"
#include "directory/FicheSaisie.h"
#include "session/Session.h"

#include <QDialog>

#include <memory>

class PropositionAuFocus;
class QLineEdit;
class QUrl;

namespace Ui {
class FrmNewMod;
}

/// The editor of a correspondent. It never writes the record: it gives back what was typed, numbers
/// in their stored form, and whoever opened it writes. Titles and towns it keeps by itself.
class FrmNewMod : public QDialog {
  Q_OBJECT

 public:
  struct Contexte {
    bool protegesMasques = false;  ///< protected records are hidden from the others now
    /// The categories of the table have been swept by this rule.
    std::function<void(const RegleCategories &)> categoriesChangees;
  };

  FrmNewMod(Session &session, const QString &titre, Contexte contexte, QWidget *parent);
  ~FrmNewMod() override;

  /// Fills the form with a record.
  void Montrer(const Correspondant &fiche);

  /// Offers to print the envelope of what is typed before it is recorded.
  void ProposerImpression(std::function<void(const Correspondant &)> imprimer);

  /// What was typed; whatever of the record was not touched is as it was shown, to the letter.
  const FicheSaisie &Saisie() const { return saisie_; }

 public slots:
  /// Escape and the close box: asks first where something has been typed.
  void reject() override;

 protected:
  void showEvent(QShowEvent *evenement) override;
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  /// The fields that hold a text of the record as it is.
  struct Champ {
    QLineEdit *ligne;
    QString Correspondant::*texte;
  };
  QList<Champ> Champs() const;

  void Brancher();
  void BrancherNoms();
  /// The address as it will stand on the envelope.
  void MontrerApercu();
  void Valider();
  void Abandonner();
  /// Whether anything is not as it was shown.
  bool EstTouchee();
  void Prendre();
  /// What the form holds; notes and imported address are not in it.
  Correspondant Formulaire() const;
  /// Gives the numbers that have been changed their stored form.
  void FormaterNumeros();
  QString MarqueDeProtection() const;
  void QuitterChamp(const QObject *champ);
  /// The picker stands on the date in the field; without one it shows none and opens on today.
  void MontrerNaissance();
  void ImprimerPuisValider();
  void ChoisirPhoto();
  /// Asks for a cancelled choice; nothing where there is no picture.
  void ProposerRetrait();
  /// Refuses what is no picture that can be read here.
  void PrendrePhoto(const QString &chemin);
  void PrendreDepot(const QList<QUrl> &adresses);
  void MontrerPhoto(const QString &chemin);

  Session &session_;
  Contexte contexte_;
  std::unique_ptr<Ui::FrmNewMod> ui_;
  Correspondant depart_;  ///< what the form held before anything was typed
  QString photo_;
  PropositionAuFocus *nomPropose_ = nullptr;  ///< of the list's name
  FicheSaisie saisie_;
  std::function<void(const Correspondant &)> imprimer_;
};
