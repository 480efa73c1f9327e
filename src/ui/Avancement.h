#pragma once

#include <QElapsedTimer>
#include <QString>

#include <memory>

class QDialog;
class QProgressBar;
class QWidget;

/// Tells of a long work while it lasts, and lets the user stop it. Short work shows nothing.
class Avancement {
 public:
  /// `titre` names the work; `total` is what `fait` ends at.
  Avancement(QWidget *parent, const QString &titre, qsizetype total);
  ~Avancement();
  Avancement(const Avancement &) = delete;
  Avancement &operator=(const Avancement &) = delete;

  /// Called from time to time by the work; lets the windows paint. False once the user has stopped
  /// it.
  bool Montrer(qsizetype fait);

 private:
  std::unique_ptr<QDialog> dialogue_;
  QProgressBar *barre_;
  QElapsedTimer debut_, derniere_;
  qsizetype total_;
  bool arrete_ = false;
};
