#include "linux/SettingsFormat.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>

#include <glib.h>

namespace tessara {

namespace {

using GlibText = std::unique_ptr<char, decltype(&g_free)>;

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
/// How the lines begin that GKeyFile takes for comments: those that stay where they are, those that
/// stand above the group that they follow, and those at the end of their group.
constexpr std::string_view keptLine = "#;";
constexpr std::string_view lineAboveGroup = "#^";
constexpr std::string_view lineBelowGroup = "#$";

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\v\f";
  const auto start = text.find_first_not_of(blanks);
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(blanks) - start + 1);
}

std::vector<std::string_view> linesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    lines.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

void appendLine(std::string& text, std::string_view prefix, std::string_view line) {
  text.append(prefix).append(line).append("\n");
}

/// Names with brackets are translations to GKeyFile, and it insists on one Encoding. No setting
/// has such a name.
bool hasNameForGlib(std::string_view name) {
  return name.find_first_of("[]") == std::string_view::npos && name != "Encoding";
}

bool isControl(char character) {
  return static_cast<unsigned char>(character) < ' ' || character == '\x7F';
}

bool isGroupNameForGlib(std::string_view name) {
  return name.find_first_of("[]") == std::string_view::npos &&
         std::none_of(name.begin(), name.end(), isControl);
}

/// Writes the lines of one file down for GKeyFile.
class FormatReader {
 public:
  /// Throws std::runtime_error for a line that is not part of an INI file.
  void take(std::string_view line) {
    ++number_;
    if (g_utf8_validate_len(line.data(), line.size(), nullptr) == FALSE) {
      throw std::runtime_error(problem("this is not text in UTF-8"));
    }
    if (line.ends_with('\r')) line.remove_suffix(1);
    const std::string_view content = trimmed(line);
    if (content.empty() || content.front() == ';' || content.front() == '#') {
      pending_.push_back(line);
    } else if (content.front() == '[') {
      takeGroup(content);
    } else {
      takeValue(line, content);
    }
  }

  KeyFileText finished() && {
    appendPending(group_ ? lineBelowGroup : keptLine);
    return {std::move(text_), std::move(skipped_)};
  }

 private:
  [[nodiscard]] std::string problem(const std::string& what) const {
    return "line " + std::to_string(number_) + ": " + what;
  }
  [[nodiscard]] std::string problem(std::string_view line, const char* what) const {
    return problem('"' + std::string(line) + "\" " + what);
  }

  void takeGroup(std::string_view line) {
    if (!line.ends_with(']')) throw std::runtime_error(problem(line, "lacks the closing ]"));
    const std::string_view name = trimmed(line.substr(1, line.size() - 2));
    if (name.empty()) throw std::runtime_error(problem("a group without a name"));
    if (!isGroupNameForGlib(name)) {
      throw std::runtime_error(problem(line, "has a bracket or control character in its name"));
    }
    group_ = decodedName(name);
    beginGroup(line);
  }

  void takeValue(std::string_view line, std::string_view content) {
    const auto equals = content.find('=');
    const std::string_view name = trimmed(content.substr(0, equals));
    if (equals == std::string_view::npos || name.empty()) {
      passOver(line, problem(content, "is neither [group] nor name=value"));
    } else if (hasNameForGlib(name)) {
      if (!group_) {
        group_ = "";
        beginGroup("[General]");
      }
      appendPending(keptLine);
      appendLine(text_, "", content);
    } else {
      pending_.push_back(line);
    }
  }

  void passOver(std::string_view line, const std::string& problem) {
    if (group_ != portsGroup) throw std::runtime_error(problem);
    skipped_.push_back(problem);
    pending_.push_back(line);
  }

  void beginGroup(std::string_view line) {
    appendLine(text_, "", line);
    appendPending(lineAboveGroup);
  }

  void appendPending(std::string_view prefix) {
    for (const std::string_view line : pending_) appendLine(text_, prefix, line);
    pending_.clear();
  }

  int number_ = 0;
  std::string text_;
  /// The name of the current group; nothing before the first.
  std::optional<std::string> group_;
  /// The lines since the last value or group.
  std::vector<std::string_view> pending_;
  std::vector<std::string> skipped_;
};

/// Puts the lines of GKeyFile's text back to where they stood in the file.
class FormatWriter {
 public:
  void take(std::string_view line) {
    if (line.empty()) return;  // GKeyFile's own, between groups; those of the file are kept lines
    if (line.front() == '[') {
      finishGroup();
      groupLine_ = line;
    } else if (line.starts_with(lineAboveGroup) && !groupLine_.empty()) {
      appendLine(above_, "", line.substr(lineAboveGroup.size()));
    } else if (line.starts_with(lineBelowGroup)) {
      appendLine(below_, "", line.substr(lineBelowGroup.size()));
    } else {
      finishGroupLine();
      appendLine(file_, "", line.front() == '#' ? line.substr(keptLine.size()) : line);
    }
  }

  std::string finished() && {
    finishGroup();
    return std::move(file_);
  }

 private:
  void finishGroup() {
    finishGroupLine();
    file_ += below_;
    below_.clear();
  }

  void finishGroupLine() {
    if (groupLine_.empty()) return;
    file_ += above_.empty() && !file_.empty() ? "\n" : above_;
    appendLine(file_, "", groupLine_);
    groupLine_ = {};
    above_.clear();
  }

  std::string file_;
  /// The line of the group that is about to begin, with the lines above it.
  std::string_view groupLine_;
  std::string above_;
  /// The lines at the end of the current group.
  std::string below_;
};

}  // namespace

KeyFileText toKeyFile(std::string_view file) {
  if (file.starts_with(byteOrderMark)) file.remove_prefix(byteOrderMark.size());
  FormatReader reader;
  for (const std::string_view line : linesOf(file)) reader.take(line);
  return std::move(reader).finished();
}

std::string fromKeyFile(std::string_view text) {
  FormatWriter writer;
  for (const std::string_view line : linesOf(text)) writer.take(line);
  return std::move(writer).finished();
}

std::string decodedName(std::string_view name) {
  std::string raw(trimmed(name));
  std::replace(raw.begin(), raw.end(), '\\', '/');
  const GlibText decoded(g_uri_unescape_string(raw.c_str(), nullptr), g_free);
  const bool isText = decoded && g_utf8_validate(decoded.get(), -1, nullptr) != FALSE;
  return isText ? decoded.get() : raw;
}

std::string encodedName(const std::string& name) {
  const GlibText escaped(g_uri_escape_string(name.c_str(), "/", FALSE), g_free);
  std::string encoded = escaped.get();
  std::replace(encoded.begin(), encoded.end(), '/', '\\');
  return encoded;
}

}  // namespace tessara
