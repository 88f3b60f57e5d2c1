#include <filesystem>
#include <fstream>
#include <iterator>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "drivers/NamedPorts.h"
#include "drivers/hart/HartBytesOf.h"
#include "drivers/hart/HartIdentity.h"
#include "simulator/ModuleFile.h"
#include "simulator/PluggableModule.h"
#include "simulator/TemporaryFolder.h"
#include "simulator/hart/HartModuleFile.h"

namespace tessara::testing {
namespace {

using nlohmann::json;
using namespace std::chrono_literals;
using ::testing::HasSubstr;
using ::testing::SizeIs;

const std::filesystem::path moduleFolder = TESSARA_MODULES;

json minimal() {
  return {{"link", "hart"},
          {"vendorId", 176},
          {"deviceType", 226},
          {"deviceRevision", 1},
          {"uniqueId", 0x0A0B0C}};
}

SimulatedHartModule parsed(const json& file) {
  return readModuleText(file.dump(), "m.json", readHartModule);
}

SimulatedHartModule with(const std::string& key, const json& value) {
  json file = minimal();
  file[key] = value;
  return parsed(file);
}

std::string errorWith(const std::string& key, const json& value) {
  return errorOf([&] { with(key, value); });
}

HartBytes textBytes(const std::string& text) {
  return {text.begin(), text.end()};
}

TEST(HartModuleFile, NeedsOnlyWhatIdentifiesAModule) {
  const SimulatedHartModule module = parsed(minimal());
  EXPECT_EQ(module.pollingAddress, 0);
  EXPECT_EQ(module.preambles, 5U);
  EXPECT_EQ(module.deviceStatus, 0);
  EXPECT_EQ(module.name, "");
  EXPECT_TRUE(module.answers.empty());
  EXPECT_TRUE(module.faults.empty());
  const HartIdentity identity = hartIdentityOf(module.identity);
  EXPECT_EQ(identity.manufacturer, 176);
  EXPECT_EQ(identity.deviceType, 226);
  EXPECT_EQ(identity.universalRevision, 7);
  EXPECT_EQ(identity.deviceRevision, 1);
  EXPECT_EQ(identity.preambles, 5);
  EXPECT_EQ(identity.address, identifiedAddress());
}

TEST(HartModuleFile, SaysWhatIsMissing) {
  for (const char* key : {"vendorId", "deviceType", "deviceRevision", "uniqueId"}) {
    json file = minimal();
    file.erase(key);
    EXPECT_EQ(errorOf([&] { parsed(file); }), std::string("m.json: ") + key + ": missing");
  }
}

TEST(HartModuleFile, MakesAnIdentityOfTheLengthOfItsRevision) {
  EXPECT_THAT(with("universalRevision", 5).identity, SizeIs(12));
  EXPECT_THAT(with("universalRevision", 6).identity, SizeIs(17));
  EXPECT_THAT(with("universalRevision", 7).identity, SizeIs(22));
  EXPECT_EQ(errorWith("universalRevision", 8), "m.json: universalRevision: 8 is not within 5 to 7");
}

TEST(HartModuleFile, PutsTheRevisionsAndPreamblesIntoTheirBytes) {
  json file = minimal();
  file["softwareRevision"] = 9;
  file["hardwareRevision"] = 17;
  file["requestPreambles"] = 8;
  file["answerPreambles"] = 6;
  const SimulatedHartModule module = parsed(file);
  EXPECT_EQ(module.identity.at(6), 9);
  EXPECT_EQ(module.identity.at(7), 17);
  EXPECT_EQ(module.identity.at(3), 8);
  EXPECT_EQ(module.identity.at(12), 6);
  EXPECT_EQ(module.preambles, 6U);
}

TEST(HartModuleFile, TakesAnIdentityByteForByte) {
  const json file = {{"link", "hart"}, {"identity", {254, 26, 137, 7, 5, 2, 27, 8, 1, 33, 99, 63}}};
  EXPECT_EQ(parsed(file).identity, bytesOf("FE 1A 89 07 05 02 1B 08 01 21 63 3F"));
}

TEST(HartModuleFile, RefusesAnInvalidIdentity) {
  const auto error = [](const json& file) { return errorOf([&] { parsed(file); }); };
  EXPECT_EQ(error({{"identity", {254, 1}}}), "m.json: identity: does not have 12 to 253 bytes");
  EXPECT_EQ(error({{"identity", json(std::vector<int>(12, 1))}}),
            "m.json: identity: does not begin with 254");
  EXPECT_EQ(errorWith("identity", {254}),
            "m.json: vendorId: is part of the identity, which is given as bytes");
}

TEST(HartModuleFile, KeepsNameFirmwareAndSerialNumberAsAnswers) {
  json file = minimal();
  file["name"] = "K\u00fchler 7";
  file["namePadding"] = "blank";
  file["firmware"] = "HV2.00";
  file["serialNumber"] = "S 0042";
  const SimulatedHartModule module = parsed(file);
  EXPECT_EQ(module.name, "K\u00fchler 7");
  EXPECT_EQ(module.answers.at(20), textBytes("K\xFChler 7" + std::string(24, ' ')));
  EXPECT_EQ(module.answers.at(24), textBytes("HV2.00"));
  EXPECT_EQ(module.answers.at(27), textBytes("S 0042"));
}

TEST(HartModuleFile, RefusesTextsThatAModuleCannotKeep) {
  EXPECT_EQ(errorWith("name", std::string(33, 'A')),
            "m.json: name: has 33 characters; a module has room for 32");
  EXPECT_EQ(errorWith("firmware", "\u20ac"),
            "m.json: firmware: \"\u20ac\" is not a character of Latin-1");
  EXPECT_EQ(errorWith("namePadding", "zero"), "m.json: namePadding: there is no name to pad");
}

TEST(HartModuleFile, KeepsTheStatusAsTheAnswerToCommand48) {
  EXPECT_EQ(with("status", {2, 4}).answers.at(48), bytesOf("02 04"));
}

TEST(HartModuleFile, NamesTheDeviceStatus) {
  EXPECT_EQ(with("deviceStatus", {"malfunction", "loop current fixed"}).deviceStatus, 0x88);
  EXPECT_THAT(errorWith("deviceStatus", {"tired"}),
              HasSubstr("m.json: deviceStatus[0]: \"tired\" is not a device status; these are: "
                        "malfunction, configuration changed, cold start"));
}

TEST(HartModuleFile, PacksTheTag) {
  EXPECT_EQ(packedHartText("ABCD"), bytesOf("04 20 C4"));
  EXPECT_EQ(packedHartText("abcd"), packedHartText("ABCD"));
  EXPECT_EQ(packedHartText("AB"), packedHartText("AB  "));
  const auto tag = with("tag", "TT101").tag;
  EXPECT_EQ(HartBytes(tag.begin(), tag.end()), packedHartText("TT101   "));
  EXPECT_THAT(errorWith("tag", "NINE CHAR"), HasSubstr("a module has room for 8"));
}

TEST(HartModuleFile, TakesFurtherCommandsAsBytesOrText) {
  const json commands = {{"1", {39, 65}}, {"13", "LINE"}, {"0x200", {85}}};
  const auto answers = with("commands", commands).answers;
  EXPECT_EQ(answers.at(1), bytesOf("27 41"));
  EXPECT_EQ(answers.at(13), textBytes("LINE"));
  EXPECT_EQ(answers.at(512), bytesOf("55"));
}

TEST(HartModuleFile, RefusesWhatIsNotACommandNumber) {
  for (const char* number : {"31", "254", "255", "65536", "-1", "name"}) {
    EXPECT_EQ(errorWith("commands", {{number, {1}}}),
              std::string("m.json: commands.") + number +
                  ": the key is not a command number from 1 to 65535 other than 31, 254 and 255");
  }
  for (const char* number : {"0", "11", "21"}) {
    EXPECT_THAT(errorWith("commands", {{number, {1}}}),
                HasSubstr("this command gives the identity"));
  }
}

TEST(HartModuleFile, RefusesACommandThatIsGivenTwice) {
  json file = minimal();
  file["firmware"] = "HV2.00";
  file["commands"] = {{"24", {1}}};
  EXPECT_EQ(errorOf([&] { parsed(file); }), "m.json: commands.24: command 24 is given twice");
}

TEST(HartModuleFile, RefusesMoreDataThanAnAnswerHolds) {
  EXPECT_EQ(with("status", json(std::vector<int>(253, 1))).answers.at(48).size(), 253U);
  EXPECT_EQ(errorWith("status", json(std::vector<int>(254, 1))),
            "m.json: status: has 254 bytes; an answer has room for 253");
  EXPECT_EQ(errorWith("commands", {{"512", json(std::vector<int>(252, 1))}}),
            "m.json: commands.512: has 252 bytes; an answer has room for 251");
}

TEST(HartModuleFile, RefusesUnknownKeysAndNumbers) {
  EXPECT_EQ(errorWith("address", 5), "m.json: address: unknown key");
  EXPECT_EQ(errorWith("pollingAddress", 64), "m.json: pollingAddress: 64 is not within 0 to 63");
  EXPECT_EQ(errorWith("uniqueId", 0x1000000),
            "m.json: uniqueId: 16777216 is not within 0 to 16777215");
}

/// The effect of the only fault in a file.
template <class Effect>
Effect effectOf(const json& fault) {
  const SimulatedHartModule module = with("faults", json::array({fault}));
  return std::get<Effect>(module.faults.at(0).effect);
}

json every(json fault) {
  fault["every"] = 1;
  return fault;
}

TEST(HartModuleFile, OrdersEachKindOfFault) {
  effectOf<faults::NoReply>(every({{"kind", "noReply"}}));
  effectOf<faults::BadChecksum>(every({{"kind", "badChecksum"}}));
  effectOf<faults::ColdStart>(every({{"kind", "coldStart"}}));
  effectOf<faults::Echo>(every({{"kind", "echo"}}));
  effectOf<faults::OtherMaster>(every({{"kind", "otherMaster"}}));
  EXPECT_EQ(effectOf<faults::LateReply>(every({{"kind", "lateReply"}, {"delay", 400}})).delay,
            400ms);
  EXPECT_EQ(effectOf<faults::WrongAddress>(every({{"kind", "wrongUnit"}, {"address", 9}})).address,
            9);
  EXPECT_EQ(
      effectOf<faults::WrongCommand>(every({{"kind", "wrongCommand"}, {"command", 9}})).command, 9);
  EXPECT_EQ(effectOf<faults::ResponseCode>(every({{"kind", "exception"}, {"code", 7}})).code, 7);
  EXPECT_EQ(effectOf<faults::ResponseCode>(every({{"kind", "busy"}})).code, 32);
  EXPECT_EQ(
      effectOf<faults::CommunicationError>(every({{"kind", "communicationError"}, {"bits", 8}}))
          .bits,
      8);
  EXPECT_EQ(
      effectOf<faults::DelayedAnswer>(every({{"kind", "delayedAnswer"}, {"requests", 3}})).requests,
      3U);
  EXPECT_EQ(effectOf<faults::Preambles>(every({{"kind", "preambles"}, {"count", 1}})).count, 1U);
  EXPECT_EQ(effectOf<faults::CutOff>(every({{"kind", "cutOff"}, {"bytes", 12}})).bytes, 12U);
  EXPECT_EQ(effectOf<faults::Noise>(every({{"kind", "noise"}, {"bytes", {1, 2}}})).bytes,
            bytesOf("01 02"));
  EXPECT_EQ(
      effectOf<faults::TrailingNoise>(every({{"kind", "trailingNoise"}, {"bytes", {0}}})).bytes,
      bytesOf("00"));
  const auto gap = effectOf<faults::Gap>(every({{"kind", "gap"}, {"after", 9}, {"pause", 50}}));
  EXPECT_EQ(gap.after, 9U);
  EXPECT_EQ(gap.pause, 50ms);
  EXPECT_TRUE(effectOf<faults::BurstFrame>(every({{"kind", "burst"}, {"master", "primary"}}))
                  .isToPrimaryMaster);
  EXPECT_FALSE(effectOf<faults::BurstFrame>(every({{"kind", "burst"}, {"master", "secondary"}}))
                   .isToPrimaryMaster);
  const auto unplug =
      effectOf<faults::Unplug>(every({{"kind", "unplug"}, {"bytes", 0}, {"replugAfter", 30}}));
  EXPECT_EQ(unplug.bytes, 0U);
  EXPECT_EQ(unplug.replugAfter, 30ms);
}

TEST(HartModuleFile, SaysWhatIsWrongWithAFault) {
  const auto error = [](const json& fault) { return errorWith("faults", json::array({fault})); };
  EXPECT_THAT(error(every({{"kind", "fire"}})),
              HasSubstr("faults[0].kind: \"fire\" is not a kind of fault; these are: noReply, "));
  EXPECT_THAT(error({{"kind", "echo"}}), HasSubstr("needs one of the keys"));
  EXPECT_THAT(error({{"kind", "echo"}, {"probability", 2.0}, {"seed", 1}}),
              HasSubstr("a probability must lie between 0 and 1"));
  EXPECT_THAT(error(every({{"kind", "noise"}, {"bytes", json::array()}})),
              HasSubstr("noise must have at least 1 byte"));
  EXPECT_THAT(error(every({{"kind", "burst"}, {"master", "third"}})),
              HasSubstr("\"third\" is not one of \"primary\" and \"secondary\""));
  EXPECT_THAT(error(every({{"kind", "exception"}, {"code", 128}})), HasSubstr("within 0 to 127"));
  EXPECT_THAT(error(every({{"kind", "echo"}, {"delay", 1}})), HasSubstr("unknown key"));
}

TEST(HartModuleFile, MatchesTheManual) {
  std::ifstream manual(moduleFolder / "../../docs/simulator.md");
  const std::string text(std::istreambuf_iterator<char>(manual), {});
  const std::size_t link = text.find(R"("link": "hart")");
  ASSERT_NE(link, std::string::npos);
  const std::size_t begin = text.rfind('{', link);
  const std::string example = text.substr(begin, text.find("```", begin) - begin);
  EXPECT_EQ(readModuleText(example, "simulator.md", readHartModule).answers.at(24),
            textBytes("HV2.00"));
}

TEST(PluggableModule, HasTheAdapterOfItsLink) {
  const PluggableModule hart = loadPluggableModule(moduleFolder / "hart-healthy.json");
  EXPECT_EQ(hart.deviceNamePrefix, "\\Device\\ViatorSim");
  EXPECT_EQ(hart.name, "TESSARA HT 2261 LINE A");
  const PluggableModule modbus = loadPluggableModule(moduleFolder / "tessara-tm-151.json");
  EXPECT_EQ(modbus.deviceNamePrefix, "\\Device\\Silabser");
}

TEST(PluggableModule, HasALinkThatCanBeSimulated) {
  const TemporaryFolder folder;
  const std::string file = folder.write("m.json", R"({"link": "smoke"})");
  EXPECT_THAT(errorOf([&] { loadPluggableModule(file); }),
              HasSubstr(": link: \"smoke\" is not a link that can be simulated; these are: modbus, "
                        "hart"));
}

TEST(HartSamples, AreOfTheFamilyThatTheCatalogueKnows) {
  for (const auto& [file, revision, firmware] : {std::tuple("hart-healthy.json", 1, "HV2.00"),
                                                 std::tuple("hart-faulty.json", 2, "HV1.03")}) {
    const SimulatedHartModule module = readModuleFile(moduleFolder / file, readHartModule);
    const HartIdentity identity = hartIdentityOf(module.identity);
    EXPECT_EQ(identity.manufacturer, 176);
    EXPECT_EQ(identity.deviceType, 226);
    EXPECT_EQ(identity.deviceRevision, revision);
    EXPECT_EQ(module.answers.at(24), textBytes(firmware));
    EXPECT_THAT(module.answers.at(20), SizeIs(32));
    EXPECT_TRUE(module.faults.empty());
  }
}

TEST(HartSamples, AreOneHealthyAndOneFaulty) {
  EXPECT_EQ(readModuleFile(moduleFolder / "hart-healthy.json", readHartModule).answers.at(48).at(1),
            0);
  EXPECT_NE(readModuleFile(moduleFolder / "hart-faulty.json", readHartModule).answers.at(48).at(1),
            0);
}

}  // namespace
}  // namespace tessara::testing
