#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "HostSettings.h"

namespace tessara::testing {
namespace {

class HostSettingsTest : public ::testing::Test {
 protected:
  HostSettingsTest() {
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
  }

  void write(const QByteArray& text) {
    QDir(folder.path()).mkpath("Orvane");
    QFile file(folder.filePath("Orvane/modulinfo-panel.ini"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }

  QTemporaryDir folder;
};

TEST_F(HostSettingsTest, ReturnStoredValues) {
  {
    HostSettings settings(true);
    settings.keepBaudrate(57600);
    settings.keepGeometry("Window", "place");
    settings.keepFolder(folder.path());
  }
  const HostSettings again(true);
  EXPECT_EQ(again.baudrate(), 57600);
  EXPECT_EQ(again.geometry("Window"), "place");
  EXPECT_EQ(again.geometry("Events"), "");
  EXPECT_EQ(again.folder(), folder.path());
}

TEST_F(HostSettingsTest, StoreNothingForASimulatedModule) {
  write("[Connection]\nBaudrate=57600\n");
  HostSettings settings(false);
  EXPECT_EQ(settings.baudrate(), std::nullopt);
  settings.keepBaudrate(38400);
  EXPECT_EQ(HostSettings(true).baudrate(), 57600);
}

TEST_F(HostSettingsTest, IgnoreInvalidValues) {
  for (const QByteArray value : {"fast", "-1", "0", "299", "99999999999", ""}) {
    write("[Connection]\nBaudrate=" + value + "\n# " + QByteArray(value.size(), 'x') + "\n");
    EXPECT_EQ(HostSettings(true).baudrate(), std::nullopt) << value.toStdString();
  }
}

TEST_F(HostSettingsTest, SuggestAnExistingFolder) {
  HostSettings settings(true);
  settings.keepFolder(folder.filePath("gone"));
  EXPECT_NE(settings.folder(), folder.filePath("gone"));
  EXPECT_FALSE(settings.folder().isEmpty());
}

}  // namespace
}  // namespace tessara::testing
