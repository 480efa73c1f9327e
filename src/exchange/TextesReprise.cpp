#include "exchange/TextesReprise.h"

#include "platform/Enumeration.h"
#include "platform/Fichiers.h"

#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Numbers and what they count, those of nothing left out: "2 fiches ajoutées, 1 refusée".
class Enumeration {
 public:
  void Ajouter(qsizetype nombre, const QString &une, const QString &plusieurs) {
    if (nombre > 0) parties_.append(Compter(nombre, une, plusieurs));
  }
  /// The same of persons: the first number says of whom.
  void AjouterPersonnes(qsizetype nombre, const QString &une, const QString &plusieurs) {
    if (parties_.isEmpty())
      Ajouter(nombre, u"correspondant "_s + une, u"correspondants "_s + plusieurs);
    else
      Ajouter(nombre, une, plusieurs);
  }
  /// Some of those that were counted last.
  void Dont(qsizetype nombre, const QString &un, const QString &plusieurs) {
    if (nombre > 0) parties_.append(u"dont "_s + Compter(nombre, un, plusieurs));
  }
  QString Phrase(const QString &aucune) const {
    return parties_.isEmpty() ? aucune : parties_.join(u", "_s) + u'.';
  }

 private:
  QStringList parties_;
};

void Enumerer(QString &texte, const QString &titre, const BilanReprise::Chapitre &chapitre) {
  if (chapitre.lignes.isEmpty()) return;
  if (!texte.isEmpty()) texte += u'\n';
  texte += titre + u'\n';
  for (const QString &ligne : chapitre.lignes) texte += u"  "_s + ligne + u'\n';
  if (chapitre.tus > 0)
    texte += u"  ... et "_s + Compter(chapitre.tus, u"autre"_s, u"autres"_s) + u'\n';
}

qsizetype DejaLa(const EtudeReprise &etude) {
  return etude.rencontres.size() + etude.tues;
}

}  // namespace

QString TexteGenre(GenreFichier genre) {
  switch (genre) {
    case GenreFichier::Cartes:
      return u"Cartes de visite vCard"_s;
    case GenreFichier::Tableau:
      return u"Tableau CSV"_s;
    default:
      return u"Ancienne base de données"_s;
  }
}

QString PhraseEtude(const EtudeReprise &etude) {
  qsizetype refusees = 0;
  for (const EtudeReprise::DuFichier &fichier : etude.fichiers) refusees += fichier.refusees;
  Enumeration parties;
  const QString dont =
      etude.repetees > 0 ? u" (dont %1 du même nom qu'un autre)"_s.arg(etude.repetees) : u""_s;
  parties.Ajouter(etude.nouvelles, u"nouveau correspondant"_s + dont,
                  u"nouveaux correspondants"_s + dont);
  parties.AjouterPersonnes(DejaLa(etude), u"déjà là à compléter ou à comparer"_s,
                           u"déjà là à compléter ou à comparer"_s);
  parties.AjouterPersonnes(etude.identiques, u"déjà là sans rien de nouveau"_s,
                           u"déjà là sans rien de nouveau"_s);
  parties.Ajouter(refusees, u"fiche refusée"_s, u"fiches refusées"_s);
  return parties.Phrase(u"Aucun correspondant dans ces fichiers."_s);
}

QString PhraseSansNom(const QList<FichierRepris> &fichiers) {
  const auto tableau = std::ranges::find_if(fichiers, &FichierRepris::SansNom);
  if (tableau == fichiers.end()) return {};
  return u" Dans « %1 », aucune colonne ne donne le nom."_s.arg(
      QFileInfo(tableau->chemin).fileName());
}

