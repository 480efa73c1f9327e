#include "exchange/Reprise.h"

#include "directory/FichierPhoto.h"
#include "directory/LibellesFiche.h"
#include "exchange/Confrontation.h"
#include "exchange/Reconnaissance.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "storage/Conflits.h"
#include "storage/Tables.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

using L = Correspondant;
using Choix = ChoixColonnes<L>;

/// The pictures of one run, which go again unless they are kept.
class Photos {
 public:
  explicit Photos(const QString &dossier) : dossier_(dossier) {}
  ~Photos() {
    for (const QString &chemin : ecrites_) Ignorer([&] { EffacerFichier(chemin); });
  }
  Photos(const Photos &) = delete;
  Photos &operator=(const Photos &) = delete;

  void Garder() { ecrites_.clear(); }

  /// The path of the picture's file.
  QString Ecrire(const QString &nom, const PhotoImportee &photo) {
    if (ecrites_.isEmpty()) CreerDossier(dossier_);
    QString debut = DebutNomFichier(nom);
    if (debut.isEmpty()) debut = u"Photo"_s;
    QString chemin;
    int &numero = numeros_[debut];
    do {
      ++numero;
      const QString suite = numero == 1 ? QString() : u' ' + QString::number(numero);
      chemin = u"%1/%2%3.%4"_s.arg(dossier_, debut, suite, photo.genre);
    } while (!CreerFichier(chemin, photo.octets));
    ecrites_.append(chemin);
    return chemin;
  }

 private:
  QString dossier_;
  QStringList ecrites_;
  QHash<QString, int> numeros_;  ///< the last one of each beginning
};

class Repreneur {
 public:
  Repreneur(Base &base, const DemandeReprise &demande)
      : base_(base),
        demande_(demande),
        connus_(base, demande.utilisateur),
        photos_(demande.dossierPhotos) {}

  void Commencer(const FichierRepris &fichier) { connus_.Commencer(fichier); }

  void Integrer(const PersonneImportee &personne) {
    if (!personne.refus.isEmpty()) {
      ++bilan_.refuses;
      bilan_.refus.Ajouter(TexteRefus(personne));
      return;
    }
    tue_ = connus_.EstCachee(personne.fiche);
    const ReponseReprise reponse = Reponse(personne.origine);
    const auto trouvee = connus_.Chercher(personne, reponse.deja == Deja::Completer);
    if (trouvee && trouvee->lien == Reconnue::Lien::Pareille)
      ++bilan_.identiques;
    else if (!trouvee || (reponse.deja == Deja::Deux && !reponse.prises))
      Ajouter(personne);
    else
      Unir(*trouvee, personne, reponse);
  }

  void Garder() { photos_.Garder(); }
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

  void Unir(const Reconnue &trouvee, const PersonneImportee &personne,
            const ReponseReprise &reponse) {
    const auto &[lien, presente, faite] = trouvee;
    if (lien == Reconnue::Lien::Libre) connus_.Prendre(presente.Index);
    const Choix prises = Prises(trouvee, reponse);
    L fondue = Fondre(presente, personne, prises);
    Situer(fondue, personne, prises[Ordinal(&L::Photo)]);
    const bool remplace = (prises & faite.ecarts).any();
    ++(prises.none() ? bilan_.gardes : remplace ? bilan_.remplaces : bilan_.completes);
    for (const ChampEnConflit &champ : ChampsEnConflit((faite.manques | faite.ecarts) & ~prises,
                                                       personne.fiche, presente, LibellesFiche()))
      Dire(bilan_.ecarts, u"%1, %2 : « %3 » gardé, « %4 » dans le fichier"_s.arg(
                              presente.NomVelmira, champ.nom, champ.sienne.simplified(),
                              champ.mienne.simplified()));
    if (prises.none()) return;
    if (prises[Ordinal(&L::Commentaires)])
      DireNotes(personne, NotesNouvelles(presente.Commentaires, personne));
    ModifierLigne(base_, fondue, prises);
    if (!tue_) connus_.NoterAdresses(fondue);
  }

  void Ajouter(const PersonneImportee &personne) {
    L fiche = personne.fiche;
    fiche.DataProt = connus_.Marque(fiche);
    Situer(fiche, personne, true);
    if (const auto autre = connus_.MemeAdresse(fiche))
      Dire(bilan_.memeAdresse, TexteMemeAdresse(fiche, *autre));
    DireNotes(personne, personne.auxNotes);
    connus_.Ajouter(fiche, AjouterLigne(base_, fiche));
    ++bilan_.ajoutes;
  }

  void DireNotes(const PersonneImportee &personne, const QStringList &ecrites) {
    for (const QString &note : personne.auxNotes)
      if (ecrites.contains(note))
        Dire(bilan_.notes, u"%1, %2"_s.arg(personne.fiche.NomVelmira, note.simplified()));
  }

  /// The picture of the person gets its file, where the record takes it.
  void Situer(L &fiche, const PersonneImportee &personne, bool prise) {
    if (!prise || !personne.photo) return;
    const QString &la = personne.fiche.Photo;
    const bool encore = !la.isEmpty() && LirePhoto(la) == personne.photo->octets;
    fiche.Photo = encore ? la : photos_.Ecrire(fiche.NomVelmira, *personne.photo);
  }

  Base &base_;
  const DemandeReprise &demande_;
  Reconnaissance connus_;
  Photos photos_;
  BilanReprise bilan_;
  bool tue_ = false;  ///< the person at work is not told of
};

void Enumerer(QString &texte, const QString &titre, const BilanReprise::Chapitre &chapitre) {
  if (chapitre.lignes.isEmpty()) return;
  texte += u"\n%1\n"_s.arg(titre);
  for (const QString &ligne : chapitre.lignes) texte += u"  "_s + ligne + u'\n';
  if (chapitre.tus > 0) texte += u"  ... et %1 autre(s)\n"_s.arg(chapitre.tus);
}

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
      .apres = [](const FichierRepris &) {}};
  if (!Parcourir(fichiers, usages, parcours, avance)) {
    BilanReprise arret;
    arret.arrete = true;
    return arret;
  }
  transaction.Valider();
  repreneur.Garder();
  return repreneur.Bilan();
}

QString TexteBilan(const BilanReprise &bilan) {
  if (bilan.arrete) return u"Arrêté : rien n'a changé dans l'annuaire.\n"_s;
  QString texte;
  const auto compter = [&texte](qsizetype nombre, const QString &quoi) {
    if (nombre > 0) texte += u"%1 %2\n"_s.arg(nombre).arg(quoi);
  };
  compter(bilan.ajoutes, u"ajouté(s)"_s);
  compter(bilan.completes, u"complété(s)"_s);
  compter(bilan.remplaces, u"modifié(s) d'après le fichier"_s);
  compter(bilan.identiques, u"déjà là, sans rien de nouveau"_s);
  compter(bilan.gardes, u"déjà là, gardé(s) sans changement"_s);
  compter(bilan.refuses, u"refusé(s)"_s);
  if (texte.isEmpty()) texte = u"Aucun correspondant dans ces fichiers.\n"_s;
  Enumerer(texte, u"Refusés :"_s, bilan.refus);
  Enumerer(texte, u"Gardé de l'annuaire, autrement dans le fichier :"_s, bilan.ecarts);
  Enumerer(texte, u"Mis dans les notes, faute de champ :"_s, bilan.notes);
  Enumerer(texte, u"Même adresse ou même numéro sous deux noms, à regarder :"_s, bilan.memeAdresse);
  return texte;
}
