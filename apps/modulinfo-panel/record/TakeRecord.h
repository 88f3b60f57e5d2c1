#pragma once

#include <QDateTime>
#include <optional>

#include "control/ModulInfoFLII.h"
#include "record/ModuleRecord.h"

namespace tessara {

/// What the control knows of the module that it read, as of `time`; nothing if it has read none, or
/// works without one. The module is not touched; the catalogue is asked once more, since the
/// control keeps from it only what it needs.
std::optional<ModuleRecord> takeRecord(const ModulInfoFLII& control, Platform& platform,
                                       const QDateTime& time);

}  // namespace tessara
