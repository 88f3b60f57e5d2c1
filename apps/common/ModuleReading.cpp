#include "common/ModuleReading.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <vector>

#include "base/Text.h"
#include "localisation/Settings.h"
#include "ports/AdapterWords.h"

namespace tessara {

namespace {

std::string portName(std::int16_t comPort) {
  return "COM" + std::to_string(comPort);
}

/// The port is known, but not in the port list.
[[noreturn]] void failUnlistedPort(std::int16_t comPort) {
  throw ReadFailure(ExitCode::NoConnection,
                    comPort == usbReaderPort
                        ? "no USB NFC reader was found"
                        : portName(comPort) +
                              " is not in the list of ports: unrecognised adapter type. The "
                              "setting ShowAllComPorts=1 lists such ports too");
}

[[noreturn]] void failUnknownPort(std::int16_t comPort, const std::vector<KnownPort>& ports) {
  std::string known;
  for (const KnownPort& port : ports) {
    known += (known.empty() ? "there are " : ", ") + portName(port.comPort);
  }
  throw ReadFailure(ExitCode::NoConnection, "there is no port " + portName(comPort) + "; " +
                                                (known.empty() ? "no port was found" : known));
}

/// True if that line of the port list is the port.
bool isLineOf(const std::u16string& line, std::int16_t comPort) {
  return comPort == usbReaderPort ? line == usbReaderLine
                                  : line.ends_with(fromUtf8("(" + portName(comPort) + ")"));
}

/// Makes sure that the port of the request is selected: for a port that it does not find, the
/// control itself takes the first port, or one whose number begins with the same digits.
void selectPort(Widget& list, std::int16_t comPort) {
  if (isLineOf(list.text(), comPort)) return;
  const auto& lines = list.state().items;
  const auto line = std::find_if(lines.begin(), lines.end(), [&](const std::u16string& label) {
    return isLineOf(label, comPort);
  });
  if (line == lines.end()) failUnlistedPort(comPort);
  list.select(static_cast<std::int32_t>(line - lines.begin()));
}

std::int16_t setting(LinuxPlatform& platform, std::u16string_view name) {
  return ReadNumber(*platform.createRegistryHelper(), name, platform.locale().decimalSeparator());
}

/// The addresses that modules on a path have.
struct AddressRange {
  std::u16string_view object;
  const char* path;
  std::int32_t min;
  std::int32_t max;
};

constexpr std::array<AddressRange, 3> addressRanges{{{u"ModbusCommObject", "Modbus", 1, 247},
                                                     {u"NfcCommObject", "NFC", 1, 247},
                                                     {u"HartCommObject", "HART", 0, 63}}};

/// Refuses an address that no module on the selected path has.
void checkAddress(const ModulInfoFLII& control, std::int32_t address) {
  const CommunicationObject* object = control.get_CommunicationObject();
  if (object == nullptr) return;
  for (const AddressRange& range : addressRanges) {
    if (range.object == object->name() && (address < range.min || address > range.max)) {
      throw ReadFailure(ExitCode::WrongUsage, std::string("--address: ") + range.path + " takes " +
                                                  std::to_string(range.min) + " to " +
                                                  std::to_string(range.max) + ", not " +
                                                  std::to_string(address));
    }
  }
}

/// Brings the control up; without a port it takes the one that the settings name.
void showControl(ModulInfoFLII& control, LinuxPlatform& platform, const ModuleRequest& request,
                 std::optional<std::int16_t> comPort) {
  control.put_AppPathString(platform.appPath());
  control.put_Language(request.language ? static_cast<std::int16_t>(*request.language)
                                        : setting(platform, u"Language"));
  control.put_ComPort(comPort ? *comPort : setting(platform, u"COM Port"));
  control.put_Baudrate(request.baudrate.value_or(defaultBaudrate));
  control.UserControl_Show();
}

/// Enters the address of the request, if it has one.
void enterAddress(ModulInfoFLII& control, const ModuleRequest& request) {
  if (!request.address) return;
  checkAddress(control, *request.address);
  control.panel().widget(u"txtDevAddr").setText(decimalText(*request.address));
}

/// Why a connected module could not be read to the end.
std::string causeOf(const DeviceLog& log, const LinuxPlatform& platform) {
  if (!log.error().empty()) return log.error();
  return "the module answered, but " + toUtf8(platform.appPath()) +
         "/TessaraDevices.xml could not be used for it";
}

}  // namespace

void bringUp(ModulInfoFLII& control, LinuxPlatform& platform, const ModuleRequest& request) {
  try {
    const bool isKnown =
        request.comPort == usbReaderPort || platform.ports().deviceOf(request.comPort);
    if (!isKnown) failUnknownPort(request.comPort, platform.ports().ports());
    showControl(control, platform, request, request.comPort);
    selectPort(control.panel().widget(u"ComboComPort"), request.comPort);
    enterAddress(control, request);
  } catch (const RunTimeError& error) {
    throw ReadFailure(ExitCode::NoConnection, error.what());
  }
}

void bringUpAtLastPort(ModulInfoFLII& control, LinuxPlatform& platform,
                       const ModuleRequest& request) {
  showControl(control, platform, request, std::nullopt);
  enterAddress(control, request);
}

void readOnce(ModulInfoFLII& control, LinuxPlatform& platform, const DeviceLog& log) {
  control.AutomaticConnection();
  if (control.get_DataValid() != 0) return;
  if (!log.hasConnected()) {
    throw ReadFailure(ExitCode::NoConnection,
                      "no connection: " + control.get_CommunicationObject()->connectFailure());
  }
  throw ReadFailure(ExitCode::ReadFailed,
                    "the module could not be read: " + causeOf(log, platform));
}

}  // namespace tessara
