#include "exchange/TextesReprise.h"

#include "platform/Fichiers.h"

#include <QStringList>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Numbers and what they count, those of nothing left out: "2 fiches ajoutées, 1 refusée".
class Enumeration {
 public:
  void Ajouter(qsizetype nombre, const QString &une, const QString &plusieurs) {
    if (nombre > 0) parties_.append(u"%1 %2"_s.arg(nombre).arg(nombre > 1 ? plusieurs : une));
  }
  QString Phrase(const QString &aucune) const {
    return parties_.isEmpty() ? aucune : parties_.join(u", "_s) + u'.';
  }

 private:
  QStringList parties_;
};

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
  parties.Ajouter(DejaLa(etude), u"déjà là, à compléter ou à comparer"_s,
                  u"déjà là, à compléter ou à comparer"_s);
  parties.Ajouter(etude.identiques, u"déjà là, sans rien de nouveau"_s,
                  u"déjà là, sans rien de nouveau"_s);
  parties.Ajouter(refusees, u"fiche refusée"_s, u"fiches refusées"_s);
  return parties.Phrase(u"Aucun correspondant dans ces fichiers."_s);
}

QString PhraseBilan(const BilanReprise &bilan) {
  Enumeration parties;
  parties.Ajouter(bilan.ajoutes, u"correspondant ajouté"_s, u"correspondants ajoutés"_s);
  parties.Ajouter(bilan.completes, u"complété"_s, u"complétés"_s);
  parties.Ajouter(bilan.remplaces, u"modifié d'après le fichier"_s,
                  u"modifiés d'après le fichier"_s);
  const qsizetype intacts = bilan.identiques + bilan.gardes;
  parties.Ajouter(intacts, u"déjà là et resté tel quel"_s, u"déjà là et restés tels quels"_s);
  parties.Ajouter(bilan.refuses, u"fiche refusée"_s, u"fiches refusées"_s);
  const Reunion &tables = bilan.tables;
  parties.Ajouter(tables.villes, u"ville ajoutée"_s, u"villes ajoutées"_s);
  parties.Ajouter(tables.expediteurs, u"expéditeur ajouté"_s, u"expéditeurs ajoutés"_s);
  parties.Ajouter(tables.evenements, u"évènement ajouté"_s, u"évènements ajoutés"_s);
  return parties.Phrase(u"Il n'y avait aucun correspondant à reprendre."_s);
}

void EcrireCompteRendu(const QString &chemin, const BilanReprise &bilan) {
  RemplacerFichier(chemin, (PhraseBilan(bilan) + u"\n\n"_s + TexteBilan(bilan)).toUtf8());
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
