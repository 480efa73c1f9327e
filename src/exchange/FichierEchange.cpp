#include "exchange/FichierEchange.h"

#include "platform/Erreurs.h"
#include "platform/Fichiers.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

FichierEchange::FichierEchange(const QString &dossier) : chemin_(dossier + u"/Velmira.txt"_s) {}

bool FichierEchange::EstPresent() const {
  return QFileInfo(chemin_).isFile();
}

std::optional<QByteArray> FichierEchange::Contenu() const {
  return LireFichier(chemin_);
}

QByteArray FichierEchange::Lire() const {
  if (auto octets = Contenu()) return *std::move(octets);
  throw ErreurFichier(
      u"Le fichier « %1 » ne peut pas être lu."_s.arg(QDir::toNativeSeparators(chemin_)));
}

void FichierEchange::Remplacer(const QByteArray &octets) const {
  RemplacerFichier(chemin_, octets);
}
