// The folding of accents.

#include "Outils.h"
#include "calendar/SansAccents.h"

using namespace Qt::StringLiterals;

TEST(SansAccentsTest, Table) {
  const std::pair<QString, QString> cas[] = {
      {u""_s, u""_s},
      {u"Éléonore"_s, u"Eleonore"_s},
      {u"Noël"_s, u"Noel"_s},
      {u"ÀÁÂÃÄÅ àáâãäå"_s, u"AAAAAA aaaaaa"_s},
      {u"ÒÓÔÕÖØ òóôõöø"_s, u"OOOOOO oooooo"_s},
      {u"ÈÉÊË èéêë ÌÍÎÏ ìíîï"_s, u"EEEE eeee IIII iiii"_s},
      {u"ÙÚÛÜ ùúûü ÿ Ññ Çç"_s, u"UUUU uuuu y Nn Cc"_s},
      // outside the table
      {u"Œuvre, œuf, Ýs, ý, Æ, ß, Ÿ, Š"_s, u"Œuvre, œuf, Ýs, ý, Æ, ß, Ÿ, Š"_s},
      {u"\U0001F600 é"_s, u"\U0001F600 e"_s},
  };
  for (const auto &[texte, attendu] : cas) EXPECT_EQ(SansAccents(texte), attendu);
}
