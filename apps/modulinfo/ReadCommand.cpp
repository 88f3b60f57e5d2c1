#include <iostream>
#include <memory>
#include <optional>

#include "Commands.h"
#include "PanelJson.h"
#include "PanelText.h"
#include "asio/AsioEventLoop.h"
#include "common/DeviceLog.h"
#include "common/HeadlessMessageHelper.h"
#include "common/ModuleReading.h"
#include "linux/EmbeddedSimulator.h"
#include "simulator/ModuleFileError.h"

namespace tessara {

namespace {

/// A host that does nothing but wait for the end of the read.
class WaitingHost final : public HostEvents {
 public:
  void ModulActive(std::int32_t& /*lStatus*/) override {}
  void StatusChange() override {}
  void SetConfiguration() override {}
  void SaveConfiguration() override {}
  void LoadConfiguration() override {}
  void PrintConfiguration() override {}
  void DataTransfer() override {}
  void NFCReader(bool& /*bNFCReader*/) override {}
};

void print(const ModulInfoFLII& control, const DeviceLog& log, const ReadRequest& request) {
  std::cout << (request.json ? panelJson(control, request.trace ? &log.calls() : nullptr)
                             : panelText(control));
}

void readAndPrint(const ModuleRequest& module, const ReadRequest& request,
                  const EmbeddedSimulator* simulator) {
  AsioEventLoop loop;
  DeviceLog log(request.trace);
  WaitingHost host;
  LinuxPlatformOptions options;
  options.callSink = [&log](const DeviceCall& call) { log.add(call); };
  options.embedded = simulator;
  if (simulator != nullptr) options.usbReaders = &simulator->usbReaders();
  options.looksForDevices = simulator == nullptr;
  options.keepsSettings = simulator == nullptr;
  LinuxPlatform platform(loop, std::make_shared<HeadlessMessageHelper>(std::cerr),
                         std::move(options));
  ModulInfoFLII control(platform, host);
  control.UserControl_Initialize();
  bringUp(control, platform, module);
  readOnce(control, platform, log);
  print(control, log, request);
}

}  // namespace

ExitCode run(const ReadRequest& request) {
  try {
    ModuleRequest module = request.module;
    std::optional<EmbeddedSimulator> simulator;
    if (!module.moduleFile.empty()) {
      simulator.emplace(module.moduleFile);
      module.comPort = simulator->comPort();
    }
    readAndPrint(module, request, simulator ? &*simulator : nullptr);
    return ExitCode::Done;
  } catch (const ReadFailure& failure) {
    std::cerr << "modulinfo: " << failure.what() << '\n';
    return failure.code();
  } catch (const ModuleFileError& error) {
    std::cerr << "modulinfo: " << error.what() << '\n';
    return ExitCode::WrongUsage;
  }
}

}  // namespace tessara
