#include "exchange/CommandesAutresProgrammes.h"

#include "ui/Brancheur.h"
#include "ui/CompteRendu.h"

#include <QWidget>

CommandesAutresProgrammes::CommandesAutresProgrammes(Session &session, const Actions &actions,
                                                     Repertoire &repertoire, CompteRendu &fait,
                                                     QWidget *fenetre)
    : QObject(fenetre), session_(session), repertoire_(repertoire), fait_(fait), fenetre_(fenetre) {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(actions.mnuImporterAutre, &CommandesAutresProgrammes::Importer);
  brancher(actions.mnuExporterAutre, &CommandesAutresProgrammes::Exporter);
}

void CommandesAutresProgrammes::Importer() {}

void CommandesAutresProgrammes::Exporter() {}
