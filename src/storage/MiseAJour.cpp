#include "storage/MiseAJour.h"

#include "platform/Fichiers.h"
#include "platform/Pannes.h"
#include "storage/EmplacementDonnees.h"
#include "storage/Lignes.h"
#include "storage/Noms.h"
#include "storage/Requete.h"
#include "storage/Schema.h"
#include "storage/SourceSqlite.h"
#include "storage/Tables.h"
#include "storage/Telephone.h"

#include <QDir>
#include <QLockFile>
#include <QSet>

#include <cerrno>
#include <chrono>
#include <limits>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr qsizetype kPas = 500;  // rows between two words of progress

QString CheminAncien(const QString &cheminBase) {
  return cheminBase + u"/Ancien_Velmira.mdb"_s;
}

bool Prendre(const QVariant &valeur, QString &champ) {
  champ = valeur.isNull() ? QString() : valeur.toString();
  if (champ.isNull() && !valeur.isNull()) champ = u""_s;
  return true;
}

/// False for what is no number; null and an empty text are 0.
bool Prendre(const QVariant &valeur, qint64 &champ) {
  bool nombre = true;
  champ = valeur.isNull() || valeur.toString().isEmpty() ? 0 : valeur.toLongLong(&nombre);
  return nombre;
}

bool Prendre(const QVariant &valeur, int &champ) {
  qint64 large = 0;
  if (!Prendre(valeur, large) || large < std::numeric_limits<int>::min() ||
      large > std::numeric_limits<int>::max())
    return false;
  champ = static_cast<int>(large);
  return true;
}

bool Prendre(const QVariant &valeur, bool &champ) {
  qint64 nombre = 0;
  if (!Prendre(valeur, nombre)) return false;
  champ = nombre != 0;
  return true;
}

/// The first ordinal that may be missing: the fields in front of it are what makes the row.
constexpr int PremierFacultatif(Table<Correspondant>) {
  return 9;
}
template <typename L>
constexpr int PremierFacultatif(Table<L>) {
  constexpr bool repertoire = std::is_same_v<L, Expediteur> || std::is_same_v<L, VilleCode>;
  return repertoire ? std::numeric_limits<int>::max() : 1;
}

/// What a row holds where the old one has no such field.
template <typename L>
L LigneDeDepart(Table<L>, const ReglesCopie &) {
  return {};
}
TypeAlerte LigneDeDepart(Table<TypeAlerte>, const ReglesCopie &) {
  TypeAlerte type;
  type.Disponible = true;
  return type;
}
PersonneAlerte LigneDeDepart(Table<PersonneAlerte>, const ReglesCopie &) {
  PersonneAlerte personne;
  personne.Disponible = true;
  return personne;
}
Evenement LigneDeDepart(Table<Evenement>, const ReglesCopie &regles) {
  Evenement evenement;
  evenement.Delai = regles.JoursAvance;
  evenement.Actif = true;
  return evenement;
}

class Copie {
 public:
  Copie(SourceAncienne &source, Base &cible, const ReglesCopie &regles,
        const std::function<void(qsizetype)> &avancement)
      : source_(source), cible_(cible), regles_(regles), avancement_(avancement) {}

  void Vider() {
    PourChaqueTable(
        [this](auto table) { Requete(cible_, u"DELETE FROM "_s + Nom(table)).Executer(); });
    Requete(cible_, u"DELETE FROM sqlite_sequence"_s).Executer();  // the keys begin at 1 again
  }

  void Copier() {
    PourChaqueLigne(Table<PersonneAlerte>{}, [this](const PersonneAlerte &personne) {
      if (personne.Disponible) alertes_.insert(EnCapitales(personne.Nom));
    });
    PourChaqueTable([this](auto table) { CopierTable(table); });
    avancement_(copiees_);
  }

 private:
  template <typename L, typename Champ>
  void LireChamp(L &ligne, const Colonne<L, Champ> &colonne, int ordinal) {
    const auto valeur = source_.Champ(ordinal);
    Champ lu{};
    if (valeur && Prendre(*valeur, lu))
      ligne.*colonne.champ = lu;
    else if (ordinal < PremierFacultatif(Table<L>{}))
      throw ErreurBase(u"Le champ %1 de la table %2 ne peut pas être lu."_s.arg(
          QString::fromUtf16(colonne.nom), QString::fromUtf16(Table<L>::nom)));
  }

