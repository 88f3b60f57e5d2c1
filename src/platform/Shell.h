#pragma once

#include <cstdint>
#include <string>

namespace tessara {

/// A window by the number that the system gives it; 0 for none.
using WindowHandle = std::uintptr_t;

/// Opens files and addresses with the programs that are registered for them.
class Shell {
 public:
  /// Results up to this one are failures.
  static constexpr std::int32_t lastFailure = 32;
  static constexpr std::int32_t fileNotFound = 2;
  static constexpr std::int32_t pathNotFound = 3;
  static constexpr std::int32_t accessDenied = 5;
  static constexpr std::int32_t badFormat = 11;
  /// No program is registered for the file or address.
  static constexpr std::int32_t noAssociation = 31;
  /// The show command for a window in its normal size.
  static constexpr std::int32_t showNormal = 1;

  Shell() = default;
  Shell(const Shell&) = delete;
  Shell& operator=(const Shell&) = delete;
  virtual ~Shell() = default;

  /// Performs `operation` ("Open") on `file`, a path or an address such as "mailto:...", with
  /// `parameters` for the program and `folder` as its working folder. Does not wait for the
  /// program. Returns more than lastFailure if it was started.
  virtual std::int32_t ShellExecuteA(WindowHandle window, const std::u16string& operation,
                                     const std::u16string& file, const std::u16string& parameters,
                                     const std::u16string& folder, std::int32_t showCommand) = 0;
};

}  // namespace tessara
