#include "GrandeListe.h"

#include "Ecran.h"
#include "Lancement.h"
#include "Nu.h"
#include "address/CodesPostaux.h"
#include "directory/ArbreVelmiras.h"
#include "directory/Categories.h"
#include "directory/RechercheTotale.h"
#include "storage/Historique.h"
#include "storage/Tables.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLettres = 3;  ///< of a name that is looked for
const QString kTexteCherche = u"nant"_s;

/// What no name begins with: in the notes, in each number, in each mail, in towns and notes.
const std::array kMotsCherches{u"remorque"_s, u"06"_s, u"@courriel"_s, u"quimper vœux"_s};

/// As long as the one that it takes the place of, so that the file keeps its pages.
const QString kNouvelleCategorie = u"Clan"_s;

template <typename T>
T &Controle(const QWidget &fenetre, const QString &nom) {
  auto *controle = fenetre.findChild<T *>(nom);
  if (controle == nullptr) qFatal("%s is missing", qPrintable(nom));
  return *controle;
}

void Taper(benchmark::State &etat, QLineEdit &champ, const QStringList &debuts) {
  int tour = 0;
  for (auto _ : etat) {
    etat.PauseTiming();
    const QString &debut = debuts[tour++ % kNomsCherches];
    champ.setText(debut.chopped(1));  // no search: it is not typed
    AttendreLaPeinture();
    QKeyEvent touche(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, debut.right(1));
    etat.ResumeTiming();
    QApplication::sendEvent(&champ, &touche);
    AttendreLaPeinture();
  }
}

void VerifierTrouve(benchmark::State &etat, const QLineEdit &champ, const QModelIndex &trouve) {
  const QString nom = trouve.data().toString();
  if (champ.text().isEmpty() || !nom.startsWith(champ.text(), Qt::CaseInsensitive))
    etat.SkipWithError("the search has not found the name");
}

void Renommer(Base &base, const QString &ancien, const QString &nouveau) {
  TableAdresse(base).ChangerCategories(
      ancien, [&](QString categories) { return categories.replace(ancien, nouveau); });
}

/// The record of a turn, and the one whose name it gets: far away in the list.
struct Echange {
  int ligne, autre;
};
Echange DuTour(int tour, Cle nombre) {
  const int n = static_cast<int>(nombre), ligne = (tour + 1) * 6133 % n;
  return {ligne, n - 1 - ligne};
}

/// Opens the editor by `modifier`, types a name, and lets the time run from OK on.
void ModifierNom(benchmark::State &etat, QAbstractButton &modifier, const QString &nom) {
  QTimer::singleShot(0, &modifier, [&] {
    AttendreLaPeinture();  // the editor is painted
    const QWidget *editeur = QApplication::activeModalWidget();
    if (editeur == nullptr) qFatal("the editor is missing");
    Controle<QLineEdit>(*editeur, u"txtName"_s).setText(nom);
    // A town is remembered in a table of its own.
    Controle<QComboBox>(*editeur, u"CboVille"_s).setEditText(u""_s);
    auto &ok = Controle<QAbstractButton>(*editeur, u"CmdOK"_s);
    etat.ResumeTiming();
    ok.click();
  });
  modifier.click();
  AttendreLaPeinture();
}

}  // namespace

QStringList DebutsCherches(const Donnees &donnees) {
  const std::vector<LigneNue> lignes = BaseNue(donnees.CheminBase()).Lister();
  const auto pas = static_cast<std::ptrdiff_t>(lignes.size()) / kNomsCherches;
  QStringList debuts;
  for (auto place = lignes.begin() + pas / 2; debuts.size() < kNomsCherches; place += pas) {
    // A blank is not found while it is the last key.
    const auto ligne = std::find_if(place, lignes.end(), [](const LigneNue &candidate) {
      return !candidate.texte.left(kLettres).endsWith(u' ');
    });
    debuts.append(ligne->texte.left(kLettres));
  }
  return debuts;
}

