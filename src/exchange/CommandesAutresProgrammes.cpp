#include "exchange/CommandesAutresProgrammes.h"

#include "exchange/FrmExport.h"
#include "exchange/FrmReprise.h"
#include "exchange/TextesReprise.h"
#include "ui/Brancheur.h"
#include "ui/CompteRendu.h"

#include <QWidget>

using namespace Qt::StringLiterals;

CommandesAutresProgrammes::CommandesAutresProgrammes(Session &session, const Actions &actions,
                                                     Repertoire &repertoire,
                                                     const ListeVelmiras &liste, CompteRendu &fait,
                                                     QWidget *fenetre)
    : QObject(fenetre),
      session_(session),
      repertoire_(repertoire),
      liste_(liste),
      fait_(fait),
      fenetre_(fenetre) {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(actions.mnuImporterAutre, &CommandesAutresProgrammes::Importer);
  brancher(actions.mnuExporterAutre, &CommandesAutresProgrammes::Exporter);
}

void CommandesAutresProgrammes::Importer() {
  FrmReprise fenetre(session_, true, fenetre_);
  fenetre.exec();
  if (!fenetre.Bilan()) return;
  repertoire_.AfficherTous();
  fait_.Dire(PhraseBilan(*fenetre.Bilan()));
}

void CommandesAutresProgrammes::Exporter() {
  FrmExport fenetre(session_, liste_, fait_, fenetre_);
  if (fenetre.EstSansPersonne())
    session_.plateforme.boites.Information(u"Il n'y a encore aucun correspondant à exporter."_s);
  else
    fenetre.exec();
}
