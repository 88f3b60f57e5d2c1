#pragma once

#include "control/Control.h"
#include "control/ModulInfoFLII.h"

namespace tessara {

/// The one door through which tests reach the state of a control. The product has none.
class Inside {
 public:
  static Control& of(const ModulInfoFLII& control) { return *control.control_; }
};

/// The fields of a control under their own names, and its panel: `inside(control).ComPort`,
/// `inside(control).panel.LblModulState`.
inline Control& inside(ModulInfoFLII& control) {
  return Inside::of(control);
}
inline const Control& inside(const ModulInfoFLII& control) {
  return Inside::of(control);
}

}  // namespace tessara
