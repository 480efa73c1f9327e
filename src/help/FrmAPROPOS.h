#pragma once

#include <QDialog>

class Coquille;
class QLabel;

/// The about window: the version, who made the program and where they are to be found, and the
/// licences.
class FrmAPROPOS : public QDialog {
  Q_OBJECT

 public:
  FrmAPROPOS(Coquille &coquille, QWidget *parent);

 private:
  QLabel *Texte(const QString &nom, const QString &texte);
  QLabel *Lien(const QString &nom, const QString &adresse, const QString &texte,
               const QString &description);

  Coquille &coquille_;
};
