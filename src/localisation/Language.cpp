#include "localisation/Language.h"

#include <array>
#include <string>
#include <utility>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "base/Variant.h"
#include "localisation/LanguageFile.h"
#include "localisation/LanguageSections.h"

namespace tessara {
namespace {

/// English, which stands in for every unknown language.
constexpr std::int16_t defaultLanguage = 2;
constexpr std::u16string_view germanHelp = u"Help_049.chm";
constexpr std::u16string_view englishHelp = u"Help_001.chm";

/// In the order of the language numbers, from 1 on.
constexpr std::array<LanguageFiles, 11> filesByLanguage{{
    {u"MERIDEX_CONF.dlg", germanHelp},
    {u"MERIDEX_CONF.elg", englishHelp},
    {u"MERIDEX_CONF.flg", englishHelp},
    {u"MERIDEX_CONF.slg", englishHelp},
    {u"MERIDEX_CONF.ilg", englishHelp},
    {u"MERIDEX_CONF.plg", englishHelp},
    {u"MERIDEX_CONF.tlg", englishHelp},
    {u"MERIDEX_CONF.rlg", englishHelp},
    {u"MERIDEX_CONF.clg", englishHelp},
    {u"MERIDEX_CONF.zlg", englishHelp},
    {u"MERIDEX_CONF.jlg", englishHelp},
}};

/// Runs `read` and adds the place to the message of an error.
template <typename Read>
bool readWithin(const std::string& place, Read read) {
  try {
    return read();
  } catch (const RunTimeError& error) {
    throw RunTimeError(error.number(), place + ": " + error.what());
  }
}

/// Reads the rest of a section into its table; true if it has as many texts as it announces. The
/// title is one line whatever is announced; a negative number never matches.
bool readSection(const LanguageSection& section, LanguageFile& file, std::u16string_view separator,
                 LanguageState& state) {
  const auto count = toInt16(Variant{ReadLanguageLine(file)}, separator);
  const std::int16_t lines = section.header == titleHeader ? std::int16_t{1} : count;
  std::int16_t stored = 0;
  while (stored < lines) {
    auto text = ReadLanguageLine(file);
    section.entry(state, static_cast<std::size_t>(stored)) = std::move(text);
    ++stored;
  }
  return stored == count;
}

}  // namespace

const LanguageFiles& filesOfLanguage(std::int32_t language) {
  const bool known = language >= 1 && language <= static_cast<std::int32_t>(filesByLanguage.size());
  return filesByLanguage.at(static_cast<std::size_t>((known ? language : defaultLanguage) - 1));
}

std::int16_t languageOfCountry(std::int32_t countryCode) {
  switch (countryCode) {
    case 33:
      return 3;
    case 34:
      return 4;
    case 43:
    case 49:
      return 1;
    default:
      return defaultLanguage;
  }
}

std::int32_t GetSystemCountryCode(const Locale& locale) {
  const auto size = locale.countryCodeSize();
  if (size <= 0) {
    return 0;
  }
  const auto buffer = locale.countryCode(size);
  if (!buffer) {
    return 0;
  }
  return toInt32(Variant{buffer->substr(0, buffer->find(u'\0'))}, locale.decimalSeparator());
}

bool LoadLanguageFile(const std::u16string& appPath, std::int16_t language, const FileSystem& files,
                      const Locale& locale, LanguageState& state) {
  const auto& chosen =
      filesOfLanguage(language != 0 ? language : languageOfCountry(GetSystemCountryCode(locale)));
  state.HelpFileName = chosen.helpFile;
  state.LanguageFileExtension = chosen.languageFile.substr(chosen.languageFile.size() - 3);
  const auto path = files.BuildPath(appPath, std::u16string(chosen.languageFile));
  if (!files.FileExists(path)) {
    state.LanguageFileError = true;
    return false;
  }
  const auto name = toUtf8(path);
  return readWithin(name, [&] {
    auto file = LanguageFile::open(std::u8string(name.begin(), name.end()));
    return readLanguageFile(file, locale.decimalSeparator(), state);
  });
}

bool readLanguageFile(LanguageFile& file, std::u16string_view separator, LanguageState& state) {
  (void)file.readUnit();
  state.LanguageFileError = false;
  do {
    const auto* section = findLanguageSection(ReadLanguageLine(file));
    if (section != nullptr && !readWithin("section " + toUtf8(section->header), [&] {
          return readSection(*section, file, separator, state);
        })) {
      state.LanguageFileError = true;
    }
  } while (!file.atEnd());
  return !state.LanguageFileError;
}

}  // namespace tessara
