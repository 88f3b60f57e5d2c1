#pragma once

#include <functional>
#include <string>

#include "ControlFixture.h"
#include "dialogs/frmAbout.h"
#include "dialogs/frmLanguage.h"
#include "widgets/Form.h"

namespace tessara::testing {

/// Writes "frmLanguage shown" and "frmLanguage hidden" into the log, and lets the widgets of the
/// form that is open write there too.
class FormLog : public FormObserver {
 public:
  FormLog(CallLog& log, WidgetObserver& widgets) : log_(log), widgets_(widgets) {}

  void formShown(Form& form) override {
    open = &form;
    log_.add(toUtf8(form.name()) + " shown");
    form.setObserver(&widgets_);
  }
  void formHidden(Form& form) override {
    open = nullptr;
    log_.add(toUtf8(form.name()) + " hidden");
    form.setObserver(nullptr);
  }

  /// The form that was shown last and is open; null for none.
  Form* open = nullptr;

 private:
  CallLog& log_;
  WidgetObserver& widgets_;
};

/// A control in a world of fakes whose dialogs are written into the log, and a person before it.
class DialogFixture : public ControlFixture {
 protected:
  DialogFixture() { control.setFormObserver(&forms); }

  void TearDown() override { EXPECT_FALSE(isAwaited_) << "no dialog came up for the person"; }

  /// What a person does while a dialog is open. One has to come up.
  void person(std::function<void()> acts) {
    isAwaited_ = true;
    platform.loop.onModalRun = [this, acts = std::move(acts)] {
      isAwaited_ = false;
      acts();
    };
  }

  /// The dialog that is open.
  template <class Kind>
  Kind& dialog() {
    auto* found = dynamic_cast<Kind*>(forms.open);
    if (found == nullptr) throw std::logic_error("no such dialog is open");
    return *found;
  }

  static constexpr const char16_t* iconSetting = u"Software\\Orvane\\Tessara-Conf\\Settings|Icon";
  static constexpr const char* savedLanguage =
      "SetValue 2 Software\\Orvane\\Tessara-Conf\\Settings|Language=";

  FormLog forms{log, panelLog};

 private:
  bool isAwaited_ = false;
};

}  // namespace tessara::testing
