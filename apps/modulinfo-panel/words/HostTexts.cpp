#include "words/HostTexts.h"

#include <algorithm>
#include <array>

#include "qt/QtText.h"

namespace tessara {
namespace {

/// What there is to know of a language.
struct Speech {
  /// The first letter of the language file's extension.
  char16_t letter;
  const char* locale;
  const HostWords& words;
};

/// In the order of HostTexts::Language.
constexpr std::array<Speech, 11> speeches{{
    {u'd', "de_DE", germanWords},
    {u'e', "en_GB", englishWords},
    {u'f', "fr_FR", frenchWords},
    {u's', "es_ES", spanishWords},
    {u'i', "it_IT", italianWords},
    {u'p', "pt_PT", portugueseWords},
    {u't', "tr_TR", turkishWords},
    {u'r', "ru_RU", russianWords},
    {u'c', "zh_CN", chineseWords},
    {u'z', "pl_PL", polishWords},
    {u'j', "ja_JP", japaneseWords},
}};

const Speech& speechOf(HostTexts::Language language) {
  return speeches.at(static_cast<std::size_t>(language));
}

}  // namespace

HostTexts HostTexts::beside(const LanguageState& state) {
  if (state.LanguageFileError) {
    return HostTexts(Language::German);
  }
  const auto* found = std::find_if(speeches.begin(), speeches.end(), [&](const Speech& speech) {
    return state.LanguageFileExtension.starts_with(speech.letter);
  });
  return found == speeches.end() ? HostTexts()
                                 : HostTexts(static_cast<Language>(found - speeches.begin()));
}

QLocale HostTexts::locale() const {
  QLocale locale(speechOf(language_).locale);
  locale.setNumberOptions(QLocale::OmitGroupSeparator);
  return locale;
}

QString HostTexts::operator()(Word word) const {
  return toQt(speechOf(language_).words.at(static_cast<std::size_t>(word)));
}

QString HostTexts::operator()(Word word, const QStringList& arguments) const {
  const QString text = (*this)(word);
  QString filled;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const int place = text[i] == '%' && i + 1 < text.size() ? text[i + 1].digitValue() : -1;
    if (place >= 1 && place <= arguments.size()) {
      filled += arguments[place - 1];
      ++i;
    } else {
      filled += text[i];
    }
  }
  return filled;
}

}  // namespace tessara
