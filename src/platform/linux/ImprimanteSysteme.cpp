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
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPointsParPoucePdf = 1200;
constexpr double kMillimetresParPouce = 25.4;

// Around the text of a PDF, which may go on to a printer that needs margins.
constexpr Millimetres kMargeTexte(15);

QFont Caracteres(const Police &police) {
  QFont font(police.nom);
  font.setPointSizeF(police.points);
  font.setBold(police.gras);
  font.setUnderline(police.souligne);
  return font;
}

std::unique_ptr<QPagedPaintDevice> SupportPdf(QIODevice &sortie, const QString &nom,
                                              Orientation orientation) {
  auto pdf = std::make_unique<QPdfWriter>(&sortie);
  pdf->setTitle(nom);
  pdf->setCreator(u"Velmira"_s);
  pdf->setResolution(kPointsParPoucePdf);
  const auto sens =
      orientation == Orientation::Portrait ? QPageLayout::Portrait : QPageLayout::Landscape;
  pdf->setPageLayout(QPageLayout(QPageSize(QPageSize::A4), sens, QMarginsF()));
  return pdf;
}

/// The whole sheet, upright. None when the system no longer has this printer: the toolkit would
/// silently take another.
std::unique_ptr<QPagedPaintDevice> SupportSysteme(const QString &appareil, const QString &nom) {
  auto imprimante = std::make_unique<QPrinter>(QPrinter::HighResolution);
  imprimante->setPrinterName(appareil);
  if (imprimante->printerName() != appareil) return nullptr;
  imprimante->setDocName(nom);
  imprimante->setCreator(u"Velmira"_s);
  imprimante->setPageSize(QPageSize(QPageSize::A4));
  imprimante->setPageOrientation(QPageLayout::Portrait);
  imprimante->setFullPage(true);
  return imprimante;
}

QPageLayout EnMillimetres(const QPagedPaintDevice &support) {
  QPageLayout feuille = support.pageLayout();
  feuille.setUnits(QPageLayout::Millimeter);
  return feuille;
}

/// Counts places on an upright sheet from the corner of the page's printable area. A landscape page
/// lies on the sheet with its top at the right edge. It is turned here: turned by the toolkit it
/// would keep the margins of the upright page, and each filter and printer picks its own side.
void PlacerPage(QPainter &peintre, const QPagedPaintDevice &support, Orientation orientation) {
  const double unites = support.logicalDpiX() / kMillimetresParPouce;
  const QPageLayout feuille = EnMillimetres(support);
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

/// Its lines are kept until it is ended: the toolkit sends whatever it has begun to draw for a
/// printer.
struct ImprimanteSysteme::Document {
  struct Ligne {
    Millimetres x, y;
    Police police;
    QString texte;
  };

  QString nom;
  bool pdf = false;
  Orientation orientation = Orientation::Portrait;
  Millimetres margePdf;
  QBuffer contenu;  ///< of a PDF: kept in memory, so that the file is written whole or not at all
  std::unique_ptr<QPagedPaintDevice> support;
  std::vector<std::vector<Ligne>> pages{1};

  double Unites(Millimetres longueur) const {
    return longueur.valeur * support->logicalDpiX() / kMillimetresParPouce;
  }
  Millimetres Longueur(double unites) const {
    return Millimetres(unites * kMillimetresParPouce / support->logicalDpiX());
  }
  QFontMetricsF Mesures(const QFont &font) const { return QFontMetricsF(font, support.get()); }

  Millimetres Hauteur() const {
    const QPageLayout feuille = EnMillimetres(*support);
    const QSizeF taille = feuille.fullRect().size();
    if (pdf) return Millimetres(taille.height()) - margePdf * 2;
    const QMarginsF marges = feuille.minimumMargins();
    return orientation == Orientation::Portrait
               ? Millimetres(taille.height() - marges.top() - marges.bottom())
               : Millimetres(taille.width() - marges.left() - marges.right());
  }

  bool Dessiner() {
    QPainter peintre;
    if (!peintre.begin(support.get())) return false;
    if (pdf)
      peintre.translate(Unites(margePdf), Unites(margePdf));
    else
      PlacerPage(peintre, *support, orientation);
    for (std::size_t i = 0; i < pages.size(); ++i) {
      if (i > 0 && !support->newPage()) return false;
      for (const Ligne &ligne : pages[i]) {
        const QFont font = Caracteres(ligne.police);
        peintre.setFont(font);
        const double base = Unites(ligne.y) + Mesures(font).ascent();
        peintre.drawText(QPointF(Unites(ligne.x), base), ligne.texte);
      }
    }
    return peintre.end();
  }
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
  return choisie_.isEmpty() ? ParDefaut() : choisie_;
}

QString ImprimanteSysteme::ParDefaut() const {
  const QString defaut = QPrinterInfo::defaultPrinterName();
  return defaut.isEmpty() ? NomPdf() : defaut;
}

void ImprimanteSysteme::Choisir(const QString &nom) {
  choisie_ = nom;
}

void ImprimanteSysteme::OuvrirPage(Orientation orientation) {
  Ouvrir(u"Enveloppe"_s, orientation, {});
}

bool ImprimanteSysteme::OuvrirTexte(const QString &nom) {
  return Ouvrir(nom, Orientation::Portrait, kMargeTexte);
}

bool ImprimanteSysteme::Ouvrir(const QString &nom, Orientation orientation, Millimetres margePdf) {
  Terminer();
  auto document = std::make_unique<Document>();
  const QString appareil = Courante();
  document->nom = nom;
  document->pdf = appareil == NomPdf();
  document->orientation = orientation;
  document->margePdf = margePdf;
  if (document->pdf) {
    document->contenu.open(QIODevice::WriteOnly);
    document->support = SupportPdf(document->contenu, nom, orientation);
  } else {
    document->support = SupportSysteme(appareil, nom);
  }
  if (document->support == nullptr) return false;
  document_ = std::move(document);
  return true;
}

Millimetres ImprimanteSysteme::HauteurPage() const {
  return document_ == nullptr ? Millimetres() : document_->Hauteur();
}

void ImprimanteSysteme::NouvellePage() {
  if (document_ != nullptr) document_->pages.emplace_back();
}

void ImprimanteSysteme::Ecrire(Millimetres x, Millimetres y, const Police &police,
                               const QString &texte) {
  if (document_ != nullptr) document_->pages.back().push_back({x, y, police, texte});
}

QString ImprimanteSysteme::TerminerDocument() {
  return Terminer();
}

void ImprimanteSysteme::AbandonnerDocument() {
  document_.reset();
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
  const bool dessine = document->Dessiner();
  return document->pdf && dessine ? EcrirePdf(document->nom, document->contenu.data()) : QString();
}

QString ImprimanteSysteme::EcrirePdf(const QString &nom, const QByteArray &contenu) const {
  QString chemin;
  try {
    CreerDossier(dossierPdf_);
    const QString debut = nom + horloge_.Maintenant().toString(u" yyyy-MM-dd HH'h'mm'm'ss"_s);
    chemin = ReserverNom(dossierPdf_, debut);
    if (!chemin.isEmpty()) RemplacerFichier(chemin, contenu);
    return chemin;
  } catch (const Erreur &) {
    if (!chemin.isEmpty()) Ignorer([&] { EffacerFichier(chemin); });
    return {};
  }
}
