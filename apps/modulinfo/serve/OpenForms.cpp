#include "serve/OpenForms.h"

#include <algorithm>

#include "base/Text.h"

namespace tessara {

void OpenForms::formShown(Form& form) {
  forms_.push_back(&form);
  announce(form, true);
  turns_.formShown(&form);
}

void OpenForms::formHidden(Form& form) {
  std::erase(forms_, &form);
  announce(form, false);
  turns_.formHidden(&form);
}

Form* OpenForms::find(std::u16string_view name) const {
  const auto found = std::find_if(forms_.begin(), forms_.end(),
                                  [&](const Form* form) { return form->name() == name; });
  return found == forms_.end() ? nullptr : *found;
}

void OpenForms::hideAll() {
  while (!forms_.empty()) forms_.back()->hide();
}

void OpenForms::announce(const Form& form, bool isOpen) const {
  announcer_.announce("dialog",
                      JsonText::object({{"name", toUtf8(form.name())}, {"open", isOpen}}));
}

}  // namespace tessara