void TaperVelmira(benchmark::State &etat, const Donnees &donnees, const QStringList &debuts) {
  const Lancement lancement(donnees.AppPath());
  const ArbreVelmiras &liste = lancement.Liste();
  auto &champ = Controle<QLineEdit>(*liste.window(), u"TxtRR"_s);
  Taper(etat, champ, debuts);
  VerifierTrouve(etat, champ, liste.Selection());
}

void ChercherVelmira(benchmark::State &etat, const Donnees &donnees) {
  const Lancement lancement(donnees.AppPath());
  const ArbreVelmiras &liste = lancement.Liste();
  auto &champ = Controle<QLineEdit>(*liste.window(), u"TxtRR"_s);
  const auto taper = [&](const QString &touche) {
    QKeyEvent evenement(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, touche);
    QApplication::sendEvent(&champ, &evenement);
  };
  const auto &compte = Controle<QLabel>(*liste.window(), u"LblNomBE"_s);
  // No name begins so: the table is read beside the window.
  taper(kMotsCherches.back());
  while (!compte.text().contains(u"enregistrements"_s)) AttendreLaPeinture();
  int tour = 0;
  for (auto _ : etat) {
    etat.PauseTiming();
    const QString &mot = kMotsCherches[static_cast<std::size_t>(tour++) % kMotsCherches.size()];
    champ.setText(mot.chopped(1));  // no search: it is not typed
    AttendreLaPeinture();
    etat.ResumeTiming();
    taper(mot.right(1));
    AttendreLaPeinture();
    if (champ.text() != mot || !liste.Selection().parent().isValid())
      etat.SkipWithError("the search has not found anybody");
  }
}

void ChercherNu(benchmark::State &etat, const Donnees &donnees) {
  const BaseNue base(donnees.CheminBase());
  int tour = 0;
  for (auto _ : etat)
    benchmark::DoNotOptimize(
        base.Chercher(kMotsCherches[static_cast<std::size_t>(tour++) % kMotsCherches.size()]));
}

void TaperNu(benchmark::State &etat, const Donnees &donnees, const QStringList &debuts) {
  const BaseNue base(donnees.CheminBase());
  RechercheNue fenetre(base);
  fenetre.show();
  AttendreLaPeinture();
  Taper(etat, fenetre.Saisie(), debuts);
  VerifierTrouve(etat, fenetre.Saisie(), fenetre.Trouve());
}

void RenommerVelmira(benchmark::State &etat, const Donnees &donnees) {
  Base base;
  base.Ouvrir(donnees.CheminBase());
  QString ancien = CategorieRare(), nouveau = kNouvelleCategorie;
  for (auto _ : etat) {
    Renommer(base, ancien, nouveau);
    ancien.swap(nouveau);
  }
}

void RenommerNu(benchmark::State &etat, const Donnees &donnees) {
  BaseNue base(donnees.CheminBase());
  QString ancien = CategorieRare(), nouveau = kNouvelleCategorie;
  for (auto _ : etat) {
    base.Renommer(ancien, nouveau);
    ancien.swap(nouveau);
  }
}

void EnregistrerVelmira(benchmark::State &etat, const Donnees &donnees) {
  const Lancement lancement(donnees.AppPath());
  ArbreVelmiras &liste = lancement.Liste();
  const ModeleListe &modele = liste.Modele();
  auto &modifier = Controle<QAbstractButton>(*liste.window(), u"ImgBouton_1"_s);
  int tour = 0;
  for (auto _ : etat) {
    etat.PauseTiming();
    const auto [ligne, autre] = DuTour(tour++, donnees.Nombre());
    const QString nom = modele.index(autre, 0, modele.Racine()).data().toString();
    liste.SelectionnerEtCliquer(modele.index(ligne, 0, modele.Racine()));
    AttendreLaPeinture();
    ModifierNom(etat, modifier, nom);
    if (liste.Selection().data().toString() != nom) {
      etat.SkipWithError("the record is not saved");
      break;
    }
  }
}

