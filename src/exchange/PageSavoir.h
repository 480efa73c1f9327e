#pragma once

#include "exchange/EtudeReprise.h"

#include <QWidget>

#include <memory>

namespace Ui {
class PageSavoir;
}

/// What has to be known before a taking over: who is refused and why, and two names that share a
/// mail or a number.
class PageSavoir : public QWidget {
  Q_OBJECT

 public:
  explicit PageSavoir(QWidget *parent = nullptr);
  ~PageSavoir() override;

  /// Gives how much there is.
  qsizetype Montrer(const EtudeReprise &etude);

 private:
  qsizetype Enumerer(const QString &titre, const BilanReprise::Chapitre &chapitre);

  std::unique_ptr<Ui::PageSavoir> ui_;
};
