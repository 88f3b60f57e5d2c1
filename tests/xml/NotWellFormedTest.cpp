#include <string>
#include <variant>

#include <gtest/gtest.h>

#include "xml/XmlCase.h"
#include "xml/XmlParser.h"

namespace tessara {
namespace {

using testing::caseName;
using testing::XmlCase;
using namespace std::string_literals;

class NotWellFormed : public ::testing::TestWithParam<XmlCase> {};

TEST_P(NotWellFormed, IsRefusedWithPlaceAndCause) {
  const auto parsed = parseXml(GetParam().document);
  ASSERT_TRUE(std::holds_alternative<XmlFault>(parsed));
  const auto& fault = std::get<XmlFault>(parsed);
  EXPECT_GE(fault.place.line, 1U);
  EXPECT_GE(fault.place.column, 1U);
  EXPECT_FALSE(fault.cause.empty());
}

/// The document with that internal subset, and a root that holds `content`.
std::string withSubset(const std::string& subset, const std::string& content = "") {
  return "<!DOCTYPE r [" + subset + "]><r>" + content + "</r>";
}

const XmlCase documents[] = {
    {"Document01EmptyFile", ""},
    {"Document01OnlyWhiteSpace", " \n\t\r\n"},
    {"Document01OnlyText", "no element"},
    {"Document01OnlyADeclaration", "<?xml version='1.0'?>"},
    {"Document01OnlyAComment", "<!-- nothing else -->"},
    {"Document01OnlyADoctype", "<!DOCTYPE r>"},
    {"Document01TextBeforeTheRoot", "text<r/>"},
    {"Document01TextAfterTheRoot", "<r/>text"},
    {"Document01SecondRoot", "<r/><r/>"},
    {"Document01ReferenceAfterTheRoot", "<r/>&#32;"},
    {"Document01DataSectionBeforeTheRoot", "<![CDATA[x]]><r/>"},
    {"Document01DataSectionAfterTheRoot", "<r/><![CDATA[]]>"},
    {"Document01EndTagAlone", "</r>"},
    {"Document01EndTagAfterTheRoot", "<r/></r>"},
    {"Document01OtherFormat", "PK\x03\x04\x14"s},
    {"Document01Json", "{\"Catalogue\": []}"},
};

const XmlCase characters[] = {
    {"Char02Zero", "<r>\0</r>"s},
    {"Char02ZeroInAValue", "<r a='\0'/>"s},
    {"Char02ControlCharacterInText", "<r>\x01</r>"},
    {"Char02EscapeInAValue", "<r a='\x1B'/>"},
    {"Char02FormFeedBetweenAttributes", "<r a='1'\x0C b='2'/>"},
    {"Char02VerticalTabInAComment", "<r><!-- \x0B --></r>"},
    {"Char02BackspaceInAnInstruction", "<r><?p \x08?></r>"},
    {"Char02UnitSeparatorInADataSection", "<r><![CDATA[\x1F]]></r>"},
    {"Char02NoncharacterFffe", "<r>\xEF\xBF\xBE</r>"},
    {"Char02NoncharacterFfff", "<r>\xEF\xBF\xBF</r>"},
    {"Char02SurrogateInUtf8", "<r>\xED\xA0\x80</r>"},
    {"Char02BeyondUnicode", "<r>\xF4\x90\x80\x80</r>"},
    {"Utf8UndeclaredLatin1", "<r a='Ger\xE4t'/>"},
    {"Utf8ContinuationByteAlone", "<r>\x80</r>"},
    {"Utf8SequenceCutOff", "<r>\xE2\x82</r>"},
    {"Utf8SequenceCutOffByTheEnd", "<r/><!--\xE2\x82"},
    {"Utf8OverlongSlash", "<r>\xC0\xAF</r>"},
    {"Utf8OverlongInThreeBytes", "<r>\xE0\x80\xAF</r>"},
    {"Utf8ByteFf", "<r>\xFF</r>"},
    {"Utf16OddNumberOfBytes", "\xFF\xFE<\0r\0/\0>"s},
    {"Utf16LowSurrogateAlone", "\xFF\xFE<\0r\0>\0\x00\xDC<\0/\0r\0>\0"s},
    {"Utf16HighSurrogateAlone", "\xFE\xFF\0<\0r\0>\xD8\x00\0<\0/\0r\0>"s},
};

const XmlCase names[] = {
    {"Name05StartsWithADigit", "<1/>"},
    {"Name05StartsWithAHyphen", "<-r/>"},
    {"Name05StartsWithAPoint", "<.r/>"},
    {"Name05OfAnAttributeStartsWithADigit", "<r 1='x'/>"},
    {"Name05HoldsASlash", "<a/b></a/b>"},
    {"Name05HoldsAPercentSign", "<a%b/>"},
    {"Name05HoldsAMultiplicationSign", "<a\xC3\x97/>"},
    {"Name05SpaceBeforeIt", "< r/>"},
    {"Name05Missing", "<>x</>"},
};

const XmlCase literals[] = {
    {"EntityValue09LonePercentSign", withSubset("<!ENTITY e 'a % b'>")},
    {"EntityValue09LoneAmpersand", withSubset("<!ENTITY e 'a & b'>")},
    {"EntityValue09QuotesDiffer", withSubset("<!ENTITY e 'a\">")},
    {"AttValue10WithoutQuotes", "<r a=1/>"},
    {"AttValue10NotClosed", "<r a='1/>"},
    {"AttValue10QuotesDiffer", "<r a='1\"/>"},
    {"AttValue10LessThan", "<r a='1<2'/>"},
    {"AttValue10LoneAmpersand", "<r a='A & B'/>"},
    {"AttValue10AmpersandBeforeTheQuote", "<r a='A&'/>"},
    {"SystemLiteral11QuotesDiffer", "<!DOCTYPE r SYSTEM 'r.dtd\"><r/>"},
    {"SystemLiteral11Missing", "<!DOCTYPE r SYSTEM><r/>"},
    {"PubidLiteral12Brace", "<!DOCTYPE r PUBLIC '{' 'r.dtd'><r/>"},
    {"PubidLiteral12NonAsciiLetter", "<!DOCTYPE r PUBLIC '\xC3\xA4' 'r.dtd'><r/>"},
};

const XmlCase textAndComments[] = {
    {"CharData14EndOfADataSection", "<r>]]></r>"},
    {"CharData14EndOfADataSectionAfterText", "<r>a ]]]> b</r>"},
    {"CharData14LoneAmpersand", "<r>A & B</r>"},
    {"CharData14LessThan", "<r>1 < 2</r>"},
    {"Comment15TwoHyphens", "<r><!-- a -- b --></r>"},
    {"Comment15ThreeHyphensAtTheEnd", "<r><!-- a ---></r>"},
    {"Comment15NotClosed", "<r><!-- a</r>"},
    {"Comment15TooShort", "<r><!--></r>"},
    {"Comment15InATag", "<r <!-- a -->/>"},
    {"Comment15SpaceInItsStart", "<r><! -- a --></r>"},
    {"Comment15SpaceInItsEnd", "<r><!-- a -- ></r>"},
    {"Pi16NotClosed", "<r><?p a</r>"},
    {"Pi16NoSpaceAfterTheTarget", "<r><?p?a?></r>"},
    {"Pi16WithoutATarget", "<r><? a?></r>"},
    {"PiTarget17Xml", "<r><?xml a?></r>"},
    {"PiTarget17XmlInUpperCase", "<r><?XML a?></r>"},
    {"PiTarget17XmlInMixedCase", "<?Xml version='1.0'?><r/>"},
    {"PiTarget17Digit", "<r><?1 a?></r>"},
    {"CdSect18NotClosed", "<r><![CDATA[x</r>"},
    {"CdSect18InAnotherOne", "<r><![CDATA[<![CDATA[x]]>]]></r>"},
    {"CdStart19InLowerCase", "<r><![cdata[x]]></r>"},
    {"CdStart19SpaceBeforeTheBracket", "<r><![CDATA [x]]></r>"},
    {"CdEnd21SpaceBetweenTheBrackets", "<r><![CDATA[x] ]></r>"},
    {"CdEnd21OneBracket", "<r><![CDATA[x]></r>"},
};

const XmlCase declarations[] = {
    {"Prolog22DeclarationAfterASpace", " <?xml version='1.0'?><r/>"},
    {"Prolog22DeclarationAfterALineEnd", "\n<?xml version='1.0'?><r/>"},
    {"Prolog22DeclarationAfterAComment", "<!-- a --><?xml version='1.0'?><r/>"},
    {"Prolog22SecondDeclaration", "<?xml version='1.0'?><?xml version='1.0'?><r/>"},
    {"Prolog22DeclarationInTheRoot", "<r><?xml version='1.0'?></r>"},
    {"Prolog22DeclarationAfterTheRoot", "<r/><?xml version='1.0'?>"},
    {"Prolog22SecondDoctype", "<!DOCTYPE r><!DOCTYPE r><r/>"},
    {"Prolog22DoctypeInTheRoot", "<r><!DOCTYPE r></r>"},
    {"Prolog22DoctypeAfterTheRoot", "<r/><!DOCTYPE r>"},
    {"XmlDecl23WithoutAVersion", "<?xml?><r/>"},
    {"XmlDecl23EncodingWithoutAVersion", "<?xml encoding='UTF-8'?><r/>"},
    {"XmlDecl23EncodingBeforeTheVersion", "<?xml encoding='UTF-8' version='1.0'?><r/>"},
    {"XmlDecl23StandaloneBeforeTheEncoding",
     "<?xml version='1.0' standalone='yes' encoding='UTF-8'?><r/>"},
    {"XmlDecl23UnknownPart", "<?xml version='1.0' author='x'?><r/>"},
    {"XmlDecl23ClosedLikeATag", "<?xml version='1.0'><r/>"},
    {"XmlDecl23SpaceBeforeTheEnd", "<?xml version='1.0'? ><r/>"},
    {"VersionInfo24WithoutQuotes", "<?xml version=1.0?><r/>"},
    {"VersionInfo24QuotesDiffer", "<?xml version='1.0\"?><r/>"},
    {"VersionInfo24InUpperCase", "<?xml VERSION='1.0'?><r/>"},
    {"VersionInfo24Twice", "<?xml version='1.0' version='1.0'?><r/>"},
    {"Eq25Missing", "<?xml version '1.0'?><r/>"},
    {"Eq25Twice", "<r a=='1'/>"},
    {"VersionNum26Two", "<?xml version='2.0'?><r/>"},
    {"VersionNum26Letter", "<?xml version='a.0'?><r/>"},
    {"VersionNum26WithoutTheMinorNumber", "<?xml version='1.'?><r/>"},
    {"VersionNum26LetterBehind", "<?xml version='1.0a'?><r/>"},
    {"VersionNum26Empty", "<?xml version=''?><r/>"},
    {"VersionNum26SpaceBefore", "<?xml version=' 1.0'?><r/>"},
    {"SdDecl32OtherWord", "<?xml version='1.0' standalone='maybe'?><r/>"},
    {"SdDecl32InUpperCase", "<?xml version='1.0' standalone='YES'?><r/>"},
    {"EncodingDecl80WithoutQuotes", "<?xml version='1.0' encoding=UTF-8?><r/>"},
    {"EncodingDecl80NoSpaceBefore", "<?xml version='1.0'encoding='UTF-8'?><r/>"},
    {"EncName81Empty", "<?xml version='1.0' encoding=''?><r/>"},
    {"EncName81StartsWithADigit", "<?xml version='1.0' encoding='8-UTF'?><r/>"},
    {"EncName81SpaceInside", "<?xml version='1.0' encoding='UTF 8'?><r/>"},
    {"EncName81Unknown", "<?xml version='1.0' encoding='no-such-encoding'?><r/>"},
    {"EncName81Utf16OfBytes", "<?xml version='1.0' encoding='UTF-16'?><r/>"},
    {"EncName81AsciiOfALetterBeyond", "<?xml version='1.0' encoding='US-ASCII'?><r a='\xE4'/>"},
};

const XmlCase doctypes[] = {
    {"DoctypeDecl28WithoutAName", "<!DOCTYPE><r/>"},
    {"DoctypeDecl28InLowerCase", "<!doctype r><r/>"},
    {"DoctypeDecl28NoSpaceBeforeTheName", "<!DOCTYPEr><r/>"},
    {"DoctypeDecl28NotClosed", "<!DOCTYPE r [<!ELEMENT r ANY>"},
    {"DoctypeDecl28TextInTheSubset", withSubset("text")},
    {"MarkupDecl29UnknownKeyword", withSubset("<!THING r>")},
    {"MarkupDecl29ElementInTheSubset", withSubset("<r/>")},
    {"MarkupDecl29ConditionalSection", withSubset("<![INCLUDE[<!ELEMENT r ANY>]]>")},
    {"MarkupDecl29EntityPutIntoADeclaration", withSubset("<!ENTITY % p 'ANY'><!ELEMENT r %p;>")},
    {"PeBetweenDeclarationsHoldsText", withSubset("<!ENTITY % p 'text'>%p;")},
    {"PeBetweenDeclarationsHoldsHalfADeclaration",
     withSubset("<!ENTITY % p '<!ELEMENT r'>%p; ANY>")},
    {"ElementDecl45WithoutContent", withSubset("<!ELEMENT r>")},
    {"ElementDecl45InLowerCase", withSubset("<!element r ANY>")},
    {"ContentSpec46UnknownWord", withSubset("<!ELEMENT r SOME>")},
    {"Children47TwoQuantifiers", withSubset("<!ELEMENT r (a)*+>")},
    {"Children47WithoutParentheses", withSubset("<!ELEMENT r a>")},
    {"Cp48SpaceBeforeTheQuantifier", withSubset("<!ELEMENT r (a *)>")},
    {"Choice49MixedWithASequence", withSubset("<!ELEMENT r (a|b,c)>")},
    {"Choice49NotClosed", withSubset("<!ELEMENT r (a|b>")},
    {"Seq50Empty", withSubset("<!ELEMENT r ()>")},
    {"Seq50CommaAtTheEnd", withSubset("<!ELEMENT r (a,)>")},
    {"Mixed51WithoutAsterisk", withSubset("<!ELEMENT r (#PCDATA|a)>")},
    {"Mixed51DataNotFirst", withSubset("<!ELEMENT r (a|#PCDATA)*>")},
    {"Mixed51DataInASequence", withSubset("<!ELEMENT r (#PCDATA,a)*>")},
    {"AttlistDecl52WithoutAnElement", withSubset("<!ATTLIST>")},
    {"AttDef53WithoutADefault", withSubset("<!ATTLIST r a CDATA>")},
    {"AttDef53NoSpaceAfterTheType", withSubset("<!ATTLIST r a CDATA'x'>")},
    {"AttType54Unknown", withSubset("<!ATTLIST r a TEXT #IMPLIED>")},
    {"TokenizedType56InLowerCase", withSubset("<!ATTLIST r a id #IMPLIED>")},
    {"NotationType58Empty", withSubset("<!ATTLIST r a NOTATION () #IMPLIED>")},
    {"NotationType58WithoutASpace", withSubset("<!ATTLIST r a NOTATION(n) #IMPLIED>")},
    {"Enumeration59Commas", withSubset("<!ATTLIST r a (x,y) #IMPLIED>")},
    {"Enumeration59Quotes", withSubset("<!ATTLIST r a ('x') #IMPLIED>")},
    {"DefaultDecl60UnknownWord", withSubset("<!ATTLIST r a CDATA #OPTIONAL>")},
    {"DefaultDecl60FixedWithoutAValue", withSubset("<!ATTLIST r a CDATA #FIXED>")},
    {"DefaultDecl60ValueHoldsLessThan", withSubset("<!ATTLIST r a CDATA '<'>")},
    {"GeDecl71WithoutAValue", withSubset("<!ENTITY e>")},
    {"GeDecl71ValueWithoutQuotes", withSubset("<!ENTITY e x>")},
    {"GeDecl71NoSpaceBeforeTheValue", withSubset("<!ENTITY e'x'>")},
    {"PeDecl72NoSpaceAfterThePercentSign", withSubset("<!ENTITY %p 'x'>")},
    {"PeDecl72Unparsed", withSubset("<!NOTATION n SYSTEM 'n'><!ENTITY % p SYSTEM 'x' NDATA n>")},
    {"ExternalId75PublicWithoutASystemLiteral", "<!DOCTYPE r PUBLIC 'p'><r/>"},
    {"ExternalId75InLowerCase", "<!DOCTYPE r system 'r.dtd'><r/>"},
    {"NDataDecl76WithoutAName", withSubset("<!ENTITY e SYSTEM 'x' NDATA>")},
    {"NDataDecl76NoSpaceBefore", withSubset("<!ENTITY e SYSTEM 'x'NDATA n>")},
    {"NotationDecl82WithoutAnId", withSubset("<!NOTATION n>")},
    {"NotationDecl82NameMissing", withSubset("<!NOTATION SYSTEM 'x'>")},
    {"PublicId83Twice", withSubset("<!NOTATION n PUBLIC 'a' 'b' 'c'>")},
};

const XmlCase elements[] = {
    {"Element39NotClosed", "<r>"},
    {"Element39ClosedByAnother", "<a></b>"},
    {"Element39ClosedInAnotherCase", "<Device></device>"},
    {"Element39Overlapping", "<a><b></a></b>"},
    {"Element39EndTagMissing", "<a><b></a>"},
    {"STag40NotClosed", "<r"},
    {"STag40NotClosedBeforeAnother", "<r <a/></r>"},
    {"STag40NoSpaceBetweenAttributes", "<r a='1'b='2'/>"},
    {"STag40DoubledAttribute", "<r a='1' a='2'/>"},
    {"STag40DoubledAttributeInAStartTag", "<r a='1' b='2' a='1'></r>"},
    {"STag40AttributesParted", "<r a='1', b='2'/>"},
    {"Attribute41WithoutAValue", "<r a/>"},
    {"Attribute41WithoutAValueButASign", "<r a=/>"},
    {"Attribute41WithoutAName", "<r ='1'/>"},
    {"Attribute41NameInQuotes", "<r 'a'='1'/>"},
    {"ETag42WithAnAttribute", "<r></r a='1'>"},
    {"ETag42SpaceBeforeTheName", "<r></ r>"},
    {"ETag42NotClosed", "<r></r"},
    {"ETag42SlashAtTheEnd", "<r></r/>"},
    {"Content43DeclarationInside", "<r><!ELEMENT r ANY></r>"},
    {"EmptyElemTag44SpaceInTheEnd", "<r / >"},
    {"EmptyElemTag44AttributeAfterTheSlash", "<r / a='1'>"},
};

const XmlCase references[] = {
    {"CharRef66Zero", "<r>&#0;</r>"},
    {"CharRef66ControlCharacter", "<r>&#x1;</r>"},
    {"CharRef66Surrogate", "<r>&#xD800;</r>"},
    {"CharRef66Noncharacter", "<r>&#xFFFF;</r>"},
    {"CharRef66BeyondUnicode", "<r>&#x110000;</r>"},
    {"CharRef66TooLargeForAnyNumber", "<r>&#99999999999999999999;</r>"},
    {"CharRef66ZeroInAValue", "<r a='&#0;'/>"},
    {"CharRef66WithoutDigits", "<r>&#;</r>"},
    {"CharRef66WithoutHexDigits", "<r>&#x;</r>"},
    {"CharRef66HexDigitInADecimalNumber", "<r>&#1A;</r>"},
    {"CharRef66XInUpperCase", "<r>&#X20;</r>"},
    {"CharRef66WithoutASemicolon", "<r>&#32</r>"},
    {"EntityRef68WithoutASemicolon", "<r>&amp</r>"},
    {"EntityRef68SpaceBeforeTheSemicolon", "<r>&amp ;</r>"},
    {"EntityRef68SpaceBeforeTheName", "<r>& amp;</r>"},
    {"EntityRef68Unknown", "<r>&nbsp;</r>"},
    {"EntityRef68UnknownInAValue", "<r a='&auml;'/>"},
    {"EntityRef68InUpperCase", "<r>&AMP;</r>"},
    {"EntityRef68UnknownBesideADoctype", withSubset("<!ENTITY e 'x'>", "&f;")},
    {"EntityRef68UnknownInAStandaloneDocument",
     "<?xml version='1.0' standalone='yes'?><!DOCTYPE r SYSTEM 'r.dtd'><r>&e;</r>"},
    {"EntityRef68UsedBeforeItIsDeclared", withSubset("<!ATTLIST r a CDATA '&e;'><!ENTITY e 'x'>")},
    {"EntityRef68ExternalInAValue", "<!DOCTYPE r [<!ENTITY e SYSTEM 'e.xml'>]><r a='&e;'/>"},
    {"EntityRef68Unparsed",
     withSubset("<!NOTATION n SYSTEM 'n'><!ENTITY e SYSTEM 'x' NDATA n>", "&e;")},
    {"EntityRef68RefersToItself", withSubset("<!ENTITY e '&e;'>", "&e;")},
    {"EntityRef68ReferInACircle", withSubset("<!ENTITY e '&f;'><!ENTITY f '&e;'>", "&e;")},
    {"EntityRef68HoldsAStartTagAlone", withSubset("<!ENTITY e '<a>'>", "&e;</a>")},
    {"EntityRef68HoldsAnEndTagAlone", withSubset("<!ENTITY e '</a>'>", "<a>&e;")},
    {"EntityRef68HoldsTheEndOfTheRoot", withSubset("<!ENTITY e '</r><r>'>", "&e;")},
    {"EntityRef68HoldsALoneAmpersand", withSubset("<!ENTITY e '&#38;'>", "&e;")},
    {"EntityRef68PutsLessThanIntoAValue", "<!DOCTYPE r [<!ENTITY e '<'>]><r a='&e;'/>"},
    {"PeReference69InAValueOfTheSubset", withSubset("<!ENTITY % p 'x'><!ENTITY e '%p;'>")},
    {"PeReference69WithoutASemicolon", withSubset("<!ENTITY % p ''> %p ")},
    {"PeReference69RefersToItself", withSubset("<!ENTITY % p '&#37;p;'>%p;")},
};

INSTANTIATE_TEST_SUITE_P(Documents, NotWellFormed, ::testing::ValuesIn(documents),
                         caseName<::testing::TestParamInfo<XmlCase>>);
INSTANTIATE_TEST_SUITE_P(Characters, NotWellFormed, ::testing::ValuesIn(characters),
                         caseName<::testing::TestParamInfo<XmlCase>>);
INSTANTIATE_TEST_SUITE_P(Names, NotWellFormed, ::testing::ValuesIn(names),
                         caseName<::testing::TestParamInfo<XmlCase>>);
INSTANTIATE_TEST_SUITE_P(Literals, NotWellFormed, ::testing::ValuesIn(literals),
                         caseName<::testing::TestParamInfo<XmlCase>>);
INSTANTIATE_TEST_SUITE_P(TextAndComments, NotWellFormed, ::testing::ValuesIn(textAndComments),
                         caseName<::testing::TestParamInfo<XmlCase>>);
INSTANTIATE_TEST_SUITE_P(Declarations, NotWellFormed, ::testing::ValuesIn(declarations),
                         caseName<::testing::TestParamInfo<XmlCase>>);
INSTANTIATE_TEST_SUITE_P(Doctypes, NotWellFormed, ::testing::ValuesIn(doctypes),
                         caseName<::testing::TestParamInfo<XmlCase>>);
INSTANTIATE_TEST_SUITE_P(Elements, NotWellFormed, ::testing::ValuesIn(elements),
                         caseName<::testing::TestParamInfo<XmlCase>>);
INSTANTIATE_TEST_SUITE_P(References, NotWellFormed, ::testing::ValuesIn(references),
                         caseName<::testing::TestParamInfo<XmlCase>>);

}  // namespace
}  // namespace tessara
