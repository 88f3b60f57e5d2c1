// The adapter is unplugged and replugged at every moment, on each of the four paths.

#include <algorithm>
#include <fstream>
#include <sstream>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include "ModuleAtWork.h"
#include "linux/SettingsFolder.h"
#include "support/Inside.h"

namespace tessara::testing {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto connectFailed = u"Fehler Verbindung!";

struct Path {
  const char* name;
  const char* module;
  std::u16string serialNumber;
};

void PrintTo(const Path& path, std::ostream* out) {
  *out << path.name;
}

class Unplugged : public SettingsFolder, public ::testing::WithParamInterface<Path> {
 protected:
  Unplugged() { ::setenv("XDG_RUNTIME_DIR", folder().c_str(), 1); }

  static std::filesystem::path sample() {
    return std::filesystem::path(TESSARA_MODULES) / GetParam().module;
  }

  /// The sample with an adapter that is unplugged during the nth answer.
  [[nodiscard]] std::filesystem::path sampleUnpluggedIn(int request) const {
    auto file = nlohmann::json::parse(std::ifstream(sample()));
    file["faults"] = {{{"kind", "unplug"}, {"bytes", 3}, {"replugAfter", 50}, {"at", request}}};
    auto path = folder() / "module.json";
    std::ofstream(path) << file;
    return path;
  }

  /// Neither frozen nor busy waiting: every call has its deadline, and what waits, sleeps.
  static void expectCalm(const ModuleAtWork& work, const Effort& effort) {
    constexpr double maxDuration = 6000;
    for (const DeviceCall& call : work.calls) {
      EXPECT_LT(call.milliseconds, maxDuration) << traceLine(call);
    }
    EXPECT_LT(effort.work, effort.wall / 2 + 200ms);
  }

  /// The one read after which the panel is filled again.
  static void expectNextReadWorks(ModuleAtWork& work) {
    work.afterCall = [](std::size_t) {};
    work.forget();
    work.read();
    EXPECT_TRUE(work.isRead());
    EXPECT_EQ(work.failedCalls(), 0);
    EXPECT_EQ(inside(work.control()).panel.LblSerialNumber.caption(), GetParam().serialNumber);
    EXPECT_TRUE(inside(work.control()).panel.TimerScanDevice.enabled());
    EXPECT_TRUE(work.loop.tick());
    EXPECT_EQ(work.failedCalls(), 0);
  }

  static std::size_t callsOfOneRead(ModuleAtWork& work) {
    work.forget();
    work.read();
    EXPECT_TRUE(work.isRead());
    return work.calls.size();
  }

  static std::size_t callsOfOneScan(ModuleAtWork& work) {
    work.forget();
    EXPECT_TRUE(work.loop.tick());
    EXPECT_EQ(work.failedCalls(), 0);
    return work.calls.size();
  }

  /// The number of the last call before command 48, which reports by value that there is no reply:
  /// an adapter that is unplugged after it fails no call. 0 if there is no such call.
  static std::size_t callBeforeCommand48(const ModuleAtWork& work) {
    const auto found = std::ranges::find(work.calls, "CMD48", &DeviceCall::operation);
    return found == work.calls.end() ? 0 : static_cast<std::size_t>(found - work.calls.begin());
  }

