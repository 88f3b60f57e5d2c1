#include "simulator/RunSimulator.h"

#include <csignal>
#include <exception>
#include <filesystem>
#include <memory>
#include <mutex>
#include <utility>

#include "simulator/Announcement.h"
#include "simulator/LinePort.h"
#include "simulator/PluggableModule.h"

namespace tessara {

namespace {

constexpr int servedCode = 0;
constexpr int notServedCode = 2;

/// Blocks the signals that end the simulator, for waitForEnd(), in this thread and in those that it
/// starts.
class EndSignals {
 public:
  EndSignals() {
    ::sigemptyset(&signals_);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) ::sigaddset(&signals_, signal);
    ::pthread_sigmask(SIG_BLOCK, &signals_, &before_);
  }
  ~EndSignals() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

  void waitForEnd() const {
    int signal = 0;
    ::sigwait(&signals_, &signal);
  }

 private:
  ::sigset_t signals_{};
  ::sigset_t before_{};
};

/// Prints the lines of several threads undivided.
class Report {
 public:
  Report(std::ostream& out, std::ostream& err) : out_(out), err_(err) {}

  void line(const std::string& text) { print(out_, text); }
  void error(const std::string& text) { print(err_, text); }

 private:
  void print(std::ostream& stream, const std::string& text) {
    const std::lock_guard lock(mutex_);
    stream << text << std::endl;
  }

  std::mutex mutex_;
  std::ostream& out_;
  std::ostream& err_;
};

/// A port with its announcement.
class ServedModule {
 public:
  ServedModule(const std::string& file, PluggableModule module, bool paced, Report& report)
      : title_(titleOf(file, module)),
        report_(report),
        announcement_("", module.deviceNamePrefix),
        port_(std::move(module.line), {paced, {}, [this](const auto& device) { change(device); }}) {
    show(port_.device());
  }

 private:
  static std::string titleOf(const std::string& file, const PluggableModule& module) {
    const std::string source = "(" + std::filesystem::path(file).filename().string() + ")";
    return module.name.empty() ? source : module.name + " " + source;
  }

  void show(const std::string& device) {
    announcement_.update(device);
    report_.line("COM" + std::to_string(announcement_.number()) + "  " +
                 (device.empty() ? "unplugged" : device + "  " + title_));
  }

  /// The other modules are still served if this one can no longer be announced.
  void change(const std::string& device) {
    try {
      show(device);
    } catch (const std::exception& error) {
      report_.error(error.what());
    }
  }

  std::string title_;
  Report& report_;
  Announcement announcement_;
  LinePort port_;
};

}  // namespace

int runSimulator(const std::vector<std::string>& moduleFiles, bool paced, std::ostream& out,
                 std::ostream& err) {
  const EndSignals signals;
  Report report(out, err);
  try {
    std::vector<PluggableModule> modules;
    modules.reserve(moduleFiles.size());
    for (const std::string& file : moduleFiles) modules.push_back(loadPluggableModule(file));
    std::vector<std::unique_ptr<ServedModule>> served;
    for (std::size_t index = 0; index < modules.size(); ++index) {
      served.push_back(std::make_unique<ServedModule>(moduleFiles[index], std::move(modules[index]),
                                                      paced, report));
    }
    signals.waitForEnd();
    return servedCode;
  } catch (const std::exception& error) {
    report.error(error.what());
    return notServedCode;
  }
}

}  // namespace tessara
