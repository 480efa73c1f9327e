#include "alerts/MemoireAlertes.h"

#include "platform/Fichiers.h"
#include "platform/Sections.h"

#include <QCryptographicHash>
#include <QStringList>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kSansLimite = std::numeric_limits<qint32>::max();
const QString kRegarde = u"Regarde"_s;
const QString kDites = u"Dites"_s;

/// Paths and names may hold what a section's name cannot.
QString NomSection(const QString &base, const QString &utilisateur) {
  const QByteArray de = (base + u'\n' + utilisateur).toUtf8();
  return QString::fromLatin1(
      QCryptographicHash::hash(de, QCryptographicHash::Sha256).toHex().left(16));
}

QDate JourLu(const QString &texte) {
  return QDate::fromString(texte, u"yyyyMMdd"_s);
}

QString JourEcrit(QDate jour) {
  return jour.toString(u"yyyyMMdd"_s);
}

}  // namespace

MemoireAlertes::MemoireAlertes(const QString &appPath, const QString &base,
                               const QString &utilisateur)
    : chemin_(appPath + u"/Vigilo.ini"_s), section_(NomSection(base, utilisateur)) {
  const Sections sections(LireFichier(chemin_).value_or(QByteArray()));
  regarde_ = JourLu(sections.LireCle(section_, kRegarde, kSansLimite));
  Lire(sections.LireCle(section_, kDites, kSansLimite));
}

void MemoireAlertes::Lire(const QString &texte) {
  for (const QString &mot : texte.split(u' ', Qt::SkipEmptyParts)) {
    const QStringList parts = mot.split(u':');  // key, day, when it was seen
    const QDate jour = JourLu(parts.value(1));
    if (jour.isValid()) dites_.insert(parts[0].toLongLong(), {jour, JourLu(parts.value(2))});
  }
}

bool MemoireAlertes::Dite(Cle evenement, QDate jour) const {
  return dites_.value(evenement).jour == jour;
}

bool MemoireAlertes::Vue(Cle evenement, QDate jour, QDate aujourdhui) const {
  const Dit dit = dites_.value(evenement);
  return dit.jour == jour && dit.vueLe.isValid() && (aujourdhui < jour || dit.vueLe >= jour);
}

void MemoireAlertes::NoterDite(Cle evenement, QDate jour) {
  if (!Dite(evenement, jour)) dites_.insert(evenement, {jour, {}});
}

void MemoireAlertes::NoterVue(Cle evenement, QDate jour, QDate aujourdhui) {
  dites_.insert(evenement, {jour, aujourdhui});
}

void MemoireAlertes::NoterRegard(QDate aujourdhui) {
  if (regarde_.isValid() && aujourdhui < regarde_) return;
  regarde_ = aujourdhui;
  dites_.removeIf([&](const auto &dit) { return dit->jour < aujourdhui; });
}

QString MemoireAlertes::Dites() const {
  QStringList mots;
  for (auto dit = dites_.cbegin(); dit != dites_.cend(); ++dit)
    mots.append(QString::number(dit.key()) + u':' + JourEcrit(dit->jour) + u':' +
                JourEcrit(dit->vueLe));
  std::ranges::sort(mots);
  return mots.join(u' ');
}

void MemoireAlertes::Ecrire() const {
  const QByteArray avant = LireFichier(chemin_).value_or(QByteArray());
  Sections sections(avant);
  sections.EcrireCle(section_, kRegarde, JourEcrit(regarde_));
  sections.EcrireCle(section_, kDites, Dites());
  if (sections.Octets() != avant) RemplacerFichier(chemin_, sections.Octets());
}
