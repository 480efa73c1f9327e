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
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPen>
#include <QStandardPaths>
#include <QTransform>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using Issue = FinImpression::Issue;

constexpr int kPointsParPouce = 1200;

QPageLayout Disposition(const Taille &taille) {
  const bool couchee = taille.largeur > taille.hauteur;
  const QSizeF debout(std::min(taille.largeur, taille.hauteur).valeur,
                      std::max(taille.largeur, taille.hauteur).valeur);
  return {QPageSize(debout, QPageSize::Millimeter, {}, QPageSize::ExactMatch),
          couchee ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(),
          QPageLayout::Millimeter};
}

/// What a document of either kind is: lines that are kept until it is ended and then drawn as a PDF
/// in memory, so that it goes out whole or not at all.
class DocumentPeint : public Document {
 public:
  /// `marges` of the page.
  DocumentPeint(const DescriptionDocument &description, const Papier &papier, const Marges &marges)
      : papier_(papier),
        marges_(marges),
        correction_(description.correction),
        origine_(description.depuisLeBord ? Point() : Point{marges.gauche, marges.haut}) {
    contenu_.open(QIODevice::WriteOnly);
    pdf_.setTitle(description.nom);
    pdf_.setCreator(u"Velmira"_s);
    pdf_.setResolution(kPointsParPouce);
    pdf_.setPageLayout(Disposition(papier.Feuille()));
  }

  Millimetres LargeurPage() const override {
    return papier_.page.largeur - marges_.gauche - marges_.droite;
  }
  Millimetres HauteurPage() const override {
    return papier_.page.hauteur - marges_.haut - marges_.bas;
  }
  Point CoinImprimable() const override {
    return correction_.Arrivee({marges_.gauche, marges_.haut}) - origine_;
  }

  void NouvellePage() override { pages_.emplace_back(); }
  void Ecrire(Millimetres x, Millimetres y, const Police &police, const QString &texte) override {
    pages_.back().lignes.push_back({{x, y}, police, texte});
  }
  void Tracer(Point de, Point a, Millimetres epaisseur) override {
    pages_.back().traits.push_back({de, a, epaisseur});
  }
  Millimetres Largeur(const QString &texte, const Police &police) const override {
    return Longueur(Mesures(police).horizontalAdvance(texte));
  }
  Millimetres HauteurLigne(const Police &police) const override {
    return Longueur(Mesures(police).lineSpacing());
  }

 protected:
  /// The whole document; nothing where it could not be drawn.
  std::optional<QByteArray> Dessiner() {
    QPainter peintre;
    if (!peintre.begin(&pdf_)) return std::nullopt;
    peintre.setTransform(DeLaPage());
    for (std::size_t i = 0; i < pages_.size(); ++i) {
      if (i > 0 && !pdf_.newPage()) return std::nullopt;
      for (const Ligne &ligne : pages_[i].lignes) Dessiner(peintre, ligne);
      for (const Trait &trait : pages_[i].traits) Dessiner(peintre, trait);
    }
    if (!peintre.end()) return std::nullopt;
    return contenu_.data();
  }

 private:
  struct Ligne {
    Point place;
    Police police;
    QString texte;
  };
  struct Trait {
    Point de, a;
    Millimetres epaisseur;
  };
  struct Page {
    std::vector<Ligne> lignes;
    std::vector<Trait> traits;
  };

  static double Unites(Millimetres longueur) { return longueur / kPouce * kPointsParPouce; }
  static QPointF Unites(Point point) { return {Unites(point.x), Unites(point.y)}; }
  static Millimetres Longueur(double unites) { return kPouce * (unites / kPointsParPouce); }

  /// The page is turned and corrected here: turned on the way it would keep the margins of the
  /// upright page, and each filter and printer picks its own side.
  QTransform DeLaPage() const {
    const Pose pose(papier_, origine_, correction_);
    const Point coin = pose({});
    const Point x = pose({Millimetres(1), {}}) - coin, y = pose({{}, Millimetres(1)}) - coin;
    return {x.x.valeur, x.y.valeur, y.x.valeur, y.y.valeur, Unites(coin.x), Unites(coin.y)};
  }
  void Dessiner(QPainter &peintre, const Ligne &ligne) const {
    peintre.setFont(Caracteres(ligne.police));
    const QPointF base(0, Mesures(ligne.police).ascent());
    peintre.drawText(Unites(ligne.place) + base, ligne.texte);
  }
  static void Dessiner(QPainter &peintre, const Trait &trait) {
    peintre.setPen(QPen(Qt::black, Unites(trait.epaisseur), Qt::SolidLine, Qt::FlatCap));
    peintre.drawLine(Unites(trait.de), Unites(trait.a));
  }
  QFontMetricsF Mesures(const Police &police) const {
    return QFontMetricsF(Caracteres(police), &pdf_);
  }

