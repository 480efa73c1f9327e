// Files of other programs: every value of a card arrives, heads of tables are known, hostile and
// cut files end in a sentence, and what we write ourselves comes back unchanged.

#include "Outils.h"
#include "exchange/ExportPersonnes.h"
#include "exchange/GenreFichier.h"
#include "exchange/LecteurCartes.h"
#include "exchange/LecteurCsv.h"
#include "storage/Noms.h"

#include <QDate>

#include <random>

using L = Correspondant;
using Champ = Destination::Champ;

static const UsagesReprise kUsages{u" "_s, {u"M."_s, u"Mme"_s}};
static const Avance kSansArret = [](qsizetype, qsizetype) { return true; };

/// What a record shows, in one text: the columns that hold something, by name.
static QString Montrer(const PersonneImportee &personne) {
  QStringList champs;
  for (std::size_t i = 1; i < kNombreColonnes<L>; ++i)
    if (const QString texte = EcrireColonne(personne.fiche, i);
        !texte.isEmpty() && texte != u"0"_s && texte != u"non"_s)
      champs.append(QString::fromUtf16(NomsColonnes<L>()[i]) + u'=' + texte);
  return champs.join(u"; "_s).replace(u'\n', u'/') + personne.refus;
}

class AutresProgrammes : public DansUnDossier {
 protected:
  QList<PersonneImportee> Lire(const QByteArray &octets) {
    Poser(u"f"_s, octets);
    std::unique_ptr<SourcePersonnes> source;
    if (GenreDe(Chemin(u"f"_s)) == GenreFichier::Cartes) {
      source = OuvrirCartes(Chemin(u"f"_s), kUsages);
    } else {
      const FormeCsv forme = AnalyserCsv(Chemin(u"f"_s));
      source = OuvrirCsv(Chemin(u"f"_s), forme, Proposer(forme), kUsages);
    }
    QList<PersonneImportee> personnes;
    while (auto personne = source->Suivante()) personnes.append(*personne);
    EXPECT_EQ(source->Lu(), source->Taille());
    return personnes;
  }
  QString Une(const QByteArray &octets) {
    const auto personnes = Lire(octets);
    return personnes.size() == 1 ? Montrer(personnes[0]) : QString::number(personnes.size());
  }
  static QByteArray Carte(const QByteArray &version, const QString &lignes) {
    return "BEGIN:VCARD\r\nVERSION:" + version + "\r\n" + lignes.toUtf8() + "\r\nEND:VCARD\r\n";
  }
};

