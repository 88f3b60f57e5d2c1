#include <gtest/gtest.h>

#include "serve/MemberJson.h"

namespace tessara::testing {
namespace {

std::string jsonOf(const char* name, MemberKind kind) {
  return memberJson(*findMember(name, kind)).text();
}

TEST(MemberJson, APropertyHasAccessAndTheTypeOfItsValue) {
  EXPECT_EQ(jsonOf("ComPort", MemberKind::Property),
            R"({"name":"ComPort","kind":"property","access":"get/set","types":{"value":"Long"}})");
  EXPECT_EQ(jsonOf("DevAddr", MemberKind::Property),
            R"({"name":"DevAddr","kind":"property","access":"get","types":{"value":"Byte"}})");
  EXPECT_EQ(jsonOf("DeviceActive", MemberKind::Property),
            R"({"name":"DeviceActive","kind":"property","access":"set","types":{"value":"Long"}})");
}

TEST(MemberJson, AMethodHasTheTypesOfResultAndArguments) {
  EXPECT_EQ(jsonOf("SetChnStatus", MemberKind::Method),
            R"({"name":"SetChnStatus","kind":"method","types":{"result":"Boolean","arguments":[)"
            R"({"name":"lInStatus","type":"Long","byReference":true},)"
            R"({"name":"lOutStatus","type":"Long","byReference":true}]}})");
  EXPECT_EQ(jsonOf("GetFWVersion", MemberKind::Method),
            R"({"name":"GetFWVersion","kind":"method","types":{"result":"none","arguments":[]}})");
}

TEST(MemberJson, ACallbackHasTheTypesOfItsArguments) {
  EXPECT_EQ(jsonOf("NFCReader", MemberKind::Callback),
            R"({"name":"NFCReader","kind":"callback","types":{"arguments":[)"
            R"({"name":"bNFCReader","type":"Boolean","byReference":true}]}})");
}

}  // namespace
}  // namespace tessara::testing
