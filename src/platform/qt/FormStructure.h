#pragma once

#include "platform/qt/FormLayout.h"
#include "platform/qt/FormView.h"
#include "platform/qt/LabelView.h"

namespace tessara {

/// How a label of the dialogs is set.
LabelRole roleOf(const Widget& label);

/// What the texts of a form need in the fonts of its view, which must outlive the answer.
FormLayout::Needs textNeeds(const FormView& view);

}  // namespace tessara
