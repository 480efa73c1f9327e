// Files of other programs: every value of a card arrives, heads of tables are known, hostile and cut
// files end in a sentence, and what we write ourselves comes back unchanged.

#include "Outils.h"
#include "exchange/ExportPersonnes.h"
#include "exchange/GenreFichier.h"
#include "exchange/LecteurCartes.h"
#include "exchange/LecteurCsv.h"
#include "platform/FluxOctets.h"

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
    if (const QString texte = EcrireColonne(personne.fiche, i); !texte.isEmpty() &&
                                                                texte != u"0"_s && texte != u"non"_s)
      champs.append(QString::fromUtf16(NomsColonnes<L>()[i]) + u'=' + texte);
  return champs.join(u"; "_s).replace(u'\n', u'/') + personne.refus;
}

class Reprise : public DansUnDossier {
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
TEST_F(Reprise, Cartes) {
  Cas(R"(
    3.0 | N:Doe;Jo;Al,Bo;Dr;Sr¶FN:Dr Jo Al Bo Doe Sr¶ORG:Aé;Paie¶ADR:BP 1;;rue *$ A\nÉt. 2;V;R;44000;France | Ligne1=Dr Jo Doe Sr; Ligne2=Aé; Ligne3=rue A; Ligne4=Ét. 2; Ligne5=BP 1; CodePostal=44000; Ville=V; NomVelmira=Doe Jo; Commentaires=Autres prénoms : Al,Bo/Région : R/Service : Paie
    4.0 | FN:Paul Le Gall¶BDAY:--0322¶PHOTO:http://a/b.jpg¶PHOTO:data:image/png;base64,AAAA | Ligne1=Paul Le Gall; NomVelmira=Le Gall Paul; Commentaires=Né(e) le : 22/03/Photo : http://a/b.jpg/Photo : image d'une forme inconnue, 3 octets, non reprise
    3.0 | ORG:Garage "du" Port¶TITLE:x¶UID:u¶REV:r¶X-ABSHOWAS:COMPANY | Ligne1=Garage "du" Port; NomVelmira=Garage du Port; Commentaires=Fonction : x
    2.1 | N;CHARSET=ISO-8859-1;ENCODING=QUOTED-PRINTABLE:Lef=E8vre=3B;Zo=¶=E9¶NOTE;ENCODING=QUOTED-PRINTABLE:a=0D=0Ab=¶ c¶X-A;BASE64:¶ QUJD¶ REVG¶¶BDAY:19800322 | Ligne1=Zoé Lefèvre;; NomVelmira=Lefèvre; Zoé; Commentaires=a/b c/X-A : 6 octets, non repris; DDN=22/03/1980
    2.1 | N:A;B¶NOTE:C:\new\;x¶AGENT:¶BEGIN:VCARD¶N:C;D¶TEL:01¶END:VCARD¶EMAIL;PREF:b@b | Ligne1=B A; NomVelmira=A B; Mail=b@b; Commentaires=C:\new;x/Agent, Nom : C, D/Agent, Téléphone : 01
    3.0 | N:A¶NOTE:C:\temp\\new\nb¶AGENT:BEGIN:VCARD\nFN:Su\;E\nEND:VCARD¶EMAIL:a@a¶EMAIL;TYPE=pref:b@b | Ligne1=A; NomVelmira=A; Mail=b@b; Commentaires=C:\temp\new/b/Adresse email : a@a/Agent, Nom complet : Su, E
    3.0 | N:A¶TEL;TYPE=CELL:+33 (0)6 12.34.56.78¶TEL;TYPE=HOME:0033240123456¶TEL;TYPE="work,voice":+44 20 7946¶TEL;TYPE=FAX:1¶TEL:01 poste 2¶TEL;TYPE=PAGER:0102 | Ligne1=A; NomVelmira=A; Tel=02 40 12 34 56; Fax=1; Commentaires=Téléphone : 01 poste 2/pager : 01 02; Portable=06 12 34 56 78; TelTravail=+44 20 7946
    3.0 | N:A¶TEL;TYPE=CELL:06¶TEL;TYPE=CELL:07¶TEL;TYPE=CELL:06¶i.TEL:08¶i.X-ABLabel:Mer¶j.X-ABLabel:Seul¶k.X-ABDATE:d¶k.X-ABLabel:_$!<Anniversary>!$_ | Ligne1=A; NomVelmira=A; Tel=07; Commentaires=Mer : 08/Anniversaire de mariage : d/Libellé : Seul; Portable=06; TelTravail=08
    3.0 | N:A¶ADR;TYPE=WORK:;;w;W;;1;¶ADR;TYPE=HOME:;Rés. B\n3 rue C\n44000 Nantes\nFrance;;;;;¶LABEL:3 rue C, Nantes¶CATEGORIES:Am*is,Toutes catégories | Ligne1=A; Ligne2=Rés. B; Ligne3=3 rue C; CodePostal=44000; Ville=Nantes; Categories=*Am is*; NomVelmira=A; Commentaires=Adresse (travail) : w, 1 W/Catégorie : Toutes catégories
    3.0 | N:;;;M.;¶NICKNAME:Jojo¶TEL:3639¶quoi | NomVelmira=Jojo; Tel=36 39; Commentaires=Civilité : M./Surnom : Jojo/Ligne sans nom : quoi
    3.0 | NOTE:n | Commentaires=nLa fiche ne porte ni nom, ni adresse, ni numéro.
    3.0 | N:A¶X-VELMIRA-OPTIONADRESSE:300¶X-VELMIRA-LISTEROUGETEL:peut-être | Ligne1=A; NomVelmira=A; Commentaires=X-VELMIRA-OPTIONADRESSE : 300/X-VELMIRA-LISTEROUGETEL : peut-être
  )",
      [this](Rangee c) { return Une(Carte(c[0].toLatin1(), c[1])); });
  const QString long_(256, u'x');
  EXPECT_EQ(Une(Carte("3.0", u"N:A\r\nEMAIL:%1\r\nADR:;;%1;V"_s.arg(long_))),
            u"Ligne1=A; Ville=V; NomVelmira=A; Commentaires=Adresse : %1/Adresse email : %1"_s.arg(long_));
}

