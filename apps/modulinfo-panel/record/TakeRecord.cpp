#include "record/TakeRecord.h"

#include "base/Variant.h"
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
    catalogue.hidesFirmware = control.hidesFirmware();
    catalogue.product = readable(toText(control.get_ProductLink(), {}));
    catalogue.datasheet = readable(toText(control.get_DatasheetLink(), {}));
    catalogue.leaflet = readable(toText(control.get_PackbLink(), {}));
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
  const WidgetOwner& panel = control.panel();
  const auto caption = [&](std::u16string_view label) {
    return readable(panel.widget(label).caption());
  };
  const auto property = [](const Variant& value) { return readable(toText(value, {})); };
  const CommunicationObject* object = control.get_CommunicationObject();
  return ModuleRecord{.time = kept(time),
                      .program = "modulinfo-panel " TESSARA_VERSION,
                      .language = control.get_Language(),
                      .connection = {.port = "COM" + QString::number(control.get_ComPort()),
                                     .adapter = readable(panel.widget(u"ComboComPort").text()),
                                     .object = object == nullptr ? QString() : toQt(object->name()),
                                     .baudrate = control.get_Baudrate(),
                                     .address = control.get_DevAddr()},
                      .module = {.vendorId = control.vendorId(),
                                 .groupId = control.groupId(),
                                 .familyId = static_cast<std::int16_t>(control.get_FamilyID()),
                                 .deviceId = static_cast<std::int16_t>(control.get_DeviceID()),
                                 .name = property(control.get_DeviceName()),
                                 .description = caption(u"LabelDeviceDescription"),
                                 .firmware = property(control.get_FwVersion()),
                                 .serialNumber = caption(u"LblSerialNumber")},
                      .status = {.module = caption(u"LblModulState"),
                                 .channel = caption(u"LblChnState"),
                                 .line = property(control.get_StatusString()),
                                 .word = control.statusWord(),
                                 .led = control.ledWord(),
                                 .picture = statePicture(panel.widget(u"ImageDevState"))},
                      .catalogue = catalogueOf(control)};
}

}  // namespace tessara
