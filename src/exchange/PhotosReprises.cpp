#include "exchange/PhotosReprises.h"

#include "directory/FichierPhoto.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

PhotosReprises::~PhotosReprises() {
  for (const auto &ecrite : std::as_const(ecrites_))
    Ignorer(
        [&] { EffacerFichier(QFileInfo::exists(ecrite.first) ? ecrite.first : ecrite.second); });
}

QString PhotosReprises::Ecrire(const QString &nom, const PhotoImportee &photo) {
  if (ecrites_.isEmpty()) CreerDossier(dossier_);
  QString debut = DebutNomFichier(nom);
  if (debut.isEmpty()) debut = u"Photo"_s;
  QString chemin;
  int &numero = numeros_[debut.toLower()];  // some disks know no other names
  for (;;) {
    ++numero;
    const QString suite = numero == 1 ? QString() : u' ' + QString::number(numero);
    chemin = u"%1/%2%3.%4"_s.arg(dossier_, debut, suite, photo.genre);
    if (!EstPresent(chemin)) break;
    // One that was undone leaves its pictures, for whoever takes it back.
    if (LirePhoto(chemin) == photo.octets) return chemin;
  }
  ecrites_.append({CreerProvisoire(dossier_, photo.octets), chemin});
  provisoires_.insert(chemin, ecrites_.constLast().first);
  return chemin;
}

std::optional<QByteArray> PhotosReprises::Lire(const QString &chemin) const {
  return LirePhoto(provisoires_.value(chemin, chemin));
}

void PhotosReprises::Nommer() const {
  NommerProvisoires(ecrites_);
}
