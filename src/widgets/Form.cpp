#include "widgets/Form.h"

#include <utility>

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace tessara {
namespace {

/// Hides a form when showing it ends, for whatever reason.
class Hiding {
 public:
  explicit Hiding(Form& form) : form_(form) {}
  Hiding(const Hiding&) = delete;
  Hiding& operator=(const Hiding&) = delete;
  ~Hiding() { form_.hide(); }

 private:
  Form& form_;
};

}  // namespace

void Form::showModal(EventLoop& loop, FormObserver* observer) {
  if (visible_) {
    throw RunTimeError(ErrorNumber::FormAlreadyShown, toUtf8(name_) + " is shown already");
  }
  if (observer == nullptr) {
    throw RunTimeError(ErrorNumber::InvalidCall,
                       toUtf8(name_) + " cannot be shown: the host draws no forms");
  }
  Form_Load();
  run_ = loop.createModalRun();
  formObserver_ = observer;
  visible_ = true;
  const Hiding hiding(*this);
  formObserver_->formShown(*this);
  run_->run();
}

void Form::hide() {
  if (!std::exchange(visible_, false)) {
    return;
  }
  run_->end();
  formObserver_->formHidden(*this);
}

}  // namespace tessara
