#include "catalogue/CatalogueChecker.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>

#include <pugixml.hpp>

#include "catalogue/CatalogueWalk.h"
#include "catalogue/XmlSource.h"

namespace tessara {
namespace {

constexpr const char* loads = "loads";
constexpr const char* refused =
    "cannot be used; every read of a module ends with the message \"Fehler XML-Datei!\"";

/// What keeps the control from loading the document, if anything does.
std::optional<FileProblem> loadProblem(const pugi::xml_document& document,
                                       const pugi::xml_parse_result& result,
                                       const XmlSource& source) {
  if (!result) {
    return FileProblem{source.lineAt(static_cast<std::size_t>(result.offset)),
                       std::string("no well-formed XML: ") + result.description()};
  }
  for (const pugi::xml_node& node : document) {
    if (node.type() != pugi::node_element || node.previous_sibling()) {
      // A piece of text begins with the line end behind the element before it.
      const auto start =
          source.text().find_first_not_of(" \t\r\n", static_cast<std::size_t>(node.offset_debug()));
      return FileProblem{source.lineAt(start), "text or a second element beside the root"};
    }
  }
  if (!document.document_element()) {
    return FileProblem{0, "no well-formed XML: there is no element"};
  }
  return std::nullopt;
}

}  // namespace

CatalogueReport checkCatalogue(std::string_view bytes) {
  const XmlSource source(bytes);
  pugi::xml_document document;
  const pugi::xml_parse_result result =
      document.load_buffer(source.text().data(), source.text().size(),
                           pugi::parse_default | pugi::parse_fragment, pugi::encoding_utf8);
  CatalogueReport report;
  if (const auto problem = loadProblem(document, result, source)) {
    report.verdict = refused;
    report.problems.push_back(*problem);
    return report;
  }
  report.verdict = loads;
  walkCatalogue(document.document_element(), source, report);
  const auto byLine = [](const FileProblem& a, const FileProblem& b) { return a.line < b.line; };
  std::stable_sort(report.problems.begin(), report.problems.end(), byLine);
  std::stable_sort(report.notes.begin(), report.notes.end(), byLine);
  return report;
}

CatalogueReport checkCatalogueFile(const std::filesystem::path& path) {
  std::error_code unknown;
  std::ifstream file(path, std::ios::binary);
  if (!std::filesystem::is_regular_file(path, unknown) || !file) {
    return {refused, {}, {{0, "the file cannot be read"}}, {}};
  }
  return checkCatalogue(std::string(std::istreambuf_iterator<char>(file), {}));
}

}  // namespace tessara
