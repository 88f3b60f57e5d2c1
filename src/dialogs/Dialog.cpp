#include "dialogs/Dialog.h"

#include <utility>

#include "control/ModuleWide.h"
#include "localisation/Settings.h"

namespace tessara {
namespace {

struct Gradient {
  std::uint32_t start;
  std::uint32_t end;
};
constexpr Gradient idle{0xFDFDFD, 0xF2EFEB};
constexpr Gradient underPointer{0xE1DFDB, 0xE6E4E1};

}  // namespace

WidgetState Dialog::button(std::u16string caption, const Place& place) {
  return {.caption = std::move(caption),
          .gradientstartcolor = idle.start,
          .gradientendcolor = idle.end,
          .place = place};
}

void Dialog::makeButton(Widget& button, std::function<void()> click) {
  button.setClickHandler(std::move(click));
  button.setPointerHandlers([&button] { button.setGradient(underPointer.start, underPointer.end); },
                            [&button] { showIdle(button); });
}

void Dialog::showIdle(Widget& button) {
  button.setGradient(idle.start, idle.end);
}

void Dialog::Form_Load() {
  titleBar_ = &UniFormCaptionB1;
  const ModuleWide& wide = moduleWide();
  // Joined without any checks: an empty folder gives a path from the root, an empty setting a
  // folder.
  const std::u16string candidate = sAppPath + u"\\" +
                                   ReadText(live(wide.RegistryHelper, "RegistryHelper"), u"Icon",
                                            platform_.locale().decimalSeparator());
  if (live(wide.FileSystem, "FileSystem").FileExists(candidate)) {
    platform_.pictureLoader().load(candidate);
    icon_ = candidate;
  }
}

}  // namespace tessara
