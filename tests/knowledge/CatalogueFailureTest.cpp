#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CatalogueFixture.h"

namespace tessara {
namespace {

using testing::device;
using testing::family;
using ::testing::HasSubstr;
using testing::link;
using testing::Node;
using testing::version;

class CatalogueFailure : public testing::CatalogueFixture {
 protected:
  static Node hit() { return family(u"49", u"16", {device(u"161", {version(u"1.234")})}); }

  static std::vector<Node> versionWith(std::size_t place, const std::u16string& text) {
    Node damaged = version(u"1.234");
    damaged.attributes[place] = text;
    return {family(u"49", u"16", {device(u"161", {damaged})})};
  }
};

TEST_F(CatalogueFailure, FamilyNumberThatIsNotANumberStopsTheLookupThere) {
  EXPECT_EQ(errorOf({family(u"49", u"x", {}), hit()}), ErrorNumber::TypeMismatch);
  EXPECT_THAT(message, HasSubstr("attribute 1 (counted from 0) of a family element"));
  EXPECT_THAT(message, HasSubstr("\"x\""));
  EXPECT_EQ(errorOf({family(u"", u"16", {}), hit()}), ErrorNumber::TypeMismatch);
  EXPECT_EQ(profile.RegDevStatus, 0);
}

TEST_F(CatalogueFailure, BadFamilyAfterTheHitLeavesWhatTheHitStored) {
  EXPECT_EQ(errorOf({hit(), family(u"1", u"x", {})}), ErrorNumber::TypeMismatch);
  EXPECT_EQ(profile.RegDevStatus, 60);
  EXPECT_EQ(log.count("close"), 0U);
}

TEST_F(CatalogueFailure, BothFamilyNumbersAreReadBeforeEitherIsCompared) {
  EXPECT_EQ(errorOf({family(u"50", u"x", {}), hit()}), ErrorNumber::TypeMismatch);
}

TEST_F(CatalogueFailure, BothDeviceNumbersAreReadBeforeTheIdIsCompared) {
  EXPECT_EQ(errorOf({family(u"49", u"16", {device(u"160", {}, u"no"), device(u"161", {})})}),
            ErrorNumber::TypeMismatch);
  EXPECT_THAT(message, HasSubstr("attribute 1 (counted from 0) of a Device"));
  EXPECT_EQ(errorOf({family(u"49", u"16", {device(u"", {})})}), ErrorNumber::TypeMismatch);
}

TEST_F(CatalogueFailure, DevicesOfOtherFamiliesAreNotRead) {
  EXPECT_EQ(find({family(u"49", u"17", {device(u"x", {}, u"y")}), hit()}),
            CatalogResult::CatalogExact);
}

TEST_F(CatalogueFailure, MissingAttributeReadsAsEmptyAndIsNotANumber) {
  EXPECT_EQ(errorOf({Node{"Family", {u"49"}, {}, {}}}), ErrorNumber::TypeMismatch);
  Node bare = version(u"1.234");
  bare.attributes.pop_back();
  EXPECT_EQ(errorOf({family(u"49", u"16", {device(u"161", {bare})})}), ErrorNumber::TypeMismatch);
  EXPECT_THAT(message, HasSubstr("attribute 10"));
}

TEST_F(CatalogueFailure, QuickSetupModeMustBeANumberInEveryVersionVisited) {
  EXPECT_EQ(errorOf({family(u"49", u"16",
                            {device(u"161", {version(u"1.000", 60, u"x"), version(u"1.234")})})}),
            ErrorNumber::TypeMismatch);
  EXPECT_EQ(profile.RegDevStatus, 0);
}

TEST_F(CatalogueFailure, OtherPlacesOfAnInexactVersionAreNotRead) {
  question.FwVersion = u"9.000";
  EXPECT_EQ(find(versionWith(3, u"x")), CatalogResult::CatalogFwNewer);
}

TEST_F(CatalogueFailure, PlaceThatIsNotANumberLeavesTheEarlierPlacesWritten) {
  const std::vector<std::int32_t> all{60, 61, 62, 63, 64, 65, 66};
  for (std::size_t place = 3; place <= 9; ++place) {
    profile = {};
    EXPECT_EQ(errorOf(versionWith(place, u"?")), ErrorNumber::TypeMismatch);
    EXPECT_THAT(message, HasSubstr("attribute " + std::to_string(place) + " "));
    std::vector<std::int32_t> expected{0, 0, 0, 0, 0, 0, 1};
    std::copy_n(all.begin(), place - 3, expected.begin());
    EXPECT_EQ(registers(), expected) << "place " << place;
  }
}

TEST_F(CatalogueFailure, LinksAndHidingStayWrittenWhenAVersionFails) {
  EXPECT_EQ(errorOf({family(u"49", u"16",
                            {device(u"161", {link("Packb", u"b"), version(u"no number")}, u"1")})}),
            ErrorNumber::TypeMismatch);
  EXPECT_EQ(profile.PackbLink, u"b");
  EXPECT_EQ(profile.HideFwVersion, 1);
}

TEST_F(CatalogueFailure, FirmwareOfTheModuleThatIsNotANumberFailsAtTheFirstComparison) {
  question.FwVersion = u"";
  EXPECT_EQ(errorOf({hit()}), ErrorNumber::TypeMismatch);
  EXPECT_EQ(find({family(u"49", u"16", {device(u"161", {})})}), CatalogResult::CatalogNoVersion);
}

TEST_F(CatalogueFailure, NumberBeyond32BitsIsAnOverflow) {
  EXPECT_EQ(errorOf({family(u"2147483648", u"16", {})}), ErrorNumber::Overflow);
  EXPECT_EQ(errorOf(versionWith(8, u"-2147483649")), ErrorNumber::Overflow);
  EXPECT_EQ(find(versionWith(8, u"2147483647")), CatalogResult::CatalogExact);
  EXPECT_EQ(profile.RegReserved, 2147483647);
}

TEST_F(CatalogueFailure, SettingsThatCannotBeReadAreTheCallersFailure) {
  class Unreadable : public testing::FakeRegistryHelper {
   public:
    using FakeRegistryHelper::FakeRegistryHelper;
    [[nodiscard]] Variant GetValue(std::int32_t /*hive*/, const std::u16string& /*key*/,
                                   const std::u16string& /*name*/) override {
      throw RunTimeError(ErrorNumber::InvalidCall, "the settings cannot be read");
    }
  };
  Unreadable unreadable(log, settings);
  testing::RecordedCatalogue tree(testing::catalogue({hit()}), log);
  EXPECT_THROW((void)findInCatalogue(tree, question, {unreadable, locale}, profile), RunTimeError);
}

/// A catalogue with levels of any length, all of the same elements.
class LongCatalogue : public testing::FakeCatalogue {
 public:
  LongCatalogue(Node root, std::int32_t families, std::int32_t devices, std::int32_t versions)
      : FakeCatalogue(std::move(root)),
        families_(families),
        devices_(devices),
        versions_(versions) {}

