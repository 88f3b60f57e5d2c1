#pragma once

#include <QLabel>

#include "qt/WidgetView.h"

namespace tessara {

/// The background of a picture from a file: white, as logos are made for paper, or that of the
/// window.
enum class PictureGround { White, None };

/// The state picture, a logo, or a picture of a dialog.
class PictureView : public QLabel, public WidgetView {
 public:
  PictureView(Widget& subject, PictureGround ground, QWidget* parent);

  QWidget& widget() override { return *this; }
  void sync() override;
  void setLook(const Look& look) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  [[nodiscard]] QSize minimumSizeHint() const override { return {}; }

 private:
  [[nodiscard]] bool isLogo() const;

  PictureGround ground_;
  Look look_;
  Picture picture_;
};

}  // namespace tessara
