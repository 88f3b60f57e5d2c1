#pragma once

#include <string_view>
#include <vector>

#include "serve/Announcer.h"
#include "serve/Turns.h"
#include "widgets/Form.h"

namespace tessara {

/// The open dialogs of a control: each is reported to the client, and requests are handled while
/// one waits.
class OpenForms final : public FormObserver {
 public:
  /// Both must outlive this.
  OpenForms(const Announcer& announcer, Turns& turns) : announcer_(announcer), turns_(turns) {}

  void formShown(Form& form) override;
  void formHidden(Form& form) override;

  [[nodiscard]] std::vector<Form*> all() const { return turns_.forms(); }
  /// The open form of that name; null if there is none.
  [[nodiscard]] Form* find(std::u16string_view name) const;
  /// Closes all forms without an outcome.
  void hideAll();

 private:
  void announce(const Form& form, bool isOpen) const;

  const Announcer& announcer_;
  Turns& turns_;
};

}  // namespace tessara
