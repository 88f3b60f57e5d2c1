#pragma once

#include "qt/FormLayout.h"
#include "qt/FormView.h"
#include "qt/LabelView.h"

namespace tessara {

/// The text style of a label in the dialogs.
LabelRole roleOf(const Widget& label);

/// The space that the texts of a form need in the fonts of its view, which must outlive the result.
FormLayout::Needs textNeeds(const FormView& view);

}  // namespace tessara
