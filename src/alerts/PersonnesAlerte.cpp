#include "alerts/PersonnesAlerte.h"

#include "platform/Saisie.h"
#include "storage/Noms.h"
#include "storage/Tables.h"

using namespace Qt::StringLiterals;

namespace {

const QString kTitre = u"Alertes"_s;
const QString kForme = u"JJ/MM/AAAA"_s;

}  // namespace

bool PersonnesAlerte::ProposerImport() {
  TablesAlertes tables(base_);
  if (!tables.ImportPossible()) return false;
  const auto reponse = boites_.Question(
      Boites::Titre(),
      u"Voulez-vous rapatrier la liste de vos velmiras dans la liste des velmiras/alertes pour ce "
      "module (conseillé) ?\n"
      "Cela ne sera plus possible dès lors que la liste contiendra au moins une entrée."_s);
  if (reponse != Boites::Reponse::Oui) return false;
  tables.Importer();
  return true;
}

bool PersonnesAlerte::Ajouter() {
  const QString nom = boites_.Saisie(kTitre, u"Nom du velmira pour alerte :"_s, u""_s);
  if (nom.trimmed().isEmpty()) return false;
  const QString ddn = DemanderDDN(u"Date de naissance (facultatif) :"_s, kForme);
  TablesAlertes(base_).AjouterPersonne(EnCapitales(nom), ddn);
  return true;
}

bool PersonnesAlerte::Modifier(Cle personne) {
  TablesAlertes tables(base_);
  auto fiche = tables.LirePersonne(personne);
  if (!fiche) {
    boites_.Information(TexteDisparu());
    return true;
  }
  const QString nom = boites_.Saisie(kTitre, u"Modifier le nom du velmira ?"_s, fiche->Nom);
  if (nom.trimmed().isEmpty()) return false;
  fiche->Nom = EnCapitales(nom);
  fiche->DDN = DemanderDDN(u"Renseigner la date de naissance (facultatif) :"_s,
                           fiche->DDN.isEmpty() ? kForme : fiche->DDN);
  tables.ModifierPersonne(*fiche);
  return true;
}

QString PersonnesAlerte::DemanderDDN(const QString &invite, const QString &defaut) {
  const QString rappel = u"\n\n"_s + QString(19, u'_') + u"\n\n"_s + kForme;
  for (;;) {
    const QString reponse = boites_.Saisie(kTitre, invite, defaut);
    if (reponse.isEmpty()) return u""_s;
    const QDate date = DateSaisie(reponse);
    if (reponse.size() == kForme.size() && date.isValid()) return date.toString(u"dd/MM/yyyy"_s);
    boites_.Message(
        Boites::Genre::Attention, kTitre,
        (reponse.size() == kForme.size() ? u"Le texte ne correspond pas à un format de date !"_s
                                         : u"Mauvais format de date !"_s) +
            rappel);
  }
}
