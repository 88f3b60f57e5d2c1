#include "record/TakeRecord.h"

#include "base/Text.h"
#include "qt/QtText.h"

namespace tessara {
namespace {

/// What DataValid says of a module that was read.
constexpr std::int32_t dataOfModule = 1;

std::optional<std::int32_t> statePicture(const Widget& image) {
  const auto* number = std::get_if<std::int32_t>(&image.state().picture);
  return number != nullptr && image.visible() ? std::optional(*number) : std::nullopt;
}

/// The control keeps the links of an earlier module if the catalogue does not list the present one.
bool listsDevice(CatalogResult verdict) {
  return verdict != CatalogResult::CatalogFileError && verdict != CatalogResult::CatalogNoDevice;
}

ModuleRecord::Catalogue catalogueOf(const ModulInfoFLII& control) {
  ModuleRecord::Catalogue catalogue;
  catalogue.result = control.catalogVerdict().value_or(CatalogResult::CatalogFileError);
  if (listsDevice(catalogue.result)) {
    catalogue.hidesFirmware = control.HideFwVersion == 1;
    catalogue.product = readable(control.ProductLink);
    catalogue.datasheet = readable(control.DatasheetLink);
    catalogue.leaflet = readable(control.PackbLink);
  }
  return catalogue;
}

/// The moment with its offset, in whole seconds: as a file keeps it.
QDateTime kept(const QDateTime& time) {
  const QDateTime whole = QDateTime::fromSecsSinceEpoch(time.toSecsSinceEpoch());
  return whole.toOffsetFromUtc(time.offsetFromUtc());
}

}  // namespace

std::optional<ModuleRecord> takeRecord(const ModulInfoFLII& control, const QDateTime& time) {
  if (control.get_DataValid() != dataOfModule) {
    return std::nullopt;
  }
  const Panel& panel = control.panel;
  const CommunicationObject* object = control.get_CommunicationObject();
  return ModuleRecord{.time = kept(time),
                      .program = "modulinfo-panel " TESSARA_VERSION,
                      .language = control.Language,
                      .connection = {.port = "COM" + QString::number(control.ComPort),
                                     .adapter = readable(panel.ComboComPort.text()),
                                     .object = object == nullptr ? QString() : toQt(object->name()),
                                     .baudrate = control.Baudrate,
                                     .address = control.DevAddr},
                      .module = {.vendorId = control.VendorID,
                                 .groupId = control.GroupID,
                                 .familyId = control.FamilyID,
                                 .deviceId = control.DeviceID,
                                 .name = readable(control.DeviceName),
                                 .description = readable(panel.LabelDeviceDescription.caption()),
                                 .firmware = readable(control.FwVersion),
                                 .serialNumber = readable(panel.LblSerialNumber.caption())},
                      .status = {.module = readable(panel.LblModulState.caption()),
                                 .channel = readable(panel.LblChnState.caption()),
                                 .line = readable(control.StatusString),
                                 .word = control.StatusWord,
                                 .led = control.LedWord,
                                 .picture = statePicture(panel.ImageDevState)},
                      .catalogue = catalogueOf(control)};
}

}  // namespace tessara
