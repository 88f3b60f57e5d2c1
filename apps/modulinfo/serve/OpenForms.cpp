#include "serve/OpenForms.h"

#include <algorithm>

#include "base/Text.h"

namespace tessara {

void OpenForms::formShown(Form& form) {
  announce(form, true);
  turns_.formShown(form);
}

void OpenForms::formHidden(Form& form) {
  announce(form, false);
  turns_.formHidden(form);
}

Form* OpenForms::find(std::u16string_view name) const {
  const auto forms = turns_.forms();
  const auto found =
      std::ranges::find_if(forms, [&](const Form* form) { return form->name() == name; });
  return found == forms.end() ? nullptr : *found;
}

void OpenForms::hideAll() {
  for (auto forms = turns_.forms(); !forms.empty(); forms = turns_.forms()) forms.back()->hide();
}

void OpenForms::announce(const Form& form, bool isOpen) const {
  announcer_.announce("dialog",
                      JsonText::object({{"name", toUtf8(form.name())}, {"open", isOpen}}));
}

}  // namespace tessara
