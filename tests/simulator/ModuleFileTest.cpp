#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "simulator/ModuleFile.h"
#include "simulator/TemporaryFolder.h"

namespace tessara {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::SizeIs;
using ::testing::StartsWith;

nlohmann::json minimal() {
  return {{"vendorId", 49}, {"groupId", 1}, {"familyId", 15}, {"deviceId", 151}};
}

/// The minimal module with one more key, or with another value for one.
SimulatedModule with(const std::string& key, const nlohmann::json& value) {
  nlohmann::json file = minimal();
  file[key] = value;
  return parseModule(file.dump(), "m.json");
}

std::string errorOf(const std::string& text) {
  try {
    parseModule(text, "m.json");
  } catch (const ModuleFileError& error) {
    return error.what();
  }
  return "no error";
}

std::string errorWith(const std::string& key, const nlohmann::json& value) {
  nlohmann::json file = minimal();
  file[key] = value;
  return errorOf(file.dump());
}

std::string faultError(const std::string& fault) {
  return errorWith("faults", nlohmann::json::array({nlohmann::json::parse(fault)}));
}

Fault fault(const std::string& text) {
  return with("faults", nlohmann::json::array({nlohmann::json::parse(text)})).faults.at(0);
}

TEST(ModuleFile, NeedsOnlyTheIdentificationWords) {
  const SimulatedModule module = parseModule(minimal().dump(), "m.json");
  EXPECT_THAT(module.identification, ElementsAre(49, 1, 15, 151));
  EXPECT_EQ(module.address, 192);
  EXPECT_EQ(module.name, "");
  EXPECT_THAT(module.registers, IsEmpty());
  EXPECT_THAT(module.faults, IsEmpty());
}

TEST(ModuleFile, TakesWordsAsNumbersOrInHexadecimal) {
  EXPECT_EQ(with("deviceId", 65535).identification[3], 0xFFFF);
  EXPECT_EQ(with("deviceId", -1).identification[3], 0xFFFF);
  EXPECT_EQ(with("deviceId", -32768).identification[3], 0x8000);
  EXPECT_EQ(with("deviceId", "0x00b0").identification[3], 0x00B0);
}

TEST(ModuleFile, TurnsVersionsIntoDigits) {
  EXPECT_THAT(with("firmware", "1.234").registers, ElementsAre(Pair(4, 0x1234)));
  EXPECT_THAT(with("secondVersion", "9.876").registers, ElementsAre(Pair(3, 0x9876)));
  EXPECT_THAT(with("firmware", "1.2").registers, ElementsAre(Pair(4, 0x1200)));
  EXPECT_THAT(with("firmware", "1").registers, ElementsAre(Pair(4, 0x1000)));
}

TEST(ModuleFile, TakesVersionsAsWords) {
  EXPECT_THAT(with("firmware", "0xA500").registers, ElementsAre(Pair(4, 0xA500)));
  EXPECT_THAT(with("firmware", 4660).registers, ElementsAre(Pair(4, 0x1234)));
}

TEST(ModuleFile, PutsTheSerialNumberIntoFourRegistersLeastSignificantFirst) {
  const auto expected =
      ElementsAre(Pair(5, 0xCDEF), Pair(6, 0x89AB), Pair(7, 0x4567), Pair(8, 0x0123));
  EXPECT_THAT(with("serialNumber", 0x0123456789ABCDEF).registers, expected);
  EXPECT_THAT(with("serialNumber", "81985529216486895").registers, expected);
  EXPECT_THAT(with("serialNumber", "18446744073709551615").registers,
              ElementsAre(Pair(5, 0xFFFF), Pair(6, 0xFFFF), Pair(7, 0xFFFF), Pair(8, 0xFFFF)));
  EXPECT_THAT(with("serialNumber", 0).registers,
              ElementsAre(Pair(5, 0), Pair(6, 0), Pair(7, 0), Pair(8, 0)));
}

TEST(ModuleFile, PutsTheNameIntoSixteenRegistersHighByteFirst) {
  const SimulatedModule module = with("name", "KÄ1");
  EXPECT_EQ(module.name, "KÄ1");
  EXPECT_THAT(module.registers, SizeIs(16));
  EXPECT_EQ(module.registers.at(16), 0x4BC4) << "K and Latin-1 Ä";
  EXPECT_EQ(module.registers.at(17), 0x3100);
  EXPECT_EQ(module.registers.at(31), 0);
}

TEST(ModuleFile, PadsTheNameAsOrdered) {
  nlohmann::json file = minimal();
  file["name"] = "K";
  file["namePadding"] = "blank";
  const SimulatedModule blank = parseModule(file.dump(), "m.json");
  EXPECT_EQ(blank.registers.at(16), 0x4B20);
  EXPECT_EQ(blank.registers.at(31), 0x2020);
  file["namePadding"] = "zero";
  EXPECT_EQ(parseModule(file.dump(), "m.json").registers.at(16), 0x4B00);
}

TEST(ModuleFile, TakesANameOfFullLength) {
  const SimulatedModule module = with("name", std::string(32, 'x'));
  EXPECT_EQ(module.registers.at(31), 0x7878);
}

TEST(ModuleFile, TakesRegistersByNumber) {
  EXPECT_THAT(with("status", {{"100", 128}, {"0x65", "0x0080"}}).registers,
              ElementsAre(Pair(100, 128), Pair(101, 128)));
  EXPECT_THAT(with("registers", {{"0", -1}, {"65535", 1}}).registers,
              ElementsAre(Pair(0, 0xFFFF), Pair(65535, 1)));
}

TEST(ModuleFile, TakesAnotherAddress) {
  EXPECT_EQ(with("address", 247).address, 247);
}

TEST(ModuleFile, TakesTheLinkThatItCanSimulate) {
  EXPECT_NO_THROW(with("link", "modbus"));
}

TEST(ModuleFile, TakesEveryKindOfFault) {
  const auto effect = [](const std::string& keys) {
    return fault("{" + keys + R"(, "at": 1})").effect;
  };
  using std::get;
  EXPECT_TRUE(std::holds_alternative<faults::NoReply>(effect(R"("kind": "noReply")")));
  EXPECT_EQ(get<faults::LateReply>(effect(R"("kind": "lateReply", "delay": 700)")).delay, 700ms);
  EXPECT_TRUE(std::holds_alternative<faults::BadChecksum>(effect(R"("kind": "badChecksum")")));
  EXPECT_EQ(get<faults::WrongAddress>(effect(R"("kind": "wrongUnit", "address": 5)")).address, 5);
  EXPECT_EQ(get<faults::ExceptionReply>(effect(R"("kind": "exception", "code": 6)")).code, 6);
  EXPECT_EQ(get<faults::CutOff>(effect(R"("kind": "cutOff", "bytes": 4)")).bytes, 4U);
  EXPECT_THAT(get<faults::Noise>(effect(R"("kind": "noise", "bytes": [0, 255])")).bytes,
              ElementsAre(0, 255));
  EXPECT_TRUE(std::holds_alternative<faults::Echo>(effect(R"("kind": "echo")")));
  const auto plain = get<faults::Unplug>(effect(R"("kind": "unplug")"));
  EXPECT_FALSE(plain.bytes);
  EXPECT_FALSE(plain.replugAfter);
  const auto full =
      get<faults::Unplug>(effect(R"("kind": "unplug", "bytes": 0, "replugAfter": 2000)"));
  EXPECT_EQ(full.bytes, 0U);
  EXPECT_EQ(full.replugAfter, 2000ms);
}

TEST(ModuleFile, TakesEveryKindOfTrigger) {
  EXPECT_EQ(std::get<faults::At>(fault(R"({"kind": "echo", "at": 7})").trigger).request, 7U);
  EXPECT_EQ(std::get<faults::Every>(fault(R"({"kind": "echo", "every": 3})").trigger).requests, 3U);
  const auto chance = std::get<faults::ByChance>(
      fault(R"({"kind": "echo", "probability": 0.25, "seed": 9})").trigger);
  EXPECT_EQ(chance.probability, 0.25);
  EXPECT_EQ(chance.seed, 9U);
}

TEST(ModuleFile, SaysWhereItIsNotJson) {
  EXPECT_THAT(errorOf("{\n\"vendorId\": }"),
              StartsWith("m.json: invalid JSON at line 2, column 13: "));
  EXPECT_THAT(errorOf(""), StartsWith("m.json: invalid JSON at line 1"));
  EXPECT_THAT(errorOf("{} {}"), StartsWith("m.json: invalid JSON at line 1"));
  EXPECT_THAT(errorOf("{\"a\": \"\xFF\"}"), StartsWith("m.json: invalid JSON at line 1"));
  EXPECT_EQ(errorOf("[]"), "m.json: [] is not an object");
}

TEST(ModuleFile, RefusesDeepNestingWithoutParsingIt) {
  const std::string deep = "{\"status\": " + std::string(10'000'000, '[') + "}";
  EXPECT_EQ(
      errorOf(deep),
      "m.json: invalid JSON at line 1, column 75: lists and objects are nested deeper than 64");
}

TEST(ModuleFile, ReportsADuplicateKey) {
  EXPECT_EQ(errorOf(R"({"vendorId": 1, "vendorId": 2})"),
            "m.json: the key \"vendorId\" occurs twice in one object");
  EXPECT_EQ(errorOf(R"({"status": {"1": 2, "1": 3}})"),
            "m.json: the key \"1\" occurs twice in one object");
}

TEST(ModuleFile, ReportsAMissingIdentificationWord) {
  for (const std::string key : {"vendorId", "groupId", "familyId", "deviceId"}) {
    nlohmann::json file = minimal();
    file.erase(key);
    EXPECT_EQ(errorOf(file.dump()), "m.json: " + key + ": missing");
  }
}

TEST(ModuleFile, ReportsAnUnknownKey) {
  EXPECT_EQ(errorWith("vendorID", 1), "m.json: vendorID: unknown key");
  EXPECT_EQ(faultError(R"({"kind": "echo", "at": 1, "delay": 3})"),
            "m.json: faults[0].delay: unknown key");
}

TEST(ModuleFile, ReportsAnotherLink) {
  EXPECT_EQ(errorWith("link", "hart"), "m.json: link: \"hart\" is not the link of a Modbus module");
  EXPECT_EQ(errorWith("link", 3), "m.json: link: 3 is not text");
}

TEST(ModuleFile, ReportsWhatIsNotAWord) {
  for (const nlohmann::json& value :
       {nlohmann::json(65536), nlohmann::json(-32769), nlohmann::json(1.5), nlohmann::json("15"),
        nlohmann::json("0x10000"), nlohmann::json("0x"), nlohmann::json("0xG"),
        nlohmann::json(nullptr), nlohmann::json(18446744073709551615U)}) {
    EXPECT_THAT(errorWith("deviceId", value),
                StartsWith("m.json: deviceId: " + value.dump() + " is not a 16-bit word"))
        << value;
  }
}

TEST(ModuleFile, ReportsWhatIsNotAVersion) {
  for (const std::string text : {"", "1.", "10.000", "1,234", "1.2345", "1.2a", "a.234", ".234"}) {
    EXPECT_EQ(errorWith("firmware", text),
              "m.json: firmware: \"" + text + "\" is not a version such as \"1.234\"");
  }
  EXPECT_THAT(errorWith("firmware", 1.234), HasSubstr("firmware: 1.234 is not a 16-bit word"));
  EXPECT_THAT(errorWith("secondVersion", "x"), HasSubstr("secondVersion: \"x\" is not a version"));
}

TEST(ModuleFile, ReportsWhatIsNotASerialNumber) {
  for (const std::string text : {"", "-1", "18446744073709551616", "12 3", "1e3"}) {
    EXPECT_EQ(errorWith("serialNumber", text),
              "m.json: serialNumber: \"" + text + "\" is not a number of 64 bits");
  }
  EXPECT_THAT(errorWith("serialNumber", -1), HasSubstr("-1 is not within 0 to"));
  EXPECT_THAT(errorWith("serialNumber", 1.5), HasSubstr("1.5 is not a whole number within 0 to"));
}

TEST(ModuleFile, ReportsANameThatDoesNotFit) {
  EXPECT_EQ(errorWith("name", std::string(33, 'x')),
            "m.json: name: has 33 characters; a module has room for 32");
  EXPECT_EQ(errorWith("name", "Prüfling Ж"), "m.json: name: \"Ж\" is not a character of Latin-1");
  EXPECT_EQ(errorWith("name", 7), "m.json: name: 7 is not text");
  EXPECT_EQ(errorWith("namePadding", "zero"), "m.json: namePadding: there is no name to pad");
  nlohmann::json file = minimal();
  file["name"] = "K";
  file["namePadding"] = "dots";
  EXPECT_EQ(errorOf(file.dump()),
            "m.json: namePadding: \"dots\" is not one of \"zero\" and \"blank\"");
}

TEST(ModuleFile, ReportsABadAddress) {
  for (const int address : {0, 248, -1}) {
    EXPECT_EQ(errorWith("address", address),
              "m.json: address: " + std::to_string(address) + " is not within 1 to 247");
  }
}

TEST(ModuleFile, ReportsABadRegister) {
  const std::string problem = ": the key is not a register number from 0 to 65535";
  for (const std::string number : {"65536", "-1", "a", "0x10000"}) {
    EXPECT_EQ(errorWith("status", {{number, 0}}), "m.json: status." + number + problem);
  }
  for (const std::string number : {"", "1.5"}) {
    EXPECT_EQ(errorWith("status", {{number, 0}}), "m.json: status[\"" + number + "\"]" + problem);
  }
  EXPECT_THAT(errorWith("registers", {{"7", "x"}}),
              StartsWith("m.json: registers.7: \"x\" is not a 16-bit word"));
  EXPECT_EQ(errorWith("registers", {1, 2}), "m.json: registers: [1,2] is not an object");
}

TEST(ModuleFile, ReportsARegisterThatIsGivenTwice) {
  nlohmann::json file = minimal();
  file["firmware"] = "1.000";
  file["registers"] = {{"4", 1}};
  EXPECT_EQ(errorOf(file.dump()), "m.json: registers.4: register 4 is given twice");
  EXPECT_THAT(errorWith("status", {{"100", 1}, {"0x64", 2}}),
              HasSubstr("register 100 is given twice"));
}

TEST(ModuleFile, ReportsAnImpossibleFault) {
  EXPECT_EQ(errorWith("faults", 3), "m.json: faults: 3 is not a list");
  EXPECT_EQ(faultError("5"), "m.json: faults[0]: 5 is not an object");
  EXPECT_EQ(faultError("{}"), "m.json: faults[0].kind: missing");
  EXPECT_EQ(faultError(R"({"kind": "lateReplay", "at": 1})"),
            "m.json: faults[0].kind: \"lateReplay\" is not a kind of fault; these are: noReply, "
            "lateReply, badChecksum, wrongUnit, exception, cutOff, noise, echo, unplug");
  EXPECT_EQ(faultError(R"({"kind": "lateReply", "at": 1})"), "m.json: faults[0].delay: missing");
  EXPECT_THAT(faultError(R"({"kind": "exception", "code": 0, "at": 1})"),
              HasSubstr("faults[0]: the exception code must not be 0"));
  EXPECT_THAT(faultError(R"({"kind": "exception", "code": 256, "at": 1})"),
              HasSubstr("faults[0].code: 256 is not within 0 to 255"));
  EXPECT_THAT(faultError(R"({"kind": "noise", "bytes": [1, 300], "at": 1})"),
              HasSubstr("faults[0].bytes[1]: 300 is not within 0 to 255"));
  EXPECT_THAT(faultError(R"({"kind": "noise", "bytes": [], "at": 1})"),
              HasSubstr("noise must have at least 1 byte"));
  EXPECT_THAT(faultError(R"({"kind": "cutOff", "bytes": 0, "at": 1})"),
              HasSubstr("must keep at least 1 byte"));
}

TEST(ModuleFile, ReportsAnImpossibleTrigger) {
  const std::string one = R"(m.json: faults[0]: needs one of the keys "at", "every" and )"
                          R"("probability")";
  EXPECT_EQ(faultError(R"({"kind": "echo"})"), one);
  EXPECT_EQ(faultError(R"({"kind": "echo", "at": 1, "every": 2})"), one);
  EXPECT_EQ(faultError(R"({"kind": "echo", "probability": 0.5})"),
            "m.json: faults[0].seed: missing");
  EXPECT_EQ(faultError(R"({"kind": "echo", "at": 1, "seed": 2})"),
            "m.json: faults[0].seed: is valid only with the key \"probability\"");
  EXPECT_THAT(faultError(R"({"kind": "echo", "at": 0})"),
              HasSubstr("faults[0].at: 0 is not within 1 to"));
  EXPECT_THAT(faultError(R"({"kind": "echo", "every": 0})"),
              HasSubstr("faults[0].every: 0 is not within 1 to"));
  EXPECT_EQ(faultError(R"({"kind": "echo", "probability": 2, "seed": 1})"),
            "m.json: faults[0]: a probability must lie between 0 and 1");
  EXPECT_THAT(faultError(R"({"kind": "echo", "probability": "x", "seed": 1})"),
              HasSubstr("faults[0].probability: \"x\" is not a number"));
}

TEST(ModuleFile, IsLoadedFromAFile) {
  const testing::TemporaryFolder folder;
  const auto file = folder.write("vellum.json", minimal().dump());
  EXPECT_EQ(loadModule(file).identification[3], 151);
}

TEST(ModuleFile, MatchesTheManual) {
  std::ifstream manual(std::filesystem::path(TESSARA_MODULES) / "../../docs/simulator.md");
  const std::string text(std::istreambuf_iterator<char>(manual), {});
  const std::string fence = "```json\n";
  const auto begin = text.find(fence + "{\n  \"link\": \"modbus\"");
  ASSERT_NE(begin, std::string::npos);
  const auto end = text.find("```", begin + fence.size());
  const SimulatedModule module =
      parseModule(text.substr(begin + fence.size(), end - begin - fence.size()), "simulator.md");
  EXPECT_EQ(module.name, "TESSARA TM 151");
  EXPECT_THAT(module.faults, SizeIs(3));
}

TEST(ModuleFile, ReportsAFileThatCannotBeRead) {
  const testing::TemporaryFolder folder;
  const auto errorOfFile = [](const std::filesystem::path& file) -> std::string {
    try {
      loadModule(file);
    } catch (const ModuleFileError& error) {
      return error.what();
    }
    return "no error";
  };
  const auto absent = folder.path() / "absent.json";
  EXPECT_EQ(errorOfFile(absent), absent.string() + ": cannot be read: No such file or directory");
  EXPECT_EQ(errorOfFile(folder.path()),
            folder.path().string() + ": cannot be read: Is a directory");
  const auto bad = folder.write("bad.json", "{}");
  EXPECT_EQ(errorOfFile(bad), bad.string() + ": vendorId: missing");
}

}  // namespace
}  // namespace tessara
