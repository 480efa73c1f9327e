#pragma once

#include <QWidget>

#include <memory>

class QLabel;
struct Correspondant;

namespace Ui {
class FrmLoupe;
}

/// The enlarged view of a correspondent: name and numbers, to be read from a distance. A click
/// anywhere, or Escape, leaves it.
class FrmLoupe : public QWidget {
  Q_OBJECT

 public:
  explicit FrmLoupe(const Correspondant &fiche);
  ~FrmLoupe() override;

 signals:
  void Quittee();

 protected:
  /// As high as a long name needs it, within the screen.
  void showEvent(QShowEvent *evenement) override;
  void mousePressEvent(QMouseEvent *evenement) override;
  void keyPressEvent(QKeyEvent *evenement) override;
  void closeEvent(QCloseEvent *evenement) override;

 private:
  /// A line of the view, hidden where there is no number.
  void MontrerNumero(QLabel *libelle, QLabel *valeur, const QString &numero, bool listeRouge);

  std::unique_ptr<Ui::FrmLoupe> ui_;
};
