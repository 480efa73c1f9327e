#pragma once

#include "exchange/ColonnesCsv.h"
#include "exchange/LecteurCsv.h"
#include "platform/Boites.h"

#include <QWidget>

#include <memory>

namespace Ui {
class PageColonnes;
}

/// The columns of a table: the head and an example of each, and what it becomes.
class PageColonnes : public QWidget {
  Q_OBJECT

 public:
  explicit PageColonnes(QWidget *parent = nullptr);
  ~PageColonnes() override;

  /// Before the first table.
  void Relier(Boites &boites);

  void Montrer(const FormeCsv &forme, const Correspondances &colonnes);

 signals:
  /// The user has chosen.
  void Changees(const Correspondances &colonnes);

 private:
  void Ajouter(int colonne, const QString &exemple);
  void Choisir(int colonne, const Destination &destination);
  void Proposees();
  void Conseiller();

  std::unique_ptr<Ui::PageColonnes> ui_;
  FormeCsv forme_;
  Correspondances colonnes_;
};
