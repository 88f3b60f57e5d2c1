#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "localisation/LanguageState.h"
#include "platform/FileSystem.h"
#include "platform/Locale.h"

namespace tessara {

class LanguageFile;

/// The two files that belong to a language, without their folder.
struct LanguageFiles {
  std::u16string_view languageFile;
  std::u16string_view helpFile;
};

/// The files of a language number: 1 German, 2 English, 3 French, 4 Spanish, 5 Italian,
/// 6 Portuguese, 7 Turkish, 8 Russian, 9 Chinese, 10 Polish, 11 Japanese; any other is English.
const LanguageFiles& filesOfLanguage(std::int32_t language);

/// The language number that a telephone country code stands for: France 33, Spain 34, Austria 43
/// and Germany 49 have their own, all other countries English.
std::int16_t languageOfCountry(std::int32_t countryCode);

/// The telephone country code of the system: 49 for Germany, 1 for the United States; 0 when there
/// is none to be had. A code that holds no number is a type mismatch (error 13).
std::int32_t GetSystemCountryCode(const Locale& locale);

/// Picks the file of `language` in the folder `appPath` (0 lets the country of the system decide)
/// and reads it into the texts of `state`, with the help file fixed at the same time.
///
/// False if the file is missing or a count in it is wrong but harmless; the caller then tells the
/// user and falls back on LoadDefaultTexts. A damaged file is an error: a count that is no number
/// (13) or above 32767 (6), more texts than the table has slots (9), an end before the last text is
/// read (62), a file that cannot be opened or is far too long (75). Texts read so far stay,
/// whatever the outcome.
bool LoadLanguageFile(const std::u16string& appPath, std::int16_t language, const FileSystem& files,
                      const Locale& locale, LanguageState& state);

/// Reads an opened file into the texts of `state`; the part of LoadLanguageFile behind the opening,
/// with the same results. `separator` is the system's decimal separator.
bool readLanguageFile(LanguageFile& file, std::u16string_view separator, LanguageState& state);

}  // namespace tessara
