#include "ModuleAtWork.h"

#include <algorithm>
#include <ctime>
#include <iostream>
#include <memory>

#include "common/HeadlessMessageHelper.h"
#include "support/Inside.h"

namespace tessara::testing {
namespace {

constexpr std::int32_t usualRate = 19200;
constexpr std::int16_t german = 1;

std::chrono::duration<double> workOfThread() {
  ::timespec time{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

}  // namespace

ModuleAtWork::ModuleAtWork(const std::filesystem::path& moduleFile)
    : module(moduleFile),
      platform_(loop, std::make_shared<HeadlessMessageHelper>(std::cerr), options()),
      control_(platform_, *this) {
  control_.UserControl_Initialize();
  control_.put_ComPort(module.comPort());
  control_.put_AppPathString(std::u16string(TESSARA_LANGUAGES));
  control_.put_Language(german);
  control_.UserControl_Show();
  forget();
}

LinuxPlatformOptions ModuleAtWork::options() {
  LinuxPlatformOptions options;
  options.embedded = &module;
  options.usbReaders = &module.usbReaders();
  options.looksForDevices = false;
  options.keepsSettings = false;
  options.callSink = [this](const DeviceCall& call) {
    calls.push_back(call);
    afterCall(calls.size());
  };
  return options;
}

void ModuleAtWork::forget() {
  calls.clear();
  activities.clear();
  statusTexts.clear();
}

void ModuleAtWork::read() {
  control_.put_Baudrate(usualRate);
  control_.AutomaticConnection();
}

std::ptrdiff_t ModuleAtWork::failedCalls() const {
  return std::count_if(calls.begin(), calls.end(),
                       [](const DeviceCall& call) { return call.error.has_value(); });
}

std::ptrdiff_t ModuleAtWork::callsOf(const std::string& operation) const {
  return std::count_if(calls.begin(), calls.end(),
                       [&](const DeviceCall& call) { return call.operation == operation; });
}

Effort ModuleAtWork::effortOf(const std::function<void()>& action) {
  const auto begun = std::chrono::steady_clock::now();
  const auto worked = workOfThread();
  action();
  return {std::chrono::steady_clock::now() - begun, workOfThread() - worked};
}

void ModuleAtWork::ModulActive(std::int32_t& lStatus) {
  ++activities[static_cast<Activity>(lStatus)];
}

void ModuleAtWork::StatusChange() {
  if (statusTexts.empty() || statusTexts.back() != inside(control_).StatusString) {
    statusTexts.push_back(inside(control_).StatusString);
  }
}

}  // namespace tessara::testing
