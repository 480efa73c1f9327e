#pragma once

#include "directory/ListeVelmiras.h"

#include <QObject>

class QLineEdit;
class QToolButton;

/// Finding by typing the beginning of a name, or by an initial.
class CommandesRecherche : public QObject {
  Q_OBJECT

 public:
  CommandesRecherche(Boites &boites, ListeVelmiras &liste, QLineEdit *saisie,
                     QToolButton *initiales);

 private:
  void Chercher();
  void ChoisirInitiale();

  Boites &boites_;
  ListeVelmiras &liste_;
  QLineEdit *TxtRR;
  QToolButton *CmdCherche;
  bool RechercheEnCours = false;  ///< the box held something at its last change
};
