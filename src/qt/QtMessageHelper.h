#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/MessageHelper.h"

namespace tessara {

/// Message boxes, modal to the parent or to the open dialog.
class QtMessageHelper : public MessageHelper {
 public:
  /// The parent window of the boxes; none if null or deleted.
  void setParent(QWidget* parent) { parent_ = parent; }

  /// Shows text and title as plain text. Escape and closing the box count as OK.
  std::int32_t Show(const std::u16string& text, MessageStyle style,
                    const std::u16string& title) override;

 private:
  QPointer<QWidget> parent_;
};

}  // namespace tessara
