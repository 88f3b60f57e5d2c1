#include <chrono>
#include <memory>
#include <numeric>
#include <optional>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/ReadError.h"
#include "drivers/nfc/ReaderUnderTest.h"

namespace tessara {
namespace {

using namespace std::chrono_literals;
using ::testing::AllOf;
using ::testing::HasSubstr;
using testing::ReaderKind;
using ::testing::StartsWith;

class NfcDrivers : public ::testing::TestWithParam<ReaderKind> {
 protected:
  bool connect() {
    std::int16_t comPort = reader->comPort();
    std::int32_t baudrate = 19200;
    return driver.ConnectWithSerialDevice(comPort, baudrate);
  }
  DeviceWords firmware() { return driver.ReadInputRegisters(192, 4, 1, 2); }

  /// Another register than the firmware, requested until the module has time to answer.
  DeviceWords secondVersionOfBusyModule() {
    const auto deadline = std::chrono::steady_clock::now() + 60s;
    for (;;) {
      try {
        return driver.ReadInputRegisters(192, 3, 1, 2);
      } catch (const ReadError&) {
        if (std::chrono::steady_clock::now() > deadline) throw;
      }
    }
  }

  /// The message of a failed read, which must not have taken two seconds.
  std::string failure(const std::function<DeviceWords()>& read) {
    const auto begun = std::chrono::steady_clock::now();
    std::string message = "nothing failed";
    try {
      read();
    } catch (const ReadError& error) {
      message = error.what();
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begun, 2s);
    return message;
  }
  std::string failureOfFirmware() {
    return failure([this] { return firmware(); });
  }

