#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/FileProblem.h"

namespace tessara {

/// A `Version` of the catalogue, or a `Device` that has none.
struct CatalogueEntry {
  /// The line of its element, from 1.
  std::size_t line = 0;
  /// The attributes of family, `Device` and `Version` as the file has them; those of the `Version`
  /// are missing for a `Device` that has none. UTF-8.
  std::vector<std::string> family;
  std::vector<std::string> device;
  std::vector<std::string> version;
  /// The tags of the links that the `Device` gives.
  std::vector<std::string> links;
};

/// What lookups find in a catalogue.
struct CatalogueReport {
  /// Whether the control can use the file, and what happens if not.
  std::string verdict;
  /// In the order of the file.
  std::vector<CatalogueEntry> entries;
  /// What makes lookups fail or go wrong, in the order of the file.
  std::vector<FileProblem> problems;
  /// What does no harm: elements that lookups ignore, versions out of order.
  std::vector<FileProblem> notes;
};

/// Checks a catalogue for all its modules, with the rules of a lookup.
CatalogueReport checkCatalogue(std::string_view bytes);

/// The same for a file; one that cannot be read is a problem.
CatalogueReport checkCatalogueFile(const std::filesystem::path& path);

}  // namespace tessara
