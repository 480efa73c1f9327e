#include "player/Analyse.h"

#include "player/Echec.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

class Ligne {
 public:
  Ligne(int numero, QString texte) : numero_(numero), texte_(std::move(texte)) {}

  Mots EnMots() {
    Mots mots;
    for (;;) {
      while (Reste() && texte_[position_].isSpace()) ++position_;
      if (!Reste() || Commentaire()) return mots;
      mots.append(Suivant());
    }
  }

 private:
  bool Reste() const { return position_ < texte_.size(); }
  bool Commentaire() const {
    return texte_[position_] == u'#' &&
           (position_ == 0 || position_ + 1 == texte_.size() || texte_[position_ + 1].isSpace());
  }
  [[noreturn]] void Refuser(const QString &raison) const { throw Echec{raison, numero_}; }

  Mot Suivant() {
    Mot mot;
    while (Reste() && !texte_[position_].isSpace()) {
      const QChar signe = texte_[position_++];
      if (signe == u'"') {
        mot.texte += Cite();
        mot.cite = true;
        if (Reste() && texte_[position_] == u'#') mot.rang = Rang();
        if (Reste() && !texte_[position_].isSpace()) Refuser(u"a blank is missing behind a text"_s);
      } else {
        if (signe == u'=' && mot.egal < 0) mot.egal = mot.texte.size();
        mot.texte += signe;
        if (Reste() && texte_[position_] == u'"' && signe != u'=')
          Refuser(u"a quote inside a word"_s);
      }
    }
    return mot;
  }

  QString Cite() {
    QString texte;
    while (Reste()) {
      const QChar signe = texte_[position_++];
      if (signe == u'"') return texte;
      texte += signe == u'\\' ? Echappe() : signe;
    }
    Refuser(u"the closing quote is missing"_s);
  }

  QChar Echappe() {
    static const QString kSignes = u"nrt\"\\"_s, kSens = u"\n\r\t\"\\"_s;
    const qsizetype place = Reste() ? kSignes.indexOf(texte_[position_++]) : -1;
    if (place < 0) Refuser(u"unknown escape behind \\"_s);
    return kSens[place];
  }

  int Rang() {
    const qsizetype debut = ++position_;
    while (Reste() && texte_[position_].isDigit()) ++position_;
    const int rang = QStringView(texte_).sliced(debut, position_ - debut).toInt();
    if (rang < 1) Refuser(u"a number from 1 is missing behind \"#\""_s);
    return rang;
  }

  int numero_;
  QString texte_;
  qsizetype position_ = 0;
};

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
    Mots mots = Ligne(numero, texte).EnMots();
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
