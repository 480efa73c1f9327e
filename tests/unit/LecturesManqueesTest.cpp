// What is there and cannot be read: told in French with its name, never taken for absent or empty,
// never written over.

#include "Outils.h"
#include "address/Titres.h"
#include "envelope/ExpediteurDefaut.h"
#include "exchange/FichierEchange.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "storage/Base.h"
#include "storage/DossierApplication.h"
#include "storage/EmplacementDonnees.h"
#include "storage/Reglages.h"
#include "storage/Schema.h"
#include "storage/Tables.h"
#include "storage/TransfertBase.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {

class LecturesManquees : public DansUnDossier {
 protected:
  /// A file that opens and whose first byte cannot be read, also by the superuser.
  void Illisible(const QString &nom) const {
    QFile::remove(Chemin(nom));
    ASSERT_TRUE(QFile::link(u"/proc/self/mem"_s, Chemin(nom)));
  }
  /// A name that leads nowhere: not even what stands there can be told.
  void SansAcces(const QString &nom) const { ASSERT_TRUE(QFile::link(Chemin(nom), Chemin(nom))); }
  /// The step throws words for the user, which name this file.
  void Echoue(const std::function<void()> &etape, const QString &nom) const {
    try {
      etape();
      ADD_FAILURE() << nom.toStdString() << " is taken for read";
    } catch (const Erreur &erreur) {
      EXPECT_TRUE(erreur.Texte().contains(u"« "_s + Chemin(nom) + u" »"_s))
          << erreur.Texte().toStdString();
    }
  }
};

}  // namespace

TEST_F(LecturesManquees, TroisIssues) {
  EXPECT_EQ(LireFichier(Chemin(u"absent"_s)), std::nullopt);
  EXPECT_FALSE(EstPresent(Chemin(u"absent/f"_s)));
  Echoue([&] { LireFichierPresent(Chemin(u"absent"_s)); }, u"absent"_s);

  ASSERT_TRUE(QDir().mkdir(Chemin(u"dossier"_s)));
  Illisible(u"mem"_s);
  SansAcces(u"boucle"_s);
  for (const QString &nom : {u"dossier"_s, u"mem"_s, u"boucle"_s}) {
    Echoue([&] { LireFichier(Chemin(nom)); }, nom);
    EXPECT_EQ(LireSiPossible(Chemin(nom)), std::nullopt);
  }
  for (const auto &regarder : {EstPresent, EstFichier, EstDossier})
    Echoue([&] { regarder(Chemin(u"boucle"_s)); }, u"boucle"_s);
  EXPECT_THROW(Base().Ouvrir(Chemin(u"boucle"_s)), ErreurBase) << "not a base that is missing";
}

// The file could not be read at the load and can be later: what it holds is not replaced by the
// defaults of this run.
TEST_F(LecturesManquees, ReglagesJamaisRemplaces) {
  Reglages r;
  const QString app = Chemin();
  const std::pair<QString, std::function<void()>> cas[] = {
      {u"Plomex.ini"_s, [&] { EcrireReglages(app, r.plomex); }},
      {u"RTColor.ini"_s, [&] { EcrireRTColor(app, r.rtcolor); }},
      {u"Memora.ini"_s, [&] { EcrireMemora(app, r.memora); }},
      {u"Alarme.ini"_s, [&] { EcrireAlarme(app, r.alarme); }},
      {u"Liaison.cfg"_s, [&] { EcrireLiaison(app, r); }},
  };
  for (const auto &[nom, ecrire] : cas) Illisible(nom);
  LireReglages(app, r);
  for (const auto &[nom, ecrire] : cas) {
    QFile::remove(Chemin(nom));
    Poser(nom, "[Autre]\r\ncle=1\r\n");
    Echoue(ecrire, nom);
    EXPECT_EQ(Octets(nom), "[Autre]\r\ncle=1\r\n");
  }
  LireReglages(app, r);
  for (const auto &[nom, ecrire] : cas) EXPECT_NO_THROW(ecrire()) << "read meanwhile";

  Illisible(u"Plomex.ini"_s);
  Echoue([&] { EcrireReglages(app, r.plomex); }, u"Plomex.ini"_s);
  Illisible(u"Liaison.cfg"_s);
  Echoue([&] { LireSeparateurTel(app); }, u"Liaison.cfg"_s);
}

TEST_F(LecturesManquees, NiPerteNiBaseVide) {
  const auto reste = [this](const QString &nom) {
    EXPECT_EQ(QFile::symLinkTarget(Chemin(nom)), u"/proc/self/mem"_s);
  };
  Illisible(u"Civilite.txt"_s);
  Echoue([&] { AjouterTitre(Chemin(), u"Docteur"_s); }, u"Civilite.txt"_s);
  Echoue([&] { RetirerTitre(Chemin(), u"M."_s); }, u"Civilite.txt"_s);
  reste(u"Civilite.txt"_s);

  CreerBaseVide(Chemin(u"Velmira.mdb"_s));
  Base base;
  base.Ouvrir(Chemin(u"Velmira.mdb"_s));
  Expediteur expediteur;
  expediteur.ParDefaut = true;
  AjouterLigne(base, expediteur);
  Illisible(u"Defaut.ini"_s);
  EXPECT_FALSE(LireExpediteurDefaut(Chemin(), base));
  reste(u"Defaut.ini"_s);
  EXPECT_TRUE(TableExpediteur(base).Tous().constFirst().ParDefaut);

  Illisible(u"Velmira.txt"_s);
  Echoue([&] { FichierEchange(Chemin()).Lire(); }, u"Velmira.txt"_s);
  Echoue([&] { FichierEchange(Chemin()).Contenu(); }, u"Velmira.txt"_s);

  base.Fermer();
  const QByteArray avant = Octets(u"Velmira.mdb"_s);
  Illisible(u"source.mdb"_s);
  Echoue([&] { TransfererBase(Chemin(u"source.mdb"_s), Chemin(u"Velmira.mdb"_s)); },
         u"source.mdb"_s);
  EXPECT_EQ(Octets(u"Velmira.mdb"_s), avant);

  for (const QString &nom : {u"bin"_s, u"installe"_s}) ASSERT_TRUE(QDir().mkdir(Chemin(nom)));
  Illisible(u"installe/Velmira_base.mdb"_s);
  Echoue([&] { TrouverAppPath(Chemin(u"bin"_s), Chemin(u"installe"_s), Chemin(u"home"_s)); },
         u"installe/Velmira_base.mdb"_s);
  EXPECT_FALSE(Existe(u"home/Velmira_base.mdb"_s) || Existe(u"home/Installation.cfg"_s));

  Illisible(u"CheminData.cfg"_s);
  Echoue([&] { LireCheminData(Chemin()); }, u"CheminData.cfg"_s);
  Poser(u"Cheminbase.cfg"_s, '"' + Chemin(u"DataVelmira"_s).toLatin1() + '"');
  SansAcces(u"DataVelmira"_s);
  const EmplacementBase lieu = TrouverBase(Chemin(), u"/ailleurs"_s);
  EXPECT_EQ(lieu.etat, EtatChemin::Inaccessible);
  EXPECT_EQ(lieu.choisi, Chemin(u"DataVelmira"_s));
}
