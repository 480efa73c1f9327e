#include "address/NormePostale.h"

#include <QStringList>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kCaracteres = 38, kLignes = 6, kLignesSansSigne = 3;

QString SansSigne(QString texte) {
  for (QChar &c : texte)
    if (!c.isLetterOrNumber() && !c.isMark()) c = u' ';
  return texte.simplified();
}

/// How many lines from the end are in capitals; the name comes last of all.
qsizetype LignesEnCapitales(CapitalesNorme capitales) {
  return capitales == CapitalesNorme::DerniereLigne ? 1 : kLignesSansSigne;
}

void EcrireBloc(QString &bloc, const auto &ecrire) {
  QStringList elements = bloc.split(u'*');
  for (qsizetype i = 0; i < elements.size(); ++i) ecrire(elements[i], i, elements.size());
  bloc = elements.join(u'*');
}

bool EstVide(const QString &bloc) {
  return bloc.trimmed().isEmpty();
}

}  // namespace

QString EnMajuscules(const QString &texte, bool accents) {
  const QString capitales = texte.toUpper();
  if (accents) return capitales;
  QString nue;
  for (const QChar c : capitales.normalized(QString::NormalizationForm_D)) {
    if (c == u'Œ')
      nue += u"OE"_s;
    else if (c == u'Æ')
      nue += u"AE"_s;
    else if (c == u'Ø')
      nue += u'O';
    else if (c == u'Ł')
      nue += u'L';
    else if (!c.isMark())
      nue += c;
  }
  return nue.normalized(QString::NormalizationForm_C);
}

QString SelonNorme(const QString &chaine, const ReglagesNorme &norme) {
  QStringList blocs = chaine.split(u'$');
  const bool postale = blocs.size() > 1 && !EstVide(blocs[1]);
  const bool etranger = blocs.size() > 2 && !EstVide(blocs[2]);
  const auto capitales = [&](QString &ligne) { ligne = EnMajuscules(ligne, norme.Accents); };
  if (!EstVide(blocs[0]))
    EcrireBloc(blocs[0], [&](QString &ligne, qsizetype i, qsizetype lignes) {
      const qsizetype rang = lignes - i + (postale ? 1 : 0);  // from the end
      if (i > 0 && rang <= kLignesSansSigne) ligne = SansSigne(ligne);
      if (norme.Capitales == CapitalesNorme::Toutes ||
          (i > 0 && rang <= LignesEnCapitales(norme.Capitales)))
        capitales(ligne);
    });
  if (postale)
    EcrireBloc(blocs[1], [&](QString &element, qsizetype i, qsizetype elements) {
      const bool codeEtranger = etranger && i == 0 && elements > 1;  // "1000-205 LISBOA"
      if (!codeEtranger) element = SansSigne(element);
      capitales(element);
    });
  if (etranger) capitales(blocs[2]);
  return blocs.join(u'$');
}

std::array<QString, 7> RemarquesNorme(const AdresseSaisie &adresse) {
  std::array<QString, 7> lignes, remarques;
  std::ranges::copy(adresse.lignes, lignes.begin());
  lignes[5] = (adresse.codePostal + u' ' + adresse.ville).trimmed();
  lignes[6] = adresse.pays;
  qsizetype ecrites = 0;
  for (std::size_t i = 0; i < lignes.size(); ++i) {
    if (lignes[i].isEmpty()) continue;
    if (++ecrites > kLignes)
      remarques[i] =
          u"Septième ligne : la norme postale n'en admet que six, et une septième pour le pays "
          u"d'un "
          "envoi à l'étranger."_s;
    if (lignes[i].size() > kCaracteres)
      remarques[i] =
          u"%1 caractères : la norme postale en admet %2 par ligne."_s.arg(lignes[i].size())
              .arg(kCaracteres);
  }
  return remarques;
}
