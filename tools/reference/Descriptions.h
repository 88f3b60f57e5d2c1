#pragma once

#include <span>
#include <string_view>

#include "control/MemberTable.h"

namespace tessara {

/// What a member does, for the reference.
struct Description {
  std::string_view name;
  MemberKind kind;
  /// Markdown on one line: meaning, range, errors.
  std::string_view text;
};

/// One for each member, in the order of the interface.
std::span<const Description> descriptions();

}  // namespace tessara
