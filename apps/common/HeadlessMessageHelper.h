#pragma once

#include <iosfwd>

#include "platform/MessageHelper.h"

namespace tessara {

/// Message boxes of a program without a window: one line each on a stream, "title: text", answered
/// with OK at once.
class HeadlessMessageHelper final : public MessageHelper {
 public:
  static constexpr std::int32_t ok = 1;

  /// `out` must outlive the helper.
  explicit HeadlessMessageHelper(std::ostream& out) : out_(out) {}

  std::int32_t Show(const std::u16string& text, MessageStyle style,
                    const std::u16string& title) override;

 private:
  std::ostream& out_;
};

}  // namespace tessara
