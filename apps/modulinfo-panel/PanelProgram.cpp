#include "PanelProgram.h"

#include <QApplication>
#include <QTimer>
#include <iostream>
#include <memory>
#include <optional>
#include <utility>

#include "HostSettings.h"
#include "Outputs.h"
#include "PanelWindow.h"
#include "RecordProgram.h"
#include "common/DeviceLog.h"
#include "common/HeadlessMessageHelper.h"
#include "common/ModuleReading.h"
#include "linux/EmbeddedSimulator.h"
#include "linux/LinuxPlatform.h"
#include "qt/QtEventLoop.h"
#include "qt/QtMessageHelper.h"
#include "qt/QtPictureLoader.h"
#include "simulator/ModuleFileError.h"

namespace tessara {
namespace {

/// Brings the panel up as far as possible. A module that was asked for must be there; without one a
/// window shows what is wrong, and a picture is not drawn.
void bringUpPanel(PanelWindow& window, LinuxPlatform& platform, const PanelRequest& request) {
  if (request.namesModule()) {
    bringUp(window.control(), platform, request.module);
    return;
  }
  try {
    bringUpAtLastPort(window.control(), platform, request.module);
  } catch (const ReadFailure&) {
    throw;
  } catch (const std::exception& error) {
    if (request.isUnattended()) {
      throw ReadFailure(ExitCode::NoConnection, error.what());
    }
    window.showError(error);
  }
}

/// Reads the module and writes what was asked for, the picture even of a read that failed.
ExitCode readUnattended(PanelWindow& window, LinuxPlatform& platform, const DeviceLog& log,
                        const PanelRequest& request) {
  if (window.control().panel().widget(u"ComboComPort").state().items.empty()) {
    return fail(ExitCode::NoConnection, "no port and no reader was found");
  }
  ExitCode code = ExitCode::Done;
  try {
    readOnce(window.control(), platform, log);
  } catch (const ReadFailure& failure) {
    code = fail(failure.code(), failure.what());
  }
  window.adjustSize();
  code = worse(code, drawWindow(window, request));
  if (const auto record = window.record()) {
    code = worse(code, writeReportOf(window.sheetOf(*record), request));
  }
  return code;
}

ExitCode showModule(PanelRequest request, const EmbeddedSimulator* simulator) {
  const bool isSimulated = simulator != nullptr;
  HostSettings settings(!isSimulated);
  if (!request.module.baudrate) {
    request.module.baudrate = settings.baudrate();
  }
  QtEventLoop loop;
  DeviceLog log(false);
  EventLog events;
  LinuxPlatformOptions options;
  options.embedded = simulator;
  if (isSimulated) {
    options.usbReaders = &simulator->usbReaders();
  }
  options.looksForDevices = !isSimulated;
  options.keepsSettings = !isSimulated;
  options.pictures = std::make_shared<QtPictureLoader>();
  options.callSink = [&events](const DeviceCall& call) { events.add(call); };
  const auto boxes = std::make_shared<QtMessageHelper>();
  std::shared_ptr<MessageHelper> messages = boxes;
  if (request.isUnattended()) {
    messages = std::make_shared<HeadlessMessageHelper>(std::cerr);
    options.callSink = [&log](const DeviceCall& call) { log.add(call); };
  }
  PanelWindow* opener = nullptr;
  options.launchSink = [&opener](const std::string& file, std::int32_t result) {
    if (opener != nullptr) {
      opener->openingEnded(file, result);
    }
  };
  LinuxPlatform platform(loop, std::move(messages), std::move(options));
  PanelWindow window(platform, events, settings);
  opener = &window;
  boxes->setParent(&window);
  loop.tickFailed = [&window](const std::exception& error) { window.tell(error.what()); };

  bringUpPanel(window, platform, request);
  window.controlIsUp();
  if (request.isUnattended()) {
    return readUnattended(window, platform, log, request);
  }
  window.takePlace();
  window.show();
  if (request.reads) {
    QTimer::singleShot(0, &window, &PanelWindow::read);
  }
  return static_cast<ExitCode>(QApplication::exec());
}

}  // namespace

ExitCode runPanel(const PanelRequest& request) {
  if (!request.record.empty()) {
    return showRecord(request);
  }
  try {
    std::optional<EmbeddedSimulator> simulator;
    PanelRequest at = request;
    if (!request.module.moduleFile.empty()) {
      simulator.emplace(request.module.moduleFile);
      at.module.comPort = simulator->comPort();
    }
    return showModule(std::move(at), simulator ? &*simulator : nullptr);
  } catch (const ReadFailure& failure) {
    return fail(failure.code(), failure.what());
  } catch (const ModuleFileError& error) {
    return fail(ExitCode::WrongUsage, error.what());
  }
}

}  // namespace tessara
