#pragma once

#include <QString>
#include <cstdint>
#include <vector>

#include "localisation/TextTables.h"
#include "record/ModuleRecord.h"

namespace tessara {

/// A caption and the value beside it.
struct RecordRow {
  QString caption;
  QString value;
};

/// The sections of a record in their order.
enum class RecordPart : std::uint8_t { Module, Identification, Status, Connection, Catalogue };

struct RecordSection {
  RecordPart part = RecordPart::Module;
  QString title;
  std::vector<RecordRow> rows;
};

/// The record as people read it: module, status, connection and catalogue, in the texts of the
/// control and the language installed. Unknown values, and those that the panel does not show, are
/// left out.
std::vector<RecordSection> recordSections(const ModuleRecord& record, const TextTables& texts);

/// The local time at which the module was read, with the offset from UTC:
/// "17 May 2024, 08:04:59 (UTC+02:00)".
QString recordTime(const ModuleRecord& record);

/// The record as plain text, for e-mails: a title, then a line for each row, the values aligned.
QString recordText(const ModuleRecord& record, const TextTables& texts);

}  // namespace tessara
