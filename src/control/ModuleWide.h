#pragma once

#include <memory>
#include <string>

#include "base/RunTimeError.h"
#include "localisation/Language.h"
#include "platform/BitFieldHelper.h"
#include "platform/CommunicationObject.h"
#include "platform/FileSystem.h"
#include "platform/MessageHelper.h"
#include "platform/RegistryHelper.h"
#include "ports/RegEnum.h"

namespace tessara {

class frmAbout;
class frmLanguage;

/// What all controls of one user-interface thread share. The objects are replaced by every control
/// that comes up and released by every one that ends; texts, port list and paths stay.
struct ModuleWide : LanguageState, RegEnum {
  std::shared_ptr<tessara::RegistryHelper> RegistryHelper;
  std::shared_ptr<tessara::BitFieldHelper> BitFieldHelper;
  std::shared_ptr<tessara::ModbusCommObject> ModbusCommObject;
  std::shared_ptr<tessara::NfcCommObject> NfcCommObject;
  std::shared_ptr<tessara::HartCommObject> HartCommObject;
  std::shared_ptr<tessara::FileSystem> FileSystem;
  std::shared_ptr<tessara::MessageHelper> MessageHelper;

  /// The dialogs while they are in use.
  std::shared_ptr<tessara::frmLanguage> frmLanguage;
  std::shared_ptr<tessara::frmAbout> frmAbout;

  /// Full paths found by the path properties.
  std::u16string ManufactureLogoPath;
  std::u16string DeviceLogoPath;
  std::u16string DevicePicturePath;
};

/// The set of the calling thread.
ModuleWide& moduleWide();

/// The object behind `pointer`; an error (91) that names it if another control has released it.
template <typename Object>
Object& live(const std::shared_ptr<Object>& pointer, const char* name) {
  if (!pointer) {
    throw RunTimeError(ErrorNumber::ObjectNotSet,
                       std::string(name) + " is not set: no control holds it");
  }
  return *pointer;
}

}  // namespace tessara
