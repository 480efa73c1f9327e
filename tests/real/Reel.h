#pragma once
// What the tests of the real parts share: other programs, waiting, and paper, which is an envelope
// printed as its window prints it and what poppler reads on the page.

#include "commun/DisquePlein.h"
#include "commun/HorlogeFixe.h"
#include "envelope/MiseEnPage.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "platform/linux/ImprimanteSysteme.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gtest/gtest.h>
#include <limits>

using namespace Qt::StringLiterals;

/// What a program of the system prints; one that fails, fails the test.
inline QByteArray Executer(const QString &programme, const QStringList &arguments) {
  QProcess processus;
  processus.start(programme, arguments);
  EXPECT_TRUE(processus.waitForFinished(-1)) << qPrintable(programme);
  EXPECT_EQ(processus.exitCode(), 0) << processus.readAllStandardError().constData();
  return processus.readAllStandardOutput();
}

/// Lets events through until this holds; what never holds ends with the time of the whole test.
template <typename Condition>
void Attendre(Condition &&condition) {
  while (!condition()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
}

/// Millimetres from the top left corner of the page. What is not there is near to nothing.
struct Mot {
  QString texte;
  double gauche = std::numeric_limits<double>::quiet_NaN();
  double haut = gauche, droite = gauche, bas = gauche;
};

struct Page {
  double largeur = 0;
  QList<Mot> mots;

  Mot operator()(const QString &texte) const {
    for (const Mot &mot : mots)
      if (mot.texte == texte) return mot;
    return {texte};
  }
};

inline QList<Page> LirePages(const QString &pdf) {
  QList<Page> pages;
  QXmlStreamReader xml(Executer(u"pdftotext"_s, {u"-bbox"_s, pdf, u"-"_s}));
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    const auto mm = [attributs = xml.attributes()](const char16_t *nom) {
      return attributs.value(QString::fromUtf16(nom)).toDouble() * kPoint.valeur;
    };
    if (xml.name() == u"page"_s) pages.append(Page{mm(u"width"), {}});
    if (xml.name() != u"word"_s) continue;
    Mot mot{{}, mm(u"xMin"), mm(u"yMin"), mm(u"xMax"), mm(u"yMax")};
    mot.texte = xml.readElementText();
    pages.back().mots.append(mot);
  }
  return pages;
}

class Papier : public testing::Test {
 protected:
  static constexpr double kTolerance = 0.3;

  Papier() {
    plomex_.Orientation = OrientationFeuille::Portrait;
    plomex_.BordImprime = BordImprime::Droit;
    plomex_.PositionEnveloppe = PositionEnveloppe::Milieu;
    plomex_.PoliceE = u"Liberation Sans"_s, plomex_.PoliceA = u"Liberation Mono"_s;
    plomex_.TailleE = 8, plomex_.TailleA = 14;
    plomex_.AlignA = Alignement::Droite;
    etat_.Commentaire = u"Recommandé"_s;
  }

  FinImpression Imprimer(const QString &appareil) {
    const ContenuEnveloppe contenu{u"Expéditrice"_s, u"Établissements\nRue\n\nNANTES"_s, true};
    return *ImprimerPlis(imprimante_, appareil, plomex_, {{etat_, contenu}});
  }

  /// That envelope on its page, with its address and its sender at these places.
  static void Verifier(const Page &page, double largeur, double xA, double yA, double xE,
                       double yE) {
    const double taille = 14 * kPoint.valeur;
    const Mot nom = page(u"Établissements"_s), ville = page(u"NANTES"_s);
    EXPECT_NEAR(page.largeur, largeur, kTolerance);
    EXPECT_NEAR(nom.gauche, xA, kTolerance);
    EXPECT_NEAR(nom.haut, yA, kTolerance);
    EXPECT_NEAR(nom.droite, xA + 14 * 0.6001 * taille, kTolerance) << "14 letters of the font";
    EXPECT_NEAR(ville.droite, nom.droite, kTolerance);
    EXPECT_NEAR(ville.haut, yA + 3 * 1.1328 * taille, kTolerance) << "three lines of the font";
    EXPECT_NEAR(page(u"Expéditrice"_s).gauche, xE, kTolerance);
    EXPECT_NEAR(page(u"Expéditrice"_s).haut, yE, kTolerance);
    EXPECT_NEAR(page(u"Recommandé"_s).haut, yE, kTolerance);
  }

  const QString pdf_ = Imprimante::NomPdf();
  QTemporaryDir dossier_;
  HorlogeFixe horloge_;
  ImprimanteSysteme imprimante_{horloge_, dossier_.filePath(u"courrier"_s)};
  ReglagesPlomex plomex_;
  EtatEnveloppe etat_;
};
