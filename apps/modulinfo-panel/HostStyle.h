#pragma once

#include <QProxyStyle>

namespace tessara {

/// The system's style, except that the icon of the button that a menu bar shows when it is too
/// narrow is drawn on first use. QMenuBar requests that icon at once, which would load the image
/// plugins before the first window is shown.
class HostStyle : public QProxyStyle {
 public:
  [[nodiscard]] QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                                   const QWidget* widget) const override;
};

}  // namespace tessara
