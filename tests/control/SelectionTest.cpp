#include <gmock/gmock.h>

#include "ControlFixture.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Selection : public ControlFixture {
 protected:
  void lines(const std::vector<std::pair<std::u16string, std::int32_t>>& ports) {
    RegEnum& list = moduleWide();
    list.PortCount = 0;
    inside(control).panel.ComboComPort.clearItems();
    for (const auto& [label, number] : ports) {
      list.PortLabels[list.PortCount] = label;
      list.PortNumbers[list.PortCount] = number;
      ++list.PortCount;
      inside(control).panel.ComboComPort.addItem(label);
    }
    log.clear();
  }
  void choose(std::int32_t index) { inside(control).panel.ComboComPort.select(index); }
  [[nodiscard]] std::vector<std::string> story() const {
    return log.only({"Init", "NFCReader", "SetValue"});
  }
  static std::string stored(int port) {
    return R"(SetValue 2 Software\Orvane\Tessara-Conf\Settings|COM Port=)" + std::to_string(port) +
           " type 4";
  }
};

struct Choice {
  const char16_t* label;
  std::int32_t number;
  std::int16_t comPort;
  const char* init;
  bool nfc;
  bool hart;
};

class Lines : public Selection, public ::testing::WithParamInterface<Choice> {};

TEST_P(Lines, DecideObjectPortReaderAndSetting) {
  const Choice& choice = GetParam();
  lines({{u"USB Adapter OKT (COM1)", 1}, {choice.label, choice.number}});
  inside(control).HartMode = !choice.hart;
  choose(1);
  EXPECT_EQ(inside(control).ComPort, choice.comPort);
  EXPECT_EQ(inside(control).bNFCReader, choice.nfc);
  EXPECT_EQ(inside(control).HartMode, choice.hart);
  EXPECT_THAT(story(), ElementsAre(choice.init, choice.nfc ? "NFCReader(true)" : "NFCReader(false)",
                                   stored(choice.comPort)));
  EXPECT_EQ(inside(control).CommObject, inside(control).CommunicationObject);
  EXPECT_NE(inside(control).CommObject, nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Wordings, Lines,
    ::testing::Values(Choice{u"USB Adapter OKT (COM7)", 7, 7, "InitModbusObject", false, false},
                      Choice{u"Bluetooth Adapter (COM8)", 8, 8, "InitModbusObject", false, false},
                      Choice{u"Serial Port (COM9)", 9, 9, "InitModbusObject", false, false},
                      Choice{u"USB Hart Adapter Viator (COM5)", 5, 5, "InitHartObject", false,
                             true},
                      Choice{u"any hARt (COM6)", 6, 6, "InitHartObject", false, true},
                      Choice{u"TWN4 NFC-Adapter (COM9)", 9, 9, "InitNFCObject", true, false},
                      Choice{u"my twn4 nfc-adapter (COM4)", 4, 4, "InitNFCObject", true, false},
                      Choice{u"TWN4 NFC-Adapter Hart (COM4)", 4, 4, "InitNFCObject", true, true},
                      Choice{u"NFC-USB-ZORVEN-ADAPTER", 0, 999, "InitNFCObject", true, false},
                      Choice{u"nfc-usb-zorven-adapter", 12, 12, "InitModbusObject", false, false}));

TEST_F(Selection, CommObjectIsEmptyAndCommunicationObjectOldUntilBothAreAssigned) {
  lines({{u"USB Adapter OKT (COM40000)", 40000}});
  EXPECT_EQ(errorNumberOf([&] { choose(0); }), 6);
  EXPECT_EQ(inside(control).CommObject, nullptr);
  EXPECT_EQ(inside(control).CommunicationObject, moduleWide().ModbusCommObject);
  EXPECT_EQ(inside(control).ComPort, 3);
  EXPECT_THAT(story(), IsEmpty());
}

/// An NFC object that lets a test look at the control in the middle of its initialisation.
class WatchedNfc final : public FakeNfcCommObject {
 public:
  using FakeNfcCommObject::FakeNfcCommObject;
  void InitNFCObject() override {
    FakeNfcCommObject::InitNFCObject();
    onInit();
  }
  std::function<void()> onInit = [] {};
};

TEST_F(Selection, BothReferencesAreAssignedBeforeTheInitialisationAndTheReaderBeforeTheCallback) {
  lines({{u"NFC-USB-ZORVEN-ADAPTER", 0}});
  const auto nfc = std::make_shared<WatchedNfc>(platform.device);
  moduleWide().NfcCommObject = nfc;
  nfc->onInit = [&] {
    EXPECT_EQ(inside(control).CommunicationObject, nfc);
    EXPECT_EQ(inside(control).CommObject, nfc);
    EXPECT_EQ(inside(control).ComPort, 999);
    EXPECT_FALSE(inside(control).bNFCReader);
  };
  host.onCallback = [&](const std::string&) { EXPECT_TRUE(inside(control).bNFCReader); };
  choose(0);
  EXPECT_THAT(story(), ElementsAre("InitNFCObject", "NFCReader(true)", stored(999)));
}

TEST_F(Selection, AFailedInitialisationPassesToTheCallerWithTheObjectAssigned) {
  lines({{u"NFC-USB-ZORVEN-ADAPTER", 0}});
  const auto nfc = std::make_shared<WatchedNfc>(platform.device);
  moduleWide().NfcCommObject = nfc;
  nfc->onInit = [] { throw std::runtime_error("the reader is upset"); };
  EXPECT_THROW(choose(0), std::runtime_error);
  EXPECT_EQ(inside(control).CommunicationObject, nfc);
  EXPECT_EQ(inside(control).CommObject, nfc);
  EXPECT_FALSE(inside(control).bNFCReader);
  EXPECT_THAT(story(), ElementsAre("InitNFCObject"));
}

TEST_F(Selection, TheSameLineTwiceInitialisesTwiceAndStoresTwice) {
  lines({{u"USB Adapter OKT (COM7)", 7}});
  choose(0);
  choose(0);
  EXPECT_EQ(log.count("InitModbusObject"), 2U);
  EXPECT_EQ(log.count("SetValue"), 2U);
}

TEST_F(Selection, TheUsbReaderIsNotProbedAgain) {
  lines({{u"NFC-USB-ZORVEN-ADAPTER", 0}});
  inside(control).sNFCMCURevision = u"1.4.15";
  choose(0);
  EXPECT_THAT(log.only({"CR95HF"}), IsEmpty());
  EXPECT_EQ(control.get_GetNFCMCURevison(), u"1.4.15");
}

TEST_F(Selection, ATwn4LineKeepsTheRevisionOfTheUsbReader) {
  lines({{u"TWN4 NFC-Adapter (COM9)", 9}});
  inside(control).sNFCMCURevision = u"1.4.15";
  choose(0);
  EXPECT_EQ(control.get_NFCReader(), 1);
  EXPECT_EQ(control.get_GetNFCMCURevison(), u"1.4.15");
}

/// Settings that nothing can be written into.
class ReadOnlySettings final : public FakeRegistryHelper {
 public:
  using FakeRegistryHelper::FakeRegistryHelper;
  void SetValue(std::int32_t /*hive*/, const std::u16string& /*key*/,
                const std::u16string& /*name*/, const Variant& /*value*/,
                std::int32_t /*valueType*/) override {
    throw RunTimeError(ErrorNumber::InvalidCall, "the settings cannot be written");
  }
};

TEST_F(Selection, AFailedWriteOfTheSettingPassesToTheCallerWithThePathSelected) {
  lines({{u"USB Hart Adapter Viator (COM5)", 5}});
  std::map<std::u16string, Variant> values;
  moduleWide().RegistryHelper = std::make_shared<ReadOnlySettings>(log, values);
  EXPECT_EQ(errorNumberOf([&] { choose(0); }), 5);
  EXPECT_EQ(inside(control).ComPort, 5);
  EXPECT_EQ(inside(control).CommObject, moduleWide().HartCommObject);
  EXPECT_EQ(log.count("NFCReader"), 1U);
}

TEST_F(Selection, AnObjectThatLosesTheSelectionGetsNoClosingCall) {
  lines({{u"USB Hart Adapter Viator (COM5)", 5}});
  choose(0);
  EXPECT_THAT(log.only({"Close", "ModbusCommObject"}), IsEmpty());
}

TEST_F(Selection, ALineBeyondTheTableIsASubscriptError) {
  std::vector<std::pair<std::u16string, std::int32_t>> many(51, {u"Serial Port (COM1)", 1});
  lines(many);
  inside(control).panel.ComboComPort.addItem(u"Serial Port (COM2)");
  EXPECT_EQ(errorNumberOf([&] { choose(51); }), 9);
}

TEST_F(Selection, NothingSelectedIsASubscriptError) {
  lines({});
  EXPECT_EQ(errorNumberOf([&] { inside(control).panel.ComboComPort.tick(); }), 9);
}

TEST_F(Selection, ALineThatIsNotInTheListIsAnInvalidValue) {
  lines({{u"USB Adapter OKT (COM7)", 7}});
  EXPECT_EQ(errorNumberOf([&] { choose(1); }), 380);
  EXPECT_EQ(errorNumberOf([&] { choose(-1); }), 380);
}

TEST_F(Selection, ARateOfTheListIsTakenAndNotStored) {
  inside(control).panel.ComboBaudrate.select(10);
  EXPECT_EQ(inside(control).Baudrate, 115200);
  EXPECT_THAT(log.entries(), ElementsAre("ComboBaudrate.index=10"));
}

TEST_F(Selection, TextThatIsNotARateKeepsTheRate) {
  inside(control).panel.ComboBaudrate.addItem(u"fast");
  EXPECT_EQ(errorNumberOf([&] { inside(control).panel.ComboBaudrate.select(11); }), 13);
  EXPECT_EQ(inside(control).Baudrate, 19200);
}

}  // namespace
}  // namespace tessara::testing
