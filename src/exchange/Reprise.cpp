#include "exchange/Reprise.h"

#include "directory/LibellesFiche.h"
#include "exchange/AncienneBase.h"
#include "exchange/Contact.h"
#include "exchange/PhotosReprises.h"
#include "exchange/Reconnaissance.h"
#include "storage/Conflits.h"
#include "storage/Noms.h"
#include "storage/Tables.h"
#include "storage/TablesAlertes.h"

#include <QFileInfo>
#include <QSet>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using L = Correspondant;
using Choix = ChoixColonnes<L>;

/// What goes to the notes for want of a field.
QStringList AnnexesNouvelles(const QString &presentes, const PersonneImportee &personne) {
  QStringList nouvelles = NotesNouvelles(presentes, personne);
  nouvelles.removeIf([&](const QString &note) { return !personne.auxNotes.contains(note); });
  return nouvelles;
}

class Repreneur {
 public:
  Repreneur(Base &base, const DemandeReprise &demande)
      : base_(base),
        demande_(demande),
        photos_(demande.dossierPhotos),
        connus_(base, demande.utilisateur,
                [this](const QString &chemin) { return photos_.Lire(chemin); }) {}

  void Commencer(const FichierRepris &fichier) {
    connus_.Commencer(fichier);
    ancienne_ = fichier.base != nullptr;
    desDebuts_ = ancienne_ && fichier.base->EstDesDebuts();
  }

  void Integrer(const PersonneImportee &personne) {
    if (!personne.refus.isEmpty()) {
      ++bilan_.refuses;
      bilan_.refus.Ajouter(TexteRefus(personne));
      return;
    }
    tue_ = connus_.EstCachee(personne.fiche);
    const ReponseReprise reponse = Reponse(personne.origine);
    const auto trouvee = connus_.Chercher(personne, reponse.deja);
    if (trouvee && trouvee->lien == Reconnue::Lien::Pareille)
      NoterIdentique(trouvee->presente);
    else if (!trouvee || (reponse.deja == Deja::Deux && !reponse.prises))
      Ajouter(personne);
    else
      Unir(*trouvee, personne, reponse);
  }

  /// The other tables of an older database.
  void Finir(const FichierRepris &fichier) {
    if (!ancienne_) return;
    Base ancienne;
    ancienne.Ouvrir(fichier.base->Convertie());
    bilan_.tables += ReunirTables(ancienne, fichier.base->Cles(), base_);
    for (const PersonneEvenements &alertee : TablesAlertes(ancienne).Personnes())
      MarquerAlertes(alertee.personne.Nom);
    const bool vide = TableAdresse(ancienne).EstVide() && bilan_.tables.Ajoutees() == 0;
    if (desDebuts_ && !vide) bilan_.ancienneBase = true;
  }

  void NommerPhotos() const { photos_.Nommer(); }
  void GarderPhotos() { photos_.Garder(); }
  const BilanReprise &Bilan() const { return bilan_; }

 private:
  ReponseReprise Reponse(const Origine &origine) const {
    return demande_.reponses.value({origine.fichier, origine.rang}, {demande_.deja});
  }

  /// Nobody reads of a person that another user has hidden.
  void Dire(BilanReprise::Chapitre &chapitre, const QString &ligne) const {
    if (!tue_) chapitre.Ajouter(ligne);
  }

  /// What a record of this run lacks is completed whatever the answer: that is for those who were
  /// there.
  static Choix Prises(const Reconnue &trouvee, const ReponseReprise &reponse) {
    const Confrontation &faite = trouvee.faite;
    if (reponse.prises) return *reponse.prises & (faite.manques | faite.ecarts);
    if (trouvee.lien == Reconnue::Lien::Prise) return faite.manques;
    if (reponse.deja == Deja::Garder) return {};
    return reponse.deja == Deja::Prendre ? faite.manques | faite.ecarts : faite.manques;
  }

  void NoterIdentique(const L &presente) {
    ++bilan_.identiques;
    NoterAdresseImportee(presente);
  }

  void NoterAdresseImportee(const L &fiche) {
    if (desDebuts_ && !fiche.AdresseImportee.isEmpty()) bilan_.adressesImportees = true;
  }

  /// A card brings no place among the alerts along.
  bool EstDesAlertes(const QString &nom) {
    if (!alertes_) {
      alertes_.emplace();
      for (const PersonneEvenements &p : TablesAlertes(base_).Personnes())
        alertes_->insert(EnCapitales(p.personne.Nom));
    }
    return alertes_->contains(EnCapitales(nom));
  }

  /// The mark of a record goes with the person's place among the alerts.
  void MarquerAlertes(const QString &nom) {
    L fiche;
    fiche.NomVelmira = nom;
    fiche.DataProt = u""_s;
    for (const Cle cle : connus_.DeCeNom(fiche)) {
      auto presente = TableAdresse(base_).Lire(cle);
      if (!presente || std::exchange(presente->AlerteActive, true)) continue;
      ModifierLigne(base_, *presente, Seulement(&L::AlerteActive));
    }
  }

