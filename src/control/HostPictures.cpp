#include "access/RegisterDecoding.h"
#include "control/ModulInfoFLII.h"
#include "knowledge/Conversions.h"
#include "localisation/Settings.h"

namespace tessara {

void ModulInfoFLII::put_FwVersion(const Variant& value) {
  FwVersion = PadVersionText(CommaToPoint(asText(value)));
}

void ModulInfoFLII::put_DescriptionString(const Variant& value) {
  panel.LabelDeviceDescription.setCaption(asText(value));
  panel.LabelDeviceDescription.setToolTipText(panel.LabelDeviceDescription.caption());
}

bool ModulInfoFLII::FindLogoFile(const std::u16string& appPath, const std::u16string& name,
                                 LogoSource source) {
  const ModuleWide& wide = moduleWide();
  const std::u16string file =
      source == LogoSource::Setting
          ? ReadText(live(wide.RegistryHelper, "RegistryHelper"), u"Logo", decimalSeparator())
          : name;
  const FileSystem& files = live(wide.FileSystem, "FileSystem");
  const std::u16string candidate = files.BuildPath(appPath, file);
  const bool bFound = files.FileExists(candidate);
  if (bFound) {
    moduleWide().ManufactureLogoPath = candidate;
  }
  return bFound;
}

void ModulInfoFLII::put_ManufactureLogoString(const Variant& value) {
  if (FindLogoFile(AppPathString, asText(value), LogoSource::Name) ||
      FindLogoFile(AppPathString, {}, LogoSource::Setting)) {
    loadPicture(panel.PictureLogo, moduleWide().ManufactureLogoPath);
  } else {
    panel.PictureLogo.setPicture({});
  }
}

void ModulInfoFLII::put_DeviceLogoString(const Variant& value) {
  // The caller brings its own separator.
  const std::u16string candidate = AppPathString + asText(value);
  if (live(moduleWide().FileSystem, "FileSystem").FileExists(candidate)) {
    moduleWide().DeviceLogoPath = candidate;
    loadPicture(panel.PictureDevice, candidate);
  } else {
    panel.PictureDevice.setPicture({});
  }
}

void ModulInfoFLII::put_DevicePictureString(const Variant& value) {
  const std::u16string candidate = AppPathString + asText(value);
  const bool bFound = live(moduleWide().FileSystem, "FileSystem").FileExists(candidate);
  moduleWide().DevicePicturePath = bFound ? candidate : std::u16string();
}

void ModulInfoFLII::loadPicture(Widget& widget, const std::u16string& path) {
  platform_.pictureLoader().load(path);
  widget.setPicture(path);
}

}  // namespace tessara
