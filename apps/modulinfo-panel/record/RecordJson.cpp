#include "record/RecordJson.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

#include "json/JsonReader.h"
#include "json/JsonText.h"
#include "record/RecordMessages.h"
#include "record/RecordProblem.h"

namespace tessara {
namespace {

struct ResultName {
  CatalogResult result;
  std::string_view name;
};

constexpr std::array<ResultName, 6> resultNames{{
    {CatalogResult::CatalogFileError, "unusable"},
    {CatalogResult::CatalogNoDevice, "noDevice"},
    {CatalogResult::CatalogNoVersion, "noVersion"},
    {CatalogResult::CatalogFwNewer, "firmwareNewer"},
    {CatalogResult::CatalogExact, "exact"},
    {CatalogResult::CatalogFwOlder, "firmwareOlder"},
}};

std::string_view nameOf(CatalogResult result) {
  return std::find_if(resultNames.begin(), resultNames.end(),
                      [&](const ResultName& row) { return row.result == result; })
      ->name;
}

template <typename Number>
Number numberIn(const JsonReader& field, std::int64_t min = std::numeric_limits<Number>::min(),
                std::int64_t max = std::numeric_limits<Number>::max()) {
  return static_cast<Number>(field.signedNumber(min, max));
}

QString textIn(const JsonReader& field) {
  return QString::fromStdString(field.text());
}

CatalogResult resultIn(const JsonReader& field) {
  std::array<std::string_view, resultNames.size()> names;
  std::ranges::transform(resultNames, names.begin(), &ResultName::name);
  return resultNames.at(field.choice(names)).result;
}

void requireFormat(const JsonReader& root, const QString& name) {
  const auto format = root.find("format");
  if (!format || !format->isText() || format->text() != recordFormat) {
    throw RecordError({record_message::otherFormat, {name, recordFormat}});
  }
  const auto version = numberIn<std::int32_t>(root["version"], 1);
  if (version > recordVersion) {
    throw RecordError({record_message::newerVersion,
                       {name, QString::number(version), QString::number(recordVersion)}});
  }
}

/// A moment with its offset from UTC.
QDateTime timeIn(const JsonReader& field, const QString& name) {
  QDateTime time = field.isText() ? QDateTime::fromString(textIn(field), Qt::ISODate) : QDateTime();
  if (!time.isValid()) {
    throw wrongField(name, field.path(), field.shown(), {record_kind::time});
  }
  return time;
}

ModuleRecord::Connection connectionIn(const JsonReader& object) {
  return {.port = textIn(object["port"]),
          .adapter = textIn(object["adapter"]),
          .object = textIn(object["object"]),
          .baudrate = numberIn<std::int32_t>(object["baudrate"], 0),
          .address = numberIn<std::uint8_t>(object["address"])};
}

ModuleRecord::Module moduleIn(const JsonReader& object) {
  return {.vendorId = numberIn<std::int16_t>(object["vendorId"]),
          .groupId = numberIn<std::int16_t>(object["groupId"]),
          .familyId = numberIn<std::int16_t>(object["familyId"]),
          .deviceId = numberIn<std::int16_t>(object["deviceId"]),
          .name = textIn(object["name"]),
          .description = textIn(object["description"]),
          .firmware = textIn(object["firmware"]),
          .serialNumber = textIn(object["serialNumber"])};
}

ModuleRecord::Status statusIn(const JsonReader& object) {
  ModuleRecord::Status status{.module = textIn(object["module"]),
                              .channel = textIn(object["channel"]),
                              .line = textIn(object["line"]),
                              .word = numberIn<std::int16_t>(object["word"]),
                              .led = numberIn<std::int32_t>(object["led"]),
                              .picture = std::nullopt};
  if (const JsonReader picture = object["picture"]; !picture.isNull()) {
    status.picture = numberIn<std::int32_t>(picture, 1, 2);
  }
  return status;
}

ModuleRecord::Catalogue catalogueIn(const JsonReader& object) {
  return {.result = resultIn(object["result"]),
          .hidesFirmware = object["hidesFirmware"].truth(),
          .product = textIn(object["product"]),
          .datasheet = textIn(object["datasheet"]),
          .leaflet = textIn(object["leaflet"])};
}

ModuleRecord recordIn(const JsonReader& root, const QString& name) {
  requireFormat(root, name);
  constexpr std::int16_t languages = 11;
  return {.time = timeIn(root["time"], name),
          .program = textIn(root["program"]),
          .language = numberIn<std::int16_t>(root["language"], 0, languages),
          .connection = connectionIn(root["connection"]),
          .module = moduleIn(root["module"]),
          .status = statusIn(root["status"]),
          .catalogue = catalogueIn(root["catalogue"])};
}

}  // namespace

QByteArray recordJson(const ModuleRecord& record) {
  const auto text = [](const QString& value) { return value.toStdString(); };
  const auto& [port, adapter, object, baudrate, address] = record.connection;
  const auto& module = record.module;
  const auto& status = record.status;
  const auto& catalogue = record.catalogue;
  const auto connectionJson = JsonText::object({{"port", text(port)},
                                                {"adapter", text(adapter)},
                                                {"object", text(object)},
                                                {"baudrate", baudrate},
                                                {"address", address}});
  const auto moduleJson = JsonText::object({{"vendorId", module.vendorId},
                                            {"groupId", module.groupId},
                                            {"familyId", module.familyId},
                                            {"deviceId", module.deviceId},
                                            {"name", text(module.name)},
                                            {"description", text(module.description)},
                                            {"firmware", text(module.firmware)},
                                            {"serialNumber", text(module.serialNumber)}});
  const auto statusJson =
      JsonText::object({{"module", text(status.module)},
                        {"channel", text(status.channel)},
                        {"line", text(status.line)},
                        {"word", status.word},
                        {"led", status.led},
                        {"picture", status.picture ? JsonText(*status.picture) : JsonText()}});
  const auto catalogueJson = JsonText::object({{"result", nameOf(catalogue.result)},
                                               {"hidesFirmware", catalogue.hidesFirmware},
                                               {"product", text(catalogue.product)},
                                               {"datasheet", text(catalogue.datasheet)},
                                               {"leaflet", text(catalogue.leaflet)}});
  const auto json = JsonText::object({{"format", recordFormat},
                                      {"version", recordVersion},
                                      {"program", text(record.program)},
                                      {"time", text(record.time.toString(Qt::ISODate))},
                                      {"language", record.language},
                                      {"connection", connectionJson},
                                      {"module", moduleJson},
                                      {"status", statusJson},
                                      {"catalogue", catalogueJson}});
  return QByteArray::fromStdString(json.indented()) + '\n';
}

ModuleRecord recordFromJson(const QByteArray& json, const QString& name) {
  try {
    return recordIn(JsonReader::parse({json.data(), static_cast<std::size_t>(json.size())}), name);
  } catch (const JsonSyntaxError& error) {
    throw recordError(name, error);
  } catch (const JsonError& error) {
    throw recordError(name, error);
  }
}

}  // namespace tessara
