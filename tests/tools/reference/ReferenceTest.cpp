#include <array>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/reference/Reference.h"
#include "tools/reference/Values.h"

namespace tessara {
namespace {

using ::testing::HasSubstr;

std::string ownReference() {
  return reference(memberTable(), descriptions());
}

std::string failureOf(std::span<const Member> members, std::span<const Description> texts) {
  try {
    (void)reference(members, texts);
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
  return "no failure";
}

TEST(Reference, ThePageThatPeopleReadIsTheOneThatTheBuildWrites) {
  std::ifstream file(TESSARA_REFERENCE, std::ios::binary);
  const std::string page(std::istreambuf_iterator<char>(file), {});
  EXPECT_EQ(page, ownReference()) << "copy docs/reference.md from the build folder";
}

TEST(Reference, HasARowForEveryMember) {
  const std::string page = ownReference();
  for (const Member& member : memberTable()) {
    EXPECT_THAT(page, HasSubstr("\n| " + std::to_string(member.dispatch) + " | `" +
                                std::string(member.name) + "` | "));
  }
}

TEST(Reference, TellsTypeAccessArgumentsAndResult) {
  const std::string page = ownReference();
  EXPECT_THAT(page, HasSubstr("| 20 | `Baudrate` | Long | read, write | "));
  EXPECT_THAT(page, HasSubstr("| 7 | `SerialNumber` | variant | read | "));
  EXPECT_THAT(page, HasSubstr("| 42 | `DeviceActive` | Long | write | "));
  EXPECT_THAT(page, HasSubstr("| 25 | `SetChnStatus` | `lInStatus`: Long by reference, "
                              "`lOutStatus`: Long by reference | Boolean | "));
  EXPECT_THAT(page, HasSubstr("| 8 | `NFCReader` | `bNFCReader`: Boolean by reference | "));
}

TEST(Reference, EveryLinkToValuesLeadsToATableOfThem) {
  const std::string page = ownReference();
  for (auto place = page.find("](#"); place != std::string::npos;
       place = page.find("](#", place + 1)) {
    const auto name = page.rfind('[', place) + 1;
    EXPECT_THAT(page, HasSubstr("\n### " + page.substr(name, place - name) + "\n"));
  }
}

TEST(Reference, EveryTableOfValuesButTheErrorsBelongsToAMember) {
  for (const ValueTable& table : valueTables()) {
    const bool isMember = findMember(table.name, MemberKind::Property) != nullptr ||
                          findMember(table.name, MemberKind::Callback) != nullptr;
    EXPECT_TRUE(isMember || table.name == "Errors") << table.name;
    EXPECT_FALSE(table.rows.empty());
  }
}

TEST(Reference, AMemberWithoutADescriptionIsNamed) {
  const std::vector<Description> texts(descriptions().begin() + 1, descriptions().end());
  EXPECT_EQ(failureOf(memberTable(), texts), "DeviceID has no description");
  std::vector<Description> emptied(descriptions().begin(), descriptions().end());
  emptied[1].text = {};
  EXPECT_EQ(failureOf(memberTable(), emptied), "FamilyID has no description");
}

TEST(Reference, ADescriptionWithoutAMemberIsNamed) {
  EXPECT_EQ(failureOf(memberTable().subspan(1), descriptions()),
            "DeviceID is described but is not a member");
  constexpr std::array texts{Description{"NFCReader", MemberKind::Method, "x"}};
  EXPECT_EQ(failureOf(memberTable(), texts), "NFCReader is described but is not a member");
}

TEST(Reference, NoCellBreaksItsTable) {
  for (const Description& text : descriptions()) {
    EXPECT_EQ(text.text.find_first_of("|\n"), std::string_view::npos) << text.name;
  }
}

}  // namespace
}  // namespace tessara
