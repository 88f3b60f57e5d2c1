#include "common/HeadlessMessageHelper.h"

#include <ostream>

#include "base/Text.h"

namespace tessara {

std::int32_t HeadlessMessageHelper::Show(const std::u16string& text, MessageStyle /*style*/,
                                         const std::u16string& title) {
  if (!title.empty()) out_ << toUtf8(title) << ": ";
  out_ << toUtf8(text) << std::endl;
  return ok;
}

}  // namespace tessara