// Version; lines; the record.
TEST_F(AutresProgrammes, Cartes) {
  Cas(R"(
    3.0 | N:Doe;Jo;Al,Bo;Dr;Sr¶FN:Dr Jo Al Bo Doe Sr¶ORG:Aé;Paie¶ADR:BP 1;;rue *$ A\nÉt. 2;V;R;44000;France | Ligne1=Dr Jo Doe Sr; Ligne2=Aé; Ligne3=rue A; Ligne4=Ét. 2; Ligne5=BP 1; CodePostal=44000; Ville=V; NomVelmira=Doe Jo; Commentaires=Autres prénoms : Al,Bo/Région : R/Service : Paie
    4.0 | FN:Paul Le Gall¶BDAY:--0322¶PHOTO:http://a/b.jpg¶PHOTO:data:image/png;base64,AAAA | Ligne1=Paul Le Gall; NomVelmira=Le Gall Paul; Commentaires=Né(e) le : 22/03/Photo : http://a/b.jpg/Photo : image d'une forme inconnue, 3 octets, non reprise
    3.0 | ORG:Garage "du" Port¶TITLE:x¶UID:u¶REV:r¶X-ABSHOWAS:COMPANY | Ligne1=Garage "du" Port; NomVelmira=Garage du Port; Commentaires=Fonction : x
    2.1 | N;CHARSET=ISO-8859-1;ENCODING=QUOTED-PRINTABLE:Lef=E8vre=3B;Zo=¶=E9¶NOTE;ENCODING=QUOTED-PRINTABLE:a=0D=0Ab=¶ c¶X-A;BASE64:¶ QUJD¶ REVG¶¶FBURL;QUOTED-PRINTABLE:??s?=0C¶BDAY:19800322 | Ligne1=Zoé Lefèvre;; NomVelmira=Lefèvre; Zoé; Commentaires=a/b c/X-A : 6 octets, non repris/Disponibilités : 5 octets, non repris; DDN=22/03/1980
    2.1 | N:A;B¶NOTE:C:\new\;x\\y¶AGENT:¶BEGIN:VCARD¶N:C;D¶TEL:01¶END:VCARD¶EMAIL;PREF:b@b | Ligne1=B A; NomVelmira=A B; Mail=b@b; Commentaires=C:\new;x\\y/Agent, Nom : C, D/Agent, Téléphone : 01
    3.0 | N:A¶NOTE:C:\temp\\new\nb¶AGENT:BEGIN:VCARD\nFN:Su\;E\nEND:VCARD¶EMAIL:a@a¶EMAIL;TYPE=pref:b@b | Ligne1=A; NomVelmira=A; Mail=b@b; Commentaires=C:\temp\new/b/Adresse email : a@a/Agent, Nom complet : Su, E
    3.0 | N:A¶TEL;TYPE=CELL:+33 (0)6 12.34.56.78¶TEL;TYPE=HOME:0033240123456¶TEL;TYPE="work,voice":0044 20 7946¶TEL;TYPE=FAX:1¶TEL:01 poste 2¶TEL;TYPE=PAGER:0102¶TEL;X-Maman:3 | Ligne1=A; NomVelmira=A; Tel=02 40 12 34 56; Fax=1; Commentaires=Téléphone : 01 poste 2/pager : 01 02/Maman : 3; Portable=06 12 34 56 78; TelTravail=0044 20 7946
    3.0 | N:A¶TEL;TYPE=CELL:06¶TEL;TYPE=CELL:07¶TEL;TYPE=CELL:06¶i.TEL:08¶i.X-ABLabel:Mer¶j.X-ABLabel:Seul¶k.X-ABDATE:d¶k.X-ABLabel:_$!<Anniversary>!$_ | Ligne1=A; NomVelmira=A; Tel=07; Commentaires=Mer : 08/Anniversaire de mariage : d/Libellé : Seul; Portable=06; TelTravail=08
    3.0 | N:A¶ADR;TYPE=WORK:;;w;W;;1;¶ADR;TYPE=HOME:;Rés. B\n3 rue C\n44000 Nantes\nFrance;;;;;¶LABEL:3 rue C, Nantes¶CATEGORIES:Am*is,Toutes catégories | Ligne1=A; Ligne2=Rés. B; Ligne3=3 rue C; CodePostal=44000; Ville=Nantes; Categories=*Am is*; NomVelmira=A; Commentaires=Adresse (travail) : w, 1 W/Catégorie : Toutes catégories
    3.0 | N:;;;M.;¶NICKNAME:Jojo¶TEL:3639¶quoi | NomVelmira=Jojo; Tel=36 39; Commentaires=Civilité : M./Surnom : Jojo/Ligne sans nom : quoi
    2.1 | N:A¶i.ADR:;;r;V;;1;France¶i.X-ABADR:fr¶LABEL:r V France x¶LABEL:r V France x¶CATEGORIES:a,a¶PHOTO;ENCODING=b:¶X-MS-OL-DESIGN:<x>¶X-ANDROID-CUSTOM:v/nickname;Jo;1;;¶TEL;X-CUSTOM(CHARSET=UTF-8,ENCODING=QUOTED-PRINTABLE,=C3=A9t=C3=A9):9¶NOTE;QUOTED-PRINTABLE:n= | Ligne1=A; Ligne2=r; CodePostal=1; Ville=V; Categories=*a*; NomVelmira=A; Tel=9; Commentaires=n/été : 9/Surnom : Jo/Adresse : r V France x
    3.0 | NOTE:n | Commentaires=nOn n'y reconnaît ni nom, ni adresse email, ni numéro.
    3.0 | N:A¶X-VELMIRA-OPTIONADRESSE:300¶X-VELMIRA-LISTEROUGETEL:peut-être | Ligne1=A; NomVelmira=A; Commentaires=X-VELMIRA-OPTIONADRESSE : 300/X-VELMIRA-LISTEROUGETEL : peut-être
  )",
      [this](Rangee c) { return Une(Carte(c[0].toLatin1(), c[1])); });
  const QString plein(255, u'y'), long_(256, u'x');
  EXPECT_EQ(Une(Carte("3.0", u"N:A\r\nADR:;;%1"_s.arg(plein))),
            u"Ligne1=A; Ligne2=%1; NomVelmira=A"_s.arg(plein));
  EXPECT_EQ(Une(Carte("3.0", u"N:A\r\nEMAIL:%1\r\nADR:;;%1;V"_s.arg(long_))),
            u"Ligne1=A; Ville=V; NomVelmira=A; Commentaires=Adresse : %1/Adresse email : %1"_s.arg(
                long_));
}

