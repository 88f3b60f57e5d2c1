#pragma once

namespace tessara {

/// How the program ends, for scripts that call it.
enum class ExitCode : int {
  Done = 0,
  /// A command other than reading could not do its work.
  Failed = 1,
  WrongUsage = 2,
  /// No connection to a module was made.
  NoConnection = 3,
  /// The module was connected and could not be read to the end.
  ReadFailed = 4,
};

}  // namespace tessara
