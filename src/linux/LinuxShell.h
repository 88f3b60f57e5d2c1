#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "platform/Shell.h"

namespace tessara {

/// Called for everything that was to be opened: the path of the file or the address, and the
/// result.
using LaunchSink = std::function<void(const std::string& file, std::int32_t result)>;

/// Opens files and addresses with the programs that the desktop has registered for them.
///
/// The program is not waited for. It is not a child of this one, survives it and its terminal, and
/// has none of its open files and streams.
class LinuxShell final : public Shell {
 public:
  /// The result for a program that was started.
  static constexpr std::int32_t opened = 42;

  explicit LinuxShell(LaunchSink sink = {}) : sink_(std::move(sink)) {}

  /// `window`, `parameters` and `showCommand` have no meaning here: the window system decides where
  /// a window appears. For operations other than "Open" no program is registered.
  std::int32_t ShellExecuteA(WindowHandle window, const std::u16string& operation,
                             const std::u16string& file, const std::u16string& parameters,
                             const std::u16string& folder, std::int32_t showCommand) override;

 private:
  LaunchSink sink_;
};

}  // namespace tessara
