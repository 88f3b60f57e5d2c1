#include "access/RegisterDecoding.h"
#include "control/Control.h"
#include "control/ModulInfoFLII.h"
#include "knowledge/Conversions.h"
#include "localisation/Settings.h"

namespace tessara {

void ModulInfoFLII::put_FwVersion(const Variant& value) {
  control_->FwVersion = PadVersionText(CommaToPoint(control_->asText(value)));
}

void ModulInfoFLII::put_DescriptionString(const Variant& value) {
  control_->panel.LabelDeviceDescription.setCaption(control_->asText(value));
  control_->panel.LabelDeviceDescription.setToolTipText(
      control_->panel.LabelDeviceDescription.caption());
}

bool Control::FindLogoFile(const std::u16string& appPath, const std::u16string& name) {
  const std::u16string candidate = appPath + u"\\" + name;
  const bool bFound = live(moduleWide().FileSystem, "FileSystem").FileExists(candidate);
  if (bFound) {
    moduleWide().ManufactureLogoPath = candidate;
  }
  return bFound;
}

void ModulInfoFLII::put_ManufactureLogoString(const Variant& value) {
  const std::u16string& appPath = control_->AppPathString;
  const auto logoSetting = [this] {
    return ReadText(live(moduleWide().RegistryHelper, "RegistryHelper"), u"Logo",
                    control_->decimalSeparator());
  };
  if (control_->FindLogoFile(appPath, control_->asText(value)) ||
      control_->FindLogoFile(appPath, logoSetting())) {
    control_->loadPicture(control_->panel.PictureLogo, moduleWide().ManufactureLogoPath);
  } else {
    control_->panel.PictureLogo.setPicture({});
  }
}

void ModulInfoFLII::put_DeviceLogoString(const Variant& value) {
  // The caller supplies the separator.
  const std::u16string candidate = control_->AppPathString + control_->asText(value);
  if (live(moduleWide().FileSystem, "FileSystem").FileExists(candidate)) {
    moduleWide().DeviceLogoPath = candidate;
    control_->loadPicture(control_->panel.PictureDevice, candidate);
  } else {
    control_->panel.PictureDevice.setPicture({});
  }
}

void ModulInfoFLII::put_DevicePictureString(const Variant& value) {
  const std::u16string candidate = control_->AppPathString + control_->asText(value);
  const bool bFound = live(moduleWide().FileSystem, "FileSystem").FileExists(candidate);
  moduleWide().DevicePicturePath = bFound ? candidate : std::u16string();
}

void Control::loadPicture(Widget& widget, const std::u16string& path) {
  platform_.pictureLoader().load(path);
  widget.setPicture(path);
}

}  // namespace tessara
