#include <QApplication>
#include <QTemporaryDir>
#include <array>

#include <gtest/gtest.h>

/// The tests need no screen, and neither read nor write what belongs to the user who runs them.
int main(int argc, char** argv) {
  const QTemporaryDir settings;
  qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
  qputenv("QT_QPA_PLATFORM", "offscreen");
  constexpr std::array kLooks{"QT_FONT_DPI", "QT_SCALE_FACTOR", "QT_STYLE_OVERRIDE", "QT_QPA_PLATFORMTHEME"};
  for (const char* const look : kLooks) qunsetenv(look);
  const QApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
