#include <map>
#include <optional>

#include <gtest/gtest.h>

#include "InLanguage.h"
#include "SampleRecord.h"
#include "base/Text.h"
#include "record/RecordRows.h"

namespace tessara::testing {
namespace {

class RecordRowsTest : public ::testing::Test {
 protected:
  RecordRowsTest() { LoadDefaultTexts(texts); }

  /// "caption=value" of each row under that title.
  QStringList rows(const QString& title) {
    QStringList found;
    for (const RecordSection& section : recordSections(record, texts)) {
      if (section.title != title) continue;
      for (const RecordRow& row : section.rows) found += row.caption + '=' + row.value;
    }
    return found;
  }

  ModuleRecord record = sampleRecord();
  TextTables texts;
  std::optional<InLanguage> language{u"dlg"};
};

TEST_F(RecordRowsTest, ShowTheModuleInTheTextsOfTheControl) {
  EXPECT_EQ(rows("Modul"),
            (QStringList{"Gerätetyp=TESSARA TM 151", "Beschreibung=Temperatur-Messumformer",
                         "Seriennummer=18446744073709551615", "Firmware Version=2.000"}));
}

TEST_F(RecordRowsTest, ShowTheIdentificationWords) {
  EXPECT_EQ(rows("Kennung"),
            (QStringList{"Vendor ID=49", "Group ID=1", "Family ID=15", "Device ID=-151"}));
}

TEST_F(RecordRowsTest, ShowTheStatusWithItsWordsInHexadecimal) {
  EXPECT_EQ(
      rows("Status"),
      (QStringList{"Modul Status=2 -> Fehler Register", "Kanal Status=11 -> Drahtbruch Sensor!",
                   "Statuswort / LED-Wort=0x8000 / 0x0011", "Statuszeile=Offline"}));
}

TEST_F(RecordRowsTest, ShowTheConnection) {
  EXPECT_EQ(rows("Verbindung"),
            (QStringList{"COM-Port=USB Adapter OKT (COM3)", "Übertragung=Modbus", "Baudrate=19200",
                         "Adresse=192"}));
}

TEST_F(RecordRowsTest, OmitTheRateOfAPathWithAFixedOne) {
  record.connection.object = "HartCommObject";
  EXPECT_EQ(rows("Verbindung"),
            (QStringList{"COM-Port=USB Adapter OKT (COM3)", "Übertragung=HART", "Adresse=192"}));
  record.connection.object = "NfcCommObject";
  record.connection.port = "COM999";
  record.connection.adapter = "NFC-USB-ZORVEN-ADAPTER";
  EXPECT_EQ(rows("Verbindung").first(2),
            (QStringList{"COM-Port=COM999 NFC-USB-ZORVEN-ADAPTER", "Übertragung=NFC"}));
}

TEST_F(RecordRowsTest, ShowTheCatalogue) {
  EXPECT_EQ(rows("Katalog"),
            (QStringList{"Eintrag=Bekannt, Firmware neuer als im Katalog",
                         "Produktseite=https://example.invalid/tessara/tm-151",
                         "Datenblatt=https://example.invalid/tm-151-de.pdf",
                         "Packungsbeilage=https://example.invalid/tm-151-leaflet.pdf"}));
}

TEST_F(RecordRowsTest, ShowEachResultOfTheCatalogueDifferently) {
  QStringList shown;
  for (int result = 0; result <= 5; ++result) {
    record.catalogue.result = static_cast<CatalogResult>(result);
    shown += rows("Katalog").front();
  }
  EXPECT_EQ(shown.removeDuplicates(), 0);
}

TEST_F(RecordRowsTest, OmitUnknownValues) {
  record.module.description = record.status.line = record.catalogue.datasheet = "";
  EXPECT_EQ(rows("Modul").size(), 3);
  EXPECT_EQ(rows("Status").size(), 3);
  EXPECT_EQ(rows("Katalog").size(), 3);
}

TEST_F(RecordRowsTest, OmitAFirmwareThatThePanelHides) {
  record.catalogue.hidesFirmware = true;
  EXPECT_EQ(rows("Modul").filter("2.000"), QStringList());
}

TEST_F(RecordRowsTest, TheTimeHasItsOffset) {
  EXPECT_EQ(recordTime(record), "17. Mai 2024, 08:04:59 (UTC+02:00)");
  record.time = record.time.toUTC();
  EXPECT_EQ(recordTime(record), "17. Mai 2024, 06:04:59 (UTC)");
}

TEST_F(RecordRowsTest, TheTimeIsWrittenAsTheLanguageWritesIt) {
  const std::map<std::u16string, QString> days{
      {u"elg", "17 May 2024, "},        {u"flg", "17 mai 2024, "},
      {u"ilg", "17 maggio 2024, "},     {u"slg", "17 de mayo de 2024, "},
      {u"plg", "17 de maio de 2024, "}, {u"tlg", "17 Mayıs 2024, "},
      {u"rlg", "17 мая 2024 г., "},     {u"zlg", "17 maja 2024, "},
      {u"clg", "2024年5月17日 "},       {u"jlg", "2024年5月17日 "}};
  for (const auto& [extension, day] : days) {
    language.emplace(extension);
    EXPECT_EQ(recordTime(record), day + "08:04:59 (UTC+02:00)");
  }
}

TEST_F(RecordRowsTest, TextHasTheValuesAligned) {
  const QStringList lines = recordText(record, texts).split('\n');
  EXPECT_EQ(lines.first(), "Modulprotokoll");
  qsizetype column = -1;
  for (const QString& line : lines) {
    if (!line.startsWith("  ")) continue;
    const qsizetype end = line.indexOf(':') + 1;
    qsizetype value = end;
    while (value < line.size() && line[value] == ' ') ++value;
    if (column < 0) column = value;
    EXPECT_EQ(value, column) << line.toStdString();
  }
}

TEST_F(RecordRowsTest, TextCountsEastAsianCharactersTwice) {
  texts.TextModulInfo[3] = u"设备类型";
  texts.TextModulInfo[6] = u"SN";
  language.emplace(u"clg");
  const QStringList lines = recordText(record, texts).split('\n');
  const QString wide = lines.filter("设备类型").value(0);
  const QString narrow = lines.filter("  SN:").value(0);
  EXPECT_EQ(wide.indexOf("TESSARA") + 4, narrow.indexOf("1844"));
}

TEST_F(RecordRowsTest, TextHasEveryValue) {
  const QString text = recordText(record, texts);
  for (const RecordSection& section : recordSections(record, texts)) {
    EXPECT_TRUE(text.contains(section.title)) << section.title.toStdString();
    for (const RecordRow& row : section.rows) {
      EXPECT_TRUE(text.contains(row.value)) << row.value.toStdString();
    }
  }
}

}  // namespace
}  // namespace tessara::testing
