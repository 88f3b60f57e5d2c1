#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "FakeCatalogue.h"
#include "FakePlatform.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "knowledge/Catalogue.h"

namespace tessara::testing {

using Node = FakeCatalogue::Node;

inline Node version(const std::u16string& firmware, std::int32_t base = 60,
                    const std::u16string& quickSetupMode = u"0") {
  const auto text = [](std::int32_t number) { return decimalText(number); };
  return {"Version",
          {firmware, u"2024", u"a note", text(base), text(base + 1), text(base + 2), text(base + 3),
           text(base + 4), text(base + 5), text(base + 6), quickSetupMode},
          {},
          {}};
}

inline Node link(const std::string& tag, const std::u16string& text) {
  return {tag, {}, {}, text};
}

inline Node device(const std::u16string& id, std::vector<Node> children,
                   const std::u16string& hideFwVersion = u"0") {
  return {"Device", {id, hideFwVersion}, std::move(children), {}};
}

inline Node family(const std::u16string& vendor, const std::u16string& id,
                   std::vector<Node> devices) {
  return {"Family", {vendor, id}, std::move(devices), {}};
}

inline Node catalogue(std::vector<Node> families) {
  return {"Catalogue", {}, std::move(families), {}};
}

/// The catalogue with every call in the log: "attribute Device 0", "nthByTag Family Device 2".
class RecordedCatalogue : public FakeCatalogue {
 public:
  RecordedCatalogue(Node root, CallLog& log) : FakeCatalogue(std::move(root)), log_(log) {}

  [[nodiscard]] std::int32_t childCount(Element element) const override {
    log_.add("childCount " + tagOf(element));
    return FakeCatalogue::childCount(element);
  }
  [[nodiscard]] Element child(Element element, std::int32_t index) const override {
    log_.add("child " + tagOf(element) + " " + std::to_string(index));
    return FakeCatalogue::child(element, index);
  }
  [[nodiscard]] std::u16string attribute(Element element, std::int32_t index) const override {
    log_.add("attribute " + tagOf(element) + " " + std::to_string(index));
    return FakeCatalogue::attribute(element, index);
  }
  [[nodiscard]] std::int32_t countByTag(Element element, const char* tag) const override {
    log_.add("countByTag " + tagOf(element) + " " + tag);
    return FakeCatalogue::countByTag(element, tag);
  }
  [[nodiscard]] Element nthByTag(Element element, const char* tag,
                                 std::int32_t index) const override {
    log_.add("nthByTag " + tagOf(element) + " " + tag + " " + std::to_string(index));
    return FakeCatalogue::nthByTag(element, tag, index);
  }
  [[nodiscard]] std::u16string text(Element element) const override {
    log_.add("text " + tagOf(element));
    return FakeCatalogue::text(element);
  }
  void close(Element element) override { log_.add("close " + tagOf(element)); }

 private:
  static std::string tagOf(Element element) {
    return element.node == nullptr ? "nothing" : static_cast<Node*>(element.node)->tag;
  }

  CallLog& log_;
};

/// Asks for module 49/16/161 with firmware 1.234 on a German system with a decimal point.
class CatalogueFixture : public ::testing::Test {
 protected:
  CatalogueFixture() { setSeparator(u"."); }

  void setSeparator(const std::u16string& separator) {
    settings[u"Control Panel\\International\\|sDecimal"] = separator;
    locale.separator = separator;
  }

  CatalogResult find(std::vector<Node> families) {
    RecordedCatalogue tree(catalogue(std::move(families)), log);
    return findInCatalogue(tree, question, {registry, locale}, profile);
  }

  /// The number of the error that the lookup raises, and its message; fails if there is none.
  ErrorNumber errorOf(std::vector<Node> families) {
    try {
      (void)find(std::move(families));
    } catch (const RunTimeError& error) {
      message = error.what();
      return error.number();
    }
    ADD_FAILURE() << "no error was raised";
    return ErrorNumber::InvalidCall;
  }

  std::vector<std::int32_t> registers() const {
    return {profile.RegDevStatus, profile.RegChnIn,    profile.RegDevError,   profile.RegChnOut,
            profile.RegLedStatus, profile.RegReserved, profile.StringsReverse};
  }

  CallLog log;
  std::map<std::u16string, Variant> settings;
  FakeRegistryHelper registry{log, settings};
  FakeLocale locale;
  CatalogueQuestion question{49, 16, 161, u"1.234", 1};
  DeviceProfile profile;
  std::string message;
};

}  // namespace tessara::testing
