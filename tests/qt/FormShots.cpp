#include "FormShots.h"

#include <QApplication>

#include "FakeHost.h"
#include "FakePlatform.h"
#include "Inside.h"
#include "base/Text.h"
#include "control/ModulInfoFLII.h"
#include "dialogs/Maker.h"
#include "qt/QtForms.h"
#include "qt/QtText.h"

namespace tessara::testing {

bool takeForms(const QString& theme, const QDir& folder) {
  bool saved = true;
  for (std::int16_t language = 1; language <= 11; ++language) {
    FakePlatform platform;
    platform.serialKey.ports = {{"\\Device\\Silabser0", "COM3"}};
    FakeHost host(platform.log);
    QWidget window;
    QtForms forms(window);
    ModulInfoFLII control(platform, host);
    control.UserControl_Initialize();
    control.setFormObserver(&forms);
    control.put_AppPathString(fromUtf8(TESSARA_LANGUAGE_FOLDER));
    control.put_Language(language);
    control.put_VersionString(Variant(std::u16string(maker.version)));
    control.UserControl_Show();
    platform.loop.onModalRun = [&] {
      QApplication::processEvents();
      auto* view = QApplication::activeModalWidget();
      const QString file = QString("%1-%2-%3-%4.png")
                               .arg(view->objectName())
                               .arg(language)
                               .arg(theme)
                               .arg(qRound(100 * view->devicePixelRatio()));
      saved = view->grab().save(folder.filePath(file)) && saved;
    };
    inside(control).panel.cmdSettings.press();
    inside(control).panel.CmdAbout.press();
  }
  return saved;
}

}  // namespace tessara::testing
