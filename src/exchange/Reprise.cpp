#include "exchange/Reprise.h"

#include "directory/FichierPhoto.h"
#include "directory/LibellesFiche.h"
#include "directory/Protection.h"
#include "exchange/GenreFichier.h"
#include "exchange/LecteurCartes.h"
#include "exchange/LecteurCsv.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "platform/Saisie.h"
#include "storage/Conflits.h"
#include "storage/ExtraitAdresse.h"
#include "storage/Noms.h"
#include "storage/Tables.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>

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

/// Who is in the directory, as far as a user may see it.
class Presents {
 public:
  Presents(Base &base, const QString &utilisateur) {
    constexpr std::array kLues{
        Ordinal(&L::Index), Ordinal(&L::NomVelmira), Ordinal(&L::DataProt), Ordinal(&L::Mail),
        Ordinal(&L::Tel),   Ordinal(&L::TelTravail), Ordinal(&L::Portable), Ordinal(&L::Fax)};
    ExtraitAdresse(base, kLues).PourChaque([&](const LigneStockee &ligne) {
      if (!EstVisible(ligne.Texte(2), utilisateur)) return true;
      L fiche;
      fiche.NomVelmira = ligne.Texte(1);
      fiche.Mail = ligne.Texte(3);
      int place = 4;
      for (const auto champ : kNumeros) fiche.*champ = ligne.Texte(place++);
      Noter(fiche, ligne.Texte(0).toLongLong());
      return true;
    });
  }

  void Noter(const L &fiche, Cle cle) {
    noms_[Nom(fiche)].append(cle);
    NoterAdresses(fiche);
  }
  void NoterAdresses(const L &fiche) {
    for (const QString &adresse : Adresses(fiche))
      if (!adresses_.contains(adresse)) adresses_.insert(adresse, fiche.NomVelmira);
  }

  /// In the order of the table.
  QList<Cle> DeCeNom(const L &fiche) const { return noms_.value(Nom(fiche)); }

  /// Somebody of another name with the same mail or number, and which; nothing for none.
  std::optional<std::pair<QString, QString>> MemeAdresse(const L &fiche) const {
    for (const auto champ : kAdresses) {
      const auto autre = adresses_.constFind(Nue(fiche, champ));
      if (autre != adresses_.cend() && Nom(*autre) != Nom(fiche.NomVelmira))
        return std::pair(*autre, fiche.*champ);
    }
    return std::nullopt;
  }

 private:
  static constexpr std::array kAdresses{&L::Mail, &L::Tel, &L::TelTravail, &L::Portable, &L::Fax};

  static QString Nom(const QString &nom) { return EnCapitales(SansBlancs(nom)); }
  static QString Nom(const L &fiche) { return Nom(fiche.NomVelmira); }

  /// Short ones are those of services, which many have.
  static QString Nue(const L &fiche, QString L::*champ) {
    constexpr qsizetype kPlusCourt = 6;
    const QString nue = champ == &L::Mail ? SansEcriture(fiche.*champ) : NumeroNu(fiche.*champ);
    return nue.size() < kPlusCourt ? QString() : nue;
  }
  static QStringList Adresses(const L &fiche) {
    QStringList adresses;
    for (const auto champ : kAdresses) adresses.append(Nue(fiche, champ));
    adresses.removeAll(QString());
    return adresses;
  }

  QHash<QString, QList<Cle>> noms_;
  QHash<QString, QString> adresses_;  ///< the name of the first who has it
};

class Repreneur {
 public:
  Repreneur(Base &base, const DemandeReprise &demande)
      : base_(base),
        demande_(demande),
        presents_(base, demande.utilisateur),
        photos_(demande.dossierPhotos) {}

  void Integrer(PersonneImportee &&personne) {
    if (!personne.refus.isEmpty()) {
      ++bilan_.refuses;
      bilan_.refus.Ajouter(u"%1 : %2"_s.arg(Place(personne), personne.refus));
      return;
    }
    if (!Retrouver(personne)) Ajouter(personne);
  }

  /// Who was of the former file is one who was there already.
  void FichierSuivant() { roles_.clear(); }

  void Garder() { photos_.Garder(); }
  const BilanReprise &Bilan() const { return bilan_; }

 private:
  static QString Place(const PersonneImportee &personne) {
    const Origine &origine = personne.origine;
    QString place = u"%1, fiche %2"_s.arg(QFileInfo(origine.fichier).fileName()).arg(origine.rang);
    if (origine.ligne > 0) place += u" (ligne %1)"_s.arg(origine.ligne);
    const QString &nom = personne.fiche.NomVelmira;
    return nom.isEmpty() ? place : u"%1, « %2 »"_s.arg(place, nom);
  }

  ReponseReprise Reponse(const Origine &origine) const {
    return demande_.reponses.value({origine.fichier, origine.rang}, {demande_.deja});
  }

