#include "ControlRead.h"

#include <iostream>
#include <stdexcept>
#include <utility>

#include "../SilentHost.h"
#include "common/HeadlessMessageHelper.h"
#include "control/ModulInfoFLII.h"
#include "linux/LinuxPlatform.h"
#include "linux/SimulatedKnownPort.h"
#include "qt/QtEventLoop.h"
#include "simulator/LinePort.h"
#include "simulator/PluggableModule.h"

namespace tessara::bench {
namespace {

constexpr std::int16_t comPort = 100;

class PacedPort final : public PortSource {
 public:
  explicit PacedPort(PluggableModule module)
      : name_(module.deviceNamePrefix + std::to_string(comPort)),
        port_(std::move(module.line), {.paced = true}) {}
  [[nodiscard]] std::vector<KnownPort> ports() const override {
    return {simulatedKnownPort(comPort, name_, port_.device())};
  }

 private:
  std::string name_;
  LinePort port_;
};

LinuxPlatformOptions optionsFor(const PortSource& port) {
  LinuxPlatformOptions options;
  options.embedded = &port;
  options.keepsSettings = false;
  return options;
}

}  // namespace

struct ControlRead::World {
  explicit World(const std::string& moduleFile)
      : port(loadPluggableModule(std::string(TESSARA_DATA "/modules/") + moduleFile)),
        platform(loop, std::make_shared<HeadlessMessageHelper>(std::cerr), optionsFor(port)),
        control(platform, host) {
    control.UserControl_Initialize();
    control.put_ComPort(comPort);
    control.put_AppPathString(std::u16string(TESSARA_LANGUAGES));
    control.put_Language(1);
    control.UserControl_Show();
  }

  PacedPort port;
  QtEventLoop loop;
  SilentHost host;
  LinuxPlatform platform;
  ModulInfoFLII control;
};

ControlRead::ControlRead(const std::string& moduleFile)
    : world_(std::make_unique<World>(moduleFile)) {}

ControlRead::~ControlRead() = default;

std::string ControlRead::device() const {
  return world_->port.ports().front().deviceNode;
}

Seconds ControlRead::read(int rate) {
  world_->control.put_Baudrate(rate);
  const auto begun = std::chrono::steady_clock::now();
  world_->control.AutomaticConnection();
  const Seconds taken = std::chrono::steady_clock::now() - begun;
  if (world_->control.get_DataValid() != 1 || world_->control.get_Baudrate() != rate) {
    throw std::runtime_error("the read failed, or succeeded only at the second attempt");
  }
  return taken;
}

}  // namespace tessara::bench
