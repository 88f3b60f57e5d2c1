#include <set>

#include <gmock/gmock.h>

#include "ControlFixture.h"
#include "control/MemberTable.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;

class MemberTable : public ControlFixture {};

struct Row {
  const char* name;
  MemberKind kind;
  const char* type;
  bool readable;
  bool writable;
};

constexpr auto property = MemberKind::Property;
constexpr auto method = MemberKind::Method;
constexpr auto callback = MemberKind::Callback;

const std::vector<Row> expected{
    {"DeviceID", property, "Long", true, true},
    {"FamilyID", property, "Long", true, true},
    {"FirmwareVers", property, "Double", true, true},
    {"DeviceName", property, "variant", true, true},
    {"CmdLineString", property, "variant", true, true},
    {"FwVersion", property, "variant", true, true},
    {"SerialNumber", property, "variant", true, false},
    {"PackbLink", property, "variant", true, true},
    {"ProductLink", property, "variant", true, true},
    {"DatasheetLink", property, "variant", true, true},
    {"VersionString", property, "variant", true, true},
    {"DevAddr", property, "Byte", true, false},
    {"CommunicationObject", property, "object", true, false},
    {"DataValid", property, "Long", true, true},
    {"DeviceConnected", property, "Long", true, true},
    {"ComPort", property, "Long", true, true},
    {"DataBits", property, "Long", true, false},
    {"StopBits", property, "Long", true, false},
    {"Parity", property, "Long", true, false},
    {"Baudrate", property, "Long", true, true},
    {"MaxBaudrate", property, "Long", true, false},
    {"AppPathString", property, "variant", true, true},
    {"Language", property, "Integer", true, true},
    {"StatusString", property, "variant", true, true},
    {"SetChnStatus", method, "Boolean", false, false},
    {"ChnStatusString", property, "variant", true, false},
    {"SetModuleStatus", method, "Boolean", false, false},
    {"ModulStatusString", property, "variant", true, false},
    {"DescriptionString", property, "variant", false, true},
    {"ManufactureLogoString", property, "variant", true, true},
    {"DeviceLogoString", property, "variant", false, true},
    {"DevicePictureString", property, "variant", true, true},
    {"StringsReverse", property, "Long", true, false},
    {"NFCReader", property, "Long", true, false},
    {"GetNFCMCURevison", property, "string", true, false},
    {"QuickSetupMode", property, "Long", true, false},
    {"QuickSetup", property, "Long", true, true},
    {"LockCmdStore", method, "variant", false, false},
    {"UnLockCmdStore", method, "variant", false, false},
    {"EnableCmdStore", method, "variant", false, false},
    {"DisableCmdStore", method, "variant", false, false},
    {"DeviceActive", property, "Long", false, true},
    {"DataTrafic", property, "Boolean", true, false},
    {"AutomaticConnection", method, "none", false, false},
    {"CheckDeviceType", property, "Long", true, false},
    {"GetFWVersion", method, "none", false, false},
    {"GetDeviceInformation", method, "none", false, false},
    {"GetDeviceStatus", method, "none", false, false},
    {"ModulActive", callback, "none", false, false},
    {"StatusChange", callback, "none", false, false},
    {"SetConfiguration", callback, "none", false, false},
    {"SaveConfiguration", callback, "none", false, false},
    {"LoadConfiguration", callback, "none", false, false},
    {"PrintConfiguration", callback, "none", false, false},
    {"DataTransfer", callback, "none", false, false},
    {"NFCReader", callback, "none", false, false},
};

TEST_F(MemberTable, ListsEveryMemberInTheOrderOfTheInterface) {
  ASSERT_EQ(memberTable().size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const Member& member = memberTable()[i];
    EXPECT_EQ(member.name, expected[i].name);
    EXPECT_EQ(member.kind, expected[i].kind) << member.name;
    EXPECT_EQ(typeName(member.type), expected[i].type) << member.name;
    EXPECT_EQ(member.get != nullptr, expected[i].readable) << member.name;
    EXPECT_EQ(member.set != nullptr, expected[i].writable) << member.name;
    EXPECT_EQ(member.call != nullptr, expected[i].kind == method) << member.name;
  }
}

TEST_F(MemberTable, DispatchNumbersAreUniqueAmongPropertiesAndMethodsAndAmongCallbacks) {
  std::set<std::pair<bool, std::int32_t>> seen;
  for (const Member& member : memberTable()) {
    EXPECT_TRUE(seen.insert({member.kind == callback, member.dispatch}).second) << member.name;
  }
}

TEST_F(MemberTable, CallbacksCarryTheirNumbersAndArguments) {
  const Member* active = findMember("ModulActive", callback);
  ASSERT_NE(active, nullptr);
  EXPECT_EQ(active->dispatch, 1);
  ASSERT_EQ(active->arguments.size(), 1U);
  EXPECT_EQ(active->arguments[0].name, "lStatus");
  EXPECT_EQ(active->arguments[0].type, ValueType::Long);
  EXPECT_TRUE(active->arguments[0].byReference);
  const Member* reader = findMember("NFCReader", callback);
  EXPECT_EQ(reader->dispatch, 8);
  EXPECT_EQ(reader->arguments[0].name, "bNFCReader");
  EXPECT_EQ(reader->arguments[0].type, ValueType::Boolean);
  EXPECT_EQ(findMember("Nothing", property), nullptr);
}

TEST_F(MemberTable, EveryReadablePropertyReads) {
  for (const Member& member : memberTable()) {
    if (member.get != nullptr) {
      EXPECT_NO_THROW((void)member.get(control)) << member.name;
    }
  }
}

TEST_F(MemberTable, MethodsAreCalledWithConvertedArguments) {
  const std::vector<Variant> words{std::int64_t{4}, std::u16string(u"128")};
  const Variant result = findMember("SetChnStatus", method)->call(control, words);
  EXPECT_EQ(result, Variant{true});
  EXPECT_EQ(inside(control).panel.LblChnState.caption(), u"4 -> Bereichs\u00FCberschreitung!");
}

TEST_F(MemberTable, AWrongNumberOfArgumentsIsAnInvalidCall) {
  const std::vector<Variant> one{std::int64_t{4}};
  EXPECT_EQ(errorNumberOf([&] { findMember("SetChnStatus", method)->call(control, one); }), 5);
  EXPECT_EQ(errorNumberOf([&] { findMember("LockCmdStore", method)->call(control, one); }), 5);
}

TEST_F(MemberTable, MethodsWithoutAResultReturnNothing) {
  EXPECT_EQ(findMember("LockCmdStore", method)->call(control, {}), Variant{});
  inside(control).ReaderMissing = true;
  EXPECT_EQ(findMember("AutomaticConnection", method)->call(control, {}), Variant{});
  EXPECT_THAT(log.only({"ModulActive"}), ElementsAre("ModulActive(6)"));
}

}  // namespace
}  // namespace tessara::testing
