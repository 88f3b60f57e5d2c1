// Lookups in a large catalogue against a bare load of the same file, for several shapes of file:
// the first lookup, which loads the file, and a second one, for which it is kept. They alternate.
// Processor time is measured: the file is in memory, nothing waits, and other work on the machine
// is excluded.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include <expat.h>
#include <unistd.h>

#include "../Median.h"
#include "knowledge/Catalogue.h"
#include "xml/XmlFileTree.h"

namespace {

using tessara::bench::median;

namespace fs = std::filesystem;

struct Shape {
  const char* name;
  int families;
  int devicesOfEach;
};

constexpr int rounds = 31;
/// A first lookup, in bare loads.
constexpr double maxFirst = 2.0;
/// A second lookup, in first ones.
constexpr double maxSecond = 0.05;

/// A device like those of the shipped catalogue; every # is replaced by its number.
constexpr auto deviceText = R"(    <Device DeviceID="#" HideFwVersion="0" Name="TESSARA TM #">
      <ProductLink>https://example.invalid/tessara/tm-#</ProductLink>
      <Packb>https://example.invalid/tessara/tm-#/leaflet.pdf</Packb>
      <DatasheetDE>https://example.invalid/tessara/tm-#/datasheet-de.pdf</DatasheetDE>
      <DatasheetEN>https://example.invalid/tessara/tm-#/datasheet-en.pdf</DatasheetEN>
      <DatasheetFR>https://example.invalid/tessara/tm-#/datasheet-fr.pdf</DatasheetFR>
      <DatasheetIT>https://example.invalid/tessara/tm-#/datasheet-it.pdf</DatasheetIT>
      <Version Firmware="1.000" Released="2016-03-14" Note="first series"
               RegDevStatus="60" RegChnIn="61" RegDevError="62" RegChnOut="63"
               RegLedStatus="64" RegReserved="65" StringsReverse="1" QuickSetupMode="0"/>
      <Version Firmware="1.100" Released="2018-09-03" Note="limits of the second channel"
               RegDevStatus="80" RegChnIn="81" RegDevError="82" RegChnOut="83"
               RegLedStatus="84" RegReserved="85" StringsReverse="1" QuickSetupMode="1"/>
      <Version Firmware="2.000" Released="2022-05-30" Note="status words moved"
               RegDevStatus="100" RegChnIn="101" RegDevError="102" RegChnOut="103"
               RegLedStatus="104" RegReserved="105" StringsReverse="1" QuickSetupMode="1"/>
    </Device>
)";

void writeCatalogue(const fs::path& file, const Shape& shape) {
  const std::regex numberSign("#");
  std::vector<std::string> devices;
  devices.reserve(static_cast<std::size_t>(shape.devicesOfEach));
  for (int device = 0; device < shape.devicesOfEach; ++device) {
    devices.push_back(std::regex_replace(deviceText, numberSign, std::to_string(device)));
  }
  std::ofstream out(file);
  out << R"(<?xml version="1.0" encoding="UTF-8"?>)"
      << "\n<Catalogue>\n";
  for (int family = 0; family < shape.families; ++family) {
    out << R"(  <Family VendorID="49" FamilyID=")" << family << "\">\n";
    for (const std::string& device : devices) {
      out << device;
    }
    out << "  </Family>\n";
  }
  out << "</Catalogue>\n";
}

class PointRegistry : public tessara::RegistryHelper {
 public:
  [[nodiscard]] std::int32_t ValueTypeNumber() const override { return 4; }
  [[nodiscard]] std::int32_t HKeyCurrentUser() const override { return 1; }
  [[nodiscard]] std::int32_t HKeyLocalMachine() const override { return 2; }
  void SetValue(std::int32_t /*hive*/, const std::u16string& /*key*/,
                const std::u16string& /*name*/, const tessara::Variant& /*value*/,
                std::int32_t /*valueType*/) override {}
  [[nodiscard]] tessara::Variant GetValue(std::int32_t /*hive*/, const std::u16string& /*key*/,
                                          const std::u16string& /*name*/) override {
    return std::u16string(u".");
  }
};

