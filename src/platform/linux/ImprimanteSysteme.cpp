#include "platform/linux/ImprimanteSysteme.h"

#include "platform/Caracteres.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"

#include <QBuffer>
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

using Issue = FinImpression::Issue;

constexpr int kPointsParPoucePdf = 1200;

/// What a document of either kind is: lines that are kept until it is ended, since the toolkit
/// sends whatever it has begun to draw for a printer.
class DocumentPeint : public Document {
 public:
  void NouvellePage() override { pages_.emplace_back(); }
  void Ecrire(Millimetres x, Millimetres y, const Police &police, const QString &texte) override {
    pages_.back().push_back({x, y, police, texte});
  }
  Millimetres Largeur(const QString &texte, const Police &police) const override {
    return Longueur(Mesures(police).horizontalAdvance(texte));
  }
  Millimetres HauteurLigne(const Police &police) const override {
    return Longueur(Mesures(police).lineSpacing());
  }

 protected:
  virtual const QPagedPaintDevice &Support() const = 0;
  /// Counts places from the corner of the page's printable area.
  virtual void Placer(QPainter &peintre) const = 0;

  QPageLayout Mise() const {
    QPageLayout mise = Support().pageLayout();
    mise.setUnits(QPageLayout::Millimeter);
    return mise;
  }
  double Unites(Millimetres longueur) const { return longueur / kPouce * Support().logicalDpiX(); }

  /// `support` is `Support()`.
  bool Dessiner(QPagedPaintDevice &support) const {
    QPainter peintre;
    if (!peintre.begin(&support)) return false;
    Placer(peintre);
    for (std::size_t i = 0; i < pages_.size(); ++i) {
      if (i > 0 && !support.newPage()) return false;
      for (const Ligne &ligne : pages_[i]) Dessiner(peintre, ligne);
    }
    return peintre.end();
  }

 private:
  struct Ligne {
    Millimetres x, y;
    Police police;
    QString texte;
  };

  void Dessiner(QPainter &peintre, const Ligne &ligne) const {
    peintre.setFont(Caracteres(ligne.police));
    const double base = Unites(ligne.y) + Mesures(ligne.police).ascent();
    peintre.drawText(QPointF(Unites(ligne.x), base), ligne.texte);
  }
  Millimetres Longueur(double unites) const { return kPouce * (unites / Support().logicalDpiX()); }
  QFontMetricsF Mesures(const Police &police) const {
    return QFontMetricsF(Caracteres(police), &Support());
  }

  std::vector<std::vector<Ligne>> pages_{1};
};

/// The end of a printing to a new file, of the first name that is free.
FinImpression EcrirePdf(const QString &dossier, const QString &debut, const QByteArray &contenu) {
  try {
    CreerDossier(dossier);
    for (int numero = 1;; ++numero) {
      QString chemin = u"%1/%2 n%3.pdf"_s.arg(dossier, debut, QString::number(numero));
      if (!EstPresent(chemin) && CreerFichier(chemin, contenu)) return {Issue::Enregistree, chemin};
    }
  } catch (const Erreur &erreur) {
    return {.raison = erreur.Texte()};
  }
}

/// Kept in memory to its end, so that its file is written whole or not at all.
class DocumentPdf : public DocumentPeint {
 public:
  DocumentPdf(const DescriptionDocument &description, const Horloge &horloge, QString dossier)
      : nom_(description.nom),
        marge_(description.margeFichier),
        horloge_(horloge),
        dossier_(std::move(dossier)) {
    contenu_.open(QIODevice::WriteOnly);
    pdf_.setTitle(nom_);
    pdf_.setCreator(u"Velmira"_s);
    pdf_.setResolution(kPointsParPoucePdf);
    pdf_.setPageLayout(QPageLayout(QPageSize(QPageSize::A4),
                                   description.orientation == Orientation::Portrait
                                       ? QPageLayout::Portrait
                                       : QPageLayout::Landscape,
                                   QMarginsF()));
  }

  Millimetres LargeurPage() const override {
    return Millimetres(Mise().fullRect().width()) - marge_ * 2;
  }
  Millimetres HauteurPage() const override {
    return Millimetres(Mise().fullRect().height()) - marge_ * 2;
  }

  FinImpression Terminer() override {
    if (!Dessiner(pdf_)) return {Issue::Echouee};
    const QString debut = nom_ + horloge_.Maintenant().toString(u" yyyy-MM-dd HH'h'mm'm'ss"_s);
    return EcrirePdf(dossier_, debut, contenu_.data());
  }

