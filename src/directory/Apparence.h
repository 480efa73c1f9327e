#pragma once

#include "session/Session.h"

#include <QColor>
#include <QObject>

#include <functional>

class QAction;
class QWidget;

/// How the directory window looks.
struct Aspect {
  QString titre;
  QColor couleur;        ///< of the command bar's panel
  bool fondUni = false;  ///< behind the panels: plain, or a gradient
  int points = 0;        ///< size of the font of the list and of the notes
  bool adresseEnGras = false, adresseImportee = false;
};

/// What the user has made of the directory window, and the commands that change it: background,
/// colour, fonts, size, transition, the name in the title, and the choices that are kept. A change
/// is told at once and written at once, those of the fonts and of the bold address at the closing.
class Apparence : public QObject {
  Q_OBJECT

 public:
  struct Actions {
    QAction *mnuDDN, *mnuAge, *mnuRien;        ///< what the record says of the birth date
    QAction *mnudegrade, *mnuUni;              ///< the background
    QAction *mnuAgPolListe1, *mnuAgPolListe2;  ///< the font of the list
    QAction *mnuListe, *mnuClickDroit, *mnuEffet, *mnuPlomex, *mnuGras, *mnuAdress;  ///< ticks
    QAction *mnuPerso, *mnuvit, *mnuPG;                                              ///< questions
  };

  /// Ticks what the settings say. `fenetre` shows a size while it is chosen; `relancer` closes the
  /// program and starts it anew.
  Apparence(Session &session, const Actions &actions, QWidget &fenetre,
            std::function<void()> relancer);

  Aspect LAspect() const;

  /// The colour of the command bar's panel, chosen by the user.
  void ChoisirCouleur();

 signals:
  void Changee();
  /// Another thing is to be said of the birth date.
  void NaissanceChangee();

 private:
  void Brancher();
  void Cocher();

  void DemanderNom();
  void DemanderVitesse();
  void ChoisirTaille();
  void ChoisirNaissance(AffichageNaissance affichage);
  void BasculerAdresseImportee(bool importee);
  /// Where there are imported addresses to show; a tick that hides the others can always be taken
  /// away.
  void PermettreAdresseImportee();
  void EcrireRTColor();

  Session &session_;
  Actions actions_;
  QWidget &fenetre_;
  std::function<void()> relancer_;
  const qint32 tailleEnForce_;  ///< of this run; a new one counts from the next start on
  const int hauteurDessin_;
};
