#include "languagetool/LanguageCommand.h"

#include <algorithm>
#include <ostream>

#include "languagetool/LanguageBuilder.h"
#include "languagetool/LanguageChecker.h"
#include "localisation/Language.h"
#include "platform/Text.h"

namespace tessara {
namespace {

constexpr int good = 0;
constexpr int problemsFound = 1;
constexpr int wrongUsage = 2;

void writeSection(const SectionReport& section, std::ostream& out) {
  out << "  " << toUtf8(section.header) << ", line " << section.line << ": " << section.texts.size()
      << " of " << section.count << " texts\n";
  for (std::size_t i = 0; i < section.texts.size(); ++i) {
    out << (i < 10 ? "     " : "    ") << i << "  " << visible(section.texts[i]) << '\n';
  }
}

std::string placeOf(std::int16_t language) {
  if (language == 0) {
    return "no language has a file of this name";
  }
  return "language " + std::to_string(language) + ", help file " +
         toUtf8(filesOfLanguage(language).helpFile);
}

int check(const std::string& file, std::ostream& out) {
  const auto report = checkLanguageFile(file);
  out << file << ": " << report.verdict << '\n' << "  " << placeOf(report.language) << '\n';
  for (const auto& section : report.sections) {
    writeSection(section, out);
  }
  for (const auto& line : report.passedOver) {
    out << toLine(file, line) << '\n';
  }
  for (const auto& problem : report.problems) {
    out << toLine(file, problem) << '\n';
  }
  return report.problems.empty() ? good : problemsFound;
}

int build(const std::string& source, const std::string& result, std::ostream& err) {
  const auto problems = buildLanguageFile(source, result);
  for (const auto& problem : problems) {
    err << toLine(source, problem) << '\n';
  }
  return problems.empty() ? good : problemsFound;
}

}  // namespace

int runLanguageCommand(const std::vector<std::string>& arguments, std::ostream& out,
                       std::ostream& err) {
  const std::string command = arguments.empty() ? "" : arguments.front();
  if (command == "check" && arguments.size() >= 2) {
    int code = good;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
      code = std::max(code, check(arguments[i], out));
    }
    return code;
  }
  if (command == "build" && arguments.size() == 3) {
    return build(arguments[1], arguments[2], err);
  }
  err << "usage: language check FILE...\n"
         "       language build SOURCE OUT\n";
  return wrongUsage;
}

}  // namespace tessara
