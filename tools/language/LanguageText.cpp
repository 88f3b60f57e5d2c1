#include "tools/language/LanguageText.h"

#include "base/Text.h"
#include "localisation/LanguageSections.h"

namespace tessara {
namespace {

bool isControl(char16_t unit) {
  return unit < 0x20 || unit == 0x7F;
}

}  // namespace

std::string visible(std::u16string_view text) {
  std::u16string shown;
  for (const char16_t unit : text) {
    if (unit == u'\r') {
      shown += u"<CR>";
    } else if (unit == u'\n') {
      shown += u"<LF>";
    } else if (isControl(unit)) {
      shown += u"<" + hexText(static_cast<std::int16_t>(unit)) + u">";
    } else {
      shown += unit;
    }
  }
  return toUtf8(shown);
}

bool isUnfit(char16_t unit) {
  return isControl(unit) || unit == 0xFFFD;
}

std::size_t completeCount(std::u16string_view header) {
  TextTables tables;
  LoadDefaultTexts(tables);
  const auto* section = findLanguageSection(header);
  std::size_t count = 0;
  while (section != nullptr && count < section->slots && !section->entry(tables, count).empty()) {
    ++count;
  }
  return count;
}

}  // namespace tessara
