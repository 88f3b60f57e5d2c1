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

namespace tessara {

namespace {

constexpr const char* kHartModemPrefix = "\\Device\\ViatorSim";

struct Link {
  std::string_view name;
  PluggableModule (*read)(const JsonNode& root);
};

constexpr std::array kLinks{
    Link{"modbus",
         [](const JsonNode& root) -> PluggableModule {
           SimulatedModule module = readModule(root);
           std::string name = module.name;
           return {std::move(name), kSerialAdapterPrefix,
                   std::make_unique<ModbusBus>(std::vector{std::move(module)})};
         }},
    Link{
        "hart",
        [](const JsonNode& root) -> PluggableModule {
          SimulatedHartModule module = readHartModule(root);
          std::string name = module.name;
          return {std::move(name), kHartModemPrefix, std::make_unique<HartLine>(std::move(module))};
        }},
};

const Link& linkOf(const JsonNode& root) {
  if (!root.has("link")) return kLinks.front();
  const JsonNode node = root["link"];
  const std::string name = node.text();
  const auto* const link = std::ranges::find(kLinks, name, &Link::name);
  if (link == kLinks.end()) {
    std::string known;
    for (const Link& one : kLinks) known += (known.empty() ? "" : ", ") + std::string(one.name);
    node.fail("\"" + name + "\" is no link that can be simulated; these are: " + known);
  }
  return *link;
}

}  // namespace

PluggableModule loadPluggableModule(const std::filesystem::path& file) {
  const JsonNode root = parseModuleFile(file);
  return linkOf(root).read(root);
}

}  // namespace tessara