// Any text of a card that no rule knows, in any dress, is found; the file may be of any encoding.
TEST_F(AutresProgrammes, RienNeSePerd) {
  std::mt19937 hasard(20261122);
  const auto tirer = [&](std::size_t n) { return static_cast<int>(hasard() % n); };
  const QStringList noms{u"N"_s,     u"FN"_s,     u"ORG"_s,   u"ADR"_s,      u"TEL"_s,
                         u"EMAIL"_s, u"URL"_s,    u"NOTE"_s,  u"NICKNAME"_s, u"CATEGORIES"_s,
                         u"TITLE"_s, u"LABEL"_s,  u"X-AIM"_s, u"IMPP"_s,     u"BDAY"_s,
                         u"AGENT"_s, u"RELATED"_s};
  for (int tour = 0; tour < 400; ++tour) {
    const QByteArray version = QByteArrayList{"2.1", "3.0", "4.0"}[tour % 3];
    QStringList jetons;
    const auto jeton = [&] {
      jetons.append(u"é%1x%2"_s.arg(tour).arg(jetons.size()));
      return jetons.last();
    };
    QByteArray carte = "BEGIN:VCARD\r\nVERSION:" + version + "\r\n";
    for (int n = tirer(25) + 1; n > 0; --n) {
      const QString &nom = noms[tirer(17)];
      QString ligne = nom;
      if (tirer(4) == 0) ligne.prepend(u"i%1."_s.arg(n));
      if (tirer(3) == 0)
        ligne += QStringList{u";TYPE=HOME"_s, u";TYPE=work"_s, u";PREF=2"_s, u";X-Y=z"_s}[tirer(4)];
      QString valeur = jeton();
      const int parties = nom == u"ADR"_s ? 7 : nom == u"N"_s ? 5 : nom == u"ORG"_s ? 3 : 1;
      for (int i = 1; i < parties; ++i) {
        valeur += u';' + (tirer(2) != 0 ? jeton() : QString());
        if (i == 2 && version != "2.1") valeur += u"\\n"_s + jeton();
      }
      if (parties == 1 && tirer(2) == 0) valeur += u"\\, "_s + jeton();
      const bool imprimable = version == "2.1" && tirer(3) == 0;
      const bool page = version == "2.1" && tirer(3) == 0;
      QByteArray octets = page ? valeur.toLatin1() : valeur.toUtf8();
      if (imprimable)
        octets = octets.toPercentEncoding("; ,\\:").replace('%', '=').replace(";", ";=\r\n");
      if (imprimable) ligne += u";QUOTED-PRINTABLE"_s;
      if (page) ligne += u";CHARSET=windows-1252"_s;
      QByteArray entiere = ligne.toLatin1() + ':' + octets;
      if (!imprimable && version != "2.1" && entiere.size() > 20) entiere.insert(19, "\r\n ");
      carte += entiere + "\r\n";
      if (ligne.startsWith(u'i') && tirer(2) == 0)
        carte += ligne.section(u'.', 0, 0).toLatin1() + ".X-ABLabel:" + jeton().toUtf8() + "\r\n";
    }
    const auto personnes = Lire(carte + "END:VCARD\r\n");
    ASSERT_EQ(personnes.size(), 1);
    const QString fiche = Montrer(personnes[0]);
    for (const QString &texte : jetons)
      EXPECT_TRUE(fiche.contains(texte)) << qPrintable(texte) << "\n"
                                         << carte.toStdString() << qPrintable(fiche);
    if (HasFailure()) break;
  }
}

