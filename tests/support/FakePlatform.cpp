#include "FakePlatform.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "FakeCatalogue.h"
#include "base/RunTimeError.h"
#include "base/Text.h"

namespace tessara::testing {
namespace {

constexpr std::int32_t noMoreItems = 259;
constexpr std::int32_t fileNotFound = 2;

}  // namespace

void FakeRegistryHelper::SetValue(std::int32_t hive, const std::u16string& key,
                                  const std::u16string& name, const Variant& value,
                                  std::int32_t valueType) {
  log_.add("SetValue " + std::to_string(hive) + " " + toUtf8(key) + "|" + toUtf8(name) + "=" +
           toUtf8(toText(value, u".")) + " type " + std::to_string(valueType));
  values_[key + u"|" + name] = value;
}

Variant FakeRegistryHelper::GetValue(std::int32_t hive, const std::u16string& key,
                                     const std::u16string& name) {
  log_.add("GetValue " + std::to_string(hive) + " " + toUtf8(key) + "|" + toUtf8(name));
  const auto found = values_.find(key + u"|" + name);
  return found == values_.end() ? Variant{} : found->second;
}

namespace {

class FakeTimer : public PeriodicTimer {
 public:
  explicit FakeTimer(bool& enabled) : enabled_(enabled) {}
  ~FakeTimer() override { enabled_ = false; }
  void setEnabled(bool enabled) override { enabled_ = enabled; }

 private:
  bool& enabled_;
};

class FakeModalRun : public ModalRun {
 public:
  FakeModalRun(CallLog& log, const std::function<void()>& person) : log_(log), person_(person) {}
  void run() override {
    log_.add("modal run");
    if (!ended_) {
      person_();
    }
  }
  void end() override {
    ended_ = true;
    log_.add("modal end");
  }

