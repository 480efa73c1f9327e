#include "exchange/GenreFichier.h"

#include "exchange/LecteurCartes.h"
#include "exchange/LecteurCsv.h"
#include "platform/FluxOctets.h"
#include "storage/SourceJet.h"

#include <QDir>

using namespace Qt::StringLiterals;

GenreFichier GenreDe(const QString &chemin) {
  FluxOctets flux(chemin);
  const QByteArrayView debut = flux.Debut();
  if (EstJet(chemin) || debut.startsWith("SQLite format 3")) return GenreFichier::Base;
  if (SontDesCartes(debut)) return GenreFichier::Cartes;
  return EstUnTableau(debut) ? GenreFichier::Tableau : GenreFichier::Inconnu;
}

QString TexteInconnu(const QString &chemin) {
  return u"Le fichier « %1 » ne contient rien que Velmira sache reprendre.\nIl faut des cartes "
         "de visite (vCard, .vcf), un tableau de texte (.csv), dont la première ligne a au moins "
         "deux colonnes, ou une ancienne base de données (.mdb)."_s.arg(
             QDir::toNativeSeparators(chemin));
}
