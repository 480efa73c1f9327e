#include "exchange/DecoupageCartes.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kCarteMax = 32 << 20;  ///< bytes of one card
constexpr qsizetype kLignesMax = 2000;     ///< properties of one card
constexpr QByteArrayView kFin("END:VCARD");

/// Where a sign stands outside quotes, or -1.
qsizetype Place(QByteArrayView texte, char signe, qsizetype depuis = 0) {
  bool cite = false;
  for (qsizetype i = depuis; i < texte.size(); ++i) {
    if (texte[i] == '"') cite = !cite;
    if (texte[i] == signe && !cite) return i;
  }
  return -1;
}

/// A parameter; in version 2.1 its value may stand alone.
std::pair<QByteArray, QByteArray> Parametre(QByteArrayView texte) {
  // How telephones write a label of the user's own: X-CUSTOM(CHARSET=...,ENCODING=...,text).
  if (texte.startsWith("X-CUSTOM("))
    return {"TYPE",
            Imprimes(texte.sliced(texte.lastIndexOf(',') + 1).toByteArray().replace(")", ""))};
  const qsizetype egal = texte.indexOf('=');
  const auto valeur = texte.sliced(egal + 1).trimmed().toByteArray().replace('"', "");
  if (egal >= 0) return {texte.first(egal).trimmed().toByteArray().toUpper(), valeur};
  const QByteArray seule = valeur.toUpper();
  const bool codage = seule == "QUOTED-PRINTABLE" || seule == "BASE64" || seule == "8BIT" ||
                      seule == "7BIT" || seule == "B";
  return {codage ? "ENCODING" : "TYPE", valeur};
}

void Refuser(Carte &carte, const QString &raison) {
  if (carte.refus.isEmpty()) carte.refus = raison;
}

/// Some programs do not fold what is in base64, and end it with an empty line.
bool EstBase64(const QByteArray &ligne) {
  return !ligne.isEmpty() && !ligne.contains(':');
}

}  // namespace

bool EstLigne(QByteArrayView ligne, QByteArrayView quoi) {
  return ligne.trimmed().compare(quoi, Qt::CaseInsensitive) == 0;
}

QByteArray Imprimes(const QByteArray &octets) {
  QByteArray clair;
  for (qsizetype i = 0; i < octets.size(); ++i) {
    bool nombre = false;
    const int code =
        octets[i] == '=' && i + 2 < octets.size() ? octets.sliced(i + 1, 2).toInt(&nombre, 16) : 0;
    clair += nombre ? static_cast<char>(code) : octets[i];
    if (nombre) i += 2;
  }
  return clair;
}

Propriete Decouper(QByteArrayView ligne) {
  Propriete propriete;
  const qsizetype deuxPoints = Place(ligne, ':');
  if (deuxPoints < 0) {
    propriete.valeur = ligne.toByteArray();
    return propriete;
  }
  propriete.valeur = ligne.sliced(deuxPoints + 1).toByteArray();
  const QByteArrayView tete = ligne.first(deuxPoints);
  qsizetype fin = Place(tete, ';');
  QByteArrayView nom = (fin < 0 ? tete : tete.first(fin)).trimmed();
  if (const qsizetype point = nom.lastIndexOf('.'); point >= 0) {
    propriete.groupe = nom.first(point).toByteArray().toLower();
    nom = nom.sliced(point + 1);
  }
  propriete.nom = nom.toByteArray().toUpper();
  while (fin >= 0) {
    const qsizetype debut = fin + 1;
    fin = Place(tete, ';', debut);
    propriete.parametres.append(
        Parametre(fin < 0 ? tete.sliced(debut) : tete.sliced(debut, fin - debut)));
  }
  return propriete;
}

DecoupageCartes::DecoupageCartes(const QString &chemin) : flux_(chemin) {
  Avancer();
}

bool DecoupageCartes::Suivante(Carte &carte) {
  while (presente_ && !EstLigne(ligne_, kDebutDeCarte)) Avancer();
  if (!presente_) return false;
  carte = {{}, numero_, {}};
  taille_ = 0;
  profondeur_ = 0;
  Avancer();
  while (Continuer(carte)) {
  }
  return true;
}

bool DecoupageCartes::Continuer(Carte &carte) {
  if (!presente_) return Refuser(carte, u"Elle est coupée par la fin du fichier."_s), false;
  const bool dedans = profondeur_ > 0;
  if (EstLigne(ligne_, kDebutDeCarte)) {
    const bool agent = !carte.proprietes.isEmpty() && carte.proprietes.last().nom == "AGENT" &&
                       carte.proprietes.last().valeur.trimmed().isEmpty();
    if (!dedans && !agent)
      return Refuser(carte, u"Elle est coupée par le début de la suivante."_s), false;
    ++profondeur_;
  } else if (EstLigne(ligne_, kFin)) {
    if (!dedans) return Avancer(), false;
    --profondeur_;
  } else {
    Prendre(carte, Deplier());
    return true;
  }
  Avancer();
  return true;
}

void DecoupageCartes::Prendre(Carte &carte, const QByteArray &ligne) {
  taille_ += ligne.size();
  if (taille_ > kCarteMax) Refuser(carte, u"Elle dépasse 32 Mo."_s);
  if (carte.proprietes.size() >= kLignesMax) Refuser(carte, u"Elle dépasse 2000 lignes."_s);
  // A refused one keeps its first lines, which name it.
  if (!carte.refus.isEmpty() || ligne.trimmed().isEmpty()) return;
  carte.proprietes.append(Decouper(ligne));
  carte.proprietes.last().imbriquee = profondeur_ > 0;
}

void DecoupageCartes::Avancer() {
  ++numero_;
  presente_ = flux_.Ligne(ligne_, kCarteMax);
}

QByteArray DecoupageCartes::Deplier() {
  QByteArray entiere = std::exchange(ligne_, {});
  Avancer();
  const qsizetype deuxPoints = Place(entiere, ':');
  const QByteArray tete = entiere.first(deuxPoints < 0 ? entiere.size() : deuxPoints).toUpper();
  if (deuxPoints >= 0 && tete.contains("QUOTED-PRINTABLE")) return DeplierImprimable(entiere);
  const bool base64 = tete.contains("BASE64") || tete.contains("ENCODING=B");
  while (presente_ && (EstSuite() || (base64 && EstBase64(ligne_)))) {
    if (entiere.size() <= kCarteMax)
      entiere += EstSuite() ? QByteArrayView(ligne_).sliced(1) : QByteArrayView(ligne_);
    Avancer();
  }
  return entiere;
}

QByteArray DecoupageCartes::DeplierImprimable(QByteArray entiere) {
  for (;;) {
    const bool coupee = entiere.endsWith('=');
    if (coupee) entiere.chop(1);
    if (!presente_ || EstLigne(ligne_, kFin) || !(coupee || EstSuite())) break;
    if (entiere.size() <= kCarteMax) entiere += ligne_;
    Avancer();
  }
  return entiere;
}
