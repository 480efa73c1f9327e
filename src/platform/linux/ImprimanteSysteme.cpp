#include "platform/linux/ImprimanteSysteme.h"

#include "platform/Erreurs.h"
#include "platform/Fichiers.h"

#include <QBuffer>
#include <QFile>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPointsParPoucePdf = 1200;
constexpr double kMillimetresParPouce = 25.4;

QFont Caracteres(const Police &police) {
  QFont font(police.nom);
  font.setPointSizeF(police.points);
  font.setBold(police.gras);
  font.setUnderline(police.souligne);
  return font;
}

std::unique_ptr<QPagedPaintDevice> SupportPdf(QIODevice &sortie, Orientation orientation) {
  auto pdf = std::make_unique<QPdfWriter>(&sortie);
  pdf->setTitle(u"Enveloppe"_s);
  pdf->setCreator(u"Velmira"_s);
  pdf->setResolution(kPointsParPoucePdf);
  const auto sens =
      orientation == Orientation::Portrait ? QPageLayout::Portrait : QPageLayout::Landscape;
  pdf->setPageLayout(QPageLayout(QPageSize(QPageSize::A4), sens, QMarginsF()));
  return pdf;
}

/// The whole sheet, upright. None when the system no longer has this printer: the toolkit would
/// silently take another.
std::unique_ptr<QPagedPaintDevice> SupportSysteme(const QString &nom) {
  auto imprimante = std::make_unique<QPrinter>(QPrinter::HighResolution);
  imprimante->setPrinterName(nom);
  if (imprimante->printerName() != nom) return nullptr;
  imprimante->setDocName(u"Enveloppe"_s);
  imprimante->setCreator(u"Velmira"_s);
  imprimante->setPageSize(QPageSize(QPageSize::A4));
  imprimante->setPageOrientation(QPageLayout::Portrait);
  imprimante->setFullPage(true);
  return imprimante;
}

/// Counts places on an upright sheet from the corner of the page's printable area. A landscape page
/// lies on the sheet with its top at the right edge. It is turned here: turned by the toolkit it
/// would keep the margins of the upright page, and each filter and printer picks its own side.
void PlacerPage(QPainter &peintre, const QPagedPaintDevice &support, Orientation orientation) {
  const double unites = support.logicalDpiX() / kMillimetresParPouce;
  QPageLayout feuille = support.pageLayout();
  feuille.setUnits(QPageLayout::Millimeter);
  const QMarginsF marges = feuille.minimumMargins();
  if (orientation == Orientation::Portrait) {
    peintre.translate(marges.left() * unites, marges.top() * unites);
  } else {
    const double largeur = feuille.fullRect().width();
    peintre.translate((largeur - marges.right()) * unites, marges.top() * unites);
    peintre.rotate(90);
  }
}

/// Takes the first name that is free by making an empty file of it; nothing when the folder takes
/// no file.
QString ReserverNom(const QString &dossier, const QString &debut) {
  for (int numero = 1;; ++numero) {
    QString chemin = u"%1/%2 n%3.pdf"_s.arg(dossier, debut, QString::number(numero));
    QFile fichier(chemin);
    if (fichier.open(QIODevice::NewOnly)) return chemin;
    if (!fichier.exists()) return {};
  }
}

}  // namespace

struct ImprimanteSysteme::Document {
  bool pdf = false;
  QBuffer contenu;  ///< of a PDF: kept in memory, so that the file is written whole or not at all
  std::unique_ptr<QPagedPaintDevice> support;
  QPainter peintre;

  double Unites(Millimetres longueur) const {
    return longueur.valeur * support->logicalDpiX() / kMillimetresParPouce;
  }
  Millimetres Longueur(double unites) const {
    return Millimetres(unites * kMillimetresParPouce / support->logicalDpiX());
  }
  QFontMetricsF Mesures(const QFont &font) const { return QFontMetricsF(font, support.get()); }
};

ImprimanteSysteme::ImprimanteSysteme(const Horloge &horloge, QString dossierPdf)
    : horloge_(horloge), dossierPdf_(std::move(dossierPdf)) {
  if (dossierPdf_.isEmpty())
    dossierPdf_ = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

ImprimanteSysteme::~ImprimanteSysteme() {
  Terminer();
}

QStringList ImprimanteSysteme::Noms() const {
  QStringList noms = QPrinterInfo::availablePrinterNames();
  noms.removeAll(NomPdf());
  return noms << NomPdf();
}

QString ImprimanteSysteme::Courante() const {
  if (!choisie_.isEmpty()) return choisie_;
  const QString defaut = QPrinterInfo::defaultPrinterName();
  return defaut.isEmpty() ? NomPdf() : defaut;
}

void ImprimanteSysteme::Choisir(const QString &nom) {
  choisie_ = nom;
}

void ImprimanteSysteme::OuvrirPage(Orientation orientation) {
  Terminer();
  auto document = std::make_unique<Document>();
  const QString nom = Courante();
  document->pdf = nom == NomPdf();
  if (document->pdf) {
    document->contenu.open(QIODevice::WriteOnly);
    document->support = SupportPdf(document->contenu, orientation);
  } else {
    document->support = SupportSysteme(nom);
  }
  if (document->support == nullptr || !document->peintre.begin(document->support.get())) return;
  if (!document->pdf) PlacerPage(document->peintre, *document->support, orientation);
  document_ = std::move(document);
}

void ImprimanteSysteme::Ecrire(Millimetres x, Millimetres y, const Police &police,
                               const QString &texte) {
  if (document_ == nullptr) return;
  const QFont font = Caracteres(police);
  document_->peintre.setFont(font);
  const double base = document_->Unites(y) + document_->Mesures(font).ascent();
  document_->peintre.drawText(QPointF(document_->Unites(x), base), texte);
}

QString ImprimanteSysteme::TerminerDocument() {
  return Terminer();
}

Millimetres ImprimanteSysteme::Largeur(const QString &texte, const Police &police) const {
  if (document_ == nullptr) return {};
  return document_->Longueur(document_->Mesures(Caracteres(police)).horizontalAdvance(texte));
}

Millimetres ImprimanteSysteme::HauteurLigne(const Police &police) const {
  if (document_ == nullptr) return {};
  return document_->Longueur(document_->Mesures(Caracteres(police)).lineSpacing());
}

QString ImprimanteSysteme::Terminer() {
  if (document_ == nullptr) return {};
  const auto document = std::move(document_);
  const bool dessine = document->peintre.end();
  return document->pdf && dessine ? EcrirePdf(document->contenu.data()) : QString();
}

QString ImprimanteSysteme::EcrirePdf(const QByteArray &contenu) const {
  QString chemin;
  try {
    CreerDossier(dossierPdf_);
    const QString debut = horloge_.Maintenant().toString(u"'Enveloppe' yyyy-MM-dd HH'h'mm'm'ss"_s);
    chemin = ReserverNom(dossierPdf_, debut);
    if (!chemin.isEmpty()) RemplacerFichier(chemin, contenu);
    return chemin;
  } catch (const Erreur &) {
    if (!chemin.isEmpty()) Ignorer([&] { EffacerFichier(chemin); });
    return {};
  }
}
