#pragma once

#include <array>
#include <string>
#include <utility>

namespace tessara::testing {

/// The source of a complete language file: "5 = MainFrame 5" and so on, 94 lines.
inline std::string completeSource() {
  constexpr std::array<std::pair<const char*, int>, 5> sections{{
      {"Title", 1},
      {"MainFrame", 26},
      {"ModulInfo", 26},
      {"Buttons", 1},
      {"Messages", 35},
  }};
  std::string source;
  for (const auto& [name, count] : sections) {
    source += "[" + std::string(name) + "]\n";
    for (int i = 0; i < count; ++i) {
      source += std::to_string(i) + " = " + name + " " + std::to_string(i) + "\n";
    }
  }
  return source;
}

/// `text` with its one `part` replaced.
inline std::string replaced(std::string text, const std::string& part, const std::string& by) {
  return text.replace(text.find(part), part.size(), by);
}

}  // namespace tessara::testing
