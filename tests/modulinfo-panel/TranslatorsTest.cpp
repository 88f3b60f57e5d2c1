#include <QApplication>
#include <QFontInfo>
#include <QTranslator>

#include <gtest/gtest.h>

#include "InLanguage.h"
#include "Translators.h"
#include "base/Text.h"
#include "control/ModuleWide.h"

namespace tessara::testing {
namespace {

/// A language of the control, with the "Cancel" of Qt's dialogs.
struct LanguageOfQt {
  const char16_t* extension;
  const char* cancel;
};

class TranslatorsTest : public ::testing::TestWithParam<LanguageOfQt> {
 protected:
  TranslatorsTest() { moduleWide().LanguageFileExtension = GetParam().extension; }
  ~TranslatorsTest() override {
    qDeleteAll(QApplication::instance()->findChildren<QTranslator*>());
    QApplication::setFont(defaultFont);
    QLocale::setDefault(defaultLocale);
    moduleWide().LanguageFileExtension.clear();
  }

  QFont defaultFont = QApplication::font();
  QLocale defaultLocale;
};

INSTANTIATE_TEST_SUITE_P(
    AllEleven, TranslatorsTest,
    ::testing::Values(LanguageOfQt{u"dlg", "Abbrechen"}, LanguageOfQt{u"elg", "Cancel"},
                      LanguageOfQt{u"flg", "Annuler"}, LanguageOfQt{u"slg", "Cancelar"},
                      LanguageOfQt{u"ilg", "Annulla"}, LanguageOfQt{u"plg", "Cancelar"},
                      LanguageOfQt{u"tlg", "İptal"}, LanguageOfQt{u"rlg", "Отмена"},
                      LanguageOfQt{u"clg", "取消"}, LanguageOfQt{u"zlg", "Anuluj"},
                      LanguageOfQt{u"jlg", "キャンセル"}),
    [](const auto& language) { return toUtf8(language.param.extension); });

TEST_P(TranslatorsTest, DialogsOfQtHaveTheLanguageOfTheControl) {
  installTranslator(moduleWide());
  EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel").toStdString(),
            GetParam().cancel);
}

TEST_P(TranslatorsTest, TheProgramAndItsLocaleHaveTheLanguageOfTheControl) {
  installTranslator(moduleWide());
  EXPECT_EQ(programTitle() == "Module information",
            GetParam().extension == std::u16string_view(u"elg"));
  EXPECT_EQ(QLocale(), localeOf(moduleWide()));
}

TEST_P(TranslatorsTest, ASecondLanguageReplacesTheFirst) {
  installTranslator(moduleWide());
  moduleWide().LanguageFileExtension = u"elg";
  installTranslator(moduleWide());
  EXPECT_EQ(programTitle(), "Module information");
  EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), "Cancel");
}

TEST_P(TranslatorsTest, ChineseAndJapaneseHaveAFontOfTheirOwn) {
  installTranslator(moduleWide());
  const std::u16string language = GetParam().extension;
  const bool isEastAsian = language == u"clg" || language == u"jlg";
  EXPECT_EQ(QApplication::font() == defaultFont, !isEastAsian);
  EXPECT_EQ(QFontInfo(QApplication::font()).family(), QFontInfo(defaultFont).family());
}

}  // namespace
}  // namespace tessara::testing
