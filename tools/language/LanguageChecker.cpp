#include "tools/language/LanguageChecker.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "base/Variant.h"
#include "localisation/Language.h"
#include "localisation/LanguageFile.h"
#include "localisation/LanguageSections.h"
#include "tools/language/LanguageText.h"

namespace tessara {
namespace {

/// Counts in the files are plain digits, so the decimal separator does not matter here.
constexpr std::u16string_view separator = u".";

std::string inQuotes(std::u16string_view text) {
  return "\"" + visible(text) + "\"";
}

/// True for a line that was meant as a header but is not one for the control.
bool looksLikeHeader(std::u16string_view line) {
  return std::any_of(
      languageSections.begin(), languageSections.end(),
      [&](const LanguageSection& section) { return containsIgnoringCase(line, section.header); });
}

/// Reads a file line by line as the control does, and reports what it finds.
class LanguageWalk {
 public:
  LanguageWalk(const std::string& bytes, LanguageReport& report)
      : bytes_(bytes), file_(bytes), report_(report) {}

  void run() {
    checkEncoding();
    try {
      (void)file_.readUnit();
      do {
        const auto line = read();
        if (const auto* section = findLanguageSection(line); section != nullptr) {
          readSection(*section);
        } else {
          ignore(line);
        }
      } while (!file_.atEnd());
    } catch (const RunTimeError& error) {
      problem(error.what());
    }
    checkCompleteness();
  }

 private:
  void problem(std::string message, std::size_t line) {
    report_.problems.push_back({line, std::move(message)});
  }
  void problem(std::string message) { problem(std::move(message), line_); }

  void checkEncoding() {
    if (!bytes_.starts_with("\xFF\xFE")) {
      problem(
          "the file does not start with the byte order mark FF FE: it is not UTF-16 little-endian, "
          "or "
          "its first character is skipped in place of the mark",
          0);
    }
  }

  std::u16string read() {
    const auto start = file_.position();
    line_ = nextLine_;
    auto line = ReadLanguageLine(file_);
    const auto end = file_.position();
    for (auto place = start; place < end; place += 2) {
      nextLine_ += unitAt(place) == u'\n' ? 1 : 0;
    }
    const bool ended = end - start > line.size() * 2;
    if (ended && unitAt(end - 2) != u'\n') {
      problem("CR is not followed by LF; the character after it is lost");
    }
    if (line.starts_with(u"\r\n")) {
      problem("blank line: its CR LF becomes the start of the next line, which reads " +
              inQuotes(line));
    } else if (std::any_of(line.begin(), line.end(), isUnfit)) {
      problem("the line contains control characters or damaged text: " + inQuotes(line));
    }
    return line;
  }

  [[nodiscard]] char16_t unitAt(std::size_t place) const {
    return static_cast<char16_t>(static_cast<unsigned char>(bytes_[place]) |
                                 (static_cast<unsigned char>(bytes_[place + 1]) << 8U));
  }

  void readSection(const LanguageSection& section) {
    noteRepetition(section);
    report_.sections.push_back({std::u16string(section.header), line_, 0, {}});
    auto& found = report_.sections.back();
    const auto count = read();
    found.count = toInt16(Variant{count}, separator);
    const bool isTitle = section.header == titleHeader;
    if (isTitle ? found.count != 1 : found.count < 0) {
      problem("invalid number of texts " + inQuotes(count) + " in section " +
              toUtf8(section.header) + "; the control refuses the file");
    }
    const auto lines = static_cast<std::size_t>(isTitle ? 1 : std::max<int>(found.count, 0));
    while (found.texts.size() < lines) {
      auto text = read();
      checkText(section, found.texts.size(), text);
      found.texts.push_back(std::move(text));
    }
  }

  void checkText(const LanguageSection& section, std::size_t index, std::u16string_view text) {
    if (index >= section.slots) {
      throw RunTimeError(ErrorNumber::Subscript, "section " + toUtf8(section.header) +
                                                     " has room for " +
                                                     std::to_string(section.slots) + " texts");
    }
    if (findLanguageSection(text) != nullptr) {
      problem("the header " + toUtf8(text) + " is read as text " + std::to_string(index) + " of " +
              toUtf8(section.header) + ", which announces more texts than it has");
    }
  }

  void noteRepetition(const LanguageSection& section) {
    for (const auto& earlier : report_.sections) {
      if (earlier.header == section.header) {
        problem("section " + toUtf8(section.header) + " overwrites the one in line " +
                std::to_string(earlier.line));
        return;
      }
    }
  }

  void ignore(std::u16string_view line) {
    if (looksLikeHeader(line)) {
      problem("not a valid header, so its section is ignored: " + inQuotes(line));
    } else {
      report_.ignored.push_back({line_, "ignored: " + visible(line)});
    }
  }

  void checkCompleteness() {
    for (const auto& section : languageSections) {
      std::size_t texts = 0;
      for (const auto& found : report_.sections) {
        texts = found.header == section.header ? std::max(texts, found.texts.size()) : texts;
      }
      const auto complete = completeCount(section.header);
      if (texts < complete) {
        problem("section " + toUtf8(section.header) + " has " + std::to_string(texts) + " of " +
                    std::to_string(complete) + " texts; the others stay empty",
                0);
      }
    }
  }

  const std::string& bytes_;
  LanguageFile file_;
  LanguageReport& report_;
  std::size_t line_ = 1;
  std::size_t nextLine_ = 1;
};

constexpr const char* fallsBack =
    "cannot be used; the control falls back to its built-in German texts";

std::string stopsStartUp(const RunTimeError& error) {
  return "stops the start-up of the control with error " +
         std::to_string(static_cast<int>(error.number())) + ": " + error.what();
}

/// How the control itself reads the file.
std::string verdictOn(const std::string& bytes) {
  LanguageFile file(bytes);
  LanguageState state;
  try {
    return readLanguageFile(file, separator, state) ? "loads" : fallsBack;
  } catch (const RunTimeError& error) {
    return stopsStartUp(error);
  }
}

/// The highest language number with a file of its own.
constexpr std::int16_t languages = 11;

std::int16_t languageNamed(const std::filesystem::path& file) {
  for (std::int16_t number = 1; number <= languages; ++number) {
    if (toUtf8(filesOfLanguage(number).languageFile) == file.filename().string()) {
      return number;
    }
  }
  return 0;
}

}  // namespace

LanguageReport checkLanguage(const std::string& bytes) {
  LanguageReport report;
  report.verdict = verdictOn(bytes);
  LanguageWalk(bytes, report).run();
  return report;
}

LanguageReport checkLanguageFile(const std::filesystem::path& path) {
  LanguageReport report;
  try {
    report = checkLanguage(LanguageFile::open(path).bytes());
  } catch (const RunTimeError& error) {
    report.verdict = std::filesystem::is_regular_file(path) ? stopsStartUp(error) : fallsBack;
    report.problems.push_back({0, error.what()});
  }
  report.language = languageNamed(path);
  return report;
}

}  // namespace tessara
