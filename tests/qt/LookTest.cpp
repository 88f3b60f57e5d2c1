#include <QFontInfo>
#include <QGlyphRun>
#include <QRawFont>
#include <QTextLayout>
#include <cmath>

#include "QtTest.h"
#include "control/ModuleWide.h"
#include "qt/Look.h"

namespace tessara::testing {
namespace {

double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
  const double a = luminance(one);
  const double b = luminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

class LookTest : public ::testing::TestWithParam<bool> {
 protected:
  LookTest() {
    if (GetParam()) {
      panel.setPalette(darkPalette());
    }
  }

  QWidget panel;
};

INSTANTIATE_TEST_SUITE_P(LightAndDark, LookTest, ::testing::Values(false, true));

TEST_P(LookTest, RecognisesADarkPalette) {
  EXPECT_EQ(Look::of(panel, 1).dark, GetParam());
}

TEST_P(LookTest, IsReadable) {
  const Look look = Look::of(panel, 1);
  EXPECT_GE(contrast(look.text, look.card), 10);
  EXPECT_GE(contrast(look.caption, look.card), 4.5);
  EXPECT_GE(contrast(look.caption, look.raised), 4.5);
  EXPECT_GE(contrast(look.accent, look.card), 4.5);
}

TEST_P(LookTest, EnabledPicturesContrastMoreThanDisabledOnes) {
  const Look look = Look::of(panel, 1);
  const Inks enabled = look.inks(true);
  const Inks disabled = look.inks(false);
  EXPECT_GE(contrast(enabled.line, look.raised), 7);
  EXPECT_GE(contrast(enabled.accent, look.raised), 4.5);
  EXPECT_LE(contrast(disabled.line, look.card), 2.6);
  EXPECT_EQ(disabled.line, disabled.accent);
}

TEST_P(LookTest, TextGrowsWithThePanel) {
  EXPECT_DOUBLE_EQ(Look::of(panel, 2).valueFont.pointSizeF(),
                   2 * Look::of(panel, 1).valueFont.pointSizeF());
}

/// The family of the font from which a character is drawn that both languages write.
QString familyOfSharedCharacter(const QFont& font) {
  QTextLayout layout(QStringLiteral("\u7aef"), font);
  layout.beginLayout();
  layout.createLine();
  layout.endLayout();
  const auto runs = layout.glyphRuns();
  return runs.isEmpty() ? QString() : runs.first().rawFont().familyName();
}

// A size each, because Qt remembers for a size of a font which other fonts it has fallen back on.
TEST(LookOfLanguage, DrawsChineseFromAChineseFont) {
  const QWidget panel;
  moduleWide().LanguageFileExtension = u"clg";
  EXPECT_EQ(familyOfSharedCharacter(Look::of(panel, 2).valueFont), u"WenQuanYi Micro Hei");
}

TEST(LookOfLanguage, DrawsJapaneseFromAJapaneseFont) {
  const QWidget panel;
  moduleWide().LanguageFileExtension = u"jlg";
  EXPECT_EQ(familyOfSharedCharacter(Look::of(panel, 3).valueFont), u"VL PGothic");
}

TEST(LookOfLanguage, DrawsLatinLettersFromTheFontOfTheSystem) {
  const QWidget panel;
  const QString own = QFontInfo(panel.font()).family();
  for (const char16_t* language : {u"dlg", u"clg", u"jlg"}) {
    moduleWide().LanguageFileExtension = language;
    EXPECT_EQ(QFontInfo(Look::of(panel, 1).valueFont).family(), own);
  }
}

}  // namespace
}  // namespace tessara::testing
