#include "exchange/EtudeReprise.h"

#include "directory/FichierPhoto.h"
#include "exchange/Reconnaissance.h"
#include "storage/Noms.h"

#include <QSet>

#include <utility>

namespace {

class Examen {
 public:
  Examen(Base &base, const QString &utilisateur) : connus_(base, utilisateur, LirePhoto) {}

  void Commencer(const FichierRepris &fichier) {
    connus_.Commencer(fichier);
    etude_.fichiers.append(EtudeReprise::DuFichier{});
    montrees_ = 0;
  }

  void Regarder(PersonneImportee &&personne) {
    EtudeReprise::DuFichier &compte = etude_.fichiers.last();
    ++compte.fiches;
    if (!personne.refus.isEmpty()) {
      ++compte.refusees;
      etude_.refus.Ajouter(TexteRefus(personne));
      return;
    }
    const bool cachee = connus_.EstCachee(personne.fiche);
    if (!cachee && montrees_ < EtudeReprise::kPremieres) {
      ++montrees_;
      etude_.premieres.append(personne);
      if (personne.photo) images_ += personne.photo->octets.size();
      if (images_ > EtudeReprise::kImages) etude_.premieres.last().photo.reset();
    }
    const auto trouvee = connus_.Chercher(personne, Deja::Completer);
    if (!trouvee) {
      Annoncer(personne.fiche, cachee);
    } else if (trouvee->lien == Reconnue::Lien::Pareille) {
      ++etude_.identiques;
    } else {
      if (trouvee->lien == Reconnue::Lien::Libre) connus_.Prendre(trouvee->presente.Index);
      if (!cachee) Rencontrer(*trouvee, std::move(personne));
    }
  }

  const EtudeReprise &Etude() const { return etude_; }

 private:
  void Annoncer(const Correspondant &fiche, bool cachee) {
    ++etude_.nouvelles;
    const QString nom = EnCapitales(fiche.NomVelmira);
    if (annonces_.contains(nom)) ++etude_.repetees;
    annonces_.insert(nom);
    if (cachee) return;
    if (const auto autre = connus_.MemeAdresse(fiche))
      etude_.memeAdresse.Ajouter(TexteMemeAdresse(fiche, *autre));
    connus_.NoterAdresses(fiche);
  }

  void Rencontrer(const Reconnue &trouvee, PersonneImportee &&personne) {
    if (etude_.rencontres.size() == EtudeReprise::kRencontres) {
      ++etude_.tues;
      return;
    }
    if (personne.photo) personne.photo->octets.clear();
    etude_.rencontres.append(Rencontre{trouvee.presente, std::move(personne), trouvee.faite});
  }

  Reconnaissance connus_;
  EtudeReprise etude_;
  QSet<QString> annonces_;
  qsizetype montrees_ = 0;  ///< of the file
  qsizetype images_ = 0;    ///< their bytes
};

}  // namespace

EtudeReprise EtudierReprise(Base &base, const QList<FichierRepris> &fichiers,
                            const UsagesReprise &usages, const QString &utilisateur,
                            const Avance &avance) {
  Examen examen(base, utilisateur);
  const Parcours parcours{
      .avant = [&](const FichierRepris &fichier) { examen.Commencer(fichier); },
      .chacune = [&](PersonneImportee &&personne) { examen.Regarder(std::move(personne)); },
      .apres = [](const FichierRepris &) {}};
  if (Parcourir(fichiers, usages, parcours, avance)) return examen.Etude();
  EtudeReprise arret;
  arret.arretee = true;
  return arret;
}
