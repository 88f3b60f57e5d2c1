#include <fstream>
#include <iterator>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Text.h"
#include "tools/help/HelpBuilder.h"

namespace tessara {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace fs = std::filesystem;

/// A folder of its own for each test, with a help of two pages and a language file.
class HelpBuilder : public ::testing::Test {
 protected:
  HelpBuilder() {
    std::string name = (fs::temp_directory_path() / "tessara-help-XXXXXX").string();
    folder_ = mkdtemp(name.data());
    fs::create_directory(folder_ / "de");
    write("de/help.txt",
          "title = Help\nlanguage = 0x0407 German\nhtmlLanguage = de\ncontents = Inhalt\n"
          "back = Back\nnext = Next\npage = index\npage = b\n");
    write("de/index.html", "<h1>Erste</h1>\n{{contents}}\n");
    write("de/b.html", "<h1>{{ModulInfo 0}}</h1>\n<a href=\"index.html\">x</a>\n");
    writeLanguage("[Title]\r\n1\r\nTitle\r\n[ModulInfo]\r\n1\r\nAdresse\r\n");
  }
  ~HelpBuilder() override { fs::remove_all(folder_); }

  void write(const std::string& name, const std::string& content) {
    std::ofstream(folder_ / name, std::ios::binary) << content;
  }

  void writeLanguage(const std::string& text) {
    std::string bytes = "\xFF\xFE";
    for (const char16_t unit : fromUtf8(text)) {
      bytes += static_cast<char>(unit & 0xFFU);
      bytes += static_cast<char>(unit >> 8U);
    }
    write("language", bytes);
  }

  [[nodiscard]] std::string read(const std::string& name) const {
    std::ifstream file(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::vector<std::string> build() {
    return buildHelp(folder_ / "de", folder_ / "language", folder_ / "out" / "Help_049");
  }

  [[nodiscard]] std::string pathOf(const std::string& name) const {
    return (folder_ / name).string();
  }

 private:
  fs::path folder_;
};

TEST_F(HelpBuilder, WritesPagesAndProjectIntoItsFolder) {
  EXPECT_THAT(build(), IsEmpty());
  EXPECT_THAT(read("out/Help_049/b.html"), HasSubstr("<h1>Adresse</h1>"));
  EXPECT_THAT(read("out/Help_049/index.html"), HasSubstr("<a href=\"b.html\">Adresse</a>"));
  EXPECT_THAT(read("out/Help_049/Help_049.hhp"), HasSubstr("Compiled file=Help_049.chm"));
  EXPECT_THAT(read("out/Help_049/Help_049.hhc"), HasSubstr("b.html"));
  EXPECT_THAT(read("out/Help_049/Help_049.hhk"), HasSubstr("Adresse"));
}

TEST_F(HelpBuilder, TellsALinkThatLeadsNowhereAndWritesNothing) {
  write("de/b.html", "<h1>B</h1>\n<a href=\"c.html\">x</a>\n<a href=\"index.html#d\">y</a>\n");
  EXPECT_THAT(build(), ElementsAre(pathOf("de/b.html") + ":2: the link to c.html is broken",
                                   pathOf("de/b.html") + ":3: the link to index.html#d is broken"));
  EXPECT_EQ(read("out/Help_049/index.html"), "");
}

TEST_F(HelpBuilder, FollowsLinksToSectionsOfItsOwnAndOtherPages) {
  write("de/b.html", "<h1>B</h1>\n<h2 id=\"s\">S</h2>\n<a href=\"#s\">x</a>\n");
  write("de/index.html", "<h1>Erste</h1>\n<a href=\"b.html#s\">x</a>\n");
  EXPECT_THAT(build(), IsEmpty());
}

TEST_F(HelpBuilder, TellsFilesThatAreNotThere) {
  fs::remove(pathOf("de/b.html"));
  EXPECT_THAT(build(), ::testing::Contains(pathOf("de/b.html") + ": the file cannot be read"));
  fs::remove(pathOf("language"));
  EXPECT_THAT(build()[0], HasSubstr(pathOf("language")));
}

TEST_F(HelpBuilder, TellsALanguageFileThatTheControlDoesNotTake) {
  writeLanguage("[Title]\r\n2\r\nTitle\r\n");
  EXPECT_THAT(build()[0], HasSubstr("not a language file that the control accepts"));
}

TEST_F(HelpBuilder, TellsAPlaceThatCannotBeWritten) {
  write("out", "a file where a folder is needed");
  EXPECT_THAT(build()[0], HasSubstr("cannot be written"));
}

}  // namespace
}  // namespace tessara
