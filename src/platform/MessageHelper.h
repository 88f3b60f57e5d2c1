#pragma once

#include <cstdint>
#include <string>

namespace tessara {

/// Styles of a message box.
enum class MessageStyle : std::int32_t { Error = 16, Warning = 48 };

/// Shows message boxes.
class MessageHelper {
 public:
  MessageHelper() = default;
  MessageHelper(const MessageHelper&) = delete;
  MessageHelper& operator=(const MessageHelper&) = delete;
  virtual ~MessageHelper() = default;

  /// Shows the box, waits for the answer and gives its number (1 for OK).
  virtual std::int32_t Show(const std::u16string& text, MessageStyle style,
                            const std::u16string& title) = 0;
};

}  // namespace tessara
