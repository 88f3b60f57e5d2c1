#include <algorithm>
#include <array>

#include "control/Control.h"
#include "dialogs/frmAbout.h"

namespace tessara {
namespace {

constexpr std::u16string_view helpWithoutLanguage = u"Help_001.chm";
constexpr std::u16string_view helpErrorTitle = u"Error Help File";

/// The message for a help file that could not be opened; other results have none.
struct HelpFailure {
  std::int16_t result;
  std::u16string_view message;
};
constexpr std::array<HelpFailure, 5> helpFailures{{{Shell::fileNotFound, u"File Not Found!"},
                                                   {Shell::pathNotFound, u"Path Not Found!"},
                                                   {Shell::accessDenied, u"Access denied!"},
                                                   {Shell::badFormat, u"Bad File Format!"},
                                                   {0, u"DDE Error!"}}};

}  // namespace

void Control::CmdAbout_Click() {
  ModuleWide& wide = moduleWide();
  const auto box = createDialog(wide.frmAbout, platform_);
  box->UniFormCaptionB1.setCaption(wide.TextMainFrame[5]);
  box->SetVersionString(VersionString);
  showModally(box);
}

void Control::CmdHelp_Click() {
  const std::u16string folder = platform_.appPath();
  std::u16string file = folder;
  if (!file.ends_with(u'\\')) {
    file += u'\\';
  }
  const std::u16string& helpFile = moduleWide().HelpFileName;
  file += helpFile.empty() ? std::u16string(helpWithoutLanguage) : helpFile;

  const std::int16_t result = narrowToInt16(
      platform_.shell().ShellExecuteA(hWnd, u"Open", file, {}, folder, Shell::showNormal),
      "the result of opening the help file");
  const auto failure = std::find_if(helpFailures.begin(), helpFailures.end(),
                                    [&](const HelpFailure& row) { return row.result == result; });
  if (failure != helpFailures.end()) {
    showMessage(std::u16string(failure->message), MessageStyle::Error,
                std::u16string(helpErrorTitle));
  }
}

}  // namespace tessara
