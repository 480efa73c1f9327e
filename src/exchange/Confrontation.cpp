#include "exchange/Confrontation.h"

#include "exchange/Contact.h"
#include "storage/Conflits.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

using L = Correspondant;
using Choix = ChoixColonnes<L>;

/// A mark of a number goes with it.
constexpr std::array kRouges{std::pair{&L::ListeRougeTel, &L::Tel},
                             std::pair{&L::ListeRougeTravail, &L::TelTravail}};

QString FinsSimples(QString texte) {
  return texte.replace(u"\r\n"_s, u"\n"_s);
}

struct Notable {
  QString L::*champ;
  const char16_t *libelle;
};
/// The labels are those that the readers give to what has no column.
constexpr std::array kNotables{Notable{&L::Mail, u"Adresse email"},
                               Notable{&L::Web, u"Adresse web"},
                               Notable{&L::Tel, u"Téléphone (domicile)"},
                               Notable{&L::TelTravail, u"Téléphone (travail)"},
                               Notable{&L::Portable, u"Portable"},
                               Notable{&L::Fax, u"Fax"},
                               Notable{&L::DDN, u"Né(e) le"},
                               Notable{&L::AdresseImportee, u"Adresse importée"}};

QString AdresseEnUneLigne(const L &fiche) {
  const QString ville = (fiche.OptionAdresse == 1 ? fiche.Ville + u' ' + fiche.CodePostal
                                                  : fiche.CodePostal + u' ' + fiche.Ville)
                            .trimmed();
  QStringList lignes;
  for (const QString &ligne :
       {fiche.Ligne2, fiche.Ligne3, fiche.Ligne4, fiche.Ligne5, ville, fiche.Pays})
    if (!ligne.trimmed().isEmpty()) lignes.append(ligne.simplified());
  return lignes.join(u", "_s);
}

/// Two writings of a number are one.
QString Nue(QString L::*champ, const QString &valeur) {
  const bool numero = std::ranges::find(kNumeros, champ) != kNumeros.end();
  return numero && !NumeroNu(valeur).isEmpty() ? NumeroNu(valeur) : SansEcriture(valeur);
}

/// Whether a line of the notes says a value, whatever its label.
bool EstNotee(const QString &notes, QString L::*champ, const QString &valeur) {
  const QString cherche = Nue(champ, valeur);
  return std::ranges::any_of(notes.split(u'\n'), [&](const QString &ligne) {
    return ligne.contains(u" : "_s) && Nue(champ, ligne.section(u" : "_s, 1)) == cherche;
  });
}

QStringList CategoriesNouvelles(const L &presente, const L &fiche) {
  const QStringList la = NomsCategories(presente.Categories);
  QStringList nouvelles = NomsCategories(fiche.Categories);
  nouvelles.removeIf([&](const QString &nom) { return la.contains(nom); });
  return nouvelles;
}

/// Whether a name has no word that another lacks: most programs know no title.
bool DitMoins(const QString &nom, const QString &autre) {
  const QStringList mots = SansEcriture(autre).split(u' ');
  return std::ranges::all_of(SansEcriture(nom).split(u' '),
                             [&](const QString &mot) { return mots.contains(mot); });
}

class Comparaison {
 public:
  Comparaison(const L &presente, const PersonneImportee &personne)
      : presente_(presente), personne_(personne), fiche_(personne.fiche) {}

