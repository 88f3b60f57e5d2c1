#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/MessageHelper.h"

namespace tessara {

/// Message boxes in windows of their own, modal to the parent, or to the dialog that is open.
class QtMessageHelper : public MessageHelper {
 public:
  /// The window that the boxes belong to; null, or one that has gone, for none.
  void setParent(QWidget* parent) { parent_ = parent; }

  /// Text and title are shown as they are, never as markup. Escape and closing the box count as OK.
  std::int32_t Show(const std::u16string& text, MessageStyle style,
                    const std::u16string& title) override;

 private:
  QPointer<QWidget> parent_;
};

}  // namespace tessara
