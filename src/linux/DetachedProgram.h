#pragma once

#include <QString>

#include "linux/DesktopEntry.h"

namespace tessara {

/// Starts the program on its own, in its folder or else in `folder` (empty for that of this one):
/// it is no child of this program and survives it, has none of its open files, and its streams lead
/// nowhere. False if it cannot be started. Does not wait for more than that.
bool startDetached(const CommandLine& command, const QString& folder);

}  // namespace tessara
