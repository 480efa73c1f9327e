#pragma once

#include "platform/Horloge.h"
#include "platform/Imprimante.h"

#include <memory>

/// The printers of the system, and the built-in one: "PDF", whose printable area is the whole page,
/// or what the margins of a document of text leave of it. It writes each document into its folder,
/// under a name made of date, time and a number; a file that is there already is never replaced. On
/// the printers of the system the sheet is upright: a landscape page lies on it with its top at the
/// sheet's right edge. On any printer nothing is drawn or sent before the document is ended, a line
/// that cannot be written is left out, and while no document is open everything measures 0.
class ImprimanteSysteme : public Imprimante {
 public:
  /// `dossierPdf` is made when a document is written and it is missing; an empty one stands for the
  /// user's documents.
  explicit ImprimanteSysteme(const Horloge &horloge, QString dossierPdf = {});
  /// A document that is still open is printed.
  ~ImprimanteSysteme() override;

  QStringList Noms() const override;
  QString Courante() const override;
  QString ParDefaut() const override;
  void Choisir(const QString &nom) override;
  void OuvrirPage(Orientation orientation) override;
  bool OuvrirTexte(const QString &nom) override;
  Millimetres HauteurPage() const override;
  void NouvellePage() override;
  void Ecrire(Millimetres x, Millimetres y, const Police &police, const QString &texte) override;
  QString TerminerDocument() override;
  void AbandonnerDocument() override;

  Millimetres Largeur(const QString &texte, const Police &police) const override;
  Millimetres HauteurLigne(const Police &police) const override;

 private:
  struct Document;

  bool Ouvrir(const QString &nom, Orientation orientation, Millimetres margePdf);
  QString Terminer();
  QString EcrirePdf(const QString &nom, const QByteArray &contenu) const;

  const Horloge &horloge_;
  QString dossierPdf_;
  QString choisie_;
  std::unique_ptr<Document> document_;  ///< none while none is open
};
