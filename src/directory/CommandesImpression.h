#pragma once

#include "directory/ListeVelmiras.h"

class CompteRendu;
struct ChoixListe;
class QWidget;

/// Prints the list that is on display.
class CommandesImpression {
 public:
  CommandesImpression(Session &session, ListeVelmiras &liste, CompteRendu &fait, QWidget *fenetre)
      : session_(session), liste_(liste), fait_(fait), fenetre_(fenetre) {}

  /// Asks what is to be printed and prints it. A failure of the printing, or the user who stops it,
  /// gives the whole document up.
  void Imprimer();

 private:
  void Imprimer(const ChoixListe &choix);

  Session &session_;
  ListeVelmiras &liste_;
  CompteRendu &fait_;
  QWidget *fenetre_;
};
