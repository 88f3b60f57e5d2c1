#include <algorithm>
#include <array>
#include <filesystem>
#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/ModuleFile.h"

namespace tessara {
namespace {

const std::filesystem::path moduleFolder = TESSARA_MODULES;

constexpr std::uint16_t goodChannel = 0x0080;  // of both channel status words

/// The register of the device status with that firmware; channel input, device error, channel
/// output and LED status follow.
std::uint16_t statusRegister(std::uint16_t firmware) {
  switch (firmware) {
    case 0x1000:
      return 60;
    case 0x1100:
      return 80;
    default:
      return 100;
  }
}

std::array<std::uint16_t, 5> statusWords(const SimulatedModule& module) {
  std::array<std::uint16_t, 5> words{};
  std::uint16_t number = statusRegister(module.registers.at(firmwareRegister));
  for (std::uint16_t& word : words) word = module.registers.at(number++);
  return words;
}

SimulatedModule sample(const std::string& name) {
  return loadModule(moduleFolder / (name + ".json"));
}

class EachSample : public ::testing::TestWithParam<std::filesystem::path> {};

TEST_P(EachSample, HoldsEverythingThatAReadAsksFor) {
  const SimulatedModule module = loadModule(GetParam());
  EXPECT_EQ(module.address, defaultAddress);
  EXPECT_EQ(module.identification[0], 49);
  EXPECT_NE(module.name, "");
  for (const std::uint16_t number :
       {secondVersionRegister, firmwareRegister, serialNumberRegister, nameRegister}) {
    EXPECT_TRUE(module.registers.contains(number)) << number;
  }
  EXPECT_TRUE(module.faults.empty());
}

TEST_P(EachSample, HasARegister0ForReadsWithoutACatalogueEntry) {
  EXPECT_EQ(loadModule(GetParam()).registers.at(0), 0);
}

std::vector<std::filesystem::path> sampleFiles() {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(moduleFolder)) {
    const bool isModbus = !entry.path().stem().string().starts_with("hart-") &&
                          !entry.path().stem().string().starts_with("nfc-");
    if (isModbus) files.push_back(entry.path());
  }
  std::ranges::sort(files);
  return files;
}

INSTANTIATE_TEST_SUITE_P(SampleModules, EachSample, ::testing::ValuesIn(sampleFiles()),
                         [](const auto& test) {
                           std::string name = test.param.stem().string();
                           std::ranges::replace(name, '-', '_');
                           return name;
                         });

TEST(SampleModules, HaveAHealthyOneOfEachFamilySet) {
  std::set<int> families;
  for (const std::string name :
       {"tessara-tm-151", "tessara-um-161", "vellum-si-181", "vellum-lm-201", "vellum-ba-221",
        "korrin-mm-251", "korrin-gm-261"}) {
    const SimulatedModule module = sample(name);
    families.insert(module.identification[2]);
    EXPECT_EQ(module.identification[3], module.identification[2] * 10 + 1) << name;
    EXPECT_THAT(statusWords(module), ::testing::ElementsAre(0, goodChannel, 0, goodChannel, 0))
        << name;
  }
  EXPECT_EQ(families, (std::set<int>{15, 16, 18, 20, 22, 25, 26}));
}

TEST(SampleModules, HaveOneWithAnErrorWord) {
  const auto words = statusWords(sample("tessara-tm-151-error"));
  EXPECT_EQ(words[0], 0x0002);
  EXPECT_NE(words[2], 0);
}

TEST(SampleModules, HaveOneOnUsbPower) {
  EXPECT_EQ(statusWords(sample("vellum-lm-201-usb-power"))[4], 0x1000);
}

TEST(SampleModules, HaveOneThatIsNotInTheCatalogue) {
  EXPECT_EQ(sample("korrin-xp-991-unknown").identification[2], 99);
}

TEST(SampleModules, HaveFirmwareBeyondBothEndsOfTheCatalogue) {
  EXPECT_EQ(sample("vellum-ba-221-newer").registers.at(firmwareRegister), 0x3000);
  EXPECT_EQ(sample("vellum-si-181-older").registers.at(firmwareRegister), 0x0500);
}

}  // namespace
}  // namespace tessara
