#pragma once

#include "alerts/Vigilance.h"
#include "platform/Boites.h"

#include <QDialog>
#include <QLocale>

#include <memory>

class QTreeWidget;

namespace Ui {
class FrmVigilo;
}

/// What is due, and what was missed. It knows no database: what is asked for is another's business.
class FrmVigilo : public QDialog {
  Q_OBJECT

 public:
  FrmVigilo(Boites &boites, const QLocale &langue);
  ~FrmVigilo() override;

  /// `reserve`: what has to be known of the database, in words; empty for nothing. The chosen lines
  /// stay chosen.
  void Montrer(const Vigilance &vigilance, QDate aujourdhui, const QString &reserve);

 signals:
  void Vues(const QList<Alerte> &alertes);
  void FicheDemandee(const QString &nom);
  void EnveloppeDemandee(const QString &nom);

 private:
  void Brancher();
  void Remplir(QTreeWidget &liste, const QList<Alerte> &alertes, const QList<Cle> &choisies);
  QList<Alerte> Choisies() const;
  /// The first that is chosen.
  QString NomChoisi() const;
  void MajBoutons();

  std::unique_ptr<Ui::FrmVigilo> ui_;
  QLocale langue_;
  Vigilance vigilance_;
};
