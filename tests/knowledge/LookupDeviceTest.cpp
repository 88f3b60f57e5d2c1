#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CatalogueFixture.h"
#include "ControlFixture.h"

namespace tessara {
namespace {

using testing::CallLog;
using testing::catalogue;
using testing::device;
using ::testing::ElementsAre;
using testing::FakeCatalogue;
using testing::family;
using testing::link;
using testing::Node;
using testing::version;

/// A tree that logs when it is loaded and when it is released.
class WatchedTree : public FakeCatalogue {
 public:
  WatchedTree(Node root, bool bLoads, CallLog& log)
      : FakeCatalogue(std::move(root)), bLoads_(bLoads), log_(log) {
    log_.add("tree made");
  }
  ~WatchedTree() override { log_.add("tree released"); }
  bool loadFile(const std::u16string& path) override {
    log_.add("tree loads " + toUtf8(path));
    return bLoads_;
  }
  void close(Element element) override {
    log_.add(element.node == nullptr ? "tree closed" : "tree closed on an element");
  }

 private:
  bool bLoads_;
  CallLog& log_;
};

class LookupDevice : public testing::ControlFixture {
 protected:
  void useCatalogue(const Node& root, bool bLoads = true) {
    platform.xmlTree = [this, root, bLoads] {
      return std::make_unique<WatchedTree>(root, bLoads, log);
    };
  }
  /// A catalogue of the fixture's module alone.
  void useModule(std::vector<Node> children, const std::u16string& hideFwVersion = u"0") {
    useCatalogue(
        catalogue({family(u"49", u"16", {device(u"161", std::move(children), hideFwVersion)})}));
  }
  void read() { control.AutomaticConnection(); }
};

TEST_F(LookupDevice, LoadsTheCatalogueBesideTheProgramOnceForEachRead) {
  useModule({version(u"1.234")});
  read();
  EXPECT_THAT(log.only({"tree"}),
              ElementsAre("tree made", "tree loads /opt/tessara/TessaraDevices.xml",
                          "tree closed on an element", "tree released"));
  log.clear();
  read();
  EXPECT_EQ(log.count("tree loads"), 1U);
}

TEST_F(LookupDevice, StoresTheProfileInTheFields) {
  inside(control).Language = 5;
  useModule({link("ProductLink", u"p"), link("Packb", u"b"), link("DatasheetIT", u"d"),
             version(u"1.234", 60, u"2")},
            u"1");
  read();
  EXPECT_EQ(control.get_ProductLink(), Variant{std::u16string{u"p"}});
  EXPECT_EQ(control.get_PackbLink(), Variant{std::u16string{u"b"}});
  EXPECT_EQ(control.get_DatasheetLink(), Variant{std::u16string{u"d"}});
  EXPECT_EQ(control.get_QuickSetupMode(), 2);
  EXPECT_EQ(control.get_StringsReverse(), 66);
  EXPECT_EQ(inside(control).HideFwVersion, 1);
  EXPECT_EQ(inside(control).RegDevStatus, 60);
  EXPECT_FALSE(inside(control).panel.LblFwVersion.visible());
}

TEST_F(LookupDevice, UsesTheVendorAndTheFirmwareJustRead) {
  inside(control).VendorID = 48;
  inside(control).FwVersion = u"9.999";
  useModule({version(u"1.234", 60)});
  read();
  EXPECT_EQ(inside(control).RegDevStatus, 60);
}

TEST_F(LookupDevice, UnknownModuleOrFirmwareNeitherFailsNorAsks) {
  for (const Node& root :
       {catalogue({}), catalogue({family(u"49", u"16", {device(u"161", {version(u"9.000")})})}),
        catalogue({family(u"49", u"16", {device(u"161", {version(u"1.000")})})}),
        catalogue({family(u"49", u"16", {device(u"161", {})})})}) {
    useCatalogue(root);
    read();
    EXPECT_EQ(control.get_DataValid(), 1);
  }
  EXPECT_EQ(log.count("Show"), 0U);
}

TEST_F(LookupDevice, KeepsTheVerdictOnTheLastModule) {
  EXPECT_EQ(control.catalogVerdict(), std::nullopt);
  const std::vector<std::pair<Node, CatalogResult>> cases{
      {catalogue({}), CatalogResult::CatalogNoDevice},
      {catalogue({family(u"49", u"16", {device(u"161", {})})}), CatalogResult::CatalogNoVersion},
      {catalogue({family(u"49", u"16", {device(u"161", {version(u"1.000")})})}),
       CatalogResult::CatalogFwNewer},
      {catalogue({family(u"49", u"16", {device(u"161", {version(u"1.234")})})}),
       CatalogResult::CatalogExact},
      {catalogue({family(u"49", u"16", {device(u"161", {version(u"9.000")})})}),
       CatalogResult::CatalogFwOlder}};
  for (const auto& [root, verdict] : cases) {
    useCatalogue(root);
    read();
    EXPECT_EQ(control.catalogVerdict(), verdict);
  }
}

TEST_F(LookupDevice, FailedLookupLeavesTheVerdictThatTheCatalogueIsUnusable) {
  const auto verdictAfter = [&](const Node& root, bool bLoads) {
    useModule({version(u"1.234")});
    read();
    EXPECT_EQ(control.catalogVerdict(), CatalogResult::CatalogExact);
    useCatalogue(root, bLoads);
    read();
    return control.catalogVerdict();
  };
  EXPECT_EQ(verdictAfter(catalogue({}), false), CatalogResult::CatalogFileError);
  EXPECT_EQ(verdictAfter(catalogue({family(u"many", u"16", {})}), true),
            CatalogResult::CatalogFileError);
}

TEST_F(LookupDevice, VerdictStaysAfterAReadThatReachedNoModule) {
  useModule({version(u"1.234")});
  read();
  platform.device.connects = false;
  read();
  EXPECT_EQ(control.catalogVerdict(), CatalogResult::CatalogExact);
}

TEST_F(LookupDevice, UnknownModuleIsReadFromTheRegistersOfTheLastExactMatch) {
  useModule({version(u"1.234", 60)});
  read();
  useCatalogue(catalogue({}));
  log.clear();
  read();
  EXPECT_EQ(log.count("ReadInputRegisters(192, 60, 1, 2)"), 1U);
}

TEST_F(LookupDevice, CatalogueThatDoesNotLoadIsReportedInGermanUnderTheCurrentTitle) {
  moduleWide().AppTitle = u"Title";
  platform.messageAnswer = 7;
  inside(control).RegDevStatus = 5;
  inside(control).ProductLink = u"former";
  useCatalogue(catalogue({}), false);
  read();
  // The read tries twice.
  EXPECT_THAT(log.only({"tree", "Show"}),
              ElementsAre("tree made", "tree loads /opt/tessara/TessaraDevices.xml",
                          "Show 16 Title: Fehler XML-Datei!", "tree released", "tree made",
                          "tree loads /opt/tessara/TessaraDevices.xml",
                          "Show 16 Title: Fehler XML-Datei!", "tree released"));
  EXPECT_EQ(inside(control).lMsgResult, 7);
  EXPECT_EQ(inside(control).RegDevStatus, 5);
  EXPECT_EQ(inside(control).ProductLink, u"former");
  EXPECT_EQ(control.get_DataValid(), 0);
}

TEST_F(LookupDevice, InvalidPlaceReleasesTheTreeAndFailsTheReadWithoutAMessage) {
  useModule({link("Packb", u"b"), version(u"no number")});
  read();
  EXPECT_THAT(
      log.only({"tree", "Show"}),
      ElementsAre("tree made", "tree loads /opt/tessara/TessaraDevices.xml", "tree released",
                  "tree made", "tree loads /opt/tessara/TessaraDevices.xml", "tree released"));
  EXPECT_EQ(inside(control).PackbLink, u"b");
  EXPECT_EQ(control.get_DataValid(), 0);
}

TEST_F(LookupDevice, RootWithoutFamiliesIsClosedWithoutAnElement) {
  useCatalogue(catalogue({}));
  read();
  EXPECT_EQ(log.count("tree closed"), 1U);
  EXPECT_EQ(log.count("tree closed on an element"), 0U);
  EXPECT_EQ(control.get_DataValid(), 1);
}

TEST_F(LookupDevice, HartModuleIsFoundByTheExactTextOfItsFirmware) {
  platform.device.identifier = {176, 7, 226, 1};
  const auto text = [](std::string_view characters) {
    DeviceWords words{0, 0};
    words.insert(words.end(), characters.begin(), characters.end());
    return words;
  };
  platform.device.registers = {{24, text("HV1.02")}, {20, text("name")}, {27, text("77")}};
  useCatalogue(catalogue(
      {family(u"176", u"226", {device(u"1", {version(u"hv1.02", 10), version(u"HV1.02", 60)})})}));
  read();
  EXPECT_EQ(inside(control).RegDevStatus, 60);
  EXPECT_EQ(log.count("GetValue"), 0U);
}

}  // namespace
}  // namespace tessara
