#pragma once

#include <functional>
#include <string>
#include <vector>

#include "control/ModulInfoFLII.h"
#include "serve/OpenForms.h"
#include "serve/ServeLoop.h"

namespace tessara {

/// What the requests of a client operate on.
struct Bridge {
  ModulInfoFLII& control;
  OpenForms& forms;
  ServeLoop& loop;
  /// Ends the control and the program.
  std::function<void()> quit;

  /// The widget of that name: "LngLabel[3]" of the panel, "frmLanguage.OptionFR" of an open dialog.
  /// An unknown one is an RpcError (wrong parameters) that names what is unknown.
  [[nodiscard]] Widget& widget(const std::string& name) const;

  struct NamedWidget {
    std::string name;
    const Widget* widget;
  };
  /// All widgets of the panel and then those of the open dialogs, in the order of their creation.
  [[nodiscard]] std::vector<NamedWidget> widgets() const;
};

}  // namespace tessara