 protected:
  const QPagedPaintDevice &Support() const override { return pdf_; }
  void Placer(QPainter &peintre) const override {
    peintre.translate(Unites(marge_), Unites(marge_));
  }

 private:
  QString nom_;
  Millimetres marge_;
  const Horloge &horloge_;
  QString dossier_;
  QBuffer contenu_;
  QPdfWriter pdf_{&contenu_};
};

/// The whole sheet, upright, on a printer of the system.
class DocumentSysteme : public DocumentPeint {
 public:
  DocumentSysteme(const QString &appareil, const DescriptionDocument &description)
      : appareil_(appareil), orientation_(description.orientation) {
    imprimante_.setPrinterName(appareil);
    imprimante_.setDocName(description.nom);
    imprimante_.setCreator(u"Velmira"_s);
    imprimante_.setPageSize(QPageSize(QPageSize::A4));
    imprimante_.setPageOrientation(QPageLayout::Portrait);
    imprimante_.setFullPage(true);
  }

  /// False where the toolkit has silently taken another printer, the system having none of this
  /// name.
  bool EstLa() const { return imprimante_.printerName() == appareil_; }

  Millimetres LargeurPage() const override {
    return orientation_ == Orientation::Portrait ? LargeurFeuille() : HauteurFeuille();
  }
  Millimetres HauteurPage() const override {
    return orientation_ == Orientation::Portrait ? HauteurFeuille() : LargeurFeuille();
  }

  FinImpression Terminer() override {
    // The toolkit does not tell what the print server has refused.
    const bool retiree = QPrinterInfo::printerInfo(appareil_).isNull();
    const bool imprimee =
        !retiree && Dessiner(imprimante_) && imprimante_.printerState() != QPrinter::Error;
    return {imprimee ? Issue::Imprimee : Issue::Echouee};
  }

 protected:
  const QPagedPaintDevice &Support() const override { return imprimante_; }

  /// A landscape page lies on the sheet with its top at the right edge. It is turned here: turned
  /// by the toolkit it would keep the margins of the upright page, and each filter and printer
  /// picks its own side.
  void Placer(QPainter &peintre) const override {
    const QPageLayout feuille = Mise();
    const QMarginsF marges = feuille.minimumMargins();
    const double haut = Unites(Millimetres(marges.top()));
    if (orientation_ == Orientation::Portrait) {
      peintre.translate(Unites(Millimetres(marges.left())), haut);
    } else {
      peintre.translate(Unites(Millimetres(feuille.fullRect().width() - marges.right())), haut);
      peintre.rotate(90);
    }
  }

 private:
  // Of the printable area of the sheet, which is upright whatever lies on it.
  Millimetres LargeurFeuille() const {
    const QPageLayout feuille = Mise();
    const QMarginsF marges = feuille.minimumMargins();
    return Millimetres(feuille.fullRect().width() - marges.left() - marges.right());
  }
  Millimetres HauteurFeuille() const {
    const QPageLayout feuille = Mise();
    const QMarginsF marges = feuille.minimumMargins();
    return Millimetres(feuille.fullRect().height() - marges.top() - marges.bottom());
  }

  QString appareil_;
  Orientation orientation_;
  QPrinter imprimante_{QPrinter::HighResolution};
};

}  // namespace

ImprimanteSysteme::ImprimanteSysteme(const Horloge &horloge, QString dossierPdf)
    : horloge_(horloge), dossierPdf_(std::move(dossierPdf)) {
  if (dossierPdf_.isEmpty())
    dossierPdf_ = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

QStringList ImprimanteSysteme::Noms() const {
  QStringList noms = QPrinterInfo::availablePrinterNames();
  noms.removeAll(NomPdf());
  return noms << NomPdf();
}

QString ImprimanteSysteme::ParDefaut() const {
  const QString defaut = QPrinterInfo::defaultPrinterName();
  return defaut.isEmpty() ? NomPdf() : defaut;
}

std::unique_ptr<Document> ImprimanteSysteme::Ouvrir(const QString &appareil,
                                                    const DescriptionDocument &description) {
  if (appareil == NomPdf())
    return std::make_unique<DocumentPdf>(description, horloge_, dossierPdf_);
  auto document = std::make_unique<DocumentSysteme>(appareil, description);
  if (!document->EstLa()) return nullptr;
  return document;
}
