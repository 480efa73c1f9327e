#include "envelope/Tirage.h"

#include "envelope/BilanTirage.h"
#include "envelope/CommandesCommentaire.h"
#include "platform/Erreurs.h"
#include "ui/CompteRendu.h"

#include <QDir>
#include <QFileInfo>

#include <atomic>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

QString TexteFait(const FinImpression &fin, const QString &appareil, qsizetype nombre) {
  if (nombre == 0) return u"Aucune enveloppe imprimée"_s;
  const bool une = nombre == 1;
  const QString combien = CombienDEnveloppes(nombre);
  const QString envoi = fin.envoi.isEmpty() ? QString() : u" : "_s + fin.envoi;
  if (fin.issue == FinImpression::Issue::Imprimee)
    return u"%1 %2 sur « %3 »"_s.arg(combien, une ? u"imprimée"_s : u"imprimées"_s, appareil) +
           envoi;
  return u"%1 %2%4 dans %3"_s.arg(combien, une ? u"enregistrée"_s : u"enregistrées"_s,
                                  QDir::toNativeSeparators(QFileInfo(fin.fichier).path()),
                                  envoi.isEmpty() ? QString() : u" (%1)"_s.arg(fin.envoi));
}

QString TexteSansAdresse(const QStringList &noms) {
  constexpr qsizetype kNommes = 3;  // more would cut the line
  const qsizetype autres = noms.size() - kNommes;
  return u" · sans adresse : "_s + noms.mid(0, kNommes).join(u", "_s) +
         (autres > 1    ? u" et %1 autres"_s.arg(autres)
          : autres == 1 ? u" et 1 autre"_s
                        : QString());
}

QString TexteEchec(bool fichier) {
  return fichier ? u"L'enveloppe n'a pas pu être enregistrée."_s
                 : u"L'enveloppe n'a pas pu être imprimée."_s;
}

QString TexteArret() {
  return u"Impression arrêtée : rien n'a été imprimé."_s;
}

/// Asks the system, unless the built-in printer is wanted. `derniere` was printed on last.
QString Choisir(Imprimante &imprimante, const QString &voulue, const QString &derniere) {
  if (voulue == Imprimante::NomPdf()) return voulue;
  if (const auto trouvee = NomComplet(imprimante.Noms(), voulue, kLongueurImprimante))
    return *trouvee;
  return derniere.isEmpty() ? imprimante.ParDefaut() : derniere;
}

}  // namespace

bool Tirage::Imprimer() {
  const auto appareil = Appareil();
  if (!appareil) return false;
  const FinEnvoi fin = Envoyer(*appareil, {}, {Contenu()}, Devant());
  if (fin.EstFaite())
    Dire(fin.impression, 1, {});
  else
    MontrerEchec(fin, *appareil);
  return fin.EstFaite();
}

void Tirage::MontrerEchec(const FinEnvoi &fin, const QString &appareil) {
  if (fin.issue == FinEnvoi::Issue::Arretee) return fait_.Dire(TexteArret());
  fait_.Dire(fin.issue == FinEnvoi::Issue::Incertaine
                 ? TexteSansReponse(appareil)
                 : TexteEchec(appareil == Imprimante::NomPdf()));
  if (!fin.impression.raison.isEmpty()) session_.plateforme.boites.Attention(fin.impression.raison);
}

std::optional<QString> Tirage::Appareil() {
  Oublier();
  const ReglagesPlomex plomex = session_.reglages.plomex;
  if (!ImpressionConfiguree(plomex)) {
    session_.plateforme.boites.Information(
        u"Vous devez d'abord utiliser le menu 'Configurer l'impression' !"_s);
    return std::nullopt;
  }
  try {
    const auto choisie =
        Travail(fait_.window(), u"Recherche de l'imprimante"_s)
            .ExecuterOuLaisser(
                session_.plateforme.abandons,
                [&imprimante = session_.plateforme.imprimante, voulue = plomex.Imprimante,
                 derniere = courante_](const Avance &, const std::stop_token &arret) {
                  std::optional<QString> nom;
                  try {
                    nom = Choisir(imprimante, voulue, derniere);
                  } catch (const Erreur &) {
                    if (!arret.stop_requested()) throw;  // who has stopped it needs no reason
                  }
                  return arret.stop_requested() ? std::nullopt : nom;
                });
    if (choisie && *choisie) return *choisie;
    fait_.Dire(TexteArret());
  } catch (const Erreur &erreur) {
    fait_.Dire(TexteEchec(false));
    session_.plateforme.boites.Attention(erreur.Texte());
  }
  return std::nullopt;
}

Travail Tirage::Devant() const {
  return Travail(fait_.window(), u"Impression"_s);
}

FinEnvoi Tirage::Envoyer(const QString &appareil, const QString &titre,
                         const std::vector<Pli> &plis, const Travail &travail) {
  const auto remise = std::make_shared<std::atomic<bool>>(false);  // the printer has the document
  const auto fin = travail.ExecuterOuLaisser(
      session_.plateforme.abandons,
      [&imprimante = session_.plateforme.imprimante, plomex = session_.reglages.plomex,
       imprimantes = imprimantes_, appareil, titre, plis,
       remise](const Avance &avance, const std::stop_token &arret) {
        const auto suivre = [&](qsizetype fait, qsizetype total) {
          const bool continuer = avance(fait, total);
          *remise = continuer && fait == total;
          return continuer;
        };
        return Remettre(imprimante, appareil, plomex, imprimantes, plis, {titre, suivre, arret});
      });
  if (!fin) return {*remise ? FinEnvoi::Issue::Incertaine : FinEnvoi::Issue::Arretee};
  if (!fin->EstFaite()) return *fin;
  courante_ = appareil;
  if (session_.reglages.rtcolor.AnnulerCommentaire) {
    zones_.OublierCommentaire();
    commentaire_.MajEtiquette();
  }
  return *fin;
}

void Tirage::Dire(const FinImpression &fin, qsizetype nombre, const QStringList &sansAdresse) {
  CompteRendu::Lien lien;
  if (fin.issue == FinImpression::Issue::Enregistree)
    lien = {QFileInfo(fin.fichier).fileName(), fin.fichier};
  fait_.Dire(TexteFait(fin, courante_, nombre) +
                 (sansAdresse.isEmpty() ? QString() : TexteSansAdresse(sansAdresse)),
             lien);
}

void Tirage::Oublier() {
  fait_.Effacer();
}

void Tirage::DireArret(const QString &constat) {
  fait_.Dire(constat);
}
