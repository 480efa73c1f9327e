#pragma once

#include <QDialog>

#include <memory>

struct BilanTirage;

namespace Ui {
class FrmReste;
}

/// What has become of a run of envelopes, name by name, and what is to be done about the rest.
class FrmReste : public QDialog {
  Q_OBJECT

 public:
  enum class Suite {
    Imprimer,  ///< the rest, now
    Garder,    ///< to be offered again
    Oublier,   ///< never to be offered again
  };

  /// `gardable`: the rest can be offered again.
  FrmReste(const BilanTirage &bilan, bool gardable, QWidget *parent);
  ~FrmReste() override;

  /// Once it has been closed; the close box keeps.
  Suite Choix() const { return choix_; }

 private:
  void Choisir(Suite suite);

  std::unique_ptr<Ui::FrmReste> ui_;
  Suite choix_ = Suite::Garder;
};
