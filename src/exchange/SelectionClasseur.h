#pragma once

#include "directory/ListeVelmiras.h"
#include "exchange/ClasseurVelmiras.h"

#include <QObject>

#include <functional>

class QPushButton;

/// The workbook of the correspondents that are ticked in the tree. While they are being chosen, the
/// tree shows boxes and two buttons stand beside it.
class SelectionClasseur : public QObject {
  Q_OBJECT

 public:
  /// `montrerPremier` selects the first node and shows it.
  SelectionClasseur(Session &session, ListeVelmiras &liste, QPushButton *exporter,
                    QPushButton *annuler, std::function<void()> montrerPremier);

  /// Asks what is to be listed, and shows the boxes, all ticked.
  void Commencer();

 private:
  void Exporter();
  void MontrerChoix(bool montre);

  Session &session_;
  ListeVelmiras &liste_;
  QPushButton *CmdExcel, *CmdAnnExp;
  std::function<void()> montrerPremier_;
  ClasseurVelmiras classeur_;
};
