#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/ModuleFile.h"
#include "simulator/nfc/NfcModuleFile.h"

namespace tessara {
namespace {

using ::testing::HasSubstr;

SimulatedNfcModule parse(const std::string& more) {
  const std::string text =
      R"({"link": "nfc-twn4", "vendorId": 49, "groupId": 1, "familyId": 15, "deviceId": 151)" +
      more + "}";
  return readModuleText(text, "module.json", readNfcModule);
}

std::string errorOf(const std::string& more) {
  try {
    parse(more);
  } catch (const ModuleFileError& error) {
    return error.what();
  }
  return "no error";
}

std::string fault(const std::string& rest) {
  return R"(, "readerFaults": [{)" + rest + "}]";
}

TEST(NfcModuleFile, HoldsTheKeysOfAModbusModule) {
  const auto module = parse(
      R"(, "firmware": "2.000", "status": {"100": 2}, "faults": [{"kind": "noReply", "at": 1}])");
  EXPECT_EQ(module.module.registers.at(4), 0x2000);
  EXPECT_EQ(module.module.registers.at(100), 2);
  EXPECT_EQ(module.module.faults.size(), 1U);
  EXPECT_TRUE(module.faults.empty());
}

TEST(NfcModuleFile, SetsTheNumberOfTheTag) {
  EXPECT_EQ(parse(R"(, "uid": "E00226445566778A")").uid,
            (TagUid{0xE0, 0x02, 0x26, 0x44, 0x55, 0x66, 0x77, 0x8A}));
  EXPECT_EQ(parse("").uid.front(), 0xE0);
}

TEST(NfcModuleFile, RefusesWhatIsNotTheNumberOfATag) {
  for (const std::string uid : {"E002", "A002264455667788", "xyz", ""}) {
    EXPECT_THAT(errorOf(R"(, "uid": ")" + uid + '"'),
                HasSubstr("module.json: uid: \"" + uid +
                          "\" is not the number of a tag, 16 hexadecimal digits"))
        << uid;
  }
}

TEST(NfcModuleFile, OrdersEachFaultOfTheField) {
  const auto effect = [](const std::string& rest) {
    return parse(fault(rest + R"(, "at": 3)")).faults.at(0).effect;
  };
  using namespace fieldFaults;
  EXPECT_TRUE(std::holds_alternative<TagAbsent>(effect(R"("kind": "tagAbsent")")));
  EXPECT_EQ(std::get<TagLeaves>(effect(R"("kind": "tagLeaves")")).returnAfter, std::nullopt);
  EXPECT_EQ(std::get<TagLeaves>(effect(R"("kind": "tagLeaves", "returnAfter": 70)")).returnAfter,
            std::chrono::milliseconds(70));
  EXPECT_TRUE(std::holds_alternative<AirChecksum>(effect(R"("kind": "airChecksum")")));
  EXPECT_EQ(std::get<ReaderError>(effect(R"("kind": "readerError", "code": 134)")).code, 134);
  EXPECT_TRUE(std::holds_alternative<ReaderSilent>(effect(R"("kind": "readerSilent")")));
  EXPECT_EQ(std::get<MailboxBusy>(effect(R"("kind": "mailboxBusy", "for": 200)")).duration,
            std::chrono::milliseconds(200));
  EXPECT_TRUE(std::holds_alternative<MailboxOff>(effect(R"("kind": "mailboxOff")")));
  EXPECT_EQ(std::get<ModuleAsleep>(effect(R"("kind": "moduleAsleep")")).duration, std::nullopt);
}

TEST(NfcModuleFile, OrdersFaultsByRequestStepAndChance) {
  const auto trigger = [](const std::string& when) {
    return parse(fault(R"("kind": "tagAbsent", )" + when)).faults.at(0).trigger;
  };
  EXPECT_EQ(std::get<faults::At>(trigger(R"("at": 3)")).request, 3U);
  EXPECT_EQ(std::get<faults::Every>(trigger(R"("every": 2)")).requests, 2U);
  EXPECT_EQ(std::get<faults::ByChance>(trigger(R"("probability": 0.5, "seed": 9)")).seed, 9U);
}

TEST(NfcModuleFile, SaysWhatIsWrongWithAFault) {
  EXPECT_THAT(errorOf(fault(R"("kind": "noise", "at": 1)")),
              HasSubstr("readerFaults[0].kind: \"noise\" is not a kind of fault; these are: "
                        "tagAbsent, tagLeaves, airChecksum, readerError, readerSilent, "
                        "mailboxBusy, mailboxOff, moduleAsleep"));
  EXPECT_THAT(errorOf(fault(R"("kind": "readerError", "code": 0, "at": 1)")),
              HasSubstr("readerFaults[0].code: 0 is not within 1 to 255"));
  EXPECT_THAT(errorOf(fault(R"("kind": "readerError", "at": 1)")), HasSubstr("code: missing"));
  EXPECT_THAT(errorOf(fault(R"("kind": "tagAbsent")")), HasSubstr("needs one of the keys"));
  EXPECT_THAT(errorOf(fault(R"("kind": "tagAbsent", "for": 1, "at": 1)")),
              HasSubstr("readerFaults[0].for: unknown key"));
  EXPECT_THAT(errorOf(fault(R"("kind": "tagAbsent", "probability": 2, "seed": 1)")),
              HasSubstr("a probability must lie between 0 and 1"));
  EXPECT_THAT(errorOf(R"(, "readerFaults": 1)"), HasSubstr("1 is not a list"));
}

TEST(NfcModuleFile, RefusesOtherKeys) {
  EXPECT_THAT(errorOf(R"(, "pollingAddress": 1)"), HasSubstr("unknown key"));
}

}  // namespace
}  // namespace tessara
