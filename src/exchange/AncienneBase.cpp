#include "exchange/AncienneBase.h"

#include "address/NomsProposes.h"
#include "address/Titres.h"
#include "exchange/Confrontation.h"
#include "exchange/Contact.h"
#include "platform/Pannes.h"
#include "storage/Noms.h"
#include "storage/SourceJet.h"
#include "storage/SourceSqlite.h"
#include "storage/Tables.h"

#include <algorithm>
#include <cerrno>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using L = Correspondant;

/// The first line of a text in which something can be seen, without what the editor refuses.
QString NomDapres(const QString &texte) {
  for (const QString &ligne : texte.split(u'\n'))
    if (const QString nom = ligne.simplified().remove(u'"').left(kPlusLong).trimmed();
        !EstSansNom(nom))
      return nom;
  return {};
}

class SourceBase : public SourcePersonnes {
 public:
  SourceBase(std::shared_ptr<const AncienneBase> ancienne, QString chemin, UsagesReprise usages)
      : ancienne_(std::move(ancienne)), chemin_(std::move(chemin)), usages_(std::move(usages)) {
    base_.Ouvrir(ancienne_->Convertie());
    nombre_ = TableAdresse(base_).Nombre();
  }

  std::optional<PersonneImportee> Suivante() override {
    // The conversion has numbered them without a gap.
    auto fiche = lues_ < nombre_ ? TableAdresse(base_).Lire(lues_ + 1) : std::nullopt;
    if (!fiche) return std::nullopt;
    PersonneImportee personne;
    personne.fiche = *std::move(fiche);
    personne.fiche.Index = 0;
    personne.origine = {chemin_, ++lues_, 0};
    SansNul(personne.fiche);
    personne.auxNotes = ancienne_->NumerosPerdus(lues_, personne.fiche);
    Annexer(personne.fiche.Commentaires, personne.auxNotes);
    Nommer(personne);
    return personne;
  }

  qsizetype Lu() const override { return lues_; }
  qsizetype Taille() const override { return nombre_; }

 private:
  void Nommer(PersonneImportee &personne) const {
    L &fiche = personne.fiche;
    if (!EstSansNom(fiche.NomVelmira)) return;
    // Without a title nobody can tell which word is the family's: these tables mostly began with
    // it.
    const bool titre = RemplacerTitre(fiche.Ligne1, usages_.titres, {}) != fiche.Ligne1;
    for (const QString &connu :
         {titre ? NomPourListe(fiche.Ligne1, usages_.titres) : QString(), fiche.Ligne1,
          fiche.Ligne2, fiche.Ligne3, fiche.Ligne4, fiche.Ligne5, fiche.Mail, fiche.Portable,
          fiche.Tel, fiche.TelTravail, fiche.Fax, fiche.Web, fiche.Ville, fiche.AdresseImportee,
          fiche.Commentaires})
      if (EstSansNom(fiche.NomVelmira)) fiche.NomVelmira = NomDapres(connu);
    if (EstSansNom(fiche.NomVelmira)) personne.refus = RefusSansNom();
  }

  const std::shared_ptr<const AncienneBase> ancienne_;
  const QString chemin_;
  const UsagesReprise usages_;
  Base base_;
  qsizetype nombre_ = 0, lues_ = 0;
};

/// The first ones bore no mark, by which others are known.
void ExigerConnue(const QString &chemin) {
  try {
    Base().Ouvrir(chemin);
  } catch (const ErreurBase &erreur) {
    if (erreur.Genre() == GenreErreur::PlusRecente) throw;
  }
}

}  // namespace

AncienneBase::AncienneBase(const QString &chemin, const ReglesCopie &regles) {
  if (!dossier_.isValid())
    throw EchecSysteme(u"La base de données n'a pas pu être convertie"_s,
                       u"Rien n'a changé dans Velmira."_s, ENOSPC, dossier_.errorString());
  const auto convertir = [&](SourceAncienne &source) {
    ConvertirBase(source, Convertie(), regles, [](qsizetype) {});
    cles_ = LireClesAlertes(source);
    LireNumeros(source);
  };
  jet_ = EstJet(chemin);
  if (jet_) {
    SourceJet source(chemin);
    if (!source.Entiere()) constat_ = source.Constat();
    convertir(source);
  } else {
    ExigerConnue(chemin);
    SourceSqlite source(chemin);
    convertir(source);
  }
}

void AncienneBase::LireNumeros(SourceAncienne &source) {
  if (!source.Ouvrir(u"Adresse"_s)) return;
  for (qsizetype rang = 1; source.Suivante(); ++rang)
    for (const auto champ : kNumeros) {
      const QString numero =
          source.Champ(static_cast<int>(Ordinal(champ))).value_or(QVariant()).toString();
      if (std::ranges::any_of(numero, [](QChar c) { return c.isLetter(); }))
        ecrits_[rang].*champ = numero;
    }
}

QStringList AncienneBase::NumerosPerdus(qsizetype rang, const Correspondant &convertie) const {
  PersonneImportee ecrite;
  ecrite.fiche = ecrits_.value(rang);
  ChoixColonnes<L> perdus;
  for (const auto champ : kNumeros)
    if (const QString nu = NumeroNu(ecrite.fiche.*champ);
        !nu.isEmpty() && nu != NumeroNu(convertie.*champ))
      perdus.set(Ordinal(champ));
  return NotesDesEcarts(ecrite, perdus);
}

std::unique_ptr<SourcePersonnes> OuvrirBase(std::shared_ptr<const AncienneBase> ancienne,
                                            const QString &chemin, const UsagesReprise &usages) {
  return std::make_unique<SourceBase>(std::move(ancienne), chemin, usages);
}
