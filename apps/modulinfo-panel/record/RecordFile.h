#pragma once

#include <QString>

#include "record/ModuleRecord.h"
#include "record/RecordError.h"

namespace tessara {

/// Writes the record as JSON and replaces the file in one step. RecordError if that fails; the file
/// then stays as it was.
void writeRecord(const ModuleRecord& record, const QString& path);

/// Reads the record in that file. RecordError if the file cannot be read or holds no record.
ModuleRecord readRecord(const QString& path);

/// A file name for the record, without folder: name and serial number of the module, with a hyphen
/// for each run of characters that are awkward in file names.
QString suggestedFileName(const ModuleRecord& record);

/// Writes the bytes to the file in one step. RecordError if that fails.
void replaceFile(const QString& path, const QByteArray& bytes);

}  // namespace tessara
