// The colours of the gradient, and the scale of the program.

#include "ui/Degrade.h"
#include "ui/Echelle.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <ostream>

inline void PrintTo(const Boites::Couleur &c, std::ostream *flux) {
  *flux << c.rouge << ' ' << c.vert << ' ' << c.bleu;
}

namespace {

using Couleur = Boites::Couleur;

constexpr Couleur kNoir{0, 0, 0}, kClair{238, 241, 253};

}  // namespace

TEST(DegradeTest, IntegerPartsOfEqualSteps) {
  // 4 lines: 2 to 5; a channel that falls, one that stays, one whose steps are no integers
  const auto couleurs = PeindreDegrade({200, 50, 0}, {100, 50, 9}, {2, 3}, 8);
  const std::vector<Couleur> attendues{{175, 50, 2}, {150, 50, 4}, {125, 50, 6}, {100, 50, 9}};
  EXPECT_EQ(couleurs, attendues);
}

TEST(DegradeTest, LastLineHasTheLastColourAtAnyHeight) {
  for (int hauteur = 74; hauteur < 2000; ++hauteur) {
    const auto couleurs = PeindreDegrade(kNoir, kClair, {48, 26}, hauteur);
    ASSERT_EQ(couleurs.size(), static_cast<std::size_t>(hauteur - 73)) << hauteur;
    ASSERT_EQ(couleurs.back(), kClair) << hauteur;
  }
}

TEST(DegradeTest, NothingWhereTheRangeIsEmpty) {
  for (const int hauteur : {-5, 0, 48, 73})
    EXPECT_TRUE(PeindreDegrade(kNoir, kClair, {48, 26}, hauteur).empty()) << hauteur;
}

TEST(EchelleTest, SizesAndFonts) {
  EXPECT_EQ(Echelle(9000), 1);
  EXPECT_DOUBLE_EQ(Echelle(10500), 10500 / 9000.0);
  for (const qint32 taille : {6000, 5999, 2, -9000, INT32_MIN})
    EXPECT_EQ(Echelle(taille), 6000 / 9000.0);
  for (const qint32 taille : {12000, 12001, INT32_MAX}) EXPECT_EQ(Echelle(taille), 12000 / 9000.0);

  EXPECT_EQ(PointsAEchelle(8, 1), 8);
  EXPECT_DOUBLE_EQ(PointsAEchelle(9, 4 / 3.0), 12);
  EXPECT_EQ(PointsAEchelle(8, 2 / 3.0), 7);  // not under what can be read
  EXPECT_EQ(PointsAEchelle(6, 1), 6);        // as it was designed
  EXPECT_EQ(PointsAEchelle(6, 2 / 3.0), 6);
}
