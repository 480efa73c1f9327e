#pragma once

#include "address/AdresseSaisie.h"
#include "platform/Boites.h"
#include "storage/Base.h"

#include <QList>
#include <QWidget>

#include <array>
#include <memory>

class QAbstractButton;
class QLineEdit;
class QToolButton;

namespace Ui {
class ChampsAdresse;
}

/// The fields of an address, with what fills them: the titles, the towns, the search of a postal
/// code. Two windows enter addresses by them.
class ChampsAdresse : public QWidget {
  Q_OBJECT

 public:
  explicit ChampsAdresse(QWidget *parent = nullptr);
  ~ChampsAdresse() override;

  /// Reads titles and towns. `gris` is the ground of the field that has the focus; `imageFrancaise`
  /// names the picture of the French order, which differs between the two windows.
  void Relier(Boites &boites, Base &base, const QString &appPath, int gris,
              const QString &imageFrancaise);

  void Montrer(const AdresseSaisie &adresse);
  AdresseSaisie Adresse() const;
  /// The order of the postal line stays.
  void Vider();

  /// Ends the entry: a title that was typed stands in front of the name. False where a field holds
  /// a sign that no address may hold ("*", "$"): the user has been told, the signs are out, and the
  /// first of those fields has the focus. Whoever takes the address asks this first.
  bool Accepter();

  /// Shows the address without letting it be changed, or opens it for entry.
  void Verrouiller(bool verrouille);
  void MontrerTitres(bool montres);

  /// Puts the focus on the name.
  void PrendreFocus();

  /// The first of name, postal code and town that is empty; null when all are filled.
  QWidget *PremierVide() const;

 signals:
  /// The order of the postal line has been chosen.
  void OptionChoisie(OptionCP option);

 private:
  /// All fields of one line, the town among them.
  QList<QLineEdit *> Lignes() const;
  void ChercherCode();
  void ChoisirOption(OptionCP option);
  void CocherOption(OptionCP option);

  std::unique_ptr<Ui::ChampsAdresse> ui_;
  std::array<QLineEdit *, 7> txt_;
  Boites *boites_ = nullptr;
  QString appPath_;
};
