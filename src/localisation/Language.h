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

/// The language number for a telephone country code: French for 33 (France), Spanish for 34
/// (Spain), German for 43 (Austria) and 49 (Germany), English for all others.
std::int16_t languageOfCountry(std::int32_t countryCode);

/// The telephone country code of the system: 49 for Germany, 1 for the United States; 0 if
/// the system has none. A code that is not a number is a type mismatch (error 13).
std::int32_t GetSystemCountryCode(const Locale& locale);

/// Selects the file of `language` in the folder `appPath` (0: by the country of the system), reads
/// it into the texts of `state` and sets the help file to match.
///
/// False if the file is missing or a count in it is wrong but harmless; the caller then informs the
/// user and falls back to LoadDefaultTexts. A damaged file is an error: a count that is not a
/// number (13) or above 32767 (6), more texts than the table has slots (9), an end before the last
/// text (62), a file that cannot be opened or is far too long (75). Texts read so far stay in every
/// case.
bool LoadLanguageFile(const std::u16string& appPath, std::int16_t language, const FileSystem& files,
                      const Locale& locale, LanguageState& state);

/// Reads an open file into the texts of `state`: LoadLanguageFile after opening, with the same
/// results. `separator` is the system's decimal separator.
bool readLanguageFile(LanguageFile& file, std::u16string_view separator, LanguageState& state);

}  // namespace tessara
