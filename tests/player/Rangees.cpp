// The verbs of rows, which come beside the program, as from another user.

#include "player/Verbes.h"
#include "storage/Requete.h"

#include <QMap>

namespace {

/// The first column of what a statement finds. What the engine refuses fails the scenario.
QStringList Valeurs(const Scene &scene, const QString &texte, const QStringList &liees = {}) {
  try {
    Base base;
    base.Ouvrir(scene.monde.Base());
    Requete requete(base, texte);
    for (const QString &valeur : liees) requete.Lier(valeur);
    QStringList valeurs;
    while (requete.Suivante())
      valeurs.append(requete.Nul(0) ? QString() : requete.Texte(0) + u""_s);
    return valeurs;
  } catch (const Erreur &erreur) {
    throw Echec{erreur.Texte()};
  }
}

/// Changes one row. A number as a text becomes a number by the affinity of its column.
void Changer(const Scene &scene, const QString &texte, const QStringList &liees) {
  Exiger(Valeurs(scene, texte + u" RETURNING rowid"_s, liees).size() == 1,
         u"a row to change expected, none of this key found"_s);
}

/// The values of `Field=value` words by the names of their fields.
QMap<QString, QString> Champs(const Mots &mots) {
  QMap<QString, QString> valeurs;
  for (const Mot &mot : mots) {
    Exiger(mot.egal > 0, u"Field=\"value\" expected, \"%1\" found"_s.arg(mot.texte));
    const QString valeur = mot.texte.mid(mot.egal + 1);
    valeurs[mot.texte.left(mot.egal)] = mot.cite              ? valeur + u""_s
                                        : valeur == u"nul"_s  ? QString()
                                        : valeur == u"vrai"_s ? u"1"_s
                                        : valeur == u"faux"_s ? u"0"_s
                                                              : valeur + u""_s;
  }
  return valeurs;
}

/// A field that is not named is the empty text, 0 or faux.
void Ajouter(Scene &scene, const Mots &mots) {
  QMap<QString, QString> champs;
  const QString autres = u"SELECT name FROM pragma_table_info(?) WHERE pk = 0 AND type %1 'TEXT'"_s;
  for (const QString &champ : Valeurs(scene, autres.arg(u"="), {mots[0].texte}))
    champs[champ] = u""_s;
  for (const QString &champ : Valeurs(scene, autres.arg(u"<>"), {mots[0].texte}))
    champs[champ] = u"0"_s;
  champs.insert(Champs(mots.sliced(1)));
  Changer(scene,
          u"INSERT INTO [%1] ([%2]) VALUES (%3?)"_s.arg(mots[0].texte, champs.keys().join(u"], ["),
                                                        u"?, "_s.repeated(champs.size() - 1)),
          champs.values());
}

void Modifier(Scene &scene, const Mots &mots) {
  const auto champs = Champs(mots.sliced(2));
  Changer(scene,
          u"UPDATE [%1] SET [%2] = ? WHERE rowid = ?"_s.arg(mots[0].texte,
                                                            champs.keys().join(u"] = ?, [")),
          champs.values() + QStringList{mots[1].texte});
}

void Supprimer(Scene &scene, const Mots &mots) {
  Changer(scene, u"DELETE FROM [%1] WHERE rowid = ?"_s.arg(mots[0].texte), {mots[1].texte});
}

/// Of the row with the key that follows the table. A yes or no is 1 or 0, null a null text.
QString Champ(const Scene &scene, const Mots &mots, const QString &champ) {
  const QStringList valeurs = Valeurs(
      scene, u"SELECT [%1] FROM [%2] WHERE rowid = ?"_s.arg(champ, mots[0].texte), {mots[1].texte});
  Exiger(!valeurs.isEmpty(),
         u"table %1: row %2 expected, none found"_s.arg(mots[0].texte, mots[1].texte));
  return valeurs[0];
}

/// `Field "value"` or `Field=value`, any number of them.
void VerifierChamps(Scene &scene, const Mots &mots) {
  for (qsizetype i = 2; i < mots.size(); ++i) {
    const Mot &mot = mots[i];
    const bool egal = mot.egal > 0;
    Exiger(egal || i + 1 < mots.size(), u"a value of %1 expected"_s.arg(mot.texte));
    const QString nom = egal ? mot.texte.left(mot.egal) : mot.texte;
    QString attendu = egal ? mot.texte.mid(mot.egal + 1) : mots[++i].texte;
    const QString trouve = Champ(scene, mots, nom);
    if (egal && !mot.cite && attendu == u"nul"_s)
      attendu = trouve.isNull() ? u""_s : u"nul"_s;
    else if (attendu == u"vrai"_s || attendu == u"faux"_s)
      attendu = attendu == u"vrai"_s ? u"1"_s : u"0"_s;
    ExigerEgal(nom, attendu, trouve);
  }
}

void VerifierColonne(Scene &scene, const Mots &mots) {
  QStringList valeurs =
      Valeurs(scene, u"SELECT [%1] FROM [%2] ORDER BY rowid"_s.arg(mots[1].texte, mots[0].texte));
  for (QString &valeur : valeurs)
    if (valeur.isNull()) valeur = u"nul"_s;
  ExigerListe(mots[0].texte + u'.' + mots[1].texte, Textes(mots, 2), valeurs);
}

/// Another program that keeps the database to itself.
Verbe Tenir(const QString &nom, const QString &comment) {
  return {nom, 0, 0, [comment](S &s, const M &) {
            s.autreEcrivain = std::make_unique<Base>();
            s.autreEcrivain->Ouvrir(s.monde.Base());
            Requete(*s.autreEcrivain, comment).Executer();
          }};
}

}  // namespace

QList<Verbe> VerbesDesRangees() {
  return {
      {u"ligne"_s, 1, kSansLimite, Ajouter},
      {u"champ-ecrit"_s, 3, kSansLimite, Modifier},
      {u"ligne-efface"_s, 2, 2, Supprimer},
      Valeur(u"lignes"_s, 2,
             [](S &s, const M &m) {
               return Valeurs(s, u"SELECT count(*) FROM [%1]"_s.arg(m[0].texte)).value(0);
             }),
      {u"champ"_s, 3, kSansLimite, VerifierChamps},
      {u"nul"_s, 3, 3,
       [](S &s, const M &m) {
         Exiger(Champ(s, m, m[2].texte).isNull(), u"%1: nul expected"_s.arg(m[2].texte));
       }},
      {u"colonne"_s, 2, kSansLimite, VerifierColonne},
      Tenir(u"base-occupee"_s, u"BEGIN IMMEDIATE"_s),
      Tenir(u"base-bloquee"_s, u"BEGIN EXCLUSIVE"_s),
      {u"base-libre"_s, 0, 0, [](S &s, const M &) { s.autreEcrivain.reset(); }},
      {u"base-illisible"_s, 0, 0,
       [](S &s, const M &) {
         QFile fichier(s.monde.Base());
         Exiger(fichier.open(QFile::ReadWrite) && fichier.write(QByteArray(4096, 'x')) > 0,
                u"the database cannot be written"_s);
       }},
  };
}