// The heads of other programs with one person; what becomes of it.
TEST_F(AutresProgrammes, Tableaux) {
  Cas(R"(
    Titre,Prénom,Nom,Société,Service,Titre,Rue (bureau),Rue (bureau) 2,Ville (bureau),Dép/Région (bureau),Code postal (bureau),Pays/Région (bureau),Rue (domicile),Ville (domicile),Télécopie (domicile),Téléphone (bureau),Téléphone (domicile),Tél. mobile,Téléphone société,Adresse de messagerie,Type de messagerie,Nom complet de l'adresse de messagerie,Adresse de messagerie 2,Anniversaire,Critère de diffusion,Privé,Page Web,Catégories,B.P. professionnelle¶Mme,Léa,Roy,Sté,Paie,Chef,1 rue B,bât. 2,Nantes,PdL,44000,France,3 rue D,Rezé,01,02,03,04,05,a@b,SMTP,Léa Roy (a@b),c@d,3/4/1980,Normale,Faux,w.fr,Amis;Club,BP 9 | Ligne1=Mme Léa Roy; Ligne2=Sté; Ligne3=Paie; Ligne4=3 rue D; Ville=Rezé; Categories=*Amis*Club*; NomVelmira=Roy Léa; Tel=03; Fax=01; Mail=a@b; Commentaires=Adresse (travail) : 1 rue B, bât. 2, BP 9, 44000 Nantes, PdL, France/Téléphone (travail) : 05/Adresse email : c@d/Fonction : Chef; Portable=04; Web=w.fr; TelTravail=02; DDN=03/04/1980
    Title,First Name,Last Name,Suffix,Company,Department,Job Title,Home Street,Home City,Home State,Home Postal Code,Home Country/Region,Home Phone,Home Phone 2,Mobile Phone,Pager,Birthday,E-mail Address,E-mail Type,Anniversary,Gender,Spouse¶Mr,Al,Fox,Jr,Co,,Boss,"2 ""H"" St↵Flat",Bath,Avon,BA1,UK,1,2,3,4,3/14/1980,a@b,SMTP,0/0/00,Unspecified,Jo | Ligne1=Mr Al Fox Jr; Ligne2=Co; Ligne3=2 "H" St; Ligne4=Flat; CodePostal=BA1; Ville=Bath; Pays=UK; NomVelmira=Fox Al; Tel=1; Mail=a@b; Commentaires=Région : Avon/Fonction : Boss/Pager : 4/Conjoint : Jo; Portable=3; TelTravail=2; DDN=14/03/1980
    First Name,Middle Name,Last Name,Name Prefix,Nickname,File As,Organization Name,Organization Title,Birthday,Labels,E-mail 1 - Label,E-mail 1 - Value,E-mail 2 - Label,E-mail 2 - Value,Phone 1 - Label,Phone 1 - Value,Address 1 - Label,Address 1 - Formatted,Address 1 - Street,Address 1 - City,Relation 1 - Label,Relation 1 - Value,Custom Field 1 - Label,Custom Field 1 - Value¶Jo,M,Fay,Dr,J,"Fay, Jo",Org,Boss,1990-12-09,* myContacts ::: Club ::: * starred,Work,a@b,* Home,c@d,Mobile,01 ::: 02,Chalet,"1 r A↵Rezé",1 r A,Rezé,Spouse,Al,Id,7 | Ligne1=Dr Jo Fay; Ligne2=Org; Ligne3=1 r A; Ville=Rezé; Categories=*Club*Favoris*; NomVelmira=Fay Jo; Tel=02; Mail=c@d; Commentaires=Autres prénoms : M/Libellé de l'adresse : Chalet/Adresse email (travail) : a@b/Surnom : J/Fonction : Boss/Spouse : Al/Id : 7; Portable=01; DDN=09/12/1990
    Name,Given Name,Family Name,Group Membership,E-mail 1 - Type,E-mail 1 - Value,Phone 1 - Type,Phone 1 - Value,Organization 1 - Type,Organization 1 - Name,Website 1 - Type,Website 1 - Value,Address 1 - Type,Address 1 - Street,Address 1 - PO Box¶Jo Fay,Jo,Fay,* myContacts,* ,a@b,Home Fax,01,,Org,Profile,w.fr,Work,r A,BP 2 | Ligne1=Jo Fay; Ligne2=Org; Ligne3=r A; Ligne4=BP 2; NomVelmira=Fay Jo; Fax=01; Mail=a@b; Web=w.fr
    Prénom,Nom de famille,Nom à afficher,Surnom,Adresse électronique principale,Adresse électronique secondaire,Tél. professionnel,Tél. personnel,Fax,Pager,Portable,Adresse privée,Adresse privée 2,Ville,Pays/État,Code postal,Pays/Région (domicile),Adresse professionnelle,Ville,Code postal,Pays/Région (bureau),Profession,Service,Société,Site web 1,Année de naissance,Mois,Jour,Divers 1,Notes¶Jo,Fay,Fay J.,F,a@b,c@d,1,2,3,4,5,6 r,bis,V,E,7,Suisse,8 w,W,9,,Prof,Serv,Soc,w.fr,1980,3,14,D,n | Ligne1=Jo Fay; Ligne2=Soc; Ligne3=Serv; Ligne4=6 r; Ligne5=bis; CodePostal=7; Ville=V; Pays=Suisse; NomVelmira=Fay Jo; Tel=2; Fax=3; Mail=a@b; Commentaires=n/Région : E/Adresse (travail) : 8 w, 9 W/Adresse email : c@d/Surnom : F/Pager : 4/Profession : Prof/Divers 1 : D/Nom complet : Fay J.; Portable=5; Web=w.fr; TelTravail=1; DDN=14/03/1980
    First Name,Last Name,Primary Email,Work Phone,Fax Number,Mobile Number,Home Address,Home Address 2,Home City,Home County,Home Post Code,Home Country,Organisation,Web Page 1,Birth Year,Birth Month,Birth Day¶A,B,c@d,1,2,3,4 St,b,C,R,P,UK,Org,w.fr,,2,29 | Ligne1=A B; Ligne2=Org; Ligne3=4 St; Ligne4=b; CodePostal=P; Ville=C; Pays=UK; NomVelmira=B A; Fax=2; Mail=c@d; Commentaires=Région : R/Né(e) le : 29/02; Portable=3; Web=w.fr; TelTravail=1
    First name,Last name,Company,Mobile,Home phone,Home email,Work email,Home street,Home city,Home zip,Birthday,Note¶A,B,Co,1,2,c@d,e@f,3 r,V,4,1980-03-14,n | Ligne1=A B; Ligne2=Co; Ligne3=3 r; CodePostal=4; Ville=V; NomVelmira=B A; Tel=2; Mail=c@d; Commentaires=n/Adresse email (travail) : e@f; Portable=1; DDN=14/03/1980
    sep=;¶Nom;Adresse;CP;Ville;Né(e) le;Truc¶Jo Fay;=1+1;01000;Bourg;14.3.80;x;y¶ | Ligne1=Jo Fay; Ligne2==1+1; CodePostal=01000; Ville=Bourg; NomVelmira=Fay Jo; Commentaires=Truc : x/Colonne 7 : y; DDN=14/03/1980
    First Name,Birthday¶A,13/02/80 | Ligne1=A; NomVelmira=A; DDN=13/02/1980
    Nom et prénom;Ville;Tel¶Mme Le Goff Anne;Brest;905-555-1234 | Ligne1=Mme Anne Le Goff; Ville=Brest; NomVelmira=Le Goff Anne; Tel=905-555-1234
    Nom;Adresse1;Adresse2;Le fixe;Tel2;Anniv¶;;;;;¶Jo;1 r;bis;01;06;--02-29¶ ;;;;; | Ligne1=Jo; Ligne2=1 r; Ligne3=bis; NomVelmira=Jo; Tel=01; Commentaires=Né(e) le : 29/02; Portable=06
    Client;Courrier¶Jo;a@b¶ | NomVelmira=a@b; Mail=a@b; Commentaires=Client : Jo
    Jo;a@b;0102¶ | Ligne1=Jo; NomVelmira=Jo; Mail=a@b; Commentaires=Colonne 3 : 0102
  )",
      [this](Rangee c) { return Une(c[0].toUtf8()); });
}

