// How long a control takes to start up on a machine with 20 serial ports and no NFC reader, against
// one enumeration of these ports by libudev alone. The two alternate.

#include <QCoreApplication>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <vector>

#include "../Median.h"
#include "../SilentHost.h"
#include "BareEnumeration.h"
#include "MockedPorts.h"
#include "common/HeadlessMessageHelper.h"
#include "control/ModulInfoFLII.h"
#include "control/ModuleWide.h"
#include "linux/LinuxPlatform.h"
#include "qt/QtEventLoop.h"

namespace {

using tessara::bench::median;
using tessara::bench::MockedPorts;

constexpr int runs = 41;

/// A settings folder for this run alone.
class OwnSettings {
 public:
  OwnSettings() {
    std::string name = std::filesystem::temp_directory_path() / "tessara-bench-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr)
      throw std::runtime_error("cannot create a folder for the settings");
    folder_ = name;
    for (const char* place : {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_RUNTIME_DIR"}) {
      ::setenv(place, name.c_str(), 1);
    }
  }
  ~OwnSettings() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  OwnSettings(const OwnSettings&) = delete;
  OwnSettings& operator=(const OwnSettings&) = delete;

 private:
  std::filesystem::path folder_;
};

template <class Action>
double timeOf(Action action) {
  const auto begun = std::chrono::steady_clock::now();
  action();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
}

/// Starts a control on a platform of its own, as a program does, and returns how long showing it
/// took.
double show(tessara::QtEventLoop& loop) {
  tessara::LinuxPlatform platform(loop,
                                  std::make_shared<tessara::HeadlessMessageHelper>(std::cerr));
  tessara::bench::SilentHost host;
  tessara::ModulInfoFLII control(platform, host);
  control.UserControl_Initialize();
  control.put_AppPathString(std::u16string(TESSARA_LANGUAGES));
  control.put_Language(1);
  control.put_ComPort(3);
  const double taken = timeOf([&] { control.UserControl_Show(); });
  const tessara::RegEnum& ports = tessara::moduleWide();
  if (ports.PortDeviceNames[MockedPorts::portCount - 1].empty() || ports.PortCount == 0) {
    throw std::runtime_error("the control has not found all ports");
  }
  return taken;
}

double enumerate() {
  int ports = 0;
  const double taken = timeOf([&ports] { ports = tessara::bench::enumerateBarely(); });
  if (ports != MockedPorts::portCount) throw std::runtime_error("libudev has not found all ports");
  return taken;
}

void measure() {
  const MockedPorts ports;
  const OwnSettings settings;
  tessara::QtEventLoop loop;
  // The first showing gives the ports their numbers.
  show(loop);
  enumerate();
  std::vector<double> shown;
  std::vector<double> bare;
  std::vector<double> ratios;
  for (int run = 0; run < runs; ++run) {
    bare.push_back(enumerate());
    shown.push_back(show(loop));
    ratios.push_back(shown.back() / bare.back());
  }
  std::printf("%d ports  libudev %.2f ms  start-up %.2f ms  ratio %.2f\n", MockedPorts::portCount,
              median(bare) * 1e3, median(shown) * 1e3, median(ratios));
}

}  // namespace

int main(int argc, char** argv) {
  try {
    tessara::bench::seeMockedDevices(argv);
    const QCoreApplication application(argc, argv);
    measure();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench_show: %s\n", error.what());
    return 1;
  }
  return 0;
}
