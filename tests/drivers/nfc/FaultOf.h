#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "drivers/nfc/NfcFault.h"

namespace tessara {

/// The NfcFault that an action throws.
struct SeenFault {
  std::optional<NfcFaultKind> kind;
  std::string text;
};

template <class Action>
SeenFault faultOf(Action action) {
  try {
    action();
  } catch (const NfcFault& fault) {
    return {fault.kind(), fault.what()};
  }
  return {};
}

/// How a test's output names a kind of fault.
inline void PrintTo(NfcFaultKind kind, std::ostream* stream) {
  *stream << "fault kind " << static_cast<int>(kind);
}

}  // namespace tessara
