#include "tools/help/HtmlText.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/Text.h"

namespace tessara {
namespace {

struct Entity {
  char sign;
  std::string_view name;
};

/// The ampersand comes last: resolved earlier, it would create new entities.
constexpr std::array<Entity, 4> entities{
    {{'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'&', "&amp;"}}};

std::string replacedAll(std::string text, std::string_view part, std::string_view by) {
  for (auto place = text.find(part); place != std::string::npos;
       place = text.find(part, place + by.size())) {
    text.replace(place, part.size(), by);
  }
  return text;
}

}  // namespace

std::string asHtml(std::string_view text) {
  std::string html;
  for (const char sign : text) {
    const auto* entity =
        std::find_if(entities.begin(), entities.end(),
                     [&](const Entity& candidate) { return candidate.sign == sign; });
    html += entity == entities.end() ? std::string(1, sign) : std::string(entity->name);
  }
  return html;
}

std::string withoutTags(std::string_view html) {
  std::string text;
  bool inTag = false;
  for (const char sign : html) {
    inTag = inTag || sign == '<';
    if (!inTag) {
      text += sign;
    }
    inTag = inTag && sign != '>';
  }
  text = replacedAll(std::move(text), "&nbsp;", " ");
  for (const Entity& entity : entities) {
    text = replacedAll(std::move(text), entity.name, std::string(1, entity.sign));
  }
  return text;
}

std::string asAsciiHtml(std::string_view text) {
  constexpr char16_t firstBeyond = 0x80;
  std::string ascii;
  for (const char16_t unit : fromUtf8(asHtml(text))) {
    if (unit < firstBeyond) {
      ascii += static_cast<char>(unit);
    } else {
      ascii += "&#" + std::to_string(static_cast<unsigned int>(unit)) + ";";
    }
  }
  return ascii;
}

}  // namespace tessara
