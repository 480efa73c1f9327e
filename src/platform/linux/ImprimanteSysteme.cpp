#include "platform/linux/ImprimanteSysteme.h"

#include "platform/Caracteres.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "platform/Pannes.h"
#include "platform/linux/ServeurImpression.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QMarginsF>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QStandardPaths>

#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using Issue = FinImpression::Issue;

constexpr int kPointsParPouce = 1200;

/// What a document of either kind is: lines that are kept until it is ended and then drawn as a PDF
/// in memory, so that it goes out whole or not at all.
class DocumentPeint : public Document {
 public:
  DocumentPeint(const QString &titre, QPageLayout::Orientation orientation) {
    contenu_.open(QIODevice::WriteOnly);
    pdf_.setTitle(titre);
    pdf_.setCreator(u"Velmira"_s);
    pdf_.setResolution(kPointsParPouce);
    pdf_.setPageLayout(
        QPageLayout(QPageSize(QPageSize::A4), orientation, QMarginsF(), QPageLayout::Millimeter));
  }

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
  /// Counts places from the corner of the page's printable area.
  virtual void Placer(QPainter &peintre) const = 0;

  QSizeF TailleFeuille() const {
    return pdf_.pageLayout().fullRect(QPageLayout::Millimeter).size();
  }
  static double Unites(Millimetres longueur) { return longueur / kPouce * kPointsParPouce; }