// A choice that is kept comes back; another row of heads has none.
TEST_F(AutresProgrammes, CorrespondancesGardees) {
  Correspondances choix = Reconnaitre({u"Nom"_s, u"Phone 1 - Value"_s, u"Home Street"_s});
  choix.colonnes[0] = {Champ::Ignorer};
  choix.moisDevant = true;
  const QString ecrit = EcrireCorrespondances(choix);
  EXPECT_EQ(LireCorrespondances(ecrit, 3), choix);
  for (const QString &faux :
       {ecrit + u",1.0.0"_s, u"m,1.0.0,99.0.0,1.0.0"_s, u"m,1.0,1.0.0,1.0.0"_s})
    EXPECT_FALSE(LireCorrespondances(faux, 3)) << qPrintable(faux);
  EXPECT_NE(CleEntetes({u"ab"_s, u"c"_s}), CleEntetes({u"a"_s, u"bc"_s}));
  QStringList libelles;
  for (const Destination &d : DestinationsProposees()) libelles.append(LibelleDestination(d));
  EXPECT_EQ(libelles.removeDuplicates(), 0) << "two choices that read alike";
}

static QByteArray Image() {
  return QByteArray("\xFF\xD8\xFF", 3) + QByteArray(3000, '\x7F');
}

/// Texts as they are typed, and as nobody should.
static QString Texte(std::mt19937 &hasard) {
  static const QStringList kMorceaux{u"Durand"_s,
                                     u"Paul"_s,
                                     u" "_s,
                                     u"é"_s,
                                     u"😀"_s,
                                     u"*"_s,
                                     u"$"_s,
                                     u";"_s,
                                     u","_s,
                                     u"\\"_s,
                                     u"\n"_s,
                                     u"\r\n"_s,
                                     u"\r"_s,
                                     u"\""_s,
                                     u"'"_s,
                                     u"=1+1"_s,
                                     u"+33 6"_s,
                                     u"-"_s,
                                     u"@"_s,
                                     u"\t"_s,
                                     u"\\n"_s,
                                     u":"_s,
                                     u"02 40"_s,
                                     u"\u00A0"_s,
                                     u"\u2028"_s,
                                     u"BEGIN:VCARD"_s,
                                     u"\nEND:VCARD\n"_s,
                                     u"\uFEFF"_s,
                                     u"\u0001"_s,
                                     u"France"_s,
                                     QString(120, u'ô')};
  QString texte;
  for (auto n = hasard() % 4; n > 0; --n)
    texte +=
        kMorceaux[static_cast<qsizetype>(hasard() % static_cast<std::size_t>(kMorceaux.size()))];
  return texte;
}

