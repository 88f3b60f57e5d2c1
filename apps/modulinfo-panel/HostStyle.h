#pragma once

#include <QProxyStyle>

namespace tessara {

/// The style of the system, but for one icon: that of the button which a menu bar shows when it is
/// too narrow. Every menu bar has it made, and with it the plugins for all kinds of pictures
/// loaded, long before anybody makes a window that narrow.
class HostStyle : public QProxyStyle {
 public:
  [[nodiscard]] QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                                   const QWidget* widget) const override;
};

}  // namespace tessara
