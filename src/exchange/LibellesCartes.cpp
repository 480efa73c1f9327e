#include "exchange/LibellesCartes.h"

#include <QHash>
#include <QSet>

using namespace Qt::StringLiterals;

QString LibelleDePropriete(const QByteArray &nom) {
  static const QHash<QByteArray, QString> kLibelles{
      {"NICKNAME", u"Surnom"_s},
      {"TITLE", u"Fonction"_s},
      {"ROLE", u"Profession"_s},
      {"ANNIVERSARY", u"Anniversaire de mariage"_s},
      {"X-ANNIVERSARY", u"Anniversaire de mariage"_s},
      {"X-EVOLUTION-ANNIVERSARY", u"Anniversaire de mariage"_s},
      {"X-KADDRESSBOOK-X-ANNIVERSARY", u"Anniversaire de mariage"_s},
      {"X-MS-ANNIVERSARY", u"Anniversaire de mariage"_s},
      {"X-MS-SPOUSE", u"Conjoint"_s},
      {"X-MS-CHILD", u"Enfant"_s},
      {"X-MS-MANAGER", u"Responsable"_s},
      {"X-MS-ASSISTANT", u"Assistant"_s},
      {"X-MS-INTERESTS", u"Loisirs"_s},
      {"X-MS-IMADDRESS", u"Messagerie instantanée"_s},
      {"DEATHDATE", u"Décès"_s},
      {"BIRTHPLACE", u"Lieu de naissance"_s},
      {"GENDER", u"Genre"_s},
      {"TZ", u"Fuseau horaire"_s},
      {"GEO", u"Position"_s},
      {"LANG", u"Langue"_s},
      {"RELATED", u"Relation"_s},
      {"X-ABRELATEDNAMES", u"Relation"_s},
      {"X-ABDATE", u"Date"_s},
      {"X-SPOUSE", u"Conjoint"_s},
      {"X-EVOLUTION-SPOUSE", u"Conjoint"_s},
      {"X-KADDRESSBOOK-X-SPOUSENAME", u"Conjoint"_s},
      {"X-MANAGER", u"Responsable"_s},
      {"X-EVOLUTION-MANAGER", u"Responsable"_s},
      {"X-KADDRESSBOOK-X-MANAGERSNAME", u"Responsable"_s},
      {"X-ASSISTANT", u"Assistant"_s},
      {"X-EVOLUTION-ASSISTANT", u"Assistant"_s},
      {"X-KADDRESSBOOK-X-ASSISTANTSNAME", u"Assistant"_s},
      {"X-MAIDENNAME", u"Nom de jeune fille"_s},
      {"X-PHONETIC-FIRST-NAME", u"Prénom phonétique"_s},
      {"X-PHONETIC-LAST-NAME", u"Nom phonétique"_s},
      {"IMPP", u"Messagerie instantanée"_s},
      {"X-AIM", u"AIM"_s},
      {"X-ICQ", u"ICQ"_s},
      {"X-JABBER", u"Jabber"_s},
      {"X-MSN", u"MSN"_s},
      {"X-YAHOO", u"Yahoo"_s},
      {"X-SKYPE", u"Skype"_s},
      {"X-SKYPE-USERNAME", u"Skype"_s},
      {"X-GTALK", u"Google Talk"_s},
      {"X-SOCIALPROFILE", u"Réseau social"_s},
      {"SOCIALPROFILE", u"Réseau social"_s},
      {"AGENT", u"Agent"_s},
      {"KEY", u"Clé"_s},
      {"LOGO", u"Logo"_s},
      {"SOUND", u"Son"_s},
      {"PHOTO", u"Photo"_s},
      {"FN", u"Nom complet"_s},
      {"N", u"Nom"_s},
      {"ORG", u"Société"_s},
      {"ADR", u"Adresse"_s},
      {"LABEL", u"Adresse"_s},
      {"X-ABADR", u"Adresse"_s},
      {"TEL", u"Téléphone"_s},
      {"EMAIL", u"Adresse email"_s},
      {"URL", u"Adresse web"_s},
      {"BDAY", u"Né(e) le"_s},
      {"NOTE", u"Note"_s},
      {"CATEGORIES", u"Catégories"_s},
      {"KIND", u"Sorte"_s},
      {"MEMBER", u"Membre"_s},
      {"SORT-STRING", u"Classé sous"_s},
      {"X-EVOLUTION-FILE-AS", u"Classé sous"_s},
      {"CALURI", u"Calendrier"_s},
      {"FBURL", u"Disponibilités"_s},
      {"X-ABLABEL", u"Libellé"_s},
      {"", u"Ligne sans nom"_s}};
  return kLibelles.value(nom, QString::fromLatin1(nom));
}

QString LibelleDeGroupe(QString libelle) {
  static const QHash<QString, QString> kConnus{{u"Anniversary"_s, u"Anniversaire de mariage"_s},
                                               {u"Spouse"_s, u"Conjoint"_s},
                                               {u"Partner"_s, u"Partenaire"_s},
                                               {u"Mother"_s, u"Mère"_s},
                                               {u"Father"_s, u"Père"_s},
                                               {u"Parent"_s, u"Parent"_s},
                                               {u"Brother"_s, u"Frère"_s},
                                               {u"Sister"_s, u"Sœur"_s},
                                               {u"Child"_s, u"Enfant"_s},
                                               {u"Son"_s, u"Fils"_s},
                                               {u"Daughter"_s, u"Fille"_s},
                                               {u"Friend"_s, u"Ami"_s},
                                               {u"Assistant"_s, u"Assistant"_s},
                                               {u"Manager"_s, u"Responsable"_s}};
  if (!libelle.startsWith(u"_$!<"_s) || !libelle.endsWith(u">!$_"_s)) return libelle;
  libelle = libelle.sliced(4).chopped(4);
  return kConnus.value(libelle, libelle);
}

bool EstTechnique(const Propriete &propriete) {
  static const QSet<QByteArray> kTechniques{"VERSION",
                                            "PRODID",
                                            "REV",
                                            "UID",
                                            "PROFILE",
                                            "CLIENTPIDMAP",
                                            "X-ABUID",
                                            "X-MOZILLA-HTML",
                                            "X-EVOLUTION-WEBDAV-ETAG",
                                            "X-IMAGETYPE",
                                            "X-IMAGEHASH",
                                            "X-SHARED-PHOTO-DISPLAY-PREF",
                                            "X-MS-OL-DEFAULT-POSTAL-ADDRESS",
                                            "X-MS-OL-DESIGN"};
  const auto vaut = [&propriete](const char *texte) {
    return propriete.valeur.trimmed().compare(texte, Qt::CaseInsensitive) == 0;
  };
  return kTechniques.contains(propriete.nom) ||
         (propriete.nom == "X-ABADR" && propriete.valeur.trimmed().size() == 2) ||
         (propriete.nom == "KIND" && vaut("individual")) ||
         (propriete.nom == "CLASS" && vaut("public"));
}
