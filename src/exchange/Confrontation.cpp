#include "exchange/Confrontation.h"

#include "directory/FichierPhoto.h"
#include "exchange/Contact.h"
#include "storage/Conflits.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

using L = Correspondant;
using Choix = ChoixColonnes<L>;

constexpr std::array kRouges{&L::ListeRougeTel, &L::ListeRougeTravail};

QString FinsSimples(QString texte) {
  return texte.replace(u"\r\n"_s, u"\n"_s);
}

QStringList CategoriesNouvelles(const L &presente, const L &fiche) {
  const QStringList la = NomsCategories(presente.Categories);
  QStringList nouvelles = NomsCategories(fiche.Categories);
  nouvelles.removeIf([&](const QString &nom) { return la.contains(nom); });
  return nouvelles;
}

class Comparaison {
 public:
  Comparaison(const L &presente, const PersonneImportee &personne)
      : presente_(presente), personne_(personne), fiche_(personne.fiche) {}

  Confrontation Faire() {
    for (const auto champ : kNumeros) Ranger(champ, NumeroNu);
    for (const auto champ : {&L::Mail, &L::Web, &L::Ligne1, &L::AdresseImportee, &L::DDN})
      Ranger(champ, SansEcriture);
    Situer();
    for (const auto champ : kRouges)
      if (fiche_.*champ && !(presente_.*champ)) faite_.ecarts.set(Ordinal(champ));
    if (!NotesNouvelles(presente_.Commentaires, personne_).isEmpty())
      faite_.manques.set(Ordinal(&L::Commentaires));
    if (!CategoriesNouvelles(presente_, fiche_).isEmpty())
      faite_.manques.set(Ordinal(&L::Categories));
    Portrait();
    return faite_;
  }

 private:
  template <typename Regle>
  void Ranger(QString L::*champ, Regle &&regle) {
    const QString la = regle(presente_.*champ), ici = regle(fiche_.*champ);
    if (ici.isEmpty() || ici == la) return;
    (la.isEmpty() ? faite_.manques : faite_.ecarts).set(Ordinal(champ));
  }

  void Situer() {
    Comparaison lignes(presente_, personne_);
    for (const auto champ : kAdresse) lignes.Ranger(champ, SansEcriture);
    const bool autre = lignes.faite_.ecarts.any();
    if (lignes.faite_.Pareils()) return;
    Choix adresse = lignes.faite_.manques | lignes.faite_.ecarts;
    const bool vide = std::ranges::all_of(
        kAdresse, [&](const auto champ) { return (presente_.*champ).trimmed().isEmpty(); });
    if (autre)
      for (const auto champ : kAdresse)
        if (presente_.*champ != fiche_.*champ) adresse.set(Ordinal(champ));
    if ((autre || vide) && presente_.OptionAdresse != fiche_.OptionAdresse)
      adresse.set(Ordinal(&L::OptionAdresse));
    (autre ? faite_.ecarts : faite_.manques) |= adresse;
  }

  void Portrait() {
    if (!personne_.photo && fiche_.Photo.isEmpty()) return;
    if (presente_.Photo.isEmpty()) {
      faite_.manques.set(Ordinal(&L::Photo));
      return;
    }
    const bool meme = presente_.Photo == fiche_.Photo ||
                      (personne_.photo && LirePhoto(presente_.Photo) == personne_.photo->octets);
    if (!meme) faite_.ecarts.set(Ordinal(&L::Photo));
  }

  const L &presente_;
  const PersonneImportee &personne_;
  const L &fiche_;
  Confrontation faite_;
};

}  // namespace

QString NumeroNu(const QString &numero) {
  QString nu;
  for (const QChar c : numero)
    if (c.isLetterOrNumber()) nu += c.toLower();
  return nu;
}

QString SansEcriture(const QString &texte) {
  return texte.simplified().toLower();
}

QStringList NotesNouvelles(const QString &presentes, const PersonneImportee &personne) {
  const QString la = u'\n' + FinsSimples(presentes) + u'\n';
  const QString derriere = personne.auxNotes.join(u'\n');
  QString libre = FinsSimples(personne.fiche.Commentaires);
  QStringList morceaux;
  if (!derriere.isEmpty() && libre.endsWith(FinsSimples(derriere))) {
    libre.chop(FinsSimples(derriere).size());
    morceaux = personne.auxNotes;
  }
  if (libre.endsWith(u'\n')) libre.chop(1);
  if (!libre.trimmed().isEmpty()) morceaux.prepend(libre);
  morceaux.removeIf(
      [&](const QString &morceau) { return la.contains(u'\n' + FinsSimples(morceau) + u'\n'); });
  return morceaux;
}

Confrontation Confronter(const Correspondant &presente, const PersonneImportee &personne) {
  return Comparaison(presente, personne).Faire();
}

Correspondant Fondre(Correspondant presente, const PersonneImportee &personne,
                     const ChoixColonnes<Correspondant> &prises) {
  const QString notes = presente.Commentaires, categories = presente.Categories;
  const QStringList plus = CategoriesNouvelles(presente, personne.fiche);
  Recopier(presente, personne.fiche, prises);
  if (prises[Ordinal(&L::Commentaires)]) {
    QStringList morceaux = NotesNouvelles(notes, personne);
    if (!notes.isEmpty()) morceaux.prepend(notes);
    presente.Commentaires = morceaux.join(u'\n');
  }
  if (prises[Ordinal(&L::Categories)])
    presente.Categories = u'*' + (NomsCategories(categories) + plus).join(u'*') + u'*';
  return presente;
}
