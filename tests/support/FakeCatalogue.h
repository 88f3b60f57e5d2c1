#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/XmlTree.h"

namespace tessara::testing {

/// A catalogue in memory. By default it knows one module, VendorID 49, FamilyID 16, DeviceID 161,
/// with the firmware 1.234 whose status registers are 60 (device), 61 (channel in), 62 (error),
/// 63 (channel out) and 64 (LED).
class FakeCatalogue : public XmlTree {
 public:
  struct Node {
    std::string tag;
    std::vector<std::u16string> attributes;
    std::vector<Node> children;
    std::u16string content;
  };

  FakeCatalogue() : FakeCatalogue(oneModule()) {}
  explicit FakeCatalogue(Node root) : root_(std::move(root)) {}
  /// A catalogue that cannot be loaded.
  static std::unique_ptr<FakeCatalogue> broken();
  static Node oneModule();

  bool loadFile(const std::u16string& path) override;
  [[nodiscard]] Element root() const override;
  [[nodiscard]] std::int32_t childCount(Element element) const override;
  [[nodiscard]] Element child(Element element, std::int32_t index) const override;
  [[nodiscard]] std::u16string attribute(Element element, std::int32_t index) const override;
  [[nodiscard]] std::int32_t countByTag(Element element, const char* tag) const override;
  [[nodiscard]] Element nthByTag(Element element, const char* tag,
                                 std::int32_t index) const override;
  [[nodiscard]] std::u16string text(Element element) const override;
  void close(Element element) override;

 private:
  Node root_;
  bool loads_ = true;
};

}  // namespace tessara::testing
