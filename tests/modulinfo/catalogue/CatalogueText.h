#pragma once

#include <string>
#include <vector>

#include "catalogue/CatalogueChecker.h"

namespace tessara::testing {

/// A `Version` on one line.
inline std::string version(const std::string& firmware, const std::string& registers = "60") {
  return "<Version F='" + firmware + "' R='2024' N='' a='" + registers +
         "' b='61' c='62' d='63' e='64' f='65' g='1' h='0'/>\n";
}

/// All six links on one line.
inline const std::string links =
    "<ProductLink>p</ProductLink><Packb>b</Packb><DatasheetDE>d</DatasheetDE>"
    "<DatasheetEN>e</DatasheetEN><DatasheetFR>f</DatasheetFR><DatasheetIT>i</DatasheetIT>\n";

/// A `Device` whose children begin on its second line.
inline std::string device(const std::string& number, const std::string& children) {
  return "<Device D='" + number + "' H='0'>\n" + children + "</Device>\n";
}

/// A family whose children begin on its second line.
inline std::string family(const std::string& vendor, const std::string& number,
                          const std::string& children) {
  return "<Family V='" + vendor + "' F='" + number + "'>\n" + children + "</Family>\n";
}

/// A catalogue whose families begin on line 2.
inline std::string catalogue(const std::string& families) {
  return "<Catalogue>\n" + families + "</Catalogue>\n";
}

/// The one Device 49/16/161: line 2 is the family, line 3 the Device, line 4 the links, and its
/// versions begin on line 5.
inline std::string catalogueOf(const std::string& versions) {
  return catalogue(family("49", "16", device("161", links + versions)));
}

/// "5: message" for each problem.
inline std::vector<std::string> linesOf(const std::vector<FileProblem>& problems) {
  std::vector<std::string> lines;
  for (const FileProblem& problem : problems) {
    lines.push_back(std::to_string(problem.line) + ": " + problem.message);
  }
  return lines;
}

}  // namespace tessara::testing