class PointLocale : public tessara::Locale {
 public:
  [[nodiscard]] std::u16string decimalSeparator() const override { return u"."; }
  [[nodiscard]] std::int32_t countryCodeSize() const override { return 0; }
  [[nodiscard]] std::optional<std::u16string> countryCode(std::int32_t /*size*/) const override {
    return std::nullopt;
  }
};

/// Asks for the last device and its last version.
bool lookUp(const fs::path& file, const Shape& shape, tessara::XmlFileCache& cache) {
  static PointRegistry registry;
  static const PointLocale locale;
  tessara::DeviceProfile profile;
  tessara::XmlFileTree tree(cache);
  return tree.loadFile(file.u16string()) &&
         tessara::findInCatalogue(
             tree, {49, shape.families - 1, shape.devicesOfEach - 1, u"2.000", 1},
             {registry, locale}, profile) == tessara::CatalogResult::CatalogExact;
}

/// What any XML reader must do: the file is read and checked, and nothing is kept of it.
bool loadBare(const fs::path& file) {
  std::string bytes(fs::file_size(file), '\0');
  std::ifstream(file, std::ios::binary)
      .read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  XML_Parser parser = XML_ParserCreate(nullptr);
  const bool isRead =
      XML_Parse(parser, bytes.data(), static_cast<int>(bytes.size()), XML_TRUE) == XML_STATUS_OK;
  XML_ParserFree(parser);
  return isRead;
}

template <typename Work>
double millisecondsOf(Work work) {
  const std::clock_t start = std::clock();
  if (!work()) {
    std::fputs("the catalogue made for the benchmark was not read\n", stderr);
    std::exit(EXIT_FAILURE);
  }
  return static_cast<double>(std::clock() - start) * 1000 / CLOCKS_PER_SEC;
}

/// True if both bounds are held.
bool measure(const fs::path& file, const Shape& shape) {
  writeCatalogue(file, shape);
  std::vector<double> bare;
  std::vector<double> first;
  std::vector<double> second;
  for (int round = 0; round < rounds; ++round) {
    bare.push_back(millisecondsOf([&] { return loadBare(file); }));
    tessara::XmlFileCache cache;
    const auto lookup = [&] { return lookUp(file, shape, cache); };
    first.push_back(millisecondsOf(lookup));
    second.push_back(millisecondsOf(lookup));
  }
  const double firstRatio = median(first) / median(bare);
  const double secondRatio = median(second) / median(first);
  std::printf("%-32s %8.3f ms %8.3f ms %8.3f ms %7.3f %7.3f\n", shape.name, median(bare),
              median(first), median(second), firstRatio, secondRatio);
  return firstRatio <= maxFirst && secondRatio <= maxSecond;
}

}  // namespace

int main() {
  constexpr Shape usual{"100 families of 100 devices", 100, 100};
  constexpr Shape flat{"10000 families of one device", 10000, 1};
  constexpr Shape single{"one family of 10000 devices", 1, 10000};

  std::string pattern = (fs::temp_directory_path() / "bench-catalogue-XXXXXX").string();
  const fs::path folder = ::mkdtemp(pattern.data());
  std::printf("%-32s %11s %11s %11s %7s %7s\n", "catalogue", "bare load", "first", "second",
              "first", "second");
  bool isHeld = true;
  for (const Shape& shape : {usual, flat, single}) {
    isHeld = measure(folder / "TessaraDevices.xml", shape) && isHeld;
  }
  fs::remove_all(folder);
  std::printf("first lookup at most %.2f bare loads, second at most %.2f first ones: %s\n",
              maxFirst, maxSecond, isHeld ? "held" : "missed");
  return isHeld ? EXIT_SUCCESS : EXIT_FAILURE;
}