  static void unplugAfter(ModuleAtWork& work, std::size_t call) {
    work.forget();
    work.afterCall = [&work, call](std::size_t calls) {
      if (calls == call) work.module.unplug();
    };
  }
};

TEST_P(Unplugged, DuringAReadEndsItWithOneTextAndTheNextReadWorks) {
  ModuleAtWork work(sample());
  const std::size_t calls = callsOfOneRead(work);
  const std::size_t beforeCommand48 = callBeforeCommand48(work);
  // After the last call the connection is closed, and the read is over.
  for (std::size_t call = 1; call < calls; ++call) {
    SCOPED_TRACE("unplugged after call " + std::to_string(call));
    unplugAfter(work, call);
    const Effort effort = ModuleAtWork::effortOf([&] { work.read(); });
    expectCalm(work, effort);
    if (call == beforeCommand48) {
      EXPECT_TRUE(work.isRead());
      EXPECT_EQ(inside(work.control()).panel.LblModulState.caption(), u"");
    } else if (call + 1 < calls) {
      EXPECT_FALSE(work.isRead());
      EXPECT_EQ(std::ranges::count(work.statusTexts, connectFailed), 1);
      EXPECT_EQ(inside(work.control()).StatusString, connectFailed);
      EXPECT_EQ(work.activities[Activity::ConnectionFailed], 1);
      EXPECT_FALSE(work.loop.tick());
    }
    EXPECT_FALSE(inside(work.control()).DeviceConnected);
    work.module.plug();
    expectNextReadWorks(work);
  }
}

TEST_P(Unplugged, DuringAScanFailsThatPassAndEndsTheScanSilentlyAtTheNext) {
  ModuleAtWork work(sample());
  callsOfOneRead(work);
  const std::size_t calls = callsOfOneScan(work);
  const std::size_t beforeCommand48 = callBeforeCommand48(work);
  for (std::size_t call = 1; call + 1 < calls; ++call) {
    SCOPED_TRACE("unplugged after call " + std::to_string(call));
    const int failed = call == beforeCommand48 ? 0 : 1;
    const auto failures = inside(work.control()).ScanErrorCount;
    unplugAfter(work, call);
    const Effort effort = ModuleAtWork::effortOf([&] { EXPECT_TRUE(work.loop.tick()); });
    expectCalm(work, effort);
    EXPECT_EQ(inside(work.control()).ScanErrorCount, failures + failed);
    EXPECT_EQ(work.activities[Activity::AccessOver], failed);
    EXPECT_TRUE(inside(work.control()).panel.TimerScanDevice.enabled());

    work.forget();
    EXPECT_TRUE(work.loop.tick());
    EXPECT_THAT(work.statusTexts, IsEmpty());
    EXPECT_THAT(work.activities, ElementsAre(std::pair(Activity::Scanning, 1)));
    EXPECT_EQ(inside(work.control()).ScanErrorCount, failures + failed);
    EXPECT_FALSE(work.loop.tick());
    work.module.plug();
    expectNextReadWorks(work);
  }
}

TEST_P(Unplugged, AndRepluggedDuringAScanFailsOnlyThatPass) {
  ModuleAtWork work(sample());
  callsOfOneRead(work);
  const std::size_t calls = callsOfOneScan(work);
  const std::size_t beforeCommand48 = callBeforeCommand48(work);
  for (std::size_t call = 1; call + 1 < calls; ++call) {
    SCOPED_TRACE("unplugged after call " + std::to_string(call));
    unplugAfter(work, call);
    EXPECT_TRUE(work.loop.tick());
    EXPECT_EQ(work.activities[Activity::AccessOver], call == beforeCommand48 ? 0 : 1);
    work.module.plug();
    work.afterCall = [](std::size_t) {};
    EXPECT_EQ(callsOfOneScan(work), calls);
  }
  expectNextReadWorks(work);
}

TEST_P(Unplugged, BetweenTwoScansEndsTheScanWithoutAText) {
  ModuleAtWork work(sample());
  callsOfOneRead(work);
  const std::u16string shown = inside(work.control()).panel.LblModulState.caption();
  work.module.unplug();
  work.forget();
  const Effort effort = ModuleAtWork::effortOf([&] { EXPECT_TRUE(work.loop.tick()); });
  expectCalm(work, effort);
  EXPECT_THAT(work.statusTexts, IsEmpty());
  EXPECT_THAT(work.activities, ElementsAre(std::pair(Activity::Scanning, 1)));
  EXPECT_EQ(inside(work.control()).ScanErrorCount, 0);
  EXPECT_EQ(inside(work.control()).panel.LblModulState.caption(), shown);
  EXPECT_FALSE(work.loop.tick());
  work.module.plug();
  expectNextReadWorks(work);
}

TEST_P(Unplugged, AndRepluggedBetweenTwoScansIsNotNoticed) {
  ModuleAtWork work(sample());
  callsOfOneRead(work);
  work.module.unplug();
  work.module.plug();
  callsOfOneScan(work);
  EXPECT_EQ(inside(work.control()).ScanErrorCount, 0);
  expectNextReadWorks(work);
}

TEST_P(Unplugged, BeforeAReadIsReportedAtOnceAndTheNextReadWorks) {
  ModuleAtWork work(sample());
  work.module.unplug();
  const Effort effort = ModuleAtWork::effortOf([&] { work.read(); });
  expectCalm(work, effort);
  EXPECT_EQ(work.callsOf("ConnectWithSerialDevice"), 1);
  EXPECT_EQ(work.callsOf("CloseSerialConnection"), 0);
  EXPECT_EQ(std::ranges::count(work.statusTexts, connectFailed), 1);
  work.module.plug();
  expectNextReadWorks(work);
}

TEST_P(Unplugged, DuringAnAnswerFailsAtMostThatRead) {
  for (const int request : {1, 3}) {
    SCOPED_TRACE("unplugged in answer " + std::to_string(request));
    ModuleAtWork work(sampleUnpluggedIn(request));
    const Effort effort = ModuleAtWork::effortOf([&] { work.read(); });
    expectCalm(work, effort);
    EXPECT_EQ(std::ranges::count(work.statusTexts, connectFailed), work.isRead() ? 0 : 1);
    EXPECT_GT(work.failedCalls(), 0);
    std::this_thread::sleep_for(100ms);
    expectNextReadWorks(work);
  }
}

INSTANTIATE_TEST_SUITE_P(
    OnEachPath, Unplugged,
    ::testing::Values(Path{"SerialAdapter", "tessara-um-161.json", u"1809030161007"},
                      Path{"HartModem", "hart-healthy.json", u"2304170226101"},
                      Path{"Twn4Reader", "nfc-twn4-healthy.json", u"2205300161021"},
                      Path{"UsbReader", "nfc-usb-healthy.json", u"2205300151022"}),
    [](const auto& path) { return path.param.name; });

}  // namespace
}  // namespace tessara::testing
