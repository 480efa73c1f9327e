#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class FrmDepart;
}

/// The splash, shown while the program starts and again while it closes.
class FrmDepart : public QWidget {
  Q_OBJECT

 public:
  FrmDepart();
  ~FrmDepart() override;

  /// Shows a line on what the start is at: at once, and without letting events through, since the
  /// database is being written.
  void Annoncer(const QString &texte);
  /// Says that the program is closing.
  void AnnoncerFermeture();

 protected:
  void changeEvent(QEvent *evenement) override;
  void resizeEvent(QResizeEvent *evenement) override;
  void paintEvent(QPaintEvent *evenement) override;

 private:
  void MettreTitre();

  std::unique_ptr<Ui::FrmDepart> ui_;
};