  std::unique_ptr<testing::ReaderUnderTest> reader = testing::makeReader(GetParam());
  NfcDriver driver{*reader, reader->usbReaders()};
};

INSTANTIATE_TEST_SUITE_P(Readers, NfcDrivers, ::testing::Values(ReaderKind::Usb, ReaderKind::Twn4),
                         [](const auto& test) { return testing::readerName(test.param); });

TEST_P(NfcDrivers, ReadTheIdentification) {
  ASSERT_TRUE(connect());
  EXPECT_EQ(driver.connectFailure(), "");
  std::uint8_t address = 192;
  EXPECT_EQ(driver.ReadDeviceIdentifier(address), (DeviceWords{49, 1, 15, 151}));
}

TEST_P(NfcDrivers, ReadRegistersAsSignedWords) {
  ASSERT_TRUE(connect());
  EXPECT_EQ(firmware(), (DeviceWords{0x2000}));
  EXPECT_EQ(driver.ReadInputRegisters(192, 3, 3, 2), (DeviceWords{0x1010, 0x2000, -1}));
}

TEST_P(NfcDrivers, ReadAsManyRegistersAsOneRequestCanAskFor) {
  ASSERT_TRUE(connect());
  for (const int words : {16, 26, 27, 54, 125}) {
    const auto count = static_cast<std::int16_t>(words);
    DeviceWords expected(static_cast<std::size_t>(count));
    std::iota(expected.begin(), expected.end(), 1000);
    EXPECT_EQ(driver.ReadInputRegisters(192, 1000, count, 2), expected);
  }
}

TEST_P(NfcDrivers, ReadAgainAndAgain) {
  for (int round = 0; round < 3; ++round) {
    driver.InitNFCObject();
    ASSERT_TRUE(connect());
    EXPECT_EQ(firmware(), (DeviceWords{0x2000}));
    driver.CloseSerialConnection();
    driver.CloseSerialConnection();
  }
}

TEST_P(NfcDrivers, StartOverIfTheyAreConnectedAlready) {
  ASSERT_TRUE(connect());
  ASSERT_TRUE(connect());
  EXPECT_EQ(firmware(), (DeviceWords{0x2000}));
}

TEST_P(NfcDrivers, ReadNothingWithoutAConnection) {
  EXPECT_THAT(failureOfFirmware(),
              HasSubstr("input register 4 at address 192: no connection is open"));
  ASSERT_TRUE(connect());
  driver.CloseSerialConnection();
  EXPECT_THAT(failureOfFirmware(), HasSubstr("no connection is open"));
}

TEST_P(NfcDrivers, NamePortRequestAndCause) {
  ASSERT_TRUE(connect());
  EXPECT_THAT(
      failure([this] { return driver.ReadInputRegisters(192, 7000, 4, 2); }),
      AllOf(StartsWith(reader->name() + ", "),
            HasSubstr("input registers 7000..7003 at address 192: exception 2: illegal data "
                      "address")));
}

TEST_P(NfcDrivers, HaveNoReplyToHartCommand48) {
  Cmd48Reply reply{7};
  EXPECT_EQ(driver.CMD48(reply), 0);
  ASSERT_TRUE(connect());
  EXPECT_EQ(driver.CMD48(reply), 0);
  EXPECT_EQ(reply, Cmd48Reply{7});
}

TEST_P(NfcDrivers, AskABusyModuleAgainUntilItAnswers) {
  ASSERT_TRUE(connect());
  for (const std::uint8_t code : Bytes{5, 6}) {
    reader->inField([code](SimulatedField& field) {
      field.tag().module().setFaults({{faults::ExceptionReply{code}, faults::At{1}},
                                      {faults::ExceptionReply{code}, faults::At{2}},
                                      {faults::ExceptionReply{code}, faults::At{3}}});
    });
    EXPECT_EQ(firmware(), (DeviceWords{0x2000}));
  }
}

TEST_P(NfcDrivers, GiveUpAModuleThatStaysBusy) {
  ASSERT_TRUE(connect());
  reader->orderOfModule(faults::ExceptionReply{6}, faults::Every{1});
  EXPECT_THAT(failureOfFirmware(), HasSubstr("exception 6: busy, asked for 500 ms"));
}

TEST_P(NfcDrivers, RefuseImpossibleRequests) {
  ASSERT_TRUE(connect());
  EXPECT_THAT(failure([this] { return driver.ReadInputRegisters(0, 4, 1, 2); }),
              HasSubstr("answered by none"));
  EXPECT_THAT(failure([this] { return driver.ReadInputRegisters(248, 4, 1, 2); }),
              HasSubstr("1 to 247"));
  EXPECT_THAT(failure([this] { return driver.ReadInputRegisters(192, 4, 126, 2); }),
              HasSubstr("1 to 125"));
  EXPECT_THAT(failure([this] { return driver.ReadInputRegisters(192, 65536, 1, 2); }),
              HasSubstr("0 to 65535"));
}

TEST_P(NfcDrivers, GetNoAnswerFromAModuleWithAnotherAddress) {
  ASSERT_TRUE(connect());
  EXPECT_THAT(failure([this] { return driver.ReadInputRegisters(7, 4, 1, 2); }),
              HasSubstr("fetched the request from its mailbox but did not answer"));
}

TEST_P(NfcDrivers, DoNotConnectToAReaderThatIsNotThere) {
  reader->unplug();
  EXPECT_FALSE(connect());
  EXPECT_THAT(driver.connectFailure(), HasSubstr(" is not there"));
}

TEST_P(NfcDrivers, DoNotConnectToAReaderInUse) {
  NfcDriver other(*reader, reader->usbReaders());
  std::int16_t comPort = reader->comPort();
  std::int32_t baudrate = 19200;
  ASSERT_TRUE(other.ConnectWithSerialDevice(comPort, baudrate));
  EXPECT_FALSE(connect());
  EXPECT_THAT(driver.connectFailure(), HasSubstr(" is in use by another program"));
  other.CloseSerialConnection();
  EXPECT_TRUE(connect());
  EXPECT_EQ(driver.connectFailure(), "");
}

TEST_P(NfcDrivers, SayThatTheReaderHasBeenUnplugged) {
  ASSERT_TRUE(connect());
  firmware();
  reader->unplug();
  EXPECT_THAT(failureOfFirmware(), HasSubstr("the reader has been unplugged"));
  reader->plug();
  driver.CloseSerialConnection();
  ASSERT_TRUE(connect());
  EXPECT_EQ(firmware(), (DeviceWords{0x2000}));
}

TEST_P(NfcDrivers, SayThatTheReaderHasBeenUnpluggedWhileTheyWait) {
  ASSERT_TRUE(connect());
  reader->orderOfModule(faults::Unplug{}, faults::Every{1});
  EXPECT_THAT(failureOfFirmware(), HasSubstr("the reader has been unplugged"));
}

TEST_P(NfcDrivers, SayThatNoModuleIsInTheField) {
  reader->order(fieldFaults::TagAbsent{}, faults::Every{1});
  ASSERT_TRUE(connect());
  EXPECT_THAT(failureOfFirmware(), HasSubstr("no module in the reader's field"));
}

TEST_P(NfcDrivers, SayThatTheModuleHasBeenRemovedDuringARead) {
  for (std::uint64_t request = 2; request < 8; ++request) {
    reader->order(fieldFaults::TagLeaves{}, faults::At{request});
    ASSERT_TRUE(connect());
    EXPECT_THAT(failureOfFirmware(),
                HasSubstr("the module has been removed from the reader's field"))
        << request;
  }
}

TEST_P(NfcDrivers, SayThatTheModuleHasBeenRemovedBetweenTwoReads) {
  ASSERT_TRUE(connect());
  firmware();
  reader->order(fieldFaults::TagLeaves{}, faults::At{1});
  EXPECT_THAT(failureOfFirmware(),
              HasSubstr("the module has been removed from the reader's field"));
}

TEST_P(NfcDrivers, GoOnWithAModuleThatComesBack) {
  for (std::uint64_t request = 1; request < 8; ++request) {
    reader->order(fieldFaults::TagLeaves{10ms}, faults::At{request});
    ASSERT_TRUE(connect());
    EXPECT_EQ(firmware(), (DeviceWords{0x2000})) << request;
  }
}

TEST_P(NfcDrivers, SurviveOneRequestThatNoTagHears) {
  for (std::uint64_t request = 1; request < 8; ++request) {
    reader->order(fieldFaults::TagAbsent{}, faults::At{request});
    ASSERT_TRUE(connect());
    EXPECT_EQ(firmware(), (DeviceWords{0x2000})) << request;
  }
}

TEST_P(NfcDrivers, SurviveOneDamagedAnswer) {
  for (std::uint64_t request = 1; request < 8; ++request) {
    reader->order(fieldFaults::AirChecksum{}, faults::At{request});
    ASSERT_TRUE(connect());
    EXPECT_EQ(firmware(), (DeviceWords{0x2000})) << request;
  }
}

TEST_P(NfcDrivers, SurviveOneRequestThatTheReaderDoesNotAnswer) {
  for (std::uint64_t request = 1; request < 8; ++request) {
    reader->order(fieldFaults::ReaderSilent{}, faults::At{request});
    ASSERT_TRUE(connect());
    EXPECT_EQ(firmware(), (DeviceWords{0x2000})) << request;
  }
}

TEST_P(NfcDrivers, SayThatTheReaderDoesNotAnswer) {
  reader->order(fieldFaults::ReaderSilent{}, faults::Every{1});
  ASSERT_TRUE(connect());
  EXPECT_THAT(failureOfFirmware(), HasSubstr("the reader does not answer within 400 ms"));
}

TEST_P(NfcDrivers, SayThatTheMailboxIsBusy) {
  reader->order(fieldFaults::MailboxBusy{}, faults::At{1});
  ASSERT_TRUE(connect());
  EXPECT_THAT(failureOfFirmware(), HasSubstr("the module's mailbox is busy"));
}

TEST_P(NfcDrivers, WaitForAMailboxThatIsBusyForAWhile) {
  reader->order(fieldFaults::MailboxBusy{50ms}, faults::At{1});
  ASSERT_TRUE(connect());
  EXPECT_EQ(firmware(), (DeviceWords{0x2000}));
}

TEST_P(NfcDrivers, SayThatTheMailboxMayNotBeUsed) {
  reader->order(fieldFaults::MailboxOff{}, faults::At{1});
  ASSERT_TRUE(connect());
  EXPECT_THAT(failureOfFirmware(), HasSubstr("the module does not allow its mailbox to be used"));
}

TEST_P(NfcDrivers, SayThatTheModuleFetchesNothing) {
  reader->order(fieldFaults::ModuleAsleep{}, faults::At{1});
  ASSERT_TRUE(connect());
  EXPECT_THAT(failureOfFirmware(),
              HasSubstr("the module did not fetch the request from its mailbox within 500 ms, "
                        "asked twice"));
}

TEST_P(NfcDrivers, SayThatTheModuleDoesNotAnswer) {
  reader->orderOfModule(faults::NoReply{}, faults::Every{1});
  ASSERT_TRUE(connect());
  EXPECT_THAT(failureOfFirmware(),
              HasSubstr("the module fetched the request from its mailbox but did not answer within "
                        "500 ms, asked twice"));
}

TEST_P(NfcDrivers, AskTwiceIfTheFirstAnswerIsUseless) {
  const std::vector<FaultEffect> effects{
      faults::NoReply{}, faults::BadChecksum{},       faults::WrongAddress{7}, faults::CutOff{4},
      faults::Echo{},    faults::Noise{{0x55, 0xAA}}, faults::LateReply{700ms}};
  ASSERT_TRUE(connect());
  for (const FaultEffect& effect : effects) {
    reader->orderOfModule(effect, faults::At{1});
    EXPECT_EQ(firmware(), (DeviceWords{0x2000})) << effect.index();
  }
}

TEST_P(NfcDrivers, WaitForALateAnswer) {
  reader->orderOfModule(faults::LateReply{200ms}, faults::Every{1});
  ASSERT_TRUE(connect());
  EXPECT_EQ(firmware(), (DeviceWords{0x2000}));
}

TEST_P(NfcDrivers, SayWhatIsWrongWithEachAnswer) {
  ASSERT_TRUE(connect());
  const auto failureWith = [this](const FaultEffect& effect) {
    reader->orderOfModule(effect, faults::Every{1});
    return failureOfFirmware();
  };
  EXPECT_THAT(failureWith(faults::BadChecksum{}),
              HasSubstr("checksum error in the module's answer"));
  EXPECT_THAT(failureWith(faults::CutOff{4}), HasSubstr("checksum error in the module's answer"));
  EXPECT_THAT(failureWith(faults::WrongAddress{7}), HasSubstr("answer from address 7"));
  EXPECT_THAT(failureWith(faults::ExceptionReply{4}), HasSubstr("exception 4: device failure"));
}

TEST_P(NfcDrivers, NeverTakeALateAnswerForAFreshOne) {
  ASSERT_TRUE(connect());
  reader->orderOfModule(faults::LateReply{2500ms}, faults::At{1});
  EXPECT_THAT(failureOfFirmware(), HasSubstr("did not"));
  for (int round = 0; round < 5; ++round) {
    EXPECT_EQ(secondVersionOfBusyModule(), (DeviceWords{0x1010}));
  }
}

TEST_P(NfcDrivers, NeverTakeAnOldMessageInTheMailboxForAnAnswer) {
  ASSERT_TRUE(connect());
  firmware();
  reader->inField([](SimulatedField& field) {
    const Bytes request =
        modbusFrame(defaultAddress, readInputRegistersFunction, Bytes{0, 4, 0, 1});
    field.send({0x02,
                0xAA,
                {},
                [&] {
                  Bytes data{static_cast<std::uint8_t>(request.size() - 1)};
                  data.insert(data.end(), request.begin(), request.end());
                  return data;
                }()},
               SimulatedField::Clock::now());
  });
  EXPECT_EQ(driver.ReadInputRegisters(192, 3, 1, 2), (DeviceWords{0x1010}));
}

TEST_P(NfcDrivers, SayThatAnotherModuleHasReplacedTheFirst) {
  ASSERT_TRUE(connect());
  firmware();
  reader->inField([](SimulatedField& field) {
    auto other = testing::nfcSample();
    other.uid.back() = 0x99;
    field.replaceTag(std::move(other));
  });
  EXPECT_THAT(failureOfFirmware(), HasSubstr("another module is in the reader's field now"));
  driver.CloseSerialConnection();
  ASSERT_TRUE(connect());
  EXPECT_EQ(firmware(), (DeviceWords{0x2000}));
}

TEST_P(NfcDrivers, ReadThroughAFieldWithManyFaults) {
  reader->inField([](SimulatedField& field) {
    field.setFaults({{fieldFaults::AirChecksum{}, faults::ByChance{0.03, 1}},
                     {fieldFaults::TagAbsent{}, faults::ByChance{0.03, 2}}});
  });
  ASSERT_TRUE(connect());
  int good = 0;
  for (int round = 0; round < 40; ++round) {
    const std::int32_t start = 1000 + round;
    try {
      EXPECT_EQ(driver.ReadInputRegisters(192, start, 2, 2), (DeviceWords{start, start + 1}));
      ++good;
    } catch (const ReadError&) {
      // Two faults fell on one request.
    }
  }
  EXPECT_GT(good, 20);
}

/// A board whose processor does not answer the request for its revision.
class OlderBoard final : public HidDevice {
 public:
  explicit OlderBoard(std::unique_ptr<HidDevice> board) : board_(std::move(board)) {}
  void write(const cr95hf::Report& report) override {
    if (report[0] != static_cast<std::uint8_t>(cr95hf::ReportId::ToBoard)) board_->write(report);
  }
  std::optional<Bytes> read(std::chrono::milliseconds timeout) override {
    return board_->read(timeout);
  }
  [[nodiscard]] std::string name() const override { return board_->name(); }

 private:
  std::unique_ptr<HidDevice> board_;
};

class OlderReaders final : public UsbReaders {
 public:
  explicit OlderReaders(UsbReaders& readers) : readers_(readers) {}
  std::unique_ptr<HidDevice> open() override {
    return std::make_unique<OlderBoard>(readers_.open());
  }

 private:
  UsbReaders& readers_;
};

TEST(OlderNfcReaders, ReadModulesThoughTheyReportNoRevision) {
  testing::UsbReaderUnderTest reader(testing::nfcSample());
  OlderReaders readers(reader.usbReaders());
  NfcDriver driver(reader, readers);
  std::int16_t comPort = usbReaderPort;
  std::int32_t baudrate = 19200;
  ASSERT_TRUE(driver.ConnectWithSerialDevice(comPort, baudrate));
  EXPECT_EQ(driver.ReadInputRegisters(192, 4, 1, 2), (DeviceWords{0x2000}));
}

}  // namespace
}  // namespace tessara