  void Unir(const Reconnue &trouvee, const PersonneImportee &personne,
            const ReponseReprise &reponse) {
    const auto &[lien, presente, faite] = trouvee;
    if (lien == Reconnue::Lien::Libre) connus_.Prendre(presente.Index);
    const bool noter = reponse.deja == Deja::Completer;
    Choix prises = Prises(trouvee, reponse);
    Choix laissees = (faite.manques | faite.ecarts) & ~(prises | faite.notees);
    const Choix notees = noter ? laissees & faite.ecarts & Notables() : Choix();
    const QStringList ecarts = NotesDesEcarts(personne, notees);
    laissees &= ~notees;
    L fondue = Fondre(presente, personne, prises);
    Situer(fondue, personne, prises[Ordinal(&L::Photo)]);
    DireEcarts(presente, personne, laissees);
    const bool remplace = (prises & faite.ecarts).any();
    if (prises[Ordinal(&L::Commentaires)])
      DireNotes(personne, AnnexesNouvelles(presente.Commentaires, personne));
    DireNotes(personne, ecarts);
    if (!ecarts.isEmpty()) {
      Annexer(fondue.Commentaires, ecarts);
      prises.set(Ordinal(&L::Commentaires));
    }
    ++(prises.none() ? bilan_.gardes : remplace ? bilan_.remplaces : bilan_.completes);
    if (prises.any()) {
      ModifierLigne(base_, fondue, prises);
      Dire(bilan_.changes, fondue.NomVelmira);
    }
    NoterAdresseImportee(fondue);
    if (!tue_) connus_.NoterAdresses(fondue);
  }

  void DireEcarts(const L &presente, const PersonneImportee &personne, const Choix &laissees) {
    for (const ChampEnConflit &champ :
         ChampsEnConflit(laissees, personne.fiche, presente, LibellesFiche()))
      Dire(bilan_.ecarts, u"%1, %2 : « %3 » gardé, « %4 » dans le fichier"_s.arg(
                              presente.NomVelmira, champ.nom, champ.sienne.simplified(),
                              champ.mienne.simplified()));
  }

  void Ajouter(const PersonneImportee &personne) {
    L fiche = personne.fiche;
    fiche.DataProt = connus_.Marque(fiche);
    fiche.AlerteActive = fiche.AlerteActive && (ancienne_ || EstDesAlertes(fiche.NomVelmira));
    Situer(fiche, personne, true);
    if (const auto autre = connus_.MemeAdresse(fiche))
      Dire(bilan_.memeAdresse, TexteMemeAdresse(fiche, *autre));
    DireNotes(personne, personne.auxNotes);
    connus_.Ajouter(fiche, AjouterLigne(base_, fiche));
    NoterAdresseImportee(fiche);
    Dire(bilan_.venus, fiche.NomVelmira);
    ++bilan_.ajoutes;
    if (tue_) ++bilan_.caches;
  }

  void DireNotes(const PersonneImportee &personne, const QStringList &notes) {
    for (const QString &note : notes)
      Dire(bilan_.notes, u"%1, %2"_s.arg(personne.fiche.NomVelmira, note.simplified()));
  }

  /// The picture of the person gets its file, where the record takes it.
  void Situer(L &fiche, const PersonneImportee &personne, bool prise) {
    if (!prise || !personne.photo) return;
    const QString &la = personne.fiche.Photo;
    const bool encore = !la.isEmpty() && photos_.Lire(la) == personne.photo->octets;
    fiche.Photo = encore ? la : photos_.Ecrire(fiche.NomVelmira, *personne.photo);
  }

  Base &base_;
  const DemandeReprise &demande_;
  PhotosReprises photos_;
  Reconnaissance connus_;
  BilanReprise bilan_;
  std::optional<QSet<QString>> alertes_;       ///< who is among them, in capitals
  bool ancienne_ = false, desDebuts_ = false;  ///< the file at work
  bool tue_ = false;                           ///< the person at work is not told of
};

}  // namespace

void BilanReprise::Chapitre::Ajouter(const QString &ligne) {
  if (lignes.size() < kLignes)
    lignes.append(ligne);
  else
    ++tus;
}

QString TexteRefus(const PersonneImportee &personne) {
  const Origine &origine = personne.origine;
  QString place = u"%1, fiche %2"_s.arg(QFileInfo(origine.fichier).fileName()).arg(origine.rang);
  if (origine.ligne > 0) place += u" (ligne %1)"_s.arg(origine.ligne);
  const QString &nom = personne.fiche.NomVelmira;
  if (!nom.isEmpty()) place += u", « %1 »"_s.arg(nom);
  return u"%1 : %2"_s.arg(place, personne.refus);
}

QString TexteMemeAdresse(const Correspondant &fiche, const std::pair<QString, QString> &autre) {
  return u"%1 et %2 : %3"_s.arg(fiche.NomVelmira, autre.first, autre.second);
}

BilanReprise ReprendrePersonnes(Base &base, const QList<FichierRepris> &fichiers,
                                const UsagesReprise &usages, const DemandeReprise &demande,
                                const Avance &avance) {
  Transaction transaction(base);
  Repreneur repreneur(base, demande);
  const Parcours parcours{
      .avant = [&](const FichierRepris &fichier) { repreneur.Commencer(fichier); },
      .chacune = [&](PersonneImportee &&personne) { repreneur.Integrer(personne); },
      .apres = [&](const FichierRepris &fichier) { repreneur.Finir(fichier); }};
  if (!Parcourir(fichiers, usages, parcours, avance)) {
    BilanReprise arret;
    arret.arrete = true;
    return arret;
  }
  repreneur.NommerPhotos();
  transaction.Valider();
  repreneur.GarderPhotos();
  return repreneur.Bilan();
}