void EnregistrerNu(benchmark::State &etat, const Donnees &donnees) {
  BaseNue base(donnees.CheminBase());
  const std::vector<LigneNue> lignes = base.Lister();
  int tour = 0;
  for (auto _ : etat) {
    const auto [ligne, autre] = DuTour(tour++, donnees.Nombre());
    base.EcrireNom(lignes[static_cast<std::size_t>(ligne)].index,
                   lignes[static_cast<std::size_t>(autre)].texte);
    benchmark::DoNotOptimize(base.Categories());
  }
}

void EcrireFiche(benchmark::State &etat, const Donnees &donnees, bool garde) {
  Base base;
  base.Ouvrir(donnees.CheminBase());
  TableAdresse table(base);
  Correspondant fiche = table.Lire(1).value();
  const Correspondant depart = fiche;
  const auto ecrire = [&](const Correspondant &saisie) {
    std::optional<Acte> acte;
    if (garde) acte.emplace(base, u"modification"_s);
    table.Modifier(fiche, saisie);
    fiche = saisie;
  };
  for (auto _ : etat) {
    Correspondant saisie = fiche;
    saisie.NomVelmira += u'x';
    ecrire(saisie);
  }
  ecrire(depart);
}

void ChercherCodesVelmira(benchmark::State &etat, const QByteArray &codes) {
  for (auto _ : etat) benchmark::DoNotOptimize(ChercherCodes(codes, kTexteCherche));
}

void ChercherCodesNu(benchmark::State &etat, const QByteArray &codes) {
  const QByteArray texte = kTexteCherche.toLatin1();
  for (auto _ : etat) benchmark::DoNotOptimize(ChercherOctets(codes, texte));
}

void VerifierGrandeListe(const Donnees &donnees, const QStringList &debuts,
                         const QByteArray &codes) {
  Base base;
  base.Ouvrir(donnees.CheminBase());
  BaseNue nue(donnees.CheminBase());
  const auto exiger = [](bool vrai, const char *quoi) {
    if (!vrai) qFatal("the two halves differ: %s", quoi);
  };

  ModeleListe modele;
  modele.Remplir({}, ListerVelmiras(TableAdresse(base), {ToutesCategories(), {}, {}}));
  RechercheTotale totale(base, {});
  const auto trouves = totale.Chercher(kMotsCherches.back(), {ToutesCategories(), {}, {}});
  exiger(!trouves.empty() &&
             static_cast<qsizetype>(trouves.size()) == nue.Chercher(kMotsCherches.back()).size(),
         "the search in everything");

  const RechercheNue recherche(nue);
  int precedent = -1;
  for (const QString &debut : debuts) {
    const int ligne = modele.Commencant(debut).row();
    exiger(ligne > precedent && ligne == recherche.Chercher(debut), "the search of a name");
    precedent = ligne;
  }

  const auto membres = [&](const QString &categorie) {
    return ListerVelmiras(TableAdresse(base), {categorie, {}, {}}).size();
  };
  const auto nombre = membres(CategorieRare());
  Renommer(base, CategorieRare(), kNouvelleCategorie);
  exiger(membres(CategorieRare()) == 0 && membres(kNouvelleCategorie) == nombre, "the renaming");
  nue.Renommer(kNouvelleCategorie, CategorieRare());
  exiger(membres(CategorieRare()) == nombre && membres(kNouvelleCategorie) == 0,
         "the bare renaming");

  // The entries behind the two at the head, the second of which the records hold as well.
  const QStringList categories = CategoriesAuChoix(base);
  QStringList nues = nue.Categories();
  nues.removeOne(Favoris());
  exiger(categories.mid(2) == nues, "the categories");

  QStringList lignes;
  for (const CodePostal &trouve : ChercherCodes(codes, kTexteCherche)) lignes.append(trouve.ligne);
  exiger(!lignes.isEmpty() && lignes == ChercherOctets(codes, kTexteCherche.toLatin1()),
         "the search of a code");
}