  Confrontation Faire(const LecturePhoto &lirePhoto) {
    for (const auto champ : kNumeros) Ranger(champ, NumeroNu);
    for (const auto champ : {&L::Mail, &L::Web, &L::AdresseImportee, &L::DDN})
      Ranger(champ, SansEcriture);
    if (!DitMoins(fiche_.Ligne1, presente_.Ligne1)) Ranger(&L::Ligne1, SansEcriture);
    Situer();
    for (const auto &[rouge, numero] : kRouges)
      if (fiche_.*rouge && !(presente_.*rouge))
        (faite_.ecarts[Ordinal(numero)] ? faite_.ecarts : faite_.manques).set(Ordinal(rouge));
    if (!NotesNouvelles(presente_.Commentaires, personne_).isEmpty())
      faite_.manques.set(Ordinal(&L::Commentaires));
    if (!CategoriesNouvelles(presente_, fiche_).isEmpty())
      faite_.manques.set(Ordinal(&L::Categories));
    Portrait(lirePhoto);
    ChercherDansLesNotes();
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

  void ChercherDansLesNotes() {
    if (presente_.Commentaires.isEmpty() || faite_.ecarts.none()) return;
    for (const auto &[champ, libelle] : kNotables)
      if (faite_.ecarts[Ordinal(champ)] && EstNotee(presente_.Commentaires, champ, fiche_.*champ))
        faite_.notees.set(Ordinal(champ));
    for (const auto &[rouge, numero] : kRouges)
      if (faite_.notees[Ordinal(numero)] && faite_.ecarts[Ordinal(rouge)])
        faite_.notees.set(Ordinal(rouge));
    const Choix adresse = faite_.ecarts & ColonnesAdresse();
    if (adresse.any() && EstNotee(presente_.Commentaires, &L::Ligne2, AdresseEnUneLigne(fiche_)))
      faite_.notees |= adresse;
  }

  void Portrait(const LecturePhoto &lirePhoto) {
    if (!personne_.photo && fiche_.Photo.isEmpty()) return;
    if (presente_.Photo.isEmpty()) {
      faite_.manques.set(Ordinal(&L::Photo));
      return;
    }
    const bool meme = presente_.Photo == fiche_.Photo ||
                      (personne_.photo && lirePhoto(presente_.Photo) == personne_.photo->octets);
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
  nu.reserve(numero.size());
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

ChoixColonnes<Correspondant> ColonnesAdresse() {
  Choix adresse;
  for (const auto champ : kAdresse) adresse.set(Ordinal(champ));
  return adresse.set(Ordinal(&L::OptionAdresse));
}

ChoixColonnes<Correspondant> Notables() {
  Choix notables = ColonnesAdresse();
  for (const Notable &notable : kNotables) notables.set(Ordinal(notable.champ));
  for (const auto &[rouge, numero] : kRouges) notables.set(Ordinal(rouge));
  return notables;
}

QStringList NotesDesEcarts(const PersonneImportee &personne, const Choix &ecarts) {
  QStringList notes;
  const auto noter = [&](const QString &libelle, const QString &valeur) {
    notes.append(u"%1 : %2"_s.arg(libelle, valeur.simplified()));
  };
  for (const auto &[champ, libelle] : kNotables)
    if (ecarts[Ordinal(champ)]) noter(QString::fromUtf16(libelle), personne.fiche.*champ);
  if ((ecarts & ColonnesAdresse()).any()) noter(u"Adresse"_s, AdresseEnUneLigne(personne.fiche));
  return notes;
}

Confrontation Confronter(const Correspondant &presente, const PersonneImportee &personne,
                         const LecturePhoto &lirePhoto) {
  return Comparaison(presente, personne).Faire(lirePhoto);
}

Correspondant Fondre(Correspondant presente, const PersonneImportee &personne,
                     const ChoixColonnes<Correspondant> &prises) {
  const QString notes = presente.Commentaires, categories = presente.Categories;
  const QStringList plus = CategoriesNouvelles(presente, personne.fiche);
  Recopier(presente, personne.fiche, prises);
  if (prises[Ordinal(&L::Commentaires)]) {
    presente.Commentaires = notes;
    Annexer(presente.Commentaires, NotesNouvelles(notes, personne));
  }
  if (prises[Ordinal(&L::Categories)])
    presente.Categories = u'*' + (NomsCategories(categories) + plus).join(u'*') + u'*';
  return presente;
}
