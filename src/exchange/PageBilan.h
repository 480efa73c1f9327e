#pragma once

#include "exchange/Reprise.h"

#include <QString>
#include <QWidget>

#include <memory>

namespace Ui {
class PageBilan;
}

/// The report of a taking over, to be read.
class PageBilan : public QWidget {
  Q_OBJECT

 public:
  explicit PageBilan(QWidget *parent = nullptr);
  ~PageBilan() override;

  /// `retour`: how one comes back to what was before.
  void Montrer(const BilanReprise &bilan, const QString &retour);

 private:
  std::unique_ptr<Ui::PageBilan> ui_;
};
