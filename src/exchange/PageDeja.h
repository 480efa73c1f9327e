#pragma once

#include "exchange/ChoixRencontres.h"
#include "platform/Boites.h"

#include <QList>
#include <QWidget>

#include <memory>

namespace Ui {
class PageDeja;
}

/// Those who are in the directory already: what the file says otherwise, side by side, and what
/// becomes of it, for one, for all, or for all who differ in one field.
class PageDeja : public QWidget {
  Q_OBJECT

 public:
  explicit PageDeja(QWidget *parent = nullptr);
  ~PageDeja() override;

  /// Before the first ones.
  void Relier(Boites &boites);

  /// `tues`: how many there are besides, who go the way of all.
  void Montrer(const QList<Rencontre> &rencontres, qsizetype tues);

  /// Nobody, and no answer.
  void Vider();

  const ChoixRencontres &Choix() const { return choix_; }

 signals:
  /// Other people's answer is another one.
  void Repondu();

 private:
  void Remplir();
  /// What is said of an answer.
  void MajLignes();
  /// Shows the person that is selected.
  void Choisir();
  void MontrerChamps();
  void MontrerReponse();
  void MontrerPartout();
  void RepondrePourTous(int choix);
  void Repondre(int choix);
  void Cocher(int ligne, bool prend);
  void AppliquerPartout();
  /// Of the selected person, -1 for none.
  qsizetype Rang() const;

  std::unique_ptr<Ui::PageDeja> ui_;
  ChoixRencontres choix_;
  QList<ChampRencontre> champs_;  ///< of the person that is shown
  bool remplissage_ = false;
};
