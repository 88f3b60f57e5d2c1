#pragma once

#include <QFrame>

#include "qt/WidgetView.h"

namespace tessara {

enum class FrameRole {
  /// A card on the panel.
  Card,
  /// The bottom part of a card, in a different shade.
  Foot,
};

/// A frame around related widgets; it takes no input.
class FrameView : public QFrame, public WidgetView {
 public:
  FrameView(Widget& subject, FrameRole role, QWidget* parent);

  QWidget& widget() override { return *this; }
  void sync() override { syncCommon(); }
  void setLook(const Look& look) override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  FrameRole role_;
  Look look_;
};

}  // namespace tessara