  /// The whole document; nothing where it could not be drawn.
  std::optional<QByteArray> Dessiner() {
    QPainter peintre;
    if (!peintre.begin(&pdf_)) return std::nullopt;
    Placer(peintre);
    for (std::size_t i = 0; i < pages_.size(); ++i) {
      if (i > 0 && !pdf_.newPage()) return std::nullopt;
      for (const Ligne &ligne : pages_[i]) Dessiner(peintre, ligne);
    }
    if (!peintre.end()) return std::nullopt;
    return contenu_.data();
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
  static Millimetres Longueur(double unites) { return kPouce * (unites / kPointsParPouce); }
  QFontMetricsF Mesures(const Police &police) const {
    return QFontMetricsF(Caracteres(police), &pdf_);
  }

  std::vector<std::vector<Ligne>> pages_{1};
  QBuffer contenu_;
  QPdfWriter pdf_{&contenu_};
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

class DocumentPdf : public DocumentPeint {
 public:
  DocumentPdf(const DescriptionDocument &description, const Horloge &horloge, QString dossier)
      : DocumentPeint(description.nom, description.orientation == Orientation::Portrait
                                           ? QPageLayout::Portrait
                                           : QPageLayout::Landscape),
        nom_(description.nom),
        marge_(description.margeFichier),
        horloge_(horloge),
        dossier_(std::move(dossier)) {}

  Millimetres LargeurPage() const override {
    return Millimetres(TailleFeuille().width()) - marge_ * 2;
  }
  Millimetres HauteurPage() const override {
    return Millimetres(TailleFeuille().height()) - marge_ * 2;
  }

  FinImpression Terminer() override {
    const auto contenu = Dessiner();
    if (!contenu) return {Issue::Echouee};
    const QString debut =
        DebutNomFichier(nom_) + horloge_.Maintenant().toString(u" yyyy-MM-dd HH'h'mm'm'ss"_s);
    return EcrirePdf(dossier_, debut, *contenu);
  }

 protected:
  void Placer(QPainter &peintre) const override {
    peintre.translate(Unites(marge_), Unites(marge_));
  }

 private:
  QString nom_;
  Millimetres marge_;
  const Horloge &horloge_;
  QString dossier_;
};

/// The whole sheet, upright, on a printer of the system that leaves these margins, in millimetres.
class DocumentSysteme : public DocumentPeint {
 public:
  DocumentSysteme(QString appareil, const DescriptionDocument &description, const QMarginsF &marges)
      : DocumentPeint(description.nom, QPageLayout::Portrait),
        appareil_(std::move(appareil)),
        nom_(description.nom),
        orientation_(description.orientation),
        recto_(description.recto),
        arret_(description.arret),
        marges_(marges) {}

  Millimetres LargeurPage() const override {
    return orientation_ == Orientation::Portrait ? LargeurFeuille() : HauteurFeuille();
  }
  Millimetres HauteurPage() const override {
    return orientation_ == Orientation::Portrait ? HauteurFeuille() : LargeurFeuille();
  }

  FinImpression Terminer() override {
    const auto contenu = Dessiner();
    if (!contenu) return {Issue::Echouee};
    try {
      ServeurImpression(arret_).Envoyer(appareil_, nom_, *contenu, recto_);
    } catch (const Erreur &erreur) {
      return {.raison = erreur.Texte()};
    }
    return {Issue::Imprimee};
  }

 protected:
  /// A landscape page lies on the sheet with its top at the right edge. It is turned here: turned
  /// on the way it would keep the margins of the upright page, and each filter and printer picks
  /// its own side.
  void Placer(QPainter &peintre) const override {
    const double haut = Unites(Millimetres(marges_.top()));
    if (orientation_ == Orientation::Portrait) {
      peintre.translate(Unites(Millimetres(marges_.left())), haut);
    } else {
      peintre.translate(Unites(Millimetres(TailleFeuille().width() - marges_.right())), haut);
      peintre.rotate(90);
    }
  }

 private:
  // Of the printable area of the sheet, which is upright whatever lies on it.
  Millimetres LargeurFeuille() const {
    return Millimetres(TailleFeuille().width() - marges_.left() - marges_.right());
  }
  Millimetres HauteurFeuille() const {
    return Millimetres(TailleFeuille().height() - marges_.top() - marges_.bottom());
  }

  QString appareil_;
  QString nom_;
  Orientation orientation_;
  bool recto_;
  std::stop_token arret_;
  QMarginsF marges_;
};

/// The system's printers, the built-in one behind them.
QStringList AvecPdf(QStringList noms) {
  noms.removeAll(Imprimante::NomPdf());
  return noms << Imprimante::NomPdf();
}

}  // namespace

ImprimanteSysteme::ImprimanteSysteme(const Horloge &horloge, QString dossierPdf)
    : horloge_(horloge), dossierPdf_(std::move(dossierPdf)) {
  if (dossierPdf_.isEmpty())
    dossierPdf_ = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

QStringList ImprimanteSysteme::Interroger(const std::stop_token &arret) {
  const QStringList noms = AvecPdf(ServeurImpression(arret).Lister().noms);
  const std::scoped_lock tenu(verrou_);
  return connus_ = noms;
}

QStringList ImprimanteSysteme::Noms() {
  return Interroger({});
}

QString ImprimanteSysteme::ParDefaut() {
  const QString defaut = ServeurImpression().Lister().parDefaut;
  return defaut.isEmpty() ? NomPdf() : defaut;
}

std::unique_ptr<Document> ImprimanteSysteme::Ouvrir(const QString &appareil,
                                                    const DescriptionDocument &description) {
  if (appareil == NomPdf())
    return std::make_unique<DocumentPdf>(description, horloge_, dossierPdf_);
  const auto marges = ServeurImpression(description.arret).MargesA4(appareil);
  if (!marges)
    throw Erreur(PhraseEchec(u"L'imprimante « %1 » n'a rien imprimé"_s.arg(appareil),
                             {u"le système ne l'a plus"_s, u"Choisissez-en une autre."_s}, {}, {}));
  return std::make_unique<DocumentSysteme>(appareil, description, *marges);
}

QStringList ImprimanteSysteme::NomsConnus() const {
  const std::scoped_lock tenu(verrou_);
  return connus_;
}

void ImprimanteSysteme::Demander(QObject *contexte, std::function<void(bool repondu)> suite) {
  suites_.emplace_back(contexte, std::move(suite));
  if (suites_.size() > 1) return;  // the answer that is under way is theirs too
  question_ = std::jthread([this](const std::stop_token &arret) {
    bool repondu = true;
    try {
      Interroger(arret);
    } catch (const Erreur &) {
      repondu = false;
    }
    QMetaObject::invokeMethod(
        &relais_, [this, repondu] { Repondre(repondu); }, Qt::QueuedConnection);
  });
}

void ImprimanteSysteme::Repondre(bool repondu) {
  for (const auto &[contexte, suite] : std::exchange(suites_, {}))
    if (contexte != nullptr) suite(repondu);
}
