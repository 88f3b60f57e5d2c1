#include <string>
#include <variant>

#include <gtest/gtest.h>

#include "xml/XmlParser.h"

namespace tessara {
namespace {

/// "line:column: cause"; empty for a document that loads.
std::string faultOf(const std::string& bytes) {
  const auto parsed = parseXml(bytes);
  const auto* fault = std::get_if<XmlFault>(&parsed);
  return fault == nullptr ? ""
                          : std::to_string(fault->place.line) + ":" +
                                std::to_string(fault->place.column) + ": " + fault->cause;
}

std::string repeated(const std::string& text, std::size_t times) {
  std::string all;
  for (std::size_t i = 0; i < times; ++i) {
    all += text;
  }
  return all;
}

TEST(XmlFault, HasLineAndColumnInCharacters) {
  EXPECT_EQ(faultOf("<r>\n<a b='\xC3\xBC' b='2'/></r>"), "2:10: duplicate attribute");
  EXPECT_EQ(faultOf("<r>\r\n\r\n</s>"), "3:3: mismatched end tag; <r> is open");
  EXPECT_EQ(faultOf(std::string("\xFF\xFE<\0r\0>\0\n\0<\0/\0s\0>\0", 18)),
            "2:3: mismatched end tag; <r> is open");
}

TEST(XmlFault, NamesTheCause) {
  EXPECT_EQ(faultOf("<r a='1<2'/>"), "1:8: '<' inside a tag or a value; in values write '&lt;'");
  EXPECT_EQ(faultOf("<r>A & B</r>"), "1:7: '&' is not the start of a reference; write '&amp;'");
  EXPECT_EQ(faultOf("<r a='?x&y=1'/>"), "1:11: '&' is not the start of a reference; write '&amp;'");
  EXPECT_EQ(faultOf("<r>&nbsp;</r>"), "1:4: undefined entity");
  EXPECT_EQ(faultOf("<r>&#0;</r>"), "1:4: reference to invalid character number");
  EXPECT_EQ(faultOf("<r><!-- a -- b --></r>"), "1:13: '--' inside a comment");
  EXPECT_EQ(faultOf("<r>]]></r>"), "1:6: ']]>' in text; write ']]&gt;'");
  EXPECT_EQ(faultOf("<r>\x01</r>"), "1:4: control character U+0001");
  EXPECT_EQ(faultOf("<r a='Ger\xE4t'/>"), "1:10: byte 0xE4 is not valid UTF-8");
  EXPECT_EQ(faultOf("<r a=1/>"), "1:6: unexpected '1'");
  EXPECT_EQ(faultOf("<r = '1'/>"), "1:4: unexpected '='");
  EXPECT_EQ(faultOf("< r/>"), "1:2: unexpected white space");
  EXPECT_EQ(faultOf("\n<?xml version='1.0'?><r/>"),
            "2:1: XML or text declaration not at start of entity");
  EXPECT_EQ(faultOf("<r/>\n<s/>"), "2:1: junk after document element");
  EXPECT_EQ(faultOf(""), "1:1: no element found");
  EXPECT_EQ(faultOf("<r>\n<a>\n"), "3:1: the end is missing; <a> is open");
  EXPECT_EQ(faultOf("<r a='1"), "1:1: unclosed token");
  EXPECT_EQ(faultOf("<?xml version='2.0'?><r/>"), "1:1: XML version \"2.0\"; version 1.0 is read");
  EXPECT_EQ(faultOf("<?xml version='1.0' encoding='x-none'?><r/>"),
            "1:31: unknown encoding \"x-none\"");
}

TEST(XmlLimits, NestingIsLimited) {
  EXPECT_EQ(faultOf(repeated("<x>", 64) + repeated("</x>", 64)), "");
  EXPECT_EQ(faultOf(repeated("<x>", 65) + repeated("</x>", 65)),
            "1:193: elements nested deeper than 64");
  EXPECT_EQ(faultOf(repeated("<x>", 64) + "<y/>" + repeated("</x>", 64)),
            "1:193: elements nested deeper than 64");
}

TEST(XmlLimits, MegabytesOfOpenElementsAreRefusedAtTheLimit) {
  EXPECT_EQ(faultOf(repeated("<x>", 4'000'000)), "1:193: elements nested deeper than 64");
}

TEST(XmlLimits, NestingOfEntitiesIsLimited) {
  std::string chain = "<!DOCTYPE r [<!ENTITY e0 'x'>";
  const auto entity = [](int number) { return "e" + std::to_string(number); };
  for (int i = 1; i < 257; ++i) {
    chain += "<!ENTITY " + entity(i) + " '&" + entity(i - 1) + ";'>\n";
  }
  EXPECT_EQ(faultOf(chain + "]><r>&e256;</r>"), "256:15: more than 256 entities");
}

TEST(XmlLimits, EntitiesThatGrowOutOfProportionAreRefused) {
  std::string bomb = "<!DOCTYPE r [<!ENTITY e0 'ten letters'>";
  for (char level = '1'; level <= '9'; ++level) {
    const std::string former = std::string("&e") + static_cast<char>(level - 1) + ";";
    bomb += std::string("<!ENTITY e") + level + " '" + repeated(former, 10) + "'>";
  }
  EXPECT_NE(faultOf(bomb + "]><r>&e9;</r>").find("amplification"), std::string::npos);
  EXPECT_NE(faultOf(bomb + "]><r a='&e9;'/>").find("amplification"), std::string::npos);
}

TEST(XmlEntities, AreReplacedInTextAndValues) {
  const auto parsed =
      parseXml("<!DOCTYPE r [<!ENTITY e 'a&f;'><!ENTITY f 'b'>]><r v='&e;'>&e;</r>");
  ASSERT_TRUE(std::holds_alternative<XmlDocument>(parsed));
  const auto& document = std::get<XmlDocument>(parsed);
  EXPECT_STREQ(document.attribute(document.root(), 0), "ab");
  EXPECT_STREQ(document.text(document.root()), "ab");
}

TEST(XmlPlaces, AreThoseOfTheStartTags) {
  const auto parsed = parseXml("<r>\n  <a/>\xC3\xBC<b\n/></r>", XmlPlaces::Kept);
  ASSERT_TRUE(std::holds_alternative<XmlDocument>(parsed));
  const auto& document = std::get<XmlDocument>(parsed);
  const XmlPlace a = document.place(document.child(document.root(), 0));
  EXPECT_EQ(a.line, 2U);
  EXPECT_EQ(a.column, 3U);
  const XmlPlace b = document.place(document.child(document.root(), 1));
  EXPECT_EQ(b.line, 2U);
  EXPECT_EQ(b.column, 8U);
}

}  // namespace
}  // namespace tessara
