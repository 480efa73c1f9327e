#include "Donnees.h"

#include "exemple/Hasard.h"
#include "exemple/Listes.h"
#include "exemple/Villes.h"
#include "platform/Enregistrement.h"
#include "platform/Fichiers.h"
#include "storage/Schema.h"
#include "storage/Tables.h"

using namespace Qt::StringLiterals;

namespace {

Correspondant Inventer(Hasard &hasard, Cle numero) {
  const auto parmi = [&hasard](const auto &liste) {
    return QString::fromUtf16(hasard.Parmi(liste));
  };
  const auto chiffres = [&hasard](int combien) {
    return QString::number(hasard.Entier(0, 99999999)).rightJustified(8, u'0').left(combien);
  };
  const QString prenom = parmi(kPrenomsFemmes);
  Correspondant fiche;
  fiche.NomVelmira = parmi(kNoms);
  if (hasard.UneFois(2)) fiche.NomVelmira += u'-' + parmi(kNoms);
  fiche.NomVelmira += u' ' + prenom;
  fiche.Ligne1 = u"Mme "_s + fiche.NomVelmira;
  fiche.Ligne2 = parmi(kComplements);
  fiche.Ligne3 = chiffres(2) + u' ';
  fiche.Ligne3 += parmi(kVoies);
  fiche.CodePostal = chiffres(5);
  fiche.Ville = QString::fromUtf16(hasard.Parmi(kVilles).nom);
  fiche.Categories = numero % 10 == 0    ? u"*Voisins*"_s + CategorieRare() + u'*'
                     : hasard.UneFois(3) ? u"*Famille*Favoris*"_s
                                         : u"*Clients*"_s;
  fiche.Tel = u"02 61 91 "_s + chiffres(4);
  fiche.Portable = u"06 39 98 "_s + chiffres(4);
  fiche.Mail = prenom + chiffres(4) + u"@courriel.example"_s;
  fiche.Commentaires = parmi(kNotes);
  fiche.DDN = u"14/07/19"_s + chiffres(2);
  // A null mark would hide the record.
  fiche.DataProt = u""_s;
  return fiche;
}

}  // namespace

Donnees::Donnees(Cle nombre) : nombre_(nombre), dossier_(u"donnees-XXXXXX"_s) {
  const QString cheminData = dossier_.filePath(u"DataVelmira"_s);
  CreerDossier(cheminData);
  RedacteurEnregistrement chemin;
  chemin.Ecrire(cheminData);
  RemplacerFichier(dossier_.filePath(u"CheminData.cfg"_s), chemin.Octets());
  // The editor reads the titles.
  const auto titres = LireFichier(QStringLiteral(VELMIRA_DONNEES "/Civilite.txt"));
  RemplacerFichier(dossier_.filePath(u"Civilite.txt"_s), titres.value());
  EcrireBase();
}

void Donnees::EcrireBase() const {
  CreerBaseVide(CheminBase());
  Base base;
  base.Ouvrir(CheminBase());
  Transaction transaction(base);
  Hasard hasard(20260615);
  for (Cle numero = 1; numero <= nombre_; ++numero) AjouterLigne(base, Inventer(hasard, numero));
  transaction.Valider();
}
