// What of a record is handed to the desktop, and which picture's file is read.

#include "directory/FichierPhoto.h"
#include "directory/Liens.h"
#include "unit/Outils.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(LiensTest, UneAdresseSeule) {
  for (const QString &adresse : {u"a@b.fr"_s, u" Jean-Paul.O'Neil+velo@poste.exemple.fr "_s,
                                 u"été@école.fr"_s, u"root@localhost"_s})
    EXPECT_EQ(LienCourriel(adresse), u"mailto:"_s + adresse.trimmed());
  EXPECT_EQ(LienCourriel(u"MAILTO:a@b.fr"_s), u"mailto:a@b.fr"_s);
  for (const QString &autre :
       {u""_s, u"Albert"_s, u"a@b.fr?attach=/etc/passwd"_s, u"a@b.fr?subject=x"_s,
        u"a@b.fr,c@d.fr"_s, u"a@b.fr;c@d.fr"_s, u"a@b.fr c@d.fr"_s, u"A <a@b.fr>"_s,
        u"a%3Fattach=x@b.fr"_s, u"a@b.fr&attach=x"_s, u"a@b.fr\n"_s + u"x"_s, u"@b.fr"_s, u"a@"_s,
        u"file:///a@b.fr"_s})
    EXPECT_EQ(LienCourriel(autre), std::nullopt) << autre.toStdString();
}

TEST(LiensTest, UnePageWeb) {
  for (const QString &page : {u"http://exemple.fr"_s, u"HTTPS://exemple.fr/a?b=c#d"_s,
                              u"https://exemple.fr:8443/photos été"_s})
    EXPECT_EQ(LienSite(page), page);
  for (const QString &hote :
       {u"www.exemple.fr"_s, u"www.exemple.fr/albert & fils"_s, u"intranet"_s,
        u"exemple.fr:8080/x"_s, u"localhost:80"_s, u"ftp.exemple.fr"_s, u"école.fr"_s})
    EXPECT_EQ(LienSite(u' ' + hote), u"http://"_s + hote);
  EXPECT_EQ(LienSite(u"mailto:a@b.fr"_s), u"mailto:a@b.fr"_s);
  for (const QString &autre :
       {u""_s, u"file:///etc/passwd"_s, u"FILE:/etc/passwd"_s, u"/etc/passwd"_s, u"../x"_s,
        u"~/x"_s, u"smb://serveur/x"_s, u"\\\\serveur\\x"_s, u"C:\\x.exe"_s,
        u"javascript:alert(1)"_s, u"javascript:1"_s, u"data:text/html,x"_s, u"tel:0240123456"_s,
        u"http:"_s, u"http:///etc"_s, u"http:x"_s, u"mailto:a@b.fr?attach=x"_s, u"a@b.fr"_s,
        u"view-source:http://a.fr"_s})
    EXPECT_EQ(LienSite(autre), std::nullopt) << autre.toStdString();
}

TEST(FichierPhotoTest, SeulUnFichierOrdinaireEtMesure) {
  const QTemporaryDir dossier;
  QFile fichier(dossier.filePath(u"photo.png"_s));
  ASSERT_TRUE(fichier.open(QFile::WriteOnly) && fichier.write("abc") == 3 && fichier.flush());
  EXPECT_EQ(LirePhoto(fichier.fileName()), QByteArray("abc"));
  ASSERT_TRUE(fichier.resize(65ll << 20));
  EXPECT_EQ(LirePhoto(fichier.fileName()), std::nullopt);
  for (const QString &autre : {dossier.path(), u"/dev/zero"_s, dossier.filePath(u"absente"_s)})
    EXPECT_EQ(LirePhoto(autre), std::nullopt) << autre.toStdString();
}

TEST(FichierPhotoTest, DisparueSeulementLaOuLeResteEstLa) {
  const QTemporaryDir dossier;
  const QString absente = dossier.filePath(u"absente.png"_s);
  EXPECT_FALSE(PhotoDisparue(absente));  // the folder is empty: its disk may not be mounted
  QFile voisine(dossier.filePath(u"voisine.png"_s));
  ASSERT_TRUE(voisine.open(QFile::WriteOnly));
  EXPECT_TRUE(PhotoDisparue(absente));
  EXPECT_FALSE(PhotoDisparue(voisine.fileName()));
  EXPECT_FALSE(PhotoDisparue(dossier.filePath(u"disque/absente.png"_s)));
  EXPECT_FALSE(PhotoDisparue(u"absente.png"_s));
  ASSERT_TRUE(QFile::link(absente, dossier.filePath(u"lien.png"_s)));
  EXPECT_FALSE(PhotoDisparue(dossier.filePath(u"lien.png"_s)));
}
