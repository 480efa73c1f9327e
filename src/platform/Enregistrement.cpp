#include "platform/Enregistrement.h"

#include "platform/PageDeCode.h"

using namespace Qt::StringLiterals;

namespace {

bool EstFinDeLigne(QChar c) {
  return c == u'\r' || c == u'\n';
}

}  // namespace

LecteurEnregistrement::LecteurEnregistrement(const QByteArray &octets)
    : texte_(DepuisPageDeCode(octets)) {}

void LecteurEnregistrement::SauterBlancs() {
  while (position_ < texte_.size() && (texte_[position_] == u' ' || texte_[position_] == u'\t'))
    ++position_;
}

std::optional<QString> LecteurEnregistrement::Suivant() {
  SauterBlancs();
  if (position_ >= texte_.size()) return std::nullopt;

  QString valeur;
  if (texte_[position_] == u'"') {
    const auto fin = texte_.indexOf(u'"', position_ + 1);
    const auto apres = fin < 0 ? texte_.size() : fin;
    valeur = texte_.mid(position_ + 1, apres - position_ - 1);
    position_ = fin < 0 ? apres : fin + 1;
    while (position_ < texte_.size() && texte_[position_] != u',' &&
           !EstFinDeLigne(texte_[position_]))
      ++position_;
  } else {
    const auto debut = position_;
    while (position_ < texte_.size() && texte_[position_] != u',' &&
           !EstFinDeLigne(texte_[position_]))
      ++position_;
    valeur = texte_.mid(debut, position_ - debut).trimmed();
  }

  if (position_ <
      texte_.size()) {  // the separator: a comma, or a line end of one or two characters
    if (texte_[position_] == u'\r' && texte_.mid(position_ + 1, 1) == u"\n"_s) ++position_;
    ++position_;
  }
  if (valeur.isNull()) valeur = u""_s;
  return valeur;
}

void LecteurEnregistrement::Lire(QString &cible) {
  if (auto valeur = Suivant()) cible = std::move(*valeur);
}

std::optional<std::int64_t> LecteurEnregistrement::Nombre() {
  const auto valeur = Suivant();
  if (!valeur) return std::nullopt;
  bool lisible = false;
  const qlonglong nombre = valeur->toLongLong(&lisible);
  if (!lisible) return std::nullopt;
  return nombre;
}

void RedacteurEnregistrement::Separer() {
  if (!ligne_.isEmpty()) ligne_ += u',';
}

void RedacteurEnregistrement::Ecrire(const QString &texte) {
  Separer();
  ligne_ += u'"' + texte + u'"';
}

void RedacteurEnregistrement::Ecrire(std::int64_t nombre) {
  Separer();
  ligne_ += QString::number(nombre);
}

QByteArray RedacteurEnregistrement::Octets() const {
  return VersPageDeCode(ligne_ + u"\r\n"_s);
}
