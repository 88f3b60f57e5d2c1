#include <map>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "FakePlatform.h"
#include "base/Text.h"
#include "knowledge/Catalogue.h"
#include "xml/XmlFileTree.h"

namespace tessara {
namespace {

using testing::CallLog;
using testing::FakeLocale;
using testing::FakeRegistryHelper;

/// Lookups in the sample catalogue, as a panel does them.
class SampleCatalogue : public ::testing::Test {
 protected:
  SampleCatalogue() {
    settings[u"Control Panel\\International\\|sDecimal"] = std::u16string{u"."};
    EXPECT_TRUE(tree.loadFile(fromUtf8(TESSARA_SAMPLE_CATALOGUE)));
  }

  CatalogResult find(const CatalogueQuestion& question) {
    return findInCatalogue(tree, question, {registry, locale}, profile);
  }

  std::int32_t number(XmlTree::Element element, std::int32_t place) const {
    return toInt32(tree.attribute(element, place), u".");
  }

  /// Runs `check` for every Version with the question that must find it and its place.
  template <typename Check>
  void forEachVersion(Check check) {
    const XmlTree::Element root = tree.root();
    for (std::int32_t f = 0; f < tree.childCount(root); ++f) {
      const XmlTree::Element family = tree.child(root, f);
      for (std::int32_t d = 0; d < tree.countByTag(family, "Device"); ++d) {
        const XmlTree::Element device = tree.nthByTag(family, "Device", d);
        for (std::int32_t v = 0; v < tree.countByTag(device, "Version"); ++v) {
          const XmlTree::Element version = tree.nthByTag(device, "Version", v);
          check(CatalogueQuestion{static_cast<std::int16_t>(number(family, 0)), number(family, 1),
                                  number(device, 0), tree.attribute(version, 0), 2},
                version);
        }
      }
    }
  }

  XmlFileCache cache;
  XmlFileTree tree{cache};
  CallLog log;
  std::map<std::u16string, Variant> settings;
  FakeRegistryHelper registry{log, settings};
  FakeLocale locale;
  DeviceProfile profile;
};

TEST_F(SampleCatalogue, FindsEveryVersionWithItsRegistersModesAndLinks) {
  forEachVersion([&](const CatalogueQuestion& question, XmlTree::Element version) {
    profile = {};
    EXPECT_EQ(find(question), CatalogResult::CatalogExact) << question.DeviceID;
    EXPECT_EQ(profile.RegDevStatus, number(version, 3));
    EXPECT_EQ(profile.RegChnIn, number(version, 4));
    EXPECT_EQ(profile.RegDevError, number(version, 5));
    EXPECT_EQ(profile.RegChnOut, number(version, 6));
    EXPECT_EQ(profile.RegLedStatus, number(version, 7));
    EXPECT_EQ(profile.RegReserved, number(version, 8));
    EXPECT_EQ(profile.StringsReverse, number(version, 9));
    EXPECT_EQ(profile.QuickSetupMode, number(version, 10));
    EXPECT_TRUE(profile.ProductLink.starts_with(u"https://example.invalid/"));
    EXPECT_TRUE(profile.PackbLink.starts_with(u"https://example.invalid/"));
  });
}

TEST_F(SampleCatalogue, HasADozenModulesOfTheFamiliesAndHartModules) {
  std::set<std::pair<std::int32_t, std::int32_t>> modules;
  std::set<std::int32_t> families;
  std::map<std::pair<std::int32_t, std::int32_t>, int> versions;
  std::set<std::int32_t> vendors;
  forEachVersion([&](const CatalogueQuestion& question, XmlTree::Element /*version*/) {
    modules.insert({question.FamilyID, question.DeviceID});
    families.insert(question.FamilyID);
    vendors.insert(question.VendorID);
    ++versions[{question.FamilyID, question.DeviceID}];
  });
  EXPECT_GE(modules.size(), 12U);
  for (const std::int32_t family : {15, 16, 18, 20, 22, 25, 26, 27, 226}) {
    EXPECT_TRUE(families.contains(family)) << family;
  }
  EXPECT_EQ(vendors, (std::set<std::int32_t>{49, 176}));
  for (const std::int32_t family : {15, 16, 18, 20, 22, 25, 26, 27}) {
    EXPECT_GE((versions[{family, family * 10 + 1}]), 3) << family;
  }
}

TEST_F(SampleCatalogue, DistinguishesNewerOlderAndUnknownFirmware) {
  EXPECT_EQ(find({49, 16, 161, u"9.000", 1}), CatalogResult::CatalogFwNewer);
  EXPECT_EQ(find({49, 16, 161, u"0.500", 1}), CatalogResult::CatalogFwOlder);
  EXPECT_EQ(find({49, 16, 999, u"1.000", 1}), CatalogResult::CatalogNoDevice);
  EXPECT_EQ(find({176, 226, 1, u"hv1.02", 1}), CatalogResult::CatalogNoVersion);
}

TEST_F(SampleCatalogue, HasAModuleWithHiddenFirmwareAndModulesWithoutADatasheetOfTheirLanguage) {
  find({49, 27, 272, u"1.000", 2});
  EXPECT_EQ(profile.HideFwVersion, 1);
  EXPECT_EQ(profile.DatasheetLink, u"https://example.invalid/korrin/fd-272/datasheet-en.pdf");
  find({49, 25, 251, u"1.000", 3});
  EXPECT_EQ(profile.HideFwVersion, 0);
  EXPECT_EQ(profile.DatasheetLink, u"https://example.invalid/korrin/mm-251/datasheet-en.pdf");
  find({49, 25, 251, u"1.000", 5});
  EXPECT_EQ(profile.DatasheetLink, u"https://example.invalid/korrin/mm-251/datasheet-it.pdf");
}

}  // namespace
}  // namespace tessara
