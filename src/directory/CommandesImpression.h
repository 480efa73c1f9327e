#pragma once

#include "directory/ListeVelmiras.h"

struct ChoixListe;
class QWidget;

/// Prints the list that is on display.
class CommandesImpression {
 public:
  CommandesImpression(Session &session, ListeVelmiras &liste, QWidget *fenetre)
      : session_(session), liste_(liste), fenetre_(fenetre) {}

  /// Asks what is to be printed and prints it. A failure of the printing, or the user who stops it,
  /// gives the whole document up.
  void Imprimer();

 private:
  void Imprimer(const ChoixListe &choix);

  Session &session_;
  ListeVelmiras &liste_;
  QWidget *fenetre_;
};
