#include "envelope/Tirage.h"

#include "envelope/CommandesCommentaire.h"
#include "ui/Sablier.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// What is told of an envelope that was written to a file, or could not be printed.
QString TexteFin(const FinImpression &fin, bool fichier) {
  switch (fin.issue) {
    case FinImpression::Issue::Imprimee:
      break;
    case FinImpression::Issue::Enregistree: {
      const QFileInfo document(fin.fichier);
      return u"Enveloppe enregistrée dans %1 :<br/><a href=\"%2\">%3</a>"_s.arg(
          QDir::toNativeSeparators(document.path()).toHtmlEscaped(), fin.fichier.toHtmlEscaped(),
          document.fileName().toHtmlEscaped());
    }
    case FinImpression::Issue::Echouee:
      return fichier ? u"L'enveloppe n'a pas pu être enregistrée."_s
                     : u"L'enveloppe n'a pas pu être imprimée."_s;
  }
  return {};
}

}  // namespace

bool Tirage::Imprimer() {
  const ReglagesPlomex &plomex = session_.reglages.plomex;
  if (!ImpressionConfiguree(plomex)) {
    session_.plateforme.boites.Information(
        u"Vous devez d'abord utiliser le menu 'Configurer l'impression' !"_s);
    return false;
  }
  const Sablier sablier;  // a print server may be slow to answer
  Imprimante &imprimante = session_.plateforme.imprimante;
  // A printer that is gone leaves the one that was printed on last.
  if (const auto trouvee = NomComplet(imprimante.Noms(), plomex.Imprimante, kLongueurImprimante))
    courante_ = *trouvee;
  const QString appareil = courante_.isEmpty() ? imprimante.ParDefaut() : courante_;
  const FinImpression fin =
      ImprimerPage(imprimante, appareil, plomex, zones_.Etat(), zones_.Contenu());
  if (session_.reglages.rtcolor.AnnulerCommentaire) {
    zones_.OublierCommentaire();
    commentaire_.MajEtiquette();
  }
  MontrerFin(fin, appareil == Imprimante::NomPdf());
  return fin.issue != FinImpression::Issue::Echouee;
}

void Tirage::MontrerFin(const FinImpression &fin, bool fichier) {
  document_->setText(TexteFin(fin, fichier));
  document_->setVisible(!document_->text().isEmpty());
  if (!fin.raison.isEmpty()) session_.plateforme.boites.Attention(fin.raison);
}
