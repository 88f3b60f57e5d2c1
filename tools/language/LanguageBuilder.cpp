#include "tools/language/LanguageBuilder.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <optional>
#include <utility>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "localisation/LanguageFile.h"
#include "localisation/LanguageSections.h"
#include "tools/language/LanguageText.h"

namespace tessara {
namespace {

struct SourceSection {
  const LanguageSection* kind = nullptr;
  std::size_t line = 0;
  std::vector<std::u16string> texts;
};

/// The two parts of "3 = Gerätetyp".
struct SourceEntry {
  std::size_t index = 0;
  std::string_view text;
};

std::optional<SourceEntry> splitEntry(std::string_view line) {
  constexpr std::string_view mark = " = ";
  const auto place = line.find(mark);
  if (place == std::string_view::npos) {
    return std::nullopt;
  }
  SourceEntry entry;
  const char* end = line.data() + place;
  const auto [stop, error] = std::from_chars(line.data(), end, entry.index);
  if (error != std::errc{} || stop != end) {
    return std::nullopt;
  }
  entry.text = line.substr(place + mark.size());
  return entry;
}

/// Reads a source line by line and collects its sections.
class SourceReader {
 public:
  void take(std::string_view line) {
    ++line_;
    if (line.empty() || line.front() == '#') {
      return;
    }
    if (line.front() == '[') {
      openSection(line);
    } else {
      addEntry(line);
    }
  }

  /// Call after the last line.
  void finish() {
    for (const auto& kind : languageSections) {
      const auto* section = find(kind);
      const auto complete = completeCount(kind.header);
      if (section == nullptr) {
        line_ = 0;
        report("section " + toUtf8(kind.header) + " is missing");
      } else if (section->texts.size() < complete) {
        line_ = section->line;
        report("section " + toUtf8(kind.header) + " has " + std::to_string(section->texts.size()) +
               " of " + std::to_string(complete) + " entries");
      }
    }
  }

  [[nodiscard]] const SourceSection* find(const LanguageSection& kind) const {
    const auto found =
        std::find_if(sections_.begin(), sections_.end(),
                     [&](const SourceSection& section) { return section.kind == &kind; });
    return found == sections_.end() ? nullptr : &*found;
  }

  [[nodiscard]] std::vector<FileProblem> takeProblems() { return std::move(problems_); }

 private:
  void report(std::string message) { problems_.push_back({line_, std::move(message)}); }

  void openSection(std::string_view line) {
    const auto* kind = findLanguageSection(fromUtf8(line));
    if (kind == nullptr) {
      report("unknown section \"" + std::string(line) + "\"");
    } else if (const auto* earlier = find(*kind); earlier != nullptr) {
      report("section " + std::string(line) + " is already defined in line " +
             std::to_string(earlier->line));
      kind = nullptr;
    }
    sections_.push_back({kind, line_, {}});
  }

  void addEntry(std::string_view line) {
    const auto entry = splitEntry(line);
    if (!entry) {
      report("\"" + std::string(line) + "\" is not an entry; expected: 0 = text");
      return;
    }
    if (sections_.empty()) {
      report("entry before the first section");
      return;
    }
    auto& section = sections_.back();
    auto text = fromUtf8(entry->text);
    checkEntry(section, entry->index, text);
    section.texts.push_back(std::move(text));
  }

  void checkEntry(const SourceSection& section, std::size_t index, std::u16string_view text) {
    if (index != section.texts.size()) {
      report("entry " + std::to_string(index) + " found where entry " +
             std::to_string(section.texts.size()) + " was expected");
    }
    if (text.empty()) {
      report("entry " + std::to_string(index) + " has no text");
    }
    if (std::any_of(text.begin(), text.end(), isUnfit)) {
      report("entry " + std::to_string(index) + " contains a control character or invalid UTF-8");
    }
    if (section.kind != nullptr && section.texts.size() == section.kind->slots) {
      report("section " + toUtf8(section.kind->header) + " has room for " +
             std::to_string(section.kind->slots) + " entries");
    }
  }

  std::size_t line_ = 0;
  std::vector<SourceSection> sections_;
  std::vector<FileProblem> problems_;
};

void appendLine(std::string& bytes, std::u16string_view line) {
  for (const char16_t unit : std::u16string(line) + u"\r\n") {
    bytes += static_cast<char>(unit & 0xFFU);
    bytes += static_cast<char>(unit >> 8U);
  }
}

std::string languageFileOf(const SourceReader& source) {
  std::string bytes = "\xFF\xFE";
  for (const auto& kind : languageSections) {
    const auto& texts = source.find(kind)->texts;
    appendLine(bytes, kind.header);
    appendLine(bytes, decimalText(std::uint64_t{texts.size()}));
    for (const auto& text : texts) {
      appendLine(bytes, text);
    }
  }
  return bytes;
}

}  // namespace

BuiltLanguage buildLanguage(std::string_view source) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  if (source.starts_with(byteOrderMark)) {
    source.remove_prefix(byteOrderMark.size());
  }
  SourceReader reader;
  while (!source.empty()) {
    auto line = source.substr(0, source.find('\n'));
    source.remove_prefix(std::min(source.size(), line.size() + 1));
    if (line.ends_with('\r')) {
      line.remove_suffix(1);
    }
    reader.take(line);
  }
  reader.finish();
  BuiltLanguage built;
  built.problems = reader.takeProblems();
  if (built.problems.empty()) {
    built.bytes = languageFileOf(reader);
  }
  return built;
}

std::vector<FileProblem> buildLanguageFile(const std::filesystem::path& source,
                                           const std::filesystem::path& out) {
  BuiltLanguage built;
  try {
    built = buildLanguage(LanguageFile::open(source).bytes());
  } catch (const RunTimeError& error) {
    return {{0, error.what()}};
  }
  if (!built.problems.empty()) {
    return built.problems;
  }
  std::ofstream file(out, std::ios::binary);
  file << built.bytes << std::flush;
  if (!file) {
    return {{0, out.string() + " cannot be written"}};
  }
  return {};
}

}  // namespace tessara
