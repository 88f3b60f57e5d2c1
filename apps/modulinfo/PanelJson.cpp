#include "PanelJson.h"

#include "DeviceCallJson.h"
#include "PanelText.h"
#include "base/Text.h"
#include "base/Variant.h"
#include "json/JsonText.h"
#include "knowledge/Firmware.h"

namespace tessara {

namespace {

/// The serial number of a HART transmitter is text, which only the panel keeps.
JsonText serialNumber(const ModulInfoFLII& control) {
  if (control.vendorId() == hartVendor) {
    return withoutPadding(control.panel().widget(u"LblSerialNumber").caption());
  }
  return std::get<std::uint64_t>(control.get_SerialNumber());
}

/// The number of the picture that shows the module's state: 1 without a fault, 2 with any other.
JsonText statePicture(const Widget& image) {
  const auto* number = std::get_if<std::int32_t>(&image.state().picture);
  return number != nullptr && image.visible() ? JsonText(*number) : JsonText();
}

std::string utf8(const Variant& value) {
  return toUtf8(toText(value, {}));
}

JsonText linksOf(const ModulInfoFLII& control) {
  return JsonText::object({{"product", utf8(control.get_ProductLink())},
                           {"datasheet", utf8(control.get_DatasheetLink())},
                           {"packb", utf8(control.get_PackbLink())}});
}

JsonText traceOf(const std::vector<DeviceCall>& calls) {
  std::vector<JsonText> trace;
  for (const DeviceCall& call : calls) trace.push_back(deviceCallJson(call));
  return JsonText::list(trace);
}

}  // namespace

std::string panelJson(const ModulInfoFLII& control, const std::vector<DeviceCall>* trace) {
  const WidgetOwner& panel = control.panel();
  const auto caption = [&](std::u16string_view label) { return panel.widget(label).caption(); };
  std::vector<JsonText::Member> members{
      {"port", "COM" + std::to_string(control.get_ComPort())},
      {"adapter", toUtf8(panel.widget(u"ComboComPort").text())},
      {"baudrate", control.get_Baudrate()},
      {"address", control.get_DevAddr()},
      {"vendorId", control.vendorId()},
      {"groupId", control.groupId()},
      {"familyId", control.get_FamilyID()},
      {"deviceId", control.get_DeviceID()},
      {"deviceName", withoutPadding(toText(control.get_DeviceName(), {}))},
      {"description", withoutPadding(caption(u"LabelDeviceDescription"))},
      {"firmwareVersion", withoutPadding(toText(control.get_FwVersion(), {}))},
      {"serialNumber", serialNumber(control)},
      {"moduleStatus", toUtf8(caption(u"LblModulState"))},
      {"channelStatus", toUtf8(caption(u"LblChnState"))},
      {"statePicture", statePicture(panel.widget(u"ImageDevState"))},
      {"links", linksOf(control)},
      {"statusString", utf8(control.get_StatusString())},
      {"dataValid", control.get_DataValid()}};
  if (trace != nullptr) members.emplace_back("trace", traceOf(*trace));
  return JsonText::object(members).indented() + '\n';
}

}  // namespace tessara
