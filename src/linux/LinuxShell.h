#pragma once

#include <functional>
#include <string>

#include "platform/Shell.h"

namespace tessara {

/// Hears of everything that was to be opened: the file's path or the address, and the result.
using LaunchSink = std::function<void(const std::string& file, std::int32_t result)>;

/// Opens files and addresses as the desktop does, without a shell and without waiting.
///
/// The program runs on its own: it is no child of this one, gets none of its open files, and reads
/// and writes none of its streams.
class LinuxShell final : public Shell {
 public:
  /// What a program that was started counts as.
  static constexpr std::int32_t opened = 42;

  explicit LinuxShell(LaunchSink sink = {}) : sink_(std::move(sink)) {}

  /// Window, parameters and showCommand have no meaning here: the window system decides where a
  /// window comes up. An operation other than "Open" has no program.
  std::int32_t ShellExecuteA(WindowHandle window, const std::u16string& operation,
                             const std::u16string& file, const std::u16string& parameters,
                             const std::u16string& folder, std::int32_t showCommand) override;

 private:
  LaunchSink sink_;
};

}  // namespace tessara
