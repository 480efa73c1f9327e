#include "envelope/BilanTirage.h"

using namespace Qt::StringLiterals;

namespace {

using Issue = FinEnvoi::Issue;

QString Constat(const EtatTirage &etat) {
  const qsizetype voulues = etat.destinataires.size() + etat.disparus.size();
  const QString faites = etat.faites == 0   ? u"Aucune enveloppe imprimée"_s
                         : etat.faites == 1 ? u"1 enveloppe imprimée"_s
                                            : u"%1 enveloppes imprimées"_s.arg(etat.faites);
  return etat.faites == voulues ? faites : faites + u" sur %1"_s.arg(voulues);
}

/// Of what the printer was given last.
QString SortDeLaRemise(const EtatTirage &etat, Issue issue) {
  if (etat.incertaine) return u"peut-être imprimée"_s;
  return issue == Issue::Refusee && !etat.EstUnDocument() ? u"refusée"_s : u"à imprimer"_s;
}

void Ajouter(QList<BilanTirage::Ligne> &lignes, const QStringList &noms, const QString &sort) {
  for (const QString &nom : noms) lignes.append({nom, sort});
}

BilanTirage DresserDepuis(const EtatTirage &etat, Issue issue) {
  BilanTirage bilan{Constat(etat) + u'.', {}, {}, etat.Restantes()};
  for (qsizetype i = etat.faites; i < etat.destinataires.size(); ++i) {
    const Destinataire &d = etat.destinataires[i];
    const bool remise = i == etat.faites || (etat.EstUnDocument() && etat.incertaine);
    const QString sort = remise ? SortDeLaRemise(etat, issue) : u"à imprimer"_s;
    bilan.lignes.append({d.nom, d.modifiee ? sort + u", adresse modifiée depuis"_s : sort});
  }
  Ajouter(bilan.lignes, etat.disparus, u"supprimé ou protégé depuis"_s);
  Ajouter(bilan.lignes, etat.sansAdresse, u"sans adresse"_s);
  if (bilan.lignes.isEmpty()) return bilan;
  for (const Destinataire &d : etat.destinataires.mid(0, etat.faites))
    bilan.lignes.append({d.nom, u"imprimée"_s});
  return bilan;
}

QString TexteIncertain(const EtatTirage &etat) {
  if (!etat.incertaine) return {};
  return etat.EstUnDocument()
             ? u" Regardez si elle les a imprimées : elles seront imprimées de nouveau."_s
             : u" Regardez si elle a imprimé la première de la liste : elle sera "
               "imprimée de nouveau."_s;
}

QString Explication(const EtatTirage &etat, const FinEnvoi &fin) {
  switch (fin.issue) {
    case Issue::Faite:
      return {};
    case Issue::Arretee:
      return u"Vous avez arrêté l'impression."_s;
    case Issue::Incertaine:
      return u"L'imprimante « %1 » n'a pas répondu."_s.arg(etat.appareil) + TexteIncertain(etat);
    case Issue::Refusee:
      break;
  }
  return fin.impression.raison.isEmpty()
             ? u"L'imprimante « %1 » n'a pas imprimé la suite."_s.arg(etat.appareil)
             : fin.impression.raison;
}

}  // namespace

QString CombienDEnveloppes(qsizetype nombre) {
  return nombre == 1 ? u"1 enveloppe"_s : u"%1 enveloppes"_s.arg(nombre);
}

BilanTirage Dresser(const EtatTirage &etat, const FinEnvoi &fin) {
  BilanTirage bilan = DresserDepuis(etat, fin.issue);
  bilan.explication = Explication(etat, fin);
  return bilan;
}

BilanTirage DresserReste(const EtatTirage &etat) {
  BilanTirage bilan = DresserDepuis(etat, Issue::Arretee);
  bilan.constat = u"L'impression « %1 » du %2 n'est pas terminée. "_s.arg(
                      etat.titre, etat.debut.toString(u"dd/MM/yyyy à HH:mm"_s)) +
                  bilan.constat;
  if (etat.incertaine)
    bilan.explication =
        u"L'imprimante « %1 » n'avait pas répondu."_s.arg(etat.appareil) + TexteIncertain(etat);
  return bilan;
}
