#include <chrono>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "simulator/ModuleFile.h"
#include "simulator/SimulatedPort.h"

namespace {

/// Stands for the code that opens the port, which the page leaves to the reader.
void connectTo(const std::string& device) {
  EXPECT_TRUE(std::filesystem::exists(device));
}

TEST(SimulatorSnippets, TheExampleServesAPort) {
  std::filesystem::current_path(TESSARA_MODULES);
#include "simulator_1.inc"
  EXPECT_FALSE(std::filesystem::exists(port.device()));
}

}  // namespace
