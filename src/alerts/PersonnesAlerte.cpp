#include "alerts/PersonnesAlerte.h"

#include "platform/Saisie.h"
#include "storage/Historique.h"
#include "storage/Noms.h"
#include "storage/Tables.h"
#include "ui/Accord.h"

using namespace Qt::StringLiterals;

namespace {

const QString kTitre = u"Alertes"_s;
const QString kForme = u"JJ/MM/AAAA"_s;

const Libelles<PersonneAlerte> kLibelles{{Ordinal(&PersonneAlerte::Nom), {u"Nom du velmira"_s}},
                                         {Ordinal(&PersonneAlerte::DDN), {u"Date de naissance"_s}}};

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
  const Acte acte(base_, u"reprise des velmiras dans les alertes"_s);
  tables.Importer();
  return true;
}

bool PersonnesAlerte::Ajouter() {
  const QString nom =
      boites_.Saisie(kTitre, u"Nom du velmira pour alerte :"_s, u""_s).value_or(u""_s);
  if (nom.trimmed().isEmpty()) return false;
  const QString ddn = DemanderDDN(u"Date de naissance (facultatif) :"_s, kForme).value_or(u""_s);
  const Acte acte(base_, u"ajout de « %1 » aux alertes"_s.arg(EnCapitales(nom)));
  TablesAlertes(base_).AjouterPersonne(EnCapitales(nom), ddn);
  return true;
}

bool PersonnesAlerte::Modifier(Cle personne) {
  TablesAlertes tables(base_);
  const auto lue = tables.LirePersonne(personne);
  if (!lue) {
    boites_.Information(TexteDisparu());
    return true;
  }
  QString nom = lue->Nom, ddn = lue->DDN;
  bool questions = false;
  const Acte acte(base_, u"modification de « %1 » dans les alertes"_s.arg(lue->Nom));
  const auto ecrire = [&](const PersonneAlerte &montree, const PersonneAlerte &saisie) {
    auto stockee = tables.ModifierPersonne(montree, saisie);
    questions |= stockee.has_value();
    return stockee;
  };
  for (;;) {
    const QString reponse =
        boites_.Saisie(kTitre, u"Modifier le nom du velmira ?"_s, nom).value_or(u""_s);
    if (reponse.trimmed().isEmpty()) return questions;
    nom = reponse;
    ddn = DemanderDDN(u"Renseigner la date de naissance (facultatif) :"_s,
                      ddn.isEmpty() ? kForme : ddn)
              .value_or(ddn);
    PersonneAlerte saisie = *lue;
    saisie.Nom = EnCapitales(nom);
    saisie.DDN = ddn;
    ChoixColonnes<PersonneAlerte> cedees;  // a name that was confirmed is only written in capitals
    cedees.set(Ordinal(&PersonneAlerte::Nom), nom == lue->Nom);
    if (EcrireEnAccord(boites_, *lue, saisie, kLibelles, ecrire, cedees)) return true;
  }
}

std::optional<QString> PersonnesAlerte::DemanderDDN(const QString &invite, const QString &defaut) {
  const QString rappel = u"\n\n"_s + QString(19, u'_') + u"\n\n"_s + kForme;
  for (;;) {
    const auto reponse = boites_.Saisie(kTitre, invite, defaut);
    if (!reponse || reponse->isEmpty()) return reponse;
    const QDate date = DateSaisie(*reponse);
    const bool complete = reponse->size() == kForme.size();
    if (complete && date.isValid()) return date.toString(u"dd/MM/yyyy"_s);
    boites_.Message(Boites::Genre::Attention, kTitre,
                    (complete ? u"Le texte ne correspond pas à un format de date !"_s
                              : u"Mauvais format de date !"_s) +
                        rappel);
  }
}
