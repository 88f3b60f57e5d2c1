#include "record/RecordJson.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>
#include <utility>

#include "record/RecordFields.h"
#include "record/RecordMessages.h"

namespace tessara {
namespace {

struct ResultName {
  CatalogResult result;
  const char* name;
};

constexpr std::array<ResultName, 6> resultNames{{
    {CatalogResult::CatalogFileError, "unusable"},
    {CatalogResult::CatalogNoDevice, "noDevice"},
    {CatalogResult::CatalogNoVersion, "noVersion"},
    {CatalogResult::CatalogFwNewer, "firmwareNewer"},
    {CatalogResult::CatalogExact, "exact"},
    {CatalogResult::CatalogFwOlder, "firmwareOlder"},
}};

const char* nameOf(CatalogResult result) {
  return std::find_if(resultNames.begin(), resultNames.end(),
                      [&](const ResultName& row) { return row.result == result; })
      ->name;
}

CatalogResult resultIn(const RecordFields& fields, const char* key) {
  QStringList names;
  for (const ResultName& row : resultNames) {
    names += row.name;
  }
  return resultNames.at(fields.choice(key, names)).result;
}

void requireFormat(const RecordFields& fields) {
  if (!fields.holdsText("format", recordFormat)) {
    fields.fail(record_message::otherFormat, {recordFormat});
  }
  const auto version =
      fields.number<std::int32_t>("version", 1, std::numeric_limits<std::int32_t>::max());
  if (version > recordVersion) {
    fields.fail(record_message::newerVersion,
                {QString::number(version), QString::number(recordVersion)});
  }
}

ModuleRecord::Connection connectionIn(const RecordFields& fields) {
  return {.port = fields.text("port"),
          .adapter = fields.text("adapter"),
          .object = fields.text("object"),
          .baudrate = fields.number<std::int32_t>("baudrate", 0),
          .address = fields.number<std::uint8_t>("address")};
}

ModuleRecord::Module moduleIn(const RecordFields& fields) {
  return {.vendorId = fields.number<std::int16_t>("vendorId"),
          .groupId = fields.number<std::int16_t>("groupId"),
          .familyId = fields.number<std::int16_t>("familyId"),
          .deviceId = fields.number<std::int16_t>("deviceId"),
          .name = fields.text("name"),
          .description = fields.text("description"),
          .firmware = fields.text("firmware"),
          .serialNumber = fields.text("serialNumber")};
}

ModuleRecord::Status statusIn(const RecordFields& fields) {
  ModuleRecord::Status status{.module = fields.text("module"),
                              .channel = fields.text("channel"),
                              .line = fields.text("line"),
                              .word = fields.number<std::int16_t>("word"),
                              .led = fields.number<std::int32_t>("led"),
                              .picture = std::nullopt};
  if (!fields.isNull("picture")) {
    status.picture = fields.number<std::int32_t>("picture", 1, 2);
  }
  return status;
}

ModuleRecord::Catalogue catalogueIn(const RecordFields& fields) {
  return {.result = resultIn(fields, "result"),
          .hidesFirmware = fields.truth("hidesFirmware"),
          .product = fields.text("product"),
          .datasheet = fields.text("datasheet"),
          .leaflet = fields.text("leaflet")};
}

}  // namespace

QByteArray recordJson(const ModuleRecord& record) {
  const auto text = [](const QString& value) { return value.toStdString(); };
  const auto& [port, adapter, object, baudrate, address] = record.connection;
  const auto& module = record.module;
  const auto& status = record.status;
  const auto& catalogue = record.catalogue;
  const Json json{{"format", recordFormat},
                  {"version", recordVersion},
                  {"program", text(record.program)},
                  {"time", text(record.time.toString(Qt::ISODate))},
                  {"language", record.language},
                  {"connection",
                   {{"port", text(port)},
                    {"adapter", text(adapter)},
                    {"object", text(object)},
                    {"baudrate", baudrate},
                    {"address", address}}},
                  {"module",
                   {{"vendorId", module.vendorId},
                    {"groupId", module.groupId},
                    {"familyId", module.familyId},
                    {"deviceId", module.deviceId},
                    {"name", text(module.name)},
                    {"description", text(module.description)},
                    {"firmware", text(module.firmware)},
                    {"serialNumber", text(module.serialNumber)}}},
                  {"status",
                   {{"module", text(status.module)},
                    {"channel", text(status.channel)},
                    {"line", text(status.line)},
                    {"word", status.word},
                    {"led", status.led},
                    {"picture", status.picture ? Json(*status.picture) : Json()}}},
                  {"catalogue",
                   {{"result", nameOf(catalogue.result)},
                    {"hidesFirmware", catalogue.hidesFirmware},
                    {"product", text(catalogue.product)},
                    {"datasheet", text(catalogue.datasheet)},
                    {"leaflet", text(catalogue.leaflet)}}}};
  constexpr int indent = 2;
  return QByteArray::fromStdString(json.dump(indent)) + '\n';
}

ModuleRecord recordFromJson(const QByteArray& json, const QString& name) {
  const Json parsed = parseRecord(json, name);
  const RecordFields fields(parsed, name);
  requireFormat(fields);
  constexpr std::int16_t languages = 11;
  return {.time = fields.time("time"),
          .program = fields.text("program"),
          .language = fields.number<std::int16_t>("language", 0, languages),
          .connection = connectionIn(fields.object("connection")),
          .module = moduleIn(fields.object("module")),
          .status = statusIn(fields.object("status")),
          .catalogue = catalogueIn(fields.object("catalogue"))};
}

}  // namespace tessara
