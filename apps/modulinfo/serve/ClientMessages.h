#pragma once

#include "base/Text.h"
#include "platform/MessageHelper.h"
#include "serve/Announcer.h"

namespace tessara {

/// Message boxes of a control that a client drives: each becomes a `message` and is answered with
/// OK at once.
class ClientMessages final : public MessageHelper {
 public:
  static constexpr std::int32_t ok = 1;

  /// The announcer must outlive the boxes.
  explicit ClientMessages(const Announcer& announcer) : announcer_(announcer) {}

  std::int32_t Show(const std::u16string& text, MessageStyle style,
                    const std::u16string& title) override {
    announcer_.announce("message", JsonText::object({{"text", toUtf8(text)},
                                                     {"style", static_cast<std::int32_t>(style)},
                                                     {"title", toUtf8(title)}}));
    return ok;
  }

 private:
  const Announcer& announcer_;
};

}  // namespace tessara
