#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>

#include <sys/mman.h>
#include <unistd.h>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "knowledge/Catalogue.h"
#include "xml/XmlFileTree.h"

namespace tessara {
namespace {

/// Settings that hold nothing but the decimal separator.
class BareSettings : public RegistryHelper {
 public:
  [[nodiscard]] std::int32_t ValueTypeNumber() const override { return 4; }
  [[nodiscard]] std::int32_t HKeyCurrentUser() const override { return 1; }
  [[nodiscard]] std::int32_t HKeyLocalMachine() const override { return 2; }
  void SetValue(std::int32_t /*hive*/, const std::u16string& /*key*/,
                const std::u16string& /*name*/, const Variant& /*value*/,
                std::int32_t /*valueType*/) override {}
  [[nodiscard]] Variant GetValue(std::int32_t /*hive*/, const std::u16string& /*key*/,
                                 const std::u16string& name) override {
    return name == u"sDecimal" ? Variant{std::u16string(u".")} : Variant{};
  }
};

class BareLocale : public Locale {
 public:
  [[nodiscard]] std::u16string decimalSeparator() const override { return u"."; }
  [[nodiscard]] std::int32_t countryCodeSize() const override { return 0; }
  [[nodiscard]] std::optional<std::u16string> countryCode(std::int32_t /*size*/) const override {
    return std::nullopt;
  }
};

/// A file in memory, for a reader that accepts only files.
class MemoryFile {
 public:
  MemoryFile(const std::uint8_t* data, std::size_t size) : file_(memfd_create("catalogue", 0)) {
    if (file_ < 0 || write(file_, data, size) != static_cast<ssize_t>(size)) {
      std::abort();
    }
  }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  ~MemoryFile() { close(file_); }

  [[nodiscard]] std::u16string path() const {
    return fromUtf8("/proc/self/fd/" + std::to_string(file_));
  }

 private:
  int file_;
};

void lookUp(XmlTree& tree, const CatalogueQuestion& question) {
  BareSettings settings;
  const BareLocale locale;
  DeviceProfile profile;
  try {
    (void)findInCatalogue(tree, question, {settings, locale}, profile);
  } catch (const RunTimeError&) {
    return;
  }
}

}  // namespace
}  // namespace tessara

/// Whatever a catalogue contains, a lookup in it succeeds, finds nothing or raises a run-time
/// error.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const tessara::MemoryFile file(data, size);
  tessara::XmlFileCache cache;
  tessara::XmlFileTree tree(cache);
  if (tree.loadFile(file.path())) {
    tessara::lookUp(tree, {49, 15, 151, u"1.100", 1});
    tessara::lookUp(tree, {49, 15, 151, u"9.999", 2});
    tessara::lookUp(tree, {176, 1, 1, u"", 3});
  }
  return 0;
}