  template <typename L, typename Visiteur>
  void PourChaqueLigne(Table<L> table, Visiteur &&visiteur) {
    if (!source_.Ouvrir(QString::fromUtf16(Table<L>::nom))) return;
    while (source_.Suivante()) {
      L ligne = LigneDeDepart(table, regles_);
      int ordinal = 1;
      std::apply([&](const auto &,
                     const auto &...colonne) { (LireChamp(ligne, colonne, ordinal++), ...); },
                 Table<L>::colonnes);
      visiteur(ligne);
    }
  }

  template <typename L>
  void CopierTable(Table<L> table) {
    PourChaqueLigne(table, [&](L &ligne) {
      MettreAJour(ligne);
      AjouterLigne(cible_, ligne);
      if (++copiees_ % kPas == 0) avancement_(copiees_);
    });
  }

  template <typename L>
  void MettreAJour(L &) {}

  void MettreAJour(Correspondant &fiche) {
    QString &categories = fiche.Categories;
    if (!categories.isEmpty()) {
      if (!categories.startsWith(u'*')) categories.prepend(u'*');
      if (!categories.endsWith(u'*')) categories.append(u'*');
    }
    for (QString *numero : {&fiche.Tel, &fiche.Fax, &fiche.Portable, &fiche.TelTravail}) {
      *numero = FormatTelephone(*numero, regles_.SeparateurTel);
      if (numero->isNull()) *numero = u""_s;
    }
    // A database of the first versions held a yes or no here.
    QString &protection = fiche.DataProt;
    if (protection.isNull() || protection == u"No"_s || protection == u"0"_s) protection = u""_s;
    if (alertes_.contains(EnCapitales(fiche.NomVelmira))) fiche.AlerteActive = true;
  }

  SourceAncienne &source_;
  Base &cible_;
  const ReglesCopie &regles_;
  const std::function<void(qsizetype)> &avancement_;
  QSet<QString> alertes_;  ///< the people in force, in upper case
  qsizetype copiees_ = 0;
};

/// Keeps a second upgrade of the same folder waiting: a file of another format has no lock of the
/// engine. What a killed program leaves of it counts no more, and is swept.
class Tour {
 public:
  explicit Tour(const QString &dossier)
      : fichier_(dossier + u'/' + PrefixeProvisoire() + u"miseajour0jet"_s) {
    fichier_.setStaleLockTime(10min);
    if (fichier_.tryLock(120s)) return;
    const bool occupe = fichier_.error() == QLockFile::LockFailedError;
    throw EchecSysteme(
        u"Le répertoire « %1 » n'a pas pu être réservé"_s.arg(QDir::toNativeSeparators(dossier)),
        u"Rien n'a été modifié."_s, occupe ? EBUSY : EACCES);
  }

 private:
  QLockFile fichier_;
};

void RemplirEtEchanger(const Dossiers &dossiers, SourceAncienne &source,
                       const QString &separateurTel,
                       const std::function<void(qsizetype)> &avancement) {
  Base cible;
  cible.Ouvrir(FichierBaseLivree(dossiers.CheminBase));
  CopierBase(source, cible, LireReglesCopie(dossiers.AppPath, separateurTel), avancement);
  cible.Fermer();
  EchangerBases(dossiers);
}

}  // namespace

ReglesCopie LireReglesCopie(const QString &appPath, const QString &separateurTel) {
  const auto alarme = LireAncienneAlarme(appPath);
  return {separateurTel, alarme ? alarme->JoursAvance : quint8{0}};
}

void ConvertirAlarme(const QString &appPath) {
  if (const auto ancienne = LireAncienneAlarme(appPath)) EcrireAlarme(appPath, ancienne->alarme);
}

void CopierBase(SourceAncienne &source, Base &cible, const ReglesCopie &regles,
                const std::function<void(qsizetype)> &avancement) {
  Copie copie(source, cible, regles, avancement);
  Transaction transaction(cible);
  copie.Vider();
  copie.Copier();
  transaction.Valider();
}

