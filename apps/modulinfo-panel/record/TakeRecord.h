#pragma once

#include <QDateTime>
#include <optional>

#include "control/ModulInfoFLII.h"
#include "record/ModuleRecord.h"

namespace tessara {

/// What the control knows about the module that it read, as of `time`; nothing if it has read none
/// or works offline. Neither the module nor the catalogue is accessed.
std::optional<ModuleRecord> takeRecord(const ModulInfoFLII& control, const QDateTime& time);

}  // namespace tessara
