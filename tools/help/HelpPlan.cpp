#include "tools/help/HelpPlan.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>

namespace tessara {
namespace {

struct PlanKey {
  std::string_view name;
  std::string HelpPlan::*value;
};

constexpr std::array<PlanKey, 6> keys{{{"title", &HelpPlan::title},
                                       {"language", &HelpPlan::language},
                                       {"htmlLanguage", &HelpPlan::htmlLanguage},
                                       {"contents", &HelpPlan::contents},
                                       {"back", &HelpPlan::back},
                                       {"next", &HelpPlan::next}}};
constexpr std::string_view pageKey = "page";
constexpr std::string_view sign = " = ";

bool isAscii(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](char letter) { return letter > 0; });
}

/// Adds the entry to the plan and returns its problem; empty if there is none.
std::string take(HelpPlan& plan, const std::string& name, const std::string& value) {
  if (name == pageKey) {
    const bool isNew = std::find(plan.pages.begin(), plan.pages.end(), value) == plan.pages.end();
    plan.pages.push_back(value);
    return isNew ? "" : "duplicate page " + value;
  }
  const auto* key =
      std::find_if(keys.begin(), keys.end(), [&](const PlanKey& row) { return row.name == name; });
  if (key == keys.end()) {
    return "unknown entry \"" + name + "\"";
  }
  plan.*key->value = value;
  return {};
}

}  // namespace

HelpPlan readHelpPlan(const std::string& text, std::vector<FileProblem>& problems) {
  HelpPlan plan;
  std::istringstream lines(text);
  std::string line;
  for (std::size_t number = 1; std::getline(lines, line); ++number) {
    if (line.empty() || line.front() == '#') {
      continue;
    }
    const auto place = line.find(sign);
    const std::string wrong =
        place == std::string::npos
            ? "\"" + line + "\" is not of the form: name = value"
            : take(plan, line.substr(0, place), line.substr(place + sign.size()));
    if (!wrong.empty()) {
      problems.push_back({number, wrong});
    }
  }
  for (const PlanKey& key : keys) {
    if ((plan.*key.value).empty()) {
      problems.push_back({0, "the entry \"" + std::string(key.name) + "\" is missing"});
    }
  }
  if (plan.pages.empty()) {
    problems.push_back({0, "no page is listed"});
  }
  if (!isAscii(plan.title)) {
    problems.push_back({0, "the title contains non-ASCII characters"});
  }
  return plan;
}

}  // namespace tessara