  [[nodiscard]] std::int32_t childCount(Element /*element*/) const override { return families_; }
  [[nodiscard]] Element child(Element element, std::int32_t /*index*/) const override {
    return FakeCatalogue::child(element, 0);
  }
  [[nodiscard]] std::int32_t countByTag(Element /*element*/, const char* tag) const override {
    return std::string(tag) == "Device" ? devices_ : versions_;
  }
  [[nodiscard]] Element nthByTag(Element element, const char* tag,
                                 std::int32_t index) const override {
    if (std::string(tag) == "Version") {
      lastVersion = index;
    }
    return FakeCatalogue::nthByTag(element, tag, 0);
  }

  mutable std::int32_t lastVersion = -1;

 private:
  std::int32_t families_;
  std::int32_t devices_;
  std::int32_t versions_;
};

class CatalogueLevel : public CatalogueFailure {
 protected:
  CatalogResult findIn(std::int32_t families, std::int32_t devices, std::int32_t versions) {
    question.FwVersion = u"2.000";
    LongCatalogue tree(testing::catalogue({hit()}), families, devices, versions);
    const CatalogResult result = findInCatalogue(tree, question, {registry, locale}, profile);
    lastVersion = tree.lastVersion;
    return result;
  }

  std::string overflowOf(std::int32_t families, std::int32_t devices, std::int32_t versions) {
    try {
      (void)findIn(families, devices, versions);
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.number(), ErrorNumber::Overflow);
      return error.what();
    }
    return "nothing raised";
  }

  static constexpr std::int32_t most = 32768;
  std::int32_t lastVersion = -1;
};

TEST_F(CatalogueLevel, Of32768ElementsIsWalkedToItsEnd) {
  EXPECT_EQ(findIn(1, 1, most), CatalogResult::CatalogFwNewer);
  EXPECT_EQ(lastVersion, most - 1);
  EXPECT_EQ(findIn(most, 1, 1), CatalogResult::CatalogFwNewer);
  EXPECT_EQ(findIn(1, most, 1), CatalogResult::CatalogFwNewer);
}

TEST_F(CatalogueLevel, OfMoreElementsIsAnOverflow) {
  EXPECT_THAT(overflowOf(most + 1, 1, 1), HasSubstr("family element"));
  EXPECT_THAT(overflowOf(1, most + 1, 1), HasSubstr("Device"));
  EXPECT_THAT(overflowOf(1, 1, most + 1), HasSubstr("Version"));
}

TEST_F(CatalogueLevel, OfTooManyVersionsIsAnOverflowEvenInAnotherDevice) {
  question.DeviceID = 99;
  EXPECT_THAT(overflowOf(1, 1, most + 1), HasSubstr("Version"));
  EXPECT_EQ(findIn(1, 1, most), CatalogResult::CatalogNoDevice);
}

}  // namespace
}  // namespace tessara
