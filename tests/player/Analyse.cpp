#include "player/Analyse.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

class AnalyseLigne {
 public:
  AnalyseLigne(int numero, QString texte) : numero_(numero), texte_(std::move(texte)) {}

  std::optional<Mot> Suivant() {
    while (Reste() && texte_[position_].isSpace()) ++position_;
    if (!Reste() || Commentaire()) return std::nullopt;
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

 private:
  bool Reste() const { return position_ < texte_.size(); }
  bool Commentaire() const {
    return texte_[position_] == u'#' &&
           (position_ == 0 || position_ + 1 == texte_.size() || texte_[position_ + 1].isSpace());
  }
  [[noreturn]] void Refuser(const QString &raison) const { throw ErreurAnalyse{numero_, raison}; }

  QString Cite() {
    QString texte;
    for (;;) {
      if (!Reste()) Refuser(u"the closing quote is missing"_s);
      const QChar signe = texte_[position_++];
      if (signe == u'"') return texte;
      texte += signe == u'\\' ? Echappe() : signe;
    }
  }

  QChar Echappe() {
    const QChar signe = Reste() ? texte_[position_++] : QChar();
    switch (signe.unicode()) {
      case u'n':
        return u'\n';
      case u'r':
        return u'\r';
      case u't':
        return u'\t';
      case u'"':
      case u'\\':
        return signe;
      default:
        Refuser(u"unknown escape \\%1"_s.arg(signe));
    }
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

}  // namespace

std::optional<int> Mot::Indice() const {
  bool nombre = false;
  const int indice = QStringView(texte).mid(1).toInt(&nombre);
  return !cite && texte.startsWith(u'#') && nombre ? std::optional(indice) : std::nullopt;
}

QList<Commande> Analyser(const QByteArray &scenario) {
  QList<Commande> commandes;
  const QStringList lignes = QString::fromUtf8(scenario).split(u'\n');
  for (int i = 0; i < lignes.size(); ++i) {
    const QString texte = lignes[i].trimmed();
    AnalyseLigne ligne(i + 1, texte);
    const auto verbe = ligne.Suivant();
    if (!verbe) continue;
    Commande commande{i + 1, texte, verbe->texte, {}};
    while (const auto mot = ligne.Suivant()) commande.mots.append(*mot);
    commandes.append(commande);
  }
  return commandes;
}
