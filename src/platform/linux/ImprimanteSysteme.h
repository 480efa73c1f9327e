#pragma once

#include "platform/Horloge.h"
#include "platform/Imprimante.h"

/// The printers of the system, and the built-in one: "PDF", whose printable area is the whole page
/// without the margin of the document. It writes each document into its folder, under a name made
/// of date, time and a number; a file that is there already is never replaced. On the printers of
/// the system the sheet is upright: a landscape page lies on it with its top at the sheet's right
/// edge.
class ImprimanteSysteme : public Imprimante {
 public:
  /// `dossierPdf` is made when a document is written and it is missing; an empty one stands for the
  /// user's documents.
  explicit ImprimanteSysteme(const Horloge &horloge, QString dossierPdf = {});

  QStringList Noms() const override;
  QString ParDefaut() const override;
  std::unique_ptr<Document> Ouvrir(const QString &appareil,
                                   const DescriptionDocument &description) override;

 private:
  const Horloge &horloge_;
  QString dossierPdf_;
};
