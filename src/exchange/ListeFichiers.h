#pragma once

#include "exchange/EtudeReprise.h"
#include "exchange/FichierRepris.h"

#include <QList>
#include <QWidget>

#include <memory>

namespace Ui {
class ListeFichiers;
}

/// The files that are to be taken over: what each of them is, and how many records it has.
class ListeFichiers : public QWidget {
  Q_OBJECT

 public:
  explicit ListeFichiers(QWidget *parent = nullptr);
  ~ListeFichiers() override;

  /// `comptes`: by the files; none while they are being counted. The same place stays selected.
  void Montrer(const QList<FichierRepris> &fichiers, const QList<EtudeReprise::DuFichier> &comptes);

  /// Place of the selected one, -1 for none.
  qsizetype Choisi() const;
  void Choisir(qsizetype place);
  void PrendreFocus();

 signals:
  /// Another one is selected.
  void Change();
  void AjoutDemande();
  /// The selected one is to go.
  void RetraitDemande();

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  void AjusterHauteur();

  std::unique_ptr<Ui::ListeFichiers> ui_;
};
