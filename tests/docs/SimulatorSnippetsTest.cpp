#include <chrono>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "simulator/ModuleFile.h"
#include "simulator/SimulatedPort.h"

namespace {

/// Where the page leaves off: whatever opens the port.
void connectTo(const std::string& device) {
  EXPECT_TRUE(std::filesystem::exists(device));
}

TEST(SimulatorSnippets, APortInAProgramOfOnesOwn) {
  std::filesystem::current_path(TESSARA_MODULES);
#include "simulator_1.inc"
  EXPECT_FALSE(std::filesystem::exists(port.device()));
}

}  // namespace
