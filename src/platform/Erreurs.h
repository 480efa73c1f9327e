#pragma once
// What a failing file or database throws, and the two ways of going on after it.

#include "platform/Boites.h"

#include <QString>

#include <exception>

/// A failure of a file or of the database, with words that can be shown to the user.
class Erreur : public std::exception {
 public:
  explicit Erreur(QString texte) : texte_(std::move(texte)), octets_(texte_.toUtf8()) {}
  const QString &Texte() const { return texte_; }
  const char *what() const noexcept override { return octets_.constData(); }

 private:
  QString texte_;
  QByteArray octets_;
};

class ErreurFichier : public Erreur {
 public:
  using Erreur::Erreur;
};

/// Runs a step whose failure is of no importance.
template <typename Etape>
void Ignorer(Etape &&etape) {
  try {
    etape();
  } catch (const Erreur &) {
  }
}

/// Runs a step whose failure is shown in the default error box; what follows goes on. Gives false
/// when the step failed.
template <typename Etape>
bool Signaler(Boites &boites, Etape &&etape) {
  try {
    etape();
    return true;
  } catch (const Erreur &erreur) {
    boites.Erreur(erreur.Texte());
  } catch (const std::exception &erreur) {
    boites.Erreur(
        QStringLiteral("Cette commande n'a pas pu être menée à bien.\nCe qui était enregistré est "
                       "intact. Relancez Velmira avant de recommencer.\n\nDétail technique : %1")
            .arg(QString::fromUtf8(erreur.what())));
  }
  return false;
}
