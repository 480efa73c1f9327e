#include "player/Analyse.h"

#include <QRegularExpression>
#include <QStringList>

namespace {

QString SansEchappement(QString texte) {
  static const QString kSignes = u"nrt\"\\"_s, kSens = u"\n\r\t\"\\"_s;
  for (qsizetype i = texte.indexOf(u'\\'); i >= 0; i = texte.indexOf(u'\\', i + 1))
    texte.replace(i, 2, kSens[kSignes.indexOf(texte[i + 1])]);
  return texte;
}

/// The words of a line that has no blanks at its ends.
Mots LireMots(const QString &ligne, int numero) {
  // What stands outside quotes; a text in them, alone or behind "="; its rank.
  static const QRegularExpression kMot(
      uR"re(\s*+([^\s"]*)((?<![^\s=])"((?:\\[nrt"\\]|[^"\\])*)"(?:#([1-9]\d*))?)?(?=\s|$))re"_s);
  Mots mots;
  for (qsizetype place = 0; place < ligne.size() && !ligne.startsWith(u'#');) {
    const auto trouve = kMot.match(ligne, place, QRegularExpression::NormalMatch,
                                   QRegularExpression::AnchorAtOffsetMatchOption);
    if (!trouve.hasMatch())
      throw Echec{u"a word or a text in quotes expected, \"%1\" found"_s.arg(ligne.sliced(place)),
                  numero};
    place = trouve.capturedEnd();
    const QString nu = trouve.captured(1);
    const bool cite = trouve.hasCaptured(2);
    if (nu == u"#"_s && !cite) break;
    mots.append({nu + SansEchappement(trouve.captured(3)), cite,
                 trouve.hasCaptured(4) ? trouve.captured(4).toInt() : 1, nu.indexOf(u'=')});
  }
  return mots;
}

/// A line may say the same of several controls: each becomes a command of its own. What stands
/// behind ":" answers the boxes to come.
void Ajouter(QList<Commande> &suite, const Commande &commande) {
  static const QStringList kDeuxMots{u"taper"_s, u"ajouter"_s, u"choisir"_s, u"touche"_s};
  static const QStringList kCases{u"cocher"_s, u"decocher"_s, u"coche"_s, u"decoche"_s};
  Mots mots = commande.mots;
  for (qsizetype i = 0; i < mots.size(); ++i)
    if (mots[i].Est(u":")) {
      suite.append({commande.ligne, commande.texte, u"reponse"_s, mots.mid(i + 1)});
      mots.resize(i);
    }
  const auto fin = [&](qsizetype debut) {
    if (commande.verbe == u"clic"_s) return debut + 1;
    if (kDeuxMots.contains(commande.verbe)) return debut + 2;
    if (!kCases.contains(commande.verbe)) return mots.size();
    const bool element =
        mots.size() > debut + 1 &&
        (mots[debut + 1].cite || mots[debut + 1].Indice() || mots[debut + 1].Est(u"racine"));
    return debut + (element ? 2 : 1);
  };
  qsizetype debut = 0;
  do {
    suite.append(
        {commande.ligne, commande.texte, commande.verbe, mots.mid(debut, fin(debut) - debut)});
    debut = fin(debut);
  } while (debut < mots.size());
}

/// Commands that are played once for each row of a table, with the row's words in the place of the
/// names of its columns.
struct Bloc {
  QList<Commande> commandes;
  QStringList colonnes;

  /// A command that holds the word `-` of this row is left out of it.
  void Jouer(int ligne, const Mots &rangee, QList<Commande> &suite) const {
    if (rangee.size() != colonnes.size())
      throw Echec{
          u"%1 words expected, one a column, %2 found"_s.arg(colonnes.size()).arg(rangee.size()),
          ligne};
    for (Commande commande : commandes) {
      bool jouee = true;
      for (Mot &mot : commande.mots) jouee &= Remplacer(mot, rangee);
      commande.texte += u"    (line %1)"_s.arg(ligne);
      if (jouee) Ajouter(suite, commande);
    }
  }

 private:
  bool Remplacer(Mot &mot, const Mots &rangee) const {
    for (qsizetype i = 0; i < colonnes.size(); ++i) {
      const QString nom = u'{' + colonnes[i] + u'}';
      if (!mot.texte.contains(nom)) continue;
      if (rangee[i].Est(u"-")) return false;
      if (mot.Est(nom))
        mot = rangee[i];
      else
        mot.texte.replace(nom, rangee[i].texte);
    }
    return true;
  }
};

}  // namespace

std::optional<int> Mot::Indice() const {
  bool nombre = false;
  const int indice = QStringView(texte).mid(1).toInt(&nombre);
  return !cite && texte.startsWith(u'#') && nombre ? std::optional(indice) : std::nullopt;
}

QList<Commande> Analyser(const QString &scenario) {
  QList<Commande> suite;
  std::optional<Bloc> bloc;
  const QStringList lignes = scenario.split(u'\n');
  for (int numero = 1; numero <= lignes.size(); ++numero) {
    const QString texte = lignes[numero - 1].trimmed();
    Mots mots = LireMots(texte, numero);
    if (mots.isEmpty()) continue;
    const bool rangees = bloc && !bloc->colonnes.isEmpty();
    if (mots.first().Est(u"bloc") && !bloc) {
      bloc.emplace();
    } else if (mots.first().Est(u"avec") && bloc && !rangees) {
      for (const Mot &mot : mots.sliced(1)) bloc->colonnes.append(mot.texte);
    } else if (mots.first().Est(u"fin") && rangees) {
      bloc.reset();
    } else if (rangees) {
      bloc->Jouer(numero, mots, suite);
    } else {
      const QString verbe = mots.takeFirst().texte;
      if (const Commande commande{numero, texte, verbe, mots}; bloc)
        bloc->commandes.append(commande);
      else
        Ajouter(suite, commande);
    }
  }
  if (bloc) throw Echec{u"a bloc without its fin"_s, static_cast<int>(lignes.size())};
  return suite;
}
