#pragma once

#include <memory>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "platform/Platform.h"
#include "widgets/Form.h"

namespace tessara {

/// The use of the one form of its kind on this thread: created when it is wanted, and unloaded when
/// the use is over, whatever came of it.
template <class Kind>
class FormUse {
 public:
  /// `instance` holds the form for as long as it is used. A form in use is shown already (error
  /// 400).
  FormUse(std::shared_ptr<Kind>& instance, Platform& platform) : instance_(instance) {
    if (instance_) {
      throw RunTimeError(ErrorNumber::FormAlreadyShown,
                         toUtf8(instance_->name()) + " is shown already");
    }
    instance_ = std::make_shared<Kind>(platform);
  }
  FormUse(const FormUse&) = delete;
  FormUse& operator=(const FormUse&) = delete;
  ~FormUse() { instance_.reset(); }

  [[nodiscard]] const std::shared_ptr<Kind>& form() const { return instance_; }
  Kind* operator->() const { return instance_.get(); }

 private:
  std::shared_ptr<Kind>& instance_;
};

}  // namespace tessara
