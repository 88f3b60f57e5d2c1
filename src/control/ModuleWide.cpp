#include "control/ModuleWide.h"

namespace tessara {

ModuleWide& moduleWide() {
  thread_local ModuleWide wide;
  return wide;
}

}  // namespace tessara
