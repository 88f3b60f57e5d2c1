#include "linux/LinuxPlatform.h"

#include <utility>

#include "base/Text.h"
#include "drivers/hart/HartDriver.h"
#include "drivers/modbus/ModbusDriver.h"
#include "drivers/nfc/NfcDriver.h"
#include "linux/LinuxFileSystem.h"
#include "linux/LinuxRegistryHelper.h"
#include "xml/XmlFileTree.h"

namespace tessara {

LinuxPlatform::LinuxPlatform(EventLoop& loop, std::shared_ptr<MessageHelper> messages,
                             LinuxPlatformOptions options)
    : loop_(loop),
      messages_(std::move(messages)),
      options_(std::move(options)),
      appPath_(fromUtf8(programFolder().string())),
      shell_(options_.launchSink),
      usbReaders_(options_.usbReaders != nullptr ? *options_.usbReaders : computersReaders_),
      portProblems_(options_.portProblemSink) {
  if (options_.embedded != nullptr) enteredPorts_.add(*options_.embedded);
  enteredPorts_.add(settingsPorts_);
  enteredPorts_.add(announcedPorts_);
  allPorts_.add(enteredPorts_);
  if (options_.looksForDevices) allPorts_.add(serialPorts_);
}

template <class Object>
std::shared_ptr<Object> LinuxPlatform::withTracing(std::shared_ptr<Object> object) const {
  return options_.callSink ? traced(std::move(object), options_.callSink) : object;
}

std::shared_ptr<RegistryHelper> LinuxPlatform::createRegistryHelper() {
  const auto lookup = [this](const std::u16string& key, const std::u16string& name) {
    return registry_.usbKeyValue(key, name);
  };
  return std::make_shared<LinuxRegistryHelper>(locale_, lookup, options_.keepsSettings);
}

std::shared_ptr<BitFieldHelper> LinuxPlatform::createBitFieldHelper() {
  return std::make_shared<BitFieldHelper>();
}

std::shared_ptr<ModbusCommObject> LinuxPlatform::createModbusCommObject() {
  return withTracing<ModbusCommObject>(std::make_shared<ModbusDriver>(allPorts_));
}

std::shared_ptr<NfcCommObject> LinuxPlatform::createNfcCommObject() {
  return withTracing<NfcCommObject>(std::make_shared<NfcDriver>(allPorts_, usbReaders_));
}

std::shared_ptr<HartCommObject> LinuxPlatform::createHartCommObject() {
  return withTracing<HartCommObject>(std::make_shared<HartDriver>(allPorts_));
}

std::shared_ptr<FileSystem> LinuxPlatform::createFileSystem() {
  return std::make_shared<LinuxFileSystem>();
}

std::unique_ptr<XmlTree> LinuxPlatform::createXmlTree() {
  return std::make_unique<XmlFileTree>(catalogues_);
}

}  // namespace tessara
