#include "words/PanelLanguage.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <stdexcept>

namespace tessara {
namespace {

struct LanguageLocale {
  /// The first letter of the language file's extension.
  char16_t letter;
  const char* locale;
};

constexpr std::array<LanguageLocale, 11> languageLocales{{
    {u'd', "de_DE"},
    {u'e', "en_GB"},
    {u'f', "fr_FR"},
    {u's', "es_ES"},
    {u'i', "it_IT"},
    {u'p', "pt_PT"},
    {u't', "tr_TR"},
    {u'r', "ru_RU"},
    {u'c', "zh_CN"},
    {u'z', "pl_PL"},
    {u'j', "ja_JP"},
}};

constexpr auto german = "de_DE";
constexpr auto english = "en_GB";

const char* localeName(const LanguageState& state) {
  if (state.LanguageFileError) {
    return german;
  }
  const auto* found = std::find_if(
      languageLocales.begin(), languageLocales.end(), [&](const LanguageLocale& language) {
        return state.LanguageFileExtension.starts_with(language.letter);
      });
  return found == languageLocales.end() ? english : found->locale;
}

}  // namespace

QLocale localeOf(const LanguageState& state) {
  QLocale locale(localeName(state));
  locale.setNumberOptions(QLocale::OmitGroupSeparator);
  return locale;
}

std::unique_ptr<QTranslator> translatorFor(const QLocale& locale) {
  if (locale.language() == QLocale::English) {
    return nullptr;
  }
  auto translator = std::make_unique<QTranslator>();
  if (!translator->load(locale, "modulinfo-panel", "_", ":/translations")) {
    throw std::runtime_error("no translation of modulinfo-panel for " +
                             locale.name().toStdString());
  }
  return translator;
}

QString programTitle() {
  //: The program's name in the titles of its windows
  return QCoreApplication::translate("Program", "Module information");
}

}  // namespace tessara
