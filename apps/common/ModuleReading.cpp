#include "common/ModuleReading.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "base/Text.h"
#include "localisation/Settings.h"
#include "ports/AdapterWords.h"

namespace tessara {

namespace {

std::string portName(std::int16_t comPort) {
  return "COM" + std::to_string(comPort);
}

/// The port is known and stands in no line of the port list.
[[noreturn]] void failUnlistedPort(std::int16_t comPort) {
  throw ReadFailure(ExitCode::NoConnection,
                    comPort == usbReaderPort
                        ? "no USB NFC reader was found"
                        : portName(comPort) +
                              " is not in the list of ports: its adapter is of no known kind. With "
                              "the setting ShowAllComPorts at 1 such ports are listed too");
}

[[noreturn]] void failUnknownPort(std::int16_t comPort, const std::vector<KnownPort>& ports) {
  std::string known;
  for (const KnownPort& port : ports) {
    known += (known.empty() ? "there are " : ", ") + portName(port.comPort);
  }
  throw ReadFailure(ExitCode::NoConnection, "there is no port " + portName(comPort) + "; " +
                                                (known.empty() ? "no port was found" : known));
}

/// True if that line of the port list stands for the port.
bool isLineOf(const std::u16string& line, std::int16_t comPort) {
  return comPort == usbReaderPort ? line == usbReaderLine
                                  : line.ends_with(fromUtf8("(" + portName(comPort) + ")"));
}

/// Makes sure that the port of the request is the one that is selected: the control itself takes
/// the first port, or one whose number begins alike, for a port that it does not find.
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

/// Brings the control up; without a port it takes the one that the settings name.
void showControl(ModulInfoFLII& control, LinuxPlatform& platform, const ReadRequest& request,
                 std::optional<std::int16_t> comPort) {
  control.put_AppPathString(platform.appPath());
  control.put_Language(request.language ? static_cast<std::int16_t>(*request.language)
                                        : setting(platform, u"Language"));
  control.put_ComPort(comPort ? *comPort : setting(platform, u"COM Port"));
  control.put_Baudrate(request.baudrate);
  control.UserControl_Show();
  if (request.address) control.panel().widget(u"txtDevAddr").setText(decimalText(*request.address));
}

/// Why a connected module could not be read to the end.
std::string causeOf(const DeviceLog& log, const LinuxPlatform& platform) {
  if (!log.error().empty()) return log.error();
  return "the module answered, but " + toUtf8(platform.appPath()) +
         "/TessaraDevices.xml could not be used for it";
}

}  // namespace

void bringUp(ModulInfoFLII& control, LinuxPlatform& platform, const ReadRequest& request) {
  try {
    const bool isKnown =
        request.comPort == usbReaderPort || platform.ports().deviceOf(request.comPort);
    if (!isKnown) failUnknownPort(request.comPort, platform.ports().ports());
    showControl(control, platform, request, request.comPort);
    selectPort(control.panel().widget(u"ComboComPort"), request.comPort);
  } catch (const RunTimeError& error) {
    throw ReadFailure(ExitCode::NoConnection, error.what());
  }
}

void bringUpAtLastPort(ModulInfoFLII& control, LinuxPlatform& platform,
                       const ReadRequest& request) {
  showControl(control, platform, request, std::nullopt);
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
