#include <string>
#include <variant>

#include <gtest/gtest.h>

#include "xml/XmlCase.h"
#include "xml/XmlParser.h"

namespace tessara {
namespace {

using testing::caseName;
using testing::XmlCase;

std::string causeOf(const std::variant<XmlDocument, XmlFault>& parsed) {
  const auto* fault = std::get_if<XmlFault>(&parsed);
  return fault == nullptr ? "" : fault->cause;
}

class WellFormed : public ::testing::TestWithParam<XmlCase> {};

TEST_P(WellFormed, Loads) {
  EXPECT_EQ(causeOf(parseXml(GetParam().document)), "");
}

const XmlCase wellFormed[] = {
    {"Document01EmptyRoot", "<r/>"},
    {"Document01CommentsAndInstructionsAround", "<!-- a --><?p?>\n<r/>\n<?p b?><!-- c -->\n"},
    {"Char02TabAndLineEnds", "<r a='\t'>\t\r\n</r>"},
    {"Char02BeyondTheFirstPlane", "<r>\xF0\x9F\x98\x80</r>"},
    {"Char02LastOfUnicode", "<r>\xF4\x8F\xBF\xBD</r>"},
    {"Char02ReplacementCharacter", "<r>\xEF\xBF\xBD</r>"},
    {"Char02DeleteAndC1Controls", "<r>\x7F\xC2\x80\xC2\x9F</r>"},
    {"Space03AroundEqualsSigns", "<r a = '1'\n\tb\r\n=\n'2' />"},
    {"Name05ColonUnderscorePointHyphen", "<_a:b.c-d1 :x='1'/>"},
    {"Name05LettersOfOtherScripts",
     "<Ger\xC3\xA4t \xD0\xB8\xD0\xBC\xD1\x8F='1'><\xE4\xB8\xAD\xE6\x96\x87/></Ger\xC3\xA4t>"},
    {"Name05StartsWithXml", "<xmlCatalogue xmlData='1'/>"},
    {"AttValue10OtherQuoteInside", "<r a='say \"x\"' b=\"it's\"/>"},
    {"AttValue10GreaterThan", "<r a='1>2 ]]>'/>"},
    {"AttValue10Empty", "<r a=''/>"},
    {"CharData14GreaterThanAndBrackets", "<r>1 > 2 ] ]] ] ]></r>"},
    {"Comment15Empty", "<r><!----></r>"},
    {"Comment15HyphensApart", "<r><!-- - - a- --></r>"},
    {"Comment15MarkupInside", "<r><!-- <a & ]]> --></r>"},
    {"Pi16QuestionMarksInside", "<r><?p ? ?? x?></r>"},
    {"PiTarget17BeginsLikeXml", "<r><?xml-stylesheet href='a'?><?xmlx?></r>"},
    {"CdSect18MarkupInside", "<r><![CDATA[<a> & ]] ]>]]></r>"},
    {"CdSect18Empty", "<r><![CDATA[]]></r>"},
    {"XmlDecl23InDoubleQuotes",
     "<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"no\" ?><r/>"},
    {"XmlDecl23LineEndsInside", "<?xml\nversion = '1.0'\n?><r/>"},
    {"VersionNum26Later", "<?xml version='1.1'?><r/>"},
    {"Doctype28SystemId", "<!DOCTYPE r SYSTEM 'no-such-file.dtd'><r/>"},
    {"Doctype28PublicId", "<!DOCTYPE r PUBLIC '-//X//Y 1.0//EN' 'no-such-file.dtd'><r/>"},
    {"Doctype28InternalSubset",
     "<!DOCTYPE r [<!-- a --><!ELEMENT r (a?,(b|c)*,d+)><!ATTLIST r x CDATA #IMPLIED y (u|v) 'u'>"
     "<!NOTATION n SYSTEM 'n'><?p?>]><r/>"},
    {"Element39EndTagWithSpace", "<r></r\n>"},
    {"Element39NotValidByItsDoctype", "<!DOCTYPE a [<!ELEMENT a EMPTY>]><r><b/></r>"},
    {"CharRef66DecimalAndHex", "<r a='&#228;'>&#xE4;&#x1F600;&#10;</r>"},
    {"EntityRef68Predefined", "<r a='&lt;&amp;&apos;'>&gt;&quot;</r>"},
    {"EntityRef68External", "<!DOCTYPE r [<!ENTITY e SYSTEM 'no-such-file'>]><r>&e;</r>"},
    {"EntityRef68PerhapsDeclaredElsewhere", "<!DOCTYPE r SYSTEM 'r.dtd'><r>&e;</r>"},
    {"EntityRef68DeclaredTwice", "<!DOCTYPE r [<!ENTITY e '1'><!ENTITY e '2'>]><r>&e;</r>"},
    {"PeReference69HoldsADeclaration",
     "<!DOCTYPE r [<!ENTITY % p '<!ENTITY e \"x\">'>%p;]><r>&e;</r>"},
    {"Namespace00UnboundPrefix", "<a:r b:c='1' d:c='2'/>"},
};

INSTANTIATE_TEST_SUITE_P(Documents, WellFormed, ::testing::ValuesIn(wellFormed),
                         caseName<::testing::TestParamInfo<XmlCase>>);

/// The document's characters in units of 16 bits.
std::string utf16(std::u16string_view text, bool highByteFirst) {
  std::string bytes;
  for (const char16_t unit : text) {
    const char low = static_cast<char>(unit & 0xFFU);
    const char high = static_cast<char>(unit >> 8U);
    bytes += highByteFirst ? high : low;
    bytes += highByteFirst ? low : high;
  }
  return bytes;
}

const std::u16string wide = u"\uFEFF<r a='\u00FC\u20AC\U0001F600'/>";
const std::u16string wideDeclared =
    u"\uFEFF<?xml version='1.0' encoding='UTF-16'?><r a='\u00FC\u20AC\U0001F600'/>";

const XmlCase encodings[] = {
    {"Utf8", "<r a='\xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80'/>"},
    {"Utf8WithMark", "\xEF\xBB\xBF<r a='\xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80'/>"},
    {"Utf8Declared",
     "<?xml version='1.0' encoding='utf-8'?><r a='\xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80'/>"},
    {"Utf16LowByteFirst", utf16(wide, false)},
    {"Utf16HighByteFirst", utf16(wide, true)},
    {"Utf16LowByteFirstDeclared", utf16(wideDeclared, false)},
    {"Utf16HighByteFirstDeclared", utf16(wideDeclared, true)},
    {"Latin1", "<?xml version='1.0' encoding='ISO-8859-1'?><r a='\xFC&#x20AC;&#x1F600;'/>"},
    {"Latin1InLowerCase",
     "<?xml version='1.0' encoding='iso-8859-1'?><r a='\xFC&#x20AC;&#x1F600;'/>"},
    {"Latin1ByItsShortName",
     "<?xml version='1.0' encoding='Latin1'?><r a='\xFC&#x20AC;&#x1F600;'/>"},
    {"Ascii", "<?xml version='1.0' encoding='US-ASCII'?><r a='&#xFC;&#x20AC;&#x1F600;'/>"},
};

class Encoding : public ::testing::TestWithParam<XmlCase> {};

TEST_P(Encoding, GivesTheCharactersThatAreMeant) {
  const auto parsed = parseXml(GetParam().document);
  ASSERT_EQ(causeOf(parsed), "");
  const auto& document = std::get<XmlDocument>(parsed);
  EXPECT_STREQ(document.attribute(document.root(), 0), "\xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80");
}

INSTANTIATE_TEST_SUITE_P(Documents, Encoding, ::testing::ValuesIn(encodings),
                         caseName<::testing::TestParamInfo<XmlCase>>);

}  // namespace
}  // namespace tessara
