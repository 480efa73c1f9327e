#include "envelope/Tirage.h"

#include "envelope/CommandesCommentaire.h"
#include "ui/Sablier.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

bool Tirage::Imprimer() {
  const ReglagesPlomex &plomex = session_.reglages.plomex;
  if (!ImpressionConfiguree(plomex)) {
    session_.plateforme.boites.Information(
        u"Vous devez d'abord utiliser le menu 'Configurer l'impression' !"_s);
    return false;
  }
  const Sablier sablier;  // a print server may be slow to answer
  Imprimante &imprimante = session_.plateforme.imprimante;
  ImprimerPage(imprimante, plomex, session_.enveloppe, zones_.Contenu());
  if (session_.reglages.rtcolor.AnnulerCommentaire == 1) {
    session_.enveloppe.Commentaire.clear();
    commentaire_.MajEtiquette();
  }
  const QString document = imprimante.TerminerDocument();
  if (imprimante.Courante() == Imprimante::NomPdf()) MontrerDocument(document);
  return true;
}

void Tirage::MontrerDocument(const QString &chemin) {
  if (chemin.isEmpty()) {
    document_->setText(u"L'enveloppe n'a pas pu être enregistrée."_s);
  } else {
    const QFileInfo fichier(chemin);
    document_->setText(u"Enveloppe enregistrée dans %1 :<br/><a href=\"%2\">%3</a>"_s.arg(
        QDir::toNativeSeparators(fichier.path()).toHtmlEscaped(), chemin.toHtmlEscaped(),
        fichier.fileName().toHtmlEscaped()));
  }
  document_->show();
}
