#pragma once

#include "envelope/MiseEnPage.h"
#include "session/Session.h"

#include <QMainWindow>
#include <QShortcut>

#include <memory>

class CommandesCommentaire;

namespace Ui {
class FrmPlomex;
}

/// The envelope window: one envelope, its format, the printer, and the printing.
class FrmPlomex : public QMainWindow {
  Q_OBJECT

 public:
  explicit FrmPlomex(Session &session);
  ~FrmPlomex() override;

  /// Shows the current address, or the empty state when there is none.
  void MontrerAdresse();

  /// The empty state of the address zone: a zone that holds these 85 blanks prints nothing.
  static QString AdresseBlanche() { return QString(85, u' '); }

 signals:
  void RepertoireDemande();
  void FermetureDemandee();

 protected:
  void closeEvent(QCloseEvent *evenement) override;

 private:
  void Charger();
  void BrancherMenus();
  void ChargerExpediteur();
  /// Formats both zones anew, where they are not empty.
  void Reformater();
  /// Brings the labels of the window, the fonts and the places of the zones in step with the state.
  void MajEtiquettes();
  void DisposerZones();
  void PreparerRaccourci();
  void CommandeBarre(int index);
  void RendreFocus();

  void ChoisirFormat(int index);
  void DemanderTaille();

  ContenuEnveloppe Contenu() const;
  /// Draws the envelope and leaves the document open; false when printing is refused.
  bool ImprimerEnveloppe();
  void Imprimer();
  void Apercu();
  void Configurer();
  void ChoisirOptions();
  void RelierVilles();
  void MontrerDocument(const QString &chemin);

  Session &session_;
  std::unique_ptr<Ui::FrmPlomex> ui_;
  std::unique_ptr<CommandesCommentaire> commentaire_;
  QList<QShortcut *> raccourcis_;
  int format_ = 0;  ///< index of the format in force
};