// Any text of a card that no rule knows, in any dress, is found; the file may be of any encoding.
TEST_F(Reprise, RienNeSePerd) {
  std::mt19937 hasard(20261122);
  const auto tirer = [&](std::size_t n) { return static_cast<int>(hasard() % n); };
  const QStringList noms{u"N"_s,     u"FN"_s,   u"ORG"_s,      u"ADR"_s,        u"TEL"_s,   u"EMAIL"_s,
                         u"URL"_s,   u"NOTE"_s, u"NICKNAME"_s, u"CATEGORIES"_s, u"TITLE"_s, u"LABEL"_s,
                         u"X-AIM"_s, u"IMPP"_s, u"BDAY"_s,     u"AGENT"_s,      u"RELATED"_s};
  for (int tour = 0; tour < 400; ++tour) {
    const QByteArray version = QByteArrayList{"2.1", "3.0", "4.0"}[tour % 3];
    QStringList jetons;
    const auto jeton = [&] {
      jetons.append(u"é%1x%2"_s.arg(tour).arg(jetons.size()));
      return jetons.last();
    };
    QByteArray carte = "BEGIN:VCARD\r\nVERSION:" + version + "\r\n";
    for (int n = tirer(25) + 1; n > 0; --n) {
      const QString nom = noms[tirer(17)];
      QString ligne = nom;
      if (tirer(4) == 0) ligne.prepend(u"i%1."_s.arg(n));
      if (tirer(3) == 0) ligne += QStringList{u";TYPE=HOME"_s, u";TYPE=work"_s, u";PREF=2"_s, u";X-Y=z"_s}[tirer(4)];
      QString valeur = jeton();
      const int parties = nom == u"ADR"_s ? 7 : nom == u"N"_s ? 5 : nom == u"ORG"_s ? 3 : 1;
      for (int i = 1; i < parties; ++i) valeur += u';' + (tirer(2) != 0 ? jeton() : QString());
      if (parties == 1 && tirer(2) == 0) valeur += u"\\, "_s + jeton();
      const bool imprimable = version == "2.1" && tirer(3) == 0;
      const bool page = version == "2.1" && tirer(3) == 0;
      QByteArray octets = page ? valeur.toLatin1() : valeur.toUtf8();
      if (imprimable) octets = octets.toPercentEncoding("; ,\\:").replace('%', '=').replace(";", ";=\r\n");
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
    for (const QString &texte : jetons) EXPECT_TRUE(fiche.contains(texte)) << qPrintable(texte) << "\n" << carte.toStdString() << qPrintable(fiche);
    if (HasFailure()) break;
  }
}
