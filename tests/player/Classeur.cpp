#include "player/Classeur.h"

#include "player/Echec.h"
#include "player/Verbes.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// Runs the reader and gives what it prints.
QByteArray SortieDuLecteur(const QString &chemin) {
  constexpr int kLimite = 50'000;  // milliseconds
  QProcess lecteur;
  // The system's, whose package the reading library is.
  lecteur.start(u"/usr/bin/python3"_s, {QStringLiteral(VELMIRA_LIRE_CLASSEUR), chemin});
  Exiger(lecteur.waitForStarted(), u"the reader of workbooks needs /usr/bin/python3"_s);
  Exiger(lecteur.waitForFinished(kLimite), u"the reader of workbooks does not come to an end"_s);
  // The last line of its trace says what is wrong: an unreadable file, a missing library.
  Exiger(lecteur.exitStatus() == QProcess::NormalExit && lecteur.exitCode() == 0,
         u"the workbook cannot be read: "_s +
             QString::fromUtf8(lecteur.readAllStandardError()).trimmed().section(u'\n', -1));
  return lecteur.readAllStandardOutput();
}

/// Of the workbook that the program opened last.
const LecteurClasseur &Lire(Scene &scene) {
  scene.lecteurClasseur.Ouvrir(scene.coquille.Classeur());
  return scene.lecteurClasseur;
}

template <QString (LecteurClasseur::*lire)(const QString &) const>
void VerifierCellule(Scene &scene, const Mots &mots) {
  ExigerEgal(mots[0].texte, mots[1].texte, (Lire(scene).*lire)(mots[0].texte));
}

template <bool attendu>
void VerifierGras(Scene &scene, const Mots &mots) {
  const auto nom = [](bool gras) { return gras ? u"bold"_s : u"not bold"_s; };
  ExigerEgal(mots[0].texte, nom(attendu), nom(Lire(scene).EstGras(mots[0].texte)));
}

}  // namespace

void LecteurClasseur::Ouvrir(const QString &chemin) {
  Exiger(!chemin.isEmpty(), u"an opened workbook expected, none found"_s);
  // Also of one that has been read already: it stands open on the user's screen.
  Exiger(QFileInfo(chemin).isFile(),
         u"the opened workbook %1 expected, it is no longer there"_s.arg(chemin));
  if (chemin == chemin_) return;
  const QJsonDocument lu = QJsonDocument::fromJson(SortieDuLecteur(chemin));
  Exiger(lu.isObject(), u"JSON expected from the reader of workbooks, something else found"_s);
  lu_ = lu.object();
  chemin_ = chemin;
}

QString LecteurClasseur::Feuilles() const {
  return lu_[u"feuilles"].toVariant().toStringList().join(u", ");
}

qsizetype LecteurClasseur::NombreLignes() const {
  return lu_[u"nombre"].toInt(-1);
}

QJsonObject LecteurClasseur::Cellule(const QString &nom) const {
  static const QRegularExpression kNom(u"^[A-Z]+[1-9][0-9]*$"_s);
  Exiger(kNom.match(nom).hasMatch(), u"the name of a cell expected, \"%1\" found"_s.arg(nom));
  return lu_[u"cellules"][nom].toObject();
}

QString LecteurClasseur::Texte(const QString &cellule) const {
  const QJsonObject lue = Cellule(cellule);
  const QString texte = lue[u"texte"].toString();
  Exiger(texte.isEmpty() || lue[u"type"].toString() == u"s"_s,
         u"%1: a text expected, a formula or a number found, \"%2\""_s.arg(cellule, texte));
  return texte;
}

bool LecteurClasseur::EstGras(const QString &cellule) const {
  return Cellule(cellule)[u"gras"].toBool();
}

QString LecteurClasseur::Fond(const QString &cellule) const {
  return Cellule(cellule)[u"fond"].toString();
}

QString LecteurClasseur::Couleur(const QString &cellule) const {
  return Cellule(cellule)[u"couleur"].toString();
}

QString LecteurClasseur::Alignement(const QString &cellule) const {
  const QString alignement = Cellule(cellule)[u"horizontal"].toString();
  if (alignement == u"center"_s) return u"centre"_s;
  return alignement == u"right"_s ? u"droite"_s : u"gauche"_s;
}

QList<Verbe> VerbesDuClasseur() {
  using S = Scene;
  using M = Mots;
  using L = LecteurClasseur;
  return {
      {u"classeur feuille"_s, 1, 1,
       [](S &s, const M &m) { ExigerEgal(u"sheets"_s, m[0].texte, Lire(s).Feuilles()); }},
      {u"classeur lignes"_s, 1, 1,
       [](S &s, const M &m) {
         ExigerEgal(u"rows of the workbook"_s, QString::number(Nombre(m[0])),
                    QString::number(Lire(s).NombreLignes()));
       }},
      {u"classeur cellule"_s, 2, 2, VerifierCellule<&L::Texte>},
      {u"classeur gras"_s, 1, 1, VerifierGras<true>},
      {u"classeur maigre"_s, 1, 1, VerifierGras<false>},
      {u"classeur fond"_s, 2, 2, VerifierCellule<&L::Fond>},
      {u"classeur couleur"_s, 2, 2, VerifierCellule<&L::Couleur>},
      {u"classeur alignement"_s, 2, 2, VerifierCellule<&L::Alignement>},
  };
}
