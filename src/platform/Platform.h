#pragma once

#include <memory>
#include <string>

#include "platform/BitFieldHelper.h"
#include "platform/CommunicationObject.h"
#include "platform/EventLoop.h"
#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "platform/MessageHelper.h"
#include "platform/NfcReaderLibrary.h"
#include "platform/PictureLoader.h"
#include "platform/RegistryApi.h"
#include "platform/RegistryHelper.h"
#include "platform/Shell.h"
#include "platform/XmlTree.h"

namespace tessara {

/// The world around a control: makes the objects that the control creates for itself and gives
/// access to what the system has anyway. A platform outlives the controls on it.
///
/// A create function that fails throws; the control then does not come up.
class Platform {
 public:
  Platform() = default;
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;
  virtual ~Platform() = default;

  virtual std::shared_ptr<RegistryHelper> createRegistryHelper() = 0;
  virtual std::shared_ptr<BitFieldHelper> createBitFieldHelper() = 0;
  virtual std::shared_ptr<ModbusCommObject> createModbusCommObject() = 0;
  virtual std::shared_ptr<NfcCommObject> createNfcCommObject() = 0;
  virtual std::shared_ptr<HartCommObject> createHartCommObject() = 0;
  virtual std::shared_ptr<FileSystem> createFileSystem() = 0;
  virtual std::shared_ptr<MessageHelper> createMessageHelper() = 0;
  virtual std::unique_ptr<XmlTree> createXmlTree() = 0;

  virtual EventLoop& eventLoop() = 0;
  virtual Locale& locale() = 0;
  virtual RegistryApi& registryApi() = 0;
  virtual NfcReaderLibrary& nfcReaderLibrary() = 0;
  virtual PictureLoader& pictureLoader() = 0;
  virtual Shell& shell() = 0;

  /// The folder of the control's own program file, without a separator at its end.
  /// The catalogue and the help files lie in it.
  [[nodiscard]] virtual std::u16string appPath() const = 0;
};

}  // namespace tessara
