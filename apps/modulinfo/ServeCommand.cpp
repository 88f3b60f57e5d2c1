#include <csignal>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "Commands.h"
#include "DeviceCallJson.h"
#include "linux/EmbeddedSimulator.h"
#include "linux/LinuxPlatform.h"
#include "ports/AdapterWords.h"
#include "serve/ClientEvents.h"
#include "serve/ClientMessages.h"
#include "serve/ClientStreams.h"
#include "serve/Session.h"
#include "simulator/ModuleFileError.h"

namespace tessara {

namespace {

LinuxPlatformOptions platformOptions(const Announcer& announcer, ServeLoop& loop, bool trace,
                                     const EmbeddedSimulator* simulator) {
  LinuxPlatformOptions options;
  options.callSink = [&announcer, &loop, trace](const DeviceCall& call) {
    loop.noteActivity();
    if (trace) announcer.announce("device", deviceCallJson(call));
  };
  options.launchSink = [&announcer](const std::string& file, std::int32_t result) {
    announcer.announce("launch", JsonText::object({{"file", file}, {"result", result}}));
  };
  options.embedded = simulator;
  if (simulator != nullptr && simulator->comPort() == usbReaderPort) {
    options.usbReaders = &simulator->usbReaders();
  }
  return options;
}

/// Serves the client until it quits. Returns the number of the error that ended it early, or 0.
int serveClient(const ServeRequest& request, const EmbeddedSimulator* simulator) {
  const ClientStreams streams;
  // A client that has gone is an end like any other.
  std::signal(SIGPIPE, SIG_IGN);
  AsioEventLoop events;
  Channel channel(streams.in(), streams.out());
  Turns turns(request.reentrant);
  ServeLoop loop(events, turns);
  events.tickFailed = [](const std::exception& error) {
    std::cerr << "modulinfo: a tick failed: " << error.what() << '\n';
  };
  const Announcer announcer(channel, loop);
  OpenForms forms(announcer, turns);
  ClientEvents host(announcer);
  LinuxPlatform platform(loop, std::make_shared<ClientMessages>(announcer),
                         platformOptions(announcer, loop, request.trace, simulator));
  ModulInfoFLII control(platform, host);
  control.setFormObserver(&forms);
  control.UserControl_Initialize();
  Bridge bridge{control, forms, loop, {}};
  Session(events, channel, turns, bridge).run();
  return channel.error();
}

}  // namespace

ExitCode run(const ServeRequest& request) {
  try {
    std::optional<EmbeddedSimulator> simulator;
    if (!request.moduleFile.empty()) simulator.emplace(request.moduleFile);
    const int error = serveClient(request, simulator ? &*simulator : nullptr);
    if (error == 0) return ExitCode::Done;
    std::cerr << "modulinfo: standard output cannot be written: "
              << std::generic_category().message(error) << '\n';
    return ExitCode::Failed;
  } catch (const ModuleFileError& error) {
    std::cerr << "modulinfo: " << error.what() << '\n';
    return ExitCode::WrongUsage;
  }
}

}  // namespace tessara
