#pragma once

#include "exchange/EtudeReprise.h"
#include "exchange/FichierRepris.h"
#include "exchange/Reprise.h"
#include "session/Session.h"

#include <QDialog>
#include <QList>
#include <QStringList>

#include <memory>
#include <optional>

namespace Ui {
class FrmReprise;
}

/// Persons of other programs' files on their way into the directory: files are chosen or dropped,
/// what is in them is shown as it would be here, beside those who are there already; then they are
/// taken over, and the report stays to be read and kept.
class FrmReprise : public QDialog {
  Q_OBJECT

 public:
  /// `annulable`: the program it stands in has a command that takes the last one back.
  FrmReprise(Session &session, bool annulable, QWidget *parent);
  ~FrmReprise() override;

  /// Looks at files as if they had been dropped on it; what cannot be taken is told.
  void Ajouter(const QStringList &chemins);

  /// What has been taken over last, if anything.
  const std::optional<BilanReprise> &Bilan() const { return bilan_; }

  void reject() override;

 signals:
  /// Persons have been taken over.
  void Repris(const BilanReprise &bilan);

 protected:
  void dragEnterEvent(QDragEnterEvent *evenement) override;
  void dragLeaveEvent(QDragLeaveEvent *evenement) override;
  void dropEvent(QDropEvent *evenement) override;
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  void Brancher();
  void Deposer(const QList<QUrl> &adresses);
  void ChoisirFichiers();
  /// Those from that one on.
  void MontrerNouveaux(qsizetype premier);
  void Retirer();
  /// Asks whether what is left of a damaged database is wanted.
  bool Accepte(const FichierRepris &fichier);
  /// Reads all of them again, and shows what it would come to.
  void Etudier();
  void MontrerEtude();
  /// Of the file that is selected.
  void MontrerFichier();
  void MontrerOnglet(QWidget *page, bool montre);
  void MontrerColonnes(const FichierRepris &fichier);
  void ChangerColonnes(const Correspondances &colonnes);
  /// What the main button does by now.
  void MajBoutons();
  void AllerA(QWidget *page);
  void Reprendre();
  BilanReprise Executer();
  void MontrerBilan();
  void Enregistrer();
  void Recommencer();
  UsagesReprise Usages() const;

  Session &session_;
  bool annulable_;
  std::unique_ptr<Ui::FrmReprise> ui_;
  QList<FichierRepris> fichiers_;
  EtudeReprise etude_;
  bool perimee_ = false;   ///< the study is none of these files and columns
  bool colonnes_ = false;  ///< columns were chosen that are not read yet
  std::optional<BilanReprise> bilan_;
  QString dossier_;  ///< of the last files
};
