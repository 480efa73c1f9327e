#include "exchange/FichierEchange.h"

#include "platform/Fichiers.h"

using namespace Qt::StringLiterals;

FichierEchange::FichierEchange(const QString &dossier) : chemin_(dossier + u"/Velmira.txt"_s) {}

bool FichierEchange::EstPresent() const {
  return EstFichier(chemin_);
}

std::optional<QByteArray> FichierEchange::Contenu() const {
  return LireFichier(chemin_);
}

QByteArray FichierEchange::Lire() const {
  return LireFichierPresent(chemin_);
}

void FichierEchange::Remplacer(const QByteArray &octets) const {
  RemplacerFichier(chemin_, octets);
}
