// What is dialled of a number, and what the modem's answers mean.

#include "Outils.h"
#include "directory/Numerotation.h"

using namespace Qt::StringLiterals;

TEST(Numerotation, CeQuiEstCompose) {
  const struct {
    const char16_t *texte, *separateur;
    bool numero;  ///< taken for one when it is typed
    const char16_t *compose;
  } cas[] = {
      {u" +33.40-12 34", u" ", true, u" +33.40-12 34"},
      {u"(02) 40/12.34", u" ", true, u"02 4012.34"},
      {u"(+33) 2 40", u" ", true, u"+33 2 40"},
      {u"*31#,0240", u" ", true, u"*31#,0240"},
      {u"02_40", u"_", true, u"0240"},
      {u"02 et 40", u" et ", true, u"02  40"},
      {u"02_40", u" ", false, u"0240"},
      {u"40 + 2", u" ", false, u"40  2"},
      {u"02 40 @", u" ", false, u"02 40 "},
      // no command reaches the modem
      {u"02 40;\rAT&F\nATD3615", u" ", false, u"02 403615"},
      {u"3639\r\n", u" ", false, u"3639"},
      {u"T02W40!", u" ", false, u"0240"},
      {u"\u0660\u0661\uFF10é", u" ", false, u""},
      {u"-", u" ", false, u""},
      {u"", u"", false, u""},
      // a separator that would be dialled, in a number that was formatted with it
      {u"02*40*12", u"*", true, u"02 40 12"},
      {u"02 # 40", u" # ", true, u"02 40"},
      {u"*31#02", u"*", true, u"*31#02"},
  };
  for (const auto &c : cas) {
    const QString texte = QString::fromUtf16(c.texte),
                  separateur = QString::fromUtf16(c.separateur);
    EXPECT_EQ(EstNumero(texte, separateur), c.numero) << qPrintable(texte);
    EXPECT_EQ(NumeroAComposer(texte, separateur), QString::fromUtf16(c.compose))
        << qPrintable(texte);
  }
}

TEST(Numerotation, ReponsesDuModem) {
  for (const char *recu : {"", "ATDT 3639;\r", "\r\nBUS", "\r\nNO CARRI", "\r\nRING\r\n"})
    EXPECT_FALSE(LireReponse(recu)) << recu;
  EXPECT_TRUE(LireReponse("ATDT 3639;\r\r\nOK\r\n")->decroche);
  for (const char *mot :
       {"BUSY", "ERROR", "NO CARRIER", "NO ANSWER", "NO DIALTONE", "NO DIAL TONE"}) {
    const auto reponse = LireReponse(QByteArray("ATDT 3639;\r\r\n") + mot + "\r\n");
    ASSERT_TRUE(reponse) << mot;
    EXPECT_FALSE(reponse->decroche) << mot;
    EXPECT_EQ(reponse->mot, QString::fromLatin1(mot));
    EXPECT_FALSE(reponse->raison.isEmpty()) << mot;
  }
}
