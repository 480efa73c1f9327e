#include "address/MiseEnLignes.h"

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
  return o.villeDevant ? elements[1] + o.liaison + elements[0]
                       : elements[0] + o.liaison + elements[1];
}

}  // namespace

LignesAdresse MettreEnLignes(const QString &chaine, bool destinataire,
                             const OptionsLignes &options) {
  if (chaine.isEmpty()) return {u""_s, false};
  QStringList blocs = chaine.split(u'$');
  while (blocs.size() < 3) blocs.append(u" "_s);

  const OptionsLignes o =
      destinataire ? options
                   : OptionsLignes{.villeDevant = options.villeDevant, .liaison = options.liaison};
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

QString MettreEnLignes(const QString &chaine, bool destinataire, const ReglagesPlomex &plomex,
                       EtatEnveloppe &etat) {
  const quint8 option = destinataire ? etat.OptionCPAdresse : etat.OptionCPExpediteur;
  const LignesAdresse lignes = MettreEnLignes(chaine, destinataire,
                                              {.sautLigne = plomex.SautLigne != 0,
                                               .sautPLigne = plomex.SautPLigne != 0,
                                               .sautDLigne = plomex.SautDLigne != 0,
                                               .villeDevant = option != 0,
                                               .liaison = etat.LiaisonCP});
  etat.PaysPresent = lignes.paysPresent ? 1 : 0;
  return lignes.texte;
}
