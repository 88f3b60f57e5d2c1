#include "catalogue/CatalogueCommand.h"

#include <ostream>

#include "catalogue/CatalogueChecker.h"
#include "catalogue/CatalogueTable.h"

namespace tessara {
namespace {

bool checkOne(const std::filesystem::path& file, std::ostream& out) {
  const CatalogueReport report = checkCatalogueFile(file);
  const std::string name = file.string();
  out << name << ": " << report.verdict << '\n' << catalogueTable(report.entries);
  for (const FileProblem& note : report.notes) {
    out << toLine(name, note) << '\n';
  }
  for (const FileProblem& problem : report.problems) {
    out << toLine(name, problem) << '\n';
  }
  return report.problems.empty();
}

}  // namespace

bool runCatalogueCheck(const std::vector<std::filesystem::path>& files, std::ostream& out) {
  bool isGood = true;
  for (const auto& file : files) {
    isGood = checkOne(file, out) && isGood;
  }
  return isGood;
}

}  // namespace tessara
