#pragma once

#include "directory/Repertoire.h"
#include "session/Session.h"

#include <QObject>

class CompteRendu;
class ListeVelmiras;
class QAction;

/// The commands that take persons over from files of other programs, and write them for these.
class CommandesAutresProgrammes : public QObject {
  Q_OBJECT

 public:
  struct Actions {
    QAction *mnuImporterAutre, *mnuExporterAutre;
  };

  CommandesAutresProgrammes(Session &session, const Actions &actions, Repertoire &repertoire,
                            const ListeVelmiras &liste, CompteRendu &fait, QWidget *fenetre);

 private:
  void Importer();
  void Exporter();

  Session &session_;
  Repertoire &repertoire_;
  const ListeVelmiras &liste_;
  CompteRendu &fait_;
  QWidget *fenetre_;
};
