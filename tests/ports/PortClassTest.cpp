#include <gtest/gtest.h>

#include "ports/PortClass.h"

namespace tessara {
namespace {

TEST(PortClass, EachClassHasItsLabel) {
  EXPECT_EQ(portLabel(PortClass::ProgrammingAdapter, u"COM5"), u"USB Adapter OKT (COM5)");
  EXPECT_EQ(portLabel(PortClass::ViatorModem, u"COM7"), u"USB Hart Adapter Viator (COM7)");
  EXPECT_EQ(portLabel(PortClass::Twn4Reader, u"COM9"), u"TWN4 NFC-Adapter (COM9)");
  EXPECT_EQ(portLabel(PortClass::ViatorOverUsbser, u"COM4"), u"Bluetooth Adapter (COM4)");
  EXPECT_EQ(portLabel(PortClass::Plain, u"COM1"), u"Serial Port (COM1)");
}

TEST(PortClass, DriverWordsAreFoundAnywhereIgnoringCase) {
  EXPECT_EQ(portDriverOf(u"\\Device\\Silabser0"), PortDriver::Silabser);
  EXPECT_EQ(portDriverOf(u"xSLABSERx"), PortDriver::Silabser);
  EXPECT_EQ(portDriverOf(u"VIATOR"), PortDriver::Viator);
  EXPECT_EQ(portDriverOf(u"\\Device\\usbser000"), PortDriver::Usbser);
  EXPECT_EQ(portDriverOf(u"\\Device\\Serial0"), PortDriver::Other);
  EXPECT_EQ(portDriverOf(u""), PortDriver::Other);
}

TEST(PortClass, OfSeveralDriverWordsTheFirstOneTestedDecides) {
  EXPECT_EQ(portDriverOf(u"usbser viator slabser"), PortDriver::Silabser);
  EXPECT_EQ(portDriverOf(u"usbser viator"), PortDriver::Viator);
}

TEST(PortClass, PlainPortsNeedTheRequestAndTheWordCom) {
  EXPECT_TRUE(listedAsPlain(u"COM1", true));
  EXPECT_TRUE(listedAsPlain(u"xcom1", true));
  EXPECT_FALSE(listedAsPlain(u"COM1", false));
  EXPECT_FALSE(listedAsPlain(u"LPT1", true));
}

ViatorList twoViators() {
  ViatorList viators;
  viators.ports[1] = u"COM4";
  viators.ports[2] = u"COM6";
  viators.count = 2;
  return viators;
}

TEST(PortClass, AMatchDropsTheHighestModemWhicheverMatched) {
  ViatorList viators = twoViators();
  EXPECT_EQ(viatorPasses(viators, u"COM4", false),
            std::vector<PortClass>{PortClass::ViatorOverUsbser});
  EXPECT_EQ(viators.count, 1);
  EXPECT_TRUE(viatorPasses(viators, u"COM6", false).empty());
}

TEST(PortClass, PassesGoFromTheLastModemToTheFirst) {
  ViatorList viators = twoViators();
  EXPECT_EQ(viatorPasses(viators, u"COM6", true),
            (std::vector<PortClass>{PortClass::ViatorOverUsbser, PortClass::Plain}));
  viators = twoViators();
  EXPECT_EQ(viatorPasses(viators, u"COM4", true),
            (std::vector<PortClass>{PortClass::Plain, PortClass::ViatorOverUsbser}));
}

TEST(PortClass, TheNumberOfPassesIsFixedAtTheBeginning) {
  ViatorList viators = twoViators();
  viators.ports[2] = u"COM4";
  EXPECT_EQ(viatorPasses(viators, u"COM4", true),
            std::vector<PortClass>(2, PortClass::ViatorOverUsbser));
  EXPECT_EQ(viators.count, 0);
}

TEST(PortClass, PortNamesAreComparedCaseSensitively) {
  ViatorList viators = twoViators();
  EXPECT_EQ(viatorPasses(viators, u"com4", true), std::vector<PortClass>(2, PortClass::Plain));
}

TEST(PortClass, WithoutModemsThereIsNoPass) {
  ViatorList viators;
  EXPECT_TRUE(viatorPasses(viators, u"COM4", true).empty());
}

}  // namespace
}  // namespace tessara
