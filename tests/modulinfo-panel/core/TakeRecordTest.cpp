#include <gtest/gtest.h>

#include "ControlFixture.h"
#include "FakeCatalogue.h"
#include "qt/QtText.h"
#include "record/RecordJson.h"
#include "record/TakeRecord.h"

namespace tessara::testing {
namespace {

const QDateTime moment(QDate(2024, 5, 17), QTime(8, 4, 59, 123), Qt::OffsetFromUTC, 7200);

class TakeRecordTest : public ControlFixture {
 protected:
  TakeRecordTest() {
    platform.xmlTree = [] { return std::make_unique<FakeCatalogue>(); };
    inside(control).Language = 1;
  }

  std::optional<ModuleRecord> take() { return takeRecord(control, moment); }

  /// The record of the module after a read.
  ModuleRecord read() {
    control.AutomaticConnection();
    return take().value();
  }
};

TEST_F(TakeRecordTest, ReturnsNothingBeforeARead) {
  EXPECT_FALSE(take());
}

TEST_F(TakeRecordTest, ReturnsNothingAfterAFailedRead) {
  platform.device.connects = false;
  control.AutomaticConnection();
  EXPECT_FALSE(take());
}

TEST_F(TakeRecordTest, ReturnsNothingInOfflineMode) {
  control.AutomaticConnection();
  inside(control).panel.CmdOfflineConfigure.press();
  EXPECT_FALSE(take());
}

TEST_F(TakeRecordTest, HasTheTextsOfThePanel) {
  const ModuleRecord record = read();
  EXPECT_EQ(record.module.vendorId, 49);
  EXPECT_EQ(record.module.groupId, 1);
  EXPECT_EQ(record.module.familyId, 16);
  EXPECT_EQ(record.module.deviceId, 161);
  EXPECT_EQ(record.module.firmware, "1.234");
  EXPECT_EQ(record.module.name, readable(inside(control).panel.LabelDeviceName.caption()));
  EXPECT_EQ(record.module.serialNumber, readable(inside(control).panel.LblSerialNumber.caption()));
  EXPECT_EQ(record.status.module, readable(inside(control).panel.LblModulState.caption()));
  EXPECT_EQ(record.status.channel, readable(inside(control).panel.LblChnState.caption()));
  EXPECT_EQ(record.status.word, inside(control).StatusWord);
  EXPECT_EQ(record.language, 1);
}

TEST_F(TakeRecordTest, HasTheConnection) {
  inside(control).panel.ComboComPort.addItem(u"USB Adapter OKT (COM3)");
  inside(control).panel.ComboComPort.setText(u"USB Adapter OKT (COM3)");
  const auto expected = ModuleRecord::Connection{.port = "COM3",
                                                 .adapter = "USB Adapter OKT (COM3)",
                                                 .object = "ModbusCommObject",
                                                 .baudrate = 19200,
                                                 .address = 192};
  EXPECT_EQ(read().connection, expected);
}

TEST_F(TakeRecordTest, HasTheTimeInWholeSecondsWithItsOffset) {
  const ModuleRecord record = read();
  EXPECT_EQ(record.time.toString(Qt::ISODate), "2024-05-17T08:04:59+02:00");
  EXPECT_EQ(record.time.time().msec(), 0);
}

TEST_F(TakeRecordTest, HasTheStatePictureWhileItIsVisible) {
  EXPECT_EQ(read().status.picture, 1);
  inside(control).panel.ImageDevState.setVisible(false);
  EXPECT_EQ(take()->status.picture, std::nullopt);
}

TEST_F(TakeRecordTest, HasNoPaddingInItsTexts) {
  platform.device.registers[16] = DeviceWords(16, 0);
  platform.device.registers[16][0] = 0x4142;
  const QString name = read().module.name;
  EXPECT_FALSE(name.contains(QChar(0)));
  EXPECT_EQ(name, name.trimmed());
}

TEST_F(TakeRecordTest, HasTheVerdictAndTheLinksOfTheCatalogue) {
  const auto expected = ModuleRecord::Catalogue{.result = CatalogResult::CatalogExact,
                                                .hidesFirmware = false,
                                                .product = "product",
                                                .datasheet = "sheet",
                                                .leaflet = ""};
  EXPECT_EQ(read().catalogue, expected);
}

TEST_F(TakeRecordTest, SaysWhereTheFirmwareStandsToTheCatalogue) {
  FakeCatalogue::Node root = FakeCatalogue::oneModule();
  root.children[0].children[0].children.back().attributes[0] = u"1.000";
  platform.xmlTree = [&] { return std::make_unique<FakeCatalogue>(root); };
  EXPECT_EQ(read().catalogue.result, CatalogResult::CatalogFwNewer);
  root.children[0].children[0].attributes[1] = u"1";
  EXPECT_TRUE(read().catalogue.hidesFirmware);
}

TEST_F(TakeRecordTest, HasNoLinksOfAnEarlierModule) {
  EXPECT_EQ(read().catalogue.product, "product");
  platform.device.identifier[3] = 7;
  const ModuleRecord::Catalogue unlisted = read().catalogue;
  EXPECT_EQ(unlisted.result, CatalogResult::CatalogNoDevice);
  EXPECT_EQ(unlisted.product, "");
  EXPECT_EQ(unlisted.datasheet, "");
}

TEST_F(TakeRecordTest, LoadsNoCatalogue) {
  control.AutomaticConnection();
  bool loaded = false;
  platform.xmlTree = [&] {
    loaded = true;
    return FakeCatalogue::broken();
  };
  EXPECT_EQ(take()->catalogue.result, CatalogResult::CatalogExact);
  EXPECT_FALSE(loaded);
}

TEST_F(TakeRecordTest, DoesNotAccessTheModule) {
  control.AutomaticConnection();
  bool touched = false;
  platform.device.before = [&](const std::string&) { touched = true; };
  EXPECT_TRUE(take());
  EXPECT_FALSE(touched);
}

TEST_F(TakeRecordTest, IsTheSameAfterSavingAndReading) {
  const ModuleRecord record = read();
  EXPECT_EQ(recordFromJson(recordJson(record), "a.json"), record);
}

}  // namespace
}  // namespace tessara::testing
