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

struct ServeArguments {
  bool trace = false;
  bool reentrant = false;
  /// The file of a module to be simulated beside the control; empty for none.
  std::string moduleFile;
};

LinuxPlatformOptions platformOptions(const Announcer& announcer, ServeLoop& loop, bool trace,
                                     const EmbeddedSimulator* simulator) {
  LinuxPlatformOptions options;
  options.callSink = [&announcer, &loop, trace](const DeviceCall& call) {
    loop.noteActivity();
    if (trace) announcer.announce("device", deviceCallJson(call));
  };
  options.launchSink = [&announcer](const std::string& file, std::int32_t result) {
    announcer.announce("launch", {{"file", file}, {"result", result}});
  };
  options.embedded = simulator;
  if (simulator != nullptr && simulator->comPort() == usbReaderPort) {
    options.usbReaders = &simulator->usbReaders();
  }
  return options;
}

/// Serves the client until it quits; gives the number of the error that has kept it from that.
int serveClient(const ServeArguments& arguments, const EmbeddedSimulator* simulator) {
  const ClientStreams streams;
  // A client that has gone is an end like any other.
  std::signal(SIGPIPE, SIG_IGN);
  AsioEventLoop events;
  Channel channel(streams.in(), streams.out());
  Turns turns(arguments.reentrant);
  ServeLoop loop(events, turns);
  events.tickFailed = [](const std::exception& error) {
    std::cerr << "modulinfo: a tick failed: " << error.what() << '\n';
  };
  const Announcer announcer(channel, loop);
  OpenForms forms(announcer, turns);
  ClientEvents host(announcer);
  LinuxPlatform platform(loop, std::make_shared<ClientMessages>(announcer),
                         platformOptions(announcer, loop, arguments.trace, simulator));
  ModulInfoFLII control(platform, host);
  control.setFormObserver(&forms);
  control.UserControl_Initialize();
  Bridge bridge{control, forms, loop, {}};
  Session(events, channel, turns, bridge).run();
  return channel.error();
}

ExitCode serve(const ServeArguments& arguments) {
  try {
    std::optional<EmbeddedSimulator> simulator;
    if (!arguments.moduleFile.empty()) simulator.emplace(arguments.moduleFile);
    const int error = serveClient(arguments, simulator ? &*simulator : nullptr);
    if (error == 0) return ExitCode::Done;
    std::cerr << "modulinfo: standard output cannot be written: "
              << std::generic_category().message(error) << '\n';
    return ExitCode::Failed;
  } catch (const ModuleFileError& error) {
    std::cerr << "modulinfo: " << error.what() << '\n';
    return ExitCode::WrongUsage;
  }
}

}  // namespace

void addServeCommand(CLI::App& app, Command& chosen) {
  CLI::App* serving = app.add_subcommand(
      "serve", "Drive a control by JSON-RPC requests on standard input, one a line");
  const auto arguments = std::make_shared<ServeArguments>();
  serving->add_flag("--trace", arguments->trace, "Tell of each call to the module");
  serving
      ->add_option("--simulate", arguments->moduleFile,
                   "Simulate the module of this file and offer its port")
      ->check(CLI::ExistingFile);
  serving->add_flag("--reentrant", arguments->reentrant,
                    "Handle a request as soon as it arrives, also in the middle of another");
  serving->callback([&chosen, arguments] { chosen = [arguments] { return serve(*arguments); }; });
}

}  // namespace tessara