static L Hasard(std::mt19937 &hasard, const QString &photo) {
  L fiche;
  for (std::size_t i = 1; i < kNombreColonnes<L>; ++i) LireColonne(fiche, i, Texte(hasard));
  fiche.OptionAdresse = static_cast<int>(hasard() % 2);
  fiche.ListeRougeTel = hasard() % 2 == 0;
  fiche.AlerteActive = hasard() % 3 == 0;
  if (hasard() % 2 == 0) fiche.NomVelmira = u"Durand Paul"_s;
  if (hasard() % 2 == 0)
    fiche.Ligne1 = u"M. Paul Durand "_s.left(14 + static_cast<int>(hasard() % 2));
  if (hasard() % 2 == 0)
    fiche.Categories = QStringList{u"*"_s, u"*Amis*"_s, u"*a, b*c*"_s, u"Amis"_s}[hasard() % 4];
  if (hasard() % 2 == 0)
    fiche.DDN = QStringList{u"01/02/1980"_s, u"1/2/80"_s, u"31/02/1980"_s}[hasard() % 3];
  if (EstSansNom(fiche.NomVelmira)) fiche.NomVelmira = u"x"_s;
  fiche.Photo = hasard() % 50 == 0 ? photo : QString();
  fiche.DataProt = QStringList{u""_s, u"moi"_s, u"lui$"_s, u"lui"_s}[hasard() % 4];
  return fiche;
}

