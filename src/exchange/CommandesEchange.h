#pragma once

#include "directory/Repertoire.h"
#include "exchange/EchangeTexte.h"
#include "exchange/FichierEchange.h"
#include "session/Session.h"

#include <QObject>

class CompteRendu;
class QAction;

/// The commands of the exchange file, which stands in the application folder.
class CommandesEchange : public QObject {
  Q_OBJECT

 public:
  struct Actions {
    QAction *mnuExport, *mnuImport, *mnuVelmira, *mnuEnvoyer;
  };

  CommandesEchange(Session &session, const Actions &actions, Repertoire &repertoire,
                   CompteRendu &fait, QWidget *fenetre);

 private:
  void Exporter();
  void Importer();
  /// As one command.
  BilanImport ImporterFichier();
  void Ouvrir();
  void Envoyer();

  /// The message for what needs the file, when it is missing.
  bool Absent() const;

  Session &session_;
  FichierEchange fichier_;
  Repertoire &repertoire_;
  CompteRendu &fait_;
  QWidget *fenetre_;
};
