#include <chrono>
#include <optional>
#include <string>
#include <thread>
#include <utility>

#include <gtest/gtest.h>

#include "base/Text.h"
#include "control/Transport.h"
#include "drivers/nfc/LinuxNfcReaderLibrary.h"
#include "drivers/nfc/ReaderUnderTest.h"
#include "ports/AdapterWords.h"
#include "serial/PortError.h"

namespace tessara {
namespace {

using namespace std::chrono_literals;
using testing::nfcSample;

/// A reader that takes reports and does not answer.
class MuteDevice final : public HidDevice {
 public:
  void write(const cr95hf::Report& /*report*/) override {}
  std::optional<Bytes> read(std::chrono::milliseconds timeout) override {
    std::this_thread::sleep_for(timeout);
    return std::nullopt;
  }
  [[nodiscard]] std::string name() const override { return "mute"; }
};

/// An older board: its chip answers the echo, its processor does not answer the request for a
/// revision.
class EchoingDevice final : public HidDevice {
 public:
  void write(const cr95hf::Report& report) override {
    if (report == cr95hf::reportOf(cr95hf::ReportId::ToChip, cr95hf::echoCommand)) {
      const cr95hf::Report answer = cr95hf::reportOf(cr95hf::Answer{cr95hf::echo});
      waiting_ = Bytes(answer.begin(), answer.end());
    }
  }
  std::optional<Bytes> read(std::chrono::milliseconds timeout) override {
    if (!waiting_) std::this_thread::sleep_for(timeout);
    return std::exchange(waiting_, std::nullopt);
  }
  [[nodiscard]] std::string name() const override { return "echoing"; }

 private:
  std::optional<Bytes> waiting_;
};

/// A faulty board that sends reports without end, none of them an echo.
class BabblingDevice final : public HidDevice {
 public:
  explicit BabblingDevice(bool isBabbling) : isBabbling_(isBabbling) {}
  void write(const cr95hf::Report& /*report*/) override { isBabbling_ = true; }
  std::optional<Bytes> read(std::chrono::milliseconds /*timeout*/) override {
    if (!isBabbling_) return std::nullopt;
    const cr95hf::Report report = cr95hf::reportOf(cr95hf::Answer{cr95hf::done});
    return Bytes(report.begin(), report.end());
  }
  [[nodiscard]] std::string name() const override { return "babbling"; }

 private:
  bool isBabbling_;
};

class BabblingReaders final : public UsbReaders {
 public:
  /// `fromTheStart`, or once the board has been asked for something.
  explicit BabblingReaders(bool fromTheStart) : fromTheStart_(fromTheStart) {}
  std::unique_ptr<HidDevice> open() override {
    return std::make_unique<BabblingDevice>(fromTheStart_);
  }

