#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/Text.h"
#include "xml/XmlFileTree.h"

namespace tessara {
namespace {

namespace fs = std::filesystem;

/// A folder of its own for each test.
class XmlFileTreeTest : public ::testing::Test {
 protected:
  XmlFileTreeTest() {
    std::string pattern = (fs::temp_directory_path() / "xml-file-tree-XXXXXX").string();
    folder = ::mkdtemp(pattern.data());
  }
  ~XmlFileTreeTest() override { fs::remove_all(folder); }

  bool load(const std::string& bytes, const std::string& name = "file.xml") {
    std::ofstream(folder / name, std::ios::binary) << bytes;
    return tree.loadFile((folder / name).u16string());
  }

  fs::path folder;
  XmlFileCache cache;
  XmlFileTree tree{cache};
};

TEST_F(XmlFileTreeTest, GivesElementsAndAttributesByTheirPlace) {
  ASSERT_TRUE(load("<root><a z='1' y='2' x='3'/><b>text</b></root>"));
  const auto root = tree.root();
  EXPECT_EQ(tree.childCount(root), 2);
  const auto a = tree.child(root, 0);
  EXPECT_EQ(tree.attribute(a, 0), u"1");
  EXPECT_EQ(tree.attribute(a, 1), u"2");
  EXPECT_EQ(tree.attribute(a, 2), u"3");
  EXPECT_EQ(tree.attribute(a, 3), u"");
  EXPECT_EQ(tree.text(tree.child(root, 1)), u"text");
  EXPECT_EQ(tree.text(a), u"");
  EXPECT_EQ(tree.childCount(a), 0);
}

TEST_F(XmlFileTreeTest, CountsOnlyElementsAsChildren) {
  ASSERT_TRUE(
      load("<?xml version='1.0'?><!-- before -->\n<!DOCTYPE root><root> text <!-- c -->"
           "<a/><?note here?><![CDATA[data]]><b/></root>\n<!-- after -->\n"));
  EXPECT_EQ(tree.childCount(tree.root()), 2);
  EXPECT_EQ(tree.child(tree.root(), 2).node, nullptr);
  EXPECT_EQ(tree.text(tree.root()), u" text data");
}

TEST_F(XmlFileTreeTest, GivesChildrenByTagInTheirOrder) {
  ASSERT_TRUE(load("<r><v n='0'/><w n='1'/><v n='2'/><V n='3'/><v n='4'/></r>"));
  const auto root = tree.root();
  EXPECT_EQ(tree.countByTag(root, "v"), 3);
  EXPECT_EQ(tree.countByTag(root, "V"), 1);
  EXPECT_EQ(tree.countByTag(root, "u"), 0);
  EXPECT_EQ(tree.attribute(tree.nthByTag(root, "v", 0), 0), u"0");
  EXPECT_EQ(tree.attribute(tree.nthByTag(root, "v", 1), 0), u"2");
  EXPECT_EQ(tree.attribute(tree.nthByTag(root, "v", 2), 0), u"4");
  EXPECT_EQ(tree.nthByTag(root, "v", 3).node, nullptr);
  EXPECT_EQ(tree.nthByTag(root, "u", 0).node, nullptr);
}

TEST_F(XmlFileTreeTest, GivesEveryPlaceInWhateverOrderItIsAskedFor) {
  ASSERT_TRUE(load("<r><a><x n='0'/><x n='1'/></a><b><x n='2'/><x n='3'/></b></r>"));
  const auto root = tree.root();
  const auto x = [&](std::int32_t parent, std::int32_t index) {
    return toUtf8(tree.attribute(tree.nthByTag(tree.child(root, parent), "x", index), 0));
  };
  EXPECT_EQ(x(1, 1), "3");
  EXPECT_EQ(x(1, 0), "2");
  EXPECT_EQ(x(0, 1), "1");
  EXPECT_EQ(x(1, 1), "3");
  EXPECT_EQ(x(0, 0), "0");
  EXPECT_EQ(tree.child(root, 2).node, nullptr);
  EXPECT_EQ(tree.child(root, 5).node, nullptr);
  EXPECT_EQ(x(0, 1), "1");
  tree.close(tree.child(root, 1));
  EXPECT_EQ(x(1, 0), "2");
}

TEST_F(XmlFileTreeTest, JoinsThePiecesOfAText) {
  ASSERT_TRUE(load("<r><l>a&amp;b<!-- c --><![CDATA[<d>]]>e<f>not mine</f></l></r>"));
  EXPECT_EQ(tree.text(tree.child(tree.root(), 0)), u"a&b<d>e");
  ASSERT_TRUE(load("<r><l><![CDATA[a]]>b</l><l><f/>c<f/>d</l><l>  </l></r>"));
  EXPECT_EQ(tree.text(tree.child(tree.root(), 0)), u"ab");
  EXPECT_EQ(tree.text(tree.child(tree.root(), 1)), u"cd");
  EXPECT_EQ(tree.text(tree.child(tree.root(), 2)), u"");
}

TEST_F(XmlFileTreeTest, AttributesHaveTheirReferencesResolved) {
  ASSERT_TRUE(load("<r a='&lt;&#x20AC;&quot;'/>"));
  EXPECT_EQ(tree.attribute(tree.root(), 0), u"<\u20AC\"");
}

TEST_F(XmlFileTreeTest, WalkOfManyChildrenGivesEachOfThem) {
  std::string many = "<r>";
  for (int i = 0; i < 30000; ++i) {
    many += "<x n='" + std::to_string(i) + "'/>";
  }
  ASSERT_TRUE(load(many + "</r>"));
  const auto root = tree.root();
  EXPECT_EQ(tree.childCount(root), 30000);
  for (std::int32_t i = 0; i < 30000; ++i) {
    ASSERT_EQ(tree.attribute(tree.child(root, i), 0), decimalText(i));
  }
  for (std::int32_t i = 0; i < 30000; ++i) {
    ASSERT_EQ(tree.attribute(tree.nthByTag(root, "x", i), 0), decimalText(i));
  }
}

TEST_F(XmlFileTreeTest, ReadsTheEncodingsThatFilesComeIn) {
  const std::string utf8 = "<r a='\xC3\xBC\xE2\x82\xAC'/>";
  ASSERT_TRUE(load(utf8));
  EXPECT_EQ(tree.attribute(tree.root(), 0), u"\u00FC\u20AC");
  ASSERT_TRUE(load("\xEF\xBB\xBF" + utf8));
  EXPECT_EQ(tree.attribute(tree.root(), 0), u"\u00FC\u20AC");
  ASSERT_TRUE(load("<?xml version='1.0' encoding='ISO-8859-1'?><r a='\xFC'/>"));
  EXPECT_EQ(tree.attribute(tree.root(), 0), u"\u00FC");

  const std::u16string utf16 = u"<r a='\u00FC\u20AC'/>";
  std::string little = "\xFF\xFE";
  std::string big = "\xFE\xFF";
  for (const char16_t unit : utf16) {
    const char low = static_cast<char>(unit & 0xFFU);
    const char high = static_cast<char>(unit >> 8U);
    little += {low, high};
    big += {high, low};
  }
  ASSERT_TRUE(load(little));
  EXPECT_EQ(tree.attribute(tree.root(), 0), u"\u00FC\u20AC");
  ASSERT_TRUE(load(big));
  EXPECT_EQ(tree.attribute(tree.root(), 0), u"\u00FC\u20AC");
}

TEST_F(XmlFileTreeTest, FileWithANameBeyondAsciiIsFound) {
  EXPECT_TRUE(load("<r/>", "Ger\xC3\xA4te \xE4\xB8\xAD.xml"));
}

TEST_F(XmlFileTreeTest, MissingFileFolderAndUnpairedNameDoNotLoad) {
  EXPECT_FALSE(tree.loadFile((folder / "absent.xml").u16string()));
  EXPECT_FALSE(tree.loadFile(folder.u16string()));
  EXPECT_FALSE(tree.loadFile(u""));
  EXPECT_FALSE(tree.loadFile(std::u16string{char16_t{0xD800}}));
}

TEST_F(XmlFileTreeTest, FileThatIsNotWellFormedDoesNotLoadAndLeavesNothingOfTheFormer) {
  ASSERT_TRUE(load("<former a='1'><x/></former>"));
  EXPECT_FALSE(load("<r a='1' a='2'/>"));
  EXPECT_EQ(tree.root().node, nullptr);
  EXPECT_EQ(tree.childCount(tree.root()), 0);
  EXPECT_EQ(tree.countByTag(tree.root(), "x"), 0);
  EXPECT_EQ(tree.nthByTag(tree.root(), "x", 0).node, nullptr);
  EXPECT_EQ(tree.attribute(tree.root(), 0), u"");
  EXPECT_EQ(tree.text(tree.root()), u"");
}

TEST_F(XmlFileTreeTest, PipeIsNotWaitedFor) {
  const fs::path pipe = folder / "pipe.xml";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(tree.loadFile(pipe.u16string()));
}

TEST_F(XmlFileTreeTest, PathWithAZeroCharacterNamesNoFile) {
  ASSERT_TRUE(load("<r/>"));
  EXPECT_FALSE(tree.loadFile((folder / "file.xml").u16string() + u'\0' + u"x"));
}

TEST_F(XmlFileTreeTest, ReadsNoOtherFileThatAnEntityNames) {
  std::ofstream(folder / "secret", std::ios::binary) << "secret";
  ASSERT_TRUE(load("<!DOCTYPE r [<!ENTITY e SYSTEM 'secret'>]><r>a&e;b</r>"));
  EXPECT_EQ(tree.text(tree.root()), u"ab");
}

TEST_F(XmlFileTreeTest, AnotherFileReplacesTheFormer) {
  ASSERT_TRUE(load("<r><x n='1'/><x n='2'/></r>"));
  EXPECT_EQ(tree.attribute(tree.child(tree.root(), 1), 0), u"2");
  ASSERT_TRUE(load("<r><x n='3'/></r>"));
  EXPECT_EQ(tree.childCount(tree.root()), 1);
  EXPECT_EQ(tree.attribute(tree.child(tree.root(), 0), 0), u"3");
}

}  // namespace
}  // namespace tessara
