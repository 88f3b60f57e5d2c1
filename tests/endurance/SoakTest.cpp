// Thousands of scan passes on a module that fails at random, without the four seconds between them.
// scripts/soak.sh runs 20,000 on each path; here there are as many as fit into a test.

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include "ModuleAtWork.h"
#include "Resources.h"
#include "linux/SettingsFolder.h"
#include "serial/SerialLine.h"
#include "support/Inside.h"

namespace tessara::testing {
namespace {

using nlohmann::json;

std::uint64_t numberFrom(const char* variable, std::uint64_t otherwise) {
  const char* text = std::getenv(variable);
  return text == nullptr ? otherwise : std::stoull(text);
}

std::uint64_t passes() {
  return numberFrom("TESSARA_SOAK_PASSES", 150);
}

std::uint64_t seed() {
  return numberFrom("TESSARA_SOAK_SEED", 1);
}

struct Soaked {
  const char* name;
  const char* module;
  /// The key of the sample's file that lists faults.
  const char* list;
  /// Faults with their probability for each request.
  json faults;
};

void PrintTo(const Soaked& soaked, std::ostream* out) {
  *out << soaked.name;
}

class Soak : public SettingsFolder, public ::testing::WithParamInterface<Soaked> {
 protected:
  Soak() { ::setenv("XDG_RUNTIME_DIR", folder().c_str(), 1); }

  [[nodiscard]] std::filesystem::path faultyModule() const {
    auto file =
        json::parse(std::ifstream(std::filesystem::path(TESSARA_MODULES) / GetParam().module));
    auto faults = GetParam().faults;
    for (std::size_t fault = 0; fault < faults.size(); ++fault) {
      faults[fault]["seed"] = seed() * 100 + fault;
    }
    file[GetParam().list] = faults;
    auto path = folder() / "module.json";
    std::ofstream(path) << file;
    return path;
  }
};

/// The totals after so many passes.
struct Tally {
  std::uint64_t passes = 0;
  std::uint64_t failed = 0;
  std::uint64_t gone = 0;
  std::uint64_t reads = 0;
};

/// Reads until the module is there; a module that fails at random may take a few.
void readAgain(ModuleAtWork& work, Tally& tally) {
  constexpr int patience = 200;
  for (int attempt = 0; attempt < patience && !work.loop.isTicking(); ++attempt) {
    work.forget();
    work.read();
    ++tally.reads;
    ASSERT_EQ(work.callsOf("ConnectWithSerialDevice") - work.callsOf("CloseSerialConnection"),
              work.calls.back().operation == "ConnectWithSerialDevice" ? 1 : 0);
    // The line may have to settle, or the adapter to come back.
    if (!work.isRead()) work.loop.sleep(std::chrono::milliseconds(5));
  }
  ASSERT_TRUE(work.loop.isTicking()) << "the module could not be read any more";
}

/// One pass, and the consequences of the calls that it made.
void pass(ModuleAtWork& work, Tally& tally) {
  const auto failuresBefore = inside(work.control()).ScanErrorCount;
  work.forget();
  ASSERT_TRUE(work.loop.tick());
  ++tally.passes;

  ASSERT_EQ(work.activities[Activity::Scanning], 1);
  ASSERT_EQ(work.callsOf("ConnectWithSerialDevice"), 1);
  ASSERT_EQ(work.callsOf("CloseSerialConnection"), 1);
  ASSERT_FALSE(inside(work.control()).DeviceConnected);
  const bool isConnected = std::get<bool>(work.calls.front().result);
  const bool hasFailed = work.failedCalls() > 0;
  ASSERT_EQ(work.activities[Activity::AccessOver], hasFailed ? 1 : 0);
  ASSERT_EQ(inside(work.control()).ScanErrorCount, failuresBefore + (hasFailed ? 1 : 0));
  if (!isConnected) {
    ++tally.gone;
    ASSERT_FALSE(work.loop.isTicking());
    return;
  }
  if (!hasFailed) {
    ASSERT_EQ(inside(work.control()).StatusString, u"");
    ASSERT_TRUE(work.loop.isTicking());
    return;
  }
  ++tally.failed;
  const bool isOffline = inside(work.control()).ScanErrorCount > 10;
  ASSERT_EQ(work.loop.isTicking(), !isOffline);
  ASSERT_EQ(inside(work.control()).StatusString == u"Offline", isOffline);
}

void expectPortIsFree(const ModuleAtWork& work) {
  for (const KnownPort& port : work.module.ports()) {
    EXPECT_NO_THROW(SerialLine{port.deviceNode}) << "the port is held between two passes";
  }
}

TEST_P(Soak, LosesNoPassAndNoResource) {
  ModuleAtWork work(faultyModule());
  Tally tally;
  Resources warm;
  const std::uint64_t warmUp = passes() / 3;
  constexpr std::uint64_t portCheck = 50;
  while (tally.passes < passes()) {
    if (!work.loop.isTicking()) {
      ASSERT_NO_FATAL_FAILURE(readAgain(work, tally));
    }
    ASSERT_NO_FATAL_FAILURE(pass(work, tally)) << "in pass " << tally.passes;
    if (tally.passes % portCheck == 0) expectPortIsFree(work);
    if (tally.passes == warmUp) {
      work.forget();
      warm = Resources::now();
    }
  }
  EXPECT_EQ(inside(work.control()).ScanErrorCount, static_cast<std::int16_t>(tally.failed));
  EXPECT_GT(tally.failed, 0U) << "nothing has failed: this was no test";

  work.forget();
  const Resources end = Resources::now();
  // The simulator remembers its latest requests.
  constexpr std::size_t noise = 128UL * 1024;
  EXPECT_LT(end.heapBytes, warm.heapBytes + noise);
  EXPECT_LE(end.descriptors, warm.descriptors + 1);
  std::cout << GetParam().name << ": " << tally.passes << " passes, " << tally.failed << " failed, "
            << tally.gone << " without a port, " << tally.reads << " reads; heap " << warm.heapBytes
            << " -> " << end.heapBytes << " bytes, descriptors " << warm.descriptors << " -> "
            << end.descriptors << '\n';
}

json fault(double probability, json what) {
  what["probability"] = probability;
  return what;
}

INSTANTIATE_TEST_SUITE_P(
    OnPaths, Soak,
    ::testing::Values(
        Soaked{"SerialAdapter", "tessara-um-161.json", "faults",
               json::array({fault(0.01, {{"kind", "badChecksum"}}),
                            fault(0.01, {{"kind", "exception"}, {"code", 4}}),
                            fault(0.01, {{"kind", "noise"}, {"bytes", {0, 255}}}),
                            fault(0.01, {{"kind", "echo"}}),
                            fault(0.005, {{"kind", "wrongUnit"}, {"address", 9}}),
                            fault(0.002, {{"kind", "cutOff"}, {"bytes", 4}}),
                            fault(0.001, {{"kind", "noReply"}}),
                            fault(0.0005, {{"kind", "lateReply"}, {"delay", 600}}),
                            fault(0.002, {{"kind", "unplug"}, {"bytes", 3}, {"replugAfter", 3}})})},
        Soaked{"UsbReader", "nfc-usb-healthy.json", "readerFaults",
               json::array({fault(0.004, {{"kind", "tagAbsent"}}),
                            fault(0.001, {{"kind", "tagLeaves"}, {"returnAfter", 3}}),
                            fault(0.004, {{"kind", "airChecksum"}}),
                            fault(0.004, {{"kind", "readerError"}, {"code", 134}})})}),
    [](const auto& soaked) { return soaked.param.name; });

}  // namespace
}  // namespace tessara::testing
