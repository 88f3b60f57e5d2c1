#pragma once

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "FakeHost.h"
#include "FakePlatform.h"
#include "Inside.h"
#include "base/Text.h"
#include "control/ModulInfoFLII.h"
#include "control/ModuleWide.h"
#include "qt/FormView.h"
#include "qt/QtEventLoop.h"
#include "qt/QtForms.h"
#include "qt/QtText.h"

namespace tessara::testing {

/// A platform of fakes with a real event loop.
class QtWorld : public FakePlatform {
 public:
  EventLoop& eventLoop() override { return turning_; }

 private:
  QtEventLoop turning_;
};

/// A control whose dialogs open on the screen, in German.
class DialogOnScreen : public ::testing::Test {
 protected:
  DialogOnScreen() {
    control->UserControl_Initialize();
    control->setFormObserver(&forms);
    LoadDefaultTexts(moduleWide());
    inside(*control).Language = 1;
    window.show();
  }

  enum class Afterwards { Cancel, Leave };

  /// Presses the button of the panel and runs the user's actions in the dialog that opens. A dialog
  /// still open afterwards is cancelled.
  void press(Widget& opener, const std::function<void(FormView&)>& person,
             Afterwards afterwards = Afterwards::Cancel) {
    bool seen = false;
    QTimer watch;
    watch.setInterval(2);
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
      const QPointer view = dynamic_cast<FormView*>(QApplication::activeModalWidget());
      if (view == nullptr) return;
      watch.stop();
      seen = true;
      EXPECT_TRUE(QTest::qWaitForWindowActive(view));
      view->showError = [this](const QString& text) { errors.push_back(text.toStdString()); };
      person(*view);
      if (view != nullptr && afterwards == Afterwards::Cancel) view->reject();
    });
    watch.start();
    opener.press();
    EXPECT_TRUE(seen);
  }

  /// The Qt widget of that name in the dialog.
  template <class Kind = QWidget>
  static Kind& shown(FormView& view, const Form& form, std::u16string_view name) {
    auto* found = dynamic_cast<Kind*>(view.viewOf(*form.find(name)));
    if (found == nullptr) throw std::logic_error("no such widget is shown: " + toUtf8(name));
    return *found;
  }

  QtWorld platform;
  CallLog& log = platform.log;
  FakeHost host{platform.log};
  QWidget window;
  QtForms forms{window};
  std::unique_ptr<ModulInfoFLII> control = std::make_unique<ModulInfoFLII>(platform, host);
  Panel& panel = inside(*control).panel;
  std::vector<std::string> errors;
};

}  // namespace tessara::testing
