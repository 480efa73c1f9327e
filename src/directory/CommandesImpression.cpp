#include "directory/CommandesImpression.h"

#include "directory/ChoixEtendue.h"
#include "directory/FrmImprime.h"
#include "directory/ImpressionListe.h"
#include "platform/Erreurs.h"
#include "storage/Tables.h"
#include "ui/CompteRendu.h"
#include "ui/Travail.h"

#include <QDir>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// The records of the list, in its order.
QList<Cle> Cles(const ModeleListe &modele) {
  const QModelIndex racine = modele.Racine();
  QList<Cle> cles;
  for (int i = 0; i < modele.rowCount(racine); ++i) cles.append(Index(modele.index(i, 0, racine)));
  return cles;
}

QString TexteListeChangee() {
  return u"Un correspondant de la liste n'existe plus : un autre utilisateur l'a supprimé "
         "entre-temps.\nRien n'a été imprimé. La liste est mise à jour d'elle-même : recommencez "
         "dans un instant."_s;
}

/// Reads with a connection of its own.
LectureListe Lecture(const QString &chemin, const QList<Cle> &cles, const Avance &avance) {
  const auto base = std::make_shared<Base>();
  base->Ouvrir(chemin);
  return [base, cles, avance](qsizetype rang) -> std::optional<Correspondant> {
    if (!avance(rang, cles.size())) return std::nullopt;
    auto fiche = TableAdresse(*base).Lire(cles[rang]);
    if (!fiche) throw ErreurBase(TexteListeChangee());
    return fiche;
  };
}

QString TexteAbandon() {
  return u"L'imprimante n'a pas répondu ; ce qu'elle avait déjà reçu peut encore sortir."_s;
}

}  // namespace

void CommandesImpression::Imprimer() {
  Boites &boites = session_.plateforme.boites;
  if (liste_.Arbre().Modele().NombreEnfants() == 0) {
    boites.Information(u"Aucune entrée à imprimer ."_s);
    return;
  }
  ChoisirEtendue(boites, liste_, Boites::Titre(), u"imprimer"_s);

  FrmImprime dialogue(&liste_.Arbre());
  if (dialogue.exec() != QDialog::Accepted) return;
  if (boites.Question(Boites::Titre(), u"Voulez-vous lancer l'impression ?"_s) ==
      Boites::Reponse::Oui)
    Imprimer(dialogue.Choix());
}

void CommandesImpression::Imprimer(const ChoixListe &choix) {
  ListeImprimee liste;
  try {
    const QList<Cle> cles = Cles(liste_.Arbre().Modele());
    const CadreListe cadre{.NomPerso = session_.reglages.rtcolor.NomPerso,
                           .nombre = cles.size(),
                           .instant = session_.plateforme.horloge.Maintenant()};
    const auto faite =
        Travail(fenetre_, u"Impression de la liste"_s)
            .ExecuterOuLaisser(session_.plateforme.abandons,
                               [&imprimante = session_.plateforme.imprimante,
                                imprimantes = Imprimantes(session_.dossiers.AppPath),
                                chemin = session_.base.Chemin(), cadre, choix,
                                cles](const Avance &avance, const std::stop_token &arret) {
                                 return ImprimerListe(imprimante, imprimantes, cadre, choix,
                                                      Lecture(chemin, cles, avance), arret);
                               });
    liste = faite.value_or(ListeImprimee{{.raison = TexteAbandon()}});
  } catch (const Erreur &erreur) {
    liste.fin.raison = erreur.Texte();  // told like every other end of the printing
  }
  Boites &boites = session_.plateforme.boites;
  const FinImpression &fin = liste.fin;
  switch (fin.issue) {
    case FinImpression::Issue::Imprimee:
      fait_.Dire(u"Liste imprimée : %1 page(s) sur « %2 »"_s.arg(liste.pages).arg(liste.appareil));
      break;
    case FinImpression::Issue::Enregistree:
      fait_.Dire(u"Liste enregistrée : %1 page(s)"_s.arg(liste.pages),
                 {u"Ouvrir la liste"_s, fin.fichier});
      boites.Information(u"Liste enregistrée dans "_s + QDir::toNativeSeparators(fin.fichier));
      break;
    case FinImpression::Issue::Echouee:
    case FinImpression::Issue::Incertaine:
      boites.Information(fin.raison.isEmpty() ? u"Impression annulée"_s
                                              : u"Impression annulée\n\n"_s + fin.raison);
      break;
  }
}
