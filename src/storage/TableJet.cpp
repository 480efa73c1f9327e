#include "storage/TableJet.h"

#include <QString>
#include <QtEndian>

namespace {

constexpr qsizetype kTete = jet::kTete;
constexpr qsizetype kParLigne = 64;  // what a row costs besides its bytes

/// Calls `visiteur` with the kind and the bytes of each field. False when they do not fill the row.
template <typename Visiteur>
bool ParcourirChamps(QByteArrayView corps, int colonnes, Visiteur &&visiteur) {
  for (int i = 0; i < colonnes; ++i) {
    if (corps.isEmpty()) return false;
    const auto genre = static_cast<jet::Champ>(corps.front());
    if (genre > jet::Champ::Illisible) return false;
    corps = corps.sliced(1);
    qsizetype taille = genre == jet::Champ::Nombre ? sizeof(qint64) : 0;
    if (genre == jet::Champ::Texte) {
      if (corps.size() < 4) return false;
      taille = qFromBigEndian<quint32>(corps.data());
      corps = corps.sliced(4);
    }
    if (taille > corps.size()) return false;
    visiteur(genre, corps.first(taille));
    corps = corps.sliced(taille);
  }
  return corps.isEmpty();
}

QVariant Valeur(jet::Champ genre, QByteArrayView octets) {
  if (genre == jet::Champ::Nombre) return qFromBigEndian<qint64>(octets.data());
  if (genre != jet::Champ::Texte) return QVariant(QMetaType(QMetaType::QString));
  const QString texte = QString::fromUtf8(octets);
  return texte.isNull() ? QStringLiteral("") : texte;
}

}  // namespace

bool TableJet::Ajouter(QByteArrayView octets) {
  if (refusee_) return false;
  tampon_.append(octets);
  qsizetype debut = 0;
  while (!refusee_ && tampon_.size() - debut >= kTete) {
    const char *tete = tampon_.constData() + debut;
    const qsizetype taille = qFromBigEndian<quint32>(tete + 1);
    tropGrande_ = taille > limite_ - pris_ - kParLigne;
    refusee_ = tropGrande_;
    if (refusee_ || tampon_.size() - debut - kTete < taille) break;
    pris_ += taille + kParLigne;
    refusee_ = !Traiter(static_cast<jet::Trame>(*tete), {tete + kTete, taille});
    debut += kTete + taille;
  }
  tampon_.remove(0, debut);
  return !refusee_;
}

bool TableJet::Traiter(jet::Trame trame, QByteArrayView corps) {
  if (finie_) return false;
  switch (trame) {
    case jet::Trame::Absente:
      absente_ = finie_ = colonnes_ == 0 && corps.isEmpty();
      return absente_;
    case jet::Trame::Entete:
      return PrendreEntete(corps);
    case jet::Trame::Ligne:
      return PrendreLigne(corps);
    case jet::Trame::Fin:
      return PrendreFin(corps);
  }
  return false;
}

bool TableJet::PrendreEntete(QByteArrayView corps) {
  if (colonnes_ != 0 || corps.size() != 6) return false;
  colonnes_ = qFromBigEndian<quint16>(corps.data());
  annoncees_ = qFromBigEndian<quint32>(corps.data() + 2);
  return colonnes_ > 0 && colonnes_ <= static_cast<int>(jet::kColonnesMax);
}

bool TableJet::PrendreLigne(QByteArrayView corps) {
  qsizetype illisibles = 0;
  const bool juste = ParcourirChamps(corps, colonnes_, [&](jet::Champ genre, QByteArrayView) {
    illisibles += genre == jet::Champ::Illisible ? 1 : 0;
  });
  if (colonnes_ == 0 || !juste) return false;
  illisibles_ += illisibles;
  lignes_.append(corps.toByteArray());
  return true;
}

bool TableJet::PrendreFin(QByteArrayView corps) {
  if (colonnes_ == 0 || corps.size() != 1) return false;
  abimee_ = corps.front() != 0;
  finie_ = true;
  return true;
}

bool TableJet::Entiere() const {
  return finie_ && !refusee_ && !abimee_ && illisibles_ == 0 && Lignes() >= annoncees_;
}

QList<QVariant> TableJet::Ligne(qsizetype rang) const {
  QList<QVariant> champs;
  champs.reserve(colonnes_);
  ParcourirChamps(lignes_[rang], colonnes_, [&](jet::Champ genre, QByteArrayView octets) {
    champs.append(Valeur(genre, octets));
  });
  return champs;
}