// What is written comes back as it was, field by field; 100,000 of them in the long tests.
TEST_F(AutresProgrammes, AllerEtRetour) {
  const int demandees = qEnvironmentVariableIntValue("VELMIRA_FICHES");
  const int nombre = demandees > 0 ? demandees : 2000;
  CreerBase(u"b"_s);
  Poser(u"photo"_s, Image());
  Base base;
  base.Ouvrir(Chemin(u"b"_s));
  std::mt19937 hasard(20261122);
  {
    Transaction transaction(base);
    for (int i = 0; i < nombre; ++i) AjouterLigne(base, Hasard(hasard, Chemin(u"photo"_s)));
    transaction.Valider();
  }
  const PhotoImportee image{Image(), u"jpg"_s};
  for (const auto format : {FormatExport::Cartes4, FormatExport::Cartes3, FormatExport::Tableau}) {
    DemandeExport demande{Chemin(u"f"_s), format, {}, {}, u"moi"_s, kUsages};
    const BilanExport bilan = ExporterPersonnes(base, demande, kSansArret);
    EXPECT_EQ(bilan.ecrits + bilan.caches, nombre);
    EXPECT_EQ(bilan.sansPhoto, 0);
    std::unique_ptr<SourcePersonnes> source = OuvrirCartes(Chemin(u"f"_s), kUsages);
    if (format == FormatExport::Tableau) {
      const FormeCsv forme = AnalyserCsv(Chemin(u"f"_s));
      source = OuvrirCsv(Chemin(u"f"_s), forme, Proposer(forme), kUsages);
    }
    for (Cle cle = 1; cle <= nombre; ++cle) {
      const L fiche = *TableAdresse(base).Lire(cle);
      if (fiche.DataProt == u"lui"_s) continue;
      const auto revenue = source->Suivante();
      ASSERT_TRUE(revenue) << cle;
      for (std::size_t i = 1; i < kNombreColonnes<L>; ++i)
        ASSERT_EQ(EcrireColonne(revenue->fiche, i), EcrireColonne(fiche, i))
            << cle << ' ' << i << ' ' << static_cast<int>(format);
      EXPECT_EQ(revenue->photo.has_value(),
                format != FormatExport::Tableau && !fiche.Photo.isEmpty());
      EXPECT_EQ(revenue->photo.value_or(image), image);
      EXPECT_EQ(revenue->refus, u""_s);
    }
    EXPECT_FALSE(source->Suivante());
  }
  // Other programs read of a usual record all that they have a place for.
  L fiche;
  fiche.Ligne1 = u"M. Paul Durand"_s;
  fiche.Ligne2 = u"3 rue A"_s;
  fiche.Ligne3 = u"Bât. B"_s;
  fiche.NomVelmira = u"Durand Paul"_s;
  fiche.Portable = u"06 12"_s;
  fiche.DDN = u"01/02/1980"_s;
  fiche.Categories = u"*Amis*"_s;
  EXPECT_EQ(
      QString::fromUtf8(EcrireCarte(fiche, {}, FormatExport::Cartes3, kUsages)),
      u"BEGIN:VCARD\r\nVERSION:3.0\r\nN:Durand;Paul;;M.;\r\nFN:Paul Durand\r\nADR;TYPE=HOME:;;"
      "3 rue A\\nBât. B;;;;\r\nTEL;TYPE=CELL:06 12\r\nBDAY:1980-02-01\r\nCATEGORIES:Amis\r\n"
      "END:VCARD\r\n"_s);
  fiche.NomVelmira = QString(100, u'é');
  for (const QByteArray &ligne :
       EcrireCarte(fiche, image, FormatExport::Cartes3, kUsages).split('\n')) {
    EXPECT_LE(ligne.size(), 76);
    EXPECT_TRUE(QUtf8StringView(ligne).isValidUtf8()) << "a character is cut";
  }
  // What a spreadsheet gets.
  Cas(R"(
    =1+1 | '=1+1 || '=1 | ''=1 || 'a | 'a || +33 6 12 | +33 6 12 || -x | '-x || @a | '@a || - | -
  )",
      [&](Rangee c) {
        fiche.Ville = c[0];
        return EcrireCellule(fiche, Ordinal(&L::Ville));
      });
  Cas("*a*b* | a, b || Amis | *Amis || *a, b*c* | **a, b*c* || | ", [&](Rangee c) {
    fiche.Categories = c[0];
    return EcrireCellule(fiche, Ordinal(&L::Categories));
  });
  // A part of them; a stop leaves the file as it was.
  Sql(u"b"_s, u"UPDATE Adresse SET Categories='*Amis*', DataProt='' WHERE [Index] < 4"_s);
  Sql(u"b"_s, u"UPDATE Adresse SET DataProt='lui' WHERE [Index]=3"_s);
  DemandeExport demande{Chemin(u"f"_s), FormatExport::Tableau, u"Amis"_s, QSet<Cle>{1, 3}, u"moi"_s,
                        kUsages};
  EXPECT_TRUE(ExporterPersonnes(base, demande, [](qsizetype, qsizetype) { return false; }).arrete);
  EXPECT_GT(Octets(u"f"_s).size(), 10000);
  const BilanExport bilan = ExporterPersonnes(base, demande, kSansArret);
  EXPECT_EQ(bilan.ecrits * 10 + bilan.caches, 11);
  EXPECT_TRUE(
      Octets(u"f"_s).startsWith("\xEF\xBB\xBF\"Nom dans la liste\";\"Nom sur l'enveloppe\";"));
}