  /// Whether the directory has had a record for the person.
  bool Retrouver(const PersonneImportee &personne) {
    const auto reponse = Reponse(personne.origine);
    std::optional<std::pair<L, Confrontation>> libre, occupee;
    for (const Cle cle : presents_.DeCeNom(personne.fiche)) {
      const auto presente = TableAdresse(base_).Lire(cle);
      if (!presente) continue;
      const Confrontation faite = Confronter(*presente, personne);
      const auto role = roles_.constFind(cle);
      if (faite.Pareils()) {
        if (role == roles_.cend()) roles_.insert(cle, Role::Reconnue);
        ++bilan_.identiques;
        return true;
      }
      if (role == roles_.cend()) {
        if (!libre) libre.emplace(*presente, faite);
      } else if (!occupee && faite.ecarts.none() &&
                 (*role == Role::Ajoutee || reponse.deja == Deja::Completer)) {
        occupee.emplace(*presente, faite);
      }
    }
    if (reponse.deja == Deja::Deux && !reponse.prises) return false;
    if (libre) {
      roles_.insert(libre->first.Index, Role::Reconnue);
      Unir(libre->first, personne, libre->second, reponse);
    } else if (occupee) {
      Unir(occupee->first, personne, occupee->second, {});
    }
    return libre || occupee;
  }

  void Unir(const L &presente, const PersonneImportee &personne, const Confrontation &faite,
            const ReponseReprise &reponse) {
    const Choix tout = faite.manques | faite.ecarts;
    Choix prises;
    if (reponse.prises)
      prises = *reponse.prises & tout;
    else if (reponse.deja != Deja::Garder)
      prises = reponse.deja == Deja::Prendre ? tout : faite.manques;
    L fondue = Fondre(presente, personne, prises);
    Situer(fondue, personne, prises[Ordinal(&L::Photo)]);
    const Choix laisses = tout & ~prises;
    const bool remplace = (prises & faite.ecarts).any();
    ++(prises.none() ? bilan_.gardes : remplace ? bilan_.remplaces : bilan_.completes);
    for (const ChampEnConflit &champ :
         ChampsEnConflit(laisses, personne.fiche, presente, LibellesFiche()))
      bilan_.ecarts.Ajouter(u"%1, %2 : « %3 » gardé, « %4 » dans le fichier"_s.arg(
          presente.NomVelmira, champ.nom, champ.sienne.simplified(), champ.mienne.simplified()));
    if (prises.none()) return;
    if (prises[Ordinal(&L::Commentaires)])
      DireNotes(personne, NotesNouvelles(presente.Commentaires, personne));
    ModifierLigne(base_, fondue, prises);
    presents_.NoterAdresses(fondue);
  }

  void Ajouter(const PersonneImportee &personne) {
    L fiche = personne.fiche;
    Situer(fiche, personne, true);
    if (const auto autre = presents_.MemeAdresse(fiche))
      bilan_.memeAdresse.Ajouter(
          u"%1 et %2 : %3"_s.arg(fiche.NomVelmira, autre->first, autre->second));
    DireNotes(personne, personne.auxNotes);
    const Cle cle = AjouterLigne(base_, fiche);
    presents_.Noter(fiche, cle);
    roles_.insert(cle, Role::Ajoutee);
    ++bilan_.ajoutes;
  }

  void DireNotes(const PersonneImportee &personne, const QStringList &ecrites) {
    for (const QString &note : personne.auxNotes)
      if (ecrites.contains(note))
        bilan_.notes.Ajouter(u"%1, %2"_s.arg(personne.fiche.NomVelmira, note.simplified()));
  }

  /// The picture of the person gets its file, where the record takes it.
  void Situer(L &fiche, const PersonneImportee &personne, bool prise) {
    if (!prise || !personne.photo) return;
    const QString &la = personne.fiche.Photo;
    const bool encore = !la.isEmpty() && LirePhoto(la) == personne.photo->octets;
    fiche.Photo = encore ? la : photos_.Ecrire(fiche.NomVelmira, *personne.photo);
  }

  enum class Role { Reconnue, Ajoutee };

  Base &base_;
  const DemandeReprise &demande_;
  Presents presents_;
  Photos photos_;
  QHash<Cle, Role> roles_;  ///< of the records that somebody of this file is
  BilanReprise bilan_;
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

std::unique_ptr<SourcePersonnes> OuvrirPersonnes(const QString &chemin,
                                                 const UsagesReprise &usages) {
  switch (GenreDe(chemin)) {
    case GenreFichier::Cartes:
      return OuvrirCartes(chemin, usages);
    case GenreFichier::Tableau: {
      const FormeCsv forme = AnalyserCsv(chemin);
      return OuvrirCsv(chemin, forme, Proposer(forme), usages);
    }
    case GenreFichier::Inconnu:
      break;
  }
  throw ErreurFichier(TexteInconnu(chemin));
}

BilanReprise ReprendrePersonnes(Base &base, const QList<OuvertureSource> &sources,
                                const DemandeReprise &demande, const Avance &avance) {
  constexpr qsizetype kPas = 100, kParts = 10'000;
  const qsizetype total = sources.size() * kParts;
  BilanReprise arret;
  arret.arrete = true;
  Transaction transaction(base);
  Repreneur repreneur(base, demande);
  qsizetype fait = 0, lues = 0;
  for (const OuvertureSource &ouvrir : sources) {
    const auto source = ouvrir();
    repreneur.FichierSuivant();
    while (auto personne = source->Suivante()) {
      repreneur.Integrer(std::move(*personne));
      const qsizetype taille = std::max<qsizetype>(source->Taille(), 1);
      const auto part = static_cast<double>(source->Lu()) / static_cast<double>(taille) * kParts;
      if (++lues % kPas == 0 && !avance(fait + static_cast<qsizetype>(part), total)) return arret;
    }
    fait += kParts;
    if (!avance(fait, total)) return arret;
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
