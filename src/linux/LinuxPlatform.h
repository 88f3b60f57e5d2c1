#pragma once

#include <memory>
#include <string>

#include "drivers/TracedObject.h"
#include "drivers/nfc/HidapiReaders.h"
#include "drivers/nfc/LinuxNfcReaderLibrary.h"
#include "linux/AnnouncedPorts.h"
#include "linux/KnownPorts.h"
#include "linux/LinuxLocale.h"
#include "linux/LinuxShell.h"
#include "linux/PixbufPictureLoader.h"
#include "linux/PortProblems.h"
#include "linux/SettingsPortNumbers.h"
#include "linux/SettingsPorts.h"
#include "linux/ports/SerialCommRegistry.h"
#include "linux/ports/SerialPorts.h"
#include "platform/Platform.h"
#include "xml/XmlFileCache.h"

namespace tessara {

/// What a program may want to change about its platform.
struct LinuxPlatformOptions {
  /// Called after each call to a communication object.
  CallSink callSink{};
  /// Called for each file and address that was to be opened.
  LaunchSink launchSink{};
  /// Called once with each problem for which ports are left out of the port list.
  PortProblemSink portProblemSink = printPortProblem;
  /// Ports of the program's own, offered before all others; has to outlive the platform.
  const PortSource* embedded = nullptr;
  /// USB NFC readers of the program's own, in place of those of the computer; have to outlive the
  /// platform.
  UsbReaders* usbReaders = nullptr;
  /// Loads the pictures of the panel; a program with a window brings one that can show them.
  std::shared_ptr<PictureLoader> pictures = std::make_shared<PixbufPictureLoader>();
  /// False for a program that does not use the ports of the system's devices, since finding them
  /// takes a while.
  bool looksForDevices = true;
  /// False for a program that must not change the user's settings: what the control writes is then
  /// dropped.
  bool keepsSettings = true;
};

/// A Linux system around a control.
///
/// Ports come from the program itself, then from the settings, from running simulators and from
/// the system's devices. The catalogue and the help files lie in programFolder().
class LinuxPlatform final : public Platform {
 public:
  /// `loop` has to outlive the platform.
  LinuxPlatform(EventLoop& loop, std::shared_ptr<MessageHelper> messages,
                LinuxPlatformOptions options = {});

  /// All ports that a control on this platform can use.
  [[nodiscard]] const KnownPorts& ports() const { return allPorts_; }

  std::shared_ptr<RegistryHelper> createRegistryHelper() override;
  std::shared_ptr<BitFieldHelper> createBitFieldHelper() override;
  std::shared_ptr<ModbusCommObject> createModbusCommObject() override;
  std::shared_ptr<NfcCommObject> createNfcCommObject() override;
  std::shared_ptr<HartCommObject> createHartCommObject() override;
  std::shared_ptr<FileSystem> createFileSystem() override;
  std::shared_ptr<MessageHelper> createMessageHelper() override { return messages_; }
  std::unique_ptr<XmlTree> createXmlTree() override;

  EventLoop& eventLoop() override { return loop_; }
  Locale& locale() override { return locale_; }
  RegistryApi& registryApi() override { return registry_; }
  NfcReaderLibrary& nfcReaderLibrary() override { return readerLibrary_; }
  PictureLoader& pictureLoader() override { return *options_.pictures; }
  Shell& shell() override { return shell_; }
  [[nodiscard]] std::u16string appPath() const override { return appPath_; }

 private:
  template <class Object>
  std::shared_ptr<Object> withTracing(std::shared_ptr<Object> object) const;

  EventLoop& loop_;
  std::shared_ptr<MessageHelper> messages_;
  LinuxPlatformOptions options_;
  std::u16string appPath_;
  LinuxLocale locale_;
  LinuxShell shell_;
  XmlFileCache catalogues_;

  HidapiReaders computersReaders_;
  UsbReaders& usbReaders_;
  LinuxNfcReaderLibrary readerLibrary_{usbReaders_};

  PortProblems portProblems_;
  SettingsPorts settingsPorts_{[this](const std::string& text) { portProblems_.report(text); }};
  AnnouncedPorts announcedPorts_;
  /// The ports that a person has entered or started, which take their numbers first.
  KnownPorts enteredPorts_;
  SettingsPortNumbers portNumbers_;
  SerialPorts serialPorts_{portNumbers_, enteredPorts_};
  KnownPorts allPorts_;
  SerialCommRegistry registry_{allPorts_,
                               [this](const std::string& text) { portProblems_.report(text); }};
};

}  // namespace tessara