  Papier papier_;
  Marges marges_;
  Correction correction_;
  Point origine_;  ///< of the places, on the page
  std::vector<Page> pages_{1};
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

QString TexteTaille(const Taille &taille) {
  const auto texte = [](Millimetres longueur) {
    return QString::number(longueur.valeur, 'g', 4).replace(u'.', u',');
  };
  return u"%1 × %2 mm"_s.arg(texte(taille.largeur), texte(taille.hauteur));
}

/// Its pages are not turned: they are read on the screen.
class DocumentPdf : public DocumentPeint {
 public:
  DocumentPdf(const DescriptionDocument &description, const Horloge &horloge, QString dossier)
      : DocumentPeint(description, {description.papier.page},
                      {description.margeFichier, description.margeFichier, description.margeFichier,
                       description.margeFichier}),
        nom_(description.nom),
        papier_(description.papier),
        horloge_(horloge),
        dossier_(std::move(dossier)) {}

  FinImpression Terminer() override {
    const auto contenu = Dessiner();
    if (!contenu) return {Issue::Echouee};
    const QString debut =
        DebutNomFichier(nom_) + horloge_.Maintenant().toString(u" yyyy-MM-dd HH'h'mm'm'ss"_s);
    FinImpression fin = EcrirePdf(dossier_, debut, *contenu);
    if (papier_.enveloppe && fin.issue == Issue::Enregistree) fin.envoi = TexteTaille(papier_.page);
    return fin;
  }

 private:
  QString nom_;
  Papier papier_;
  const Horloge &horloge_;
  QString dossier_;
};

/// On a printer of the system that has this medium for its sheets.
class DocumentSysteme : public DocumentPeint {
 public:
  DocumentSysteme(QString appareil, const DescriptionDocument &description,
                  ServeurImpression::Support support)
      : DocumentPeint(description, description.papier, description.papier.SurPage(support.marges)),
        appareil_(std::move(appareil)),
        nom_(description.nom),
        papier_(description.papier),
        arret_(description.arret),
        support_(std::move(support)),
        envoi_{.support = support_.nom,
               .recto = description.recto,
               .telQuel = description.depuisLeBord || description.correction != Correction()} {}

  FinImpression Terminer() override {
    const auto contenu = Dessiner();
    if (!contenu) return {Issue::Echouee};
    try {
      const QString bac = ServeurImpression(arret_).Envoyer(appareil_, nom_, *contenu, envoi_);
      return {.issue = Issue::Imprimee, .envoi = papier_.enveloppe ? TexteEnvoi(bac) : QString()};
    } catch (const ServeurImpression::RemiseIncertaine &erreur) {
      return {.issue = Issue::Incertaine, .raison = erreur.Texte()};
    } catch (const Erreur &erreur) {
      return {.raison = erreur.Texte()};
    }
  }

 private:
  QString TexteEnvoi(const QString &bac) const {
    const QString tour = papier_.tour == Tour::Aucun    ? u"sans rotation"_s
                         : papier_.tour == Tour::Droite ? u"tournée à droite"_s
                                                        : u"tournée à gauche"_s;
    return u"%1 %2, %3, %4"_s.arg(
        support_.surMesure ? u"papier sur mesure"_s : u"papier"_s, TexteTaille(support_.taille),
        tour, bac.isEmpty() ? u"bac choisi par l'imprimante"_s : u"bac « %1 »"_s.arg(bac));
  }

  QString appareil_;
  QString nom_;
  Papier papier_;
  std::stop_token arret_;
  ServeurImpression::Support support_;
  ServeurImpression::Envoi envoi_;
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
  auto support = ServeurImpression(description.arret).SupportPour(appareil, description.papier);
  if (!support)
    throw Erreur(PhraseEchec(u"L'imprimante « %1 » n'a rien imprimé"_s.arg(appareil),
                             {u"le système ne l'a plus"_s, u"Choisissez-en une autre."_s}, {}, {}));
  return std::make_unique<DocumentSysteme>(appareil, description, std::move(*support));
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
