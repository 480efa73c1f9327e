#include "envelope/Tirage.h"

#include "envelope/CommandesCommentaire.h"
#include "platform/Erreurs.h"
#include "ui/CompteRendu.h"
#include "ui/Travail.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString TexteFait(const FinImpression &fin, const QString &appareil, qsizetype nombre) {
  if (nombre == 0) return u"Aucune enveloppe imprimée"_s;
  const bool une = nombre == 1;
  const QString combien = CombienDEnveloppes(nombre);
  if (fin.issue == FinImpression::Issue::Imprimee)
    return u"%1 %2 sur « %3 »"_s.arg(combien, une ? u"imprimée"_s : u"imprimées"_s, appareil);
  return u"%1 %2 dans %3"_s.arg(combien, une ? u"enregistrée"_s : u"enregistrées"_s,
                                QDir::toNativeSeparators(QFileInfo(fin.fichier).path()));
}

QString TexteSansAdresse(const QStringList &noms) {
  constexpr qsizetype kNommes = 3;  // more would cut the line
  const qsizetype autres = noms.size() - kNommes;
  return u" · sans adresse : "_s + noms.mid(0, kNommes).join(u", "_s) +
         (autres > 1    ? u" et %1 autres"_s.arg(autres)
          : autres == 1 ? u" et 1 autre"_s
                        : QString());
}

QString TexteEchec(bool fichier, bool une) {
  if (une)
    return fichier ? u"L'enveloppe n'a pas pu être enregistrée."_s
                   : u"L'enveloppe n'a pas pu être imprimée."_s;
  return fichier ? u"Les enveloppes n'ont pas pu être enregistrées."_s
                 : u"Les enveloppes n'ont pas pu être imprimées."_s;
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

QString CombienDEnveloppes(qsizetype nombre) {
  return nombre == 1 ? u"1 enveloppe"_s : u"%1 enveloppes"_s.arg(nombre);
}

bool Tirage::Imprimer() {
  const auto appareil = Appareil();
  if (!appareil) return false;
  const auto fin = Envoyer(*appareil, {Contenu()});
  if (fin) Dire(*fin, 1, {});
  return fin.has_value();
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
            .Executer([&, derniere = courante_](const Avance &avance) {
              std::optional<QString> nom;
              try {
                nom = Choisir(session_.plateforme.imprimante, plomex.Imprimante, derniere);
              } catch (const Erreur &) {
                if (avance(1, 1)) throw;  // who has stopped it needs no reason
              }
              return avance(1, 1) ? nom : std::nullopt;
            });
    if (!choisie) MontrerEchec(TexteArret(), {});
    return choisie;
  } catch (const Erreur &erreur) {
    MontrerEchec(TexteEchec(false, true), erreur.Texte());
    return std::nullopt;
  }
}

std::optional<FinImpression> Tirage::Envoyer(const QString &appareil,
                                             const std::vector<Pli> &plis) {
  FinImpression fin;
  try {
    const auto faite =
        Travail(fait_.window(), u"Impression"_s)
            .Executer([&, plomex = session_.reglages.plomex](const Avance &avance) {
              return ImprimerPlis(session_.plateforme.imprimante, appareil, plomex, plis, avance);
            });
    if (!faite) {
      MontrerEchec(TexteArret(), {});
      return std::nullopt;
    }
    fin = *faite;
  } catch (const Erreur &erreur) {
    fin = {.raison = erreur.Texte()};
  }
  if (fin.issue == FinImpression::Issue::Echouee) {
    MontrerEchec(TexteEchec(appareil == Imprimante::NomPdf(), plis.size() == 1), fin.raison);
    return std::nullopt;
  }
  courante_ = appareil;
  if (session_.reglages.rtcolor.AnnulerCommentaire) {
    zones_.OublierCommentaire();
    commentaire_.MajEtiquette();
  }
  return fin;
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

void Tirage::MontrerEchec(const QString &constat, const QString &raison) {
  fait_.Dire(constat);
  if (!raison.isEmpty()) session_.plateforme.boites.Attention(raison);
}
