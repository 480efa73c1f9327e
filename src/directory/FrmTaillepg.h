#pragma once

#include "platform/Boites.h"

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class FrmTaillepg;
}

/// The size of the program on the screen. While it is chosen the caller shows it, by `apercu`.
class FrmTaillepg : public QDialog {
  Q_OBJECT

 public:
  /// `taille` is the one in force, in twips.
  FrmTaillepg(Boites &boites, qint32 taille, std::function<void(qint32)> apercu, QWidget *parent);
  ~FrmTaillepg() override;

  /// The size that was chosen; the one in force when nothing was.
  qint32 Taille() const { return taille_; }

 private:
  void Glisser(int valeur);
  void Taper(const QString &texte);
  void Valider();

  std::unique_ptr<Ui::FrmTaillepg> ui_;
  Boites &boites_;
  qint32 taille_;
  std::function<void(qint32)> apercu_;
};