 private:
  CallLog& log_;
  const std::function<void()>& person_;
  bool ended_ = false;
};

}  // namespace

void FakeEventLoop::yield() {
  log_.add("yield");
  onYield();
}

void FakeEventLoop::sleep(std::chrono::milliseconds duration) {
  log_.add("sleep " + std::to_string(duration.count()));
}

std::unique_ptr<PeriodicTimer> FakeEventLoop::createTimer(std::chrono::milliseconds wanted,
                                                          std::function<void()> handler) {
  interval = wanted;
  tick = std::move(handler);
  return std::make_unique<FakeTimer>(timerEnabled);
}

std::unique_ptr<ModalRun> FakeEventLoop::createModalRun() {
  return std::make_unique<FakeModalRun>(log_, onModalRun);
}

bool FakeFileSystem::FileExists(const std::u16string& path) const {
  log_.add("FileExists " + toUtf8(path));
  return files_.contains(path) || std::filesystem::is_regular_file(std::filesystem::path(path));
}

std::u16string FakeFileSystem::BuildPath(const std::u16string& path,
                                         const std::u16string& name) const {
  return path.empty() || path.ends_with(u'/') ? path + name : path + u"/" + name;
}

std::int32_t FakeMessageHelper::Show(const std::u16string& text, MessageStyle style,
                                     const std::u16string& title) {
  log_.add("Show " + std::to_string(static_cast<std::int32_t>(style)) + " " + toUtf8(title) + ": " +
           toUtf8(text));
  return answer_;
}

std::int32_t FakeRegistryApi::RegOpenKeyExA(std::int32_t /*hive*/, const std::string& /*subKey*/,
                                            std::uint32_t /*options*/, std::uint32_t /*access*/,
                                            RegistryKey& key) {
  key = 1;
  return ports.empty() ? fileNotFound : success;
}

std::int32_t FakeRegistryApi::RegEnumValueA(RegistryKey /*key*/, std::uint32_t index,
                                            std::string& name, std::uint32_t& length) {
  if (index >= ports.size()) {
    return noMoreItems;
  }
  name = ports[index].first;
  length = static_cast<std::uint32_t>(name.size());
  return success;
}

std::int32_t FakeRegistryApi::RegQueryValueExA(RegistryKey /*key*/, const std::string& valueName,
                                               std::uint32_t& type, std::string* data,
                                               std::uint32_t& size) {
  const auto found = std::find_if(ports.begin(), ports.end(),
                                  [&](const auto& port) { return port.first == valueName; });
  if (found == ports.end()) {
    return fileNotFound;
  }
  type = static_cast<std::uint32_t>(RegistryType::String);
  size = static_cast<std::uint32_t>(found->second.size() + 1);
  if (data != nullptr) {
    *data = found->second + '\0';
  }
  return success;
}

std::int32_t FakeRegistryApi::RegCloseKey(RegistryKey /*key*/) {
  return success;
}

std::int32_t FakeNfcReaderLibrary::CR95HFDLL_USBconnect() {
  log_.add("CR95HFDLL_USBconnect");
  if (missing) {
    throw std::runtime_error("the reader's library is not there");
  }
  return connectStatus;
}

std::int32_t FakeNfcReaderLibrary::CR95HFDll_Echo(std::string& reply) {
  log_.add("CR95HFDll_Echo " + std::to_string(reply.size()));
  reply = "5500";
  return echoStatus;
}

std::int32_t FakeNfcReaderLibrary::CR95HFDLL_getMCUrev(std::string& reply) {
  log_.add("CR95HFDLL_getMCUrev");
  reply = revisionReply;
  return revisionStatus;
}

void FakePictureLoader::load(const std::u16string& path) {
  log_.add("load " + toUtf8(path));
  if (broken) {
    throw RunTimeError(ErrorNumber::InvalidPicture, toUtf8(path) + " holds no picture");
  }
}

std::int32_t FakeShell::ShellExecuteA(WindowHandle window, const std::u16string& operation,
                                      const std::u16string& file, const std::u16string& parameters,
                                      const std::u16string& folder, std::int32_t showCommand) {
  log_.add("ShellExecuteA " + std::to_string(window) + " " + toUtf8(operation) + " " +
           toUtf8(file) + " (" + toUtf8(parameters) + ") " + toUtf8(folder) + " " +
           std::to_string(showCommand));
  return result;
}

FakePlatform::FakePlatform() : xmlTree([] { return std::make_unique<FakeCatalogue>(); }) {}

void FakePlatform::created(const std::string& name) {
  log.add("create " + name);
  if (name == failingCreation) {
    throw std::runtime_error(name + " cannot be created");
  }
}

std::shared_ptr<tessara::RegistryHelper> FakePlatform::createRegistryHelper() {
  created("RegistryHelper");
  return std::make_shared<FakeRegistryHelper>(log, settings);
}

std::shared_ptr<tessara::BitFieldHelper> FakePlatform::createBitFieldHelper() {
  created("BitFieldHelper");
  return {new tessara::BitFieldHelper, [this](tessara::BitFieldHelper* helper) {
            log.add("release BitFieldHelper");
            delete helper;
          }};
}

std::shared_ptr<tessara::ModbusCommObject> FakePlatform::createModbusCommObject() {
  created("ModbusCommObject");
  return std::make_shared<FakeModbusCommObject>(device);
}

std::shared_ptr<tessara::NfcCommObject> FakePlatform::createNfcCommObject() {
  created("NfcCommObject");
  return std::make_shared<FakeNfcCommObject>(device);
}

std::shared_ptr<tessara::HartCommObject> FakePlatform::createHartCommObject() {
  created("HartCommObject");
  return std::make_shared<FakeHartCommObject>(device);
}

std::shared_ptr<tessara::FileSystem> FakePlatform::createFileSystem() {
  created("FileSystem");
  return std::make_shared<FakeFileSystem>(log, files);
}

std::shared_ptr<tessara::MessageHelper> FakePlatform::createMessageHelper() {
  created("MessageHelper");
  return std::make_shared<FakeMessageHelper>(log, messageAnswer);
}

}  // namespace tessara::testing
