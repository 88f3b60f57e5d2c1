#pragma once

#include <QLabel>

#include "platform/qt/WidgetView.h"

namespace tessara {

/// The state picture or a logo. Logos are made for paper, so they lie on white, also on a dark
/// panel.
class PictureView : public QLabel, public WidgetView {
 public:
  PictureView(Widget& subject, QWidget* parent);

  QWidget& widget() override { return *this; }
  void sync() override;
  void setLook(const Look& look) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  [[nodiscard]] QSize minimumSizeHint() const override { return {}; }

 private:
  [[nodiscard]] bool isLogo() const;

  Look look_;
  Picture picture_;
};

}  // namespace tessara
