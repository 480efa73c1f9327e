#pragma once

#include "directory/Liste.h"
#include "exchange/ExportPersonnes.h"
#include "session/Session.h"
#include "storage/Preferences.h"

#include <QDialog>
#include <QRadioButton>

#include <array>
#include <memory>
#include <vector>

class CompteRendu;
class ListeVelmiras;

namespace Ui {
class FrmExport;
}

/// What is written for another program: the form of the file, and who goes into it. The list is of
/// the category that the directory shows, each of it ticked; where the directory has boxes, as they
/// are there. The last form and folder are kept in `Etat.ini`.
class FrmExport : public QDialog {
  Q_OBJECT

 public:
  /// Throws `ErreurBase`.
  FrmExport(Session &session, const ListeVelmiras &liste, CompteRendu &fait, QWidget *parent);
  ~FrmExport() override;

  /// Whether there is nobody at all whom it could write. Throws `ErreurBase`.
  bool EstSansPersonne() const;

 private:
  void Brancher();
  /// Ticks those who are ticked in the directory, and nobody else.
  void Reprendre(const QList<Cle> &coches);
  std::vector<NoeudListe> Lire(const QString &categorie) const;
  void Lister(const QString &categorie);
  void Compter();
  /// Asks for the file and writes it; the window stays where that comes to nothing.
  void Exporter();
  void Retenir(const QString &chemin);

  FormatExport Format() const;
  QString Propose() const;
  DemandeExport Demande(const QString &chemin) const;

  Session &session_;
  CompteRendu &fait_;
  std::unique_ptr<Ui::FrmExport> ui_;
  Preferences etat_;
  std::array<QRadioButton *, 3> formats_;  ///< in the order of `FormatExport`
};
