#pragma once

#include <QString>
#include <cstdint>
#include <vector>

#include "localisation/TextTables.h"
#include "record/ModuleRecord.h"
#include "words/HostTexts.h"

namespace tessara {

/// A caption and what stands beside it.
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
/// control and the words of the host. What the record does not know, or the panel does not show, is
/// left out.
std::vector<RecordSection> recordSections(const ModuleRecord& record, const TextTables& texts,
                                          const HostTexts& words);

/// The moment of the record as it was where the module was read, with the offset from UTC:
/// "17 May 2024, 08:04:59 (UTC+02:00)".
QString recordTime(const ModuleRecord& record, const HostTexts& words);

/// The record as plain text, for mails: a title, then a line for each row, the values below each
/// other.
QString recordText(const ModuleRecord& record, const TextTables& texts, const HostTexts& words);

}  // namespace tessara
