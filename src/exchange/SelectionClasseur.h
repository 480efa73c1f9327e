#pragma once

#include "directory/ListeVelmiras.h"
#include "session/Session.h"

#include <QObject>

class CompteRendu;

/// The workbook of the correspondents that are ticked in the tree. While they are being chosen, the
/// tree shows boxes and two buttons stand beside it.
class SelectionClasseur : public QObject {
  Q_OBJECT

 public:
  SelectionClasseur(Session &session, ListeVelmiras &liste, CompteRendu &fait);

  /// Asks what is to be listed, and shows the boxes, all ticked.
  void Commencer();

 private:
  void Exporter();

  Session &session_;
  ListeVelmiras &liste_;
  CompteRendu &fait_;
};
