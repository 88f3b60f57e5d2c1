#pragma once

#include <QTimeZone>

#include "record/ModuleRecord.h"

namespace tessara::testing {

/// A module with a fault, read in German, with a value in every field.
inline ModuleRecord sampleRecord() {
  ModuleRecord record;
  record.time = QDateTime(QDate(2024, 5, 17), QTime(8, 4, 59), Qt::OffsetFromUTC, 7200);
  record.program = "modulinfo-panel 0.1.0";
  record.language = 1;
  record.connection = {.port = "COM3",
                       .adapter = "USB Adapter OKT (COM3)",
                       .object = "ModbusCommObject",
                       .baudrate = 19200,
                       .address = 192};
  record.module = {.vendorId = 49,
                   .groupId = 1,
                   .familyId = 15,
                   .deviceId = -151,
                   .name = "TESSARA TM 151",
                   .description = "Temperatur-Messumformer",
                   .firmware = "2.000",
                   .serialNumber = "18446744073709551615"};
  record.status = {.module = "2 -> Fehler Register",
                   .channel = "11 -> Drahtbruch Sensor!",
                   .line = "Offline",
                   .word = -32768,
                   .led = 17,
                   .picture = 2};
  record.catalogue = {.result = CatalogResult::CatalogFwNewer,
                      .hidesFirmware = false,
                      .product = "https://example.invalid/tessara/tm-151",
                      .datasheet = "https://example.invalid/tm-151-de.pdf",
                      .leaflet = "https://example.invalid/tm-151-leaflet.pdf"};
  return record;
}

}  // namespace tessara::testing
