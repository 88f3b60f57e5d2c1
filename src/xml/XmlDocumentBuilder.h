#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "xml/XmlDocument.h"
#include "xml/XmlParser.h"

namespace tessara {

/// Builds a document from what a parser reports, in the order of the file.
class XmlDocumentBuilder {
 public:
  /// `attributes` alternates names and values and ends with a null pointer.
  void open(std::string_view tag, const char* const* attributes);
  void close();
  void characters(std::string_view text) { run_ += text; }
  /// Markup other than a tag ends a run of characters.
  void markup() { endRun(); }
  /// The end of a CDATA section.
  void endData();
  void place(XmlPlace place) { document_.places_.push_back(place); }

  /// Elements that are open.
  [[nodiscard]] std::size_t depth() const { return depth_; }
  /// The tag of the innermost open element.
  [[nodiscard]] const std::string& openTag() const {
    return document_.tag(document_.elements_[levels_[depth_ - 1].element]);
  }

  [[nodiscard]] XmlDocument take() { return std::move(document_); }

 private:
  /// An open element.
  struct Level {
    std::size_t element = 0;
    std::vector<std::uint32_t> children;
    std::string text;
  };

  void endRun();
  std::uint32_t numberOf(std::string_view tag);
  std::size_t keep(std::string_view text);

  XmlDocument document_;
  std::array<Level, xmlLimit::depth> levels_;
  std::size_t depth_ = 0;
  /// Characters since the last markup.
  std::string run_;
};

}  // namespace tessara
