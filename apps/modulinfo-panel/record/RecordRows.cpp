#include "record/RecordRows.h"

#include <algorithm>

#include "qt/QtText.h"

namespace tessara {
namespace {

constexpr auto modbusObject = "ModbusCommObject";

QString captionOf(const std::u16string& text) {
  return readable(text).trimmed();
}

QString hexadecimal(std::uint32_t word) {
  constexpr int digits = 4;
  constexpr int base = 16;
  return "0x" + QString::number(word, base).toUpper().rightJustified(digits, '0');
}

Word resultWord(CatalogResult result) {
  switch (result) {
    case CatalogResult::CatalogNoDevice:
      return Word::CatalogueNoDevice;
    case CatalogResult::CatalogNoVersion:
      return Word::CatalogueNoVersion;
    case CatalogResult::CatalogFwNewer:
      return Word::CatalogueNewer;
    case CatalogResult::CatalogExact:
      return Word::CatalogueExact;
    case CatalogResult::CatalogFwOlder:
      return Word::CatalogueOlder;
    case CatalogResult::CatalogFileError:
      break;
  }
  return Word::CatalogueUnusable;
}

/// "Modbus", "HART", "NFC".
QString pathOf(const QString& object) {
  QString path = object;
  path.remove("CommObject");
  return path == "Hart" || path == "Nfc" ? path.toUpper() : path;
}

std::vector<RecordRow> moduleRows(const ModuleRecord& record, const TextTables& texts) {
  const auto& [vendor, group, family, device, name, description, firmware, serial] = record.module;
  std::vector<RecordRow> rows{{captionOf(texts.TextModulInfo[3]), name},
                              {captionOf(texts.TextModulInfo[5]), description},
                              {captionOf(texts.TextModulInfo[6]), serial}};
  if (!record.catalogue.hidesFirmware) {
    rows.push_back({captionOf(texts.TextModulInfo[4]), firmware});
  }
  return rows;
}

std::vector<RecordRow> identificationRows(const ModuleRecord& record) {
  return {{"Vendor ID", QString::number(record.module.vendorId)},
          {"Group ID", QString::number(record.module.groupId)},
          {"Family ID", QString::number(record.module.familyId)},
          {"Device ID", QString::number(record.module.deviceId)}};
}

std::vector<RecordRow> statusRows(const ModuleRecord& record, const TextTables& texts,
                                  const HostTexts& words) {
  const auto& status = record.status;
  const QString both = hexadecimal(static_cast<std::uint16_t>(status.word)) + " / " +
                       hexadecimal(static_cast<std::uint32_t>(status.led));
  return {{captionOf(texts.TextModulInfo[21]), status.module},
          {captionOf(texts.TextModulInfo[22]), status.channel},
          {words(Word::StatusWords), both},
          {words(Word::StatusLine), status.line}};
}

std::vector<RecordRow> connectionRows(const ModuleRecord& record, const TextTables& texts,
                                      const HostTexts& words) {
  const auto& [port, adapter, object, baudrate, address] = record.connection;
  std::vector<RecordRow> rows{
      {captionOf(texts.TextModulInfo[1]), adapter.contains(port) ? adapter : port + " " + adapter},
      {words(Word::Path), pathOf(object)}};
  if (object == modbusObject) {
    rows.push_back({captionOf(texts.TextModulInfo[2]), QString::number(baudrate)});
  }
  rows.push_back({captionOf(texts.TextModulInfo[0]), QString::number(address)});
  return rows;
}

std::vector<RecordRow> catalogueRows(const ModuleRecord& record, const HostTexts& words) {
  const auto& catalogue = record.catalogue;
  return {{words(Word::CatalogueEntry), words(resultWord(catalogue.result))},
          {words(Word::ProductPage), catalogue.product},
          {words(Word::Datasheet), catalogue.datasheet},
          {words(Word::Leaflet), catalogue.leaflet}};
}

/// How many columns of a terminal a text takes: East Asian signs take two.
qsizetype columns(const QString& text) {
  constexpr char16_t firstWide = 0x2E80;
  return text.size() +
         std::count_if(text.begin(), text.end(), [](QChar sign) { return sign >= firstWide; });
}

}  // namespace

std::vector<RecordSection> recordSections(const ModuleRecord& record, const TextTables& texts,
                                          const HostTexts& words) {
  std::vector<RecordSection> sections{
      {RecordPart::Module, words(Word::SectionModule), moduleRows(record, texts)},
      {RecordPart::Identification, words(Word::SectionIdentification), identificationRows(record)},
      {RecordPart::Status, captionOf(texts.TextModulInfo[7]), statusRows(record, texts, words)},
      {RecordPart::Connection, words(Word::SectionConnection),
       connectionRows(record, texts, words)},
      {RecordPart::Catalogue, words(Word::SectionCatalogue), catalogueRows(record, words)}};
  for (RecordSection& section : sections) {
    std::erase_if(section.rows, [](const RecordRow& row) { return row.value.isEmpty(); });
  }
  return sections;
}

QString recordTime(const ModuleRecord& record, const HostTexts& words) {
  const QDateTime& time = record.time;
  return words.locale().toString(time.toOffsetFromUtc(time.offsetFromUtc()), words(Word::Moment));
}

QString recordText(const ModuleRecord& record, const TextTables& texts, const HostTexts& words) {
  const std::vector<RecordSection> sections = recordSections(record, texts, words);
  qsizetype width = columns(words(Word::Recorded));
  for (const RecordSection& section : sections) {
    for (const RecordRow& row : section.rows) {
      width = std::max(width, columns(row.caption));
    }
  }
  const auto line = [&](const QString& caption, const QString& value) {
    const QString gap(width - columns(caption) + 2, ' ');
    return "  " + caption + ':' + gap + value + '\n';
  };
  QString text =
      words(Word::RecordTitle) + '\n' + line(words(Word::Recorded), recordTime(record, words));
  for (const RecordSection& section : sections) {
    text += '\n' + section.title + '\n';
    for (const RecordRow& row : section.rows) {
      text += line(row.caption, row.value);
    }
  }
  return text;
}

}  // namespace tessara
