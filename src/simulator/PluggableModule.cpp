#include "simulator/PluggableModule.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "simulator/Announcement.h"
#include "simulator/ModbusBus.h"
#include "simulator/ModuleFile.h"
#include "simulator/hart/HartLine.h"
#include "simulator/hart/HartModuleFile.h"
#include "simulator/nfc/NfcModuleFile.h"
#include "simulator/nfc/SimulatedTwn4.h"

namespace tessara {

namespace {

constexpr std::string_view usbReaderLink = "nfc-usb";
constexpr const char* hartModemPrefix = "\\Device\\ViatorSim";

struct Link {
  std::string_view name;
  PluggableModule (*read)(const JsonReader& root);
};

constexpr std::array knownLinks{
    Link{"modbus",
         [](const JsonReader& root) -> PluggableModule {
           SimulatedModule module = readModule(root);
           std::string name = module.name;
           return {std::move(name), serialAdapterPrefix,
                   std::make_unique<ModbusBus>(std::vector{std::move(module)})};
         }},
    Link{"hart",
         [](const JsonReader& root) -> PluggableModule {
           SimulatedHartModule module = readHartModule(root);
           std::string name = module.name;
           return {std::move(name), hartModemPrefix, std::make_unique<HartLine>(std::move(module))};
         }},
    Link{"nfc-twn4",
         [](const JsonReader& root) -> PluggableModule {
           SimulatedNfcModule module = readNfcModule(root);
           std::string name = module.module.name;
           return {std::move(name), twn4Prefix, std::make_unique<SimulatedTwn4>(std::move(module))};
         }},
    Link{usbReaderLink,
         [](const JsonReader& root) -> PluggableModule {
           root["link"].fail(
               "the USB NFC reader is not a port: it can only be simulated inside the program that "
               "reads the module");
         }},
};

const Link& linkOf(const JsonReader& root) {
  if (!root.has("link")) return knownLinks.front();
  const JsonReader node = root["link"];
  const std::string name = node.text();
  const auto* const link = std::ranges::find(knownLinks, name, &Link::name);
  if (link == knownLinks.end()) {
    std::string known;
    for (const Link& one : knownLinks) known += (known.empty() ? "" : ", ") + std::string(one.name);
    node.fail(node.shown() + " is not a link that can be simulated; these are: " + known);
  }
  return *link;
}

}  // namespace

std::optional<SimulatedNfcModule> loadUsbReaderModule(const std::filesystem::path& file) {
  return readModuleFile(file, [](const JsonReader& root) {
    const bool isUsbReader = linkOf(root).name == usbReaderLink;
    return isUsbReader ? std::optional(readNfcModule(root)) : std::nullopt;
  });
}

PluggableModule loadPluggableModule(const std::filesystem::path& file) {
  return readModuleFile(file, [](const JsonReader& root) { return linkOf(root).read(root); });
}

}  // namespace tessara
