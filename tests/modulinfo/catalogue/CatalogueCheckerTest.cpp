#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Text.h"
#include "modulinfo/catalogue/CatalogueText.h"

namespace tessara {
namespace {

using testing::catalogue;
using testing::catalogueOf;
using testing::device;
using ::testing::ElementsAre;
using testing::family;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::linesOf;
using testing::links;
using ::testing::SizeIs;
using testing::version;

std::vector<std::string> problemsOf(const std::string& bytes) {
  return linesOf(checkCatalogue(bytes).problems);
}

std::vector<std::string> notesOf(const std::string& bytes) {
  return linesOf(checkCatalogue(bytes).notes);
}

const std::string goodDevice = device("161", links + version("1.000"));

TEST(CatalogueChecker, FindsNothingWrongWithAValidCatalogue) {
  const auto report = checkCatalogue(catalogueOf(version("1.000") + version("1.100")));
  EXPECT_EQ(report.verdict, "loads");
  EXPECT_THAT(report.problems, IsEmpty());
  EXPECT_THAT(report.notes, IsEmpty());
}

TEST(CatalogueChecker, ListsEveryVersionWithItsLineAttributesAndLinks) {
  const auto report = checkCatalogue(catalogueOf(version("1.000") + version("1.100", "80")));
  ASSERT_THAT(report.entries, SizeIs(2));
  const CatalogueEntry& entry = report.entries[1];
  EXPECT_EQ(entry.line, 6U);
  EXPECT_THAT(entry.family, ElementsAre("49", "16"));
  EXPECT_THAT(entry.device, ElementsAre("161", "0"));
  EXPECT_THAT(entry.version,
              ElementsAre("1.100", "2024", "", "80", "61", "62", "63", "64", "65", "1", "0"));
  EXPECT_THAT(entry.links, ElementsAre("ProductLink", "Packb", "DatasheetDE", "DatasheetEN",
                                       "DatasheetFR", "DatasheetIT"));
}

TEST(CatalogueChecker, ListsAndReportsADeviceWithoutVersions) {
  const auto report = checkCatalogue(catalogueOf(""));
  ASSERT_THAT(report.entries, SizeIs(1));
  EXPECT_EQ(report.entries[0].line, 3U);
  EXPECT_THAT(report.entries[0].version, IsEmpty());
  EXPECT_THAT(linesOf(report.problems),
              ElementsAre("3: Device without a Version; its status is read from the registers of "
                          "the previous module"));
}

TEST(CatalogueChecker, ReportsLineColumnAndCauseOfInvalidXml) {
  const auto report = checkCatalogue("<Catalogue>\n<Family V='49' V='16'>\n</Catalogue>\n");
  EXPECT_THAT(report.verdict, HasSubstr("cannot be used"));
  ASSERT_THAT(report.problems, SizeIs(1));
  EXPECT_EQ(toLine("file.xml", report.problems[0]),
            "file.xml:2:16: invalid XML: duplicate attribute");
  EXPECT_THAT(report.entries, IsEmpty());
}

TEST(CatalogueChecker, RefusesASecondElementAndTextBesideTheRoot) {
  for (const char* bytes : {"<A/>\n\n<B/>", "<A/>\n\ntext"}) {
    EXPECT_THAT(problemsOf(bytes), ElementsAre("3: invalid XML: junk after document element"))
        << bytes;
  }
}

TEST(CatalogueChecker, RefusesAFileWithoutAnElement) {
  for (const char* bytes : {"", "<!-- nothing -->"}) {
    const auto report = checkCatalogue(bytes);
    EXPECT_THAT(report.verdict, HasSubstr("cannot be used")) << bytes;
    EXPECT_THAT(linesOf(report.problems), ElementsAre("1: invalid XML: no element found")) << bytes;
  }
}

TEST(CatalogueChecker, ReportsTheLineInEveryEncoding) {
  const std::u16string text =
      u"\uFEFF<\u00C4>\n<\u00DC a='1'\nb='x'><Device/></\u00DC>\n<F/></\u00C4>";
  std::string wide;
  for (const char16_t unit : text) {
    wide += {static_cast<char>(unit >> 8U), static_cast<char>(unit & 0xFFU)};
  }
  const std::vector<std::string> expected = problemsOf(toUtf8(text));
  EXPECT_THAT(expected.front(), ::testing::StartsWith("2: place 1 of this family"));
  EXPECT_THAT(expected.back(), ::testing::StartsWith("4: family without a Device"));
  EXPECT_EQ(problemsOf(wide), expected);
}

TEST(CatalogueChecker, RefusesAMissingFileAndAFolder) {
  for (const std::filesystem::path path : {"no-such-file.xml", "."}) {
    const auto report = checkCatalogueFile(path);
    EXPECT_THAT(report.verdict, HasSubstr("Fehler XML-Datei!"));
    EXPECT_THAT(linesOf(report.problems), ElementsAre("0: the file cannot be read"));
  }
}

TEST(CatalogueChecker, ReportsMissingAndInvalidNumbersOfAFamily) {
  EXPECT_THAT(problemsOf(catalogue("<Family V='49'>\n" + goodDevice + "</Family>")),
              ElementsAre("2: this family has 1 of 2 places; reads of all modules fail"));
  EXPECT_THAT(problemsOf(catalogue(family("49", "x", goodDevice))),
              ElementsAre("2: place 1 of this family, \"x\", is not a whole number; reads of all "
                          "modules fail"));
}

TEST(CatalogueChecker, ReportsMissingAndInvalidNumbersOfADevice) {
  EXPECT_THAT(problemsOf(catalogue(
                  family("49", "16", "<Device D=''>" + links + version("1.000") + "</Device>"))),
              ElementsAre("3: this Device has 1 of 2 places; reads of all modules of this family "
                          "fail",
                          "3: place 0 of this Device, \"\", is not a whole number; reads of all "
                          "modules of this family fail"));
}

TEST(CatalogueChecker, ReportsMissingAndInvalidNumbersOfAVersion) {
  EXPECT_THAT(problemsOf(catalogueOf("<Version F='1.000' R='' N='' a='60'/>\n")),
              ElementsAre("5: this Version has 4 of 11 places; reads of this module fail"));
  EXPECT_THAT(
      problemsOf(catalogueOf(version("1.000", "6O"))),
      ElementsAre("5: place 3 of this Version, \"6O\", is not a whole number; reads of this "
                  "module fail"));
}

TEST(CatalogueChecker, ReportsANumberThatOnlySomeSystemsRead) {
  EXPECT_THAT(problemsOf(catalogueOf(version("1.000", "60.5"))), SizeIs(1));
  EXPECT_THAT(problemsOf(catalogueOf(version("1.000", "60,5"))), SizeIs(1));
}

TEST(CatalogueChecker, ReportsWordsAndRegistersOutOfRange) {
  EXPECT_THAT(
      problemsOf(catalogue(family("49", "65535", goodDevice))),
      ElementsAre(HasSubstr("is outside -32768 to 32767, the range of identification words")));
  EXPECT_THAT(problemsOf(catalogueOf(version("1.000", "65536"))),
              ElementsAre(HasSubstr("is outside 0 to 65535, the range of registers")));
  EXPECT_THAT(problemsOf(catalogueOf(version("1.000", "-1"))), SizeIs(1));
  EXPECT_THAT(problemsOf(catalogueOf(version("1.000", "65535"))), IsEmpty());
  EXPECT_THAT(problemsOf(catalogue(family("-32768", "32767", goodDevice))), IsEmpty());
}

TEST(CatalogueChecker, ReportsADeviceThatIsListedTwiceEvenInAnotherFamilyElement) {
  EXPECT_THAT(
      problemsOf(catalogue(family("49", "16", goodDevice) + family("49", "17", goodDevice) +
                           family("49", "16", goodDevice))),
      ElementsAre("15: line 3 lists this Device already; links, HideFwVersion and verdict are "
                  "taken from this one"));
  EXPECT_THAT(problemsOf(catalogue(
                  family("49", "16", goodDevice + device("0161", links + version("1.000"))))),
              SizeIs(1));
}

TEST(CatalogueChecker, ReportsAFamilyWithoutDevices) {
  EXPECT_THAT(problemsOf(catalogue(family("49", "16", ""))),
              ElementsAre("2: family without a Device; its modules are not found"));
}

TEST(CatalogueChecker, ReportsEachDataSheetThatIsMissingOrEmpty) {
  const std::string given =
      "<DatasheetDE> </DatasheetDE><DatasheetEN>e</DatasheetEN><DatasheetIT/>\n";
  const auto report =
      checkCatalogue(catalogue(family("49", "16", device("161", given + version("1.000")))));
  EXPECT_THAT(linesOf(report.problems),
              ElementsAre("3: no DatasheetDE; German users get an empty link",
                          "3: no DatasheetFR; French users get an empty link",
                          "3: no DatasheetIT; Italian users get an empty link"));
  EXPECT_THAT(report.entries.at(0).links, ElementsAre("DatasheetEN"));
}

TEST(CatalogueChecker, ReportsADoubledLinkAndWhiteSpaceAroundOne) {
  const std::string more = "<Packb>second</Packb>\n";
  EXPECT_THAT(
      problemsOf(catalogue(family("49", "16", device("161", links + more + version("1.000"))))),
      ElementsAre("5: Packb is ignored; the one in line 4 is used"));
  const std::string wide = "<Packb>\n  b</Packb>\n";
  EXPECT_THAT(
      problemsOf(catalogue(family("49", "16", device("161", wide + links + version("1.000"))))),
      ElementsAre("4: Packb has white space around the link; the host receives it",
                  "6: Packb is ignored; the one in line 4 is used"));
}

TEST(CatalogueChecker, ReportsMisspelledTagsAndNotesForeignOnes) {
  const std::string children = links + "<version/>\n<Remark>x</Remark>\n" + version("1.000");
  const auto report =
      checkCatalogue(catalogue(family("49", "16", device("161", children) + "<Group/>\n")));
  EXPECT_THAT(linesOf(report.problems),
              ElementsAre("5: version is ignored; the tag is spelled Version"));
  EXPECT_THAT(linesOf(report.notes), ElementsAre("6: ignored: Remark", "9: ignored: Group"));
}

TEST(CatalogueChecker, ReportsALevelWithTooManyElements) {
  std::string families;
  for (int i = 0; i < 32769; ++i) {
    families += "<F V='1' F='1'><Device/></F>";
  }
  EXPECT_THAT(problemsOf(catalogue(families)).front(),
              "1: 32769 families; the maximum is 32768, and reads that reach them fail");
}

TEST(CatalogueChecker, IgnoresCommentsAndInstructions) {
  EXPECT_THAT(notesOf(catalogue("<!-- a comment -->\n<?pi?>\n" +
                                family("49", "16", "<!-- x -->" + goodDevice))),
              IsEmpty());
}

TEST(CatalogueChecker, FindsNothingWrongWithTheSampleCatalogue) {
  const auto report = checkCatalogueFile(TESSARA_SAMPLE_CATALOGUE);
  EXPECT_EQ(report.verdict, "loads");
  EXPECT_THAT(linesOf(report.problems), IsEmpty());
  EXPECT_THAT(linesOf(report.notes), IsEmpty());
  EXPECT_GE(report.entries.size(), 30U);
}

}  // namespace
}  // namespace tessara