// Each ends in a sentence or in whole records, whatever it holds.
TEST_F(AutresProgrammes, FichiersHostiles) {
  const auto refus = [this](const QByteArray &octets) {
    const auto personnes = Lire(octets);
    return personnes.isEmpty() ? u"aucune"_s : personnes.last().refus;
  };
  QByteArray courriels;
  for (int i = 0; i < 10000; ++i) courriels += "\r\nEMAIL:a" + QByteArray::number(i) + "@b";
  EXPECT_EQ(refus("BEGIN:VCARD\nN:A" + courriels + "\nEND:VCARD"), u"Elle dépasse 2000 lignes."_s);
  EXPECT_EQ(refus("BEGIN:VCARD\nN:A\nNOTE:" + QByteArray(34 << 20, 'x') + "\nEND:VCARD"),
            u"Elle dépasse 32 Mo."_s);
  EXPECT_EQ(refus("BEGIN:VCARD\nN:A\nBEGIN:VCARD\nN:B\nEND:VCARD"), u""_s);
  EXPECT_EQ(refus("Nom;Notes\nA;" + QByteArray(5 << 20, 'x')), u"La ligne dépasse 4 Mo."_s);
  EXPECT_EQ(refus("Nom;Notes\nA;\"x"), u"Un guillemet n'est pas refermé."_s);
  EXPECT_EQ(refus("Nom;Notes\nA;" + QByteArray(1000, ';')),
            u"La ligne compte plus de 1000 valeurs."_s);
  EXPECT_EQ(refus("Nom;Notes\n"), u"aucune"_s);
  EXPECT_EQ(Lire("Nom;Ville\r\nA;\"x\r\ny\"\r\n\r\nB;z")[1].origine.ligne, 5);
  EXPECT_EQ(Une("Nom" + QByteArray(299, ';') + "\nA" + QByteArray(299, ';') + "z"),
            u"Ligne1=A; NomVelmira=A; Commentaires=Colonne 300 : z"_s);
  EXPECT_TRUE(Echec([&] { Lire("Nom" + QByteArray(1001, ';') + "\nA"); }).contains(u"1000"_s));
  for (const QByteArray &autre : {QByteArray(), QByteArray("mots"), QByteArray("a;b\0c", 5),
                                  QByteArray("une\ndeux;"), QByteArray("\n<p>a;b</p>")}) {
    Poser(u"f"_s, autre);
    EXPECT_EQ(GenreDe(Chemin(u"f"_s)), GenreFichier::Inconnu) << autre.toStdString();
  }
  EXPECT_TRUE(Echec([&] { GenreDe(Chemin()); }).contains(u"pas un fichier"_s));
  EXPECT_FALSE(Echec([&] { GenreDe(Chemin(u"absent"_s)); }).isEmpty());

  const QByteArray un = Carte("2.1", u"N:Été;A"_s), deux = Carte("3.0", u"FN:B\r\nNOTE:n"_s);
  for (qsizetype n = 40; n <= un.size() + deux.size(); ++n) {
    const auto personnes = Lire((un + deux).left(n));
    const int entieres = (n >= un.size() - 2) + (n >= un.size() + deux.size() - 2);
    EXPECT_EQ(std::ranges::count(personnes, u""_s, &PersonneImportee::refus), entieres) << n;
    EXPECT_LE(personnes.size(), entieres + 1) << n;
  }
  // Encodings and line ends.
  const QString table = u"Nom;Ville\nÉlo;Orléans\n"_s;
  QByteArray seize("\xFF\xFE");
  for (const QChar c : table) seize += QByteArray(reinterpret_cast<const char *>(&c), 2);
  for (const QByteArray &octets :
       {table.toUtf8(), table.toLatin1(), QByteArray("\xEF\xBB\xBF") + table.toUtf8(), seize,
        table.toUtf8().replace('\n', '\r')})
    EXPECT_EQ(Une(octets), u"Ligne1=Élo; Ville=Orléans; NomVelmira=Élo"_s);
}
