#include "address/MiseEnLignes.h"

#include "address/NormePostale.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

bool EstVide(const QString &bloc) {
  return bloc == u" "_s;
}

QString LignesDeTete(const QString &bloc, const OptionsLignes &o) {
  if (EstVide(bloc)) return u""_s;
  const QStringList lignes = bloc.split(u'*');
  QString texte;
  for (qsizetype i = 0; i < lignes.size(); ++i) {
    const bool premiere = i == 0, derniere = i == lignes.size() - 1;
    const bool blanche = o.sautLigne || (premiere && o.sautPLigne) || (derniere && o.sautDLigne);
    texte += lignes[i] + (blanche ? u"**"_s : u"*"_s);
  }
  return texte;
}

QString LignePostale(const QString &bloc, const OptionsLignes &o) {
  const QStringList elements = bloc.split(u'*');
  if (elements.size() < 2) return elements[0];
  return o.optionCP == OptionCP::CodeDevant ? elements[0] + o.liaison + elements[1]
                                            : elements[1] + o.liaison + elements[0];
}

}  // namespace

LignesAdresse MettreEnLignes(const QString &chaine, Role role, const OptionsLignes &options) {
  if (chaine.isEmpty()) return {u""_s, false};
  QStringList blocs = chaine.split(u'$');
  while (blocs.size() < 3) blocs.append(u" "_s);

  const bool destinataire = role == Role::Destinataire;
  const OptionsLignes o =
      destinataire ? options
                   : OptionsLignes{.optionCP = options.optionCP, .liaison = options.liaison};
  const QString fin = destinataire ? u"**"_s : u"*"_s;
  QString r = LignesDeTete(blocs[0], o);
  if (!EstVide(blocs[1]))
    r += LignePostale(blocs[1], o) + fin;
  else if (!r.endsWith(u"**"_s))
    r += r.endsWith(u'*') ? u"*"_s : u"**"_s;

  const bool pays = !EstVide(blocs[2]);
  if (!pays || (blocs[0].isEmpty() && blocs[1].isEmpty())) r.chop(fin.size());
  if (pays) r += blocs[2];
  return {r, pays};
}

LignesAdresse MettreEnLignes(const AdresseComposee &adresse, Role role, const Reglages &reglages) {
  const ReglagesPlomex &plomex = reglages.plomex;
  const ReglagesNorme &norme = reglages.norme;
  return MettreEnLignes(norme.Active ? SelonNorme(adresse.chaine, norme) : adresse.chaine, role,
                        {.sautLigne = !plomex.SautLigne.EstNul(),
                         .sautPLigne = !plomex.SautPLigne.EstNul(),
                         .sautDLigne = !plomex.SautDLigne.EstNul(),
                         .optionCP = adresse.optionCP,
                         .liaison = norme.Active ? u" "_s : reglages.LiaisonCP});
}
