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

/// What all controls of one user-interface thread share. Each control that initialises replaces the
/// objects, and each one that ends releases them; texts, port list and paths stay.
struct ModuleWide : LanguageState, RegEnum {
  std::shared_ptr<tessara::RegistryHelper> RegistryHelper;
  std::shared_ptr<tessara::BitFieldHelper> BitFieldHelper;
  std::shared_ptr<tessara::ModbusCommObject> ModbusCommObject;
  std::shared_ptr<tessara::NfcCommObject> NfcCommObject;
  std::shared_ptr<tessara::HartCommObject> HartCommObject;
  std::shared_ptr<tessara::FileSystem> FileSystem;
  std::shared_ptr<tessara::MessageHelper> MessageHelper;

  /// The dialogs while a control shows them.
  std::weak_ptr<tessara::frmLanguage> frmLanguage;
  std::weak_ptr<tessara::frmAbout> frmAbout;

  /// Full paths that the path properties found.
  std::u16string ManufactureLogoPath;
  std::u16string DeviceLogoPath;
  std::u16string DevicePicturePath;
};

/// The objects of the calling thread.
ModuleWide& moduleWide();

/// The object that `pointer` holds; error 91, which names it, if another control has released it.
template <typename Object>
Object& live(const std::shared_ptr<Object>& pointer, const char* name) {
  if (!pointer) {
    throw RunTimeError(ErrorNumber::ObjectNotSet,
                       std::string(name) + " is not set: no control holds it");
  }
  return *pointer;
}

}  // namespace tessara