void ConvertirBase(SourceAncienne &source, const QString &chemin, const ReglesCopie &regles,
                   const std::function<void(qsizetype)> &avancement) {
  RemplacerFichierPar(chemin, [&](const QString &nouveau) {
    CreerTables(nouveau);
    Base cible;
    cible.Ouvrir(nouveau);
    CopierBase(source, cible, regles, avancement);
  });
}

void EchangerBases(const Dossiers &dossiers) {
  const QString &dossier = dossiers.CheminBase;
  const QString ancien = CheminAncien(dossier);
  // From here on the full base alone, without one of the user's beside it, tells the next start
  // what to finish: only a base whose copy is over ever stands so. The notice is rewritten behind
  // this line, since a copy that is begun anew needs the one number that the rewriting drops.
  try {
    RemplacerParRenommage(dossiers.Base(), ancien);
    ConvertirAlarme(dossiers.AppPath);
    RenommerFichier(FichierBaseLivree(dossier), dossiers.Base());
  } catch (const Erreur &) {
    // A renaming may have been done, and only its flush have failed.
    Ignorer([&] {
      if (!ContientBaseLivree(dossier))
        RenommerFichier(dossiers.Base(), FichierBaseLivree(dossier));
    });
    Ignorer([&] {
      if (!ContientBase(dossier)) RenommerFichier(ancien, dossiers.Base());
    });
    throw;
  }
}

void VerifierMiseAJour(const Dossiers &dossiers) {
  const SourceSqlite source(dossiers.Base());
}

void MettreAJourBase(const Dossiers &dossiers, const QString &separateurTel,
                     const std::function<void(qsizetype)> &avancement) {
  SourceSqlite source(dossiers.Base());
  // Held until the swap is over: nobody writes what would not be copied, and a second user's
  // upgrade waits and then finds that there is nothing left to do.
  source.Reserver();
  if (!source.EstEnPlace()) return;
  RemplacerBaseLivree(dossiers);
  if (EstFichier(FichierBaseLivree(dossiers.CheminBase)))
    RemplirEtEchanger(dossiers, source, separateurTel, avancement);
}

void MettreAJourBaseJet(const Dossiers &dossiers, SourceJet &source, const QString &separateurTel,
                        const std::function<void(qsizetype)> &avancement) {
  const Tour tour(dossiers.CheminBase);
  if (!source.EstEnPlace()) return;
  RemplacerBaseLivree(dossiers);
  const QString livree = FichierBaseLivree(dossiers.CheminBase);
  const bool aPoser = !EstFichier(livree);
  try {
    if (aPoser) RemplacerFichierPar(livree, CreerTables);
    RemplirEtEchanger(dossiers, source, separateurTel, avancement);
  } catch (const Erreur &) {
    if (aPoser) Ignorer([&] { EffacerFichier(livree); });
    throw;
  }
}

bool BaseLivreeDepassee(const Dossiers &dossiers) {
  const qint32 livree = VersionDuFichier(FichierBaseLivree(
      ContientBaseLivree(dossiers.AppPath) ? dossiers.AppPath : dossiers.CheminBase));
  return livree >= 0 && VersionDuFichier(dossiers.Base()) > livree;
}

void PoserBaseLivree(const QString &cheminBase) {
  const QString livree = FichierBaseLivree(cheminBase);
  // What a killed upgrade left half written is taken back under the name that its journal knows.
  Ignorer([&] { Base().Ouvrir(livree); });
  RenommerFichier(livree, FichierBase(cheminBase));
}

bool AttendreEchange(const QString &cheminBase) {
  if (!EchangeInterrompu(cheminBase)) return false;
  const QString ancien = CheminAncien(cheminBase);
  Ignorer([&] {
    if (EstJet(ancien)) {
      const Tour tour(cheminBase);
    } else {
      SourceSqlite(ancien).Reserver();
    }
  });
  return EchangeInterrompu(cheminBase);
}

bool EchangeInterrompu(const QString &cheminBase) {
  return EstFichier(FichierBaseLivree(cheminBase)) && EstFichier(CheminAncien(cheminBase)) &&
         !EstPresent(FichierBase(cheminBase));
}
