#include "control/Control.h"
#include "dialogs/frmLanguage.h"
#include "localisation/Language.h"
#include "localisation/Settings.h"

namespace tessara {
namespace {

constexpr std::u16string_view outcomeOk = u"1";
constexpr std::int16_t englishLanguage = 2;
/// For users who cannot read the current language.
constexpr std::u16string_view restartInEnglish = u"\n\nPlease restart application!";

}  // namespace

void Control::cmdSettings_Click() {
  ModuleWide& wide = moduleWide();
  const auto dialog = createDialog(wide.frmLanguage, platform_);
  dialog->SetAppPath(AppPathString);
  dialog->SetLanguage(Language);
  dialog->UniFormCaptionB1.setCaption(wide.TextModulInfo[16]);
  if (!showModally(dialog)) {
    return;
  }
  const std::int16_t oldLanguage = Language;
  if (dialog->Tag() == outcomeOk) {
    Language = dialog->GetLanguage();
    SaveLanguage(live(wide.RegistryHelper, "RegistryHelper"), Language);
    std::u16string text = wide.TextModulInfo[17];
    if (oldLanguage != englishLanguage) {
      text += restartInEnglish;
    }
    showMessage(text, MessageStyle::Warning);
  }
}

}  // namespace tessara
