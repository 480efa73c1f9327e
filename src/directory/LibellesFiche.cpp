#include "directory/LibellesFiche.h"

#include "address/LibellesAdresse.h"

#include <QStringList>

using namespace Qt::StringLiterals;

const Libelles<Correspondant> &LibellesFiche() {
  using C = Correspondant;
  static const Libelles<C> kLibelles = [] {
    Libelles<C> libelles{
        {Ordinal(&C::NomVelmira), {u"Nom et prénom dans la liste"_s}},
        {Ordinal(&C::Categories),
         {u"Catégories"_s,
          [](const C &fiche) {
            return fiche.Categories.split(u'*', Qt::SkipEmptyParts).join(u", "_s);
          }}},
        {Ordinal(&C::Tel), {u"Téléphone domicile"_s}},
        {Ordinal(&C::TelTravail), {u"Téléphone travail"_s}},
        {Ordinal(&C::Portable), {u"Portable"_s}},
        {Ordinal(&C::Fax), {u"Fax"_s}},
        {Ordinal(&C::Mail), {u"Adresse email"_s}},
        {Ordinal(&C::Web), {u"Adresse web"_s}},
        {Ordinal(&C::DDN), {u"Né(e) le"_s}},
        {Ordinal(&C::Photo), {u"Photo"_s}},
        {Ordinal(&C::ListeRougeTel), {u"Liste rouge domicile"_s}},
        {Ordinal(&C::ListeRougeTravail), {u"Liste rouge travail"_s}},
        {Ordinal(&C::AdresseImportee), {u"Adresse importée"_s}},
        {Ordinal(&C::Commentaires), {u"Notes"_s}},
        {Ordinal(&C::DataProt), {u"Données protégées en cas d'utilisation réseau"_s}}};
    libelles.merge(LibellesAdresse<C>());
    return libelles;
  }();
  return kLibelles;
}
