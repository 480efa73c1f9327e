#pragma once
// The lines of address cards as they stand in a file: unfolded, and cut into name, parameters and
// value.

#include "platform/FluxOctets.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <utility>

/// The first line of a card.
inline constexpr QByteArrayView kDebutDeCarte("BEGIN:VCARD");

/// Whether a line says that, in whatever case.
bool EstLigne(QByteArrayView ligne, QByteArrayView quoi);

/// A line of a card, unfolded.
struct Propriete {
  QByteArray groupe, nom;  ///< the name in capitals
  QList<std::pair<QByteArray, QByteArray>> parametres;
  QByteArray valeur;
  bool imbriquee = false;  ///< of a card within the card

  QByteArray Parametre(const char *cherche) const {
    for (const auto &[parametre, texte] : parametres)
      if (parametre == cherche) return texte;
    return {};
  }
  bool EstEnBase64() const {
    const QByteArray codage = Parametre("ENCODING").toUpper();
    return codage == "B" || codage == "BASE64";
  }
  bool EstImprimable() const {
    return Parametre("ENCODING").compare("QUOTED-PRINTABLE", Qt::CaseInsensitive) == 0;
  }
};

/// What quoted-printable stands for.
QByteArray Imprimes(const QByteArray &octets);

/// A line that is none of a card has no name.
Propriete Decouper(QByteArrayView ligne);

struct Carte {
  QList<Propriete> proprietes;  ///< between BEGIN and END; of a refused card the first ones
  qsizetype ligne = 0;          ///< of its BEGIN, from 1
  QString refus;                ///< why it cannot be taken, a sentence; empty for one that can
};

/// Cuts a file into cards and their unfolded lines. Throws `ErreurFichier` when it cannot be read.
class DecoupageCartes {
 public:
  explicit DecoupageCartes(const QString &chemin);

  /// False behind the last one.
  bool Suivante(Carte &carte);

  qint64 Lu() const { return flux_.Lu(); }
  qint64 Taille() const { return flux_.Taille(); }

 private:
  /// Takes one line of the card; false behind its last one.
  bool Continuer(Carte &carte);
  void Prendre(Carte &carte, const QByteArray &ligne);
  void Avancer();
  bool EstSuite() const { return ligne_.startsWith(' ') || ligne_.startsWith('\t'); }
  /// The line with those that go on with it.
  QByteArray Deplier();
  QByteArray DeplierImprimable(QByteArray entiere);

  FluxOctets flux_;
  QByteArray ligne_;  ///< the next one
  bool presente_ = true;
  qsizetype numero_ = 0, taille_ = 0;
  int profondeur_ = 0;  ///< of cards within the card
};
