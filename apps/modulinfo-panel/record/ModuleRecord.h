#pragma once

#include <QDateTime>
#include <QString>
#include <cstdint>
#include <optional>

#include "knowledge/CatalogResult.h"

namespace tessara {

/// The state of a module at one time, to be saved, printed and copied. Texts are without the
/// padding of the module's registers.
struct ModuleRecord {
  /// The time of the record, with its offset from UTC.
  QDateTime time;
  /// The program that took it, with its version.
  QString program;
  /// The number of the language of the status texts, 1 to 11; 0 if it followed the country of the
  /// system.
  std::int16_t language = 0;

  struct Connection {
    /// "COM3"; "COM999" is the USB NFC reader.
    QString port;
    /// The line of the port list.
    QString adapter;
    /// The name of the communication object.
    QString object;
    /// Bit/s.
    std::int32_t baudrate = 0;
    std::uint8_t address = 0;

    bool operator==(const Connection&) const = default;
  } connection;

  struct Module {
    std::int16_t vendorId = 0;
    std::int16_t groupId = 0;
    std::int16_t familyId = 0;
    std::int16_t deviceId = 0;
    QString name;
    QString description;
    QString firmware;
    QString serialNumber;

    bool operator==(const Module&) const = default;
  } module;

  struct Status {
    QString module;
    QString channel;
    /// The text of the status line.
    QString line;
    /// The last status word and the last LED word.
    std::int16_t word = 0;
    std::int32_t led = 0;
    /// 1 for a module without a fault, 2 for any other state; nothing if no state was read.
    std::optional<std::int32_t> picture;

    bool operator==(const Status&) const = default;
  } status;

  struct Catalogue {
    CatalogResult result = CatalogResult::CatalogFileError;
    /// The panel hides the firmware version of this module.
    bool hidesFirmware = false;
    /// Empty if the catalogue has none.
    QString product;
    QString datasheet;
    QString leaflet;

    bool operator==(const Catalogue&) const = default;
  } catalogue;

  bool operator==(const ModuleRecord&) const = default;
};

}  // namespace tessara
