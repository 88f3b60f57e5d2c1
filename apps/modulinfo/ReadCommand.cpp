#include <iostream>
#include <memory>
#include <optional>

#include "Commands.h"
#include "PanelJson.h"
#include "PanelText.h"
#include "asio/AsioEventLoop.h"
#include "common/DeviceLog.h"
#include "common/HeadlessMessageHelper.h"
#include "common/ModuleOptions.h"
#include "common/ModuleReading.h"
#include "linux/EmbeddedSimulator.h"
#include "simulator/ModuleFileError.h"

namespace tessara {

namespace {

/// A host that has nothing to do but wait for the read to end.
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

void readAndPrint(const ReadRequest& request, const EmbeddedSimulator* simulator) {
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
  bringUp(control, platform, request);
  readOnce(control, platform, log);
  print(control, log, request);
}

ExitCode read(ReadRequest request) {
  try {
    std::optional<EmbeddedSimulator> simulator;
    if (!request.moduleFile.empty()) {
      simulator.emplace(request.moduleFile);
      request.comPort = simulator->comPort();
    }
    readAndPrint(request, simulator ? &*simulator : nullptr);
    return ExitCode::Done;
  } catch (const ReadFailure& failure) {
    std::cerr << "modulinfo: " << failure.what() << '\n';
    return failure.code();
  } catch (const ModuleFileError& error) {
    std::cerr << "modulinfo: " << error.what() << '\n';
    return ExitCode::WrongUsage;
  }
}

}  // namespace

void addReadCommand(CLI::App& app, Command& chosen) {
  CLI::App* reading = app.add_subcommand("read", "Read a module once and print what it is");
  const auto request = std::make_shared<ReadRequest>();
  addModuleOptions(*reading, request, true);
  reading->add_flag("--json", request->json, "Print one JSON object");
  reading->add_flag("--trace", request->trace, "Print each call to the module on standard error");
  reading->callback([&chosen, request] { chosen = [request] { return read(*request); }; });
}

}  // namespace tessara
