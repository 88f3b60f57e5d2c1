#include "PanelJson.h"

#include <nlohmann/json.hpp>

#include "DeviceCallJson.h"
#include "PanelText.h"
#include "base/Text.h"

namespace tessara {

namespace {

using Json = nlohmann::ordered_json;

/// The number as far as the module gives one: HART transmitters tell their serial number as text.
Json serialNumber(const ModulInfoFLII& control) {
  if (const auto* number = std::get_if<std::uint64_t>(&control.SerialNumber)) return *number;
  return withoutPadding(control.panel.LblSerialNumber.caption());
}

/// The number of the picture that shows the module's state: 1 without a fault, 2 with any other.
Json statePicture(const Panel& panel) {
  const auto* number = std::get_if<std::int32_t>(&panel.ImageDevState.state().picture);
  return number != nullptr && panel.ImageDevState.visible() ? Json(*number) : Json();
}

Json linksOf(const ModulInfoFLII& control) {
  return {{"product", toUtf8(control.ProductLink)},
          {"datasheet", toUtf8(control.DatasheetLink)},
          {"packb", toUtf8(control.PackbLink)}};
}

Json traceOf(const std::vector<DeviceCall>& calls) {
  Json trace = Json::array();
  for (const DeviceCall& call : calls) trace.push_back(deviceCallJson(call));
  return trace;
}

}  // namespace

std::string panelJson(const ModulInfoFLII& control, const std::vector<DeviceCall>* trace) {
  const Panel& panel = control.panel;
  Json json{{"port", "COM" + std::to_string(control.ComPort)},
            {"adapter", toUtf8(panel.ComboComPort.text())},
            {"baudrate", control.Baudrate},
            {"address", control.DevAddr},
            {"vendorId", control.VendorID},
            {"groupId", control.GroupID},
            {"familyId", control.FamilyID},
            {"deviceId", control.DeviceID},
            {"deviceName", withoutPadding(control.DeviceName)},
            {"description", withoutPadding(panel.LabelDeviceDescription.caption())},
            {"firmwareVersion", withoutPadding(control.FwVersion)},
            {"serialNumber", serialNumber(control)},
            {"moduleStatus", toUtf8(panel.LblModulState.caption())},
            {"channelStatus", toUtf8(panel.LblChnState.caption())},
            {"statePicture", statePicture(panel)},
            {"links", linksOf(control)},
            {"statusString", toUtf8(control.StatusString)},
            {"dataValid", control.get_DataValid()}};
  if (trace != nullptr) json["trace"] = traceOf(*trace);
  return json.dump(2) + '\n';
}

}  // namespace tessara
