#include "record/RecordRows.h"

#include <QLocale>
#include <algorithm>

#include "qt/QtText.h"
#include "record/RecordWords.h"

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

QString resultText(CatalogResult result) {
  switch (result) {
    case CatalogResult::CatalogNoDevice:
      return RecordWords::tr("Not in the catalogue");
    case CatalogResult::CatalogNoVersion:
      return RecordWords::tr("Known; no entry for this firmware");
    case CatalogResult::CatalogFwNewer:
      return RecordWords::tr("Known; the firmware is newer than the catalogue");
    case CatalogResult::CatalogExact:
      return RecordWords::tr("Known with this firmware");
    case CatalogResult::CatalogFwOlder:
      return RecordWords::tr("Known; the firmware is older than the catalogue");
    case CatalogResult::CatalogFileError:
      break;
  }
  return RecordWords::tr("The catalogue could not be used");
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

std::vector<RecordRow> statusRows(const ModuleRecord& record, const TextTables& texts) {
  const auto& status = record.status;
  const QString both = hexadecimal(static_cast<std::uint16_t>(status.word)) + " / " +
                       hexadecimal(static_cast<std::uint32_t>(status.led));
  //: The line of the panel that reports what the control does
  const QString line = RecordWords::tr("Status line");
  return {{captionOf(texts.TextModulInfo[21]), status.module},
          {captionOf(texts.TextModulInfo[22]), status.channel},
          {RecordWords::tr("Status word / LED word"), both},
          {line, status.line}};
}

std::vector<RecordRow> connectionRows(const ModuleRecord& record, const TextTables& texts) {
  const auto& [port, adapter, object, baudrate, address] = record.connection;
  //: How the module was accessed: Modbus, HART or NFC
  const QString path = RecordWords::tr("Path");
  std::vector<RecordRow> rows{
      {captionOf(texts.TextModulInfo[1]), adapter.contains(port) ? adapter : port + " " + adapter},
      {path, pathOf(object)}};
  if (object == modbusObject) {
    rows.push_back({captionOf(texts.TextModulInfo[2]), QString::number(baudrate)});
  }
  rows.push_back({captionOf(texts.TextModulInfo[0]), QString::number(address)});
  return rows;
}

std::vector<RecordRow> catalogueRows(const ModuleRecord& record) {
  const auto& catalogue = record.catalogue;
  //: Whether the catalogue knows the module
  const QString entry = RecordWords::tr("Entry");
  //: The instructions that come with the module
  const QString leaflet = RecordWords::tr("Package leaflet");
  return {{entry, resultText(catalogue.result)},
          {RecordWords::tr("Product page"), catalogue.product},
          {RecordWords::tr("Data sheet"), catalogue.datasheet},
          {leaflet, catalogue.leaflet}};
}

/// The number of terminal columns that a text takes; East Asian characters take two.
qsizetype columns(const QString& text) {
  constexpr char16_t firstWide = 0x2E80;
  return text.size() +
         std::count_if(text.begin(), text.end(), [](QChar sign) { return sign >= firstWide; });
}

}  // namespace

std::vector<RecordSection> recordSections(const ModuleRecord& record, const TextTables& texts) {
  //: Heading above name, description, serial number and firmware
  const QString module = RecordWords::tr("Module");
  //: Heading above the identification words of the module
  const QString identification = RecordWords::tr("Identification");
  //: Heading above port, path, rate and address
  const QString connection = RecordWords::tr("Connection");
  //: Heading above the entry of the device catalogue
  const QString catalogue = RecordWords::tr("Catalogue");
  std::vector<RecordSection> sections{
      {RecordPart::Module, module, moduleRows(record, texts)},
      {RecordPart::Identification, identification, identificationRows(record)},
      {RecordPart::Status, captionOf(texts.TextModulInfo[7]), statusRows(record, texts)},
      {RecordPart::Connection, connection, connectionRows(record, texts)},
      {RecordPart::Catalogue, catalogue, catalogueRows(record)}};
  for (RecordSection& section : sections) {
    std::erase_if(section.rows, [](const RecordRow& row) { return row.value.isEmpty(); });
  }
  return sections;
}

QString recordTime(const ModuleRecord& record) {
  const QDateTime& time = record.time;
  //: Not a text but the pattern of QLocale for a date and time with its time zone: 17 May 2024,
  //: 08:04:59 (UTC+02:00)
  const QString pattern = RecordWords::tr("d MMMM yyyy, HH:mm:ss (t)");
  return QLocale().toString(time.toOffsetFromUtc(time.offsetFromUtc()), pattern);
}

QString recordText(const ModuleRecord& record, const TextTables& texts) {
  const std::vector<RecordSection> sections = recordSections(record, texts);
  //: Caption of the time at which the module was read
  const QString recorded = RecordWords::tr("Recorded");
  qsizetype width = columns(recorded);
  for (const RecordSection& section : sections) {
    for (const RecordRow& row : section.rows) {
      width = std::max(width, columns(row.caption));
    }
  }
  const auto line = [&](const QString& caption, const QString& value) {
    const QString gap(width - columns(caption) + 2, ' ');
    return "  " + caption + ':' + gap + value + '\n';
  };
  QString text = RecordWords::tr("Module record") + '\n' + line(recorded, recordTime(record));
  for (const RecordSection& section : sections) {
    text += '\n' + section.title + '\n';
    for (const RecordRow& row : section.rows) {
      text += line(row.caption, row.value);
    }
  }
  return text;
}

}  // namespace tessara
