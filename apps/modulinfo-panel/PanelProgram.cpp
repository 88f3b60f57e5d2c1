#include "PanelProgram.h"

#include <QApplication>
#include <QTimer>
#include <iostream>
#include <memory>
#include <optional>
#include <utility>

#include "DeviceLog.h"
#include "ModuleReading.h"
#include "PanelWindow.h"
#include "platform/headless/HeadlessMessageHelper.h"
#include "platform/linux/EmbeddedSimulator.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtMessageHelper.h"
#include "platform/qt/QtPictureLoader.h"
#include "simulator/ModuleFileError.h"

namespace tessara {
namespace {

ExitCode fail(ExitCode code, const char* message) {
  std::cerr << "modulinfo-panel: " << message << '\n';
  return code;
}

/// Brings the panel up as far as it gets. A module that was asked for has to be there; without one
/// a window tells what is wrong, and a picture is not drawn.
void bringUpPanel(PanelWindow& window, LinuxPlatform& platform, const PanelRequest& request) {
  if (request.namesModule()) {
    bringUp(window.control(), platform, request.module);
    return;
  }
  try {
    bringUpAtLastPort(window.control(), platform, request.module);
  } catch (const std::exception& error) {
    if (request.draws()) {
      throw ReadFailure(ExitCode::NoConnection, error.what());
    }
    window.showError(error);
  }
}

ExitCode draw(PanelWindow& window, LinuxPlatform& platform, const DeviceLog& log,
              const std::string& file) {
  if (window.control().ReaderMissing) {
    return fail(ExitCode::NoConnection, "no port and no reader was found");
  }
  ExitCode code = ExitCode::Done;
  try {
    readOnce(window.control(), platform, log);
  } catch (const ReadFailure& failure) {
    code = fail(failure.code(), failure.what());
  }
  window.adjustSize();
  if (!window.grab().save(QString::fromStdString(file), "PNG")) {
    return fail(ExitCode::Failed, (file + " cannot be written").c_str());
  }
  return code;
}

ExitCode show(const PanelRequest& request, const EmbeddedSimulator* simulator) {
  QtEventLoop loop;
  DeviceLog log(false);
  LinuxPlatformOptions options;
  options.embedded = simulator;
  if (simulator != nullptr) options.usbReaders = &simulator->usbReaders();
  options.looksForDevices = simulator == nullptr;
  options.keepsSettings = simulator == nullptr;
  options.pictures = std::make_shared<QtPictureLoader>();
  const auto boxes = std::make_shared<QtMessageHelper>();
  std::shared_ptr<MessageHelper> messages = boxes;
  if (request.draws()) {
    messages = std::make_shared<HeadlessMessageHelper>(std::cerr);
    options.callSink = [&log](const DeviceCall& call) { log.add(call); };
  }
  LinuxPlatform platform(loop, std::move(messages), std::move(options));
  PanelWindow window(platform);
  boxes->setParent(&window);
  loop.tickFailed = [&window](const std::exception& error) { window.tell(error.what()); };

  bringUpPanel(window, platform, request);
  if (request.draws()) {
    return draw(window, platform, log, request.screenshot);
  }
  window.show();
  if (request.reads) {
    QTimer::singleShot(0, &window, &PanelWindow::read);
  }
  return static_cast<ExitCode>(QApplication::exec());
}

}  // namespace

ExitCode showPanel(const PanelRequest& request) {
  try {
    std::optional<EmbeddedSimulator> simulator;
    PanelRequest at = request;
    if (!request.module.moduleFile.empty()) {
      simulator.emplace(request.module.moduleFile);
      at.module.comPort = simulator->comPort();
    }
    return show(at, simulator ? &*simulator : nullptr);
  } catch (const ReadFailure& failure) {
    return fail(failure.code(), failure.what());
  } catch (const ModuleFileError& error) {
    return fail(ExitCode::WrongUsage, error.what());
  }
}

}  // namespace tessara
