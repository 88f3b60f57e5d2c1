#include <gmock/gmock.h>

#include "ControlFixture.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HostPictures : public ControlFixture {
 protected:
  HostPictures() {
    inside(control).AppPathString = u"/app";
    moduleWide().ManufactureLogoPath = u"/old/logo.png";
    moduleWide().DeviceLogoPath = u"/old/device.png";
    moduleWide().DevicePicturePath = u"/old/picture.png";
    inside(control).panel.PictureLogo.setPicture(PictureSource{std::u16string(u"before")});
    inside(control).panel.PictureDevice.setPicture(PictureSource{std::u16string(u"before")});
    log.clear();
  }
  static Variant text(const char16_t* value) { return std::u16string(value); }
  void logoSetting(const char16_t* name) {
    platform.settings[u"Software\\Orvane\\Tessara-Conf\\Settings|Logo"] = std::u16string(name);
  }
};

struct VersionRow {
  const char16_t* given;
  const char16_t* kept;
};

class FirmwareTexts : public HostPictures, public ::testing::WithParamInterface<VersionRow> {};

TEST_P(FirmwareTexts, ArePaddedByTheirLength) {
  control.put_FwVersion(text(GetParam().given));
  EXPECT_EQ(control.get_FwVersion(), text(GetParam().kept));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, FirmwareTexts,
    ::testing::Values(VersionRow{u"", u""}, VersionRow{u"1", u"1.000"}, VersionRow{u"12", u"12"},
                      VersionRow{u"1.2", u"1.200"}, VersionRow{u"1,2", u"1.200"},
                      VersionRow{u"1.20", u"1.200"}, VersionRow{u"10.5", u"10.50"},
                      VersionRow{u"1.234", u"1.234"}, VersionRow{u"1,2,3", u"1.2,3"},
                      VersionRow{u"a,b", u"a.b00"}));

TEST_F(HostPictures, AFirmwareGivenAsANumberIsWrittenInTheSystemsNotation) {
  platform.systemLocale.separator = u",";
  control.put_FwVersion(1.5);
  EXPECT_EQ(inside(control).FwVersion, u"1.500");
}

TEST_F(HostPictures, TheDescriptionIsCaptionAndToolTipAndStoredNowhereElse) {
  control.put_DescriptionString(text(u"Pump 7"));
  EXPECT_THAT(log.entries(), ElementsAre("LabelDeviceDescription.caption=Pump 7",
                                         "LabelDeviceDescription.toolTipText=Pump 7"));
}

TEST_F(HostPictures, TheManufacturerLogoIsTheNamedFileAfterABackslash) {
  platform.files = {u"/app\\logo.png"};
  logoSetting(u"other.png");
  control.put_ManufactureLogoString(text(u"logo.png"));
  EXPECT_THAT(log.entries(), ElementsAre("FileExists /app\\logo.png", "load /app\\logo.png",
                                         "PictureLogo.picture=/app\\logo.png"));
  EXPECT_EQ(control.get_ManufactureLogoString(), text(u"/app\\logo.png"));
}

TEST_F(HostPictures, AMissingLogoFallsBackOnTheSetting) {
  platform.files = {u"/app\\other.png"};
  logoSetting(u"other.png");
  control.put_ManufactureLogoString(text(u"logo.png"));
  EXPECT_THAT(log.entries(), ElementsAre("FileExists /app\\logo.png",
                                         "GetValue 2 Software\\Orvane\\Tessara-Conf\\Settings|Logo",
                                         "FileExists /app\\other.png", "load /app\\other.png",
                                         "PictureLogo.picture=/app\\other.png"));
  EXPECT_EQ(control.get_ManufactureLogoString(), text(u"/app\\other.png"));
}

TEST_F(HostPictures, ALogoWithoutAFolderIsSearchedInTheRoot) {
  inside(control).AppPathString.clear();
  platform.files = {u"\\other.png"};
  logoSetting(u"other.png");
  control.put_ManufactureLogoString(text(u"logo.png"));
  EXPECT_THAT(log.only({"FileExists"}),
              ElementsAre("FileExists \\logo.png", "FileExists \\other.png"));
  EXPECT_EQ(control.get_ManufactureLogoString(), text(u"\\other.png"));
}

TEST_F(HostPictures, WithoutAnyLogoThePictureIsClearedAndThePathStays) {
  control.put_ManufactureLogoString(text(u"logo.png"));
  EXPECT_EQ(log.entries().back(), "PictureLogo.picture=none");
  EXPECT_EQ(control.get_ManufactureLogoString(), text(u"/old/logo.png"));
  EXPECT_THAT(log.only({"Show"}), IsEmpty());
}

TEST_F(HostPictures, TheDeviceLogoSuppliesItsOwnSeparator) {
  platform.files = {u"/app/device.png"};
  control.put_DeviceLogoString(text(u"/device.png"));
  EXPECT_EQ(inside(control).panel.PictureDevice.state().picture,
            PictureSource{std::u16string(u"/app/device.png")});
  EXPECT_EQ(moduleWide().DeviceLogoPath, u"/app/device.png");
  control.put_DeviceLogoString(text(u"device.png"));
  EXPECT_EQ(log.only({"FileExists"}).back(), "FileExists /appdevice.png");
  EXPECT_EQ(inside(control).panel.PictureDevice.state().picture, PictureSource{});
  EXPECT_EQ(moduleWide().DeviceLogoPath, u"/app/device.png");
}

TEST_F(HostPictures, TheDevicePictureIsOnlyCheckedAndItsPathIsCleared) {
  platform.files = {u"/app/p.png"};
  control.put_DevicePictureString(text(u"/p.png"));
  EXPECT_EQ(control.get_DevicePictureString(), text(u"/app/p.png"));
  control.put_DevicePictureString(text(u"/q.png"));
  EXPECT_EQ(control.get_DevicePictureString(), text(u""));
  EXPECT_THAT(log.entries(), ElementsAre("FileExists /app/p.png", "FileExists /app/q.png"));
}

TEST_F(HostPictures, AFileThatIsNotAPictureIsAnErrorAndTheOldPictureStays) {
  platform.files = {u"/app\\logo.png", u"/app/logo.png"};
  platform.pictures.broken = true;
  EXPECT_EQ(errorNumberOf([&] { control.put_ManufactureLogoString(text(u"logo.png")); }), 481);
  EXPECT_EQ(errorNumberOf([&] { control.put_DeviceLogoString(text(u"/logo.png")); }), 481);
  EXPECT_EQ(inside(control).panel.PictureLogo.state().picture,
            PictureSource{std::u16string(u"before")});
  EXPECT_EQ(inside(control).panel.PictureDevice.state().picture,
            PictureSource{std::u16string(u"before")});
}

}  // namespace
}  // namespace tessara::testing
