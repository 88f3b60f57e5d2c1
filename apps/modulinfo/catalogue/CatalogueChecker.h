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
  /// The places of family, `Device` and `Version` as they stand in the file, in this order; those
  /// of the `Version` are missing for a `Device` that has none. UTF-8.
  std::vector<std::string> family;
  std::vector<std::string> device;
  std::vector<std::string> version;
  /// The tags of the links that the `Device` gives.
  std::vector<std::string> links;
};

/// What lookups make of a catalogue.
struct CatalogueReport {
  /// Whether the control can use the file at all, and what happens if not.
  std::string verdict;
  /// In the order of the file.
  std::vector<CatalogueEntry> entries;
  /// What lookups trip over, in the order of the file.
  std::vector<FileProblem> problems;
  /// What does no harm: elements that lookups pass over, versions in no order.
  std::vector<FileProblem> notes;
};

/// Reads a catalogue's bytes as the lookup does, for every module at once.
CatalogueReport checkCatalogue(std::string_view bytes);

/// The same for a file; one that cannot be read is a problem.
CatalogueReport checkCatalogueFile(const std::filesystem::path& path);

}  // namespace tessara
