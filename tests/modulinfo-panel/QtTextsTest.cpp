#include <QApplication>
#include <QFontInfo>
#include <QTranslator>

#include <gtest/gtest.h>

#include "QtTexts.h"
#include "base/Text.h"
#include "control/ModuleWide.h"

namespace tessara::testing {
namespace {

/// A language of the control, and what it calls the button that leaves a dialog.
struct Spoken {
  const char16_t* extension;
  const char* cancel;
};

class QtTextsTest : public ::testing::TestWithParam<Spoken> {
 protected:
  QtTextsTest() { moduleWide().LanguageFileExtension = GetParam().extension; }
  ~QtTextsTest() override {
    qDeleteAll(QApplication::instance()->findChildren<QTranslator*>());
    QApplication::setFont(usual);
    moduleWide().LanguageFileExtension.clear();
  }

  QFont usual = QApplication::font();
};

INSTANTIATE_TEST_SUITE_P(AllEleven, QtTextsTest,
                         ::testing::Values(Spoken{u"dlg", "Abbrechen"}, Spoken{u"elg", "Cancel"},
                                           Spoken{u"flg", "Annuler"}, Spoken{u"slg", "Cancelar"},
                                           Spoken{u"ilg", "Annulla"}, Spoken{u"plg", "Cancelar"},
                                           Spoken{u"tlg", "İptal"}, Spoken{u"rlg", "Отмена"},
                                           Spoken{u"clg", "取消"}, Spoken{u"zlg", "Anuluj"},
                                           Spoken{u"jlg", "キャンセル"}),
                         [](const auto& spoken) { return toUtf8(spoken.param.extension); });

TEST_P(QtTextsTest, DialogsOfQtSpeakTheLanguageOfTheControl) {
  speakLanguageOf(moduleWide());
  EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel").toStdString(),
            GetParam().cancel);
}

TEST_P(QtTextsTest, WindowsOfEastAsiaHaveAFontOfTheirOwn) {
  speakLanguageOf(moduleWide());
  const std::u16string language = GetParam().extension;
  const bool isEastAsian = language == u"clg" || language == u"jlg";
  EXPECT_EQ(QApplication::font() == usual, !isEastAsian);
  EXPECT_EQ(QFontInfo(QApplication::font()).family(), QFontInfo(usual).family());
}

}  // namespace
}  // namespace tessara::testing