 private:
  bool fromTheStart_;
};

class EchoingReaders final : public UsbReaders {
 public:
  std::unique_ptr<HidDevice> open() override { return std::make_unique<EchoingDevice>(); }
};

class MuteReaders final : public UsbReaders {
 public:
  std::unique_ptr<HidDevice> open() override { return std::make_unique<MuteDevice>(); }
};

std::string textIn(const std::string& buffer) {
  return buffer.substr(0, buffer.find('\0'));
}

class NfcReaderLibraries : public ::testing::Test {
 protected:
  SimulatedUsbReader readers{nfcSample()};
  LinuxNfcReaderLibrary library{readers};
  std::string buffer = std::string(256, '\0');
};

TEST_F(NfcReaderLibraries, FindAReaderByThreeCallsInARow) {
  EXPECT_EQ(library.CR95HFDLL_USBconnect(), 0);
  EXPECT_EQ(library.CR95HFDll_Echo(buffer), 0);
  EXPECT_EQ(textIn(buffer), "5500");
  EXPECT_EQ(library.CR95HFDLL_getMCUrev(buffer), 0);
  EXPECT_EQ(textIn(buffer), "0003030704");
  EXPECT_EQ(buffer.size(), 256U);
  EXPECT_EQ(McuRevisionText(fromUtf8(textIn(buffer))), u"3.7.4");
}

TEST_F(NfcReaderLibraries, HoldTheReaderUntilTheLastCall) {
  library.CR95HFDLL_USBconnect();
  library.CR95HFDll_Echo(buffer);
  EXPECT_THROW((void)readers.open(), PortError);
  library.CR95HFDLL_getMCUrev(buffer);
  EXPECT_NE(readers.open(), nullptr);
}

TEST_F(NfcReaderLibraries, CanBeCalledAgain) {
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(library.CR95HFDLL_USBconnect(), 0);
    EXPECT_EQ(library.CR95HFDLL_USBconnect(), 0);
    EXPECT_EQ(library.CR95HFDll_Echo(buffer), 0);
    EXPECT_EQ(library.CR95HFDLL_getMCUrev(buffer), 0);
  }
}

TEST_F(NfcReaderLibraries, AreNotConnectedAfterTheLastCall) {
  EXPECT_EQ(library.CR95HFDll_Echo(buffer), LinuxNfcReaderLibrary::notConnected);
  library.CR95HFDLL_USBconnect();
  library.CR95HFDLL_getMCUrev(buffer);
  EXPECT_EQ(library.CR95HFDLL_getMCUrev(buffer), LinuxNfcReaderLibrary::notConnected);
  EXPECT_EQ(textIn(buffer), "");
}

TEST_F(NfcReaderLibraries, ReportAMissingReaderByAStatus) {
  readers.unplug();
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_EQ(library.CR95HFDLL_USBconnect(), LinuxNfcReaderLibrary::notFound);
  EXPECT_LT(std::chrono::steady_clock::now() - begun, 250ms) << "a start-up does not wait for it";
}

TEST_F(NfcReaderLibraries, ReportAnUnpluggedReaderByAStatus) {
  library.CR95HFDLL_USBconnect();
  readers.unplug();
  buffer.replace(0, 4, "left");
  EXPECT_EQ(library.CR95HFDll_Echo(buffer), LinuxNfcReaderLibrary::communicationError);
  EXPECT_EQ(textIn(buffer), "");
}

TEST_F(NfcReaderLibraries, WaitForAReaderThatIsBrieflyInUse) {
  auto inUse = readers.open();
  LinuxNfcReaderLibrary impatient(readers, {400ms, 20ms});
  EXPECT_EQ(impatient.CR95HFDLL_USBconnect(), LinuxNfcReaderLibrary::notFound);
  inUse.reset();
  EXPECT_EQ(impatient.CR95HFDLL_USBconnect(), 0);
}

TEST(MuteNfcReaders, DoNotCountAsReaders) {
  MuteReaders readers;
  LinuxNfcReaderLibrary library(readers, {20ms, 0ms});
  std::string buffer(256, '\0');
  EXPECT_EQ(library.CR95HFDLL_USBconnect(), 0);
  EXPECT_EQ(library.CR95HFDll_Echo(buffer), LinuxNfcReaderLibrary::communicationError);
  EXPECT_EQ(textIn(buffer), "");
}

TEST(BabblingNfcReaders, DoNotCountAsReaders) {
  for (const bool fromTheStart : {true, false}) {
    BabblingReaders readers(fromTheStart);
    LinuxNfcReaderLibrary library(readers, {20ms, 0ms});
    std::string buffer(256, '\0');
    EXPECT_EQ(library.CR95HFDLL_USBconnect(), 0);
    EXPECT_EQ(library.CR95HFDll_Echo(buffer), LinuxNfcReaderLibrary::communicationError);
    EXPECT_EQ(library.CR95HFDLL_getMCUrev(buffer), LinuxNfcReaderLibrary::notConnected);
  }
}

TEST(EchoingNfcReaders, AreReadersWithoutARevision) {
  EchoingReaders readers;
  LinuxNfcReaderLibrary library(readers, {20ms, 0ms});
  std::string buffer(256, '\0');
  EXPECT_EQ(library.CR95HFDLL_USBconnect(), 0);
  EXPECT_EQ(library.CR95HFDll_Echo(buffer), 0);
  EXPECT_EQ(library.CR95HFDLL_getMCUrev(buffer), LinuxNfcReaderLibrary::communicationError);
  EXPECT_EQ(McuRevisionText(fromUtf8(textIn(buffer))), u"0.0.0");
}

TEST_F(NfcReaderLibraries, WriteNoMoreThanTheBufferHolds) {
  std::string small(5, 'x');
  library.CR95HFDLL_USBconnect();
  library.CR95HFDll_Echo(small);
  EXPECT_EQ(small, std::string("5500\0", 5));
  std::string smaller(3, 'x');
  library.CR95HFDll_Echo(smaller);
  EXPECT_EQ(smaller, std::string("55\0", 3));
  std::string none;
  EXPECT_EQ(library.CR95HFDll_Echo(none), 0);
}

TEST_F(NfcReaderLibraries, LeaveTheReaderToTheDriver) {
  library.CR95HFDLL_USBconnect();
  library.CR95HFDll_Echo(buffer);
  library.CR95HFDLL_getMCUrev(buffer);
  testing::Twn4UnderTest noPorts(nfcSample());
  NfcDriver driver(noPorts, readers);
  std::int16_t comPort = usbReaderPort;
  std::int32_t baudrate = 19200;
  EXPECT_TRUE(driver.ConnectWithSerialDevice(comPort, baudrate));
  EXPECT_EQ(driver.ReadInputRegisters(192, 4, 1, 2), (DeviceWords{0x2000}));
}

}  // namespace
}  // namespace tessara
