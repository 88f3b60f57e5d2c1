#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "modulinfo/catalogue/CatalogueText.h"

namespace tessara {
namespace {

using testing::catalogue;
using testing::catalogueOf;
using testing::device;
using ::testing::ElementsAre;
using testing::family;
using ::testing::IsEmpty;
using testing::linesOf;
using testing::links;
using testing::version;

std::vector<std::string> reachProblemsOf(const std::string& versions) {
  return linesOf(checkCatalogue(catalogueOf(versions)).problems);
}

/// The same for modules whose firmware is free text.
CatalogueReport textReport(const std::string& versions) {
  return checkCatalogue(catalogue(family("176", "226", device("1", links + versions))));
}

TEST(CatalogueReach, AVersionEqualToAnEarlierOneIsNeverReached) {
  EXPECT_THAT(reachProblemsOf(version("1.000") + version("1.100") + version("1.000")),
              ElementsAre("7: firmware 1.000 is never reached; line 5 lists it already"));
}

TEST(CatalogueReach, NumbersAreEqualWhateverTheirTrailingZerosSeparatorAndFourthDecimal) {
  for (const char* later : {"1.23", "1,230", "1.2301", " 1.23 "}) {
    EXPECT_THAT(reachProblemsOf(version("1.230") + version(later)),
                ElementsAre("6: firmware " + std::string(later) +
                            " is never reached; line 5 lists it already"));
  }
  EXPECT_THAT(reachProblemsOf(version("1.230") + version("1.231")), IsEmpty());
}

TEST(CatalogueReach, TheSameFirmwareOfAnotherDeviceIsReached) {
  const std::string both =
      device("161", links + version("1.000")) + device("162", links + version("1.000"));
  EXPECT_THAT(checkCatalogue(catalogue(family("49", "16", both))).problems, IsEmpty());
}

TEST(CatalogueReach, AFirmwareOutOfRangeIsNeverReached) {
  EXPECT_THAT(reachProblemsOf(version("-1")),
              ElementsAre("5: firmware -1 is never reached; modules have 0 to 16.665"));
  EXPECT_THAT(reachProblemsOf(version("20.1")),
              ElementsAre("5: firmware 20.1 is never reached; modules have 0 to 16.665"));
  EXPECT_THAT(reachProblemsOf(version("0") + version("16.665")), IsEmpty());
}

TEST(CatalogueReach, ATextThatIsNotAVersionFailsReads) {
  EXPECT_THAT(reachProblemsOf(version("HV1.02")),
              ElementsAre("5: \"HV1.02\" is not a firmware version; reads of this module fail"));
  EXPECT_THAT(reachProblemsOf(version("")),
              ElementsAre("5: \"\" is not a firmware version; reads of this module fail"));
}

TEST(CatalogueReach, AVersionThatOnlySomeSystemsReadFailsReads) {
  EXPECT_THAT(reachProblemsOf(version("1.2,3")),
              ElementsAre("5: \"1.2,3\" is not a firmware version; reads of this module fail"));
}

TEST(CatalogueReach, VersionsThatDoNotAscendAreNoted) {
  const auto report = checkCatalogue(catalogueOf(version("2.000") + version("1.000")));
  EXPECT_THAT(linesOf(report.notes), ElementsAre("6: firmware 1.000 follows a higher one"));
  EXPECT_THAT(report.problems, IsEmpty());
}

TEST(CatalogueReach, HartFirmwareIsTextWithoutOrder) {
  const auto report = textReport(version("HV1.02") + version("hv1.02") + version("20.1"));
  EXPECT_THAT(report.problems, IsEmpty());
  EXPECT_THAT(report.notes, IsEmpty());
  EXPECT_THAT(linesOf(textReport(version("HV1.02") + version("HV1.02")).problems),
              ElementsAre("6: firmware HV1.02 is never reached; line 5 lists it already"));
}

}  // namespace
}  // namespace tessara
