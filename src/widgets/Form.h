#pragma once

#include <memory>
#include <string>

#include "platform/EventLoop.h"
#include "widgets/Widget.h"

namespace tessara {

class Form;

/// Draws or monitors the forms of a control.
class FormObserver {
 public:
  FormObserver() = default;
  FormObserver(const FormObserver&) = delete;
  FormObserver& operator=(const FormObserver&) = delete;
  virtual ~FormObserver() = default;

  /// The form is loaded and must be shown; its widgets may be observed from now on. It waits for a
  /// person once this has returned.
  virtual void formShown(Form& form) = 0;
  /// The form must be hidden. It may be destroyed as soon as the current event is over, so its
  /// observer must let go of it and of its widgets.
  virtual void formHidden(Form& form) = 0;
};

/// The model of a window with widgets; whatever draws it observes it.
class Form : public WidgetOwner {
 public:
  explicit Form(std::u16string name) : name_(std::move(name)) {}
  virtual ~Form() = default;

  /// "frmLanguage"
  [[nodiscard]] const std::u16string& name() const { return name_; }
  [[nodiscard]] bool visible() const { return visible_; }
  /// The file of the window's icon; empty for none.
  [[nodiscard]] const std::u16string& icon() const { return icon_; }

  /// The widget whose caption is the title of the window; null before the form is loaded.
  [[nodiscard]] const Widget* titleBar() const { return titleBar_; }
  /// The button that the Return key presses.
  [[nodiscard]] virtual Widget& defaultButton() = 0;
  /// The button pressed by the Escape key and by closing the window.
  [[nodiscard]] virtual Widget& cancelButton() = 0;
  /// The size of the form in twips, without its frame; left and top are 0.
  [[nodiscard]] virtual Place area() const = 0;

  /// The outcome of the form; empty until there is one.
  [[nodiscard]] const std::u16string& Tag() const { return tag_; }

  /// Loads the form, shows it and handles events until it has hidden itself, or until the program
  /// is about to quit, which hides it without an outcome. The observer must live until then; a null
  /// observer is an invalid call (error 5), since nobody could answer the form. A form that is
  /// already shown is error 400. An error while loading passes to the caller, and nothing is shown.
  void showModal(EventLoop& loop, FormObserver* observer);

  /// Ends the modal run. Does nothing if the form is not shown.
  void hide();

 protected:
  /// Sets the widgets to the state in which they are shown.
  virtual void Form_Load() = 0;

  const Widget* titleBar_ = nullptr;
  std::u16string icon_;
  std::u16string tag_;

 private:
  std::u16string name_;
  bool visible_ = false;
  FormObserver* formObserver_ = nullptr;
  std::unique_ptr<ModalRun> run_;
};

}  // namespace tessara
