#pragma once

#include <QString>

#include "record/ModuleRecord.h"
#include "record/RecordError.h"

namespace tessara {

/// Writes the record as JSON. What stood in the file before is replaced in one step, or stays whole
/// with a RecordError.
void writeRecord(const ModuleRecord& record, const QString& path);

/// The record of that file. RecordError for a file that cannot be read or holds none.
ModuleRecord readRecord(const QString& path);

/// A file name for the record, without folder: name and serial number of the module, with a hyphen
/// for each run of signs that a file system or a shell might stumble over.
QString suggestedFileName(const ModuleRecord& record);

/// Writes the bytes to the file in one step. RecordError if that fails.
void replaceFile(const QString& path, const QByteArray& bytes);

}  // namespace tessara
