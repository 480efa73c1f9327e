#include "envelope/Tirage.h"

#include "envelope/CommandesCommentaire.h"
#include "platform/Erreurs.h"
#include "ui/Travail.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString TexteEnregistre(const QString &fichier, bool une) {
  const QFileInfo document(fichier);
  return u"%1 dans %2 :<br/><a href=\"%3\">%4</a>"_s.arg(
      une ? u"Enveloppe enregistrée"_s : u"Enveloppes enregistrées"_s,
      QDir::toNativeSeparators(document.path()).toHtmlEscaped(), fichier.toHtmlEscaped(),
      document.fileName().toHtmlEscaped());
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

bool Tirage::Imprimer() {
  const auto appareil = Appareil();
  return appareil && Imprimer(*appareil, {Contenu()});
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
        Travail(document_->window(), u"Recherche de l'imprimante"_s)
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

bool Tirage::Imprimer(const QString &appareil, const std::vector<Pli> &plis) {
  FinImpression fin;
  try {
    const auto faite =
        Travail(document_->window(), u"Impression"_s)
            .Executer([&, plomex = session_.reglages.plomex](const Avance &avance) {
              return ImprimerPlis(session_.plateforme.imprimante, appareil, plomex, plis, avance);
            });
    if (!faite) {
      MontrerEchec(TexteArret(), {});
      return false;
    }
    fin = *faite;
  } catch (const Erreur &erreur) {
    fin = {.raison = erreur.Texte()};
  }
  MontrerFin(fin, appareil, plis.size());
  if (fin.issue == FinImpression::Issue::Echouee) return false;
  if (session_.reglages.rtcolor.AnnulerCommentaire) {
    zones_.OublierCommentaire();
    commentaire_.MajEtiquette();
  }
  return true;
}

void Tirage::Oublier() {
  document_->clear();
  document_->hide();
}

void Tirage::MontrerFin(const FinImpression &fin, const QString &appareil, std::size_t nombre) {
  switch (fin.issue) {
    case FinImpression::Issue::Imprimee:
      Oublier();
      break;
    case FinImpression::Issue::Enregistree:
      document_->setText(TexteEnregistre(fin.fichier, nombre == 1));
      document_->show();
      break;
    case FinImpression::Issue::Echouee:
      MontrerEchec(TexteEchec(appareil == Imprimante::NomPdf(), nombre == 1), fin.raison);
      return;
  }
  courante_ = appareil;
}

void Tirage::MontrerEchec(const QString &constat, const QString &raison) {
  document_->setText(constat);
  document_->show();
  if (!raison.isEmpty()) session_.plateforme.boites.Attention(raison);
}
