#pragma once

#include <ostream>
#include <string>

namespace tessara::testing {

/// A document, named for the production of XML 1.0 that it follows or violates, with the
/// production's number: `Comment15…`.
struct XmlCase {
  const char* name;
  std::string document;
};

inline void PrintTo(const XmlCase& sample, std::ostream* out) {
  *out << sample.document;
}

/// The name of the test for a case.
template <typename Info>
std::string caseName(const Info& info) {
  return info.param.name;
}

}  // namespace tessara::testing
