#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CatalogueFixture.h"
#include "base/Text.h"

namespace tessara {
namespace {

using testing::device;
using testing::family;
using testing::link;
using testing::Node;
using testing::version;

using Registers = std::vector<std::int32_t>;
const Registers untouched{0, 0, 0, 0, 0, 0, 1};
const Registers from60{60, 61, 62, 63, 64, 65, 66};

class Catalogue : public testing::CatalogueFixture {
 protected:
  /// The module's family with one device of that ID.
  static std::vector<Node> known(std::vector<Node> children) {
    return {family(u"49", u"16", {device(u"161", std::move(children))})};
  }
};

TEST_F(Catalogue, ExactVersionGivesRegistersAndModes) {
  EXPECT_EQ(find(known({version(u"1.234", 60, u"7")})), CatalogResult::CatalogExact);
  EXPECT_EQ(registers(), from60);
  EXPECT_EQ(profile.QuickSetupMode, 7);
}

TEST_F(Catalogue, FindsFamilyByVendorAndFamilyAndDeviceById) {
  const auto other = [](const std::u16string& vendor, const std::u16string& id) {
    return family(vendor, id, {device(u"161", {version(u"1.234", 10)})});
  };
  EXPECT_EQ(find({other(u"48", u"16"), other(u"49", u"17"),
                  family(u"49", u"16",
                         {device(u"160", {version(u"1.234", 20)}),
                          device(u"161", {version(u"1.234", 60)}),
                          device(u"162", {version(u"1.234", 20)})}),
                  other(u"50", u"16")}),
            CatalogResult::CatalogExact);
  EXPECT_EQ(registers(), from60);
}

TEST_F(Catalogue, ComparesIdentifiersAsSignedNumbers) {
  question.VendorID = -1;
  question.FamilyID = -2;
  question.DeviceID = -32768;
  EXPECT_EQ(find({family(u"65535", u"65534", {device(u"32768", {version(u"1.234")})})}),
            CatalogResult::CatalogNoDevice);
  EXPECT_EQ(find({family(u"-1", u"-2", {device(u"-32768", {version(u"1.234")})})}),
            CatalogResult::CatalogExact);
}

TEST_F(Catalogue, UnknownModuleLeavesTheProfileAsItWas) {
  profile.ProductLink = u"former";
  profile.PackbLink = u"former";
  profile.DatasheetLink = u"former";
  profile.HideFwVersion = 1;
  profile.RegDevStatus = 9;
  profile.QuickSetupMode = 3;
  EXPECT_EQ(find({family(u"49", u"15", {device(u"161", {version(u"1.234")})}),
                  family(u"49", u"16", {device(u"162", {version(u"1.234")})})}),
            CatalogResult::CatalogNoDevice);
  EXPECT_EQ(profile.ProductLink, u"former");
  EXPECT_EQ(profile.PackbLink, u"former");
  EXPECT_EQ(profile.DatasheetLink, u"former");
  EXPECT_EQ(profile.HideFwVersion, 1);
  EXPECT_EQ(profile.RegDevStatus, 9);
  EXPECT_EQ(profile.QuickSetupMode, 3);
}

TEST_F(Catalogue, EmptyFamilyOrEmptyRootHasNoDevice) {
  EXPECT_EQ(find({family(u"49", u"16", {})}), CatalogResult::CatalogNoDevice);
  EXPECT_EQ(find({}), CatalogResult::CatalogNoDevice);
}

TEST_F(Catalogue, OnlyChildrenOfTheTagDeviceAreDevices) {
  Node wrong = device(u"161", {version(u"1.234")});
  wrong.tag = "device";
  EXPECT_EQ(find({family(u"49", u"16", {wrong})}), CatalogResult::CatalogNoDevice);
}

TEST_F(Catalogue, FamilyAndRootMayHaveAnyTag) {
  Node odd = family(u"49", u"16", {device(u"161", {version(u"1.234")})});
  odd.tag = "Version";
  EXPECT_EQ(find({odd}), CatalogResult::CatalogExact);
}

TEST_F(Catalogue, DeviceWithoutVersionsGivesLinksAndHidingAndNoVersion) {
  EXPECT_EQ(find({family(
                u"49", u"16",
                {device(u"161",
                        {link("ProductLink", u"p"), link("Packb", u"b"), link("DatasheetDE", u"d")},
                        u"1")})}),
            CatalogResult::CatalogNoVersion);
  EXPECT_EQ(profile.ProductLink, u"p");
  EXPECT_EQ(profile.PackbLink, u"b");
  EXPECT_EQ(profile.DatasheetLink, u"d");
  EXPECT_EQ(profile.HideFwVersion, 1);
  EXPECT_EQ(registers(), untouched);
}

TEST_F(Catalogue, MissingLinksClearThoseOfAnEarlierModule) {
  profile.ProductLink = profile.PackbLink = profile.DatasheetLink = u"former";
  profile.HideFwVersion = 1;
  EXPECT_EQ(find(known({version(u"1.234")})), CatalogResult::CatalogExact);
  EXPECT_EQ(profile.ProductLink, u"");
  EXPECT_EQ(profile.PackbLink, u"");
  EXPECT_EQ(profile.DatasheetLink, u"");
  EXPECT_EQ(profile.HideFwVersion, 0);
}

TEST_F(Catalogue, TheFirstOfSeveralLinksIsUsed) {
  find(known({link("Packb", u"first"), version(u"1.234"), link("Packb", u"second")}));
  EXPECT_EQ(profile.PackbLink, u"first");
}

TEST_F(Catalogue, HideFwVersionIsTakenWhateverItsValue) {
  find({family(u"49", u"16", {device(u"161", {}, u"-5")})});
  EXPECT_EQ(profile.HideFwVersion, -5);
}

TEST_F(Catalogue, DatasheetIsThatOfTheLanguageWithoutFallback) {
  const auto sheets = known({link("DatasheetEN", u"english"), link("DatasheetIT", u"italian")});
  question.Language = 1;
  find(sheets);
  EXPECT_EQ(profile.DatasheetLink, u"");
  question.Language = 5;
  find(sheets);
  EXPECT_EQ(profile.DatasheetLink, u"italian");
  question.Language = 9;
  find(sheets);
  EXPECT_EQ(profile.DatasheetLink, u"english");
  question.Language = 3;
  find(sheets);
  EXPECT_EQ(profile.DatasheetLink, u"");
}

TEST_F(Catalogue, DatasheetOfLanguageZeroFollowsTheCountry) {
  question.Language = 0;
  const auto sheets = known({link("DatasheetDE", u"german"), link("DatasheetEN", u"english")});
  find(sheets);
  EXPECT_EQ(profile.DatasheetLink, u"english");
  locale.country = std::u16string(u"43") + u'\0';
  find(sheets);
  EXPECT_EQ(profile.DatasheetLink, u"german");
}

struct Verdict {
  const char16_t* firmware;
  CatalogResult result;
  std::int32_t quickSetupMode;
  std::int32_t regDevStatus;
};

class VerdictOfTwoVersions : public Catalogue, public ::testing::WithParamInterface<Verdict> {};

TEST_P(VerdictOfTwoVersions, IsThatOfTheLastUnlessOneIsExact) {
  question.FwVersion = GetParam().firmware;
  EXPECT_EQ(find(known({version(u"1.000", 60, u"1"), version(u"2.000", 80, u"2")})),
            GetParam().result);
  EXPECT_EQ(profile.QuickSetupMode, GetParam().quickSetupMode);
  EXPECT_EQ(profile.RegDevStatus, GetParam().regDevStatus);
}

INSTANTIATE_TEST_SUITE_P(Table, VerdictOfTwoVersions,
                         ::testing::Values(Verdict{u"1.000", CatalogResult::CatalogExact, 1, 60},
                                           Verdict{u"2.000", CatalogResult::CatalogExact, 2, 80},
                                           Verdict{u"3.000", CatalogResult::CatalogFwNewer, 2, 0},
                                           Verdict{u"1.500", CatalogResult::CatalogFwOlder, 2, 0},
                                           Verdict{u"0.500", CatalogResult::CatalogFwOlder, 2, 0}));

TEST_F(Catalogue, OrderOfVersionsDecidesBetweenNewerAndOlder) {
  question.FwVersion = u"1.500";
  EXPECT_EQ(find(known({version(u"2.000"), version(u"1.000")})), CatalogResult::CatalogFwNewer);
}

TEST_F(Catalogue, VersionsAfterTheExactOneAreNotRead) {
  EXPECT_EQ(find(known({version(u"1.234"), version(u"no number")})), CatalogResult::CatalogExact);
}

TEST_F(Catalogue, InexactVersionKeepsTheRegistersOfTheLastExactOne) {
  find(known({version(u"1.234", 60)}));
  question.FwVersion = u"2.000";
  EXPECT_EQ(find(known({version(u"1.234", 80, u"4")})), CatalogResult::CatalogFwNewer);
  EXPECT_EQ(registers(), from60);
  EXPECT_EQ(profile.QuickSetupMode, 4);
}

TEST_F(Catalogue, VersionsFollowTheSystemsSeparator) {
  question.FwVersion = u"1.230";
  EXPECT_EQ(find(known({version(u"1,23")})), CatalogResult::CatalogExact);
  setSeparator(u",");
  EXPECT_EQ(find(known({version(u"1,23")})), CatalogResult::CatalogExact);
  EXPECT_EQ(find(known({version(u"1.2300")})), CatalogResult::CatalogExact);
}

TEST_F(Catalogue, NumbersOfTheFileFollowTheSystemsSeparatorAndRoundToEven) {
  setSeparator(u",");
  Node rounded = version(u"1.234");
  rounded.attributes[3] = u"62,5";
  rounded.attributes[4] = u" 63,5 ";
  EXPECT_EQ(find(known({rounded})), CatalogResult::CatalogExact);
  EXPECT_EQ(profile.RegDevStatus, 62);
  EXPECT_EQ(profile.RegChnIn, 64);
}

TEST_F(Catalogue, FirmwareOfVendor176IsComparedAsExactText) {
  question.VendorID = 176;
  const auto hart = [](const std::u16string& firmware) {
    return std::vector<Node>{
        family(u"176", u"16", {device(u"161", {version(firmware, 60, u"3")})})};
  };
  question.FwVersion = u"HV1.02";
  EXPECT_EQ(find(hart(u"hV1.02")), CatalogResult::CatalogNoVersion);
  EXPECT_EQ(profile.QuickSetupMode, 3);
  EXPECT_EQ(registers(), untouched);
  EXPECT_EQ(find(hart(u"HV1.02")), CatalogResult::CatalogExact);
  EXPECT_EQ(registers(), from60);
}

TEST_F(Catalogue, LaterDeviceWithTheSameNumbersStartsOver) {
  EXPECT_EQ(find({family(u"49", u"16",
                         {device(u"161", {link("Packb", u"first"), version(u"1.234", 60)}, u"1"),
                          device(u"161", {link("ProductLink", u"second")})})}),
            CatalogResult::CatalogNoVersion);
  EXPECT_EQ(registers(), from60);
  EXPECT_EQ(profile.PackbLink, u"");
  EXPECT_EQ(profile.ProductLink, u"second");
  EXPECT_EQ(profile.HideFwVersion, 0);
}

TEST_F(Catalogue, LaterFamilyWithTheSameNumbersIsVisitedToo) {
  EXPECT_EQ(find({family(u"49", u"16", {device(u"161", {version(u"1.234", 60)})}),
                  family(u"49", u"16", {device(u"161", {version(u"1.234", 80)})})}),
            CatalogResult::CatalogExact);
  EXPECT_EQ(profile.RegDevStatus, 80);
  EXPECT_EQ(find({family(u"49", u"16", {device(u"161", {version(u"1.234", 60)})}),
                  family(u"49", u"16", {})}),
            CatalogResult::CatalogExact);
}

TEST_F(Catalogue, IsVisitedInFileOrder) {
  const std::string separator = "GetValue 1 Control Panel\\International\\|sDecimal";
  find({family(u"49", u"16",
               {device(u"160", {version(u"1.234")}),
                device(u"161", {link("ProductLink", u"p"), link("DatasheetDE", u"d"),
                                version(u"1.000"), version(u"1.234")})}),
        family(u"49", u"17", {})});
  EXPECT_THAT(log.entries(),
              ::testing::ElementsAre(
                  "childCount Catalogue", "child Catalogue 0", "attribute Family 0",
                  "attribute Family 1", "countByTag Family Device", "nthByTag Family Device 0",
                  "attribute Device 0", "attribute Device 1", "countByTag Device Version",
                  "nthByTag Family Device 1", "attribute Device 0", "attribute Device 1",
                  "countByTag Device Version", "nthByTag Device ProductLink 0", "text ProductLink",
                  "nthByTag Device Packb 0", "nthByTag Device DatasheetDE 0", "text DatasheetDE",
                  "nthByTag Device Version 0", "attribute Version 0", "attribute Version 2",
                  separator, separator, "attribute Version 10", "nthByTag Device Version 1",
                  "attribute Version 0", "attribute Version 2", separator, separator,
                  "attribute Version 10", "attribute Version 3", "attribute Version 4",
                  "attribute Version 5", "attribute Version 6", "attribute Version 7",
                  "attribute Version 8", "attribute Version 9", "child Catalogue 1",
                  "attribute Family 0", "attribute Family 1", "close Family"));
}

TEST_F(Catalogue, IsClosedWithoutAnElementWhenItHasNoFamilies) {
  find({});
  EXPECT_THAT(log.entries(), ::testing::ElementsAre("childCount Catalogue", "close nothing"));
}

}  // namespace
}  // namespace tessara
