#include "catalogue/CatalogueChecker.h"

#include <algorithm>
#include <variant>

#include "catalogue/CatalogueWalk.h"
#include "xml/RegularFile.h"
#include "xml/XmlParser.h"

namespace tessara {
namespace {

constexpr const char* loads = "loads";
constexpr const char* refused =
    "cannot be used; every read fails with the message \"Fehler XML-Datei!\"";

}  // namespace

CatalogueReport checkCatalogue(std::string_view bytes) {
  const auto parsed = parseXml(bytes, XmlPlaces::Kept);
  if (const auto* fault = std::get_if<XmlFault>(&parsed)) {
    return {refused,
            {},
            {{fault->place.line, "invalid XML: " + fault->cause, fault->place.column}},
            {}};
  }
  CatalogueReport report{loads, {}, {}, {}};
  walkCatalogue(std::get<XmlDocument>(parsed), report);
  const auto byLine = [](const FileProblem& a, const FileProblem& b) { return a.line < b.line; };
  std::stable_sort(report.problems.begin(), report.problems.end(), byLine);
  std::stable_sort(report.notes.begin(), report.notes.end(), byLine);
  return report;
}

CatalogueReport checkCatalogueFile(const std::filesystem::path& path) {
  const auto bytes = RegularFile(path.string()).content(xmlLimit::bytes);
  return bytes ? checkCatalogue(*bytes)
               : CatalogueReport{refused, {}, {{0, "the file cannot be read"}}, {}};
}

}  // namespace tessara
