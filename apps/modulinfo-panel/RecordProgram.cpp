#include "RecordProgram.h"

#include <QApplication>
#include <iostream>
#include <memory>
#include <optional>

#include "HostSettings.h"
#include "Outputs.h"
#include "RecordWindow.h"
#include "Translators.h"
#include "common/HeadlessMessageHelper.h"
#include "control/ModuleWide.h"
#include "linux/LinuxPlatform.h"
#include "localisation/Settings.h"
#include "qt/QtEventLoop.h"
#include "record/RecordFile.h"

namespace tessara {
namespace {

/// Loads the texts as a control does that comes up: those of the language that was asked for, else
/// of the settings; the control's own German if they cannot be used.
void loadTexts(LinuxPlatform& platform, const std::optional<int>& asked) {
  ModuleWide& wide = moduleWide();
  try {
    const auto language = asked ? static_cast<std::int16_t>(*asked)
                                : ReadNumber(*platform.createRegistryHelper(), u"Language",
                                             platform.locale().decimalSeparator());
    wide.LanguageFileError = !LoadLanguageFile(
        platform.appPath(), language, *platform.createFileSystem(), platform.locale(), wide);
  } catch (const std::exception& error) {
    std::cerr << "modulinfo-panel: " << error.what() << '\n';
    wide.LanguageFileError = true;
  }
  if (wide.LanguageFileError) {
    LoadDefaultTexts(wide);
  }
}

}  // namespace

ExitCode showRecord(const PanelRequest& request) {
  const QString path = QString::fromStdString(request.record);
  RecordSheet sheet;
  try {
    sheet.record = readRecord(path);
  } catch (const RecordError& error) {
    return fail(ExitCode::Failed, error.what());
  }
  QtEventLoop loop;
  LinuxPlatform platform(loop, std::make_shared<HeadlessMessageHelper>(std::cerr),
                         {.looksForDevices = false, .keepsSettings = false});
  loadTexts(platform, request.module.language);
  installTranslator(moduleWide());
  sheet.texts = &moduleWide();

  HostSettings settings(!request.isUnattended());
  // The window deletes itself when it is closed.
  auto window = std::make_unique<RecordWindow>(sheet, path, settings);
  if (request.isUnattended()) {
    return worse(writeReportOf(sheet, request), drawWindow(*window, request));
  }
  window.release()->show();
  return static_cast<ExitCode>(QApplication::exec());
}

}  // namespace tessara
