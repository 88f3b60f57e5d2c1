#include "HostStyle.h"

#include "DeferredIcon.h"

namespace tessara {

QIcon HostStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                              const QWidget* widget) const {
  if (which == SP_ToolBarHorizontalExtensionButton) {
    return deferredIcon([this, which] { return QProxyStyle::standardIcon(which); });
  }
  return QProxyStyle::standardIcon(which, option, widget);
}

}  // namespace tessara
