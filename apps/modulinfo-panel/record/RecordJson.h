#pragma once

#include <QByteArray>
#include <QString>

#include "record/ModuleRecord.h"
#include "record/RecordError.h"

namespace tessara {

/// The name that a file of this format carries, and its version. A program reads its own version
/// and those before it; docs/panel-program.md lists the fields.
inline constexpr const char* recordFormat = "modulinfo-record";
inline constexpr int recordVersion = 1;

/// The record as JSON in UTF-8, over several lines.
QByteArray recordJson(const ModuleRecord& record);

/// The record in that JSON. Throws RecordError, which calls the file `name`, for what is not a
/// record: invalid JSON, another format, a newer version, a field that is missing or has a wrong
/// value. Unknown fields are ignored.
ModuleRecord recordFromJson(const QByteArray& json, const QString& name);

}  // namespace tessara
