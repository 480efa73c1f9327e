#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("CUPS_SERVER", "127.0.0.1:1");  // nothing must reach a printer of this computer
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS() + (testing::UnitTest::GetInstance()->test_to_run_count() == 0 ? 1 : 0);
}
