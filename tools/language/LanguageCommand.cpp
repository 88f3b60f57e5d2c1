#include "tools/language/LanguageCommand.h"

#include <ostream>

#include "base/Text.h"
#include "localisation/Language.h"
#include "tools/language/LanguageBuilder.h"
#include "tools/language/LanguageChecker.h"
#include "tools/language/LanguageText.h"

namespace tessara {
namespace {

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

bool checkOne(const std::filesystem::path& file, std::ostream& out) {
  const auto report = checkLanguageFile(file);
  const auto name = file.string();
  out << name << ": " << report.verdict << '\n' << "  " << placeOf(report.language) << '\n';
  for (const auto& section : report.sections) {
    writeSection(section, out);
  }
  for (const auto& line : report.ignored) {
    out << toLine(name, line) << '\n';
  }
  for (const auto& problem : report.problems) {
    out << toLine(name, problem) << '\n';
  }
  return report.problems.empty();
}

}  // namespace

bool runLanguageCheck(const std::vector<std::filesystem::path>& files, std::ostream& out) {
  bool isGood = true;
  for (const auto& file : files) {
    isGood = checkOne(file, out) && isGood;
  }
  return isGood;
}

bool runLanguageBuild(const std::filesystem::path& source, const std::filesystem::path& result,
                      std::ostream& err) {
  const auto problems = buildLanguageFile(source, result);
  for (const auto& problem : problems) {
    err << toLine(source.string(), problem) << '\n';
  }
  return problems.empty();
}

}  // namespace tessara