QString PhraseBilan(const BilanReprise &bilan) {
  Enumeration parties;
  parties.AjouterPersonnes(bilan.ajoutes, u"ajouté"_s, u"ajoutés"_s);
  parties.Dont(bilan.caches, u"protégé par un autre utilisateur et caché pour vous"_s,
               u"protégés par un autre utilisateur et cachés pour vous"_s);
  parties.AjouterPersonnes(bilan.completes, u"complété"_s, u"complétés"_s);
  parties.AjouterPersonnes(bilan.remplaces, u"modifié d'après le fichier"_s,
                           u"modifiés d'après le fichier"_s);
  parties.AjouterPersonnes(bilan.identiques, u"déjà là sans rien de nouveau"_s,
                           u"déjà là sans rien de nouveau"_s);
  parties.AjouterPersonnes(bilan.gardes, u"déjà là et gardé sans changement"_s,
                           u"déjà là et gardés sans changement"_s);
  parties.Ajouter(bilan.refuses, u"fiche refusée"_s, u"fiches refusées"_s);
  const Reunion &tables = bilan.tables;
  parties.Ajouter(tables.villes, u"ville ajoutée"_s, u"villes ajoutées"_s);
  parties.Ajouter(tables.expediteurs, u"expéditeur ajouté"_s, u"expéditeurs ajoutés"_s);
  parties.Ajouter(tables.types, u"type d'évènement ajouté"_s, u"types d'évènements ajoutés"_s);
  parties.Ajouter(tables.personnes, u"personne ajoutée aux alertes"_s,
                  u"personnes ajoutées aux alertes"_s);
  parties.Ajouter(tables.evenements, u"évènement ajouté"_s, u"évènements ajoutés"_s);
  parties.Ajouter(tables.laisses, u"évènement sans personne ou sans type, laissé"_s,
                  u"évènements sans personne ou sans type, laissés"_s);
  return parties.Phrase(u"Il n'y avait aucun correspondant à reprendre."_s);
}

QString DetailBilan(const BilanReprise &bilan) {
  QString texte;
  Enumerer(texte, u"Refusés :"_s, bilan.refus);
  Enumerer(texte, u"Gardé dans Velmira, autrement dans le fichier :"_s, bilan.ecarts);
  Enumerer(texte, u"Mis dans les notes :"_s, bilan.notes);
  Enumerer(texte, u"Même adresse email ou même numéro sous deux noms, à regarder :"_s,
           bilan.memeAdresse);
  Enumerer(texte, u"Complétés ou modifiés :"_s, bilan.changes);
  Enumerer(texte, u"Ajoutés :"_s, bilan.venus);
  return texte;
}

QString TexteBilan(const BilanReprise &bilan) {
  const QString detail = DetailBilan(bilan);
  return PhraseBilan(bilan) + u'\n' + (detail.isEmpty() ? detail : u'\n' + detail);
}

QString NomReprise(const BilanReprise &bilan) {
  return u"reprise de "_s +
         Compter(bilan.ajoutes + bilan.completes + bilan.remplaces, u"fiche"_s, u"fiches"_s);
}

void EcrireCompteRendu(const QString &chemin, const BilanReprise &bilan) {
  RemplacerFichier(chemin, TexteBilan(bilan).toUtf8());
}

QString TexteDeja(Deja deja) {
  switch (deja) {
    case Deja::Completer:
      return u"Remplir ce qui est vide, noter ce qui diffère"_s;
    case Deja::Garder:
      return u"Garder la fiche de Velmira telle quelle"_s;
    case Deja::Prendre:
      return u"Prendre tout ce que dit le fichier"_s;
    case Deja::Deux:
      break;
  }
  return u"Garder les deux, chacun sa fiche"_s;
}

QString TexteReponse(const ReponseReprise &reponse) {
  if (reponse.prises) return u"champ par champ"_s;
  switch (reponse.deja) {
    case Deja::Completer:
      return u"remplir, noter"_s;
    case Deja::Garder:
      return u"garder"_s;
    case Deja::Prendre:
      return u"prendre"_s;
    case Deja::Deux:
      break;
  }
  return u"les deux"_s;
}
