#pragma once

#include "qt/FormLayout.h"
#include "qt/FormView.h"
#include "qt/LabelView.h"

namespace tessara {

/// How a label of the dialogs is set.
LabelRole roleOf(const Widget& label);

/// What the texts of a form need in the fonts of its view, which must outlive the answer.
FormLayout::Needs textNeeds(const FormView& view);

}  // namespace tessara
