#pragma once

#include "directory/FicheAffichee.h"
#include "exchange/PersonneImportee.h"
#include "session/Session.h"

#include <QList>
#include <QWidget>

#include <memory>

namespace Ui {
class PageApercu;
}

/// The first persons of a file, as records of the directory.
class PageApercu : public QWidget {
  Q_OBJECT

 public:
  explicit PageApercu(QWidget *parent = nullptr);
  ~PageApercu() override;

  /// Before the first ones.
  void Relier(Session &session);

  /// `vide`: what is said where there are none.
  void Montrer(const QList<PersonneImportee> &personnes, const QString &vide);

 private:
  void Choisir();

  std::unique_ptr<Ui::PageApercu> ui_;
  std::unique_ptr<FicheAffichee> fiche_;
  QList<PersonneImportee> personnes_;
};
