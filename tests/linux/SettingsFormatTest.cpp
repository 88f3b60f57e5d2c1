#include <QSettings>
#include <map>

#include "SettingsFolder.h"
#include "linux/SettingsFormat.h"

namespace tessara::testing {
namespace {

class SettingsFormatTest : public SettingsFolder {
 protected:
  /// The text of `key` in a file that holds `bytes`.
  std::string read(const std::string& bytes, const char* key) {
    put(userFile(), bytes);
    const QSettings settings(QString::fromStdString(userFile()), settingsFormat());
    EXPECT_EQ(settings.status(), QSettings::NoError);
    return decodeValue(settings.value(key)).toStdString();
  }
};

TEST_F(SettingsFormatTest, TakesASingleBackslashAsItStands) {
  EXPECT_EQ(read("[Ports]\nCOM9\\Name=\\Device\\ftdi_sio9\n", "Ports/COM9/Name"),
            "\\Device\\ftdi_sio9");
}

TEST_F(SettingsFormatTest, TakesADoubledBackslashAsOne) {
  EXPECT_EQ(read("[Ports]\nCOM9\\Name=\\\\Device\\\\VCP0\n", "Ports/COM9/Name"), "\\Device\\VCP0");
}

TEST_F(SettingsFormatTest, TakesQuotationMarksAway) {
  EXPECT_EQ(read("[Settings]\nLogo=\" a; b \" ; which one\n", "Settings/Logo"), " a; b ");
}

TEST_F(SettingsFormatTest, EndsAnUnquotedValueAtAComment) {
  EXPECT_EQ(read("[Settings]\nLanguage = 2   ; English\n", "Settings/Language"), "2");
}

TEST_F(SettingsFormatTest, ReadsWindowsLineEndsAndAByteOrderMark) {
  EXPECT_EQ(read("\xef\xbb\xbf[Settings]\r\nLanguage=2\r\n", "Settings/Language"), "2");
}

TEST_F(SettingsFormatTest, ReadsNamesWithBlanksInEitherForm) {
  EXPECT_EQ(read("[Settings]\nCOM Port=3\n", "Settings/COM Port"), "3");
  EXPECT_EQ(read("[Settings]\nCOM%20Port=9\n", "Settings/COM Port"), "9");
}

TEST_F(SettingsFormatTest, ReadsTheGeneralGroupAsNoGroup) {
  EXPECT_EQ(read("[General]\nLoose=1\n", "Loose"), "1");
}

/// Gives the path of a copy: QSettings keeps the values of a path that it has seen in one format.
QString copyOf(const std::filesystem::path& file) {
  const auto copy = file.parent_path() / "Copy.ini";
  std::filesystem::copy_file(file, copy);
  return QString::fromStdString(copy);
}

const std::map<QString, QString> awkwardValues{{"Ports/COM9/Name", "\\Device\\new"},
                                               {"Settings/Logo", "a, \"b\"; c.png"},
                                               {"Settings/COM Port", "3"},
                                               {"Loose", "@home"}};

TEST_F(SettingsFormatTest, IsUnderstoodByPlainIniReaders) {
  std::filesystem::create_directories(userFile().parent_path());
  {
    QSettings ours(QString::fromStdString(userFile()), settingsFormat());
    for (const auto& [name, text] : awkwardValues) ours.setValue(name, encodeValue(text, {}));
  }
  const QSettings plain(copyOf(userFile()), QSettings::IniFormat);
  for (const auto& [name, text] : awkwardValues) {
    EXPECT_EQ(plain.value(name).toString().toStdString(), text.toStdString());
  }
}

TEST_F(SettingsFormatTest, UnderstandsPlainIniWriters) {
  std::filesystem::create_directories(userFile().parent_path());
  {
    QSettings plain(QString::fromStdString(userFile()), QSettings::IniFormat);
    for (const auto& [name, text] : awkwardValues) plain.setValue(name, text);
  }
  const QSettings ours(copyOf(userFile()), settingsFormat());
  for (const auto& [name, text] : awkwardValues) {
    EXPECT_EQ(decodeValue(ours.value(name)).toStdString(), text.toStdString());
  }
}

TEST_F(SettingsFormatTest, FindsNoFaultInAGoodFile) {
  put(userFile(), "; a comment\n\n[Settings]\nLanguage=2\n");
  EXPECT_EQ(settingsFault(QString::fromStdString(userFile())), "");
}

}  // namespace
}  // namespace tessara::testing
