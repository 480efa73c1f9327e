#pragma once

#include "address/AdresseSaisie.h"
#include "platform/Boites.h"
#include "storage/Base.h"

#include <QList>
#include <QWidget>

#include <array>
#include <functional>
#include <memory>

class QAbstractButton;
class QLineEdit;
class QToolButton;
class FondAuFocus;
class PropositionAuFocus;

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

  /// Proposes a name where the first line holds nothing but a title when it is entered.
  void ProposerNom(std::function<QString()> nom);
  /// Whether the first line holds such a name, which nobody has typed or touched.
  bool NomSeulementPropose() const;
  QStringList Titres() const;

  /// From here on what is beyond the postal norm is marked while it is typed, and told by a tip.
  void SuivreNorme();

  void Montrer(const AdresseSaisie &adresse);
  AdresseSaisie Adresse() const;
  /// The order of the postal line stays.
  void Vider();

  /// Ends the entry: a title that was typed stands in front of the name, and a name that was only
  /// proposed goes where nothing else of an address is there. False where a field holds
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
  /// Something of the address has been changed, by the user or by the program.
  void Changee();

 private:
  /// All fields of one line, the town among them.
  QList<QLineEdit *> Lignes() const;
  void ChercherCode();
  /// A code that is typed proposes its towns.
  void SuivreCode();
  void ProposerVilles();
  void MarquerEcarts();
  void ChoisirOption(OptionCP option);
  void CocherOption(OptionCP option);

  std::unique_ptr<Ui::ChampsAdresse> ui_;
  std::array<QLineEdit *, 7> txt_;
  Boites *boites_ = nullptr;
  Base *base_ = nullptr;
  QString appPath_;
  QList<FondAuFocus *> fonds_;  ///< of `Lignes`
  PropositionAuFocus *nomPropose_ = nullptr;
};
