#pragma once

namespace tessara {

/// How a program ends, for the scripts that call it.
enum class ExitCode : int {
  Done = 0,
  /// A command other than `read` failed.
  Failed = 1,
  WrongUsage = 2,
  /// No connection to a module was made.
  NoConnection = 3,
  /// The module was connected, but could not be read completely.
  ReadFailed = 4,
};

}  // namespace tessara
