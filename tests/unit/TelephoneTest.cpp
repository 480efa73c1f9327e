// The stored form of telephone numbers.

#include "Outils.h"
#include "storage/Telephone.h"

using namespace Qt::StringLiterals;

TEST(TelephoneTest, FormeEnregistree) {
  struct Cas {
    const char16_t *texte, *separateur, *forme;
  };
  const Cas cas[] = {
      // pairs, the lone digit in front
      {u"", u" ", u""},
      {u"7", u" ", u"7"},
      {u"15", u" ", u"15"},
      {u"123", u" ", u"1 23"},
      {u"3639", u" ", u"36 39"},
      {u"0240123456", u" ", u"02 40 12 34 56"},
      // whatever is no digit goes
      {u"02 40-12.34/56", u".", u"02.40.12.34.56"},
      {u"+33 240123456", u" ", u"3 32 40 12 34 56"},
      {u"(02)40", u" ", u"02 40"},
      {u"02\u00A040\u00A012", u" ", u"02 40 12"},
      {u"-", u" ", u""},
      {u" ", u" ", u""},
      {u"--..--", u" ", u""},
      // but a sign directly behind a removed one stays, unless it recurs further on
      {u"01-.23", u" ", u"0 1. 23"},
      {u"01-.2.3", u" ", u"01 23"},
      {u"ab", u" ", u"b"},
      {u"abc", u" ", u"b"},
      {u"01--23", u" ", u"01 23"},
      {u"01 _023", u" ", u"01 _0 23"},
      // what people write around groups goes, wherever it stands
      {u"01 (0)2", u" ", u"01 02"},
      {u"(02) 40 / 12", u".", u"02.40.12"},
      {u"02 / 40.", u" / ", u"02 / 40"},
      {u"0123-.", u" ", u"0 12 3."},
      // separators of every length
      {u"0240123456", u"", u"0240123456"},
      {u"02 40 12 34 5", u"", u"024012345"},
      {u"7", u" / ", u"7"},
      {u"", u" / ", u""},
      {u"--", u" / ", u""},
      {u"123", u" / ", u"1 / 23"},
      {u"02401234", u" - ", u"02 - 40 - 12 - 34"},
      // what has been formatted comes in again
      {u"02 40 12 34 56", u" ", u"02 40 12 34 56"},
      {u"1 23", u".", u"1.23"},
      {u"02 - 40 - 12", u" - ", u"02 - 40 - 12"},
      {u"02. 40", u". ", u"02. 40"},
      {u"36 / 39", u" / ", u"36 / 39"},
      {u"1 / 23", u" / ", u"1 / 23"},
      {u"01-.23", u"-.", u"01-.23"},
      // digits of a separator may be the number's own
      {u"369939", u"99", u"369939"},
      {u"0699123456", u"99", u"069999991299349956"},
      {u"02940", u"9", u"0929940"},
  };
  for (const auto &c : cas)
    EXPECT_EQ(FormatTelephone(QString::fromUtf16(c.texte), QString::fromUtf16(c.separateur)),
              QString::fromUtf16(c.forme))
        << '"' << QString::fromUtf16(c.texte).toStdString() << "\" \""
        << QString::fromUtf16(c.separateur).toStdString() << '"';
  EXPECT_EQ(FormatTelephone(u"36 / 39"_s, u"."_s, u" / "_s), u"36.39"_s)
      << "another takes its place";
}

// A text that was pasted by mistake takes no longer than its length.
TEST(TelephoneTest, TexteDUnMillionDeSignes) {
  QString texte, liaisons;
  for (int i = 0; i < 1'000'000; ++i) texte += QChar(0x3000 + i % 0x8000);
  for (int i = 0; i < 250'000; ++i) liaisons += u"12 / "_s;
  EXPECT_EQ(FormatTelephone(texte + u"1"_s, u" "_s).back(), u'1');
  EXPECT_EQ(FormatTelephone(liaisons, u" / "_s).size(), 5 * 250'000 - 3);
}
