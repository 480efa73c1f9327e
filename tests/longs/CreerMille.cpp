// velmira_creer_mille FOLDER: a thousand correspondents with every field filled, as a database
// (mille.mdb), as the program's workbook (mille.xlsx) and as what a reader of that workbook has to
// find in it (mille.csv).

#include "exchange/ClasseurVelmiras.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"
#include "platform/linux/ClasseurSysteme.h"
#include "storage/Schema.h"
#include "storage/Tables.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int kNombre = 1000;

/// The characters of the code page from `premier` on that do not end a line.
QString Page(int premier) {
  QByteArray octets;
  for (int octet = premier; octet < 256; ++octet)
    if (octet != '\r' && octet != '\n') octets += static_cast<char>(octet);
  return DepuisPageDeCode(octets);
}

Correspondant Inventer(int numero) {
  const QString n = u"%1"_s.arg(numero, 4, 10, QLatin1Char('0'));
  const bool pair = numero % 2 == 0, page = numero % 50 == 0, etoiles = numero % 3 == 0;
  Correspondant fiche;
  fiche.NomVelmira = n + (pair ? u" Zoé \"Zette\" Œuvrard"_s : u" D'Été, Noël & fils; 'SARL'"_s);
  if (page) fiche.NomVelmira += Page(0xA1);
  fiche.Ligne1 = (pair ? u"Mme \"Zette\" "_s : u"M. et Mme d'Été "_s) + n;
  fiche.Ligne2 = page ? u"Tous les signes : "_s + Page(0x20) : u"Résidence « Les Érables »"_s;
  fiche.Ligne3 = etoiles ? u"Bât. Ç*escalier 2*porte "_s + n : u"12 bis, rue de l'Été"_s;
  fiche.Ligne4 = etoiles ? u"*Lieu-dit La Prée"_s : u"=1+1"_s;
  fiche.Ligne5 = u"BP "_s + n;
  fiche.CodePostal = u"0"_s + n;
  fiche.Ville = pair ? u"Saint-Étienne-lès-Œillets"_s : u"L'Haÿ-les-Roses"_s;
  fiche.Pays = u"Côte d'Ivoire"_s;
  fiche.Categories = pair ? u"*Amis*Élèves*"_s : u"*Clients \"or\"*"_s;
  fiche.Tel = u"02 61 91 "_s + n;
  fiche.Fax = u"1e"_s + n;
  fiche.Mail = u"n%1@courriel.example"_s.arg(n);
  fiche.Commentaires = u"Note "_s + n;
  fiche.Portable = u"+33 6 39 98 "_s + n;
  fiche.AdresseImportee = page ? Page(0) : u"12 rue de l'Été;\t\"Nantes\""_s;
  fiche.OptionAdresse = pair ? 1 : 0;
  fiche.Web = u"https://exemple.example/?a=<"_s + n + u">&b=\"€\""_s;
  fiche.TelTravail = u"="_s + n;
  fiche.Photo = u"C:\\Photos\\été %1.jpg"_s.arg(n);
  fiche.ListeRougeTel = pair;
  fiche.ListeRougeTravail = !pair;
  fiche.DDN = u"%1/%2/1970"_s.arg(1 + numero % 28, 2, 10, QLatin1Char('0'))
                  .arg(1 + numero % 12, 2, 10, QLatin1Char('0'));
  fiche.DataProt = etoiles ? u"Paul$"_s : u"Paul"_s;
  fiche.AlerteActive = pair;
  return fiche;
}

QStringList Titres() {
  return {u"VELMIRA"_s, u"TEL.  DOMICILE"_s, u"TEL.  TRAVAIL"_s, u"PORTABLE"_s,
          u"FAX"_s,     u"ADRESSE  EMAIL"_s, u"PAGE  WEB"_s,     u"ADRESSE"_s};
}

/// What the row of the workbook says; a star of an address begins a line, as a field does.
QStringList Rang(const Correspondant &f) {
  QString adresse = f.Ligne1 + u'\n' + f.Ligne2 + u'\n' + f.Ligne3 + u'\n' + f.Ligne4 + u'\n' +
                    f.Ligne5 + u'\n' + f.CodePostal + u'\n' + f.Ville;
  adresse.replace(u'*', u'\n');
  return {u' ' + f.NomVelmira, u' ' + f.Tel,  u' ' + f.TelTravail, u' ' + f.Portable,
          u' ' + f.Fax,        u' ' + f.Mail, u' ' + f.Web,        adresse};
}

QByteArray Csv(const QStringList &rang) {
  QStringList valeurs;
  for (QString valeur : rang) valeurs.append(u'"' + valeur.replace(u'"', u"\"\""_s) + u'"');
  return valeurs.join(u',').toUtf8() + "\r\n";
}

void Ecrire(const QString &dossier) {
  QList<Correspondant> velmiras;
  for (int numero = 1; numero <= kNombre; ++numero) velmiras.append(Inventer(numero));
  CreerDossier(dossier);

  const QString chemin = dossier + u"/mille.mdb"_s;
  QFile::remove(chemin);
  CreerBaseVide(chemin);
  Base base;
  base.Ouvrir(chemin);
  Transaction transaction(base);
  for (const Correspondant &velmira : velmiras) AjouterLigne(base, velmira);
  transaction.Valider();

  ClasseurSysteme().Ecrire(dossier + u"/mille.xlsx"_s, FeuilleVelmiras(velmiras));
  QByteArray csv = Csv(Titres());
  for (const Correspondant &velmira : velmiras) csv += Csv(Rang(velmira));
  RemplacerFichier(dossier + u"/mille.csv"_s, csv);
}

}  // namespace

int main(int argc, char *argv[]) {
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 2) {
    std::fputs("usage: velmira_creer_mille FOLDER\n", stderr);
    return 2;
  }
  try {
    Ecrire(arguments[1]);
  } catch (const Erreur &erreur) {
    std::fprintf(stderr, "%s\n", erreur.what());
    return 1;
  }
  return 0;
}
