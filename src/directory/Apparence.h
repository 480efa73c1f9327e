#pragma once

#include "session/Session.h"

#include <QObject>

#include <functional>

class QWidget;

namespace Ui {
class FrmVelmira;
}

/// What the user has made of the directory window, and the commands that change it: background,
/// colour, fonts, size, transition, the name in the title, and the choices that are kept. A change
/// is shown at once and written at once, those of the fonts and of the bold address at the closing.
class Apparence : public QObject {
  Q_OBJECT

 public:
  /// Shows the settings. `relancer` closes the program and starts it anew.
  Apparence(Session &session, Ui::FrmVelmira &ui, QWidget &fenetre, std::function<void()> relancer);

  /// The colour of the command bar's panel, chosen by the user.
  void ChoisirCouleur();

 private:
  void Brancher();
  void Appliquer();
  void PoserBulles();

  void MontrerTitre();
  void MontrerCouleur();
  void MontrerFond();
  void MontrerPoliceListe();

  void DemanderNom();
  void DemanderVitesse();
  void ChoisirTaille();
  void ChoisirNaissance(AffichageNaissance affichage);
  void BasculerAdresseImportee(bool importee);
  void EcrireRTColor();

  Session &session_;
  Ui::FrmVelmira &ui_;
  QWidget &fenetre_;
  std::function<void()> relancer_;
  const qint32 tailleEnForce_;  ///< of this run; a new one counts from the next start on
  const int hauteurDessin_, hauteurMinDessin_;
};
