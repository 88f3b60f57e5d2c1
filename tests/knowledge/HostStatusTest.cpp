#include <gtest/gtest.h>

#include "ControlFixture.h"

namespace tessara {
namespace {

class HostStatus : public testing::ControlFixture {
 protected:
  bool setModule(std::int32_t device, std::int32_t led) {
    return control.SetModuleStatus(device, led);
  }
  bool setChannels(std::int32_t in, std::int32_t out) { return control.SetChnStatus(in, out); }

  std::string moduleLine() { return toUtf8(inside(control).panel.LblModulState.caption()); }
  std::string channelLine() { return toUtf8(inside(control).panel.LblChnState.caption()); }
};

TEST_F(HostStatus, ModuleLineGoesToLabelAndToolTip) {
  inside(control).FamilyID = 22;
  EXPECT_TRUE(setModule(0x1004, 0));
  EXPECT_EQ(moduleLine(), "1004 -> Simulation -> Fehler Konfiguration Dip-Schalter");
  EXPECT_EQ(inside(control).panel.LblModulState.state().toolTipTitle, u"Modul Status");
  EXPECT_EQ(inside(control).panel.LblModulState.state().toolTipText,
            inside(control).panel.LblModulState.caption());
}

TEST_F(HostStatus, ChannelLineGoesToLabelAndToolTip) {
  EXPECT_TRUE(setChannels(0x0001, 0x0002));
  EXPECT_EQ(channelLine(), "1 -> Drahtbruch Sensor! 2 -> Fehler Bürde!");
  EXPECT_EQ(inside(control).panel.LblChnState.state().toolTipTitle, u"Kanal Status");
  EXPECT_EQ(inside(control).panel.LblChnState.state().toolTipText,
            inside(control).panel.LblChnState.caption());
}

TEST_F(HostStatus, ChannelLineFollowsFamilyAndReader) {
  inside(control).FamilyID = 18;
  setChannels(0x0080, 0x0040);
  EXPECT_EQ(channelLine(), "40 -> Begrenzend!");
  inside(control).FamilyID = 20;
  setChannels(0x0080, 0x0040);
  EXPECT_EQ(channelLine(), "40 -> Fehler Dip - Schalter!");
  inside(control).bNFCReader = true;
  setChannels(0x0080, 0x0040);
  EXPECT_EQ(channelLine(), "NFC");
}

TEST_F(HostStatus, ToolTipTitlesComeFromTheTextTable) {
  moduleWide().TextModulInfo[21] = u"module";
  moduleWide().TextModulInfo[22] = u"channel";
  setModule(0, 0);
  setChannels(0x0080, 0x0080);
  EXPECT_EQ(inside(control).panel.LblModulState.state().toolTipTitle, u"module");
  EXPECT_EQ(inside(control).panel.LblChnState.state().toolTipTitle, u"channel");
}

TEST_F(HostStatus, NegativeWordIsPrintedAsItsBitPattern) {
  setChannels(0x0080, -1);
  EXPECT_EQ(channelLine().substr(0, 4), "FFFF");
  setModule(-32768, 0);
  EXPECT_EQ(moduleLine(), "8000 -> Fehler Ausgangswert");
}

TEST_F(HostStatus, ErrorBitSelectsNothingForAHost) {
  setModule(0x0002, 0);
  EXPECT_EQ(moduleLine(), "2");
}

TEST_F(HostStatus, UsbPowerComesFirstEvenOverAReader) {
  setModule(0, 0x1000);
  EXPECT_EQ(moduleLine(), "USB-Power; 0 -> Kein Fehler");
  inside(control).bNFCReader = true;
  setModule(0x0004, 0x1001);
  EXPECT_EQ(moduleLine(), "USB-Power; NFC");
  setModule(0x0004, 0x0FFF);
  EXPECT_EQ(moduleLine(), "NFC");
}

TEST_F(HostStatus, ZeroSetsPicture1AndALaterFaultKeepsIt) {
  setModule(0, 0);
  EXPECT_EQ(log.only({"ImageDevState"}), (std::vector<std::string>{"ImageDevState.picture=1"}));
  setModule(0x0004, 0);
  EXPECT_EQ(log.count("ImageDevState"), 1U);
  EXPECT_FALSE(inside(control).panel.ImageDevState.visible());
}

TEST_F(HostStatus, FaultSetsNoPicture) {
  setModule(0x0004, 0);
  EXPECT_EQ(log.count("ImageDevState"), 0U);
}

TEST_F(HostStatus, ReaderSetsNoPictureEvenForZero) {
  inside(control).bNFCReader = true;
  setModule(0, 0);
  EXPECT_EQ(moduleLine(), "NFC");
  EXPECT_EQ(log.count("ImageDevState"), 0U);
}

TEST_F(HostStatus, ChannelsSetNoPicture) {
  setChannels(0x0080, 0x0080);
  setChannels(1, 1);
  EXPECT_EQ(log.count("ImageDevState"), 0U);
}

TEST_F(HostStatus, WordBeyond16BitsIsAnOverflowAndChangesNothing) {
  constexpr std::int32_t overflow = 6;
  setModule(4, 0);
  setChannels(4, 0x0080);
  log.clear();
  for (const std::int32_t bad : {32768, 65535, -32769}) {
    EXPECT_EQ(testing::errorNumberOf([&] { setModule(bad, 0); }), overflow);
    EXPECT_EQ(testing::errorNumberOf([&] { setModule(0, bad); }), overflow);
    EXPECT_EQ(testing::errorNumberOf([&] { setChannels(bad, 0); }), overflow);
    EXPECT_EQ(testing::errorNumberOf([&] { setChannels(0, bad); }), overflow);
  }
  EXPECT_TRUE(log.entries().empty());
  EXPECT_EQ(moduleLine(), "4 -> Simulation");
}

TEST_F(HostStatus, StatusStringsReadTheCurrentLabels) {
  setModule(4, 0);
  setChannels(4, 0x0080);
  EXPECT_EQ(control.get_ModulStatusString(),
            Variant{inside(control).panel.LblModulState.caption()});
  EXPECT_EQ(control.get_ChnStatusString(), Variant{inside(control).panel.LblChnState.caption()});
  inside(control).panel.LblModulState.setCaption({});
  inside(control).panel.LblChnState.setCaption(u"other");
  EXPECT_EQ(control.get_ModulStatusString(), Variant{std::u16string{}});
  EXPECT_EQ(control.get_ChnStatusString(), Variant{std::u16string{u"other"}});
}

}  // namespace
}  // namespace tessara
