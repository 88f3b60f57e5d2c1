#include <gtest/gtest.h>

#include "serve/MemberJson.h"

namespace tessara::testing {
namespace {

std::string told(const char* name, MemberKind kind) {
  return memberJson(*findMember(name, kind)).dump();
}

TEST(MemberJson, a_property_has_access_and_the_type_of_its_value) {
  EXPECT_EQ(told("ComPort", MemberKind::Property),
            R"({"name":"ComPort","kind":"property","access":"get/set","types":{"value":"Long"}})");
  EXPECT_EQ(told("DevAddr", MemberKind::Property),
            R"({"name":"DevAddr","kind":"property","access":"get","types":{"value":"Byte"}})");
  EXPECT_EQ(told("DeviceActive", MemberKind::Property),
            R"({"name":"DeviceActive","kind":"property","access":"set","types":{"value":"Long"}})");
}

TEST(MemberJson, a_method_has_the_types_of_result_and_arguments) {
  EXPECT_EQ(told("SetChnStatus", MemberKind::Method),
            R"({"name":"SetChnStatus","kind":"method","types":{"result":"Boolean","arguments":[)"
            R"({"name":"lInStatus","type":"Long","byReference":true},)"
            R"({"name":"lOutStatus","type":"Long","byReference":true}]}})");
  EXPECT_EQ(told("GetFWVersion", MemberKind::Method),
            R"({"name":"GetFWVersion","kind":"method","types":{"result":"none","arguments":[]}})");
}

TEST(MemberJson, a_callback_has_the_types_of_its_arguments) {
  EXPECT_EQ(told("NFCReader", MemberKind::Callback),
            R"({"name":"NFCReader","kind":"callback","types":{"arguments":[)"
            R"({"name":"bNFCReader","type":"Boolean","byReference":true}]}})");
}

}  // namespace
}  // namespace tessara::testing
